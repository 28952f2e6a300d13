// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/form_progression.h"

#include <QCloseEvent>
#include <QPainter>

namespace vaktor {

namespace {
constexpr QSize kTailleForme{320, 48};
}  // namespace

BarreProgression::BarreProgression(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("PictProgressBar"));
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void BarreProgression::FixeEchelle(int dernier) {
  Dernier_ = dernier;
  Rempli_ = 0;
}

void BarreProgression::Avance(int pas) {
  const int rempli = Dernier_ <= 0 ? width() : static_cast<int>(qint64{width()} * pas / Dernier_);
  if (rempli == Rempli_) return;
  Rempli_ = rempli;
  update();
}

void BarreProgression::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.fillRect(rect(), Qt::white);
  peintre.fillRect(0, 0, Rempli_, height(), QColor::fromRgb(kCouleur));
  peintre.setPen(QColor(120, 128, 142));
  peintre.drawRect(rect().adjusted(0, 0, -1, -1));
}

FrmProgression::FrmProgression(QWidget* galerie, const QString& titre, int dernier)
    : QWidget(galerie, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      PictProgressBar_(new BarreProgression(this)) {
  setObjectName(QStringLiteral("FrmProgression"));
  setWindowTitle(titre);
  setFixedSize(kTailleForme);
  PictProgressBar_->setAccessibleName(titre);
  PictProgressBar_->setGeometry(12, 12, kTailleForme.width() - 24, kTailleForme.height() - 24);
  PictProgressBar_->FixeEchelle(dernier);
}

// It goes when the deletion is through, not before.
void FrmProgression::closeEvent(QCloseEvent* evenement) { evenement->ignore(); }

}  // namespace vaktor
