// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's rules while a photo is read, which takes as long as the disk wants.
#include <new>

#include "image/gallery_rules_fixture.h"

namespace vaktor {
namespace {

class PhotosLues : public faux::ReglesGalerie {
 protected:
  /// a.jpg is shown; b.jpg and c.jpg are green and blue, and are read when the test lets them come.
  void Ouvre() {
    AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")});
    Lecteur.Couleurs[QStringLiteral("/p\\b.jpg")] = qRgb(0, 255, 0);
    Lecteur.Couleurs[QStringLiteral("/p\\c.jpg")] = qRgb(0, 0, 255);
    Galerie.OuvreGalerie();
    Lecteur.Lues.clear();
    Lecteur.Retient = true;
  }
  QRgb Montree() const { return Vue.Photo.isNull() ? 0 : Vue.Photo.pixel(1, 1); }
};

constexpr QRgb kRouge = qRgb(200, 60, 20);
constexpr QRgb kVert = qRgb(0, 255, 0);
constexpr QRgb kBleu = qRgb(0, 0, 255);

TEST_F(PhotosLues, ClickShowsThePhotoWhenItComesAndTheOneBeforeUntilThen) {
  Ouvre();
  Choisit(1);
  EXPECT_EQ(Montree(), kRouge);
  Lecteur.Livre();
  EXPECT_EQ(Montree(), kVert);
}

TEST_F(PhotosLues, OneIsReadAtATimeAndTheNewestComesNext) {
  Ouvre();
  Choisit(1);
  Choisit(0);
  Choisit(2);
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\b.jpg")});
  Lecteur.Livre();
  EXPECT_EQ(Montree(), kVert) << "a key that is held down shows what comes on the way";
  Lecteur.Livre();
  EXPECT_EQ(Montree(), kBleu);
  EXPECT_EQ(Lecteur.Lues.size(), 2) << "not the one that was passed over";
}

TEST_F(PhotosLues, DiskThatDoesNotAnswerIsSaidInThePhotosPlaceInBothLanguages) {
  Ouvre();
  Choisit(1);
  Lecteur.Tarde();
  EXPECT_TRUE(Vue.Photo.isNull());
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("does not answer"))) << Vue.Avis.toStdString();
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("b.jpg")));
  Reglages.LangueCourante = 0;
  Galerie.RedisAvis();
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("ne répond pas"))) << Vue.Avis.toStdString();
}

TEST_F(PhotosLues, LatePhotoIsShownIfItIsStillTheSelectedOne) {
  Ouvre();
  Choisit(1);
  Lecteur.Tarde();
  Lecteur.Livre();
  EXPECT_EQ(Montree(), kVert);
  EXPECT_EQ(Vue.Avis, QString());
}

TEST_F(PhotosLues, NextClickDoesNotWaitForALatePhotoWhichIsDropped) {
  Ouvre();
  Choisit(1);
  Lecteur.Tarde();
  Choisit(2);
  EXPECT_EQ(Lecteur.Lues.last(), QStringLiteral("/p\\c.jpg"));
  Lecteur.Livre();
  EXPECT_EQ(Montree(), kBleu);
  EXPECT_FALSE(Lecteur.Attend());
}

TEST_F(PhotosLues, ClickThatWaitsBehindAPhotoThatTurnsLateGoesOn) {
  Ouvre();
  Choisit(1);
  Choisit(2);
  Lecteur.Tarde();
  EXPECT_EQ(Vue.Avis, QString()) << "nobody looks at that one any more";
  EXPECT_EQ(Lecteur.Lues.last(), QStringLiteral("/p\\c.jpg"));
  Lecteur.Livre();
  EXPECT_EQ(Montree(), kBleu);
}

TEST_F(PhotosLues, SelectionWithoutAClickDropsALatePhotoOfAnotherOnlyOnceItsPlaceIsTaken) {
  Ouvre();
  Choisit(1);
  Lecteur.Tarde();
  Galerie.ChoisitIndex(2);
  Lecteur.Livre();
  EXPECT_EQ(Montree(), kVert) << "its place said that it is waited for";
}

TEST_F(PhotosLues, FolderThatIsLeftTakesTheReadingOfItsPhotosWithIt) {
  Ouvre();
  Disque.AjouteDossier(QStringLiteral("/q"));
  Choisit(1);
  Choisit(2);
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Galerie.RepointeSur(QStringLiteral("/q"), {});
  EXPECT_FALSE(Lecteur.Attend());
  EXPECT_EQ(Montree(), kRouge) << "an empty folder keeps the picture that was shown";
}

TEST_F(PhotosLues, ListThatIsAskedForAgainTakesNoPhotoFromWhoWaitsForIt) {
  Ouvre();
  Noms.Retient = true;
  Galerie.Rafraichit();
  Noms.Tarde();
  Choisit(1);
  Galerie.Rafraichit();  // in place of the one that is late
  ASSERT_TRUE(Lecteur.Attend());
  Lecteur.Livre();
  EXPECT_EQ(Montree(), kVert);
}

TEST_F(PhotosLues, PhotoAskedForBehindADeletionIsReadWhenTheListBehindItIsLate) {
  Ouvre();
  Lecteur.Retient = false;
  Effaceur.Retient = Noms.Retient = true;
  Galerie.SupprimePhoto();
  Choisit(1);
  Effaceur.Livre();
  ASSERT_TRUE(Noms.Attend());
  EXPECT_EQ(Montree(), kRouge) << "its turn comes behind the list";
  Noms.Tarde();
  EXPECT_EQ(Montree(), kVert) << "but not behind a disk that does not answer";
}

TEST_F(PhotosLues, OneThatCannotEvenBeAskedForKeepsNoOtherWaiting) {
  Ouvre();
  Lecteur.Retient = false;
  Lecteur.Jette = std::make_exception_ptr(std::bad_alloc());
  EXPECT_THROW(Choisit(1), std::bad_alloc);
  Choisit(2);
  EXPECT_EQ(Montree(), kBleu);
}

TEST_F(PhotosLues, OpeningWaitsForItsFirstPhotoAndASecondClickIsTheSameOpening) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Lecteur.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.OuvreGalerie();
  EXPECT_FALSE(Vue.Appels.contains(QStringLiteral("montre")));
  Lecteur.Livre();
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
  EXPECT_EQ(Montree(), kRouge);
  EXPECT_EQ(Vue.Index, 0);
}

TEST_F(PhotosLues, ClickWhileItIsOpenedAgainIsOverWithTheOpening) {
  Ouvre();
  Galerie.OuvreGalerie();
  Choisit(2);
  Lecteur.Livre();
  EXPECT_EQ(Vue.Index, 0);
  EXPECT_EQ(Montree(), kRouge);
  EXPECT_FALSE(Lecteur.Attend()) << "list and picture agree";
}

TEST_F(PhotosLues, FirstPhotoOfADiskThatDoesNotAnswerKeepsTheUsersFolderAndTheWindowComes) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Lecteur.Retient = true;
  Galerie.OuvreGalerie();
  Lecteur.Tarde();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("montre")));
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("does not answer")));
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kIllisible;
  Lecteur.Livre();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p")) << "the opening is over: a late bad photo is only said";
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("damaged")));
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
}

TEST_F(PhotosLues, WantOfMemoryForTheFirstPhotoIsNoReasonToChangeTheFolder) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kSansMoyens;
  Galerie.OuvreGalerie();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("montre")));
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("memory"))) << Vue.Avis.toStdString();
  bool fini = false;
  Galerie.RepointeSur(QStringLiteral("/p"), [&fini] { fini = true; });
  EXPECT_TRUE(fini) << "and no failure of the chooser";
}

TEST_F(PhotosLues, FolderChosenWhileTheFirstPhotoIsReadIsOpenedAndNotGivenUp) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("b.jpg")}, QStringLiteral("/q"));
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kAbsente;
  Lecteur.Retient = true;
  Galerie.OuvreGalerie();
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Lecteur.Livre();
  Lecteur.Livre();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/q"));
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("b.jpg")});
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
}

TEST_F(PhotosLues, WindowClosedOrProgramEndedWhileAPhotoIsReadShowsNothingMore) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Lecteur.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.DemandeFermeture();
  EXPECT_FALSE(Lecteur.Attend());
  EXPECT_FALSE(Vue.Appels.contains(QStringLiteral("montre")));
  Choisit(1);
  Vue.Appels.clear();
  Etat.EnFermeture = true;
  Lecteur.Livre();
  EXPECT_TRUE(Vue.Appels.isEmpty());
}

}  // namespace
}  // namespace vaktor
