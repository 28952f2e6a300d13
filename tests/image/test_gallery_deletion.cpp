// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's rules of deletion: of one, of all, and what is said of photos that resist.
#include "image/gallery_rules_fixture.h"

namespace vaktor {
namespace {

using ReglesSuppression = faux::ReglesGalerie;

TEST_F(ReglesSuppression, NoDoesNothingAtAll) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  for (const ReponseBoite reponse : {ReponseBoite::kNon, ReponseBoite::kAnnuler}) {
    Boites.Reponse = reponse;
    Galerie.SupprimePhoto();
    Galerie.SupprimeTout();
  }
  EXPECT_TRUE(Disque.Supprimes.isEmpty());
  EXPECT_TRUE(Vue.Appels.isEmpty());
  EXPECT_EQ(Effaceur.Tranches, 0);
}

TEST_F(ReglesSuppression, DeletionOfOneAsksWithoutATitleAndReadsTheListBehindTheEvents) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Choisit(0);
  Effaceur.Evenements = [this] { AjoutePhotos({QStringLiteral("c.jpg")}); };
  Galerie.SupprimePhoto();
  EXPECT_EQ(Boites.Textes.first(), QStringLiteral("Are you sure, you want to erase the picture:\r\n\"a.jpg\" ?"));
  EXPECT_EQ(Boites.Titres.first(), QString());
  EXPECT_EQ(Boites.Boutons, BoutonsBoite::kOuiNon);
  EXPECT_EQ(Vue.Liste, QStringList({QStringLiteral("b.jpg"), QStringLiteral("c.jpg")}));
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 2 Picture(s)"));
  EXPECT_EQ(Vue.Index, -1);
  EXPECT_FALSE(Vue.Photo.isNull()) << "the picture stays though its file is gone";
}

TEST_F(ReglesSuppression, NamedPhotosOfAFolderGoAfterOneQuestionWhateverTheListShows) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")});
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("d.jpg")}, QStringLiteral("/q"));
  Galerie.OuvreGalerie();
  int finies = 0;
  Galerie.SupprimeDes(QStringLiteral("/q"), {QStringLiteral("a.jpg"), QStringLiteral("d.jpg")},
                      QStringLiteral("these two?"), [&] { ++finies; });
  EXPECT_EQ(Boites.Textes, QStringList{QStringLiteral("these two?")});
  EXPECT_EQ(Boites.Boutons, BoutonsBoite::kOuiNon);
  EXPECT_FALSE(Disque.Existe(QStringLiteral("/q/a.jpg")));
  EXPECT_FALSE(Disque.Existe(QStringLiteral("/q/d.jpg")));
  EXPECT_TRUE(Disque.Existe(QStringLiteral("/p/a.jpg"))) << "of that folder and of no other";
  EXPECT_EQ(finies, 1);
  Galerie.SupprimeDes(QStringLiteral("/p"), {QStringLiteral("b.jpg")}, QStringLiteral("b?"), [&] { ++finies; });
  EXPECT_EQ(Vue.Liste, QStringList({QStringLiteral("a.jpg"), QStringLiteral("c.jpg")}))
      << "the list of it is read anew";
  EXPECT_EQ(finies, 2);
}

TEST_F(ReglesSuppression, NoToNamedPhotosLeavesThemAndSaysThatItIsOver) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Boites.Reponse = ReponseBoite::kNon;
  int finies = 0;
  Galerie.SupprimeDes(QStringLiteral("/p"), {QStringLiteral("a.jpg")}, QStringLiteral("a?"), [&] { ++finies; });
  EXPECT_TRUE(Disque.Supprimes.isEmpty());
  EXPECT_EQ(finies, 1);
}

TEST_F(ReglesSuppression, ASecondListOfNamesUnderTheQuestionIsOverAtOnce) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Boites.Reponse = ReponseBoite::kOui;
  QStringList finies;
  Boites.Pendant = [&] {
    Galerie.SupprimeDes(QStringLiteral("/p"), {QStringLiteral("b.jpg")}, QStringLiteral("b?"),
                        [&] { finies += QStringLiteral("b"); });
  };
  Galerie.SupprimeDes(QStringLiteral("/p"), {QStringLiteral("a.jpg")}, QStringLiteral("a?"),
                      [&] { finies += QStringLiteral("a"); });
  EXPECT_EQ(finies, QStringList({QStringLiteral("b"), QStringLiteral("a")}));
  EXPECT_EQ(Boites.Textes, QStringList{QStringLiteral("a?")});
  EXPECT_TRUE(Disque.Existe(QStringLiteral("/p/b.jpg")));
}

TEST_F(ReglesSuppression, DeletionOfAllAsksAndFillsTheBarStepByStep) {
  AjoutePhotos(NomsSuivis(3));
  Disque.AjouteFichier(QStringLiteral("/p/notes.txt"));
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  Effaceur.MsParPhoto = kMillisecondesTranche;  // a slice each
  Galerie.SupprimeTout();
  EXPECT_EQ(Boites.Textes,
            QStringList{QStringLiteral("All pictures will be erased from this repertory. Are you sure?")});
  EXPECT_EQ(Boites.Titres, QStringList{QStringLiteral("Are you sure?")});
  EXPECT_EQ(Vue.Appels, QStringList({QStringLiteral("progression 2"), QStringLiteral("pas 0"), QStringLiteral("pas 1"),
                                     QStringLiteral("pas 2"), QStringLiteral("liste 0"), QStringLiteral("titre"),
                                     QStringLiteral("fin"), QStringLiteral("vide")}));
  EXPECT_TRUE(Disque.Existe(QStringLiteral("/p/notes.txt"))) << "what the list does not show stays";
  EXPECT_EQ(Vue.Avis, QStringLiteral("No picture in this folder."));
}

TEST_F(ReglesSuppression, DeletionOfAllInAnEmptyFolderOpensAndClosesTheProgressWindow) {
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  Galerie.SupprimeTout();
  EXPECT_EQ(Vue.Appels.first(), QStringLiteral("progression -1"));
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("fin")));
  EXPECT_TRUE(Disque.Supprimes.isEmpty());
  EXPECT_EQ(Boites.Textes.size(), 1);
}

TEST_F(ReglesSuppression, PhotoThatComesDuringTheDeletionStays) {
  AjoutePhotos({QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Effaceur.Evenements = [this] {
    AjoutePhotos({QStringLiteral("a.jpg")});
    Galerie.Rafraichit();    // waits until the deletion is over
    Galerie.SupprimeTout();  // and a second deletion is none
    Galerie.ChoisitIndex(0);
    Galerie.SupprimePhoto();
  };
  Galerie.SupprimeTout();
  EXPECT_EQ(Disque.Supprimes, QStringList{QStringLiteral("/p\\b.jpg")});
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("a.jpg")});
  EXPECT_EQ(Boites.Textes.size(), 1);
}

TEST_F(ReglesSuppression, FolderChosenDuringTheDeletionIsNotTouched) {
  AjoutePhotos(NomsSuivis(2));
  Galerie.OuvreGalerie();
  Effaceur.Evenements = [this] { Reglages.RepertoirePhoto = QStringLiteral("/q"); };
  Galerie.SupprimeTout();
  EXPECT_EQ(Disque.Supprimes, QStringList({QStringLiteral("/p\\00000.jpg"), QStringLiteral("/p\\00001.jpg")}));
}

TEST_F(ReglesSuppression, EventsRunEveryTwentyMillisecondsHoweverManyPhotosThatIs) {
  AjoutePhotos(NomsSuivis(250));
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  EXPECT_EQ(Effaceur.Tranches, 1) << "a fast disk";
  AjoutePhotos(NomsSuivis(250));
  Galerie.Rafraichit();
  Effaceur.MsParPhoto = 7;
  Galerie.SupprimeTout();
  EXPECT_EQ(Effaceur.Tranches, 1 + 84) << "three photos each, 21 ms";
  AjoutePhotos(NomsSuivis(3));
  Galerie.Rafraichit();
  Effaceur.MsParPhoto = 1000;
  Galerie.SupprimeTout();
  EXPECT_EQ(Effaceur.Tranches, 1 + 84 + 3) << "a slow one: one each";
  EXPECT_EQ(Disque.Supprimes.size(), 250 + 250 + 3);
}

TEST_F(ReglesSuppression, EndOfTheProgramEndsALongDeletionWithoutAMessage) {
  AjoutePhotos(NomsSuivis(250));
  Galerie.OuvreGalerie();
  Effaceur.MsParPhoto = 1;
  Effaceur.Retient = true;
  Galerie.SupprimeTout();
  Effaceur.Livre();
  Etat.EnFermeture = true;
  Effaceur.Livre();
  EXPECT_EQ(Disque.Supprimes.size(), 40);
  EXPECT_FALSE(Effaceur.Attend());
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("fin"))) << "and the progress window goes";
  EXPECT_EQ(Noms.Lus.size(), 1) << "nothing is read any more";
  EXPECT_EQ(Boites.Textes.size(), 1) << "the question, and nothing else";
}

TEST_F(ReglesSuppression, PhotoThatCannotBeDeletedIsNamedInOneMessageAndTheListIsTrue) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")});
  Disque.Tenaces = {QStringLiteral("b.jpg")};
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  ASSERT_EQ(Boites.Textes.size(), 2);
  EXPECT_EQ(Boites.Textes.last(), QStringLiteral("This picture could not be erased:\r\n\"b.jpg\""));
  EXPECT_EQ(Boites.Boutons, BoutonsBoite::kOk);
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("b.jpg")});
  Choisit(0);
  Galerie.SupprimePhoto();
  EXPECT_EQ(Boites.Textes.size(), 4);
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("b.jpg")));
  EXPECT_EQ(Vue.Index, 0) << "it is still there, and selected";
}

TEST_F(ReglesSuppression, ManyThatCannotBeDeletedAreNamedAndCountedInOneMessage) {
  AjoutePhotos(NomsSuivis(500));
  Disque.RefuseSuppression = true;
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  ASSERT_EQ(Boites.Textes.size(), 2);
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("00009.jpg")));
  EXPECT_FALSE(Boites.Textes.last().contains(QStringLiteral("00010.jpg")));
  EXPECT_TRUE(Boites.Textes.last().endsWith(QStringLiteral("and 490 more.")));
}

// A file may have "\" in its name here; in a stored path that would part folders and mean another file.
TEST_F(ReglesSuppression, NameWithABackslashMeansNoOtherFile) {
  Noms.Noms = QStringList{QStringLiteral("s\\x.jpg")};
  Disque.AjouteFichier(QStringLiteral("/p/s/x.jpg"));
  EXPECT_THROW(Galerie.RepointeSur(QStringLiteral("/p"), {}), Echec);
  EXPECT_FALSE(Vue.Avis.isEmpty());
  Galerie.SupprimePhoto();
  Galerie.SupprimeTout();
  EXPECT_TRUE(Lecteur.Lues.isEmpty());
  EXPECT_TRUE(Disque.Supprimes.isEmpty());
  EXPECT_TRUE(Disque.Existe(QStringLiteral("/p/s/x.jpg")));
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("s\\x.jpg")));
}

TEST_F(ReglesSuppression, DeletionAskedForWhileTheListIsReadAsksAboutTheTrueList) {
  AjoutePhotos({QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Noms.Retient = true;
  Galerie.Rafraichit();
  Galerie.SupprimeTout();
  Galerie.SupprimeTout();
  Galerie.SupprimePhoto();
  EXPECT_TRUE(Boites.Textes.isEmpty());
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Livre();
  EXPECT_EQ(Disque.Supprimes, QStringList({QStringLiteral("/p\\a.jpg"), QStringLiteral("/p\\b.jpg")}));
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("pas 1")));
  EXPECT_FALSE(Vue.Appels.contains(QStringLiteral("fin"))) << "the progress window waits for the true list";
  Galerie.SupprimeTout();
  Noms.Livre();
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("fin")));
  EXPECT_EQ(Boites.Textes.size(), 1) << "of the one that waited nothing is left, and a second deletion is none";
}

TEST_F(ReglesSuppression, SecondClickOnOneIsTheSameQuestion) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Boites.Reponse = ReponseBoite::kNon;
  Noms.Retient = true;
  Galerie.Rafraichit();
  Galerie.SupprimePhoto();
  Galerie.SupprimePhoto();
  Noms.Livre();
  EXPECT_EQ(Boites.Textes.size(), 1);
}

TEST_F(ReglesSuppression, PhotoThatIsReadWhileAllAreDeletedIsNotShownAnyMore) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Lecteur.Retient = true;
  Choisit(1);
  Galerie.SupprimeTout();
  EXPECT_FALSE(Lecteur.Attend());
  Lecteur.Livre();
  EXPECT_TRUE(Vue.Photo.isNull());
  EXPECT_EQ(Vue.Avis, QStringLiteral("No picture in this folder."));
}

TEST_F(ReglesSuppression, DeletionOfOneMovesNoBar) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  Galerie.SupprimePhoto();
  EXPECT_EQ(Disque.Supprimes.size(), 1);
  EXPECT_TRUE(Vue.Appels.filter(QStringLiteral("pas ")).isEmpty());
  EXPECT_TRUE(Vue.Appels.filter(QStringLiteral("progression")).isEmpty());
}

TEST_F(ReglesSuppression, PhotoThatResistedTwiceBeforeAListCameIsNamedOnce) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Disque.Tenaces = {QStringLiteral("a.jpg")};
  Galerie.OuvreGalerie();
  Galerie.ChoisitIndex(0);
  Noms.Retient = true;
  Galerie.SupprimePhoto();
  Noms.Tarde();
  Noms.Etat = EtatNoms::kSansMoyens;
  EXPECT_THROW(Noms.Livre(), Echec) << "and the list is as it was";
  Galerie.SupprimePhoto();
  Noms.Etat = EtatNoms::kLus;
  EXPECT_EQ(Boites.Textes.size(), 2) << "the two questions";
  Noms.Livre();
  ASSERT_EQ(Boites.Textes.size(), 3);
  EXPECT_EQ(Boites.Textes.last(), QStringLiteral("This picture could not be erased:\r\n\"a.jpg\""));
}

// What could not be read says of no photo that it stayed, nor that it went.
TEST_F(ReglesSuppression, ListThatCannotBeReadNamesNoPhotosAndTheNextOneDoes) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Disque.Tenaces = {QStringLiteral("b.jpg")};
  Galerie.OuvreGalerie();
  Noms.Etat = EtatNoms::kSansMoyens;
  EXPECT_THROW(Galerie.SupprimeTout(), Echec);
  EXPECT_EQ(Boites.Textes.size(), 1) << "the question";
  Noms.Etat = EtatNoms::kLus;
  Galerie.Rafraichit();
  ASSERT_EQ(Boites.Textes.size(), 2);
  EXPECT_EQ(Boites.Textes.last(), QStringLiteral("This picture could not be erased:\r\n\"b.jpg\""));
  Galerie.Rafraichit();
  EXPECT_EQ(Boites.Textes.size(), 2) << "once";
}

TEST_F(ReglesSuppression, DeletionWhoseListDoesNotComeNamesNoPhotos) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Noms.Retient = true;
  Galerie.SupprimeTout();
  Noms.Tarde();
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("fin")));
  EXPECT_EQ(Boites.Textes.size(), 1) << "the old list says nothing of what stayed";
  Noms.Livre();
  EXPECT_TRUE(Vue.Liste.isEmpty());
  EXPECT_EQ(Boites.Textes.size(), 1) << "all went";
}

TEST_F(ReglesSuppression, PhotoThatStayedIsNamedAlsoWhenTheListComesLate) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Noms.Retient = true;
  Galerie.SupprimeTout();
  AjoutePhotos({QStringLiteral("b.jpg")});
  Noms.Tarde();
  EXPECT_EQ(Boites.Textes.size(), 1) << "the question";
  Noms.Livre();
  ASSERT_EQ(Boites.Textes.size(), 2);
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("\"b.jpg\""))) << Boites.Textes.last().toStdString();
  Galerie.Rafraichit();
  Noms.Livre();
  EXPECT_EQ(Boites.Textes.size(), 2) << "once";
}

TEST_F(ReglesSuppression, PhotoThatStayedIsNamedByTheNextListWhereItsOwnIsGivenUpForWhatWaits) {
  for (const bool attendait : {true, false}) {
    Noms.Retient = false;
    AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    Galerie.OuvreGalerie();
    Boites.Textes.clear();
    Noms.Retient = true;
    Galerie.SupprimeTout();
    AjoutePhotos({QStringLiteral("b.jpg")});
    if (attendait) Galerie.Rafraichit();
    Noms.Tarde();
    if (!attendait) Galerie.Rafraichit();
    EXPECT_EQ(Boites.Textes.size(), 1) << "the question";
    Noms.Livre();
    ASSERT_EQ(Boites.Textes.size(), 2);
    EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("\"b.jpg\""))) << Boites.Textes.last().toStdString();
    Galerie.Rafraichit();
    Noms.Livre();
    EXPECT_EQ(Boites.Textes.size(), 2) << "once";
  }
}

TEST_F(ReglesSuppression, PhotoThatStayedIsNamedAlsoWhereAnOpeningReadsItsListTwice) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Disque.Tenaces = {QStringLiteral("b.jpg")};
  Galerie.OuvreGalerie();
  Noms.Retient = true;
  Galerie.SupprimeTout();
  Noms.Tarde();
  Lecteur.Etats[QStringLiteral("/p\\b.jpg")] = EtatPhoto::kAbsente;
  Galerie.OuvreGalerie();
  Noms.Livre();
  Lecteur.Etats.clear();
  EXPECT_EQ(Boites.Textes.size(), 1) << "the question";
  Noms.Livre();
  ASSERT_EQ(Boites.Textes.size(), 2);
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("\"b.jpg\"")));
}

TEST_F(ReglesSuppression, PhotoThatStayedIsNamedByNoListOfAnotherFolder) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("a.jpg")}, QStringLiteral("/q"));
  Galerie.OuvreGalerie();
  Noms.Retient = true;
  Galerie.SupprimeTout();
  Noms.Tarde();
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Galerie.RepointeSur(QStringLiteral("/q"), {});
  Noms.Livre();
  EXPECT_EQ(Vue.Liste.size(), 1);
  EXPECT_EQ(Boites.Textes.size(), 1) << "the question";
}

}  // namespace
}  // namespace vaktor
