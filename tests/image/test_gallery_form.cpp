// SPDX-License-Identifier: GPL-3.0-or-later
// FormVisuPhoto under mouse and keys: opening, the list, the place of the photo, the field, closing.
#include <QAccessible>
#include <QContextMenuEvent>
#include <QScrollBar>
#include <functional>

#include "image/gallery_form_fixture.h"

namespace vaktor {
namespace {

TEST_F(Galerie, HasItsControlsAndOpensMaximised) {
  for (const char* nom : {"PictureAfff", "FilePhotoVisu", "PictureVisu", "TxtNbrPhotDisk", "LblPhotoDisc",
                          "CmdOpenRepPhot", "Command7", "CmdRefresh", "CmdClearRepPhot"}) {
    EXPECT_NE(Trouve<QWidget>(nom), nullptr) << nom;
  }
  EXPECT_EQ(Forme.objectName(), QStringLiteral("FormVisuPhoto"));
  EXPECT_FALSE(Forme.isVisible());
  EXPECT_TRUE(Forme.isMaximized());
  EXPECT_EQ(Limite->text(), QStringLiteral("10000"));
  EXPECT_FALSE(Reglages.ParametresModifies) << "showing the limit is no change";
  Ouvre();
  EXPECT_TRUE(Forme.isVisible());
  EXPECT_TRUE(Forme.isMaximized());
  EXPECT_EQ(Trouve<QWidget>("PictureAfff")->width(), 241);
}

TEST_F(Galerie, OpeningShowsTheFirstPhotoAndTheCount) {
  AjoutePhotos(
      {QStringLiteral("b.jpg"), QStringLiteral("a.jpg"), QStringLiteral("x.txt"), QStringLiteral("c.jpg.old")});
  Forme.OuvreGalerie();
  EXPECT_EQ(Liste->model()->rowCount(), 3) << "names with more behind .jpg too";
  EXPECT_EQ(Liste->Index(), 0);
  EXPECT_EQ(Lecteur.Lues.last(), QStringLiteral("/p\\a.jpg"));
  EXPECT_EQ(Photo->size(), QSize(40, 30));
  EXPECT_EQ(Forme.windowTitle(), QStringLiteral("Intrusions : 3 Picture(s)"));
  EXPECT_EQ(Forme.focusWidget(), Liste);
}

TEST_F(Galerie, WordsFollowTheLanguage) {
  Ouvre();
  EXPECT_EQ(Trouve<QPushButton>("Command7")->text(), QStringLiteral("Choose Repertory"));
  EXPECT_EQ(Limite->toolTip(), QStringLiteral("Choose the number of pictures that will be stored on your hard drive"));
  Reglages.LangueCourante = 0;
  Textes.Remplit(Langue::kFrancais);
  Forme.ChargeMots();
  EXPECT_EQ(Forme.windowTitle(), QStringLiteral("Intrusions : 3 Photo(s)"));
  EXPECT_EQ(Trouve<QLabel>("LblPhotoDisc")->text(), QStringLiteral("Photos Max"));
  EXPECT_EQ(Trouve<QPushButton>("CmdOpenRepPhot")->text(), QStringLiteral("Voir Répertoire"));
  EXPECT_EQ(Trouve<QPushButton>("Command7")->text(), QStringLiteral("Choisir Répertoire"));
  EXPECT_EQ(Trouve<QPushButton>("CmdRefresh")->text(), QStringLiteral("Rafraîchir"));
  EXPECT_EQ(Trouve<QPushButton>("CmdClearRepPhot")->text(), QStringLiteral("Effacer les photos"));
  EXPECT_EQ(Menu->title(), QStringLiteral("Fichier"));
  EXPECT_EQ(Menu->actions().first()->text(), QStringLiteral("Supprimer"));
  EXPECT_EQ(Trouve<QPushButton>("Command7")->toolTip(),
            QStringLiteral("Choisissez un autre répertoire pour stocker les photos"));
}

TEST_F(Galerie, ClickShowsTheEntry) {
  Ouvre();
  Lecteur.Tailles[QStringLiteral("/p\\b.jpg")] = QSize(100, 50);
  Clique(1);
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\b.jpg")});
  EXPECT_EQ(Photo->size(), QSize(100, 50));
  Clique(1);
  EXPECT_EQ(Lecteur.Lues.size(), 2) << "any click loads, also one on the entry that is shown";
}

TEST_F(Galerie, ClickBelowTheEntriesKeepsTheSelection) {
  Ouvre();
  Clique(1);
  QTest::mouseClick(Liste->viewport(), Qt::LeftButton, {}, QPoint(10, Liste->viewport()->height() - 3));
  EXPECT_EQ(Liste->Index(), 1);
}

TEST_F(Galerie, ArrowKeysWalkTheListAndCountAsClicks) {
  Ouvre();
  Touche(Qt::Key_Down);
  Touche(Qt::Key_Down);
  Touche(Qt::Key_Down);
  Touche(Qt::Key_Home);
  EXPECT_EQ(Lecteur.Lues,
            QStringList({QStringLiteral("/p\\b.jpg"), QStringLiteral("/p\\c.jpg"), QStringLiteral("/p\\a.jpg")}));
}

TEST_F(Galerie, DragShowsEachEntryItReachesOnce) {
  Ouvre();
  QTest::mousePress(Liste->viewport(), Qt::LeftButton, {}, Place(1));
  EXPECT_TRUE(Lecteur.Lues.isEmpty()) << "the click comes with the release";
  QTest::mouseMove(Liste->viewport(), Place(1) + QPoint(1, 0));
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\b.jpg")});
  QTest::mouseMove(Liste->viewport(), Place(1) + QPoint(2, 0));
  EXPECT_EQ(Lecteur.Lues.size(), 1) << "the same index again";
  QTest::mouseMove(Liste->viewport(), Place(2));
  EXPECT_EQ(Lecteur.Lues.last(), QStringLiteral("/p\\c.jpg"));
  EXPECT_EQ(BancGalerie::Galerie.DernierIndexAffiche(), 2);
  QTest::mouseRelease(Liste->viewport(), Qt::LeftButton, {}, Place(2));
  EXPECT_EQ(Lecteur.Lues.size(), 3) << "and the click of the release";
}

// The remembered index starts at 0, and a click does not write it.
TEST_F(Galerie, FirstDragOverTheFirstEntryShowsNothingUntilTheRelease) {
  Ouvre();
  Clique(2);
  Lecteur.Lues.clear();
  QTest::mousePress(Liste->viewport(), Qt::LeftButton, {}, Place(0));
  QTest::mouseMove(Liste->viewport(), Place(0) + QPoint(2, 0));
  EXPECT_TRUE(Lecteur.Lues.isEmpty());
  QTest::mouseRelease(Liste->viewport(), Qt::LeftButton, {}, Place(0));
  EXPECT_EQ(Lu(), QStringLiteral("/p\\a.jpg"));
}

TEST_F(Galerie, MoveWithoutTheLeftButtonShowsNothing) {
  Ouvre();
  Bouge(Place(1), Qt::NoButton);
  Bouge(Place(2), Qt::RightButton);
  EXPECT_TRUE(Lecteur.Lues.isEmpty());
  EXPECT_NE(Liste->Index(), 2);
}

TEST_F(Galerie, DragBelowTheListScrollsOn) {
  QStringList photos;
  for (int i = 0; i < 200; ++i) photos += QStringLiteral("%1.jpg").arg(i, 3, 10, QLatin1Char('0'));
  Ouvre(photos);
  QTest::mousePress(Liste->viewport(), Qt::LeftButton, {}, Place(3));
  QTest::mouseMove(Liste->viewport(), QPoint(10, Liste->viewport()->height() + 5));
  const int dernier = Liste->Index();
  QTest::mouseMove(Liste->viewport(), QPoint(10, Liste->viewport()->height() + 6));
  EXPECT_GT(Liste->Index(), dernier);
  EXPECT_GT(Liste->verticalScrollBar()->value(), 0);
  QTest::mouseRelease(Liste->viewport(), Qt::LeftButton, {}, QPoint(10, 10));
}

TEST_F(Galerie, DragOverAnEdgeComesToTheEntryBehindIt) {
  Ouvre(Suite(200));
  const int bas = Liste->viewport()->height();
  QTest::mousePress(Liste->viewport(), Qt::LeftButton, {}, Place(3));
  const int dernier = Liste->indexAt({0, bas - 1}).row();
  Bouge({10, bas + 5}, Qt::LeftButton);
  EXPECT_EQ(Liste->Index(), dernier + 1);
  QTest::mouseRelease(Liste->viewport(), Qt::LeftButton, {}, QPoint(10, 10));
  Liste->verticalScrollBar()->setValue(100);
  const int premier = Liste->indexAt({0, 0}).row();
  ASSERT_GT(premier, 0);
  QTest::mousePress(Liste->viewport(), Qt::LeftButton, {}, QPoint(10, bas / 2));
  Bouge({10, -5}, Qt::LeftButton);
  EXPECT_EQ(Liste->Index(), premier - 1);
  QTest::mouseRelease(Liste->viewport(), Qt::LeftButton, {}, QPoint(10, 10));
}

TEST_F(Galerie, BehindADeletionTheListStandsWhereItStoodAndTheKeysGoOnFromThere) {
  Ouvre(Suite(200));
  Liste->verticalScrollBar()->setValue(100);
  const int choisie = Liste->indexAt({0, Liste->viewport()->height() / 2}).row();
  Clique(choisie);
  const int place = Liste->verticalScrollBar()->value();
  ASSERT_GT(place, 0);
  Touche(Qt::Key_Delete);
  EXPECT_EQ(Liste->verticalScrollBar()->value(), place);
  Lecteur.Lues.clear();
  Touche(Qt::Key_Down);
  EXPECT_EQ(Lu(), QStringLiteral("/p\\") + Suite(200).at(choisie + 1));
}

TEST_F(Galerie, MousesOwnWishForAMenuOpensNone) {
  Ouvre();
  Clique(1);
  QContextMenuEvent souris(QContextMenuEvent::Mouse, Place(1), Liste->viewport()->mapToGlobal(Place(1)));
  QCoreApplication::sendEvent(Liste->viewport(), &souris);
  EXPECT_FALSE(Menu->isVisible()) << "the press has opened it";
}

TEST_F(Galerie, RightButtonShowsTheSelectedPhotoAndOpensTheMenuWhereItIs) {
  Ouvre();
  Clique(1);
  Lecteur.Lues.clear();
  QTest::mousePress(Liste->viewport(), Qt::RightButton, {}, Place(2));
  EXPECT_EQ(Liste->Index(), 1) << "the right button selects nothing";
  EXPECT_EQ(Lecteur.Lues, QStringList{QStringLiteral("/p\\b.jpg")});
  ASSERT_TRUE(Menu->isVisible());
  EXPECT_EQ(Menu->pos(), Forme.mapToGlobal(Liste->pos() + Liste->viewport()->mapToParent(Place(2))));
  Menu->close();
}

TEST_F(Galerie, RightButtonWithNoSelectionDoesNothing) {
  Ouvre({});
  QTest::mousePress(Liste->viewport(), Qt::RightButton, {}, QPoint(10, 10));
  EXPECT_FALSE(Menu->isVisible());
  AjoutePhotos({QStringLiteral("a.jpg")});
  Bouton("CmdRefresh");
  EXPECT_EQ(Liste->model()->rowCount(), 1);
  QTest::mousePress(Liste->viewport(), Qt::RightButton, {}, Place(0));
  EXPECT_FALSE(Menu->isVisible());
  EXPECT_TRUE(Lecteur.Lues.isEmpty());
}

TEST_F(Galerie, MenuItemAsksAndDeletes) {
  Ouvre();
  Clique(1);
  QTest::mousePress(Liste->viewport(), Qt::RightButton, {}, Place(1));
  ASSERT_TRUE(Menu->isVisible());
  QTest::mouseClick(Menu, Qt::LeftButton, {}, Menu->actionGeometry(Menu->actions().first()).center());
  EXPECT_EQ(Boites.Textes, QStringList{QStringLiteral("Are you sure, you want to erase the picture:\r\n\"b.jpg\" ?")});
  EXPECT_EQ(Disque.Supprimes, QStringList{QStringLiteral("/p\\b.jpg")});
  EXPECT_EQ(Liste->model()->rowCount(), 2);
  EXPECT_FALSE(Photo->Photo().isNull()) << "the picture stays on display";
}

TEST_F(Galerie, KeyboardAloneDeletesAndGoesOnWithTheNext) {
  Ouvre();
  Touche(Qt::Key_Down);
  QContextMenuEvent parTouche(QContextMenuEvent::Keyboard, {}, Liste->mapToGlobal(QPoint()));
  QCoreApplication::sendEvent(Liste->viewport(), &parTouche);
  EXPECT_TRUE(Menu->isVisible());
  Menu->close();
  Touche(Qt::Key_Delete);
  EXPECT_EQ(Disque.Supprimes, QStringList{QStringLiteral("/p\\b.jpg")});
  EXPECT_EQ(Liste->Index(), -1);
  Lecteur.Lues.clear();
  Touche(Qt::Key_Down);
  EXPECT_EQ(Lu(), QStringLiteral("/p\\c.jpg"));
}

TEST_F(Galerie, DeleteKeyWithoutASelectionAsksNothing) {
  Ouvre({});
  Touche(Qt::Key_Delete);
  EXPECT_TRUE(Boites.Textes.isEmpty());
}

TEST_F(Galerie, TabGoesThroughEveryControl) {
  Ouvre();
  QStringList noms;
  for (int i = 0; i < 8; ++i) {
    noms += Forme.focusWidget()->objectName();
    QTest::keyClick(Forme.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(noms, QStringList({QStringLiteral("FilePhotoVisu"), QStringLiteral("TxtNbrPhotDisk"),
                               QStringLiteral("CmdOpenRepPhot"), QStringLiteral("Command7"),
                               QStringLiteral("CmdRefresh"), QStringLiteral("CmdClearRepPhot"),
                               QStringLiteral("CmdFrise"), QStringLiteral("FilePhotoVisu")}));
}

TEST_F(Galerie, TheButtonOfTheTimelineStandsInTheUpperRightCornerWhateverTheSize) {
  Ouvre();
  auto* frise = Forme.findChild<QPushButton*>(QStringLiteral("CmdFrise"));
  Forme.resize(1000, 700);
  QCoreApplication::processEvents();
  EXPECT_EQ(frise->geometry().topRight(), QPoint(Forme.width() - 9, 8));
  EXPECT_EQ(frise->accessibleName().isEmpty() ? frise->text() : frise->accessibleName(), QStringLiteral("Timeline"));
  int ouvertures = 0;
  Forme.SurFrise([&] { ++ouvertures; });
  QTest::mouseClick(frise, Qt::LeftButton);
  EXPECT_EQ(ouvertures, 1);
}

TEST_F(Galerie, SpaceAndEnterPressEveryButton) {
  Ouvre();
  int choix = 0;
  Forme.SurChoixRepertoire([&choix] { ++choix; });
  for (const Qt::Key touche : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    AjoutePhotos({QStringLiteral("z.jpg")});
    Noms.Lus.clear();
    for (const char* nom : {"CmdOpenRepPhot", "Command7", "CmdRefresh", "CmdClearRepPhot"}) {
      QTest::keyClick(Trouve<QPushButton>(nom), touche);
    }
    EXPECT_EQ(Noms.Lus.size(), 2) << "read again, and once more behind the deletion";
    EXPECT_EQ(Liste->model()->rowCount(), 0);
  }
  EXPECT_EQ(choix, 3);
  EXPECT_EQ(Bureau.Ouverts.size(), 3);
}

TEST_F(Galerie, WindowComesWhenTheNamesAreThereAndNotWhenItsFormHasGone) {
  Noms.Retient = true;
  AjoutePhotos({QStringLiteral("a.jpg")});
  Forme.OuvreGalerie();
  EXPECT_FALSE(Forme.isVisible());
  Noms.Livre();
  EXPECT_TRUE(Forme.isVisible());
  {
    FormVisuPhoto autre(BancGalerie::Galerie, Reglages, Textes);
    autre.OuvreGalerie();
    EXPECT_TRUE(Noms.Attend());
  }
  EXPECT_FALSE(Noms.Attend());
}

TEST_F(Galerie, LimitFieldKeepsDigitsAndCountsAtOnce) {
  Ouvre();
  Limite->selectAll();
  QTest::keyClicks(Limite, QStringLiteral("12a3"));
  EXPECT_EQ(Limite->text(), QStringLiteral("123"));
  EXPECT_EQ(Reglages.NombrePhotoMax, 123);
  EXPECT_TRUE(Reglages.ParametresModifies);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0) << "saved with the next save";
  Limite->selectAll();
  QTest::keyClick(Limite, Qt::Key_Backspace);
  EXPECT_EQ(Limite->text(), QStringLiteral("0"));
  EXPECT_EQ(Reglages.NombrePhotoMax, 0);
  Limite->setText(QStringLiteral("99999999999"));
  EXPECT_EQ(Limite->text(), QStringLiteral("2147483647"));
  EXPECT_EQ(Reglages.NombrePhotoMax, 2147483647);
  Limite->setText(QStringLiteral("abc"));
  EXPECT_EQ(Limite->text(), QStringLiteral("0"));
}

TEST_F(Galerie, LimitFromTheStoreIsCleanedLikeATypedOneAndMarksNothing) {
  Reglages.NombrePhotoMax = -25;
  Reglages.ParametresModifies = false;
  const FormVisuPhoto autre{BancGalerie::Galerie, Reglages, Textes};
  EXPECT_EQ(autre.findChild<QLineEdit*>(QStringLiteral("TxtNbrPhotDisk"))->text(), QStringLiteral("25"));
  EXPECT_EQ(Reglages.NombrePhotoMax, 25) << "what the field shows is what holds for the photos";
  EXPECT_FALSE(Reglages.ParametresModifies);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(Galerie, LimitFieldKeepsTheCursorBehindTheSameCharacters) {
  Ouvre();
  Limite->setText(QStringLiteral("123"));
  Limite->setCursorPosition(1);
  QTest::keyClicks(Limite, QStringLiteral("x7"));
  EXPECT_EQ(Limite->text(), QStringLiteral("1723"));
}

TEST_F(Galerie, ButtonsOpenTheFolderAndTheChooser) {
  Ouvre();
  int choix = 0;
  Bouton("Command7");
  Forme.SurChoixRepertoire([&choix] { ++choix; });
  Bouton("Command7");
  EXPECT_EQ(choix, 1);
  Bouton("CmdOpenRepPhot");
  EXPECT_EQ(Bureau.Ouverts, QStringList{QStringLiteral("/p\\")});
}

TEST_F(Galerie, ReopenedAfterItWasRestoredItFitsTheFirstPhoto) {
  Ouvre();
  Forme.showNormal();
  Lecteur.Tailles[QStringLiteral("/p\\a.jpg")] = QSize(320, 240);
  Forme.hide();
  Forme.OuvreGalerie();
  EXPECT_EQ(Forme.frameGeometry().size(), QSize(241 + 320 + 53, 240 + 53)) << "800 twips are 53.3 pixels";
  const QPoint milieu((241 + Forme.width()) / 2, Forme.height() / 2);
  EXPECT_LE((Photo->geometry().center() - milieu).manhattanLength(), 2);
}

TEST_F(Galerie, OpenedAgainItIsNoIcon) {
  Ouvre();
  Forme.showMinimized();
  Forme.OuvreGalerie();
  EXPECT_FALSE(Forme.isMinimized());
}

TEST_F(Galerie, PhotoIsCentredInTheSpaceRightOfThePanelAndCutByTheEdges) {
  Ouvre();
  Forme.showNormal();
  Forme.resize(841, 500);
  EXPECT_EQ(Photo->geometry().center().x() + 1, 241 + 300);
  EXPECT_EQ(Photo->y(), 250 - 15);
  Lecteur.Tailles[QStringLiteral("/p\\b.jpg")] = QSize(2000, 1000);
  Clique(1);
  EXPECT_EQ(Photo->geometry(), QRect(541 - 1000, 250 - 500, 2000, 1000)) << "a new size lays out at once";
  EXPECT_EQ(Forme.childAt(100, 50)->window(), &Forme);
  EXPECT_NE(Forme.childAt(5, 480), Photo) << "the panel stays on top";
}

TEST_F(Galerie, PanelAndListFollowTheHeight) {
  Ouvre();
  Forme.showNormal();
  Forme.resize(700, 600);
  EXPECT_EQ(Trouve<QWidget>("PictureAfff")->size(), QSize(241, 600));
  EXPECT_EQ(Liste->height(), 600 - Liste->y() - 13);
}

TEST_F(Galerie, DamagedPhotoIsSaidInItsPlaceAndStaysListed) {
  Ouvre();
  Lecteur.Etats[QStringLiteral("/p\\b.jpg")] = EtatPhoto::kIllisible;
  Clique(1);
  EXPECT_TRUE(Photo->Photo().isNull());
  EXPECT_TRUE(Photo->Avis().contains(QStringLiteral("damaged"))) << Photo->Avis().toStdString();
  EXPECT_TRUE(Photo->Avis().contains(QStringLiteral("b.jpg")));
  EXPECT_EQ(Photo->accessibleDescription(), Photo->Avis());
  EXPECT_EQ(Photo->size(), QSize(360, 140)) << "room for the words, whatever the photo before";
  EXPECT_EQ(Liste->model()->rowCount(), 3);
  EXPECT_NE(Photo->grab().toImage().pixel(2, 2), qRgb(200, 60, 20));
  Reglages.LangueCourante = 0;
  Textes.Remplit(Langue::kFrancais);
  Forme.ChargeMots();
  EXPECT_TRUE(Photo->Avis().contains(QStringLiteral("endommagé")));
  Touche(Qt::Key_Down);
  EXPECT_EQ(Photo->Avis(), QString());
  EXPECT_EQ(Photo->grab().toImage().pixel(5, 5), qRgb(200, 60, 20));
}

TEST_F(Galerie, PhotoWhoseFileEndsEarlyBearsTheWordsOnItsFoot) {
  Lecteur.Tailles[QStringLiteral("/p\\b.jpg")] = QSize(400, 300);
  Lecteur.Defauts[QStringLiteral("/p\\b.jpg")] = Dommage::kCoupee;
  Ouvre();
  Clique(1);
  EXPECT_TRUE(Photo->Mention().contains(QStringLiteral("too early"))) << Photo->Mention().toStdString();
  EXPECT_EQ(Photo->accessibleDescription(), Photo->Mention());
  const QImage vue = Photo->grab().toImage();
  EXPECT_EQ(vue.size(), QSize(400, 300)) << "the place keeps the picture's own size";
  EXPECT_EQ(vue.pixel(5, 5), qRgb(200, 60, 20));
  EXPECT_NE(vue.pixel(5, 295), qRgb(200, 60, 20));
  Touche(Qt::Key_Down);
  EXPECT_EQ(Photo->Mention(), QString());
  EXPECT_EQ(Photo->accessibleDescription(), QString());
}

TEST_F(Galerie, CloseRequestSavesAndHides) {
  Ouvre();
  EXPECT_FALSE(Forme.close());
  EXPECT_FALSE(Forme.isVisible());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
  EXPECT_TRUE(Sauvegarde.ModifiesALaSauvegarde);
  Forme.OuvreGalerie();
  EXPECT_TRUE(Forme.isVisible());
  Etat.EnFermeture = true;
  EXPECT_TRUE(Forme.close()) << "at the end of the program it goes";
  EXPECT_EQ(Sauvegarde.Sauvegardes, 2);
}

TEST_F(Galerie, LabelIsTheHandleOfTheWindow) {
  Ouvre();
  int demandes = 0;
  QObject::connect(Trouve<PanneauGalerie>("PictureAfff"), &PanneauGalerie::DeplacementDemande,
                   [&demandes] { ++demandes; });
  QTest::mousePress(Trouve<QLabel>("LblPhotoDisc"), Qt::RightButton);
  EXPECT_EQ(demandes, 0);
  QTest::mousePress(Trouve<QLabel>("LblPhotoDisc"), Qt::LeftButton);
  EXPECT_EQ(demandes, 1);
}

}  // namespace
}  // namespace vaktor
