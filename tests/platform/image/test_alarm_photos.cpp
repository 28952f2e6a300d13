// SPDX-License-Identifier: GPL-3.0-or-later
// From the tick to the file: the engine and the photo recorder together, on a folder that goes away while armed.
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "fakes/surveillance_bench.h"
#include "image/photo_recorder.h"
#include "platform/base/system_files.h"
#include "platform/image/turbo_jpeg_encoder.h"
#include "support/small_disk.h"

namespace vaktor {
namespace {

/// Time and camera are the test's, everything from the tick down to the disk is real.
class PhotosDAlarme : public testing::Test, public faux::BancSurveillance {
 protected:
  PhotosDAlarme() {
    Actions.PendantPhoto = [this] { Photographe.EnregistrePhoto(); };
    Reglages.RepertoirePhoto = Temporaire.path() + QStringLiteral("\\intrus");
    Reglages.PhotoActif = true;
    Reglages.SonActif = true;
    Reglages.SeuilAuto = false;
    Reglages.SeuilDetection = 1000;
    EXPECT_TRUE(Disque.CreeDossier(Reglages.RepertoirePhoto));
    Photographe.FixeDateJour();
    Engin.BasculeCamera();
    Trame(Qt::black);
    Engin.BasculeAlarme();
    for (int i = 0; i < 60 && !Engin.Alarme().AlarmeArmee; ++i) Temps.Avance(1000);
    Trame(Qt::black);
  }
  void Trame(const QColor& couleur) {
    QImage image(640, 480, QImage::Format_RGB32);  // 34,240 samples: ten such frames fill the table
    image.fill(couleur);
    Pilote.Image = image;
    Temps.Declenche(QStringLiteral("Timer1"));
  }
  /// So many frames, each of them wholly changed.
  void Bouge(int trames) {
    for (int i = 0; i < trames; ++i) {
      Clair_ = !Clair_;
      Trame(Clair_ ? Qt::blue : Qt::black);
    }
  }
  QStringList Photos() const {
    return QDir(CheminNatif(Reglages.RepertoirePhoto)).entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name);
  }

  QTemporaryDir Temporaire;
  FichiersSysteme Disque;
  EncodeurTurboJpeg Encodeur;
  EcrivainJpegFichier Ecrivain{Encodeur, Disque};
  DossiersProgramme Dossiers{Temporaire.path(), Temporaire.path()};
  EnregistreurPhotos Photographe{
      {Reglages, Dossiers, Engin.Surface(), Horloge, Ecrivain, Disque, [] { return false; }, Sante}};

 private:
  bool Clair_ = false;
};

TEST_F(PhotosDAlarme, FolderThatVanishesWhileArmedCostsThePhotosItCostsAndNoLaterOne) {
  ASSERT_TRUE(Engin.Alarme().AlarmeArmee);
  Bouge(2);
  EXPECT_EQ(Photos().size(), 2);
  EXPECT_EQ(Actions.Sons, 2);
  const qint32 compteurs = Affichage.NombreCompteurs;
  ASSERT_TRUE(QDir(CheminNatif(Reglages.RepertoirePhoto)).removeRecursively());
  Bouge(25);  // more than the table holds, were the index left behind a frame that failed
  EXPECT_EQ(Actions.Photos, 27) << "each frame tries again";
  EXPECT_EQ(Actions.Sons, 2) << "a frame that fails sends nothing";
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs) << "the labels stand still";
  EXPECT_FALSE(Disque.Existe(Reglages.RepertoirePhoto)) << "nobody makes the folder again behind the user's back";
  EXPECT_TRUE(Engin.Alarme().AlarmeArmee);
  ASSERT_TRUE(Disque.CreeDossier(Reglages.RepertoirePhoto));
  Bouge(3);
  EXPECT_EQ(Photos().size(), 3);
  EXPECT_TRUE(Photos().first().endsWith(QStringLiteral(" Photo 00028.jpg"))) << "the numbers used stay used";
  EXPECT_EQ(Actions.Sons, 5);
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 3);
}

TEST_F(PhotosDAlarme, AnAlarmWhoseDiskIsFullIsHeardAfterASecondAndRecordedAgainWhenThereIsRoom) {
  const PetitDisque petit(64 * 1024);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  const QString gros = petit.Chemin() + QStringLiteral("/gros");
  ASSERT_EQ(Disque.EcritFichier(gros, QByteArray(100'000, 'g')), ENOSPC);
  Reglages.RepertoirePhoto = petit.Chemin();
  const auto bouge = [this](int trames) {
    for (int i = 0; i < trames; ++i) {
      Bouge(1);
      Horloge.Millisecondes += 50;
    }
  };
  bouge(20);
  EXPECT_EQ(Actions.Sons, 0);
  const qint32 compteurs = Affichage.NombreCompteurs;
  bouge(40);
  EXPECT_EQ(Actions.Sons, 40);
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 40) << "the labels go on too";
  EXPECT_EQ(Sante.Details.value(Condition::kPhotosImpossibles),
            petit.Chemin() + QStringLiteral(" : le disque est plein"));
  const auto photos = [&] { return QDir(petit.Chemin()).entryList({QStringLiteral("*.jpg")}, QDir::Files).size(); };
  const qsizetype restes = photos();
  EXPECT_LE(restes, 23) << "a second of them, and then one a second, cut short as the disk left them";
  ASSERT_TRUE(Disque.Supprime(gros));
  bouge(20);
  const qsizetype entre = photos();
  EXPECT_FALSE(Sante.Dure(Condition::kPhotosImpossibles));
  bouge(1);
  EXPECT_EQ(photos(), entre + 1);
  EXPECT_EQ(Actions.Photos, 81) << "the recorder was called for each frame";
}

TEST_F(PhotosDAlarme, AnotherFolderTakesTheNextPhoto) {
  Bouge(1);
  const QString autre = Temporaire.path() + QStringLiteral("/autre");  // as the folder chooser gives it
  ASSERT_TRUE(Disque.CreeDossier(autre));
  const QStringList avant = Photos();
  const QString ancien = std::exchange(Reglages.RepertoirePhoto, autre);
  Bouge(2);
  EXPECT_EQ(Photos().size(), 2);
  EXPECT_EQ(QDir(CheminNatif(ancien)).entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name), avant)
      << "photos taken stay where they are";
}

}  // namespace
}  // namespace vaktor
