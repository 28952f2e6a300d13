// SPDX-License-Identifier: GPL-3.0-or-later
// The addresses of the manual and of the version page.
#include <gtest/gtest.h>

#include "fakes/fake_interface_sounds.h"
#include "fakes/fake_sound_player.h"
#include "ui/window/web_links.h"

namespace vaktor {
namespace {

class Liens : public testing::Test {
 protected:
  LiensEnLigne Cree(const QString& hote) {
    return {Reglages, Sons, Navigateur, {hote, QStringLiteral("/opt/my vaktor/site"), QStringLiteral("1.4.9")}};
  }
  faux::Journal Journal;
  Parametres Reglages;
  faux::SonsFaux Sons{Journal};
  faux::OuvreurFaux Navigateur;
};

TEST_F(Liens, MakersSiteByLanguage) {
  LiensEnLigne liens = Cree(QStringLiteral("https://www.example.org"));
  liens.OuvreNotice();
  liens.OuvreMiseAJour();
  Reglages.LangueCourante = 1;
  liens.OuvreNotice();
  liens.OuvreMiseAJour();
  EXPECT_EQ(
      Navigateur.Adresses,
      (QStringList{QStringLiteral("https://www.example.org/vaktor_notice.html"),
                   QStringLiteral("https://www.example.org/versiontest.php?logiciel=Vaktor&version=1.4.9"),
                   QStringLiteral("https://www.example.org/ENGLISH/VaktorNotice.html"),
                   QStringLiteral("https://www.example.org/ENGLISH/versiontest.php?logiciel=Vaktor&version=1.4.9")}));
}

TEST_F(Liens, EachTicksOnceBeforeItOpens) {
  LiensEnLigne liens = Cree(QString());
  Journal.Ecoute();
  liens.OuvreNotice();
  EXPECT_EQ(Journal.Lignes().count("JoueSon 4"), 1) << Journal.Lignes().join('|').toStdString();
  Journal.Vide();
  liens.OuvreMiseAJour();
  EXPECT_EQ(Journal.Lignes().count("JoueSon 4"), 1) << Journal.Lignes().join('|').toStdString();
}

TEST_F(Liens, WithoutASiteThePagesInstalledWithTheProgramOpen) {
  LiensEnLigne liens = Cree(QString());
  liens.OuvreNotice();
  Reglages.LangueCourante = 1;
  liens.OuvreMiseAJour();
  EXPECT_EQ(Navigateur.Adresses,
            (QStringList{QStringLiteral("file:///opt/my%20vaktor/site/vaktor_notice.html"),
                         QStringLiteral("file:///opt/my%20vaktor/site/ENGLISH/versiontest.html")}));
}

TEST_F(Liens, UnknownLanguageTicksAndOpensNothing) {
  Reglages.LangueCourante = 2;
  LiensEnLigne liens = Cree(QStringLiteral("https://www.example.org"));
  liens.OuvreNotice();
  liens.OuvreMiseAJour();
  EXPECT_TRUE(Navigateur.Adresses.isEmpty());
  EXPECT_EQ(Sons.DernierSon, 4);
}

}  // namespace
}  // namespace vaktor
