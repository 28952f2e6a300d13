// SPDX-License-Identifier: GPL-3.0-or-later
// JaugeWidget: the sensitivity gauge PictSeuil, a thin bar with a marker.
#pragma once

#include <QWidget>

namespace vaktor {

/// Keys: an arrow moves the marker by a pixel's worth, Page by ten, Home and End to the ends; Enter or Space does what
/// a double click does. A screen reader finds a slider of the same scale. The mouse leaves the focus where it is.
///
/// Its scale runs from 0 to 7000000 over its width, so that a position is directly a tolerance.
class JaugeWidget : public QWidget {
  Q_OBJECT

 public:
  JaugeWidget(QWidget* parent, const QString& nom, const QRect& place);

  /// Bar from 0 to `valeur` with a black marker at its end; light red when `haute`, else light green. The value may lie
  /// outside the scale: the widget's edge cuts bar and marker.
  void Dessine(qint32 valeur, bool haute);
  qint32 Valeur() const { return Valeur_; }
  bool Haute() const { return Haute_; }
  /// As if the mouse had been pressed at this tolerance. Nothing outside the scale comes of it.
  void Regle(double valeur);
  double PasClavier() const;  ///< what a pixel stands for

 Q_SIGNALS:
  /// Press, move and release alike: the position in the gauge's scale, outside 0 to 7000000 when the mouse is.
  void Souris(double x, bool boutonGaucheSeul);
  void DoubleClic();

 protected:
  void paintEvent(QPaintEvent* evenement) override;
  void mousePressEvent(QMouseEvent* evenement) override;
  void mouseMoveEvent(QMouseEvent* evenement) override;
  void mouseReleaseEvent(QMouseEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;
  void mouseDoubleClickEvent(QMouseEvent* evenement) override;

 private:
  double EnEchelle(const QPointF& position) const;
  int Marqueur() const;
  void DessineBarre(QPainter& peintre) const;
  void DessineFocus(QPainter& peintre) const;

  qint32 Valeur_ = 0;
  bool Haute_ = false;
  bool Dessinee_ = false;  // nothing but the background before the first Dessine
};

}  // namespace vaktor
