// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/common/heard_roles.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QVariant>

namespace vaktor {

namespace {

constexpr const char* kRole = "vaktorRole";
constexpr QLatin1StringView kNomDe{"NomDe"};

// Called with the name of each class of an object, from its own one up to QWidget, until somebody answers: whatever the
// toolkit knows by a nearer class never comes here as a "QWidget".
QAccessibleInterface* CreeEntendu(const QString& classe, QObject* objet) {
  auto* controle = qobject_cast<QWidget*>(objet);
  if (controle == nullptr) return nullptr;
  const QVariant donne = controle->property(kRole);
  if (donne.isValid()) return new QAccessibleWidget(controle, static_cast<QAccessible::Role>(donne.toInt()));
  if (classe == QLatin1StringView("QWidget") && controle->isWindow())
    return new QAccessibleWidget(controle, QAccessible::Window);
  return nullptr;
}

}  // namespace

void InstalleRoles() { QAccessible::installFactory(CreeEntendu); }

void DonneRole(QWidget& controle, QAccessible::Role role) {
  InstalleRoles();
  controle.setProperty(kRole, static_cast<int>(role));
}

void NommeListe(QComboBox& liste, const QString& nom) {
  liste.setAccessibleName(nom);
  auto* parent = liste.parentWidget();
  auto* etiquette = parent->findChild<QLabel*>(kNomDe + liste.objectName(), Qt::FindDirectChildrenOnly);
  if (etiquette == nullptr) {
    etiquette = new QLabel(parent);
    etiquette->setObjectName(kNomDe + liste.objectName());
    etiquette->setFont(liste.font());  // nobody sees it: it must not load a font of its own
    etiquette->hide();
    etiquette->setBuddy(&liste);
  }
  etiquette->setText(nom);
}

}  // namespace vaktor
