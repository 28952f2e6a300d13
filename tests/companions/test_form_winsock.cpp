// SPDX-License-Identifier: GPL-3.0-or-later
// What each upward word does, row by row, and what it leaves alone.
#include <gtest/gtest.h>

#include "base/failure.h"
#include "companions/companion_fakes.h"

namespace vaktor::essai {
namespace {

struct Winsock : testing::Test {
  QStringList Journal;
  CanalFaux Canal{Journal};
  MagasinFaux Magasin{Journal};
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Minuteries{Horloge};
  CommandesFaux Commandes{Journal};
  FenetreFausse Fenetre{Journal};
  EtatLiaison Etat;
  std::unique_ptr<FormWinsock> Form = std::make_unique<FormWinsock>(
      PortsWinsock{Canal, Magasin, Minuteries, Commandes, Fenetre, Fenetre, Etat,
                   [this] { Journal << QStringLiteral("relance"); }, [this] { return Relance; },
                   [this](Compagnon c) { Journal << QStringLiteral("inscrit ") + DonneIdentite(c).Section; },
                   [this] { return Present; }});
  bool Relance = false;  ///< the FTP companion was started again
  bool Present = true;   ///< it is there

  /// What a text in the FTP inbox leads to, with the switch on or off.
  QString Recoit(const QString& texte, bool surveillance = true) {
    Journal.clear();
    Etat.SurveillanceEnCours = surveillance;
    Etat.LiveActif = false;
    Canal.Casiers.at(1001)(texte);
    return Journal.join(u'|');
  }
  bool Attend() const { return Minuteries.Trouve("TimerFTPreconnect")->EstActive(); }
};

TEST_F(Winsock, PublishesTheThreeHandlesOnDiskBeforeAnythingElse) {
  EXPECT_EQ(Journal.join(u'|'),
            "ouvre 1001|ecrit FTP/HWNDVK=1001|ouvre 1002|ecrit MAIL/HWNDVK=1002|ouvre 1003|ecrit SON/HWNDVK=1003|vide");
}

TEST_F(Winsock, ClosesItsInboxesAtItsEnd) {
  EXPECT_EQ(Canal.Casiers.size(), 3U);
  Form.reset();
  EXPECT_TRUE(Canal.Casiers.empty());
}

TEST_F(Winsock, EachInboxTakesTheHandleOfItsCompanion) {
  Canal.Casiers.at(1001)("HWND:70001");
  Canal.Casiers.at(1002)("HWND:70002");
  Canal.Casiers.at(1003)("HWND:70003");
  EXPECT_EQ(Etat.HandleFTP, 70001);
  EXPECT_EQ(Etat.HandleMail, 70002);
  EXPECT_EQ(Etat.HandleSon, 70003);
}

TEST_F(Winsock, ALaterRegistrationReplacesTheHandle) {
  Canal.Casiers.at(1002)("HWND:5");
  Canal.Casiers.at(1002)("HWND:6");
  EXPECT_EQ(Etat.HandleMail, 6);
}

TEST_F(Winsock, AHandleThatIsNoNumberFailsAndChangesNothing) {
  Canal.Casiers.at(1001)("HWND:5");
  for (const char* texte : {"HWND:", "HWND:abc", "HWND:99999999999"})
    EXPECT_THROW(Canal.Casiers.at(1001)(texte), Echec) << texte;
  EXPECT_EQ(Etat.HandleFTP, 5);
}

TEST_F(Winsock, MailAndSoundKnowNoOtherWord) {
  Journal.clear();
  Etat.SurveillanceEnCours = true;
  for (const qint32 casier : {1002, 1003})
    for (const char* mot : {"ErrCo", "ConOK", "*OKO*", "Netdc", "Hello", ""}) Canal.Casiers.at(casier)(mot);
  EXPECT_TRUE(Journal.isEmpty());
  EXPECT_TRUE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
  EXPECT_FALSE(Etat.FtpModulePret);
}

TEST_F(Winsock, WordsThatOnlyShow) {
  for (const bool surveillance : {true, false}) {
    EXPECT_EQ(Recoit("Conne", surveillance), "statut 69");
    EXPECT_EQ(Recoit("Decon", surveillance), "statut 34");
    EXPECT_EQ(Recoit("Uploa", surveillance), "statut 70");
    EXPECT_EQ(Recoit("SerTR", surveillance), QString::fromUtf8("statut Serveur trouvé"));
    EXPECT_EQ(Recoit("Paswo", surveillance), "statut Identification");
    EXPECT_EQ(Etat.SurveillanceEnCours, surveillance);
    EXPECT_FALSE(Etat.LiveActif);
  }
}

TEST_F(Winsock, GuardedWordsNeedTheSwitch) {
  EXPECT_EQ(Recoit("Surve"), "statut 33|live LEDVERT");
  EXPECT_FALSE(Etat.LiveActif);
  EXPECT_EQ(Recoit("UplOK"), "statut 37|live LEDVERT");
  EXPECT_TRUE(Etat.LiveActif);
  EXPECT_EQ(Recoit("ConOK"), "statut 36|live LEDVERT");
  EXPECT_TRUE(Etat.LiveActif);
}

TEST_F(Winsock, GuardedWordsWithTheSwitchOffChangeNothingAtAll) {
  for (const char* mot : {"Surve", "UplOK", "ConOK"}) {
    EXPECT_EQ(Recoit(mot, false), "") << mot;
    EXPECT_FALSE(Etat.LiveActif) << mot;
  }
}

TEST_F(Winsock, ErrorWordsMarkTheirFieldsAndEndTheLink) {
  const QList<QPair<QString, QString>> attendus = {
      {"SerER", "statut 71|live LEDRED|rouge TxtFtp|page 2"},
      {"RepER", "statut 72|live LEDRED|rouge TxtFTPracine|page 2"},
      {"LogEr", "statut 38|live LEDRED|rouge TxtUserName|rouge TxtPass|page 2"},
      {"ErrCo", "statut 39|live LEDRED|page 2"},
      {"Upnot", "statut 40|page 2"},  // the lamp stays as it is
  };
  for (const auto& [mot, attendu] : attendus) {
    Etat.LiveActif = true;
    EXPECT_EQ(Recoit(mot), attendu);
    EXPECT_FALSE(Etat.SurveillanceEnCours) << mot.toStdString();
    EXPECT_FALSE(Etat.LiveActif) << mot.toStdString();
  }
}

// No click takes it away, so it must not stand there for the rest of the day.
TEST_F(Winsock, RedOfTheFolderLastsToTheNextWordThatTellsOfTheLink) {
  for (const char* mot :
       {"Conne", "Decon", "Uploa", "Netdc", "SerTR", "SerER", "Paswo", "ErrCo", "Upnot", "LogEr", "ConOK"}) {
    Recoit("RepER");
    ASSERT_TRUE(Fenetre.RacineRouge);
    Recoit("RepER");
    EXPECT_TRUE(Fenetre.RacineRouge) << "told again, it is red again";
    Recoit("HWND:12");
    Recoit("*OKO*");
    Recoit("Quark");
    Recoit("ConOK", false);
    EXPECT_TRUE(Fenetre.RacineRouge) << "these say nothing of it";
    Recoit(mot);
    EXPECT_FALSE(Fenetre.RacineRouge) << mot;
  }
}

// A page that ran is waited for, in silence but for its status.
TEST_F(Winsock, RedOfTheFolderGoesAlsoWithAWordThatIsWaitedOut) {
  Recoit("RepER");
  Etat.PageInterrompue = true;
  Recoit("SerER");
  EXPECT_FALSE(Fenetre.RacineRouge);
}

TEST_F(Winsock, AnErrorWordEndsALinkThatWasLive) {
  Etat.SurveillanceEnCours = true;
  Etat.LiveActif = true;
  Form->ChangeTxtCmdFTP("ErrCo");
  EXPECT_FALSE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
}

// Off, it would not even be an old page any more, and nobody looks at the status line.
TEST_F(Winsock, AnErrorThatEndsAPageThatRanIsKept) {
  const QList<QPair<QString, Libelle>> mots = {{"LogEr", Libelle::kAccesIncorrect},
                                               {"RepER", Libelle::kRepertoireInexistant},
                                               {"Upnot", Libelle::kInfosManquent},
                                               {"ErrCo", Libelle::kEchecFtp}};
  for (const auto& [mot, libelle] : mots) {
    for (bool EtatLiaison::*marche :
         {&EtatLiaison::LiveActif, &EtatLiaison::PageInterrompue, &EtatLiaison::PageAttendue}) {
      if (mot == QStringLiteral("ErrCo") && marche == &EtatLiaison::PageInterrompue) continue;  // that is waited out
      Etat = {.SurveillanceEnCours = true};
      Etat.*marche = true;
      Form->ChangeTxtCmdFTP(mot);
      EXPECT_EQ(Etat.PageCoupee, libelle) << mot.toStdString();
    }
  }
}

TEST_F(Winsock, NoPageIsCutThatNeverRanOrThatNoErrorEnds) {
  for (const char* mot : {"LogEr", "RepER", "Upnot", "ErrCo", "SerER"}) {
    Recoit(mot);
    EXPECT_FALSE(Etat.PageCoupee) << mot << ": whoever clicked sees the status line";
  }
  for (const char* mot : {"Netdc", "Decon", "Surve", "UplOK", "ConOK"}) {
    Etat = {.SurveillanceEnCours = true, .LiveActif = true};
    Form->ChangeTxtCmdFTP(mot);
    EXPECT_FALSE(Etat.PageCoupee) << mot;
  }
}

TEST_F(Winsock, ReadyWithoutStartArgumentsOnlySetsItsFlag) {
  EXPECT_FALSE(Etat.FtpModulePret);
  EXPECT_EQ(Recoit("*OKO*"), "relance");  // whether an argument was given is the engine's to know
  EXPECT_TRUE(Etat.FtpModulePret);
}

TEST_F(Winsock, ReadyAgainStartsTheArgumentsAgain) {
  Recoit("*OKO*");
  EXPECT_EQ(Recoit("*OKO*"), "relance");
}

TEST_F(Winsock, OnlyFiveCharactersCount) {
  EXPECT_EQ(Recoit("UplOK 1234"), "statut 37|live LEDVERT");
  EXPECT_EQ(Recoit("Connexion"), "statut 69");
}

TEST_F(Winsock, UnknownShortAndEmptyTextsAreDropped) {
  for (const char* texte : {"", "Conn", "conne", "Hello", " Conne", "\x01\x02\x03\x04\x05", "HWND"})
    EXPECT_EQ(Recoit(texte), "") << texte;
}

TEST_F(Winsock, NoConnectionIsTriedAgainOnceAfterAMinute) {
  Etat.LiveActif = true;
  Etat.SurveillanceEnCours = true;
  Journal.clear();
  Form->ChangeTxtCmdFTP("Netdc");
  EXPECT_EQ(Journal.join(u'|'), "statut 174");
  EXPECT_TRUE(Etat.SurveillanceEnCours);
  EXPECT_TRUE(Etat.LiveActif);
  EXPECT_TRUE(Attend());
  Journal.clear();
  Minuteries.Avance(59999);
  EXPECT_TRUE(Journal.isEmpty());
  Minuteries.Avance(1);
  EXPECT_EQ(Journal.join(u'|'), "FTP Surve");
  EXPECT_FALSE(Attend());
  Minuteries.Avance(120000);
  EXPECT_EQ(Journal.size(), 1);
}

TEST_F(Winsock, NoRetryWhenTheSwitchHasGoneOffMeanwhile) {
  Recoit("Netdc");
  Etat.SurveillanceEnCours = false;
  Journal.clear();
  Minuteries.Avance(60000);
  EXPECT_TRUE(Journal.isEmpty());
  EXPECT_FALSE(Attend());
}

TEST_F(Winsock, ASecondReportDoesNotPutTheRetryOff) {
  Recoit("Netdc");
  Minuteries.Avance(30000);
  Recoit("Netdc");
  Journal.clear();
  Minuteries.Avance(30000);
  EXPECT_EQ(Journal.join(u'|'), "FTP Surve");
}

TEST_F(Winsock, EachRegistrationIsToldOnceItIsTaken) {
  Journal.clear();
  Canal.Casiers.at(1001)("HWND:70001");
  Canal.Casiers.at(1002)("HWND:70002");
  Canal.Casiers.at(1003)("HWND:70003");
  EXPECT_THROW(Canal.Casiers.at(1003)("HWND:x"), Echec);
  EXPECT_EQ(Journal.join(u'|'), "inscrit FTP|inscrit MAIL|inscrit SON");
}

TEST_F(Winsock, TheReadyWordOfOneThatWasStartedAgainCarriesOutNothing) {
  Relance = true;
  EXPECT_EQ(Recoit("*OKO*"), "");
  EXPECT_TRUE(Etat.FtpModulePret);
}

TEST_F(Winsock, AConnectionOrARefusalEndsWhatWaitedForTheCompanion) {
  for (const char* mot : {"ConOK", "UplOK", "LogEr", "RepER", "Upnot"}) {
    Etat.PageInterrompue = Etat.PageAttendue = true;
    Recoit(mot);
    EXPECT_FALSE(Etat.PageInterrompue) << mot;
    EXPECT_FALSE(Etat.PageAttendue) << mot;
  }
}

// The companion that ran would have waited for its server; the one in its place has never been connected.
TEST_F(Winsock, APageThatRanWaitsForAServerThatIsAwayWhenTheNextCompanionConnects) {
  const QList<QPair<QString, QString>> attendus = {{"SerER", "statut 71|live LEDREDON"},
                                                   {"ErrCo", "statut 39|live LEDREDON"}};
  for (const auto& [mot, attendu] : attendus) {
    Etat.PageInterrompue = true;
    Etat.PageAttendue = false;
    EXPECT_EQ(Recoit(mot), attendu);
    EXPECT_TRUE(Etat.SurveillanceEnCours);
    EXPECT_TRUE(Etat.PageInterrompue);
    for (int fois = 0; fois < 3; ++fois) {  // a whole night, if need be
      Journal.clear();
      Minuteries.Avance(FormWinsock::kDelaiReconnexion);
      EXPECT_EQ(Journal.join(u'|'), "FTP Conne") << "no image before it is connected";
      EXPECT_FALSE(Attend());
      EXPECT_EQ(Recoit(mot), attendu);
    }
    Etat.PageAttendue = true;
    Journal.clear();
    Minuteries.Avance(FormWinsock::kDelaiReconnexion);
    EXPECT_EQ(Journal.join(u'|'), "FTP Conne|FTP UploM");
    Recoit("ConOK");
    EXPECT_TRUE(Etat.LiveActif);
    EXPECT_EQ(Recoit(mot).section(u'|', 0, 1), attendu.left(attendu.size() - 2)) << "it has ended by now";
    EXPECT_FALSE(Etat.SurveillanceEnCours);
  }
}

TEST_F(Winsock, AnInterruptedPageThatIsSwitchedOffIsNotConnectedAgain) {
  Etat.PageInterrompue = true;
  Recoit("ErrCo");
  Etat.SurveillanceEnCours = false;
  Etat.CoupeFrames();
  Journal.clear();
  Minuteries.Avance(FormWinsock::kDelaiReconnexion);
  EXPECT_TRUE(Journal.isEmpty());
}

TEST_F(Winsock, WhatOneThatHasGoneHadStillSaidIsDroppedButNotAHandle) {
  Present = false;
  for (const char* mot : {"UplOK", "ConOK", "ErrCo", "Netdc", "Conne", "*OKO*"}) EXPECT_EQ(Recoit(mot), "") << mot;
  EXPECT_FALSE(Etat.LiveActif);
  EXPECT_TRUE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Attend());
  EXPECT_EQ(Recoit("HWND:70009"), "inscrit FTP");
  EXPECT_EQ(Etat.HandleFTP, 70009);
}

TEST_F(Winsock, HandlesThatCouldNotBePublishedWaitForNoLaterSave) {
  Journal.clear();
  Magasin.Plein = true;
  EXPECT_THROW(Form->Republie(), Echec);
  EXPECT_EQ(Journal.mid(3).join(u'|'), "vide|reprend FTP/HWNDVK|reprend MAIL/HWNDVK|reprend SON/HWNDVK");
}

TEST_F(Winsock, PublishesItsHandlesAgain) {
  Journal.clear();
  Form->Republie();
  EXPECT_EQ(Journal.join(u'|'), "ecrit FTP/HWNDVK=1001|ecrit MAIL/HWNDVK=1002|ecrit SON/HWNDVK=1003|vide");
  EXPECT_EQ(Form->Poignees(), (std::array<qint32, 3>{1001, 1002, 1003}));
}

}  // namespace
}  // namespace vaktor::essai
