// PageVaktor: one of the four pages that lie on each other below the top band.
#pragma once

#include <QWidget>

namespace vaktor {

/// A near-white pane with a frame of one pixel. Pages are never hidden or moved: the one shown is the one in front.
class PageVaktor : public QWidget {
  Q_OBJECT

 public:
  static constexpr QRect kPlace{0, 80, 398, 163};
  PageVaktor(QWidget* fenetre, int index);  ///< objectName "PictPage(index)"

 protected:
  void paintEvent(QPaintEvent* evenement) override;
};

}  // namespace vaktor
