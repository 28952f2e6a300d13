// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/common/menu_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <utility>

namespace vaktor {

namespace {

// A picture that says what it shows and whose menu a screen reader can open.
class VueEntendue : public QAccessibleWidget {
 public:
  explicit VueEntendue(VueAMenu* vue) : QAccessibleWidget(vue, QAccessible::Graphic), Vue_(vue) {}

  QString text(QAccessible::Text quoi) const override {
    if (quoi != QAccessible::Description) return QAccessibleWidget::text(quoi);
    QStringList phrases = {Vue_->Paroles(), QAccessibleWidget::text(quoi)};
    phrases.removeAll(QString());
    return phrases.join(u'\n');
  }
  QStringList actionNames() const override {
    QStringList noms = QAccessibleWidget::actionNames();
    noms.prepend(showMenuAction());
    return noms;
  }
  // Later, so that the reader is not kept waiting by what the menu does.
  void doAction(const QString& action) override {
    if (action != showMenuAction()) return QAccessibleWidget::doAction(action);
    QMetaObject::invokeMethod(Vue_, &VueAMenu::MenuAuClavier, Qt::QueuedConnection);
  }

 private:
  VueAMenu* Vue_;
};

QAccessibleInterface* CreeEntendue(const QString&, QObject* objet) {
  auto* vue = qobject_cast<VueAMenu*>(objet);
  return vue != nullptr ? new VueEntendue(vue) : nullptr;
}

bool OuvreMenu(const QKeyEvent& evenement) {
  const int touche = evenement.key();
  if (touche == Qt::Key_F10) return evenement.modifiers() == Qt::ShiftModifier;
  return touche == Qt::Key_Return || touche == Qt::Key_Enter || touche == Qt::Key_Space;
}

}  // namespace

VueAMenu::VueAMenu(QWidget* parent) : QWidget(parent) {
  QAccessible::installFactory(CreeEntendue);  // the same one again is nothing
}

void VueAMenu::ChangeParoles(const QString& nom, std::function<QString()> paroles) {
  setAccessibleName(nom);
  Paroles_ = std::move(paroles);
  AnnonceParoles();
}

void VueAMenu::AnnonceParoles() {
  QAccessibleEvent change(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&change);
}

// The right button has opened the menu where it was pressed.
void VueAMenu::contextMenuEvent(QContextMenuEvent* evenement) {
  if (evenement->reason() == QContextMenuEvent::Keyboard) Q_EMIT MenuAuClavier();
}

// The menu key itself comes as a wish for a context menu.
void VueAMenu::keyPressEvent(QKeyEvent* evenement) {
  if (!OuvreMenu(*evenement)) return QWidget::keyPressEvent(evenement);
  if (!evenement->isAutoRepeat()) Q_EMIT MenuAuClavier();
}

void OuvreAuClavier(QMenu& menu, const QWidget& vue) {
  menu.popup(vue.mapToGlobal(vue.rect().center()));
  menu.setActiveAction(menu.actions().constFirst());
}

}  // namespace vaktor
