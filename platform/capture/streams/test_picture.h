// The built-in picture: a quiet living room in the evening, with a camera's noise, and somebody who walks through.
#pragma once

#include <QImage>
#include <QRect>
#include <vector>

namespace vaktor {

/// The same on every run: a frame depends on its number alone.
class ImageTest {
 public:
  static constexpr int kLargeur = 640;
  static constexpr int kHauteur = 480;
  static constexpr int kCadence = 30;  ///< frames a second
  /// Nothing but noise before this frame: time for the automatic tolerance to come down from the top and settle.
  static constexpr quint64 kPremierPassage = quint64{18} * kCadence;
  static constexpr quint64 kDureePassage = quint64{6} * kCadence;
  static constexpr quint64 kEntrePassages = quint64{20} * kCadence;  ///< from the beginning of one to that of the next
  /// Noise on each channel goes from minus this to plus this; most pixels have none.
  static constexpr int kBruit = 4;

  ImageTest();
  /// Whether somebody is in the room, wholly or in part.
  static bool EstPassage(quint64 numero);
  /// Draws frame `numero` into a Format_RGB32 image of kLargeur by kHauteur, every pixel of it.
  void Dessine(quint64 numero, QImage& image);

 private:
  void MetEnScene(quint64 numero);
  void DessineBruit(quint64 numero, QImage& image) const;

  QImage Piece_;
  QImage Scene_;
  std::vector<quint32> Bruit_;
  QRect Passant_;
};

}  // namespace vaktor
