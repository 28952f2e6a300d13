// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pages/page.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <utility>

#include "ui/controls/control_factory.h"

namespace vaktor {

namespace {

// To the toolkit all four pages can be seen, so a screen reader would read what lies behind the one in front.
class PageEntendue : public QAccessibleWidget {
 public:
  explicit PageEntendue(PageVaktor* page) : QAccessibleWidget(page, QAccessible::Grouping), Page_(page) {}

  QAccessible::State state() const override {
    QAccessible::State etat = QAccessibleWidget::state();
    if (Page_->Couverte()) etat.invisible = true;
    return etat;
  }
  int childCount() const override { return Page_->Couverte() ? 0 : QAccessibleWidget::childCount(); }
  QAccessibleInterface* child(int rang) const override {
    return Page_->Couverte() ? nullptr : QAccessibleWidget::child(rang);
  }

 private:
  PageVaktor* Page_;
};

QAccessibleInterface* CreeEntendue(const QString&, QObject* objet) {
  auto* page = qobject_cast<PageVaktor*>(objet);
  return page != nullptr ? new PageEntendue(page) : nullptr;
}

}  // namespace

PageVaktor::PageVaktor(QWidget* fenetre, int index) : QWidget(fenetre) {
  setObjectName(NomIndexe("PictPage", index));
  setGeometry(kPlace);
  QAccessible::installFactory(CreeEntendue);  // the same one again is nothing
  setAttribute(Qt::WA_OpaquePaintEvent);      // what lies behind need not be painted
}

void PageVaktor::MontreFond(std::function<QImage()> dessine, int echelle) {
  Dessine_ = std::move(dessine);
  Echelle_ = echelle;
  Fond_ = QImage();
  update();
}

void PageVaktor::Couvre(bool couverte) {
  if (couverte == Couverte_) return;
  Couverte_ = couverte;
  QAccessibleEvent change(this, couverte ? QAccessible::ObjectHide : QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&change);
}

const QImage& PageVaktor::Fond() const {
  if (Dessine_) {
    Fond_ = std::exchange(Dessine_, nullptr)();
    Fond_.setDevicePixelRatio(Echelle_);
  }
  return Fond_;
}

void PageVaktor::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  const QImage& fond = Fond();
  // Pixels that the bitmap covers in part, on a screen of a fractional density, want something under it.
  if (fond.isNull() || devicePixelRatioF() != Echelle_) peintre.fillRect(rect(), QColor(245, 245, 245));
  peintre.drawImage(QPointF(0, 0), fond);
}

}  // namespace vaktor
