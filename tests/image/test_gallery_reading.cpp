// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's rules while a folder is read, which takes as long as the disk wants.
#include "image/gallery_rules_fixture.h"

namespace vaktor {
namespace {

using ReglesLecture = faux::ReglesGalerie;

// While the folder is read the window and detection go on. What is asked for meanwhile waits its turn.

TEST_F(ReglesLecture, NothingIsShownBeforeTheNamesAreThere) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  EXPECT_TRUE(Vue.Appels.isEmpty());
  EXPECT_TRUE(Lecteur.Lues.isEmpty());
  Noms.Livre();
  EXPECT_EQ(Vue.Appels.mid(Vue.Appels.size() - 3),
            QStringList({QStringLiteral("ajuste"), QStringLiteral("montre"), QStringLiteral("titre")}));
}

TEST_F(ReglesLecture, SecondClickWhileItOpensIsTheSameOpening) {
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.OuvreGalerie();
  Noms.Livre();
  EXPECT_FALSE(Noms.Attend());
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
  Galerie.OuvreGalerie();
  Noms.Livre();
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 2) << "and a later one opens again";
}

TEST_F(ReglesLecture, FolderThatVanishesWhileItIsReadFallsBackAndTheFallbackIsReadToo) {
  AjoutePhotos({QStringLiteral("z.jpg")}, QStringLiteral("/d/intrus"));
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Disque.RetireDossier(QStringLiteral("/p"));
  Noms.Livre();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/d\\intrus"));
  EXPECT_TRUE(Vue.Appels.isEmpty());
  Galerie.OuvreGalerie();
  Noms.Livre();
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("z.jpg")});
  EXPECT_EQ(Noms.Lus.size(), 2) << "a click during the fallback is the same opening";
}

// Another program deletes it, or a disk that wakes ends what it was asked to delete.
TEST_F(ReglesLecture, FirstPhotoThatGoesBetweenListAndShowingCostsTheUserNoFolder) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Lecteur.Retient = true;
  Galerie.OuvreGalerie();
  Disque.Supprime(QStringLiteral("/p/a.jpg"));
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kAbsente;
  Lecteur.Livre();
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 0) << "the list is read once more";
  Lecteur.Livre();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("b.jpg")});
  EXPECT_EQ(Vue.Index, 0);
  EXPECT_FALSE(Vue.Photo.isNull());
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
  EXPECT_EQ(Noms.Lus.size(), 2);
}

TEST_F(ReglesLecture, LastPhotoThatGoesBetweenListAndShowingLeavesTheUsersFolderEmpty) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Lecteur.Retient = true;
  Galerie.OuvreGalerie();
  Disque.Supprime(QStringLiteral("/p/a.jpg"));
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kAbsente;
  Lecteur.Livre();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  EXPECT_TRUE(Vue.Liste.isEmpty());
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("montre")));
}

TEST_F(ReglesLecture, PhotoThatIsListedAgainAndNotThereCountsAsOneThatCannotBeShown) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kAbsente;
  Noms.Livre();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  Noms.Livre();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/d\\intrus"));
}

TEST_F(ReglesLecture, FolderChosenWhileAnotherIsReadIsOpenedAndNotGivenUp) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("b.jpg")}, QStringLiteral("/q"));
  Lecteur.Etats[QStringLiteral("/q\\a.jpg")] = EtatPhoto::kAbsente;
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Noms.Livre();
  Noms.Livre();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/q"));
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("b.jpg")});
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
}

TEST_F(ReglesLecture, EndOfTheProgramWhileItOpensShowsNothingMore) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  Etat.EnFermeture = true;
  Noms.Livre();
  EXPECT_TRUE(Vue.Appels.isEmpty());
  EXPECT_TRUE(Boites.Textes.isEmpty()) << "and asks nothing";
}

TEST_F(ReglesLecture, WindowClosedWhileItOpensAgainStaysClosed) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Noms.Retient = true;
  Galerie.Rafraichit();
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  Galerie.DemandeFermeture();
  Noms.Livre();
  EXPECT_FALSE(Noms.Attend());
  EXPECT_EQ(Vue.Appels, QStringList({QStringLiteral("liste 1"), QStringLiteral("titre")})) << "the refresh alone";
  Galerie.OuvreGalerie();
  Galerie.DemandeFermeture();
  EXPECT_FALSE(Noms.Attend());
}

TEST_F(ReglesLecture, DisplayThatHasGoneIsToldNothing) {
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  Galerie.Delie();
  EXPECT_FALSE(Noms.Attend());
  EXPECT_TRUE(Boites.Textes.isEmpty());
}

TEST_F(ReglesLecture, LanguageChangedWhileItOpensIsTheOneOfTheCaption) {
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Textes.Remplit(Langue::kFrancais);
  Reglages.LangueCourante = 0;
  Noms.Livre();
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 0 Photo(s)"));
  EXPECT_EQ(Vue.Avis, QStringLiteral("Aucune photo dans ce répertoire."));
}

TEST_F(ReglesLecture, RefreshesAskedForWhileOneRunsAreOneMore) {
  Galerie.OuvreGalerie();
  Noms.Retient = true;
  Noms.Lus.clear();
  for (int i = 0; i < 5; ++i) Galerie.Rafraichit();
  Noms.Livre();
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Livre();
  EXPECT_EQ(Noms.Lus.size(), 2);
  EXPECT_EQ(Vue.Liste.size(), 1) << "what came in while the first ran is not missed";
}

TEST_F(ReglesLecture, RepointingTellsWhenItIsDoneAlsoWhenItFails) {
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("a.jpg")}, QStringLiteral("/q"));
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Noms.Retient = true;
  int finis = 0;
  Galerie.RepointeSur(QStringLiteral("/q"), [&] {
    ++finis;
    EXPECT_EQ(Vue.Liste.size(), 1) << "behind the list";
  });
  EXPECT_EQ(finis, 0);
  Noms.Livre();
  EXPECT_EQ(finis, 1);
  Galerie.RepointeSur(QStringLiteral("/nowhere"), [&] { ++finis; });
  Galerie.Rafraichit();
  EXPECT_THROW(Noms.Livre(), Echec);
  EXPECT_EQ(finis, 2);
  EXPECT_TRUE(Noms.Attend()) << "a failure does not keep the next one waiting";
}

TEST_F(ReglesLecture, RefreshOfAFolderThatIsGoneSaysSoAndShowsNoFalseList) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Disque.RetireDossier(QStringLiteral("/p"));
  EXPECT_THROW(Galerie.Rafraichit(), Echec);
  EXPECT_TRUE(Vue.Liste.isEmpty());
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 0 Picture(s)"));
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p")) << "only the opening goes back to the program's folder";
}

TEST_F(ReglesLecture, DiskThatDoesNotAnswerIsSaidInTheWindowAndKeepsTheUsersFolder) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Noms.Tarde();
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("montre")));
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("does not answer"))) << Vue.Avis.toStdString();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  Reglages.LangueCourante = 0;
  Galerie.RedisAvis();
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("ne répond pas"))) << Vue.Avis.toStdString();
  Noms.Livre();
  EXPECT_FALSE(Vue.Photo.isNull()) << "it only slept";
  EXPECT_EQ(Vue.Liste.size(), 1);
}

TEST_F(ReglesLecture, WhatIsAskedForDoesNotWaitForADiskThatDoesNotAnswer) {
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("a.jpg")}, QStringLiteral("/q"));
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Noms.Tarde();
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  int finis = 0;
  Galerie.RepointeSur(QStringLiteral("/q"), [&finis] { ++finis; });
  Noms.Tarde();
  EXPECT_EQ(finis, 1) << "nobody waits with it either";
  Galerie.OuvreGalerie();
  Noms.Livre();
  EXPECT_EQ(finis, 1);
  EXPECT_EQ(Vue.Liste.size(), 1);
  EXPECT_EQ(Vue.Avis, QString());
  Galerie.Rafraichit();
  Galerie.Rafraichit();
  Noms.Tarde();
  EXPECT_TRUE(Noms.Attend()) << "the second one is tried instead";
  EXPECT_EQ(Noms.Lus.size(), 5);
}

TEST_F(ReglesLecture, RefreshWhileTheDiskDoesNotAnswerAsksItAgain) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Noms.Tarde();
  Galerie.Rafraichit();
  Noms.Livre();
  EXPECT_EQ(Noms.Lus, QStringList({QStringLiteral("/p"), QStringLiteral("/p")}));
  EXPECT_EQ(Vue.Liste.size(), 2);
  EXPECT_EQ(Vue.Avis, QString());
}

TEST_F(ReglesLecture, OpeningAskedForAgainWhileTheDiskDoesNotAnswerAsksItAgain) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Noms.Tarde();
  Vue.Appels.clear();
  Galerie.OuvreGalerie();
  EXPECT_EQ(Noms.Lus.size(), 2);
  Noms.Livre();
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
  EXPECT_EQ(Vue.Liste.size(), 1);
}

// Only the disk that was late is given up for what is asked for; the next one, or the same that has woken, is waited
// for.
TEST_F(ReglesLecture, DiskThatWasLateMakesNoneOfThatWhichFollows) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Noms.Lus.clear();
  Noms.Retient = Lecteur.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.Rafraichit();
  Noms.Tarde();
  ASSERT_EQ(Noms.Lus.size(), 2) << "the refresh has its turn";
  Galerie.OuvreGalerie();
  EXPECT_EQ(Noms.Lus.size(), 2) << "and keeps it";
  Noms.Livre();
  Noms.Livre();
  Lecteur.Livre();
  ASSERT_EQ(Noms.Lus.size(), 3);
  Galerie.OuvreGalerie();
  Noms.Tarde();
  Noms.Livre();
  ASSERT_TRUE(Lecteur.Attend()) << "the first photo, of a disk that has woken";
  Galerie.Rafraichit();
  EXPECT_EQ(Noms.Lus.size(), 4) << "the opening keeps its turn until that one is there";
  Lecteur.Livre();
  EXPECT_EQ(Noms.Lus.size(), 5);
}

TEST_F(ReglesLecture, WindowClosedDuringTheFallbackStaysClosedAndWhatWaitsGoesOn) {
  AjoutePhotos({QStringLiteral("z.jpg")}, QStringLiteral("/d/intrus"));
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  Noms.Lus.clear();
  Reglages.RepertoirePhoto = QStringLiteral("/usb");
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Noms.Livre();
  ASSERT_EQ(Noms.Lus.last(), QStringLiteral("/d\\intrus"));
  Galerie.Rafraichit();
  Galerie.DemandeFermeture();
  EXPECT_EQ(Noms.Lus.size(), 3) << "the refresh has its turn";
  Noms.Livre();
  EXPECT_FALSE(Noms.Attend());
  EXPECT_FALSE(Vue.Appels.contains(QStringLiteral("montre")));
}

TEST_F(ReglesLecture, PhotosOfTheFolderBeforeAreNoneOfADiskThatDoesNotAnswer) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("b.jpg"), QStringLiteral("c.jpg")}, QStringLiteral("/q"));
  Noms.Retient = true;
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Galerie.RepointeSur(QStringLiteral("/q"), {});
  Noms.Tarde();
  EXPECT_TRUE(Vue.Liste.isEmpty());
  EXPECT_EQ(Vue.Index, -1);
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 0 Picture(s)"));
  Noms.Livre();
  EXPECT_EQ(Vue.Liste.size(), 2);
  EXPECT_EQ(Vue.Index, 0) << "the change of folder still counts as a click when it answers";
  Noms.Retient = false;
  Choisit(1);
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Noms.Tarde();
  EXPECT_EQ(Vue.Liste.size(), 2) << "the same folder keeps its list";
}

}  // namespace
}  // namespace vaktor
