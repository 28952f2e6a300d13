// The downward table, held row by row, and the routines that post it.
#include <gtest/gtest.h>

#include "companions/companion_fakes.h"

namespace vaktor::essai {
namespace {

struct Envois : testing::Test {
  QStringList Journal;
  CanalFaux Canal{Journal};
  EtatLiaison Etat{.HandleFTP = 11, .HandleMail = 22, .HandleSon = 33};
  ModuleSendMessages Module{Canal, Etat};

  QString EnvoieUn(Compagnon compagnon, const QString& mot) {
    Journal.clear();
    if (compagnon == Compagnon::kFtp) Module.EnvoiFTP(mot);
    if (compagnon == Compagnon::kMail) Module.EnvoiMail(mot);
    if (compagnon == Compagnon::kSon) Module.EnvoiSon(mot);
    return Journal.join(u'|');
  }
};

TEST_F(Envois, EveryWordHasItsOwnCodeForEachCompanion) {
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, "Conne"), "poste 11 65");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, "Decon"), "poste 11 66");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, "Optio"), "poste 11 67");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, "Quit*"), "poste 11 68");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, "Surve"), "poste 11 69");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, "UploM"), "poste 11 71");
  EXPECT_EQ(EnvoieUn(Compagnon::kMail, "Optio"), "poste 22 65");
  EXPECT_EQ(EnvoieUn(Compagnon::kMail, "Intru"), "poste 22 66");
  EXPECT_EQ(EnvoieUn(Compagnon::kMail, "Quit*"), "poste 22 67");
  EXPECT_EQ(EnvoieUn(Compagnon::kMail, "Veill"), "poste 22 68");
  EXPECT_EQ(EnvoieUn(Compagnon::kSon, "Optio"), "poste 33 65");
  EXPECT_EQ(EnvoieUn(Compagnon::kSon, "Intru"), "poste 33 66");
  EXPECT_EQ(EnvoieUn(Compagnon::kSon, "Quit*"), "poste 33 67");
}

TEST_F(Envois, AnUnknownWordPostsNothing) {
  for (const char* mot : {"", "Intru", "conne", "Conne ", "Conn", "Quit", "Connexion"})
    EXPECT_EQ(EnvoieUn(Compagnon::kFtp, mot), "") << mot;
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, "Veill"), "");
  EXPECT_EQ(EnvoieUn(Compagnon::kSon, "Veill"), "");
  for (const char* mot : {"Conne", "Surve", "UploM", "intru"}) {
    EXPECT_EQ(EnvoieUn(Compagnon::kMail, mot), "") << mot;
    EXPECT_EQ(EnvoieUn(Compagnon::kSon, mot), "") << mot;
  }
}

TEST_F(Envois, CodesLeadBackToTheirWords) {
  EXPECT_EQ(DonneMotCommande(Compagnon::kFtp, 67), "Optio");
  EXPECT_EQ(DonneMotCommande(Compagnon::kMail, 67), "Quit*");
  EXPECT_EQ(DonneMotCommande(Compagnon::kFtp, 70), "");
  EXPECT_EQ(DonneMotCommande(Compagnon::kSon, 68), "");
}

TEST_F(Envois, NamesAndSectionsBelongTogether) {
  EXPECT_EQ(DonneIdentite(Compagnon::kFtp).Programme, QLatin1String("VAKTORftp"));
  EXPECT_EQ(DonneIdentite(Compagnon::kFtp).Section, QLatin1String("FTP"));
  EXPECT_EQ(DonneIdentite(Compagnon::kMail).Programme, QLatin1String("VAKTORmail"));
  EXPECT_EQ(DonneIdentite(Compagnon::kMail).Section, QLatin1String("MAIL"));
  EXPECT_EQ(DonneIdentite(Compagnon::kSon).Programme, QLatin1String("VAKTORsound"));
  EXPECT_EQ(DonneIdentite(Compagnon::kSon).Section, QLatin1String("SON"));
}

TEST_F(Envois, WhatBecomesOfACommandGoesWithItsWord) {
  const QList<QPair<QString, Tenue>> attendues = {{"Intru", Tenue::kInstant},   {"Optio", Tenue::kGardee},
                                                  {"Veill", Tenue::kGardee},    {"Quit*", Tenue::kDerniere},
                                                  {"Surve", Tenue::kOrdinaire}, {"Conne", Tenue::kOrdinaire},
                                                  {"Decon", Tenue::kOrdinaire}, {"UploM", Tenue::kOrdinaire}};
  for (const auto& [mot, tenue] : attendues) EXPECT_EQ(DonneTenue(mot), tenue) << mot.toStdString();
  EnvoieUn(Compagnon::kSon, "Intru");
  EXPECT_EQ(Canal.DerniereTenue, Tenue::kInstant);
  EnvoieUn(Compagnon::kSon, "Quit*");
  EXPECT_EQ(Canal.DerniereTenue, Tenue::kDerniere);
}

}  // namespace
}  // namespace vaktor::essai
