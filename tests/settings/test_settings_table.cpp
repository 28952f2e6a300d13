// SPDX-License-Identifier: GPL-3.0-or-later
// The table itself, and each stored form both ways. Its rows, their order and their defaults are held by the page about
// the settings (test_settings_documented.cpp).
#include <gtest/gtest.h>

#include <QMap>
#include <limits>

#include "base/failure.h"
#include "settings/settings_table.h"

namespace vaktor {
namespace {

const LigneReglage& Ligne(const char* nom) {
  for (const LigneReglage& ligne : TableReglages()) {
    if (NomReglage(ligne) == QString::fromLatin1(nom)) return ligne;
  }
  ADD_FAILURE() << nom;
  return TableReglages().front();
}

qint32 NumeroEchec(const char* nom, const char* texte) {
  Parametres parametres;
  try {
    LitValeur(Ligne(nom), QString::fromUtf8(texte), parametres);
  } catch (const Echec& echec) {
    return echec.Numero();
  }
  return 0;
}

TEST(TableReglages, HasTheStartValuesOfParametresAsDefaults) {
  const Parametres neufs;
  for (const LigneReglage& ligne : TableReglages()) {
    if (!EstLue(ligne) || ligne.EstDossierPhotos) continue;
    Parametres lus;
    LitValeur(ligne, DefautReglage(ligne, QString()), lus);
    EXPECT_EQ(TexteValeur(ligne, lus), TexteValeur(ligne, neufs)) << NomReglage(ligne).toStdString();
  }
}

TEST(TableReglages, PutsThePhotoFolderOfAFirstRunIntoTheProgramFolder) {
  EXPECT_EQ(DefautReglage(Ligne("PHOTO/repertoire"), QStringLiteral("/prog\\intrus")), QStringLiteral("/prog\\intrus"));
  EXPECT_EQ(DefautReglage(Ligne("FTP/racine"), QStringLiteral("/prog")), QStringLiteral("/"));
}

TEST(ValeursStockees, ReadBooleansAsWordOrNumber) {
  const QMap<QString, bool> attendus = {
      {"0", false},  {"1", true},     {"-1", true},   {"7", true},    {" 1 ", true},    {"0.4", true},   {"0.0", false},
      {"-0", false}, {"1e300", true}, {"True", true}, {"true", true}, {"FALSE", false}, {"False", false}};
  for (auto it = attendus.begin(); it != attendus.end(); ++it) {
    for (const char* nom : {"MAIL/smtpactif", "PHOTO/actif"}) {
      Parametres parametres;
      parametres.SmtpActif = parametres.PhotoActif = !it.value();
      LitValeur(Ligne(nom), it.key(), parametres);
      EXPECT_EQ(nom[0] == 'M' ? parametres.SmtpActif : parametres.PhotoActif, it.value()) << it.key().toStdString();
    }
  }
  for (const char* faux : {"", " ", "yes", "Vrai", "1,5", "nan", "inf", "0x1"}) {
    EXPECT_EQ(NumeroEchec("MAIL/smtpactif", faux), kTypeIncompatible) << faux;
    EXPECT_EQ(NumeroEchec("SON/actif", faux), kTypeIncompatible) << faux;
  }
}

TEST(ValeursStockees, WriteBooleansAsWordsAndFlagsAsDigits) {
  Parametres parametres;
  parametres.SmtpActif = true;
  parametres.SmtpNeedLogin = false;
  parametres.PhotoActif = true;
  parametres.SonActif = false;
  EXPECT_EQ(TexteValeur(Ligne("MAIL/smtpactif"), parametres), QStringLiteral("True"));
  EXPECT_EQ(TexteValeur(Ligne("MAIL/smtpneedlogin"), parametres), QStringLiteral("False"));
  EXPECT_EQ(TexteValeur(Ligne("PHOTO/actif"), parametres), QStringLiteral("1"));
  EXPECT_EQ(TexteValeur(Ligne("SON/actif"), parametres), QStringLiteral("0"));
}

TEST(ValeursStockees, RefuseIntegersThatAreNone) {
  for (const char* faux : {"", "dix", "1,5", "12 3", "--1"}) {
    EXPECT_EQ(NumeroEchec("general/retard", faux), kTypeIncompatible) << faux;
  }
  EXPECT_EQ(NumeroEchec("general/seuil", "2147483648"), kDepassement);
  EXPECT_EQ(NumeroEchec("general/seuil", "2147483647"), 0);
  EXPECT_EQ(NumeroEchec("FTP/couleur", "99"), 0) << "no range is checked here";
}

TEST(ValeursStockees, RefuseASkinOrAQualityBeyondItsList) {
  for (const char* bon : {"-1", "0", "2"}) EXPECT_EQ(NumeroEchec("general/skin", bon), 0) << bon;
  for (const char* faux : {"-2", "3"}) EXPECT_EQ(NumeroEchec("general/skin", faux), kIndiceHorsPlage) << faux;
  for (const char* bon : {"0", "3"}) EXPECT_EQ(NumeroEchec("FTP/qualitephoto", bon), 0) << bon;
  for (const char* faux : {"-1", "4", "258"})
    EXPECT_EQ(NumeroEchec("FTP/qualitephoto", faux), kIndiceHorsPlage) << faux;
}

TEST(ValeursStockees, LeaveTheVariableWhenTheTextIsRefused) {
  Parametres parametres;
  parametres.IndexSkin = 1;
  EXPECT_THROW(LitValeur(Ligne("general/skin"), QStringLiteral("5"), parametres), Echec);
  EXPECT_EQ(parametres.IndexSkin, 1);
}

TEST(ValeursStockees, HideASecretWhereItComesBackAndKeepALongerOneAsItStands) {
  const LigneReglage& ligne = Ligne("MAIL/pushentete");
  Parametres parametres;
  parametres.PushEntete = QStringLiteral("X: abc");
  EXPECT_EQ(TexteValeur(ligne, parametres), QStringLiteral("089060035101103105"));
  // As tokens of home automation are: more than a scrambled text can bring back.
  for (const QString& clair :
       {QStringLiteral("X: abc"), QStringLiteral("Authorization: Bearer ").leftJustified(200, u'z')}) {
    parametres.PushEntete = clair;
    Parametres relus;
    LitValeur(ligne, TexteValeur(ligne, parametres), relus);
    EXPECT_EQ(relus.PushEntete, clair);
  }
}

TEST(QualiteJpeg, FollowsTheIndexAndStaysForAnIndexOutsideTheTable) {
  Parametres parametres;
  const quint8 attendues[] = {100, 50, 20, 10};
  for (quint8 i = 0; i < 4; ++i) {
    parametres.IndexQualite = i;
    DeduitQualiteJpeg(parametres);
    EXPECT_EQ(parametres.QualiteJpeg, attendues[i]);
  }
  parametres.IndexQualite = 4;
  DeduitQualiteJpeg(parametres);
  EXPECT_EQ(parametres.QualiteJpeg, 10);
}

}  // namespace
}  // namespace vaktor
