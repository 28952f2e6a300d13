// SPDX-License-Identifier: GPL-3.0-or-later
// VueReduite: the small video view Picture2, zoom or pixel.
#pragma once

#include <QImage>

#include "image/forms/surface_painter.h"
#include "ui/common/menu_view.h"

namespace vaktor {

/// Black until told otherwise. User-interface thread.
class VueReduite : public VueAMenu {
  Q_OBJECT

 public:
  VueReduite(QWidget* parent, const QString& nom, const QRect& place);

  void Noircit();
  /// Shows the engine's own picture of the pixel view. It is painted where it lies, so it outlives this view or the
  /// next call.
  void MontreImage(const QImage& image);
  /// Stretches a part of the surface as it is now, outlines included, over the whole view. It is stretched when it is
  /// painted: a view that nobody can see costs nothing. The frame is held until the next call of any of the three. A
  /// zero width or height draws nothing and leaves what was there.
  void MontreZoom(const SurfaceImage& surface, const QRect& source);

 Q_SIGNALS:
  void DroitAppuye(const QPoint& position);

 protected:
  void paintEvent(QPaintEvent* evenement) override;
  void mousePressEvent(QMouseEvent* evenement) override;

 private:
  void DessineFocus(QPainter& peintre) const;
  bool Zoome() const { return Zoom_.Taille.isValid(); }

  CopieSurface Zoom_;               // no picture: no zoom
  QImage LignesZoom_;               // memory of the painting
  QRect Source_;                    // the part of it that is shown
  const QImage* Pixels_ = nullptr;  // null: not in pixel view
};

}  // namespace vaktor
