// SPDX-License-Identifier: GPL-3.0-or-later
// What the whole program writes into its journal, and that nothing it does depends on that.
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QScreen>
#include <QTest>
#include <algorithm>
#include <cerrno>

#include "app/alarm_fixture.h"
#include "fakes/counted_frame.h"

namespace vaktor::essai {
namespace {

class JournalDuProgramme : public AlarmeSurFaux {
 protected:
  QList<Fait> Faits() const {
    QList<Fait> faits;
    for (const EntreeJournal& entree : Systeme.LignesJournal.Entrees())
      if (entree.Mot.isEmpty()) faits.append(entree.Quoi);  // nobody is there for the mails of these programs
    return faits;
  }
  /// The main window is there, and hears keys.
  void DemarreEtMontre() {
    Demarre();
    Systeme.Temps.Avance(2000);
    Fenetre("Form1")->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Fenetre("Form1")));
  }
  EntreeJournal Derniere(Fait quoi) const {
    const QList<EntreeJournal> entrees = Systeme.LignesJournal.Entrees();
    const auto trouvee =
        std::find_if(entrees.rbegin(), entrees.rend(), [&](const EntreeJournal& e) { return e.Quoi == quoi; });
    return trouvee == entrees.rend() ? EntreeJournal{} : *trouvee;
  }
};

TEST_F(JournalDuProgramme, AnAlarmWithItsPhotosFromTheStartToTheEnd) {
  ArmeEtBouge();
  EXPECT_EQ(Faits(), (QList<Fait>{Fait::kDemarre, Fait::kArmee, Fait::kDebutIntrusion}));
  EXPECT_EQ(Derniere(Fait::kDemarre).Course, QStringLiteral("run"));
  const QStringList photos = [this] {
    Systeme.Temps.Avance(1000);
    return Systeme.DepuisVide().filter(QStringLiteral("jpeg: "));
  }();
  Programme->Ferme();
  EXPECT_EQ(Faits().mid(3), (QList<Fait>{Fait::kFinIntrusion, Fait::kDesarmee, Fait::kFini}));
  const EntreeJournal fin = Derniere(Fait::kFinIntrusion);
  EXPECT_GT(fin.Images, 200);
  EXPECT_EQ(fin.Photos, fin.Images) << "one photo a frame: photo, mail and sound of a frame are one frame";
  EXPECT_EQ(fin.Points, 96 * 80) << "all samples of a picture of 287 by 241, but for the last row";
  EXPECT_EQ(fin.Dossier, QStringLiteral("/home/u/v\\intrus"));
  ASSERT_FALSE(photos.isEmpty());
  EXPECT_EQ(photos.constLast(), QStringLiteral("jpeg: ") + fin.Dossier + u'/' + fin.Derniere);
  EXPECT_FALSE(fin.Premiere.isEmpty());
  EXPECT_FALSE(fin.Meilleure.isEmpty());
  EXPECT_EQ(fin.Cadre.bottomRight(), QPoint(286, 238));
}

TEST_F(JournalDuProgramme, TheSlateForTheMailsNamesThePhotoOfTheMostMovement) {
  ArmeEtBouge();
  Programme->Ferme();
  const EntreeJournal fin = Derniere(Fait::kFinIntrusion);
  const ArdoiseIntrusion ardoise = Systeme.LignesJournal.Ardoise();
  ASSERT_FALSE(ardoise.Photos.isEmpty());
  EXPECT_EQ(ardoise.Photos.constFirst().Nom, fin.Meilleure);
  EXPECT_EQ(ardoise.Photos.constFirst().Points, fin.Points);
  EXPECT_EQ(ardoise.Photos.constFirst().Cadre, fin.Cadre);
  EXPECT_EQ(ardoise.Taille, QSize(287, 241));
  EXPECT_EQ(ardoise.Depuis, fin.Depuis);
  EXPECT_LT(ardoise.Jusqua.msecsTo(fin.Depuis.addMSecs(fin.DureeMs)), 1000);
}

TEST_F(JournalDuProgramme, WithoutPhotosOfTheUsersTheSlateNamesTheCopiesForTheCompanions) {
  DonneSite();
  ArmeEtBouge(QStringLiteral("/surve /alarm"), false);
  OuvreLaPage();
  Systeme.Temps.Avance(3000);
  EXPECT_FALSE(Systeme.LignesJournal.Ardoise().Photos.isEmpty());
  Programme->Ferme();
  EXPECT_EQ(Derniere(Fait::kFinIntrusion).Photos, 0) << "which are none of its photos";
}

TEST_F(JournalDuProgramme, APhotoWhoseNameWasTakenIsKnownByTheNameThatItGot) {
  Systeme.Ecrivain.DejaPris = QStringLiteral("b.jpg");
  ArmeEtBouge();
  Programme->Ferme();
  const EntreeJournal fin = Derniere(Fait::kFinIntrusion);
  for (const QString& nom :
       {fin.Premiere, fin.Derniere, fin.Meilleure, Systeme.LignesJournal.Ardoise().Photos.value(0).Nom,
        Systeme.Personnel.Lancements.value(0).value(0)})
    EXPECT_TRUE(nom.endsWith(QStringLiteral("b.jpg"))) << nom.toStdString();
  EXPECT_FALSE(fin.Cadres.isEmpty());
}

TEST_F(JournalDuProgramme, WithPhotosOffMailAndSoundAreAnIntrusionToo) {
  ArmeEtBouge(QStringLiteral("/alarm"), false);
  Programme->Ferme();
  EXPECT_GT(Derniere(Fait::kFinIntrusion).Images, 200);
  EXPECT_EQ(Derniere(Fait::kFinIntrusion).Photos, 0);
}

// A frame in its planes: to make its picture takes as long as all the rest that is done for it.
TEST_F(JournalDuProgramme, AFrameThatNobodyLooksAtIsNotedWithoutMakingItsPicture) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;  // which the program takes
  ArmeEtBouge(QStringLiteral("/alarm"), false);
  for (QWidget* fenetre : QApplication::topLevelWidgets()) fenetre->hide();
  faux::CompteTrames compte;
  pilote.Suivante = [&, image = pilote.Suivante] {
    pilote.SuivanteDifferee = std::make_shared<faux::TrameComptee>(image(), compte);
    return QImage();
  };
  EXPECT_GT(Pendant(3000).Mails, 50);
  EXPECT_EQ(compte.Regardees, 0);
  pilote.Suivante = nullptr;
  pilote.SuivanteDifferee = nullptr;
}

TEST_F(JournalDuProgramme, APhotoThatFailsIsNoneOfItsPhotos) {
  ArmeEtBouge();
  const auto images = [this] {
    Programme->Ferme();
    return Derniere(Fait::kFinIntrusion);
  };
  Systeme.Ecrivain.Erreur = ENOSPC;
  Systeme.Temps.Avance(5000);
  const EntreeJournal fin = images();
  EXPECT_LT(fin.Photos + 100, fin.Images);
  EXPECT_GT(fin.Photos, 200);
}

TEST_F(JournalDuProgramme, ConditionsOfTheWatchAreInIt) {
  Demarre();
  Programme->Sante().Signale(Condition::kReglagesNonSauves, QStringLiteral("no room"));
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Derniere(Fait::kDebutCondition).Mot, QStringLiteral("settings-not-saved"));
  EXPECT_EQ(Derniere(Fait::kDebutCondition).Detail, QStringLiteral("no room"));
  Programme->Sante().Leve(Condition::kReglagesNonSauves);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Derniere(Fait::kFinCondition).Mot, QStringLiteral("settings-not-saved"));
}

TEST_F(JournalDuProgramme, ThePageIsFreshAgainBehindAGapWhileItIsSwitchedOn) {
  DonneSite();
  ArmeEtBouge(QStringLiteral("/surve"));
  OuvreLaPage();
  Programme->Sante().Signale(Condition::kPageAncienne);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Derniere(Fait::kDebutCondition).Mot, QStringLiteral("page-old"));
  EXPECT_EQ(Faits().count(Fait::kPageRetablie), 0);
  Programme->Sante().Leve(Condition::kPageAncienne);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Derniere(Fait::kFinCondition).Mot, QStringLiteral("page-old"));
  EXPECT_EQ(Faits().count(Fait::kPageRetablie), 1);
}

TEST_F(JournalDuProgramme, DisarmedByItsButtonIsALineAndEndsTheIntrusion) {
  ArmeEtBouge();
  Systeme.Temps.Avance(3000);
  QTest::mouseClick(Fenetre("Form1")->findChild<QWidget*>(QStringLiteral("Bouton(1)")), Qt::LeftButton);
  Systeme.Temps.Avance(2000);
  EXPECT_EQ(Faits().mid(1), (QList<Fait>{Fait::kArmee, Fait::kDebutIntrusion, Fait::kFinIntrusion, Fait::kDesarmee}));
}

TEST_F(JournalDuProgramme, TheTimelineOpensByItsKeyAndByTheGallerysButtonAndFollowsWords) {
  DemarreEtMontre();
  EXPECT_EQ(Fenetre("FrmFrise"), nullptr);
  QTest::keyClick(Fenetre("Form1"), Qt::Key_F4);
  ASSERT_NE(Fenetre("FrmFrise"), nullptr);
  EXPECT_TRUE(Fenetre("FrmFrise")->isVisible());
  EXPECT_EQ(Systeme.Chroniques.Dossier, QStringLiteral("/home/u/v\\intrus"));
  EXPECT_EQ(Systeme.Chroniques.Course, QStringLiteral("run"));
  EXPECT_EQ(Fenetre("FrmFrise")->windowTitle(), QStringLiteral("Frise"));
  Fenetre("FrmFrise")->close();
  QTest::mouseClick(Fenetre("Form1")->findChild<QWidget*>(QStringLiteral("BoutonGris(0)")), Qt::LeftButton);
  QTest::mouseClick(Fenetre("FormVisuPhoto")->findChild<QWidget*>(QStringLiteral("CmdFrise")), Qt::LeftButton);
  EXPECT_TRUE(Fenetre("FrmFrise")->isVisible());
  EXPECT_EQ(Systeme.Chroniques.Lectures, 2);
  Programme->Ferme();
  EXPECT_FALSE(Fenetre("FrmFrise")->isVisible());
}

TEST_F(JournalDuProgramme, TheTimelineIsOneOpensFromTheGalleryTooStandsOnTheScreenAndNotBehindTheEnd) {
  DemarreEtMontre();
  QTest::mouseClick(Fenetre("Form1")->findChild<QWidget*>(QStringLiteral("BoutonGris(0)")), Qt::LeftButton);
  QWidget* galerie = Fenetre("FormVisuPhoto");
  galerie->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(galerie));
  QTest::keyClick(galerie, Qt::Key_F4);
  QWidget* frise = Fenetre("FrmFrise");
  ASSERT_NE(frise, nullptr);
  EXPECT_TRUE(frise->isVisible());
  const QRect ecran = frise->screen()->availableGeometry();
  EXPECT_TRUE(ecran.contains(QRect(frise->pos(), frise->size()))) << "as a whole";
  EXPECT_LE((QRect(frise->pos(), frise->size()).center() - ecran.center()).manhattanLength(), 4);
  frise->close();
  Fenetre("Form1")->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(Fenetre("Form1")));
  QTest::keyClick(Fenetre("Form1"), Qt::Key_F4);
  EXPECT_EQ(Fenetre("FrmFrise"), frise);
  EXPECT_TRUE(frise->isVisible());
  Programme->Ferme();
  const int lectures = Systeme.Chroniques.Lectures;
  QTest::mouseClick(galerie->findChild<QWidget*>(QStringLiteral("CmdFrise")), Qt::LeftButton);
  EXPECT_FALSE(frise->isVisible());
  EXPECT_EQ(Systeme.Chroniques.Lectures, lectures);
}

TEST_F(JournalDuProgramme, AnOpenTimelineWearsTheSkinThatIsChosenAndSaysThatLinesAreLost) {
  DemarreEtMontre();
  Systeme.LignesJournal.Panne = ENOSPC;
  QTest::keyClick(Fenetre("Form1"), Qt::Key_F4);
  const QString avant = Fenetre("FrmFrise")->styleSheet();
  EXPECT_TRUE(Fenetre("FrmFrise")
                  ->findChild<QLabel*>(QStringLiteral("LblEtat"))
                  ->text()
                  .contains(QStringLiteral("ne peut pas")));
  Trouve<QComboBox>("CombSkin")->setCurrentIndex(2);
  QCoreApplication::processEvents();
  EXPECT_NE(Fenetre("FrmFrise")->styleSheet(), avant);
}

TEST_F(JournalDuProgramme, AnArmedAlarmIsNoPageThatIsFreshAgain) {
  ArmeEtBouge();
  Programme->Sante().Signale(Condition::kPageAncienne);
  Systeme.Temps.Avance(1000);
  Programme->Sante().Leve(Condition::kPageAncienne);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Derniere(Fait::kFinCondition).Mot, QStringLiteral("page-old"));
  EXPECT_EQ(Faits().count(Fait::kPageRetablie), 0);
}

TEST_F(JournalDuProgramme, ErasingAnIntrusionGoesTheGallerysWayAndALineIsReadSoon) {
  DemarreEtMontre();
  QTest::keyClick(Fenetre("Form1"), Qt::Key_F4);
  Systeme.Photos.AjouteFichier(QStringLiteral("/home/u/v/intrus/a.jpg"));
  Chronique nuit;
  IntrusionVue vue;
  vue.Debut = LitMoment(Systeme.Horloge);
  vue.Dossier = QStringLiteral("/home/u/v\\intrus");
  vue.Photos = {QStringLiteral("a.jpg")};
  nuit.Intrusions.append(vue);
  Systeme.Chroniques.Livre(nuit);
  Systeme.Messages.Reponse = ReponseBoite::kOui;
  auto* cartes = Fenetre("FrmFrise")->findChild<QAbstractItemView*>(QStringLiteral("ListeCartes"));
  cartes->setCurrentIndex(cartes->model()->index(0, 0));
  QTest::keyClick(cartes, Qt::Key_Delete);
  EXPECT_TRUE(Systeme.Messages.Textes.constLast().contains(QStringLiteral("photos de cette intrusion")));
  EXPECT_EQ(Systeme.Photos.Supprimes.size(), 1);
  EXPECT_EQ(Systeme.Chroniques.Lectures, 2);
  Systeme.Chroniques.Livre({});
  Programme->Sante().Signale(Condition::kReglagesNonSauves);
  Systeme.Temps.Avance(1000);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Systeme.Chroniques.Lectures == 3; }, 20'000));
}

TEST_F(JournalDuProgramme, AMailThatWasTakenBeforeTheFirstLookIsInItToo) {
  const QDateTime debut = LitMoment(Systeme.Horloge);
  Systeme.Etats.Etats.Mail = {
      .Poignee = 72, .Attente = {}, .Publie = {}, .Accepte = debut.addSecs(5).toUTC().toString(Qt::ISODate)};
  ArmeEtBouge();
  Systeme.Temps.Avance(qint64{2} * SuiviEnvois::kRegard);
  EXPECT_EQ(Faits().count(Fait::kCourriel), 1);
}

TEST_F(JournalDuProgramme, AMailThatTheServerHasTakenIsInItOnce) {
  ArmeEtBouge();
  Systeme.Etats.Etats.Mail = {.Poignee = 72, .Attente = {}, .Publie = {}, .Accepte = QStringLiteral("yesterday")};
  Systeme.Temps.Avance(SuiviEnvois::kRegard);
  EXPECT_EQ(Faits().count(Fait::kCourriel), 0) << "of an earlier run";
  Systeme.Etats.Etats.Mail.Accepte = QStringLiteral("now");
  Systeme.Temps.Avance(qint64{3} * SuiviEnvois::kRegard);
  EXPECT_EQ(Faits().count(Fait::kCourriel), 1);
}

}  // namespace
}  // namespace vaktor::essai
