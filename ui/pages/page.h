// SPDX-License-Identifier: GPL-3.0-or-later
// PageVaktor: one of the four pages that lie on each other below the top band.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

namespace vaktor {

/// A near-white pane with a frame of one pixel. Pages are never hidden or moved: the one shown is the one in front.
class PageVaktor : public QWidget {
  Q_OBJECT

 public:
  static constexpr QRect kPlace{0, 80, 398, 163};
  PageVaktor(QWidget* fenetre, int index);  ///< objectName "PictPage(index)"

  /// Shows the bitmap that `dessine` gives, drawn at `echelle` pixels a point, from the page's top left corner on. It
  /// is asked for when the page is painted first: the pages behind are drawn when they come to the front, if ever.
  void MontreFond(std::function<QImage()> dessine, int echelle);
  const QImage& Fond() const;
  /// The page lies behind another one: those who hear the window do not find its controls meanwhile.
  void Couvre(bool couverte);
  bool Couverte() const { return Couverte_; }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  mutable std::function<QImage()> Dessine_;  // until it has been asked
  mutable QImage Fond_;
  int Echelle_ = 1;
  bool Couverte_ = false;
};

}  // namespace vaktor
