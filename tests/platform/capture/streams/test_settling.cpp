// SPDX-License-Identifier: GPL-3.0-or-later
// The whole detection on the built-in picture: the tolerance finds its place, nobody is seen in an empty room, and the
// first one who walks through is.
#include "engine/engine_fixture.h"
#include "platform/capture/streams/test_picture.h"

namespace vaktor {
namespace {

class Mise : public BancEssai {
 protected:
  Mise() {
    Pilote.Suivante = [this] {
      const auto numero = static_cast<quint64>(Temps.Maintenant()) * ImageTest::kCadence / 1000;
      QImage image(ImageTest::kLargeur, ImageTest::kHauteur, QImage::Format_RGB32);
      Source.Dessine(numero, image);
      return image;
    };
  }
  /// Until frame `numero` is the one that is shown.
  void AvanceJusqua(quint64 numero) {
    while (static_cast<quint64>(Temps.Maintenant()) < numero * 1000 / ImageTest::kCadence) Temps.Avance(100);
  }
  ImageTest Source;
};

TEST_F(Mise, ToleranceSettlesBeforeTheFirstWalkerAndShowsNobodyElse) {
  Reglages.PhotoActif = true;
  Engin.BasculeAlarme();
  AvanceJusqua(ImageTest::kPremierPassage / 2);
  EXPECT_EQ(Detection().PasSeuil, 1000) << "the coarse search is over";
  AvanceJusqua(ImageTest::kPremierPassage - 1);
  EXPECT_TRUE(Engin.Alarme().AlarmeArmee);
  EXPECT_LT(Reglages.SeuilDetection, 1'000'000);
  EXPECT_EQ(Actions.Photos, 0);
  AvanceJusqua(ImageTest::kPremierPassage + ImageTest::kDureePassage / 2);
  EXPECT_GT(Actions.Photos, 20);
}

}  // namespace
}  // namespace vaktor
