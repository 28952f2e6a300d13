// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's rules when disk or machine fail in the middle: what is said, what stays, and that the list can be
// worked with afterwards.
#include <new>

#include "image/gallery_rules_fixture.h"

namespace vaktor {
namespace {

class FautesGalerie : public faux::ReglesGalerie {
 protected:
  void Ouvre() {
    AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")});
    Galerie.OuvreGalerie();
    Vue.Appels.clear();
  }
  /// Every way of use, after whatever has happened before.
  void ExigeUtilisable() {
    Effaceur.Retient = Noms.Retient = Lecteur.Retient = false;
    Noms.Etat = EtatNoms::kLus;
    AjoutePhotos({QStringLiteral("x.jpg"), QStringLiteral("y.jpg")});
    Galerie.Rafraichit();
    ASSERT_GE(Vue.Liste.size(), 2);
    Choisit(static_cast<int>(Vue.Liste.indexOf(QStringLiteral("x.jpg"))));
    EXPECT_FALSE(Vue.Photo.isNull());
    Galerie.SupprimePhoto();
    EXPECT_FALSE(Disque.Existe(QStringLiteral("/p/x.jpg")));
    Galerie.SupprimeTout();
    EXPECT_TRUE(Vue.Liste.isEmpty());
    Vue.Appels.clear();
    Galerie.OuvreGalerie();
    EXPECT_EQ(Vue.Appels.count(QStringLiteral("montre")), 1);
    EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  }
  template <typename Acte>
  QString Message(Acte acte) {
    try {
      acte();
    } catch (const Echec& echec) {
      return echec.Description();
    }
    return {};
  }
};

TEST_F(FautesGalerie, DiskThatFailsInMidListingIsToldAndWhatCameIsListed) {
  AjoutePhotos({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
  Noms.Etat = EtatNoms::kErreurDisque;
  const QString dit = Message([this] { Galerie.OuvreGalerie(); });
  EXPECT_TRUE(dit.contains(QStringLiteral("not complete"))) << dit.toStdString();
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p")) << "told, and so no silent fallback";
  EXPECT_EQ(Vue.Liste.size(), 2);
  EXPECT_FALSE(Vue.Photo.isNull());
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("montre")));
  EXPECT_TRUE(Message([this] { Galerie.Rafraichit(); }).contains(QStringLiteral("/p")));
  EXPECT_EQ(Vue.Liste.size(), 2);
  bool fini = false;
  EXPECT_FALSE(Message([&] { Galerie.RepointeSur(QStringLiteral("/p"), [&fini] { fini = true; }); }).isEmpty());
  EXPECT_TRUE(fini);
  ExigeUtilisable();
}

TEST_F(FautesGalerie, WantOfThreadOrMemoryIsToldAndChangesNeitherFolderNorList) {
  Ouvre();
  Noms.Etat = EtatNoms::kSansMoyens;
  for (const qint32 langue : {0, 1}) {
    Reglages.LangueCourante = langue;
    const QString dit = Message([this] { Galerie.OuvreGalerie(); });
    EXPECT_TRUE(dit.contains(langue == 0 ? QStringLiteral("mémoire") : QStringLiteral("memory"))) << dit.toStdString();
  }
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("montre")));
  EXPECT_FALSE(Message([this] { Galerie.Rafraichit(); }).isEmpty());
  EXPECT_EQ(Vue.Liste.size(), 3);
  ExigeUtilisable();
}

TEST_F(FautesGalerie, WantOfMemoryForAnotherFolderLeavesItsListEmptyAndNotThatOfTheOneBefore) {
  Ouvre();
  Disque.AjouteDossier(QStringLiteral("/q"));
  AjoutePhotos({QStringLiteral("b.jpg")}, QStringLiteral("/q"));
  Noms.Etat = EtatNoms::kSansMoyens;
  Reglages.RepertoirePhoto = QStringLiteral("/q");
  EXPECT_FALSE(Message([this] { Galerie.RepointeSur(QStringLiteral("/q"), {}); }).isEmpty());
  EXPECT_TRUE(Vue.Liste.isEmpty());
  Noms.Etat = EtatNoms::kLus;
  Galerie.Rafraichit();
  EXPECT_EQ(Vue.Liste, QStringList{QStringLiteral("b.jpg")});
}

TEST_F(FautesGalerie, FolderThatCannotBeReadLeavesNoPhotosOfTheOneBeforeInItsList) {
  Ouvre();
  Reglages.RepertoirePhoto = QStringLiteral("/nowhere");
  EXPECT_FALSE(Message([this] { Galerie.RepointeSur(QStringLiteral("/nowhere"), {}); }).isEmpty());
  EXPECT_TRUE(Vue.Liste.isEmpty());
  EXPECT_EQ(Vue.Titre, QStringLiteral("Intrusions : 0 Picture(s)"));
}

TEST_F(FautesGalerie, WhateverAReadingThrowsLeavesTheListUsable) {
  Ouvre();
  const auto panne = std::make_exception_ptr(std::bad_alloc());
  Noms.Jette = panne;
  EXPECT_THROW(Galerie.Rafraichit(), std::bad_alloc);
  Noms.Jette = panne;
  bool fini = false;
  EXPECT_THROW(Galerie.RepointeSur(QStringLiteral("/p"), [&fini] { fini = true; }), std::bad_alloc);
  EXPECT_TRUE(fini);
  Lecteur.Jette = panne;
  EXPECT_THROW(Choisit(1), std::bad_alloc);
  Lecteur.Jette = panne;
  EXPECT_THROW(Galerie.OuvreGalerie(), std::bad_alloc);
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/p"));
  ExigeUtilisable();
}

TEST_F(FautesGalerie, WhatTheWindowThrowsWhileItTakesAListKeepsNothingWaiting) {
  struct Panne : faux::AffichageNote {
    void MontreListe(const QStringList& entrees, int index) override {
      if (std::exchange(Jette, false)) throw std::bad_alloc();
      AffichageNote::MontreListe(entrees, index);
    }
    bool Jette = false;
  } vue;
  Galerie.Relie(vue);
  AjoutePhotos({QStringLiteral("a.jpg")});
  Noms.Retient = true;
  Galerie.OuvreGalerie();
  Galerie.Rafraichit();
  vue.Jette = true;
  EXPECT_THROW(Noms.Livre(), std::bad_alloc);
  EXPECT_TRUE(Noms.Attend()) << "the refresh has its turn";
  Noms.Livre();
  EXPECT_EQ(vue.Liste.size(), 1);
  Galerie.Relie(Vue);
  ExigeUtilisable();
}

TEST_F(FautesGalerie, DeletionOnADiskThatDoesNotAnswerEndsAndNamesWhatWasNotTried) {
  Ouvre();
  Effaceur.Retient = true;
  Galerie.SupprimeTout();
  Effaceur.Echoue(EtatEffacement::kSansReponse, 1);
  EXPECT_FALSE(Effaceur.Attend());
  ASSERT_EQ(Boites.Textes.size(), 2);
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("does not answer")));
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("\"b.jpg\"")));
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("\"c.jpg\"")));
  EXPECT_FALSE(Boites.Textes.last().contains(QStringLiteral("\"a.jpg\"")));
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("fin"))) << "the progress window goes";
  EXPECT_EQ(Vue.Liste, QStringList({QStringLiteral("b.jpg"), QStringLiteral("c.jpg")}));
  Effaceur.Retient = true;
  Galerie.ChoisitIndex(0);
  Galerie.SupprimePhoto();
  Effaceur.Echoue(EtatEffacement::kSansReponse, 0);
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("This picture could not be erased:\r\n\"b.jpg\"")));
  ExigeUtilisable();
}

TEST_F(FautesGalerie, MessageOfADiskThatDoesNotAnswerComesOnceAlsoWhereItsListDoesNotCome) {
  Ouvre();
  Effaceur.Retient = Noms.Retient = true;
  Galerie.SupprimeTout();
  Effaceur.Echoue(EtatEffacement::kSansReponse, 0);
  EXPECT_EQ(Boites.Textes.size(), 2) << "before the list, which lies on the same disk";
  EXPECT_EQ(Vue.Appels.count(QStringLiteral("fin")), 1) << "and the progress window waits for it no more";
  EXPECT_FALSE(Vue.Appels.contains(QStringLiteral("pas -1"))) << "nothing was tried";
  Noms.Tarde();
  Noms.Livre();
  EXPECT_EQ(Boites.Textes.size(), 2);
  ExigeUtilisable();
}

TEST_F(FautesGalerie, DeletionAskedForAgainBehindOneThatWasBrokenOffWaitsForTheList) {
  Ouvre();
  Effaceur.Retient = Noms.Retient = true;
  Galerie.SupprimeTout();
  Effaceur.Echoue(EtatEffacement::kSansReponse, 0);
  Galerie.SupprimeTout();
  EXPECT_EQ(Boites.Textes.size(), 2);
  Noms.Livre();
  EXPECT_EQ(Boites.Textes.size(), 3) << "asked again";
  Effaceur.Livre();
  Noms.Livre();
  EXPECT_TRUE(Vue.Liste.isEmpty());
}

TEST_F(FautesGalerie, PhotoThatWasTriedBeforeTheDiskWentSilentAndResistedIsNamedWithTheList) {
  Ouvre();
  Disque.Tenaces = {QStringLiteral("a.jpg")};
  Effaceur.Retient = true;
  Galerie.SupprimeTout();
  Effaceur.Echoue(EtatEffacement::kSansReponse, 2);
  ASSERT_EQ(Boites.Textes.size(), 3);
  EXPECT_EQ(Boites.Textes.mid(1).filter(QStringLiteral("\"a.jpg\"")).size(), 1);
  EXPECT_EQ(Boites.Textes.mid(1).filter(QStringLiteral("\"c.jpg\"")).size(), 1);
  EXPECT_TRUE(Boites.Textes.filter(QStringLiteral("\"b.jpg\"")).isEmpty());
}

TEST_F(FautesGalerie, ProgramThatEndsUnderOneMessageShowsNoSecondOne) {
  Ouvre();
  Disque.Tenaces = {QStringLiteral("a.jpg")};
  Effaceur.Retient = true;
  Galerie.SupprimeTout();
  Boites.Pendant = [this] { Etat.EnFermeture = true; };
  Effaceur.Echoue(EtatEffacement::kSansReponse, 2);
  EXPECT_EQ(Boites.Textes.size(), 2) << "the question, and one of the two that there were";
}

TEST_F(FautesGalerie, WantOfMemoryDuringADeletionEndsItAndNamesTheRestInBothLanguages) {
  Ouvre();
  Reglages.LangueCourante = 0;
  Effaceur.Retient = true;
  Galerie.SupprimeTout();
  Effaceur.Echoue(EtatEffacement::kSansMoyens, 2);
  ASSERT_EQ(Boites.Textes.size(), 2);
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("mémoire")));
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("\"c.jpg\"")));
  ExigeUtilisable();
}

TEST_F(FautesGalerie, DeletionThatThrowsEndsWithItsProgressWindow) {
  Ouvre();
  Effaceur.Jette = std::make_exception_ptr(std::bad_alloc());
  EXPECT_THROW(Galerie.SupprimeTout(), std::bad_alloc);
  EXPECT_TRUE(Vue.Appels.contains(QStringLiteral("fin")));
  Effaceur.MsParPhoto = kMillisecondesTranche;
  Effaceur.Evenements = [this] { Effaceur.Jette = std::make_exception_ptr(std::bad_alloc()); };
  Vue.Appels.clear();
  EXPECT_THROW(Galerie.SupprimeTout(), std::bad_alloc) << "in its middle";
  EXPECT_EQ(Disque.Supprimes.size(), 1);
  EXPECT_EQ(Vue.Appels.last(), QStringLiteral("vide")) << "closed";
  Galerie.Rafraichit();
  Effaceur.Retient = true;
  Galerie.SupprimeTout();
  Effaceur.Jette = std::make_exception_ptr(std::bad_alloc());
  EXPECT_THROW(Effaceur.Livre(), std::bad_alloc) << "and when it comes from the event loop";
  ExigeUtilisable();
}

}  // namespace
}  // namespace vaktor
