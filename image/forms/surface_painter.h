// SPDX-License-Identifier: GPL-3.0-or-later
// Paints a frame with its outlines. The three views of a frame (monitor, enlarged view, small view) share it, so that
// an outline looks the same in all of them.
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <QRegion>
#include <vector>

#include "engine/frame_surface.h"

namespace vaktor {

/// A frame with its outlines as they stood at one moment. The frame is shared, not copied, and nothing of it is made
/// before it is painted.
struct CopieSurface {
  ImageCamera Image;
  QSize Taille;
  QImage Anciens;  ///< the outlines that came before Contours, null where there are none
  std::vector<Contour> Contours;

  /// Takes over what the surface shows now.
  void Prend(const SurfaceImage& surface);
};

/// Paints the picture (black where there is none) and the outlines in pixels of the frame, from (0, 0) on, through
/// whatever transformation `peintre` carries.
void PeintSurface(QPainter& peintre, const CopieSurface& copie);
/// The same of the part `ou` at the least, in pixels of the frame: what is painted now, as a widget is told it, of one
/// that begins where the frame does. Without a transformation the pixels go straight into the memory of the window.
void PeintSurface(QPainter& peintre, const SurfaceImage& surface, const QRegion& ou);

/// Stretches a part of the frame with its outlines over `cible`. A negative width takes the part that ends with the
/// column `source.x()` and mirrors it; a negative height likewise. What lies outside the frame comes out black. A width
/// or height of zero paints nothing. `lignes`: memory that is used again the next time, to be kept for it.
void EtireSurface(QPainter& peintre, const QRect& cible, const CopieSurface& surface, const QRect& source,
                  QImage& lignes);

}  // namespace vaktor
