// SPDX-License-Identifier: GPL-3.0-or-later
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

  QString EnvoieUn(Compagnon compagnon, Commande commande) {
    Journal.clear();
    if (compagnon == Compagnon::kFtp) Module.EnvoiFTP(commande);
    if (compagnon == Compagnon::kMail) Module.EnvoiMail(commande);
    if (compagnon == Compagnon::kSon) Module.EnvoiSon(commande);
    return Journal.join(u'|');
  }
};

TEST_F(Envois, EveryWordHasItsOwnCodeForEachCompanion) {
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, Commande::kConnexion), "poste 11 65");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, Commande::kDeconnexion), "poste 11 66");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, Commande::kOptions), "poste 11 67");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, Commande::kQuitte), "poste 11 68");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, Commande::kSurveillance), "poste 11 69");
  EXPECT_EQ(EnvoieUn(Compagnon::kFtp, Commande::kPage), "poste 11 71");
  EXPECT_EQ(EnvoieUn(Compagnon::kMail, Commande::kOptions), "poste 22 65");
  EXPECT_EQ(EnvoieUn(Compagnon::kMail, Commande::kIntrusion), "poste 22 66");
  EXPECT_EQ(EnvoieUn(Compagnon::kMail, Commande::kQuitte), "poste 22 67");
  EXPECT_EQ(EnvoieUn(Compagnon::kMail, Commande::kVeille), "poste 22 68");
  EXPECT_EQ(EnvoieUn(Compagnon::kSon, Commande::kOptions), "poste 33 65");
  EXPECT_EQ(EnvoieUn(Compagnon::kSon, Commande::kIntrusion), "poste 33 66");
  EXPECT_EQ(EnvoieUn(Compagnon::kSon, Commande::kQuitte), "poste 33 67");
}

TEST_F(Envois, ACommandOfAnotherCompanionPostsNothing) {
  for (const Commande commande : {Commande::kIntrusion, Commande::kVeille})
    EXPECT_EQ(EnvoieUn(Compagnon::kFtp, commande), "") << DonneMot(commande).data();
  for (const Commande commande :
       {Commande::kConnexion, Commande::kDeconnexion, Commande::kSurveillance, Commande::kPage}) {
    EXPECT_EQ(EnvoieUn(Compagnon::kMail, commande), "") << DonneMot(commande).data();
    EXPECT_EQ(EnvoieUn(Compagnon::kSon, commande), "") << DonneMot(commande).data();
  }
  EXPECT_EQ(EnvoieUn(Compagnon::kSon, Commande::kVeille), "");
}

TEST_F(Envois, CodesLeadBackToTheirCommandsAndCode70IsFree) {
  for (const Compagnon compagnon : kCompagnons) {
    for (qint32 code = 0; code < 100; ++code) {
      const std::optional<Commande> commande = LitCodeTouche(compagnon, code);
      if (!commande) continue;
      EXPECT_EQ(DonneCodeTouche(compagnon, *commande), code);
    }
  }
  EXPECT_EQ(LitCodeTouche(Compagnon::kFtp, 67), Commande::kOptions);
  EXPECT_EQ(LitCodeTouche(Compagnon::kMail, 67), Commande::kQuitte);
  EXPECT_EQ(LitCodeTouche(Compagnon::kFtp, 70), std::nullopt);
  EXPECT_EQ(LitCodeTouche(Compagnon::kSon, 68), std::nullopt);
}

TEST_F(Envois, EachCommandHasItsWord) {
  const QList<QPair<Commande, QString>> mots = {{Commande::kConnexion, "Conne"},    {Commande::kDeconnexion, "Decon"},
                                                {Commande::kSurveillance, "Surve"}, {Commande::kPage, "UploM"},
                                                {Commande::kIntrusion, "Intru"},    {Commande::kVeille, "Veill"},
                                                {Commande::kOptions, "Optio"},      {Commande::kQuitte, "Quit*"}};
  for (const auto& [commande, mot] : mots) EXPECT_EQ(DonneMot(commande), mot);
}

TEST_F(Envois, NamesAndSectionsBelongTogether) {
  EXPECT_EQ(DonneIdentite(Compagnon::kFtp).Programme, QLatin1String("VAKTORftp"));
  EXPECT_EQ(DonneIdentite(Compagnon::kFtp).Section, QLatin1String("FTP"));
  EXPECT_EQ(DonneIdentite(Compagnon::kMail).Programme, QLatin1String("VAKTORmail"));
  EXPECT_EQ(DonneIdentite(Compagnon::kMail).Section, QLatin1String("MAIL"));
  EXPECT_EQ(DonneIdentite(Compagnon::kSon).Programme, QLatin1String("VAKTORsound"));
  EXPECT_EQ(DonneIdentite(Compagnon::kSon).Section, QLatin1String("SON"));
}

TEST_F(Envois, WhatBecomesOfACommandGoesWithWhatItSays) {
  const QList<QPair<Commande, Tenue>> attendues = {
      {Commande::kIntrusion, Tenue::kInstant},      {Commande::kOptions, Tenue::kGardee},
      {Commande::kVeille, Tenue::kGardee},          {Commande::kQuitte, Tenue::kDerniere},
      {Commande::kSurveillance, Tenue::kOrdinaire}, {Commande::kConnexion, Tenue::kOrdinaire},
      {Commande::kDeconnexion, Tenue::kOrdinaire},  {Commande::kPage, Tenue::kOrdinaire}};
  for (const auto& [commande, tenue] : attendues) EXPECT_EQ(DonneTenue(commande), tenue) << DonneMot(commande).data();
  EnvoieUn(Compagnon::kSon, Commande::kIntrusion);
  EXPECT_EQ(Canal.DerniereTenue, Tenue::kInstant);
  EnvoieUn(Compagnon::kSon, Commande::kQuitte);
  EXPECT_EQ(Canal.DerniereTenue, Tenue::kDerniere);
}

}  // namespace
}  // namespace vaktor::essai
