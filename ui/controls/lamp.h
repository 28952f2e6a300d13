// SPDX-License-Identifier: GPL-3.0-or-later
// LampeWidget: one of the two lamps of the top band, 8 x 8 pixels.
#pragma once

#include <QImage>
#include <QWidget>

#include "engine/ports/surveillance_display.h"

namespace vaktor {

/// What a lamp is called and what its light means, for those who hear the window.
struct MotsLampe {
  QString Nom;
  QString Eteinte;
  QString EnAttente;
  QString Active;
};

class LampeWidget : public QWidget {
  Q_OBJECT

 public:
  LampeWidget(QWidget* parent, const QString& nom, QPoint place);
  void Montre(Lampe lampe);
  /// The light is a colour and nothing else: accessibleName and accessibleDescription say it in words.
  void ChangeMots(const MotsLampe& mots);
  Lampe Etat() const { return Lampe_; }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  void DitEtat();

  MotsLampe Mots_;
  Lampe Lampe_ = Lampe::kRouge;
  QImage Image_;
};

}  // namespace vaktor
