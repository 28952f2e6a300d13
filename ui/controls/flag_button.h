// SPDX-License-Identifier: GPL-3.0-or-later
// DrapeauLangue: one of the language flags, Image4(0) French, Image4(1) English.
#pragma once

#include <QImage>

#include "texts/language.h"
#include "ui/controls/heard_button.h"

namespace vaktor {

/// Engaged: its language is the current one.
class DrapeauLangue : public BoutonEntendu {
  Q_OBJECT

 public:
  DrapeauLangue(QWidget* parent, Langue langue, QPoint place);
  /// The flag under the pointer has no frame, all others have one.
  void Encadre(bool encadre);
  bool Encadre() const { return Encadre_; }
  QSize sizeHint() const override { return {17, 13}; }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  QImage Drapeau_;
  bool Encadre_ = true;
};

}  // namespace vaktor
