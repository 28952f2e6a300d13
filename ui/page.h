// PageVaktor: one of the four pages that lie on each other below the top band.
#pragma once

#include <QImage>
#include <QWidget>

namespace vaktor {

/// A near-white pane with a frame of one pixel. Pages are never hidden or moved: the one shown is the one in front.
class PageVaktor : public QWidget {
  Q_OBJECT

 public:
  static constexpr QRect kPlace{0, 80, 398, 163};
  PageVaktor(QWidget* fenetre, int index);  ///< objectName "PictPage(index)"

  /// Shows this bitmap, drawn at `echelle` pixels a point, from the page's top left corner on.
  void MontreFond(const QImage& fond, int echelle);
  const QImage& Fond() const { return Fond_; }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  QImage Fond_;
};

}  // namespace vaktor
