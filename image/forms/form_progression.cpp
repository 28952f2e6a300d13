// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/form_progression.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QPainter>

namespace vaktor {

namespace {
constexpr QSize kTailleForme{320, 48};

class BarreEntendue : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit BarreEntendue(BarreProgression* barre) : QAccessibleWidget(barre, QAccessible::ProgressBar), Barre_(barre) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QVariant currentValue() const override { return Barre_->Pas(); }
  void setCurrentValue(const QVariant&) override {}
  QVariant minimumValue() const override { return 0; }
  QVariant maximumValue() const override { return Barre_->Dernier(); }
  QVariant minimumStepSize() const override { return 1; }

 private:
  BarreProgression* Barre_;
};

QAccessibleInterface* CreeEntendue(const QString&, QObject* objet) {
  auto* barre = qobject_cast<BarreProgression*>(objet);
  return barre != nullptr ? new BarreEntendue(barre) : nullptr;
}
}  // namespace

BarreProgression::BarreProgression(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("PictProgressBar"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  QAccessible::installFactory(CreeEntendue);  // the same one again is nothing
}

void BarreProgression::FixeEchelle(int dernier) {
  Dernier_ = dernier;
  Rempli_ = 0;
  Pas_ = 0;
}

void BarreProgression::Avance(int pas) {
  const int rempli = Dernier_ <= 0 ? width() : static_cast<int>(qint64{width()} * pas / Dernier_);
  Pas_ = pas;
  if (rempli == Rempli_) return;
  Rempli_ = rempli;
  update();
  QAccessibleValueChangeEvent change(this, Pas_);
  QAccessible::updateAccessibility(&change);
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
