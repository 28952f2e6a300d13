// SPDX-License-Identifier: GPL-3.0-or-later
// The player of an intrusion and its film, by hand.
#include "journal/timeline_bench.h"

namespace vaktor::essai {
namespace {

class FriseLecteur : public BancFrise {
 protected:
  FrmLecture& Joue(qsizetype intrusion) {
    Cartes().MontreChoix(intrusion);
    BancFrise::Clique("CmdRegarder");
    return *Fenetre.Lecteur();
  }
  template <typename T = QWidget>
  T* Piece(const char* nom) {
    return Fenetre.Lecteur()->findChild<T*>(QLatin1String(nom));
  }
  void CliquePiece(const char* nom) { QTest::mouseClick(Piece(nom), Qt::LeftButton, {}, {8, 8}); }
  EcranLecture& Ecran() { return *static_cast<EcranLecture*>(Piece("EcranLecture")); }
  QString Chemin(qsizetype intrusion, qsizetype photo) {
    return QStringLiteral("/p\\") + Nuit.Intrusions[intrusion].Photos[photo];
  }
};

TEST_F(FriseLecteur, PlaysAtTheChosenSpeedAndTheNextFilmToo) {
  Ouvre();
  FrmLecture& lecteur = Joue(2);
  EXPECT_EQ(lecteur.Film().Vitesse(), 1);
  EXPECT_TRUE(Piece<QPushButton>("CmdVitesse(1)")->isChecked());
  EXPECT_TRUE(lecteur.Film().Joue());
  CliquePiece("CmdVitesse(0)");
  EXPECT_EQ(lecteur.Film().Vitesse(), 0.5);
  Joue(1);
  EXPECT_EQ(lecteur.Film().Vitesse(), 0.5);
  EXPECT_TRUE(Piece<QPushButton>("CmdVitesse(0)")->isChecked());
}

TEST_F(FriseLecteur, TheNextFilmBeginsWithItsOwnPhoto) {
  Ouvre();
  Joue(2);
  EXPECT_EQ(Photos.Lues.last(), Chemin(2, 0));
  Joue(1);
  EXPECT_EQ(Photos.Lues.last(), Chemin(1, 0));
}

TEST_F(FriseLecteur, TheSliderHasAPlaceForEachPhotoAndFollowsTheFilm) {
  Ouvre();
  FrmLecture& lecteur = Joue(2);
  auto* position = Piece<QSlider>("Position");
  EXPECT_EQ(position->maximum(), 3);
  QTest::keyClick(&lecteur, Qt::Key_Right);
  QTest::keyClick(&lecteur, Qt::Key_Right);
  EXPECT_EQ(lecteur.Film().Index(), position->value());
  QTest::keyClick(&lecteur, Qt::Key_End);
  EXPECT_EQ(position->value(), 3);
  QTest::keyClick(&lecteur, Qt::Key_Home);
  EXPECT_EQ(position->value(), 0);
  EXPECT_EQ(lecteur.Film().Index(), 0);
  QTest::keyClick(&lecteur, Qt::Key_Right);
  EXPECT_EQ(lecteur.Film().Index(), 1);
  QTest::keyClick(&lecteur, Qt::Key_Left);
  EXPECT_EQ(lecteur.Film().Index(), 0);
}

TEST_F(FriseLecteur, APhotoThatIsLateIsSaidAndShownWhenItComesAndTheNewestIsAskedForThen) {
  Ouvre();
  Photos.Retient = true;
  FrmLecture& lecteur = Joue(2);
  CliquePiece("CmdLecture");
  QTest::keyClick(&lecteur, Qt::Key_Home);
  EXPECT_EQ(Photos.Lues.size(), 1);
  Photos.Tarde();
  EXPECT_TRUE(Ecran().Image().isNull());
  EXPECT_FALSE(Ecran().accessibleDescription().isEmpty());
  QTest::keyClick(&lecteur, Qt::Key_Right);
  QTest::keyClick(&lecteur, Qt::Key_Right);
  EXPECT_EQ(Photos.Lues.size(), 1) << "one at a time";
  Photos.Livre();
  EXPECT_FALSE(Ecran().Image().isNull());
  ASSERT_EQ(Photos.Lues.size(), 2);
  EXPECT_EQ(Photos.Lues.last(), Chemin(2, 2)) << "those between are passed over";
}

TEST_F(FriseLecteur, ClosedItReadsNoMoreAlsoWhenItsTimelineCloses) {
  Ouvre();
  Photos.Retient = true;
  FrmLecture& lecteur = Joue(2);
  EXPECT_TRUE(Photos.Attend());
  CliquePiece("CmdFermerLecture");
  EXPECT_FALSE(lecteur.isVisible());
  EXPECT_FALSE(Photos.Attend());
  Joue(2);
  EXPECT_TRUE(Photos.Attend());
  Fenetre.close();
  EXPECT_FALSE(lecteur.isVisible());
  EXPECT_FALSE(Photos.Attend());
}

TEST_F(FriseLecteur, SpaceOnTheBoxTicksItAndOnAnyOtherControlItPlays) {
  Ouvre();
  FrmLecture& lecteur = Joue(2);
  QTest::keyClick(Piece("ChkCadre"), Qt::Key_Space);
  EXPECT_FALSE(Piece<QCheckBox>("ChkCadre")->isChecked());
  EXPECT_TRUE(lecteur.Film().Joue());
  QTest::keyClick(Piece("Position"), Qt::Key_Space);
  EXPECT_FALSE(lecteur.Film().Joue());
}

// --- The film

TEST_F(FriseLecteur, ItsSaveButtonSavesWhatItPlaysWhateverTheTimelineHasChosenMeanwhile) {
  Ouvre();
  Dialogue.Reponse = QStringLiteral("/home/u/night.mkv");
  Joue(2);
  Cartes().MontreChoix(1);
  CliquePiece("CmdEnregistrerFilm");
  ASSERT_EQ(Films.Films.size(), 1);
  EXPECT_EQ(Films.Films[0].Chemins.first(), Chemin(2, 0));
}

TEST_F(FriseLecteur, OneFilmAtATimeAndTheNextOneBehindIt) {
  Ouvre();
  Dialogue.Reponse = QStringLiteral("/home/u/night.mkv");
  Joue(2);
  CliquePiece("CmdEnregistrerFilm");
  CliquePiece("CmdEnregistrerFilm");
  EXPECT_EQ(Films.Films.size(), 1);
  auto& enregistrer = BancFrise::Trouve<QAbstractButton>("CmdEnregistrer");
  EXPECT_FALSE(enregistrer.isEnabled());
  Cartes().MontreChoix(1);
  EXPECT_FALSE(enregistrer.isEnabled());
  const QString progres = QStringLiteral("FrmFilm");
  const auto cherche = [&] {
    QWidget* trouve = Fenetre.findChild<QWidget*>(progres);
    return trouve != nullptr ? trouve : Fenetre.Lecteur()->findChild<QWidget*>(progres);
  };
  ASSERT_NE(cherche(), nullptr);
  Films.Finit({.Etat = EtatFilm::kFait});
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(cherche(), nullptr) << "its progress goes with it";
  EXPECT_TRUE(enregistrer.isEnabled());
  CliquePiece("CmdEnregistrerFilm");
  EXPECT_EQ(Films.Films.size(), 2);
  Films.Finit({.Etat = EtatFilm::kFait});
}

TEST_F(FriseLecteur, AFilmGoesWithItsWindow) {
  {
    SauvegardeFilm sauvegarde(Films, Dialogue, Boites);
    Dialogue.Reponse = QStringLiteral("/home/u/night.mkv");
    sauvegarde.Enregistre(&Fenetre, Nuit.Intrusions[2], Langue::kAnglais);
    EXPECT_TRUE(Films.EnCours());
  }
  EXPECT_EQ(Films.Annulations, 1);
  EXPECT_FALSE(Films.EnCours());
}

TEST_F(FriseLecteur, TheNameOfTheFileSaysTheFormatAsFarAsItCanBeMade) {
  const IntrusionVue& vue = Nuit.Intrusions[2];
  EXPECT_EQ(ComposeFilm(vue, "/f.mp4", true).Format, FormatFilm::kMp4);
  EXPECT_EQ(ComposeFilm(vue, "/f.MP4", true).Sortie, "/f.MP4");
  EXPECT_EQ(ComposeFilm(vue, "/f.mp4", false).Format, FormatFilm::kMatroska);
  EXPECT_EQ(ComposeFilm(vue, "/f.mp4", false).Sortie, "/f.mp4.mkv");
  EXPECT_EQ(ComposeFilm(vue, "/f.MKV", true).Sortie, "/f.MKV");
  EXPECT_EQ(ComposeFilm(vue, "/f", true).Sortie, "/f.mkv");
}

}  // namespace
}  // namespace vaktor::essai
