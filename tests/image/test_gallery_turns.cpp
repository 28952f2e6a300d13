// SPDX-License-Identifier: GPL-3.0-or-later
// What of the gallery may run when: what is asked for while a deletion runs, a question stands or a folder is read.
#include "image/gallery_rules_fixture.h"

namespace vaktor {
namespace {

class ToursGalerie : public faux::ReglesGalerie {
 protected:
  /// A deletion of all of 150 photos stands in its middle, as slices that wait for Livre().
  void EffaceAMoitie() {
    AjoutePhotos(NomsSuivis(150));
    Galerie.OuvreGalerie();
    Effaceur.Retient = true;
    Effaceur.MsParPhoto = 1;
    Galerie.SupprimeTout();
    Effaceur.Livre();
    ASSERT_TRUE(Effaceur.Attend());
    ASSERT_GT(Disque.Supprimes.size(), 0);
    ASSERT_LT(Disque.Supprimes.size(), 150);
    Noms.Lus.clear();
    Lecteur.Lues.clear();
    Vue.Appels.clear();
  }
  void AcheveEffacement() {
    Effaceur.Retient = false;
    Effaceur.Livre();
  }
};

TEST_F(ToursGalerie, OpeningWhileAllIsErasedWaitsAndTheUsersFolderStays) {
  EffaceAMoitie();
  Galerie.OuvreGalerie();
  EXPECT_TRUE(Noms.Lus.isEmpty()) << "nothing is read beside a deletion";
  AjoutePhotos({QStringLiteral("new.jpg")});
  AcheveEffacement();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  EXPECT_EQ(Disque.Supprimes.size(), 150);
  EXPECT_EQ(Noms.Lus, QStringList({QStringLiteral("/p"), QStringLiteral("/p")})) << "behind the deletion, then to open";
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("new.jpg")});
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\new.jpg")});
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
  EXPECT_EQ(Boites.Textes.size(), 1) << "the question";
}

TEST_F(ToursGalerie, NothingIsLaunchedWhileADeletionRunsButItsOwnContinuation) {
  EffaceAMoitie();
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("b.jpg")}, QStringLiteral("/q"));
  const int tranches = Effaceur.Tranches;
  Galerie.OuvreGalerie();
  Galerie.Rafraichit();
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  bool fini = false;
  Galerie.RepointeSur(QStringLiteral("/q"), [&fini] { fini = true; });
  Galerie.SupprimeTout();
  Galerie.SupprimePhoto();
  Choisit(3);
  EXPECT_TRUE(Noms.Lus.isEmpty());
  EXPECT_TRUE(Lecteur.Lues.isEmpty());
  EXPECT_EQ(Effaceur.Tranches, tranches);
  EXPECT_EQ(Boites.Textes.size(), 1);
  EXPECT_FALSE(fini);
  EXPECT_EQ(Galerie.ChangeLimite(QStringLiteral("7")), QStringLiteral("7")) << "the limit needs neither list nor disk";
  EXPECT_EQ(Reglages.NombrePhotoMax, 7);
  EXPECT_FALSE(Galerie.DemandeFermeture()) << "and the window can be closed";
  AcheveEffacement();
  EXPECT_TRUE(fini);
  EXPECT_EQ(Noms.Lus, QStringList({QStringLiteral("/p"), QStringLiteral("/p"), QStringLiteral("/q")}))
      << "the continuation, the refresh, the folder; the opening went with the window";
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("b.jpg")});
  EXPECT_EQ(Boites.Textes.size(), 1) << "a second deletion is none";
  EXPECT_TRUE(Disque.Existe(QStringLiteral("/q/b.jpg")));
}

TEST_F(ToursGalerie, PhotoAskedForBehindTheDeletionOfOneIsShownAfterIt) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Effaceur.Retient = true;
  Galerie.SupprimePhoto();
  Lecteur.Lues.clear();
  Choisit(1);
  EXPECT_TRUE(Lecteur.Lues.isEmpty());
  Effaceur.Livre();
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\b.jpg")});
  EXPECT_EQ(Vue.Index, 0) << "and it is still the selected one";
}

TEST_F(ToursGalerie, WhatIsAskedForUnderTheQuestionWaitsForItsAnswer) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Noms.Lus.clear();
  Boites.Pendant = [this] {
    Galerie.OuvreGalerie();
    Galerie.Rafraichit();
    Galerie.SupprimeTout();
    EXPECT_TRUE(Noms.Lus.isEmpty());
  };
  Galerie.SupprimePhoto();
  EXPECT_EQ(Boites.Textes.size(), 1) << "one question at a time";
  EXPECT_EQ(Disque.Supprimes, QStringList{QStringLiteral("/p\\a.jpg")});
  EXPECT_EQ(Noms.Lus.size(), 3);
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("b.jpg")});
}

TEST_F(ToursGalerie, EndOrALostWindowUnderTheQuestionDeletesNothing) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Boites.Pendant = [this] { Galerie.Delie(); };
  Galerie.SupprimeTout();
  Boites.Pendant = [this] { Etat.EnFermeture = true; };
  Galerie.SupprimeTout();
  EXPECT_EQ(Boites.Textes.size(), 2);
  EXPECT_TRUE(Disque.Supprimes.isEmpty());
}

TEST_F(ToursGalerie, FolderChosenUnderTheQuestionKeepsItsPhotosOfTheSameName) {
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("a.jpg")});
  AjoutePhotos({QStringLiteral("a.jpg")}, QStringLiteral("/q"));
  Galerie.OuvreGalerie();
  Boites.Pendant = [this] {
    Reglages.RepertoirePhoto = QStringLiteral("/q");
    Galerie.RepointeSur(QStringLiteral("/q"), {});
  };
  Galerie.SupprimeTout();
  EXPECT_EQ(Disque.Supprimes, QStringList{QStringLiteral("/p\\a.jpg")});
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("a.jpg")}) << "of the other folder now";
  EXPECT_EQ(Boites.Textes.size(), 1) << "and not taken for one that resisted";
}

// The chooser goes back to the program's folder in memory when the user's has gone; the list is still that of the
// other.
TEST_F(ToursGalerie, DeletionIsInTheFolderOfTheListWhateverTheSettingsSay) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  AjoutePhotos({QStringLiteral("a.jpg")}, QStringLiteral("/d/intrus"));
  Galerie.OuvreGalerie();
  Reglages.RepertoirePhoto = QStringLiteral("/d\\intrus");
  Galerie.SupprimePhoto();
  EXPECT_EQ(Disque.Supprimes, QStringList{QStringLiteral("/p\\a.jpg")});
  EXPECT_TRUE(Disque.Existe(QStringLiteral("/d/intrus/a.jpg")));
}

TEST_F(ToursGalerie, ChangeOfFolderDropsDeletionsThatWait) {
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("a.jpg")});
  AjoutePhotos({QStringLiteral("b.jpg")}, QStringLiteral("/q"));
  Galerie.OuvreGalerie();
  Noms.Retient = true;
  Galerie.Rafraichit();
  Galerie.SupprimeTout();  // before the change is asked for
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Galerie.RepointeSur(QStringLiteral("/q"), {});
  Noms.Livre();
  ASSERT_TRUE(Noms.Attend());
  Galerie.SupprimeTout();  // while the other folder is read: its photos have not been seen yet
  Galerie.SupprimePhoto();
  Noms.Livre();
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("b.jpg")});
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_TRUE(Disque.Supprimes.isEmpty());
  Galerie.SupprimePhoto();
  EXPECT_EQ(Disque.Supprimes, QStringList{QStringLiteral("/q\\b.jpg")}) << "from here on it is";
}

TEST_F(ToursGalerie, SameFolderChosenAgainIsNoChangeAndDropsNone) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Noms.Retient = true;
  Galerie.Rafraichit();
  Galerie.SupprimeTout();
  Galerie.RepointeSur(QStringLiteral("/p"), {});
  Noms.Livre();
  EXPECT_EQ(Boites.Textes.size(), 1);
  EXPECT_EQ(Disque.Supprimes, QStringList{QStringLiteral("/p\\a.jpg")});
}

TEST_F(ToursGalerie, FallbackOfAnOpeningDropsThemToo) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  AjoutePhotos({QStringLiteral("z.jpg")}, QStringLiteral("/d/intrus"));
  Galerie.OuvreGalerie();
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kIllisible;
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  Noms.Livre();
  Noms.Livre();
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("z.jpg")});
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_TRUE(Disque.Supprimes.isEmpty());
}

TEST_F(ToursGalerie, FallbackIsSilentAndForgetsThePictureOfTheOtherFolder) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  ASSERT_FALSE(Vue.Photo.isNull());
  Disque.RetireDossier(QStringLiteral("/p"));
  Galerie.OuvreGalerie();
  EXPECT_TRUE(Vue.Photo.isNull());
  EXPECT_EQ(Vue.Avis, QStringLiteral("No picture in this folder."));
  EXPECT_TRUE(Boites.Textes.isEmpty());
}

TEST_F(ToursGalerie, FallbackForABadPhotoNeverSpeaksOfThatPhoto) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kIllisible;
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Noms.Livre();
  EXPECT_EQ(Vue.Avis, QString()) << "its own folder is still being read";
  Noms.Livre();
  EXPECT_EQ(Vue.Avis, QStringLiteral("No picture in this folder."));
}

TEST_F(ToursGalerie, WindowThatHasGoneIsAskedAndShownNothingMore) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Noms.Retient = Lecteur.Retient = true;
  Choisit(1);
  Galerie.Rafraichit();
  Galerie.SupprimeTout();  // waits for the list
  Galerie.Delie();
  EXPECT_FALSE(Lecteur.Attend());
  EXPECT_FALSE(Noms.Attend());
  Noms.Retient = Lecteur.Retient = false;
  Galerie.Rafraichit();  // of a window that was made anew
  EXPECT_TRUE(Boites.Textes.isEmpty()) << "what the one before was asked for is forgotten";
  EXPECT_EQ(Noms.Lus.size(), 3);
}

TEST_F(ToursGalerie, WindowThatHasGoneTakesItsDeletionWithIt) {
  EffaceAMoitie();
  const qsizetype supprimes = Disque.Supprimes.size();
  Galerie.Delie();
  EXPECT_FALSE(Effaceur.Attend());
  AcheveEffacement();
  EXPECT_EQ(Disque.Supprimes.size(), supprimes);
}

TEST_F(ToursGalerie, NothingIsBegunOnceTheProgramEnds) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Noms.Lus.clear();
  Etat.EnFermeture = true;
  Galerie.Rafraichit();
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  EXPECT_TRUE(Noms.Lus.isEmpty());
  EXPECT_TRUE(Boites.Textes.isEmpty());
}

// The window is closed and made anew under the question, and the box fails on its way out: what has the turn by then is
// another matter, and keeps it.
TEST_F(ToursGalerie, StepThatFailsWhenItsTurnIsOverTakesNobodyElsesTurn) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  Boites.Pendant = [this] {
    Galerie.Delie();
    Noms.Retient = true;
    Galerie.OuvreGalerie();
    throw Echec(kAppelIncorrect, QStringLiteral("no box"));
  };
  EXPECT_THROW(Galerie.SupprimeTout(), Echec);
  ASSERT_TRUE(Noms.Attend());
  Galerie.Rafraichit();
  EXPECT_EQ(Noms.Lus.size(), 2) << "the refresh waits for the opening";
  Noms.Livre();
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
}

// The table itself: what each means is held by the tests above and in test_gallery_reading.cpp.
TEST(TableDesTours, IdleDoesAllAtOnceADeletionNothingAndALateDiskIsGivenUp) {
  for (const Geste geste : {Geste::kOuvre, Geste::kChangeDossier, Geste::kRafraichit, Geste::kEfface, Geste::kMontre}) {
    EXPECT_EQ(DonneTour(Occupation::kAucune, geste), Tour::kTout);
    EXPECT_EQ(DonneTour(Occupation::kEffacement, geste), geste == Geste::kEfface ? Tour::kJamais : Tour::kApres);
    const bool photo = geste == Geste::kMontre;
    EXPECT_EQ(DonneTour(Occupation::kLecture, geste), photo ? Tour::kTout : Tour::kApres);
    EXPECT_EQ(DonneTour(Occupation::kDisqueMuet, geste), photo ? Tour::kTout : Tour::kRemplace);
  }
}

}  // namespace
}  // namespace vaktor
