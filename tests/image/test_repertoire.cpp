// SPDX-License-Identifier: GPL-3.0-or-later
// The form Repertoire, worked with mouse and keys.
#include <QApplication>
#include <QTest>

#include "image/folder_bench.h"
#include "image/forms/repertoire.h"

namespace vaktor {
namespace {

class FormeRepertoire : public faux::BancDossier {
 protected:
  void Ouvre() {
    Vue.Montre();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Vue.Forme()));
  }
  template <typename T>
  T* Trouve(const char* nom) {
    return Vue.Forme()->findChild<T*>(QLatin1String(nom));
  }
  VueDossiers* Dir1() { return Trouve<VueDossiers>("Dir1"); }
  QComboBox* Drive1() { return Trouve<QComboBox>("Drive1"); }
  void Clique(const char* nom) { QTest::mouseClick(Trouve<QWidget>(nom), Qt::LeftButton); }
  QStringList Enfants(QTreeWidgetItem* ligne) {
    QStringList noms;
    for (int i = 0; i < ligne->childCount(); ++i) noms += ligne->child(i)->text(0);
    return noms;
  }
  QTreeWidgetItem* Racine() { return Dir1()->topLevelItem(0); }
  void CliqueLigne(QTreeWidgetItem* ligne) {
    QTest::mouseClick(Dir1()->viewport(), Qt::LeftButton, {}, Dir1()->visualItemRect(ligne).center());
  }
  static bool Dechargee() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const QWidget* fenetre : QApplication::topLevelWidgets()) {
      if (fenetre->objectName() == QStringLiteral("Repertoire")) return false;
    }
    return true;
  }

  VueRepertoire Vue{Choix, Arbre};
};

TEST_F(FormeRepertoire, ShowsItsFrenchWordsInBothLanguages) {
  for (const qint32 langue : {0, 1}) {
    Reglages.LangueCourante = langue;
    Textes.Remplit(LitLangue(langue));
    Ouvre();
    EXPECT_EQ(Vue.Forme()->windowTitle(), QString::fromUtf8("Répertoire pour les photos"));
    EXPECT_EQ(Trouve<QPushButton>("Command1")->text(), QStringLiteral("Valider"));
    EXPECT_EQ(Trouve<QPushButton>("Command2")->text(), QString::fromUtf8("Créer"));
    EXPECT_EQ(Trouve<QLineEdit>("TxtPathPhot")->text(), QStringLiteral("Intrus"));
    EXPECT_EQ(Vue.Forme()->windowModality(), Qt::NonModal);
    Vue.Forme()->close();
  }
}

TEST_F(FormeRepertoire, OpensOnThePhotoFolderAndReadsNothingBesideTheWayDown) {
  Ouvre();
  EXPECT_EQ(Drive1()->currentData().toString(), QStringLiteral("/home/u"));
  EXPECT_TRUE(Drive1()->currentText().startsWith(QStringLiteral("Dossier personnel")));
  EXPECT_EQ(Drive1()->count(), 3);
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/Photos"));
  EXPECT_EQ(Arbre.Lus, (QStringList{QStringLiteral("/home/u"), QStringLiteral("/home/u/Photos")}));
  EXPECT_EQ(Enfants(Racine()), (QStringList{QStringLiteral("Photos"), QStringLiteral("v")}));
  EXPECT_FALSE(Reglages.ParametresModifies);
  EXPECT_TRUE(Boites.Textes.isEmpty());
}

TEST_F(FormeRepertoire, FolderIsReadWhenItIsOpened) {
  Ouvre();
  QTreeWidgetItem* v = Racine()->child(1);
  EXPECT_EQ(v->childIndicatorPolicy(), QTreeWidgetItem::ShowIndicator);
  CliqueLigne(v);
  QTest::keyClick(Dir1(), Qt::Key_Right);
  EXPECT_EQ(Arbre.Lus.last(), QStringLiteral("/home/u/v"));
  EXPECT_EQ(Enfants(v), QStringList{QStringLiteral("intrus")});
  QTest::keyClick(Dir1(), Qt::Key_Down);
  QTest::keyClick(Dir1(), Qt::Key_Right);
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/v/intrus"));
  EXPECT_EQ(v->child(0)->childIndicatorPolicy(), QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

TEST_F(FormeRepertoire, PickingAFolderMarksAndAcceptingTakesItOver) {
  Ouvre();
  CliqueLigne(Racine()->child(1));
  EXPECT_TRUE(Reglages.ParametresModifies);
  EXPECT_EQ(Choix.Chemin(), QStringLiteral("/home/u/v"));
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/Photos"));
  Clique("Command1");
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/v"));
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
  EXPECT_EQ(Vue.Forme(), nullptr);
  EXPECT_TRUE(Dechargee());
}

TEST_F(FormeRepertoire, ClosingDropsTheChoiceButLeavesTheMark) {
  Ouvre();
  CliqueLigne(Racine()->child(1));
  Vue.Forme()->close();
  EXPECT_TRUE(Dechargee());
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/Photos"));
  EXPECT_TRUE(Reglages.ParametresModifies);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(FormeRepertoire, EachShowingLoadsItAnew) {
  Ouvre();
  CliqueLigne(Racine()->child(1));
  Trouve<QLineEdit>("TxtPathPhot")->setText(QStringLiteral("x"));
  QTest::keyClick(Dir1(), Qt::Key_Escape);
  Ouvre();
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/Photos"));
  EXPECT_EQ(Trouve<QLineEdit>("TxtPathPhot")->text(), QStringLiteral("Intrus"));
}

TEST_F(FormeRepertoire, ShowingAFormThatIsOpenKeepsWhatWasBrowsed) {
  Ouvre();
  const Repertoire* premiere = Vue.Forme();
  CliqueLigne(Racine()->child(1));
  Vue.Montre();
  EXPECT_EQ(Vue.Forme(), premiere);
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/v"));
}

TEST_F(FormeRepertoire, ChangeOfDriveByKeyMovesTheTreeAndWarns) {
  Ouvre();
  Disque.OctetsLibres = 499'999'999;
  Boites.Reponse = ReponseBoite::kAnnuler;
  Drive1()->setFocus();
  QTest::keyClick(Drive1(), Qt::Key_Down);
  EXPECT_EQ(Racine()->text(0), QStringLiteral("/media/u/USB"));
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/media/u/USB"));
  EXPECT_EQ(Enfants(Racine()), QStringList{QStringLiteral("Nuits")});
  EXPECT_EQ(Boites.Textes, QStringList{QStringLiteral("Espace disque < 500 Mo. ")});
  EXPECT_EQ(Drive1()->currentData().toString(), QStringLiteral("/media/u/USB")) << "the answer is ignored";
}

TEST_F(FormeRepertoire, DriveThatHasGoneLeavesListAndTree) {
  Ouvre();
  Arbre.Regards.remove(QStringLiteral("/media/u/USB"));
  Drive1()->setFocus();
  QTest::keyClick(Drive1(), Qt::Key_Down);
  EXPECT_EQ(Boites.Textes.size(), 1);
  EXPECT_EQ(Drive1()->currentData().toString(), QStringLiteral("/home/u"));
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/Photos"));
}

TEST_F(FormeRepertoire, OpenedListKnowsAVolumeThatCameMeanwhile) {
  Ouvre();
  Arbre.Lieux.insert(2, {QStringLiteral("CARTE"), QStringLiteral("/media/u/CARTE")});
  Drive1()->showPopup();
  EXPECT_EQ(Drive1()->count(), 4);
  EXPECT_EQ(Drive1()->currentData().toString(), QStringLiteral("/home/u"));
  Drive1()->hidePopup();
}

TEST_F(FormeRepertoire, CreatedFolderIsInTheTreeAndChosen) {
  Ouvre();
  Arbre.SousDossiers[QStringLiteral("/home/u/Photos")] += QStringLiteral("Intrus");
  Clique("Command2");
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/Photos/Intrus"));
  EXPECT_EQ(Enfants(Racine()->child(0)), QStringList{QStringLiteral("Intrus")});
  EXPECT_TRUE(Reglages.ParametresModifies);
}

TEST_F(FormeRepertoire, CreatedHiddenFolderIsShownThoughItsKindIsLeftOut) {
  Ouvre();
  Trouve<QLineEdit>("TxtPathPhot")->setText(QStringLiteral(".nuit"));
  Clique("Command2");
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/Photos/.nuit"));
}

TEST_F(FormeRepertoire, CreatingAgainLeavesTheTreeWithoutAMessage) {
  Ouvre();
  Disque.AjouteDossier(QStringLiteral("/home/u/Photos/Intrus"));
  Clique("Command2");
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/Photos"));
  EXPECT_TRUE(Boites.Textes.isEmpty());
}

TEST_F(FormeRepertoire, RefusedFolderKeepsTheFormOpen) {
  Ouvre();
  CliqueLigne(Racine()->child(1));
  Arbre.Ecritures[QStringLiteral("/home/u/v")] = EtatDossier::kPlein;
  Clique("Command1");
  EXPECT_EQ(Boites.Textes.size(), 1);
  ASSERT_NE(Vue.Forme(), nullptr);
  EXPECT_TRUE(Vue.Forme()->isVisible());
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/Photos"));
}

TEST_F(FormeRepertoire, FormGoesAlsoWhenTheGalleryCannotShowItsFirstPhoto) {
  Ouvre();
  CliqueLigne(Racine()->child(1));
  GalerieEchoue = true;
  // Not through the event loop, where a test has no guard.
  EXPECT_THROW(Trouve<QPushButton>("Command1")->click(), Echec);
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/v"));
  EXPECT_EQ(Vue.Forme(), nullptr);
}

TEST_F(FormeRepertoire, EndOfTheProgramDuringThePumpOfTheCreationIsSurvived) {
  Ouvre();
  Pompe.EnAttente = [this] { Vue.Decharge(); };
  Clique("Command2");
  EXPECT_TRUE(Dechargee());
  Vue.Montre();
  EXPECT_EQ(Vue.Forme(), nullptr) << "nothing loads it again";
}

TEST_F(FormeRepertoire, CanBeWorkedWithTheKeyboardAlone) {
  Ouvre();
  EXPECT_EQ(QApplication::focusWidget(), Dir1());
  QTest::keyClick(Dir1(), Qt::Key_Down);
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/v"));
  QTest::keyClick(Dir1(), Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), Trouve<QWidget>("TxtPathPhot"));
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("nuit"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/v/nuit"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), Trouve<QWidget>("Command2"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  ASSERT_EQ(QApplication::focusWidget(), Trouve<QWidget>("Command1"));
  Arbre.Ajoute(QStringLiteral("/home/u/v/nuit"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Reglages.RepertoirePhoto, QStringLiteral("/home/u/v/nuit"));
  EXPECT_EQ(Vue.Forme(), nullptr);
}

TEST_F(FormeRepertoire, FoldersThatComeLateJoinInOrderAndKeepTheChosenOne) {
  Arbre.Retient = true;
  Arbre.Liens = true;
  Arbre.SousDossiers[QStringLiteral("/home/u")] = {QStringLiteral("zoo"), QStringLiteral("Photos"),
                                                   QStringLiteral("album"), QStringLiteral("Quai"),
                                                   QStringLiteral("lien")};
  Ouvre();
  EXPECT_EQ(Enfants(Racine()), QStringList{QStringLiteral("Photos")}) << "the way down is known without the disk";
  Arbre.Livre();
  EXPECT_EQ(Enfants(Racine()), (QStringList{QStringLiteral("album"), QStringLiteral("lien"), QStringLiteral("Photos"),
                                            QStringLiteral("Quai"), QStringLiteral("zoo")}));
  EXPECT_EQ(Dir1()->Chemin(), QStringLiteral("/home/u/Photos"));
  EXPECT_FALSE(Reglages.ParametresModifies);
}

TEST_F(FormeRepertoire, ChosenFolderStaysInSightWhileItsNeighboursCome) {
  Arbre.Retient = true;
  for (int i = 0; i < 100; ++i) Arbre.SousDossiers[QStringLiteral("/home/u")] += QStringLiteral("a%1").arg(i);
  Ouvre();
  Arbre.Livre();
  ASSERT_EQ(Racine()->childCount(), 102);
  EXPECT_TRUE(Dir1()->viewport()->rect().contains(Dir1()->visualItemRect(Dir1()->currentItem()).center()));
}

TEST_F(FormeRepertoire, FolderThatIsBeingReadIsNotReadTwice) {
  Arbre.Retient = true;
  Ouvre();
  const auto lus = Arbre.Lus.size();
  Racine()->setExpanded(false);
  Racine()->setExpanded(true);
  EXPECT_EQ(Arbre.Lus.size(), lus) << "a dead disk must not gather readers";
  Arbre.Livre();
  Racine()->setExpanded(false);
  Racine()->setExpanded(true);
  EXPECT_EQ(Arbre.Lus.size(), lus + 1);
}

TEST_F(FormeRepertoire, FolderThatCannotBeReadSaysSoAndItsWordsAreNoFolder) {
  Arbre.Lectures[QStringLiteral("/home/u/v")] = EtatDossier::kInterdit;
  Arbre.SousDossiers[QStringLiteral("/home/u/v")].clear();
  Ouvre();
  QTreeWidgetItem* ferme = nullptr;
  for (int i = 0; i < Racine()->childCount(); ++i) {
    if (Racine()->child(i)->text(0) == QStringLiteral("v")) ferme = Racine()->child(i);
  }
  ASSERT_NE(ferme, nullptr);
  ferme->setExpanded(true);
  EXPECT_EQ(Enfants(ferme), QStringList{QStringLiteral("(vous n'avez pas le droit de lire ce dossier)")});
  CliqueLigne(ferme->child(0));
  EXPECT_NE(Dir1()->currentItem(), ferme->child(0));
  EXPECT_EQ(Choix.Chemin(), QStringLiteral("/home/u/Photos"));
  Arbre.Lectures.clear();
  Arbre.SousDossiers[QStringLiteral("/home/u/v")] += QStringLiteral("intrus");
  ferme->setExpanded(false);
  ferme->setExpanded(true);
  EXPECT_EQ(Enfants(ferme), QStringList{QStringLiteral("intrus")}) << "and they go with the next reading";
}

TEST_F(FormeRepertoire, AcceptedItWaitsForTheGalleryAsItStandsAndThenGoes) {
  Ouvre();
  GalerieTarde = true;
  Clique("Command1");
  ASSERT_NE(Vue.Forme(), nullptr);
  EXPECT_FALSE(Vue.Forme()->isEnabled()) << "the choice is made";
  FinGalerie();
  EXPECT_TRUE(Dechargee());
  Ouvre();
  Clique("Command1");
  Vue.Forme()->close();
  EXPECT_TRUE(Dechargee());
  FinGalerie();  // closed by hand meanwhile: there is nobody to close any more
}

TEST_F(FormeRepertoire, FolderThatHasGoneLeavesTheTreeWhenItIsOpenedAgain) {
  Ouvre();
  Arbre.SousDossiers[QStringLiteral("/home/u")].clear();
  Racine()->setExpanded(false);
  Racine()->setExpanded(true);
  EXPECT_EQ(Enfants(Racine()), QStringList{QStringLiteral("Photos")}) << "the chosen one stays until it is accepted";
}

TEST_F(FormeRepertoire, AnswersAfterTheFormHasGoneFindNobody) {
  Arbre.Retient = true;
  Ouvre();
  Vue.Forme()->close();
  EXPECT_TRUE(Dechargee());
  Arbre.Livre();
}

}  // namespace
}  // namespace vaktor
