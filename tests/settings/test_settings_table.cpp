// The table itself: complete, each place of both orders taken once, and each stored form both ways.
#include <gtest/gtest.h>

#include <QMap>
#include <QSet>
#include <limits>

#include "base/failure.h"
#include "settings/settings_table.h"

namespace vaktor {
namespace {

// Typed apart from the table: load order, with stored form and default.
constexpr const char* kChargement[][3] = {{"general/retard", "integer", "10"},
                                          {"general/langue", "integer", "0"},
                                          {"general/seuilauto", "flag", "1"},
                                          {"general/seuil", "integer", "0"},
                                          {"general/skin", "integer", "0"},
                                          {"PHOTO/nombrephoto", "integer", "10000"},
                                          {"PHOTO/repertoire", "text", "\\intrus"},
                                          {"PHOTO/actif", "flag", "0"},
                                          {"SON/index", "integer", "0"},
                                          {"SON/actif", "flag", "1"},
                                          {"SON/Repertoire", "text", ""},
                                          {"MAIL/actif", "flag", "0"},
                                          {"MAIL/destination", "text", ""},
                                          {"MAIL/sujet", "text", "Intrusion"},
                                          {"MAIL/corp", "text", "Intrusion"},
                                          {"MAIL/nombrephoto", "text", "10"},
                                          {"MAIL/nombremail", "text", "1"},
                                          {"MAIL/smtpserveur", "text", ""},
                                          {"MAIL/smtpfrom", "text", ""},
                                          {"MAIL/smtpport", "text", "25"},
                                          {"MAIL/smtpuser", "text", ""},
                                          {"MAIL/smtpactif", "bool", "1"},
                                          {"MAIL/smtpneedlogin", "bool", "1"},
                                          {"MAIL/pass", "scrambled", ""},
                                          {"FTP/html", "text", ""},
                                          {"FTP/ftp", "text", ""},
                                          {"FTP/user", "text", ""},
                                          {"FTP/racine", "text", "/"},
                                          {"FTP/refresh", "text", "10"},
                                          {"FTP/qualitephoto", "integer", "2"},
                                          {"FTP/couleur", "integer", "3"},
                                          {"FTP/rapportnombrephoto", "integer", "50"},
                                          {"FTP/pass", "scrambled", ""}};

const char* NomForme(FormeStockee forme) {
  switch (forme) {
    case FormeStockee::Entier:
      return "integer";
    case FormeStockee::Texte:
      return "text";
    case FormeStockee::Drapeau:
      return "flag";
    case FormeStockee::Booleen:
      return "bool";
    case FormeStockee::Brouille:
      return "scrambled";
    case FormeStockee::Mesure:
      return "number";
  }
  return "";
}

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

TEST(TableReglages, HoldsThe33SettingsInLoadOrder) {
  ASSERT_EQ(std::size(kChargement), std::size_t{kNombreReglages});
  int rang = 0;
  for (const auto& attendu : kChargement) {
    const LigneReglage& ligne = TableReglages()[static_cast<std::size_t>(rang)];
    EXPECT_EQ(ligne.RangChargement, ++rang);
    EXPECT_EQ(NomReglage(ligne).toStdString(), attendu[0]);
    EXPECT_STREQ(NomForme(ligne.Forme), attendu[1]) << attendu[0];
    EXPECT_STREQ(ligne.Defaut, attendu[2]) << attendu[0];
  }
}

TEST(TableReglages, EndsWithTheTwoSizesThatAreOnlyWritten) {
  ASSERT_EQ(TableReglages().size(), std::size_t{kNombreCles});
  EXPECT_EQ(NomReglage(TableReglages()[33]), QStringLiteral("FTP/width"));
  EXPECT_EQ(NomReglage(TableReglages()[34]), QStringLiteral("FTP/height"));
  EXPECT_EQ(TableReglages()[33].RangChargement, 0);
  EXPECT_EQ(TableReglages()[34].RangChargement, 0);
}

TEST(TableReglages, TakesEveryPlaceOfTheSaveOnce) {
  QSet<int> rangs;
  for (const LigneReglage& ligne : TableReglages()) rangs.insert(ligne.RangSauvegarde);
  EXPECT_EQ(rangs.size(), kNombreCles);
  int rang = 0;
  for (const LigneReglage* ligne : OrdreSauvegarde()) EXPECT_EQ(ligne->RangSauvegarde, ++rang);
  EXPECT_EQ(rang, kNombreCles);
}

TEST(TableReglages, HasTheStartValuesOfParametresAsDefaults) {
  const Parametres neufs;
  for (const LigneReglage& ligne : TableReglages().first(kNombreReglages)) {
    if (ligne.SousDossier) continue;
    Parametres lus;
    LitValeur(ligne, DefautReglage(ligne, QString()), lus);
    EXPECT_EQ(TexteValeur(ligne, lus), TexteValeur(ligne, neufs)) << NomReglage(ligne).toStdString();
  }
}

TEST(TableReglages, PutsThePhotoFolderOfAFirstRunIntoTheProgramFolder) {
  EXPECT_EQ(DefautReglage(Ligne("PHOTO/repertoire"), QStringLiteral("/prog")), QStringLiteral("/prog\\intrus"));
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
