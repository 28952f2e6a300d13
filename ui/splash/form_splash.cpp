// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/splash/form_splash.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include "ui/controls/control_factory.h"

// Resources in a library are not known to the program until somebody asks for them; the macro wants no namespace.
static void PrepareImages() { Q_INIT_RESOURCE(splash); }

namespace vaktor {

namespace {

constexpr int kPoliceTitre = 40;
constexpr QRect kPlaceTitre{22, 78, 190, 54};
constexpr QPoint kOmbre{2, 2};
constexpr QRect kPlaceVersion{26, 132, 180, 20};
constexpr QRect kPlaceProgres{26, 214, 180, 20};

}  // namespace

FrmSplash::FrmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  PrepareImages();
  setObjectName(QStringLiteral("frmSplash"));
  setWindowTitle(QStringLiteral("Vaktor"));
  setFixedSize(kTaille);
  // White over grey, both the same words: a drop shadow. The one made later lies on top.
  lblProductName_.at(1) = CreeLibelle(NomIndexe("lblProductName", 1), kPlaceTitre.translated(kOmbre), kPoliceTitre,
                                      true, QColor(128, 128, 128));
  lblProductName_.at(0) = CreeLibelle(NomIndexe("lblProductName", 0), kPlaceTitre, kPoliceTitre, true, Qt::white);
  lblVersion_ = CreeLibelle(QStringLiteral("lblVersion"), kPlaceVersion, kPoliceGrande, false, QColor(214, 219, 230));
  LabelLoading_ = CreeLibelle(QStringLiteral("LabelLoading"), kPlaceProgres, kPoliceMoyenne, false, Qt::white);
}

QLabel* FrmSplash::CreeLibelle(const QString& nom, const QRect& place, int police, bool gras, const QColor& couleur) {
  QLabel* libelle = CreeEtiquette(this, nom, place, police, couleur.rgb());
  QFont fonte = libelle->font();
  fonte.setBold(gras);
  libelle->setFont(fonte);
  return libelle;
}

void FrmSplash::MontreTitre(const QString& texte) {
  for (QLabel* libelle : lblProductName_) libelle->setText(texte);
  setAccessibleName(texte);
}

void FrmSplash::MontreProgres(const QString& mot) {
  LabelLoading_->setText(mot);
  LabelLoading_->setAccessibleName(mot);
}

void FrmSplash::Montre() {
  if (Dechargee_) return;
  move(screen()->availableGeometry().center() - rect().center());
  show();
}

void FrmSplash::Decharge() {
  Dechargee_ = true;
  hide();
}

void FrmSplash::paintEvent(QPaintEvent*) {
  const bool dense = devicePixelRatioF() > 1.0;
  const QImage image(dense ? QStringLiteral(":/splash/2x.png") : QStringLiteral(":/splash/1x.png"));
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  peintre.drawImage(rect(), image);
}

void FrmSplash::mouseReleaseEvent(QMouseEvent* evenement) {
  if (rect().contains(evenement->position().toPoint()) && SurClic_) SurClic_();
}

// The form stays for the whole run, but the screen's copy of it can go. Later, because it may be inside its own click.
void FrmSplash::hideEvent(QHideEvent* evenement) {
  QWidget::hideEvent(evenement);
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (!isVisible()) destroy();
      },
      Qt::QueuedConnection);
}

void FrmSplash::closeEvent(QCloseEvent* evenement) { evenement->ignore(); }

}  // namespace vaktor
