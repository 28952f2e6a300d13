// SPDX-License-Identifier: GPL-3.0-or-later
// The frame surface: Picture1 of FormMonitor as the rules see it. One frame that everybody shares, and a short list of
// outlines over it. Nothing is ever drawn into the picture, so nothing is ever copied to be drawn on.
#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <array>
#include <functional>

#include "engine/camera_image.h"

namespace vaktor {

inline constexpr QRgb kCouleurContour = qRgb(192, 192, 255);  ///< light blue, foreground colour of the surface

/// An outline as Rectangle draws it: from (gauche, haut) up to but without (droite, bas), edges in any order, one pixel
/// thick. One without width or height shows nothing.
struct Contour {
  qint32 Gauche = 0, Haut = 0, Droite = 0, Bas = 0;
};

/// Owner: the surveillance engine. User-interface thread.
class SurfaceImage {
 public:
  /// Size before the first frame: the design size of the picture box, in pixels.
  static constexpr int kLargeurInitiale = 287;
  static constexpr int kHauteurInitiale = 241;
  /// Outlines that are kept as such, more than a drag asks for between two frames as a rule. Where no frame comes, of
  /// a slow camera or none, the older ones are drawn into Anciens(): all of them stay, and neither memory nor the time
  /// of a repaint grows with the length of the drag.
  static constexpr int kContoursMax = 64;

  /// Puts a new frame on the surface and drops all outlines. A frame of another size changes the surface's size first
  /// and calls the handler of SurTaille. A null one is ignored: the earlier frame goes on.
  void Pose(const ImageCamera& image);
  /// Takes the picture away (camera stopped). The size stays.
  void Retire();
  /// Draws an outline over the picture until the next Pose.
  void Dessine(const Contour& contour);

  /// The whole picture, null while no frame is there. Whoever looks at a frame calls this: its pixels may be made only
  /// now, once for all who look.
  const QImage& Image() const { return Image_.Entiere(); }
  /// The frame, for those who look at it later, or at some of its rows only.
  const ImageCamera& Trame() const { return Image_; }
  QSize Taille() const { return Taille_; }  ///< scale width and height, in pixels
  /// The outlines that came before those below, drawn in kCouleurContour on a transparent picture of the surface's
  /// size; null where there are none.
  const QImage& Anciens() const { return Anciens_; }
  int NombreContours() const { return Nombre_; }
  const Contour& ContourNumero(int i) const { return Contours_.at(static_cast<std::size_t>(i)); }

  /// Called after the size changed, before the picture is shown; after any change of picture or outlines.
  void SurTaille(std::function<void()> fonction) { SurTaille_ = std::move(fonction); }
  void SurChangement(std::function<void()> fonction) { SurChangement_ = std::move(fonction); }

 private:
  void OublieContours();
  void GraveContour(const Contour& contour);

  ImageCamera Image_;
  QSize Taille_{kLargeurInitiale, kHauteurInitiale};
  std::array<Contour, kContoursMax> Contours_{};
  int Nombre_ = 0;
  QImage Anciens_;
  std::function<void()> SurTaille_;
  std::function<void()> SurChangement_;
};

}  // namespace vaktor
