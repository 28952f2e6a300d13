// SPDX-License-Identifier: GPL-3.0-or-later
// The fields of the push in the form of the mail settings.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>

#include "settings/parameters.h"
#include "texts/language.h"

namespace vaktor {

/// Its controls belong to the form. What is typed goes into the settings with each key, as in the other fields; red is
/// what cannot be right.
class ChampsPush {
 public:
  /// `essaie` is called for a click on the button that tries them.
  ChampsPush(QWidget* forme, Parametres& reglages, std::function<void()> essaie);

  void AjouteA(QGridLayout& grille) const;
  /// What the settings hold.
  void Montre();
  void EcritMots(Langue langue);

 private:
  void Branche(QLineEdit* champ, QString Parametres::*variable, bool (*mauvais)(const QString&));

  Parametres& Reglages_;
  QLabel* LblPush;
  QLineEdit* TxtPush;
  QPushButton* CmdEssaiPush;
  QLabel* LblPushEntete;
  QLineEdit* TxtPushEntete;
};

}  // namespace vaktor
