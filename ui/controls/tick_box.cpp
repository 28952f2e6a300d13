// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/tick_box.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>

#include "ui/common/clicked_words.h"

namespace vaktor {

namespace {

// What a screen reader sees of a box. The toolkit's own would set the tick and nothing else: no flag, no save.
class CaseEntendue : public QAccessibleWidget {
 public:
  explicit CaseEntendue(CaseACocher* boite) : QAccessibleWidget(boite, QAccessible::CheckBox), Boite_(boite) {}

  QAccessible::State state() const override {
    QAccessible::State etat = QAccessibleWidget::state();
    etat.checkable = true;
    etat.checked = Boite_->isChecked();
    return etat;
  }
  QStringList actionNames() const override {
    QStringList noms = QAccessibleWidget::actionNames();
    noms.prepend(toggleAction());
    return noms;
  }
  // Later, so that the reader is not kept waiting by what the click does: a message may stand in it.
  void doAction(const QString& action) override {
    if (action != toggleAction()) return QAccessibleWidget::doAction(action);
    QMetaObject::invokeMethod(
        Boite_, [boite = Boite_] { boite->Bascule(); }, Qt::QueuedConnection);
  }

 private:
  CaseACocher* Boite_;
};

QAccessibleInterface* CreeEntendue(const QString&, QObject* objet) {
  auto* boite = qobject_cast<CaseACocher*>(objet);
  return boite != nullptr ? new CaseEntendue(boite) : nullptr;
}

}  // namespace

CaseACocher::CaseACocher(QWidget* parent) : QCheckBox(parent) {
  QAccessible::installFactory(CreeEntendue);  // the same one again is nothing
}

void CaseACocher::Bascule() {
  click();
  Q_EMIT Relachee();
}

void CaseACocher::mouseReleaseEvent(QMouseEvent* evenement) {
  QCheckBox::mouseReleaseEvent(evenement);
  Q_EMIT Relachee();
}

void CaseACocher::keyReleaseEvent(QKeyEvent* evenement) {
  const bool avant = isChecked();
  QCheckBox::keyReleaseEvent(evenement);
  if (isChecked() != avant) Q_EMIT Relachee();
}

void RelieMots(QLabel& mots, CaseACocher& boite) {
  RelieMots(mots, boite, [&boite] { boite.Bascule(); });
}

}  // namespace vaktor
