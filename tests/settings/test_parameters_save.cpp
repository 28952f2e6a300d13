// SPDX-License-Identifier: GPL-3.0-or-later
// SauveParametres: the whole table in its order, then the companions, then the flag.
#include <gtest/gtest.h>

#include "base/failure.h"
#include "settings/settings_bench_of_fakes.h"

namespace vaktor {
namespace {

TEST(SauveParametres, WritesEveryRowInItsOrderAndToTheDiskOnce) {
  BancCharge banc;
  banc.Reglages.SauveParametres();
  QStringList attendus;
  for (const LigneReglage* ligne : OrdreSauvegarde()) attendus += NomReglage(*ligne);
  EXPECT_EQ(banc.Magasin.Ecrits, attendus << QStringLiteral("*"));
}

TEST(SauveParametres, TellsTheThreeCompanionsAfterTheLastWrite) {
  BancCharge banc;
  banc.Valeurs.SmtpPass = QStringLiteral("abc");
  QMap<QString, QString> dejaEcrit;
  banc.Modules.AuPremierEnvoi = [&] { dejaEcrit = banc.Magasin.Disque; };
  banc.Reglages.SauveParametres();
  EXPECT_EQ(dejaEcrit.size(), std::ssize(TableReglages()));
  EXPECT_EQ(dejaEcrit.value("MAIL/pass"), QStringLiteral("098100102"));
  EXPECT_EQ(banc.Modules.Envois, QStringList({"FTP:Optio", "MAIL:Optio", "SON:Optio"}));
}

TEST(SauveParametres, TellsThemOnceForEachSave) {
  BancCharge banc;
  for (int frappe = 0; frappe < 4; ++frappe) banc.Reglages.SauveParametres();
  EXPECT_EQ(banc.Modules.Envois.count(QStringLiteral("FTP:Optio")), 4);
}

TEST(SauveParametres, DoesNotCompareWithWhatIsStored) {
  BancCharge banc;
  banc.Reglages.SauveParametres();
  const qsizetype avant = banc.Magasin.Ecrits.size();
  banc.Reglages.SauveParametres();
  EXPECT_EQ(banc.Magasin.Ecrits.size(), 2 * avant);
}

TEST(SauveParametres, ClearsTheFlagLast) {
  BancCharge banc;
  banc.Valeurs.ParametresModifies = true;
  bool leve = false;
  banc.Modules.AuPremierEnvoi = [&] { leve = banc.Valeurs.ParametresModifies; };
  banc.Reglages.SauveParametres();
  EXPECT_TRUE(leve);
  EXPECT_FALSE(banc.Valeurs.ParametresModifies);
}

TEST(SauveParametres, ThatFailsTellsTheUserAndNobodyElse) {
  BancCharge banc;
  banc.Magasin.RefuseEcriture = true;
  banc.Valeurs.ParametresModifies = true;
  banc.Valeurs.LangueCourante = 1;
  try {
    banc.Reglages.SauveParametres();
    FAIL();
  } catch (const Echec& echec) {
    EXPECT_EQ(echec.Numero(), kAccesFichier);
    EXPECT_EQ(echec.Description(), QStringLiteral("The settings could not be saved (disk full)."));
  }
  EXPECT_TRUE(banc.Modules.Envois.isEmpty());
  EXPECT_TRUE(banc.Valeurs.ParametresModifies);
}

TEST(SauveParametres, ThatFailsStaysToldUntilASaveSucceeds) {
  BancCharge banc;
  banc.Magasin.RefuseEcriture = true;
  EXPECT_THROW(banc.Reglages.SauveParametres(), Echec);
  EXPECT_EQ(banc.Sante.Details.value(Condition::kReglagesNonSauves), QStringLiteral("disk full"));
  EXPECT_THROW(banc.Reglages.SauveParametres(), Echec);
  EXPECT_TRUE(banc.Sante.Dure(Condition::kReglagesNonSauves));
  banc.Magasin.RefuseEcriture = false;
  banc.Reglages.SauveParametres();
  EXPECT_FALSE(banc.Sante.Dure(Condition::kReglagesNonSauves));
  EXPECT_EQ(banc.Sante.Debuts.value(Condition::kReglagesNonSauves), 1);
}

TEST(SauveParametres, WritesTheSizeOfThePictureAsItIsNow) {
  BancCharge banc;
  banc.Taille = {1280, 720};
  banc.Reglages.SauveParametres();
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/width"), QStringLiteral("1280"));
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/height"), QStringLiteral("720"));
}

TEST(SauveParametres, NeverStoresAPasswordAsItWasTyped) {
  BancCharge banc;
  banc.Valeurs.SmtpPass = banc.Valeurs.MotDePasseFtp = QStringLiteral("secret");
  banc.Reglages.SauveParametres();
  ASSERT_EQ(banc.Magasin.Disque.size(), std::ssize(TableReglages()));
  for (const QString& valeur : banc.Magasin.Disque) EXPECT_FALSE(valeur.contains(QStringLiteral("secret")));
}

TEST(SauveParametres, BringsEveryValueBackThroughALoad) {
  BancCharge banc;
  banc.Disque.AjouteDossier(QStringLiteral("/photos"));
  Parametres& v = banc.Valeurs;
  v = {.Retard = 33,
       .LangueCourante = 1,
       .SeuilAuto = false,
       .SeuilDetection = 4711,
       .IndexSkin = 2,
       .NombrePhotoMax = 12,
       .RepertoirePhoto = "/photos",
       .PhotoActif = true,
       .IndexSon = 3,
       .SonActif = false,
       .FichierSon = "/s/a.wav",
       .MailActif = true,
       .MailDestination = "a@example.org",
       .MailSujet = QString::fromUtf8("é; [x]=1"),
       .MailCorps = "a\r\nb",
       .MailNombrePhoto = "3",
       .MailNombreMail = "2",
       .SmtpServeur = "s",
       .SmtpFrom = "f",
       .SmtpPort = "587",
       .SmtpUser = "u",
       .SmtpActif = false,
       .SmtpNeedLogin = false,
       .SmtpSansChiffrement = true,
       .SmtpJeton = "/bin/jeton moi",
       .HeureSigneDeVie = 8,
       .PushAdresse = "https://p/t",
       .PushEntete = "Authorization: Bearer x",
       .SmtpPass = "p1",
       .AdresseHtml = "h/",
       .AdresseFtp = "ftp",
       .UtilisateurFtp = "uf",
       .RepertoireFtp = "/r",
       .IntervalleFtp = "0,5",
       .IndexQualite = 3,
       .IndexCouleurPage = 6,
       .NbrPhotosPage = 9,
       .PlaceFichiers = 30,
       .PlaceMo = 7,
       .MotDePasseFtp = "p2"};
  for (const LigneReglage& ligne : TableReglages()) {
    if (!EstLue(ligne)) continue;
    EXPECT_NE(TexteValeur(ligne, v), TexteValeur(ligne, Parametres{})) << NomReglage(ligne).toStdString();
  }
  banc.Reglages.SauveParametres();
  BancReglages second;
  second.Magasin.Valeurs = banc.Magasin.Disque;
  second.Disque.AjouteDossier(QStringLiteral("/photos"));
  second.Charge();
  EXPECT_EQ(second.Magasin.Disque, banc.Magasin.Disque);
  for (const LigneReglage& ligne : TableReglages()) {
    EXPECT_EQ(TexteValeur(ligne, second.Valeurs), TexteValeur(ligne, v)) << NomReglage(ligne).toStdString();
  }
}

}  // namespace
}  // namespace vaktor
