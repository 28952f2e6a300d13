// The gallery's rules: opening with its fallback, the list, deletion, what is said of photos that resist.
#include <gtest/gtest.h>

#include "image/gallery_bench.h"

namespace vaktor {
namespace {

/// Stands in for the window and keeps what it was told.
class AffichageNote : public AffichageGalerie {
 public:
  void MontreListe(const QStringList& entrees, int index) override {
    Liste = entrees;
    Index = index;
    Appels += QStringLiteral("liste %1").arg(entrees.size());
  }
  void MontreIndex(int index) override { Index = index; }
  void MontrePhoto(const QImage& photo) override {
    Photo = photo;
    Mention.clear();
    Avis.clear();
    Appels += photo.isNull() ? QStringLiteral("vide") : QStringLiteral("photo");
  }
  void MontreMention(const QString& mention) override { Mention = mention; }
  void MontreAvis(const QString& avis) override {
    Photo = {};
    Avis = avis;
  }
  void MontreTitre(const QString& titre) override {
    Titre = titre;
    Appels += QStringLiteral("titre");
  }
  void AjusteAutourPhoto() override { Appels += QStringLiteral("ajuste"); }
  void MontreFenetre() override { Appels += QStringLiteral("montre"); }
  void OuvreProgression(int dernier) override { Appels += QStringLiteral("progression %1").arg(dernier); }
  void AvanceProgression(int pas) override { Appels += QStringLiteral("pas %1").arg(pas); }
  void FermeProgression() override { Appels += QStringLiteral("fin"); }

  QStringList Liste, Appels;
  int Index = -1;
  QImage Photo;
  QString Avis, Mention, Titre;
};

class Regles : public testing::Test, protected faux::BancGalerie {
 protected:
  Regles() { Galerie.Relie(Vue); }
  static QStringList NomsSuivis(int nombre) {
    QStringList noms;
    for (int i = 0; i < nombre; ++i) noms += QStringLiteral("%1.jpg").arg(i, 5, 10, QLatin1Char('0'));
    return noms;
  }
  void Choisit(int index) {
    Galerie.ChoisitIndex(index);
    Galerie.Clique();
  }
  AffichageNote Vue;
};

TEST_F(Regles, OpeningListsLoadsFitsShowsAndCountsInThisOrder) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  Galerie.OuvreGalerie();
  EXPECT_EQ(Vue.Appels, QStringList({QStringLiteral("liste 2"), QStringLiteral("photo"), QStringLiteral("ajuste"),
                                     QStringLiteral("montre"), QStringLiteral("titre")}));
}

TEST_F(Regles, ChangeOfFolderActsAsAClickOnTheFirstEntryAndTheSameFolderDoesNot) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.RepointeSur(QStringLiteral("/p"), {});
  EXPECT_EQ(Lecteur.Lues, QStringList({QStringLiteral("/p\\a.jpg"), QStringLiteral("/p\\a.jpg")})) << "click and load";
  EXPECT_EQ(Vue.Index, 0);
  Choisit(1);
  Lecteur.Lues.clear();
  Galerie.RepointeSur(QStringLiteral("/p"), {});
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\a.jpg")}) << "loaded and not clicked";
  EXPECT_EQ(Vue.Index, 1);
}

TEST_F(Regles, EmptyFolderCountsZeroAndKeepsTheLastPicture) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Disque.AjouteDossier(QStringLiteral("/q"));
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Galerie.OuvreGalerie();
  EXPECT_FALSE(Vue.Photo.isNull());
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 0 Picture(s)"));
  EXPECT_EQ(Vue.Index, -1);
}

TEST_F(Regles, FolderWithoutPhotosSaysSoWhereNoPictureWasShownYet) {
  Galerie.OuvreGalerie();
  EXPECT_EQ(Vue.Avis, QStringLiteral("No picture in this folder."));
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.Rafraichit();
  EXPECT_EQ(Vue.Avis, QString()) << "there is one now";
  Reglages.LangueCourante = 0;
  Galerie.RedisAvis();
  EXPECT_EQ(Vue.Avis, QString());
}

TEST_F(Regles, FolderThatIsGoneFallsBackToTheProgramsInMemoryAndWithoutAWord) {
  AjoutePhotos({QStringLiteral("z.jpg")}, QStringLiteral("/d/intrus"));
  Reglages.RepertoirePhoto = QStringLiteral("/usb");
  Galerie.OuvreGalerie();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/d\\intrus"));
  EXPECT_EQ(Lecteur.Lues.last(), QStringLiteral("/d\\intrus\\z.jpg"));
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_FALSE(Reglages.ParametresModifies);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(Regles, FolderThatMayNotBeReadCountsAsGoneAndNotAsEmpty) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  AjoutePhotos({QStringLiteral("z.jpg")}, QStringLiteral("/d/intrus"));
  Disque.Illisibles += QStringLiteral("/p");
  EXPECT_THROW(Galerie.RepointeSur(QStringLiteral("/p"), {}), Echec);
  Galerie.OuvreGalerie();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/d\\intrus"));
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("z.jpg")});
}

// At the opening a first photo that cannot be shown counts like a folder that is gone; in the list it does not.
TEST_F(Regles, FirstPhotoThatCannotBeShownFallsBackToo) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kIllisible;
  Galerie.OuvreGalerie();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/d\\intrus"));
  EXPECT_TRUE(Vue.Liste.isEmpty());
}

TEST_F(Regles, SecondFailureIsNotCaughtAndTheWindowIsUp) {
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

TEST_F(Regles, RepointingListsLoadsAndCountsAndAPhotoThatCannotBeShownIsAFailure) {
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

TEST_F(Regles, PhotosAreReadInTheFolderOfTheSettingsWhateverTheListShows) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  Choisit(1);
  EXPECT_EQ(Lecteur.Lues.last(), QStringLiteral("/q\\b.jpg"));
}

TEST_F(Regles, NewPhotoIsListedAfterARefreshAndTheSelectionStaysWithItsPhoto) {
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

TEST_F(Regles, EveryReasonIsSaidInBothLanguages) {
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

TEST_F(Regles, PhotoWhoseFileEndsEarlyIsShownAndSaidToBeDamaged) {
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

TEST_F(Regles, PhotoWithWrongBytesInsideIsShownAndSaidToBeDamagedInBothLanguages) {
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

// While the folder is read the window and detection go on. What is asked for meanwhile waits its turn.

TEST_F(Regles, NothingIsShownBeforeTheNamesAreThere) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  EXPECT_TRUE(Vue.Appels.isEmpty());
  EXPECT_TRUE(Lecteur.Lues.isEmpty());
  Noms.Livre();
  EXPECT_EQ(Vue.Appels.mid(Vue.Appels.size() - 3),
            QStringList({QStringLiteral("ajuste"), QStringLiteral("montre"), QStringLiteral("titre")}));
}

TEST_F(Regles, SecondClickWhileItOpensIsTheSameOpening) {
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

TEST_F(Regles, FolderThatVanishesWhileItIsReadFallsBackAndTheFallbackIsReadToo) {
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

TEST_F(Regles, PhotoThatVanishesBetweenListAndShowingCountsAsOneThatCannotBeShown) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Lecteur.Etats[QStringLiteral("/p\\a.jpg")] = EtatPhoto::kAbsente;
  Noms.Livre();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/d\\intrus"));
}

TEST_F(Regles, FolderChosenWhileAnotherIsReadIsOpenedAndNotGivenUp) {
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

TEST_F(Regles, EndOfTheProgramWhileItOpensShowsNothingMore) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  Etat.EnFermeture = true;
  Noms.Livre();
  EXPECT_TRUE(Vue.Appels.isEmpty());
  EXPECT_TRUE(Boites.Textes.isEmpty()) << "and asks nothing";
}

TEST_F(Regles, WindowClosedWhileItOpensAgainStaysClosed) {
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

TEST_F(Regles, DisplayThatHasGoneIsToldNothing) {
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  Galerie.Delie();
  EXPECT_FALSE(Noms.Attend());
  EXPECT_TRUE(Boites.Textes.isEmpty());
}

TEST_F(Regles, LanguageChangedWhileItOpensIsTheOneOfTheCaption) {
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Textes.Remplit(0);
  Reglages.LangueCourante = 0;
  Noms.Livre();
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 0 Photo(s)"));
  EXPECT_EQ(Vue.Avis, QStringLiteral("Aucune photo dans ce répertoire."));
}

TEST_F(Regles, RefreshesAskedForWhileOneRunsAreOneMore) {
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

TEST_F(Regles, DeletionAskedForWhileTheListIsReadAsksAboutTheTrueList) {
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

TEST_F(Regles, RepointingTellsWhenItIsDoneAlsoWhenItFails) {
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

TEST_F(Regles, RefreshOfAFolderThatIsGoneSaysSoAndShowsNoFalseList) {
  AjoutePhotos({QStringLiteral("a.jpg")});
  Galerie.OuvreGalerie();
  Disque.RetireDossier(QStringLiteral("/p"));
  EXPECT_THROW(Galerie.Rafraichit(), Echec);
  EXPECT_TRUE(Vue.Liste.isEmpty());
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 0 Picture(s)"));
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p")) << "only the opening goes back to the program's folder";
}

TEST_F(Regles, DiskThatDoesNotAnswerIsSaidInTheWindowAndKeepsTheUsersFolder) {
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

TEST_F(Regles, WhatIsAskedForDoesNotWaitForADiskThatDoesNotAnswer) {
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

TEST_F(Regles, RefreshWhileTheDiskDoesNotAnswerAsksItAgain) {
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

TEST_F(Regles, PhotosOfTheFolderBeforeAreNoneOfADiskThatDoesNotAnswer) {
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

TEST_F(Regles, DeletionWhoseListDoesNotComeNamesNoPhotos) {
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

TEST_F(Regles, PhotoThatStayedIsNamedAlsoWhenTheListComesLate) {
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

TEST_F(Regles, NoDoesNothingAtAll) {
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
  EXPECT_EQ(Pompe.Appels, 0);
}

TEST_F(Regles, DeletionOfOneAsksWithoutATitleAndReadsTheListAfterThePump) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Choisit(0);
  Pompe.EnAttente = [this] { AjoutePhotos({QStringLiteral("c.jpg")}); };
  Galerie.SupprimePhoto();
  EXPECT_EQ(Boites.Textes.first(), QStringLiteral("Are you sure, you want to erase the picture:\r\n\"a.jpg\" ?"));
  EXPECT_EQ(Boites.Titres.first(), QString());
  EXPECT_EQ(Boites.Boutons, BoutonsBoite::kOuiNon);
  EXPECT_EQ(Vue.Liste, QStringList({QStringLiteral("b.jpg"), QStringLiteral("c.jpg")}));
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 2 Picture(s)"));
  EXPECT_EQ(Vue.Index, -1);
  EXPECT_FALSE(Vue.Photo.isNull()) << "the picture stays though its file is gone";
}

TEST_F(Regles, DeletionOfAllAsksAndFillsTheBarStepByStep) {
  AjoutePhotos(NomsSuivis(3));
  Disque.AjouteFichier(QStringLiteral("/p/notes.txt"));
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
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

TEST_F(Regles, DeletionOfAllInAnEmptyFolderOpensAndClosesTheProgressWindow) {
  Galerie.OuvreGalerie();
  Vue.Appels.clear();
  Galerie.SupprimeTout();
  EXPECT_EQ(Vue.Appels.first(), QStringLiteral("progression -1"));
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("fin")));
  EXPECT_TRUE(Disque.Supprimes.isEmpty());
  EXPECT_EQ(Boites.Textes.size(), 1);
}

TEST_F(Regles, PhotoThatComesDuringTheDeletionStays) {
  AjoutePhotos({QStringLiteral("b.jpg")});
  Galerie.OuvreGalerie();
  Pompe.EnAttente = [this] {
    AjoutePhotos({QStringLiteral("a.jpg")});
    Galerie.Rafraichit();    // the list changes under the loop
    Galerie.SupprimeTout();  // and a second deletion is none
    Galerie.ChoisitIndex(0);
    Galerie.SupprimePhoto();
  };
  Galerie.SupprimeTout();
  EXPECT_EQ(Disque.Supprimes, QStringList{QStringLiteral("/p\\b.jpg")});
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("a.jpg")});
  EXPECT_EQ(Boites.Textes.size(), 1);
}

TEST_F(Regles, FolderChosenDuringTheDeletionIsNotTouched) {
  AjoutePhotos(NomsSuivis(2));
  Galerie.OuvreGalerie();
  Pompe.EnAttente = [this] { Reglages.RepertoirePhoto = QStringLiteral("/q"); };
  Galerie.SupprimeTout();
  EXPECT_EQ(Disque.Supprimes, QStringList({QStringLiteral("/p\\00000.jpg"), QStringLiteral("/p\\00001.jpg")}));
}

TEST_F(Regles, EventsRunBetweenTheHundredsOfALongDeletion) {
  AjoutePhotos(NomsSuivis(99));
  Galerie.OuvreGalerie();
  Galerie.SupprimeTout();
  EXPECT_EQ(Pompe.Appels, 1) << "once, before the first photo goes";
  AjoutePhotos(NomsSuivis(250));
  Galerie.Rafraichit();
  Galerie.SupprimeTout();
  EXPECT_EQ(Pompe.Appels, 1 + 1 + 2);
}

TEST_F(Regles, EndOfTheProgramEndsALongDeletionWithoutAMessage) {
  AjoutePhotos(NomsSuivis(250));
  Galerie.OuvreGalerie();
  Pompe.EnAttente = [this] { Pompe.EnAttente = [this] { Etat.EnFermeture = true; }; };
  Galerie.SupprimeTout();
  EXPECT_EQ(Disque.Supprimes.size(), 100);
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("fin"))) << "and the progress window goes";
  EXPECT_EQ(Noms.Lus.size(), 1) << "nothing is read any more";
  EXPECT_EQ(Boites.Textes.size(), 1) << "the question, and nothing else";
}

TEST_F(Regles, PhotoThatCannotBeDeletedIsNamedInOneMessageAndTheListIsTrue) {
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

TEST_F(Regles, ManyThatCannotBeDeletedAreNamedAndCountedInOneMessage) {
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
TEST_F(Regles, NameWithABackslashMeansNoOtherFile) {
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

TEST_F(Regles, SaveThatFailsAtTheClosingIsAFailureOfTheClosing) {
  struct Panne : SauvegardeParametres {
    void SauveParametres() override { throw Echec(kAppelIncorrect, QStringLiteral("disk full")); }
  } panne;
  GaleriePhotos galerie(
      PortsGalerie{Reglages, Dossiers, Etat, panne, Textes, Disque, Noms, Lecteur, Boites, Pompe, Bureau});
  EXPECT_THROW(galerie.DemandeFermeture(), Echec);
  EXPECT_TRUE(Reglages.ParametresModifies);
}

}  // namespace
}  // namespace vaktor
