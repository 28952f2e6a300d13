// SPDX-License-Identifier: GPL-3.0-or-later
// Picture1: the frame at its own size. It keeps no frame of its own, it paints the surface.
#pragma once

#include <QPoint>

#include "engine/frame_surface.h"
#include "ui/common/menu_view.h"

namespace vaktor {

/// One pixel of the frame is one pixel of the widget, so mouse positions are pixels of the frame; a screen of high
/// density shows each as a block. The keys work on the zone, a few pixels a press, but not while the mouse draws it.
/// User-interface thread.
class VueCadre : public VueAMenu {
  Q_OBJECT

 public:
  VueCadre(const SurfaceImage& surface, QWidget* parent);

  /// Paints the surface anew, as far as the view lies on a screen: the picture of a camera may be larger than all of
  /// them. Who moves the view to where more of it is seen updates it whole.
  void Rafraichit() { update(PartVue()); }
  /// Words painted over the picture, never into it; the empty text takes them away.
  void MontreAvis(const QString& avis);
  const QString& Avis() const { return Avis_; }

 Q_SIGNALS:
  // Left button only. Positions may lie outside the picture while the button is held.
  void GaucheAppuye(const QPointF& position);
  void GaucheDeplace(const QPointF& position);
  void GaucheRelache(const QPointF& position);
  void DroitAppuye(const QPointF& position);
  // The keys, in pixels of the frame.
  void ZonePoussee(const QPoint& pas);  ///< an arrow
  void ZoneEtiree(const QPoint& pas);   ///< with Shift
  void ZoneRemise();                    ///< Home

 protected:
  void keyPressEvent(QKeyEvent* evenement) override;
  void paintEvent(QPaintEvent* evenement) override;
  void mousePressEvent(QMouseEvent* evenement) override;
  void mouseMoveEvent(QMouseEvent* evenement) override;
  void mouseReleaseEvent(QMouseEvent* evenement) override;

 private:
  QRect PartVue() const;
  void PeintAvis(QPainter& peintre) const;

  const SurfaceImage& Surface_;
  QString Avis_;
  bool Dessine_ = false;  // the left button is held
};

}  // namespace vaktor
