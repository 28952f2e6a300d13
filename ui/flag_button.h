// DrapeauLangue: one of the two language flags, Image4(0) French and Image4(1) English.
#pragma once

#include <QAbstractButton>

namespace vaktor {

class DrapeauLangue : public QAbstractButton {
  Q_OBJECT

 public:
  DrapeauLangue(QWidget* parent, int langue, QPoint place);
  QSize sizeHint() const override { return {17, 13}; }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  int Langue_;
};

}  // namespace vaktor
