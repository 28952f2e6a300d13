// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of an alarm in the whole program when its photos cannot be written.
#include "app/alarm_fixture.h"

#include <cerrno>

namespace vaktor::essai {
namespace {

class PhotosDuProgramme : public AlarmeSurFaux {
 protected:
  static SigneSante* Signe() { return Trouve<SigneSante>("SigneSante"); }
};

TEST_F(PhotosDuProgramme, AFullDiskSilencesTheAlarmForASecondAndNoLonger) {
  ArmeEtBouge();
  const Actes avant = Pendant(3000);
  ASSERT_GE(avant.Photos, 90) << "somebody moves and is recorded";
  ASSERT_GE(avant.Sons, 90);
  Systeme.Ecrivain.Erreur = ENOSPC;
  const Actes seconde = Pendant(990);
  EXPECT_GE(seconde.Photos, 30) << "every frame tries";
  EXPECT_EQ(seconde.Mails + seconde.Sons, 0);
  Pendant(60);
  const Actes apres = Pendant(9000);
  EXPECT_GE(apres.Mails, 290) << "it is mailed about";
  EXPECT_GE(apres.Sons, 290) << "and heard";
  EXPECT_GE(apres.Photos, 8);
  EXPECT_LE(apres.Photos, 10) << "the disk is asked once a second";
  Systeme.Ecrivain.Erreur = 0;
  Pendant(1000);
  EXPECT_GE(Pendant(3000).Photos, 90) << "there is room again";
}

TEST_F(PhotosDuProgramme, WithNobodyArmedTheDiskOfThePhotosIsLeftAsleep) {
  Systeme.Valeurs.insert(QStringLiteral("PHOTO/actif"), QStringLiteral("1"));
  Demarre();
  Systeme.Sonde.Demandes.clear();
  Systeme.Temps.Avance(180'000);
  EXPECT_TRUE(Systeme.Sonde.Demandes.isEmpty()) << Systeme.Sonde.Demandes.join(u' ').toStdString();
}

TEST_F(PhotosDuProgramme, WhileTheAlarmIsArmedTheRoomOfTheirDiskIsAskedFor) {
  ArmeEtBouge();
  Systeme.Sonde.Demandes.clear();
  Systeme.Temps.Avance(70'000);
  EXPECT_FALSE(Systeme.Sonde.Demandes.isEmpty());
}

/// Armed, with the live page and the sound on and photos off, and somebody who moves.
class PageDuProgramme : public PhotosDuProgramme {
 protected:
  void ArmeAvecPage() {
    DonneSite();
    Systeme.Valeurs.insert("FTP/refresh", "0.5");
    ArmeEtBouge(QStringLiteral("/alarm /surve"), false);
    OuvreLaPage();
  }
};

// Its connection goes with it; what happens until the next one has one must not be lost to the site.
TEST_F(PageDuProgramme, PhotosForTheSiteAreKeptWhileItsCompanionIsAway) {
  ArmeAvecPage();
  Systeme.Temps.Avance(300);
  EXPECT_FALSE(Systeme.DepuisVide().filter(QStringLiteral("/Temp/FTP/")).isEmpty());
  Systeme.Programmes.Finit(QStringLiteral("/opt/v/VAKTORftp"));
  Systeme.Notes.Vide();
  Systeme.Temps.Avance(300);
  EXPECT_FALSE(Systeme.DepuisVide().filter(QStringLiteral("/Temp/FTP/")).isEmpty());
}

// Each of its frames is due for the page, and the page is written before anything is compared.
TEST_F(PageDuProgramme, AFullDiskDoesNotMakeACameraOfAFrameASecondDeafAndBlind) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  ArmeAvecPage();
  pilote.ParArrivee = true;
  Systeme.Temps.Avance(1000);
  Systeme.Ecrivain.Erreur = ENOSPC;
  const auto seconde = [&] {
    pilote.Arrive();
    return Pendant(1000).Sons;
  };
  EXPECT_EQ(seconde(), 0);
  seconde();  // looks like the last one that was compared: the one in between was not
  seconde();  // the copy for the site fails for the first time, and has its second too
  for (int i = 0; i < 10; ++i) EXPECT_EQ(seconde(), 1) << i;
}

TEST_F(PageDuProgramme, WithoutThePageNoPhotoIsKeptForTheSite) {
  ArmeEtBouge();
  Systeme.Temps.Avance(1000);
  const QStringList vus = Systeme.DepuisVide();
  EXPECT_FALSE(vus.filter(QStringLiteral("jpeg: ")).isEmpty());
  EXPECT_TRUE(vus.filter(QStringLiteral("/Temp/FTP/")).isEmpty());
}

// The companion keeps to its bounds by itself; nobody else does while it is away.
TEST_F(PageDuProgramme, AFullFolderForTheSiteTakesNoMoreWhileItsCompanionIsAway) {
  ArmeAvecPage();
  Systeme.Mesureur.Taille = TailleDossier{SecondesCopies::kNombreMax, 1000};
  Systeme.Temps.Avance(300);
  EXPECT_FALSE(Systeme.DepuisVide().filter(QStringLiteral("/Temp/FTP/")).isEmpty());
  EXPECT_TRUE(Systeme.Mesureur.Demandes.isEmpty());
  Systeme.Programmes.Finit(QStringLiteral("/opt/v/VAKTORftp"));
  Systeme.Notes.Vide();
  Systeme.Temps.Avance(300);
  EXPECT_TRUE(Systeme.DepuisVide().filter(QStringLiteral("/Temp/FTP/")).isEmpty());
  EXPECT_EQ(Systeme.Mesureur.Demandes, QStringList(QStringLiteral("/home/u/v/Temp/FTP")));
}

TEST_F(PhotosDuProgramme, PhotosThatWereLostBehindTheirWritingStandInTheSign) {
  DemarreJusquALaFenetre();
  InscritCompagnons();
  Systeme.Pertes.AVenir = {{.Dossier = QStringLiteral("/media/usb"), .Erreur = EIO}};
  Systeme.Temps.Avance(3000);
  EXPECT_TRUE(Signe()->isVisible());
  EXPECT_TRUE(Signe()->toolTip().contains(QStringLiteral("/media/usb"))) << Signe()->toolTip().toStdString();
}

// A photo tells that the disk is full; with nobody who moves only a trial can tell that it has room again.
TEST_F(PhotosDuProgramme, AFolderThatTakesFilesAgainIsFoundOutWithoutAPhoto) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  ArmeEtBouge();
  InscritCompagnons();
  Systeme.Ecrivain.Erreur = ENOSPC;
  Systeme.Temps.Avance(3000);
  ASSERT_TRUE(Signe()->isVisible());
  pilote.Suivante = nullptr;
  Systeme.Temps.Avance(130'000);
  ASSERT_FALSE(Systeme.EssaiPhotos.Essayes.isEmpty());
  EXPECT_TRUE(Signe()->isVisible());
  Systeme.EssaiPhotos.Repond(Systeme.EssaiPhotos.Essayes.last(), true);
  Systeme.Temps.Avance(2000);
  EXPECT_FALSE(Signe()->isVisible()) << Signe()->toolTip().toStdString();
}

TEST_F(PhotosDuProgramme, TheRoomOnTheDiskOfThePhotosIsAskedOnceAMinuteWhileArmed) {
  ArmeEtBouge();
  const qsizetype avant = Systeme.Sonde.Demandes.size();
  EXPECT_EQ(avant, 1) << "at once";
  Systeme.Temps.Avance(180'000);
  EXPECT_EQ(Systeme.Sonde.Demandes.size(), avant + 3);
  EXPECT_EQ(Systeme.Sonde.Demandes.last(), QStringLiteral("/home/u/v\\intrus"));
}

}  // namespace
}  // namespace vaktor::essai
