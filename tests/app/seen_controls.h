// SPDX-License-Identifier: GPL-3.0-or-later
// What the controls of a window show, each by its name.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMap>
#include <QPlainTextEdit>
#include <QWidget>

namespace vaktor::essai {

using ControlesVus = QMap<QString, QString>;

/// The controls into which a user puts something, with what they show.
inline ControlesVus RegardeControles(const QWidget& fenetre) {
  ControlesVus vus;
  for (const QLineEdit* champ : fenetre.findChildren<QLineEdit*>()) vus[champ->objectName()] = champ->text();
  for (const QPlainTextEdit* champ : fenetre.findChildren<QPlainTextEdit*>()) {
    vus[champ->objectName()] = champ->toPlainText();
  }
  for (const QComboBox* liste : fenetre.findChildren<QComboBox*>()) {
    vus[liste->objectName()] = QString::number(liste->currentIndex());
  }
  for (const QCheckBox* boite : fenetre.findChildren<QCheckBox*>()) {
    vus[boite->objectName()] = boite->isChecked() ? QStringLiteral("on") : QStringLiteral("off");
  }
  return vus;
}

}  // namespace vaktor::essai
