// SPDX-License-Identifier: GPL-3.0-or-later
// The whole program on fakes, found and worked from outside like by its user.
#pragma once

#include <gtest/gtest.h>

#include <QTest>

#include "app/system_of_fakes.h"

namespace vaktor::essai {

class ProgrammeSurFaux : public testing::Test {
 protected:
  void Demarre(const QString& arguments = {}) {
    Programme = std::make_unique<Vaktor>(Systeme.Ports(), arguments);
    Programme->Demarre(QStringLiteral("1.4.9"));
  }
  /// The same in English, to the main window on the screen. The calls until then are forgotten.
  void DemarreJusquALaFenetre() {
    Systeme.Valeurs.insert(QStringLiteral("general/langue"), QStringLiteral("1"));
    Demarre();
    Systeme.Temps.Avance(2000);
    Systeme.Notes.Vide();
  }
  /// The three companions answer with their handles 71 to 73. One that does not counts as hung a little later.
  void InscritCompagnons() {
    for (const qint32 casier : {1001, 1002, 1003}) Systeme.Recoit(casier, QStringLiteral("HWND:%1").arg(casier - 930));
    Systeme.Notes.Vide();
  }
  /// A start that fails, and its message as launch.cpp shows it: the description, empty when the start went through.
  QString DemarreEtEchoue(const QString& arguments = {}) {
    try {
      Demarre(arguments);
    } catch (const Echec& echec) {
      Programme->AnnonceDemarrageImpossible(echec.Description());
      return echec.Description();
    }
    return {};
  }
  /// A window by its name; null where there is none.
  static QWidget* Fenetre(const char* nom) {
    for (QWidget* fenetre : QApplication::topLevelWidgets()) {
      if (fenetre->objectName() == QLatin1String(nom)) return fenetre;
    }
    return nullptr;
  }
  /// A control of the main window.
  template <typename T = QWidget>
  static T* Trouve(const char* nom) {
    return Fenetre("Form1")->findChild<T*>(QLatin1String(nom));
  }
  static bool Visible(const char* nom) { return Fenetre(nom) != nullptr && Fenetre(nom)->isVisible(); }
  static void Clique(const char* nom) { QTest::mouseClick(Trouve(nom), Qt::LeftButton); }

  SystemeFaux Systeme;
  std::unique_ptr<Vaktor> Programme;
};

}  // namespace vaktor::essai
