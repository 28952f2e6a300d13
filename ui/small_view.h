// VueReduite: the small video view Picture2, zoom or pixel.
#pragma once

#include <QImage>
#include <QWidget>

#include "engine/frame_surface.h"

namespace vaktor {

/// Black until told otherwise. User-interface thread.
class VueReduite : public QWidget {
  Q_OBJECT

 public:
  VueReduite(QWidget* parent, const QString& nom, const QRect& place);

  void Noircit();
  /// Shows the engine's own picture of the pixel view. It is painted where it lies, so it outlives this view or the
  /// next call.
  void MontreImage(const QImage& image);
  /// Stretches a part of the surface, outlines included, over the whole view, at once: no frame is held for it. A zero
  /// width or height draws nothing and leaves what was there.
  void MontreZoom(const SurfaceImage& surface, const QRect& source);

 Q_SIGNALS:
  void DroitAppuye(const QPoint& position);

 protected:
  void paintEvent(QPaintEvent* evenement) override;
  void mousePressEvent(QMouseEvent* evenement) override;

 private:
  QImage Zoom_;                     // null: no zoom picture
  const QImage* Pixels_ = nullptr;  // null: not in pixel view
};

}  // namespace vaktor
