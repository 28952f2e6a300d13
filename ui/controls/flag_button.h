// DrapeauLangue: one of the language flags, Image4(0) French, Image4(1) English.
#pragma once

#include <QAbstractButton>
#include <QImage>

#include "texts/language.h"

namespace vaktor {

class DrapeauLangue : public QAbstractButton {
  Q_OBJECT

 public:
  DrapeauLangue(QWidget* parent, Langue langue, QPoint place);
  /// The flag under the pointer has no frame, all others have one.
  void Encadre(bool encadre);
  bool Encadre() const { return Encadre_; }
  /// This flag's language is the current one: heard, never seen.
  void Engage(bool engage);
  QSize sizeHint() const override { return {17, 13}; }

 protected:
  void keyPressEvent(QKeyEvent* evenement) override;
  void checkStateSet() override;
  void nextCheckState() override {}  // the language decides which one is checked
  void paintEvent(QPaintEvent* evenement) override;

 private:
  QImage Drapeau_;
  bool Encadre_ = true;
  bool Annonce_ = false;  // Engage is at work
};

}  // namespace vaktor
