// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/forms/timeline_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>

namespace vaktor {

FenetreFrise::FenetreFrise(const char* nom) : QWidget(nullptr, Qt::Window) { setObjectName(QLatin1String(nom)); }

QPushButton* FenetreFrise::CreeBouton(const char* nom) {
  auto* bouton = new QPushButton(this);
  bouton->setObjectName(QLatin1String(nom));
  bouton->setFont(PoliceFrise(12));
  bouton->setAutoDefault(true);
  return bouton;
}

void FenetreFrise::Revet(const AllureFrise& allure, const QString& feuille) {
  Allure_ = allure;
  Fond_ = {};
  setStyleSheet(FeuilleFrise(allure) + feuille);
  update();
}

void FenetreFrise::closeEvent(QCloseEvent* evenement) {
  Repose();
  Fond_ = {};
  evenement->accept();
}

void FenetreFrise::keyPressEvent(QKeyEvent* evenement) {
  if (evenement->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(evenement);
}

// Stretched once for each size of the window: what scrolls lets it through, and stretching it took most of a step.
void FenetreFrise::paintEvent(QPaintEvent*) {
  const double densite = devicePixelRatioF();
  const QSize taille = size() * densite;
  if (Fond_.size() != taille) {
    Fond_ = QPixmap(taille);
    Fond_.setDevicePixelRatio(densite);
    QPainter dessin(&Fond_);
    DessineTete(dessin, rect(), Allure_);
  }
  QPainter peintre(this);
  peintre.drawPixmap(0, 0, Fond_);
}

}  // namespace vaktor
