// SPDX-License-Identifier: GPL-3.0-or-later
// The rules over the mail accounts of other programs, and over the mail settings.
#include <gtest/gtest.h>

#include "companions/mail_accounts.h"
#include "companions/rehearsal_words.h"
#include "companions/smtp_settings.h"
#include "companions/smtp_words.h"
#include "fakes/fake_event_pump.h"
#include "fakes/fake_foreign_accounts.h"

namespace vaktor {
namespace {

struct Comptes : testing::Test {
  qint32 Lit() {
    Liste.clear();
    LitComptesMail(Lecteur, Pompe, Lus, [this](const CompteMail& compte) { Liste.append(compte.Adresse); });
    return Lus.NbrComptes;
  }
  void Ajoute(int combien) {
    for (int i = 1; i <= combien; ++i)
      Lecteur.Ajoute(QStringLiteral("smtp%1.org").arg(i), QStringLiteral("a%1@b.org").arg(i));
  }
  QString Port(qint32 nombre) {
    Lecteur.Comptes.clear();
    Lecteur.Ajoute("s", "a@b", {}, nombre);
    Lit();
    ReprendCompte(Lus, 0, Reglages);
    return Reglages.SmtpPort;
  }
  QString Serveur(std::size_t place) const { return Lus.Cases.at(place).value_or(CompteMail{}).Serveur; }

  faux::LecteurComptesFaux Lecteur;
  faux::Journal Journal;
  faux::PompeFausse Pompe{Journal};
  Parametres Reglages;
  ComptesMail Lus;
  QStringList Liste;
};

TEST_F(Comptes, FillTheirSlotsInOrderAndAreReadOnce) {
  Lecteur.Ajoute("smtp.b.org", QString::fromUtf8("rené@b.org"), "rene", 587);
  Lecteur.Ajoute("smtp.c.org", "a@c.org");
  EXPECT_EQ(Lit(), 2);
  EXPECT_EQ(Lus.Cases.at(0), Lecteur.Comptes.at(0));
  EXPECT_EQ(Lus.Cases.at(1), Lecteur.Comptes.at(1));
  EXPECT_EQ(Liste, (QStringList{QString::fromUtf8("rené@b.org"), "a@c.org"}));
  EXPECT_EQ(Lecteur.Lectures, 1);
}

TEST_F(Comptes, WithoutAnyTheListIsEmptyAndTheSlotsStay) {
  Ajoute(2);
  Lit();
  Lecteur.Comptes.clear();
  EXPECT_EQ(Lit(), 0);
  EXPECT_TRUE(Liste.isEmpty());
  EXPECT_EQ(Serveur(1), "smtp2.org");
}

TEST_F(Comptes, TheDefaultCountsAccountsAndNotSlots) {
  Lecteur.Ajoute("smtp1.org", "a1@b.org");
  Lecteur.Ajoute("", "a2@b.org");
  Lecteur.Ajoute("smtp3.org", "a3@b.org").ParDefaut = true;
  EXPECT_EQ(Lit(), 2);
  EXPECT_EQ(Liste, (QStringList{"a1@b.org", "a3@b.org"})) << "later accounts move up";
  EXPECT_EQ(Lus.IndexCompteDefaut, 2);
  EXPECT_FALSE(Lus.Cases.at(2).has_value());
}

TEST_F(Comptes, TheDefaultMayBeOneThatCannotBeUsed) {
  Lecteur.Ajoute("smtp1.org", "a1@b.org");
  Lecteur.Ajoute("smtp2.org", "").ParDefaut = true;
  EXPECT_EQ(Lit(), 1);
  EXPECT_EQ(Lus.IndexCompteDefaut, 1);
}

TEST_F(Comptes, TheDefaultKeepsItsLastValueWhenThereIsNone) {
  Ajoute(3);
  Lecteur.Comptes[2].ParDefaut = true;
  Lit();
  EXPECT_EQ(Lus.IndexCompteDefaut, 2);
  Lecteur.Comptes[2].ParDefaut = false;
  Lit();
  EXPECT_EQ(Lus.IndexCompteDefaut, 2);
  EXPECT_EQ(ComptesMail().IndexCompteDefaut, 0) << "before any";
}

TEST_F(Comptes, OfTwelveElevenAreLookedAt) {
  Ajoute(12);
  Lecteur.Comptes[11].ParDefaut = true;
  EXPECT_EQ(Lit(), 11);
  EXPECT_EQ(Liste.last(), "a11@b.org");
  EXPECT_EQ(Lus.IndexCompteDefaut, 0) << "the twelfth is not looked at";
}

TEST_F(Comptes, TheLimitOfElevenCountsThoseThatCannotBeUsedToo) {
  Lecteur.Ajoute("", "");
  Ajoute(12);
  EXPECT_EQ(Lit(), 10);
}

TEST_F(Comptes, HoweverManyThereAreTheReadingGoesWell) {
  Ajoute(1000);
  EXPECT_EQ(Lit(), 11);
}

TEST_F(Comptes, PendingEventsRunAfterEachUsableOrNot) {
  Lecteur.Ajoute("", "a@b");
  Lecteur.Ajoute("s", "a@b");
  qsizetype alors = -1;
  Pompe.EnAttente = [&] { alors = Liste.size(); };
  Lit();
  EXPECT_EQ(Pompe.Appels, 2);
  EXPECT_EQ(alors, 0);
}

TEST_F(Comptes, EveryPortOfTheNetworkWorksAndAMissingOneIs25) {
  EXPECT_EQ(Port(25), "25");
  EXPECT_EQ(Port(465), "465");
  EXPECT_EQ(Port(1), "1");
  EXPECT_EQ(Port(32767), "32767");
  EXPECT_EQ(Port(32768), "32768");
  EXPECT_EQ(Port(40000), "40000");
  EXPECT_EQ(Port(65535), "65535");
  EXPECT_EQ(Port(0), "25");
}

TEST_F(Comptes, CopyingASlotLeavesThePasswordAlone) {
  Lecteur.Ajoute("s.org", "a@b", "anna", 587);
  Lit();
  Reglages.SmtpPass = "kept";
  ReprendCompte(Lus, 0, Reglages);
  EXPECT_EQ(Reglages.SmtpServeur, "s.org");
  EXPECT_EQ(Reglages.SmtpFrom, "a@b");
  EXPECT_TRUE(Reglages.SmtpNeedLogin);
  EXPECT_EQ(Reglages.SmtpUser, "anna");
  EXPECT_EQ(Reglages.SmtpPort, "587");
  EXPECT_EQ(Reglages.SmtpPass, "kept");
  ReprendCompte(Lus, 5, Reglages);
  EXPECT_EQ(Reglages.SmtpServeur, "");
  EXPECT_EQ(Reglages.SmtpPort, "") << "an empty slot has no port";
  EXPECT_FALSE(Reglages.SmtpNeedLogin);
}

TEST_F(Comptes, SettingsOfAnOAuth2AccountAreKnownByServerAndLogin) {
  Lecteur.Ajoute("s.org", "a@b", "anna");
  Lecteur.Ajoute("t.org", "c@d", "carl").OAuth2 = true;
  EXPECT_FALSE(SontDUnCompteOAuth2(Reglages, Lus)) << "before any reading";
  Lit();
  EXPECT_FALSE(SontDUnCompteOAuth2(Reglages, Lus));
  ReprendCompte(Lus, 0, Reglages);
  EXPECT_FALSE(SontDUnCompteOAuth2(Reglages, Lus));
  ReprendCompte(Lus, 1, Reglages);
  EXPECT_TRUE(SontDUnCompteOAuth2(Reglages, Lus));
  Reglages.SmtpFrom = "other@d";
  EXPECT_TRUE(SontDUnCompteOAuth2(Reglages, Lus)) << "another sender over the same login";
  Reglages.SmtpUser = "chris";
  EXPECT_FALSE(SontDUnCompteOAuth2(Reglages, Lus));
  ReprendCompte(Lus, 1, Reglages);
  Lecteur.Comptes.clear();
  Lit();
  EXPECT_FALSE(SontDUnCompteOAuth2(Reglages, Lus)) << "what an earlier reading has left does not count";
}

TEST(MotsDesComptes, AnOAuth2AccountIsMarkedInBothLanguages) {
  CompteMail compte{.Serveur = "s", .Adresse = "a@b"};
  EXPECT_EQ(NommeCompte(Langue::kFrancais, compte), "a@b");
  compte.OAuth2 = true;
  EXPECT_EQ(NommeCompte(Langue::kFrancais, compte), "a@b (connexion OAuth2)");
  EXPECT_EQ(NommeCompte(Langue::kAnglais, compte), "a@b (OAuth2 login)");
  EXPECT_NE(InviteOAuth2(Langue::kFrancais), InviteOAuth2(Langue::kAnglais));
  EXPECT_NE(AideOAuth2(Langue::kFrancais), AideOAuth2(Langue::kAnglais));
}

TEST(ReglagesSmtp, FieldsByState) {
  Parametres p;
  p.SmtpActif = false;
  p.SmtpNeedLogin = true;
  EXPECT_EQ(DonneChampsSmtp(p), (ChampsSmtp{false, false}));
  p.SmtpActif = true;
  EXPECT_EQ(DonneChampsSmtp(p), (ChampsSmtp{true, true}));
  p.SmtpNeedLogin = false;
  EXPECT_EQ(DonneChampsSmtp(p), (ChampsSmtp{true, false}));
}

TEST(ReglagesSmtp, APortWithAnythingButDigitsBecomes25) {
  EXPECT_EQ(CorrigePortSmtp("587"), "587");
  EXPECT_EQ(CorrigePortSmtp("2a5"), "25");
  EXPECT_EQ(CorrigePortSmtp("587 "), "25");
  EXPECT_EQ(CorrigePortSmtp("-1"), "25");
  EXPECT_EQ(CorrigePortSmtp(QString::fromUtf8("٥٨٧")), "25");
  EXPECT_EQ(CorrigePortSmtp(""), "");
  EXPECT_EQ(CorrigePortSmtp("99999"), "99999");
}

TEST(ReglagesSmtp, OnlyTheExactPrefixCountsAsAServerNotFinished) {
  EXPECT_TRUE(ManqueServeur({"smtp.", "a@b", {}, {}}));
  EXPECT_TRUE(ManqueServeur({"", "a@b", {}, {}}));
  EXPECT_TRUE(ManqueServeur({"s", "", {}, {}}));
  EXPECT_FALSE(ManqueServeur({"smtp.x", "a@b", {}, {}}));
  EXPECT_FALSE(ManqueServeur({"SMTP.", "a@b", {}, {}}));
  EXPECT_FALSE(ManqueServeur({" ", " ", {}, {}})) << "blanks are a text";
  EXPECT_TRUE(ManqueConnexion({{}, {}, "", "p"}));
  EXPECT_TRUE(ManqueConnexion({{}, {}, "u", ""}));
  EXPECT_FALSE(ManqueConnexion({{}, {}, "u", "p"}));
}

TEST(MotsDuCourriel, AStepGetsItsPlainNameAndKeepsTheServersWords) {
  const auto francais = DonneMotsEssaiMail(Langue::kFrancais).NommeEtape;
  const auto anglais = DonneMotsEssaiMail(Langue::kAnglais).NommeEtape;
  EXPECT_EQ(francais("AUTH: 535 5.7.8 no"), "Identification - AUTH: 535 5.7.8 no");
  EXPECT_EQ(anglais("RCPT: 250 OK"), "Destination - RCPT: 250 OK");
  EXPECT_EQ(anglais("220 ready"), "220 ready");
  EXPECT_EQ(anglais("AUTHOR: x"), "AUTHOR: x");
  EXPECT_EQ(DonneMotsEssaiFtp(Langue::kFrancais).NommeEtape("AUTH: 234 ok"), "Chiffrement - AUTH: 234 ok")
      << "the same word elsewhere";
  EXPECT_EQ(DonneMotsEssaiFtp(Langue::kAnglais).NommeEtape("STOR: 552 full"), "Upload - STOR: 552 full");
}

}  // namespace
}  // namespace vaktor
