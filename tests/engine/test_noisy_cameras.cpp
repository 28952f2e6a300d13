// SPDX-License-Identifier: GPL-3.0-or-later
// The automatic tolerance with cameras of any rate, whose pictures carry a sensor's noise: armed as early as a user
// can, nobody is seen in an empty room, and after the search somebody who stays for five seconds is.
#include "engine/noisy_camera.h"

#include <gtest/gtest.h>

namespace vaktor {
namespace {

constexpr qint64 kCinqMinutesMs = 300'000;

struct Cas {
  double Cadence;
  double Bruit;
  QSize Taille;
};

/// One camera from the click on the alarm button on.
class Piece {
 public:
  Piece(const Cas& cas, qint32 retard, quint32 graine) : Camera_(Banc_, cas.Cadence, cas.Taille, {cas.Bruit, graine}) {
    Banc_.Temps.PeriodeMinimale = 10;  // the fastest that the real timers tick
    Banc_.Engin.ChangeRetard(retard);
    Banc_.Reglages.PhotoActif = true;
    Banc_.Temps.Avance(7);
    Debut_ = Banc_.Horloge.Millisecondes;
    Banc_.Engin.BasculeAlarme();
  }
  void ResteVide() {
    while (Depuis() < kCinqMinutesMs) {
      Banc_.Temps.Avance(100);
      if (Recherche == 0 && Banc_.Engin.Detection().PasSeuil == 1000) Recherche = Depuis();
    }
    Fausses = Banc_.Actions.Photos;
  }
  void RecoitQuelquun() {
    Camera_.Quelquun = true;
    Banc_.Temps.Avance(5000);
    Camera_.Quelquun = false;
    Vraies = Banc_.Actions.Photos - Fausses;
  }

  qint64 Recherche = 0;  ///< ms until the first change was seen
  qint32 Fausses = 0, Vraies = 0;
  qint32 Images() const { return Camera_.Images; }

 private:
  qint64 Depuis() const { return Banc_.Horloge.Millisecondes - Debut_; }
  faux::BancSurveillance Banc_;
  CameraBruyante Camera_;
  qint64 Debut_ = 0;
};

class CamerasBruyantes : public testing::TestWithParam<Cas> {
 protected:
  /// What the manual says of the time that the search takes, in virtual ms.
  static qint64 Borne(double cadence) {
    if (cadence >= 30) return 11'000;
    if (cadence >= 10) return 16'000;
    return cadence >= 3 ? 31'000 : 90'000;
  }
  static void Regarde(qint32 retard, quint32 graine) {
    const Cas& cas = GetParam();
    Piece piece(cas, retard, graine);
    piece.ResteVide();
    EXPECT_GE(piece.Images(), static_cast<qint32>(cas.Cadence * 299));
    EXPECT_EQ(piece.Fausses, 0) << "delay " << retard << ", seed " << graine;
    EXPECT_GT(piece.Recherche, 2000) << "the search is over";
    EXPECT_LT(piece.Recherche, Borne(cas.Cadence));
    piece.RecoitQuelquun();
    EXPECT_GT(piece.Vraies, 0) << "delay " << retard << ", seed " << graine;
  }
};

TEST_P(CamerasBruyantes, AlarmNobodyAndSeeWhoIsThere) {
  Regarde(0, 1);
  Regarde(10, 2);
}

#ifdef VAKTOR_LONGUE_DUREE
TEST_P(CamerasBruyantes, WithOtherSeedsToo) {
  for (quint32 graine = 3; graine < 7; ++graine) Regarde(graine % 2 == 0 ? 0 : 10, graine);
}
#endif

std::vector<Cas> Tous(const std::vector<double>& bruits, const std::vector<QSize>& tailles) {
  std::vector<Cas> tous;
  for (const QSize& taille : tailles)
    for (const double bruit : bruits)
      for (const double cadence : {1.0, 2.0, 3.0, 5.0, 10.0, 30.0}) tous.push_back({cadence, bruit, taille});
  return tous;
}

std::string Nom(const testing::TestParamInfo<Cas>& cas) {
  return QStringLiteral("%1fps_%2x%3_noise%4")
      .arg(cas.param.Cadence)
      .arg(cas.param.Taille.width())
      .arg(cas.param.Taille.height())
      .arg(qRound(cas.param.Bruit * 10))
      .toStdString();
}

#ifdef VAKTOR_LONGUE_DUREE
INSTANTIATE_TEST_SUITE_P(, CamerasBruyantes,
                         testing::ValuesIn(Tous({1.0, 1.5, 2.0, 3.0, 5.0, 8.0},
                                                {QSize(160, 120), QSize(320, 240), QSize(640, 480)})),
                         Nom);
#else
INSTANTIATE_TEST_SUITE_P(, CamerasBruyantes, testing::ValuesIn(Tous({2.0}, {QSize(160, 120)})), Nom);
#endif

}  // namespace
}  // namespace vaktor
