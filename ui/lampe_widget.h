// LampeWidget: one of the two lamps of the top band, 8 x 8 pixels.
#pragma once

#include <QImage>
#include <QWidget>

#include "engine/ports/surveillance_display.h"

namespace vaktor {

class LampeWidget : public QWidget {
  Q_OBJECT

 public:
  LampeWidget(QWidget* parent, const QString& nom, QPoint place);
  /// accessibleDescription carries the name of the lamp's picture: "LEDRED", "LEDREDON", "LEDVERT".
  void Montre(Lampe lampe);
  Lampe Etat() const { return Lampe_; }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  Lampe Lampe_ = Lampe::kRouge;
  QImage Image_;
};

}  // namespace vaktor
