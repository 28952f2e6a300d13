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
  setStyleSheet(FeuilleFrise(allure) + feuille);
  update();
}

void FenetreFrise::closeEvent(QCloseEvent* evenement) {
  Repose();
  evenement->accept();
}

void FenetreFrise::keyPressEvent(QKeyEvent* evenement) {
  if (evenement->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(evenement);
}

void FenetreFrise::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  DessineTete(peintre, rect(), Allure_);
}

}  // namespace vaktor
