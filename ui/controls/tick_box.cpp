// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/tick_box.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>

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

class MotsDeCase : public QObject {
 public:
  MotsDeCase(QLabel* mots, CaseACocher& boite) : QObject(mots), Mots_(mots), Boite_(boite) {
    mots->installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* evenement) override {
    const QEvent::Type type = evenement->type();
    const bool appuie = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!appuie && type != QEvent::MouseButtonRelease) return false;
    const auto* souris = static_cast<QMouseEvent*>(evenement);
    if (souris->button() != Qt::LeftButton) return false;
    // A press that began on another control is no click here.
    const bool clique = !appuie && Appuyes_ && Mots_->rect().contains(souris->position().toPoint());
    Appuyes_ = appuie;
    if (!clique) return false;
    Boite_.setFocus(Qt::MouseFocusReason);
    Boite_.Bascule();
    return false;
  }

 private:
  QLabel* Mots_;
  CaseACocher& Boite_;
  bool Appuyes_ = false;
};

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

void RelieMots(QLabel& mots, CaseACocher& boite) { new MotsDeCase(&mots, boite); }

}  // namespace vaktor
