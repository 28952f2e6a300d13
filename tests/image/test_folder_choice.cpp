// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of the folder chooser: load with its fallback, change of drive with its warning, creation, acceptance.
#include "base/failure.h"
#include "image/folder_bench.h"
#include "image/folder_words.h"

namespace vaktor {
namespace {

const QString kAncien = QStringLiteral("/home/u/Photos");
const QString kUsb = QStringLiteral("/media/u/USB");

class Dossier : public faux::BancDossier {
 protected:
  /// Both halves of Command1.
  bool Accepte() {
    if (!Choix.Valide()) return false;
    Choix.RepointeGalerie([] {});
    return true;
  }
};

TEST_F(Dossier, LoadStandsOnThePhotoFolderSeenFromTheDeepestPlace) {
  Choix.Charge();
  EXPECT_EQ(Choix.Chemin(), kAncien);
  EXPECT_EQ(Choix.Lecteur(), QStringLiteral("/home/u"));
  Reglages.RepertoirePhoto = QStringLiteral("/media/u/USB/Nuits");
  Choix.Charge();
  EXPECT_EQ(Choix.Lecteur(), kUsb);
  Arbre.Ajoute(QStringLiteral("/home/ursula"));
  Reglages.RepertoirePhoto = QStringLiteral("/home/ursula");
  Choix.Charge();
  EXPECT_EQ(Choix.Lecteur(), QStringLiteral("/")) << "/home/u is not a folder above /home/ursula";
}

TEST_F(Dossier, LoadTakesTheDeepestPlaceWhicheverIsListedFirst) {
  Reglages.RepertoirePhoto = QStringLiteral("/media/u/USB/Nuits");
  Arbre.Lieux.prepend({QStringLiteral("Media"), QStringLiteral("/media/u")});
  Choix.Charge();
  EXPECT_EQ(Choix.Lecteur(), kUsb);
  Arbre.Lieux.append(Arbre.Lieux.takeFirst());
  Choix.Charge();
  EXPECT_EQ(Choix.Lecteur(), kUsb);
}

TEST_F(Dossier, LoadForgetsWhereItStoodBefore) {
  Choix.Charge();
  Choix.ChangeLecteur(kUsb);
  Retire(kAncien);
  Retire(QStringLiteral("/home/u/v/intrus"));
  Choix.Charge();
  EXPECT_EQ(Choix.Chemin(), QStringLiteral("/home/u"));
  EXPECT_EQ(Choix.Lecteur(), QStringLiteral("/home/u"));
}

TEST_F(Dossier, LoadTakesTheStoredFormWithItsBackslash) {
  Reglages.RepertoirePhoto = QStringLiteral("/home/u/v\\intrus");
  Choix.Charge();
  EXPECT_EQ(Choix.Chemin(), QStringLiteral("/home/u/v/intrus"));
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/v\\intrus")) << "a load alone rewrites nothing";
}

TEST_F(Dossier, LoadKeepsTheFreeSpaceAndNeverWarns) {
  Disque.OctetsLibres = 12;
  Choix.Charge();
  EXPECT_EQ(Choix.FreeBytes(), 12);
  EXPECT_EQ(Disque.EspacesDemandes, QStringList{QStringLiteral("/home/u")});
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_FALSE(Reglages.ParametresModifies);
}

TEST_F(Dossier, RemovedFolderOpensOnThePicturesOfTheUserOfAnInstalledProgram) {
  Dossiers.Images = QStringLiteral("/home/u/Photos");
  Reglages.RepertoirePhoto = QStringLiteral("/media/u/GONE/Photos");
  Choix.Charge();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/Photos\\Vaktor"));
}

TEST_F(Dossier, RemovedFolderOpensOnTheProgramsOwnInMemoryOnly) {
  Reglages.RepertoirePhoto = QStringLiteral("/media/u/GONE/Photos");
  Choix.Charge();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/v\\intrus"));
  EXPECT_EQ(Choix.Chemin(), QStringLiteral("/home/u/v/intrus"));
  EXPECT_FALSE(Reglages.ParametresModifies);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
  EXPECT_TRUE(Boites.Textes.isEmpty());
}

TEST_F(Dossier, WithTheFallbackGoneAsWellTheFormStillOpens) {
  Retire(kAncien);
  Retire(QStringLiteral("/home/u/v/intrus"));
  Choix.Charge();
  EXPECT_EQ(Choix.Chemin(), QStringLiteral("/home/u"));
  EXPECT_EQ(Choix.Lecteur(), QStringLiteral("/home/u"));
}

TEST_F(Dossier, EmptyFolderIsLeftEmptyByTheLoad) {
  Reglages.RepertoirePhoto.clear();
  Choix.Charge();
  EXPECT_EQ(Choix.Chemin(), QStringLiteral("/home/u"));
  EXPECT_TRUE(Reglages.RepertoirePhoto.isEmpty());
}

TEST_F(Dossier, DiskThatOnlySleepsKeepsTheUsersFolder) {
  Reglages.RepertoirePhoto = QStringLiteral("/media/u/USB/Nuits");
  Arbre.Regards[QStringLiteral("/media/u/USB/Nuits")] = EtatDossier::kSansReponse;
  Arbre.Regards[kUsb] = EtatDossier::kSansReponse;
  Choix.Charge();
  EXPECT_EQ(Choix.Chemin(), QStringLiteral("/media/u/USB/Nuits"));
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/media/u/USB/Nuits"));
  EXPECT_EQ(Choix.FreeBytes(), 0);
}

TEST_F(Dossier, ChangeOfDriveMovesTheTreeAsksForTheSpaceAndMarks) {
  Choix.Charge();
  Choix.ChangeLecteur(kUsb);
  EXPECT_EQ(Choix.Lecteur(), kUsb);
  EXPECT_EQ(Choix.Chemin(), kUsb);
  EXPECT_EQ(Disque.EspacesDemandes.last(), kUsb) << "the path and not the name that is shown";
  EXPECT_TRUE(Reglages.ParametresModifies);
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

// A volume that was mounted over the chosen folder while the form stood there.
TEST_F(Dossier, ChangeOfDriveMarksAlsoWhereTheTreeStandsThereAlready) {
  Arbre.Lieux.removeAt(1);
  Reglages.RepertoirePhoto = kUsb;
  Choix.Charge();
  ASSERT_EQ(Choix.Lecteur(), QStringLiteral("/"));
  Choix.ChangeLecteur(kUsb);
  EXPECT_EQ(Choix.Lecteur(), kUsb);
  EXPECT_TRUE(Reglages.ParametresModifies);
}

TEST_F(Dossier, WarningComesStrictlyBelowTheLimit) {
  Choix.Charge();
  Disque.OctetsLibres = 500'000'000;
  Choix.ChangeLecteur(kUsb);
  EXPECT_TRUE(Boites.Textes.isEmpty());
  Disque.OctetsLibres = 499'999'999;
  Choix.ChangeLecteur(QStringLiteral("/"));
  EXPECT_EQ(Boites.Textes, QStringList{QStringLiteral("Espace disque < 500 Mo. ")});
  EXPECT_EQ(Boites.Titres, QStringList{QStringLiteral("Attention")});
  EXPECT_EQ(Boites.Boutons, BoutonsBoite::kOkAnnuler);
}

TEST_F(Dossier, WarningSpeaksTheUsersLanguageAndItsAnswerIsIgnored) {
  ParleAnglais();
  Choix.Charge();
  Disque.OctetsLibres = 1;
  Boites.Reponse = ReponseBoite::kAnnuler;
  Choix.ChangeLecteur(kUsb);
  EXPECT_EQ(Boites.Textes, QStringList{QStringLiteral("Disk space <500 Mo.")});
  EXPECT_EQ(Boites.Titres, QStringList{QStringLiteral("Be careful")});
  EXPECT_EQ(Choix.Lecteur(), kUsb);
  EXPECT_EQ(Choix.Chemin(), kUsb);
  EXPECT_TRUE(Reglages.ParametresModifies);
}

TEST_F(Dossier, QueryThatFailsKeepsTheNumberOfTheOneBefore) {
  Disque.OctetsLibres = 7;
  Choix.Charge();
  Disque.OctetsLibres.reset();
  Choix.ChangeLecteur(kUsb);
  EXPECT_EQ(Choix.FreeBytes(), 7);
  EXPECT_EQ(Boites.Textes.size(), 1) << "the old number is low, and it is what counts";
  Choix.Charge();
  EXPECT_EQ(Choix.FreeBytes(), 7) << "it outlives the form";
}

TEST_F(Dossier, SameDriveIsNoChange) {
  Choix.Charge();
  Disque.OctetsLibres = 1;
  Choix.ChangeLecteur(QStringLiteral("/home/u"));
  EXPECT_EQ(Choix.Chemin(), kAncien);
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_FALSE(Reglages.ParametresModifies);
}

TEST_F(Dossier, VolumePulledOutMeanwhileIsToldAndLeavesEverything) {
  Choix.Charge();
  int suivis = 0;
  Choix.SurChangement([&suivis] { ++suivis; });
  Arbre.Regards.remove(kUsb);
  Choix.ChangeLecteur(kUsb);
  ASSERT_EQ(Boites.Textes.size(), 1);
  EXPECT_TRUE(Boites.Textes.first().contains(kUsb));
  EXPECT_EQ(Choix.Lecteur(), QStringLiteral("/home/u"));
  EXPECT_EQ(Choix.Chemin(), kAncien);
  EXPECT_FALSE(Reglages.ParametresModifies);
  EXPECT_EQ(suivis, 1) << "the list goes back to where the tree still stands";
}

TEST_F(Dossier, ChangeOfFolderMarksAndNothingElse) {
  Choix.Charge();
  Choix.ChangeDossier(kAncien);
  EXPECT_FALSE(Reglages.ParametresModifies) << "that is none";
  Choix.ChangeDossier(QStringLiteral("/home/u/v"));
  EXPECT_TRUE(Reglages.ParametresModifies);
  EXPECT_EQ(Reglages.RepertoirePhoto, kAncien);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(Dossier, CreationJoinsWithABackslashPumpsAndMovesTheTree) {
  Choix.Charge();
  QString pendant;
  Pompe.EnAttente = [&] { pendant = Choix.Chemin(); };
  Choix.CreeDossier(QStringLiteral("Intrus"));
  EXPECT_EQ(Disque.DossiersDemandes, QStringList{QStringLiteral("/home/u/Photos\\Intrus")});
  EXPECT_EQ(pendant, kAncien) << "made first, then the events, then the tree";
  EXPECT_EQ(Choix.Chemin(), QStringLiteral("/home/u/Photos/Intrus"));
  EXPECT_TRUE(Reglages.ParametresModifies) << "the folder in the tree has changed";
  EXPECT_EQ(Reglages.RepertoirePhoto, kAncien);
}

TEST_F(Dossier, CreatingTheSameFolderAgainDoesNothingAndSaysNothing) {
  Disque.AjouteDossier(QStringLiteral("/home/u/Photos/Intrus"));
  Choix.Charge();
  Choix.CreeDossier(QStringLiteral("Intrus"));
  EXPECT_EQ(Choix.Chemin(), kAncien) << "the tree does not move into it";
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_EQ(Pompe.Appels, 0);
  EXPECT_FALSE(Reglages.ParametresModifies);
}

TEST_F(Dossier, CreationOnADiskThatDoesNotAnswerLeavesTheTreeAndSaysNothing) {
  Choix.Charge();
  Arbre.Regards[kAncien] = EtatDossier::kSansReponse;
  Choix.CreeDossier(QStringLiteral("Intrus"));
  EXPECT_EQ(Choix.Chemin(), kAncien);
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_EQ(Pompe.Appels, 0);
}

TEST_F(Dossier, AcceptanceTakesTheFolderSavesThenShowsItInTheGallery) {
  Choix.Charge();
  Choix.ChangeLecteur(kUsb);
  Journal_.Vide();
  EXPECT_TRUE(Accepte());
  EXPECT_EQ(Reglages.RepertoirePhoto, kUsb);
  EXPECT_EQ(Journal_.Lignes(),
            (QStringList{QStringLiteral("SauveParametres"), QStringLiteral("gallery /media/u/USB")}));
  EXPECT_TRUE(Sauvegarde.ModifiesALaSauvegarde);
}

TEST_F(Dossier, AcceptanceWithoutBrowsingSavesNothingAndRefreshesTheGallery) {
  Choix.Charge();
  Journal_.Vide();
  EXPECT_TRUE(Accepte());
  EXPECT_EQ(Journal_.Lignes(), QStringList{QStringLiteral("gallery /home/u/Photos")});
}

TEST_F(Dossier, AcceptanceSavesWhateverHadMarkedTheParameters) {
  Choix.Charge();
  Reglages.ParametresModifies = true;
  EXPECT_TRUE(Accepte());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
}

TEST_F(Dossier, FallbackBecomesLastingOnlyWithASave) {
  Retire(kAncien);
  Choix.Charge();
  EXPECT_TRUE(Accepte());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/v/intrus"));
}

TEST_F(Dossier, SaveThatFailsLeavesSettingListAndShownFolderAndIsToldInOneMessage) {
  ParleAnglais();
  Choix.Charge();
  Choix.ChangeLecteur(kUsb);
  Sauvegarde.Echoue = true;
  Journal_.Vide();
  EXPECT_FALSE(Accepte()) << "the form stays, for another try";
  EXPECT_EQ(Reglages.RepertoirePhoto, kAncien);
  EXPECT_TRUE(Reglages.ParametresModifies);
  EXPECT_EQ(Journal_.Lignes(), QStringList{QStringLiteral("SauveParametres")}) << "the gallery has not followed";
  EXPECT_EQ(Choix.Chemin(), kUsb);
  ASSERT_EQ(Boites.Textes.size(), 1);
  EXPECT_EQ(Boites.Textes.first(), QStringLiteral("disk full\nThe photo folder is still \"/home/u/Photos\"."));
  EXPECT_EQ(Boites.Titres.first(), QStringLiteral("Be careful"));
  EXPECT_EQ(Boites.Boutons, BoutonsBoite::kOk);
  Sauvegarde.Echoue = false;
  EXPECT_TRUE(Accepte());
  EXPECT_EQ(Reglages.RepertoirePhoto, kUsb);
}

TEST_F(Dossier, WhateverElseASaveThrowsLeavesTheFolderToo) {
  struct Panne : SauvegardeParametres {
    void SauveParametres() override { throw std::bad_alloc(); }
  } panne;
  ChoixDossier choix({Reglages, panne, Dossiers, Arbre, Pompe, Boites, Textes, {}});
  choix.Charge();
  choix.ChangeLecteur(kUsb);
  EXPECT_THROW(choix.Valide(), std::bad_alloc);
  EXPECT_EQ(Reglages.RepertoirePhoto, kAncien);
}

class Refus : public Dossier, public testing::WithParamInterface<EtatDossier> {};

TEST_P(Refus, NewFolderThatTakesNoPhotoIsToldAndNothingIsLost) {
  ParleAnglais();
  Choix.Charge();
  Choix.ChangeLecteur(kUsb);
  Arbre.Ecritures[kUsb] = GetParam();
  Journal_.Vide();
  EXPECT_FALSE(Accepte()) << "the form stays, for another choice";
  ASSERT_EQ(Boites.Textes.size(), 1);
  EXPECT_TRUE(Boites.Textes.first().contains(kUsb)) << Boites.Textes.first().toStdString();
  EXPECT_TRUE(Boites.Textes.first().contains(QStringLiteral("still \"/home/u/Photos\"")));
  EXPECT_EQ(Boites.Titres.first(), QStringLiteral("Be careful"));
  EXPECT_EQ(Boites.Boutons, BoutonsBoite::kOk);
  EXPECT_EQ(Reglages.RepertoirePhoto, kAncien);
  EXPECT_TRUE(Journal_.Lignes().isEmpty());
}

TEST_P(Refus, FolderAlreadyInUseIsToldAndAcceptedAllTheSame) {
  Choix.Charge();
  Arbre.Ecritures[kAncien] = GetParam();
  Journal_.Vide();
  EXPECT_TRUE(Accepte());
  EXPECT_EQ(Boites.Textes.size(), 1);
  EXPECT_EQ(Journal_.Lignes(), QStringList{QStringLiteral("gallery /home/u/Photos")});
}

INSTANTIATE_TEST_SUITE_P(Etats, Refus,
                         testing::Values(EtatDossier::kAbsent, EtatDossier::kInterdit, EtatDossier::kLectureSeule,
                                         EtatDossier::kPlein, EtatDossier::kSansReponse));

TEST(MotsDossier, EachStateHasASentenceOfItsOwnInBothLanguages) {
  QStringList phrases;
  for (const Langue langue : kLangues) {
    for (const EtatDossier etat : {EtatDossier::kAbsent, EtatDossier::kInterdit, EtatDossier::kLectureSeule,
                                   EtatDossier::kPlein, EtatDossier::kSansReponse}) {
      phrases += DitEtatDossier(langue, etat, QStringLiteral("/a%1b"));
      EXPECT_TRUE(phrases.last().contains(QStringLiteral("/a%1b")));
    }
  }
  EXPECT_EQ(phrases.removeDuplicates(), 0);
  EXPECT_EQ(DitEtatDossier(LangueParlee(7), EtatDossier::kPlein, QStringLiteral("/a")),
            DitEtatDossier(Langue::kFrancais, EtatDossier::kPlein, QStringLiteral("/a")));
  EXPECT_TRUE(DitEtatDossier(Langue::kFrancais, EtatDossier::kBon, QStringLiteral("/a")).isEmpty());
}

}  // namespace
}  // namespace vaktor
