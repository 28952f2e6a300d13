// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the window's skin: its background, and the pages with the background showing through.
#pragma once

#include <QImage>
#include <QRect>

namespace vaktor {

/// Pictures are read anew each time they are asked for: a skin is chosen and a page is shown for the first time so
/// seldom that they would only lie about in between. Owner: Habillage. User-interface thread.
class ImagesSkin {
 public:
  static constexpr int kNombreSkins = 3;

  /// For a window of `taille` whose pages all lie at `placePages`, points, on a screen of `densite` device pixels a
  /// point. The background is plain until a skin is chosen.
  ImagesSkin(QSize taille, const QRect& placePages, double densite);

  /// Any index without a skin keeps the one that shows.
  void Choisit(int index);
  void ChangeDensite(double densite) { Densite_ = densite; }
  double Densite() const { return Densite_; }
  /// Pixels a point that the pictures are drawn at: 1 or 2.
  int Echelle() const;

  QImage ChargeFond() const;
  /// The clean bitmap of PictPage(i).
  QImage ChargePage(std::size_t i) const;
  /// The same with the background showing through.
  QImage MelangePage(std::size_t i) const;

 private:
  const QSize Taille_;
  const QRect PlacePages_;
  double Densite_;
  int Skin_ = -1;  // the skin that shows; -1: the plain background
};

}  // namespace vaktor
