// The reading of foreign mail accounts, with a tree in memory.
#include <gtest/gtest.h>

#include "base/failure.h"
#include "companions/mail_accounts.h"
#include "companions/rehearsal_words.h"
#include "companions/smtp_settings.h"
#include "companions/smtp_words.h"
#include "fakes/fake_event_pump.h"
#include "fakes/fake_mail_registry.h"

namespace vaktor {
namespace {

using faux::RegistreFaux;

struct Registre : testing::Test {
  qint32 Lit() {
    Liste.clear();
    Module.LitComptesMail([this](const QString& adresse) { Liste.append(adresse); });
    return Comptes.NbrComptes;
  }
  /// The number of the failure that reading ends with, its sentence in Dit; 0 for none.
  qint32 LitEnEchouant() {
    try {
      Lit();
    } catch (const Echec& echec) {
      Dit = echec.Description();
      return echec.Numero();
    }
    return 0;
  }
  void Ajoute(int combien, int depuis = 1) {
    for (int i = depuis; i < depuis + combien; ++i)
      Tree.AjouteCompte(QStringLiteral("%1").arg(i, 8, 10, QLatin1Char('0')), QStringLiteral("smtp%1.org").arg(i),
                        QStringLiteral("a%1@b.org").arg(i));
  }
  QString Port(quint32 nombre) {
    Tree.Efface();
    Tree.AjouteCompte("1", "s", "a@b", {}, nombre);
    Lit();
    return Comptes.ComptePort.at(0);
  }

  RegistreFaux Tree;
  faux::Journal Journal;
  faux::PompeFausse Pompe{Journal};
  Parametres Reglages;
  ComptesMail Comptes;
  ModuleRegistreCompteMail Module{{Tree, Pompe, Reglages, Comptes}};
  QStringList Liste;
  QString Dit;
};

TEST_F(Registre, AValueIsFoundByItsExactNameAndLosesItsLastByteWhateverItsType) {
  Tree.Arbre["K"].Valeurs = {{"smtp server", RegistreFaux::Texte("wrong case")},
                             {"SMTP Server ", RegistreFaux::Texte("blank behind")},
                             {"SMTP Server", RegistreFaux::Texte("smtp.b.org")},
                             {"Number", RegistreFaux::Nombre(0x04030201)},
                             {"No NUL", "abc"},
                             {"One", "x"}};
  EXPECT_EQ(Module.LitValeurRegistre("K", "SMTP Server"), "smtp.b.org");
  EXPECT_EQ(Module.LitValeurRegistre("K", "Number"), QByteArray("\1\2\3"));
  EXPECT_EQ(Module.LitValeurRegistre("K", "No NUL"), "ab");
  EXPECT_EQ(Module.LitValeurRegistre("K", "One"), "");
  EXPECT_EQ(Module.LitValeurRegistre("K", "Missing"), "");
  EXPECT_EQ(Module.LitValeurRegistre("No such key", "SMTP Server"), "");
  EXPECT_TRUE(Tree.Ouvertes.isEmpty());
}

TEST_F(Registre, TheWalkGoesOnBehindAMatchAndTheLaterOfTwoCounts) {
  Tree.Arbre["K"].Valeurs = {{"N", RegistreFaux::Texte("first")}, {"N", RegistreFaux::Texte("second")}, {"Z", "z"}};
  EXPECT_EQ(Module.LitValeurRegistre("K", "N"), "second");
  EXPECT_EQ(Tree.Pas, 3) << "to the end";
}

TEST_F(Registre, AnEmptyValueIsNoMatch) {
  Tree.Arbre["K"].Valeurs = {{"N", RegistreFaux::Texte("kept")}, {"N", ""}};
  EXPECT_EQ(Module.LitValeurRegistre("K", "N"), "kept");
}

TEST_F(Registre, AStepThatFailsCountsAsAValueAndTheWalkGoesOn) {
  Tree.Arbre["K"].Valeurs = {{"N", "x", RegistreFaux::kErreur},
                             {"Long", RegistreFaux::Texte("there"), RegistreFaux::kTropLong},
                             {"N", RegistreFaux::Texte("behind")}};
  EXPECT_EQ(Module.LitValeurRegistre("K", "N"), "behind");
  EXPECT_EQ(Module.LitValeurRegistre("K", "Long"), "there") << "the result itself is not looked at";
  // What the failed step leaves are two buffers of 255 blanks.
  EXPECT_EQ(Module.LitValeurRegistre("K", QString(255, u' ')), QByteArray(254, ' '));
}

TEST_F(Registre, NamesAndDataHave255BytesAtTheMost) {
  Tree.Arbre["K"].Valeurs = {{QString(255, u'n'), QByteArray(255, 'd')}, {"Longer", QByteArray(300, 'e')}};
  EXPECT_EQ(Module.LitValeurRegistre("K", QString(255, u'n')), QByteArray(254, 'd'));
  EXPECT_EQ(Module.LitValeurRegistre("K", "Longer"), QByteArray(255, 'e'));
  Tree.Arbre["K"].Valeurs = {{QString(300, u'n'), "value\n"}};
  EXPECT_EQ(Module.LitValeurRegistre("K", QString(255, u'n')), "value");
  EXPECT_EQ(Module.LitValeurRegistre("K", QString(300, u'n')), "");
}

TEST_F(Registre, AnAccountFillsItsSlot) {
  Tree.AjouteCompte("00000001", "smtp.b.org", QString::fromUtf8("rené@b.org"), "rene", 587);
  Tree.AjouteCompte("00000002", "smtp.c.org", "a@c.org");
  EXPECT_EQ(Lit(), 2);
  EXPECT_EQ(Comptes.CompteServeur.at(0), "smtp.b.org");
  EXPECT_EQ(Comptes.CompteAdresse.at(0), QString::fromUtf8("rené@b.org"));
  EXPECT_TRUE(Comptes.CompteLogin.at(0));
  EXPECT_EQ(Comptes.CompteUser.at(0), "rene");
  EXPECT_EQ(Comptes.ComptePort.at(0), "587");
  EXPECT_FALSE(Comptes.CompteLogin.at(1));
  EXPECT_EQ(Comptes.CompteUser.at(1), "");
  EXPECT_EQ(Comptes.ComptePort.at(1), "25");
  EXPECT_EQ(Liste, (QStringList{QString::fromUtf8("rené@b.org"), "a@c.org"}));
}

TEST_F(Registre, OnlyTheRightKeysAreOpenedAndAllAreClosed) {
  Tree.AjouteCompte("A", "s", "a@b");
  Lit();
  const QString compte = faux::kRacineComptes + "\\Accounts\\A";
  EXPECT_EQ(Tree.Lues,
            (QStringList{faux::kRacineComptes + "\\Accounts", faux::kRacineComptes, compte, compte, compte, compte}));
  EXPECT_TRUE(Tree.Ouvertes.isEmpty());
}

TEST_F(Registre, WithoutTheKeyOfTheAccountsTheListIsEmptyAndTheTablesStay) {
  Ajoute(2);
  Lit();
  Tree.Efface();
  EXPECT_EQ(Lit(), 0);
  EXPECT_TRUE(Liste.isEmpty());
  EXPECT_EQ(Comptes.CompteServeur.at(1), "smtp2.org");
}

TEST_F(Registre, TheDefaultCountsKeysAndNotSlots) {
  Tree.AjouteCompte("1", "smtp1.org", "a1@b.org");
  Tree.AjouteCompte("2", "", "a2@b.org");
  Tree.AjouteCompte("3", "smtp3.org", "a3@b.org");
  Tree.NommeDefaut("3");
  EXPECT_EQ(Lit(), 2);
  EXPECT_EQ(Liste, (QStringList{"a1@b.org", "a3@b.org"})) << "later accounts move up";
  EXPECT_EQ(Comptes.IndexCompteDefaut, 2);
  EXPECT_EQ(Comptes.CompteServeur.at(2), "");
}

TEST_F(Registre, TheDefaultMayBeAnAccountThatCannotBeUsed) {
  Tree.AjouteCompte("1", "smtp1.org", "a1@b.org");
  Tree.AjouteCompte("2", "smtp2.org", "");
  Tree.NommeDefaut("2");
  EXPECT_EQ(Lit(), 1);
  EXPECT_EQ(Comptes.IndexCompteDefaut, 1);
}

TEST_F(Registre, TheDefaultKeepsItsLastValueWhenNoKeyMatches) {
  Ajoute(3);
  Tree.NommeDefaut("00000003");
  Lit();
  EXPECT_EQ(Comptes.IndexCompteDefaut, 2);
  Tree.NommeDefaut("00000009");
  Lit();
  EXPECT_EQ(Comptes.IndexCompteDefaut, 2);
  EXPECT_EQ(Comptes.NomCompteDefaut, "00000009");
  EXPECT_EQ(ComptesMail().IndexCompteDefaut, 0) << "before any match";
}

TEST_F(Registre, OfTwelveAccountsElevenAreRead) {
  Ajoute(12);
  Tree.NommeDefaut("00000012");
  EXPECT_EQ(Lit(), 11);
  EXPECT_EQ(Liste.last(), "a11@b.org");
  EXPECT_EQ(Comptes.IndexCompteDefaut, 0) << "the twelfth is not looked at";
}

TEST_F(Registre, TheLimitOfElevenCountsKeysNotUsableAccounts) {
  Tree.AjouteCompte("00000000", "", "");
  Ajoute(12);
  EXPECT_EQ(Lit(), 10);
}

TEST_F(Registre, TwentyOneKeysAreReadAndATwentySecondIsAnErrorInTheUsersLanguage) {
  Ajoute(21);
  EXPECT_EQ(LitEnEchouant(), 0);
  Ajoute(1, 22);
  EXPECT_EQ(LitEnEchouant(), kIndiceHorsPlage);
  EXPECT_TRUE(Dit.contains("21") && Dit.contains("comptes")) << Dit.toStdString();
  EXPECT_TRUE(Tree.Ouvertes.isEmpty()) << "nothing stays open behind an error";
  EXPECT_EQ(Comptes.NbrComptes, 0);
  Reglages.LangueCourante = 1;
  LitEnEchouant();
  EXPECT_TRUE(Dit.contains("accounts")) << Dit.toStdString();
}

TEST_F(Registre, KeysWithoutANameArePassedOverAndAFailedStepIsAKey) {
  Ajoute(1);
  auto& cles = Tree.Arbre[faux::kRacineComptes + "\\Accounts"].Cles;
  cles.prepend("!");  // a failed step leaves a name of 255 blanks: a key that is not there
  cles.prepend("");
  Tree.NommeDefaut("00000001");
  EXPECT_EQ(Lit(), 1);
  EXPECT_EQ(Comptes.IndexCompteDefaut, 2);
  EXPECT_EQ(Pompe.Appels, 2) << "not for the empty name";
}

TEST_F(Registre, PendingEventsRunAfterEachKeyUsableOrNot) {
  Tree.AjouteCompte("1", "", "a@b");
  Tree.AjouteCompte("2", "s", "a@b");
  qsizetype alors = -1;
  Pompe.EnAttente = [&] { alors = Liste.size(); };
  Lit();
  EXPECT_EQ(Pompe.Appels, 2);
  EXPECT_EQ(alors, 0);
}

TEST_F(Registre, APortIsItsFirstTwoBytes) {
  EXPECT_EQ(Port(25), "25");
  EXPECT_EQ(Port(465), "465");
  EXPECT_EQ(Port(587), "587");
  EXPECT_EQ(Port(993), "993") << "a byte that is no UTF-8 by itself";
  EXPECT_EQ(Port(0), "0");
  EXPECT_EQ(Port(32767), "32767");
  EXPECT_EQ(Port(65536 + 25), "25") << "the third byte is not looked at";
  EXPECT_EQ(DecodePortSmtp("", 0, {}), "25");
  EXPECT_EQ(DecodePortSmtp("\x19", 0, {}), "25") << "one byte alone";
  EXPECT_EQ(DecodePortSmtp("\xff", 0, {}), "255");
  EXPECT_EQ(DecodePortSmtp("587", 0, {}), "14389") << "text is taken for bytes: 53 + 56 * 256";
}

TEST_F(Registre, AMissingPortIs25) {
  Tree.AjouteCompte("1", "s", "a@b");
  Tree.Compte("1").Valeurs.removeLast();
  Lit();
  EXPECT_EQ(Comptes.ComptePort.at(0), "25");
}

TEST_F(Registre, APortOf32768OverflowsAndEndsTheReading) {
  Ajoute(1);
  Tree.AjouteCompte("2", "s", "high@b.org", {}, 32768);
  Ajoute(1, 3);
  EXPECT_EQ(LitEnEchouant(), kDepassement);
  EXPECT_TRUE(Dit.contains("high@b.org")) << Dit.toStdString();
  EXPECT_EQ(Comptes.NbrComptes, 1) << "what was read until then stays";
  EXPECT_EQ(Liste, QStringList{"a1@b.org"});
  EXPECT_EQ(Port(65535 - 32768), "32767");
  EXPECT_THROW(Port(65535), Echec);
}

TEST_F(Registre, AHighPortOfAnAccountThatIsLeftOutIsNoError) {
  Tree.AjouteCompte("1", "", "a@b", {}, 40000);
  EXPECT_EQ(LitEnEchouant(), 0);
}

TEST_F(Registre, CopyingASlotLeavesThePasswordAlone) {
  Tree.AjouteCompte("1", "s.org", "a@b", "anna", 587);
  Lit();
  Reglages.SmtpPass = "kept";
  ReprendCompte(Comptes, 0, Reglages);
  EXPECT_EQ(Reglages.SmtpServeur, "s.org");
  EXPECT_EQ(Reglages.SmtpFrom, "a@b");
  EXPECT_TRUE(Reglages.SmtpNeedLogin);
  EXPECT_EQ(Reglages.SmtpUser, "anna");
  EXPECT_EQ(Reglages.SmtpPort, "587");
  EXPECT_EQ(Reglages.SmtpPass, "kept");
  ReprendCompte(Comptes, 5, Reglages);
  EXPECT_EQ(Reglages.SmtpPort, "") << "an empty slot has no port";
  EXPECT_FALSE(Reglages.SmtpNeedLogin);
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
  const auto francais = DonneMotsEssaiMail(0).NommeEtape;
  const auto anglais = DonneMotsEssaiMail(1).NommeEtape;
  EXPECT_EQ(francais("AUTH: 535 5.7.8 no"), "Identification - AUTH: 535 5.7.8 no");
  EXPECT_EQ(anglais("RCPT: 250 OK"), "Destination - RCPT: 250 OK");
  EXPECT_EQ(anglais("220 ready"), "220 ready");
  EXPECT_EQ(anglais("AUTHOR: x"), "AUTHOR: x");
  EXPECT_EQ(DonneMotsEssaiFtp(0).NommeEtape("AUTH: 234 ok"), "Chiffrement - AUTH: 234 ok") << "the same word elsewhere";
  EXPECT_EQ(DonneMotsEssaiFtp(1).NommeEtape("STOR: 552 full"), "Upload - STOR: 552 full");
}

}  // namespace
}  // namespace vaktor
