// SPDX-License-Identifier: GPL-3.0-or-later
// The gallery's rules over the real readers, on a disk that stops answering: the window's thread is never held, and
// everything is told.
#include <QDir>
#include <QElapsedTimer>
#include <QTimer>

#include "image/gallery_rules_fixture.h"
#include "platform/folders/photo_file_eraser.h"
#include "platform/folders/photo_file_reader.h"
#include "platform/folders/photo_names_reader.h"
#include "support/dead_disk.h"
#include "support/event_wait.h"
#include "support/small_disk.h"

namespace vaktor {
namespace {

using namespace std::chrono_literals;

PhotoLue Decode(const QString& chemin) {
  QFile fichier(QString(chemin).replace(u'\\', u'/'));
  if (!fichier.open(QIODevice::ReadOnly)) return {.Etat = EtatPhoto::kAbsente};
  return {.Etat = EtatPhoto::kLue, .Image = QImage(4, 3, QImage::Format_RGB32)};
}

/// The longest time that the thread of the window was away from its events.
class Battement {
 public:
  Battement() {
    QObject::connect(&Tic_, &QTimer::timeout, &Tic_, [this] { Pire_ = std::max(Pire_, Depuis_.restart()); });
    Depuis_.start();
    Tic_.start(10);
  }
  qint64 Pire() const { return std::max(Pire_, Depuis_.elapsed()); }

 private:
  QTimer Tic_;
  QElapsedTimer Depuis_;
  qint64 Pire_ = 0;
};

class GalerieSurDisque : public faux::ReglesGalerie {
 protected:
  void Pose(const QString& dossier) {
    ASSERT_TRUE(QDir().mkdir(dossier));
    for (const char* nom : {"a.jpg", "b.jpg", "c.jpg"}) {
      QFile fichier(dossier + u'/' + QLatin1String(nom));
      ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    }
  }
  bool Attend(const std::function<bool()>& condition) { return essai::AttendQue(condition); }

  LecteurNomsSysteme NomsReels{300ms};
  LecteurPhotosSysteme LecteurReel{Decode, 100ms};
  EffaceurPhotosSysteme EffaceurReel{100ms};
  GaleriePhotos Reelle{
      PortsGalerie{Reglages, Dossiers, Etat, Sauvegarde, Textes, NomsReels, LecteurReel, EffaceurReel, Boites, Bureau}};
};

TEST_F(GalerieSurDisque, ClickKeyDeletionAndOpeningOnADeadDiskHoldNothingUp) {
  const PetitDisque petit(1024 * 1024);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  const QString dossier = petit.Chemin() + QStringLiteral("/photos");
  Pose(dossier);
  Reglages.RepertoirePhoto = dossier;
  Reelle.Relie(Vue);
  Reelle.OuvreGalerie();
  ASSERT_TRUE(Attend([this] { return Vue.Appels.contains(QStringLiteral("montre")); }));
  DisqueMort mort(dossier);
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  const Battement battement;

  Reelle.ChoisitIndex(1);
  Reelle.Clique();
  ASSERT_TRUE(Attend([this] { return Vue.Avis.contains(QStringLiteral("does not answer")); }));
  Reelle.SupprimePhoto();
  ASSERT_TRUE(Attend([this] { return Boites.Textes.size() == 2; }));
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("\"b.jpg\""))) << Boites.Textes.last().toStdString();
  Reelle.SupprimeTout();
  ASSERT_TRUE(Attend([this] { return Boites.Textes.size() == 4; })) << "its list, too, does not come";
  EXPECT_TRUE(Boites.Textes.last().contains(QStringLiteral("\"c.jpg\"")));
  Vue.Appels.clear();
  Reelle.OuvreGalerie();
  ASSERT_TRUE(Attend([this] { return Vue.Appels.contains(QStringLiteral("montre")); }));
  EXPECT_TRUE(Vue.Avis.contains(dossier));
  EXPECT_EQ(Reglages.RepertoirePhoto, dossier);
  EXPECT_LT(battement.Pire(), 2000);

  mort.Reveille();
  Reelle.Rafraichit();
  ASSERT_TRUE(Attend([this] { return Vue.Liste.size() == 3; })) << "nothing was lost, and the list can be used again";
  Reelle.ChoisitIndex(2);
  Reelle.Clique();
  ASSERT_TRUE(Attend([this] { return !Vue.Photo.isNull(); }));
  Reelle.SupprimeTout();
  ASSERT_TRUE(Attend([this] { return Vue.Liste.isEmpty(); }));
  EXPECT_TRUE(QDir(dossier).isEmpty());
  Reelle.Delie();
}

}  // namespace
}  // namespace vaktor
