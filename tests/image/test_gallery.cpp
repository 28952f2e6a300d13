// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's rules: opening with its fallback, the list, the closing.
#include <tuple>

#include "image/gallery_rules_fixture.h"

namespace vaktor {
namespace {

using ReglesListe = faux::ReglesGalerie;

TEST_F(ReglesListe, OpeningListsLoadsFitsShowsAndCountsInThisOrder) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  Galerie.OuvreGalerie();
  EXPECT_EQ(Vue.Appels, QStringList({QStringLiteral("liste 2"), QStringLiteral("photo"), QStringLiteral("ajuste"),
                                     QStringLiteral("montre"), QStringLiteral("titre")}));
}

TEST_F(ReglesListe, ChangeOfFolderActsAsAClickOnTheFirstEntryAndTheSameFolderDoesNot) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.RepointeSur(QStringLiteral("/p"), {});
  // The click and the loading are one reading: a photo takes its time, and the second would show nothing new.
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\a.jpg")});
  EXPECT_EQ(Vue.Index, 0) << "clicked";
  Choisit(1);
  Lecteur.Lues.clear();
  Galerie.RepointeSur(QStringLiteral("/p"), {});
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\a.jpg")}) << "loaded and not clicked";
  EXPECT_EQ(Vue.Index, 1);
}

TEST_F(ReglesListe, EmptyFolderCountsZeroAndKeepsTheLastPicture) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Disque.AjouteDossier(QStringLiteral("/q"));
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Galerie.OuvreGalerie();
  EXPECT_FALSE(Vue.Photo.isNull());
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 0 Picture(s)"));
  EXPECT_EQ(Vue.Index, -1);
}

TEST_F(ReglesListe, FolderWithoutPhotosSaysSoWhereNoPictureWasShownYet) {
  Galerie.OuvreGalerie();
  EXPECT_EQ(Vue.Avis, QStringLiteral("No picture in this folder."));
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.Rafraichit();
  EXPECT_EQ(Vue.Avis, QString()) << "there is one now";
  Reglages.LangueCourante = 0;
  Galerie.RedisAvis();
  EXPECT_EQ(Vue.Avis, QString());
}

TEST_F(ReglesListe, FolderThatIsGoneFallsBackToTheProgramsInMemoryAndWithoutAWord) {
  AjoutePhotos({QStringLiteral("z.jpg")}, QStringLiteral("/d/intrus"));
  Reglages.RepertoirePhoto = QStringLiteral("/usb");
  Galerie.OuvreGalerie();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/d\\intrus"));
  EXPECT_EQ(Lecteur.Lues.last(), QStringLiteral("/d\\intrus\\z.jpg"));
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_FALSE(Reglages.ParametresModifies);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(ReglesListe, AnInstalledProgramFallsBackToThePicturesOfItsUser) {
  Dossiers.Images = QStringLiteral("/i");
  Disque.AjouteDossier(QStringLiteral("/i/Vaktor"));
  AjoutePhotos({QStringLiteral("z.jpg")}, QStringLiteral("/i/Vaktor"));
  Reglages.RepertoirePhoto = QStringLiteral("/usb");
  Galerie.OuvreGalerie();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/i\\Vaktor"));
}

TEST_F(ReglesListe, FolderThatMayNotBeReadCountsAsGoneAndNotAsEmpty) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  AjoutePhotos({QStringLiteral("z.jpg")}, QStringLiteral("/d/intrus"));
  Disque.Illisibles += QStringLiteral("/p");
  EXPECT_THROW(Galerie.RepointeSur(QStringLiteral("/p"), {}), Echec);
  Galerie.OuvreGalerie();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/d\\intrus"));
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("z.jpg")});
}

// At the opening a first photo that cannot be shown counts like a folder that is gone; in the list it does not.
TEST_F(ReglesListe, FirstPhotoThatCannotBeShownFallsBackToo) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kIllisible;
  Galerie.OuvreGalerie();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/d\\intrus"));
  EXPECT_TRUE(Vue.Liste.isEmpty());
}

TEST_F(ReglesListe, SecondFailureIsNotCaughtAndTheWindowIsUp) {
  AjoutePhotos({QStringLiteral("z.jpg")}, QStringLiteral("/d/intrus"));
  Lecteur.Etats[QStringLiteral("/d\\intrus\\z.jpg")] = EtatPhoto::kVide;
  Reglages.RepertoirePhoto = QStringLiteral("/usb");
  try {
    Galerie.OuvreGalerie();
    FAIL() << "caught";
  } catch (const Echec& echec) {
    EXPECT_TRUE(echec.Description().contains(QStringLiteral("z.jpg"))) << echec.Description().toStdString();
  }
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("montre")));
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("empty")));
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("z.jpg")});
  Disque.RetireDossier(QStringLiteral("/d/intrus"));
  EXPECT_THROW(Galerie.OuvreGalerie(), Echec);
}

TEST_F(ReglesListe, RepointingListsLoadsAndCountsAndAPhotoThatCannotBeShownIsAFailure) {
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("a.jpg")}, QStringLiteral("/q"));
  Galerie.OuvreGalerie();
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Galerie.RepointeSur(QStringLiteral("/q"), {});
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 1 Picture(s)"));
  EXPECT_FALSE(Vue.Photo.isNull());
  Lecteur.Etats[QStringLiteral("/q\\a.jpg")] = EtatPhoto::kTropGrande;
  EXPECT_THROW(Galerie.RepointeSur(QStringLiteral("/q"), {}), Echec);
  EXPECT_TRUE(Vue.Avis.contains(QStringLiteral("too large")));
  EXPECT_THROW(Galerie.RepointeSur(QStringLiteral("/nowhere"), {}), Echec);
}

TEST_F(ReglesListe, PhotosAreReadInTheFolderOfTheSettingsWhateverTheListShows) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Choisit(1);
  EXPECT_EQ(Lecteur.Lues.last(), QStringLiteral("/q\\b.jpg"));
}

TEST_F(ReglesListe, NewPhotoIsListedAfterARefreshAndTheSelectionStaysWithItsPhoto) {
  AjoutePhotos({QStringLiteral("b.jpg"), QStringLiteral("c.jpg")});
  Galerie.OuvreGalerie();
  Choisit(1);
  AjoutePhotos({QStringLiteral("a.jpg")});
  EXPECT_EQ(Galerie.Entrees().size(), 2) << "the list is not watched";
  Galerie.Rafraichit();
  EXPECT_EQ(Galerie.Entrees().size(), 3);
  EXPECT_EQ(Vue.Index, 2);
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 3 Picture(s)"));
}

TEST_F(ReglesListe, EveryReasonIsSaidInBothLanguages) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b%2.jpg")});
  Galerie.OuvreGalerie();
  QSet<QString> dits;
  for (const EtatPhoto etat : {EtatPhoto::kAbsente, EtatPhoto::kVide, EtatPhoto::kIllisible, EtatPhoto::kTropGrande}) {
    Lecteur.Etats[QStringLiteral("/p\\b%2.jpg")] = etat;
    for (const qint32 langue : {0, 1}) {
      Reglages.LangueCourante = langue;
      Choisit(1);
      EXPECT_TRUE(Vue.Avis.endsWith(QStringLiteral("b%2.jpg"))) << Vue.Avis.toStdString();
      dits.insert(Vue.Avis);
    }
  }
  EXPECT_EQ(dits.size(), 8);
}

TEST_F(ReglesListe, PhotoWhoseFileEndsEarlyIsShownAndSaidToBeDamaged) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Lecteur.Defauts[QStringLiteral("/p\\a.jpg")] = Dommage::kCoupee;
  Galerie.OuvreGalerie();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p")) << "what is there can be shown";
  EXPECT_FALSE(Vue.Photo.isNull());
  EXPECT_TRUE(Vue.Mention.startsWith(QStringLiteral("Damaged"))) << Vue.Mention.toStdString();
  Reglages.LangueCourante = 0;
  Galerie.RedisAvis();
  EXPECT_TRUE(Vue.Mention.contains(QStringLiteral("endommagée"))) << Vue.Mention.toStdString();
  Choisit(1);
  Galerie.RedisAvis();
  EXPECT_EQ(Vue.Mention, QString());
}

TEST_F(ReglesListe, PhotoWithWrongBytesInsideIsShownAndSaidToBeDamagedInBothLanguages) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Lecteur.Defauts[QStringLiteral("/p\\b.jpg")] = Dommage::kFausse;
  Choisit(1);
  EXPECT_FALSE(Vue.Photo.isNull());
  EXPECT_EQ(Vue.Mention, QStringLiteral("Damaged picture: a part of it is wrong."));
  Reglages.LangueCourante = 0;
  Galerie.RedisAvis();
  EXPECT_EQ(Vue.Mention, QString::fromUtf8("Photo endommagée : une partie de l'image est fausse."));
}

// A name with more behind its ending is a photo that was renamed or half fetched.
TEST_F(ReglesListe, ListsWhatHasThePhotosEndingInItsNameAndNothingElse) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg.old"), QStringLiteral("c.JPG"), QStringLiteral("d.jpe"),
                QStringLiteral("notes.txt")});
  Galerie.OuvreGalerie();
  EXPECT_EQ(Vue.Liste, QStringList({QStringLiteral("a.jpg"), QStringLiteral("b.jpg.old"), QStringLiteral("c.JPG")}));
}

TEST_F(ReglesListe, DragShowsAnEntryOnceAndRemembersNoClick) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Lecteur.Lues.clear();
  Galerie.GlisseGauche();
  EXPECT_TRUE(Lecteur.Lues.isEmpty()) << "the first entry counts as shown when a run begins";
  Galerie.ChoisitIndex(1);
  Galerie.GlisseGauche();
  Galerie.GlisseGauche();
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\b.jpg")});
  EXPECT_EQ(Galerie.DernierIndexAffiche(), 1);
  Choisit(0);
  EXPECT_EQ(Galerie.DernierIndexAffiche(), 1);
  Lecteur.Lues.clear();
  Galerie.GlisseGauche();
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\a.jpg")});
  Galerie.ChoisitIndex(-1);
  Galerie.GlisseGauche();
  EXPECT_EQ(Lecteur.Lues.size(), 1) << "and without an entry nothing";
}

TEST_F(ReglesListe, RightButtonShowsTheSelectedPhotoAndHasItsMenuOnlyThen) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Lecteur.Lues.clear();
  Galerie.ChoisitIndex(1);
  EXPECT_TRUE(Galerie.AppuieBoutonDroit());
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\b.jpg")});
  Galerie.ChoisitIndex(-1);
  EXPECT_FALSE(Galerie.AppuieBoutonDroit());
  Galerie.Clique();
  EXPECT_EQ(Lecteur.Lues.size(), 1);
}

TEST_F(ReglesListe, FolderIsOpenedWithItsSeparator) {
  Galerie.OuvreRepertoire();
  EXPECT_EQ(Bureau.Ouverts, QStringList{QStringLiteral("/p\\")});
}

TEST_F(ReglesListe, LimitTakesTheDigitsOfItsFieldAndMarksTheSettings) {
  for (const auto& [texte, attendu, valeur] :
       {std::tuple{"12a3", "123", 123}, std::tuple{"", "0", 0}, std::tuple{"x", "0", 0}, std::tuple{"0", "0", 0},
        std::tuple{"99999999999", "2147483647", 2147483647}}) {
    Reglages.ParametresModifies = false;
    EXPECT_EQ(Galerie.ChangeLimite(QString::fromLatin1(texte)), QString::fromLatin1(attendu));
    EXPECT_EQ(Reglages.NombrePhotoMax, valeur);
    EXPECT_TRUE(Reglages.ParametresModifies);
  }
}

TEST_F(ReglesListe, ClosingSavesAlwaysAndTheWindowGoesForGoodOnlyWithTheProgram) {
  EXPECT_FALSE(Galerie.DemandeFermeture());
  EXPECT_TRUE(Sauvegarde.ModifiesALaSauvegarde) << "whether or not anything was changed";
  Etat.EnFermeture = true;
  EXPECT_TRUE(Galerie.DemandeFermeture());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 2);
}

TEST_F(ReglesListe, SaveThatFailsAtTheClosingIsAFailureOfTheClosing) {
  struct Panne : SauvegardeParametres {
    void SauveParametres() override { throw Echec(kAppelIncorrect, QStringLiteral("disk full")); }
  } panne;
  GaleriePhotos galerie(PortsGalerie{Reglages, Dossiers, Etat, panne, Textes, Noms, Lecteur, Effaceur, Boites, Bureau});
  EXPECT_THROW(galerie.DemandeFermeture(), Echec);
  EXPECT_TRUE(Reglages.ParametresModifies);
}

TEST_F(ReglesListe, OneThatWasNotTiedToItsWindowSaysSo) {
  GaleriePhotos galerie(
      PortsGalerie{Reglages, Dossiers, Etat, Sauvegarde, Textes, Noms, Lecteur, Effaceur, Boites, Bureau});
  EXPECT_THROW(galerie.ExigeLien(), Echec);
}

}  // namespace
}  // namespace vaktor
