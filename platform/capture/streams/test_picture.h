// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in picture: a quiet living room in the evening, with a camera's noise, and somebody who walks through.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>
#include <condition_variable>
#include <mutex>
#include <vector>

#include "platform/capture/frames/newest_frame.h"
#include "platform/capture/frames/plane_frame.h"
#include "platform/capture/streams/frame_stream.h"

namespace vaktor {

/// A living room in the evening, 640 by 480, Format_RGB32. Every channel stays away from 0 and 255, so that noise can
/// be added without a limit.
QImage DessinePiece();

/// Somebody on foot, with the feet at (x, y). `phase`: the step, one double step from 0 to 1. `sens`: 1 walks to the
/// right, -1 to the left. The shirt is far brighter in blue than anything in the room: blue decides in the detection.
void DessinePassant(QPainter& peintre, double x, double y, double phase, int sens);

/// What DessinePassant may touch.
QRect CadrePassant(double x, double y);

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

/// Its frames come on the thread that watches it.
class FluxTest : public FluxImages {
 public:
  explicit FluxTest(DerniereImage& derniere) : Derniere_(derniere) {}

  bool Ouvre() override;
  Etat Surveille(const std::stop_token& arret, std::chrono::milliseconds delai) override;

 private:
  void Livre();

  DerniereImage& Derniere_;
  ImageTest Image_;
  ReserveImages Reserve_;
  quint64 Numero_ = 0;
  DerniereImage::Horloge::time_point Prochaine_{};
  std::mutex Verrou_;
  std::condition_variable_any Reveil_;
};

}  // namespace vaktor
