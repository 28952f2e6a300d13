// SPDX-License-Identifier: GPL-3.0-or-later
// The strip: a day from midnight to midnight, with its intrusions, when it was armed, and what was wrong.
#pragma once

#include <QWidget>
#include <memory>

#include "journal/day_view.h"
#include "journal/forms/timeline_look.h"
#include "texts/language.h"

namespace vaktor {

/// The wheel and the keys + and - zoom, dragging moves, a click on a bar chooses it. User-interface thread.
class BandeFrise : public QWidget {
  Q_OBJECT

 public:
  explicit BandeFrise(QWidget* parent);

  void MontreJour(std::shared_ptr<const Chronique> chronique, const JourVu& jour, Langue langue);
  void ChoisitAllure(const AllureFrise& allure);
  /// Index in Chronique::Intrusions; -1 for none. It is brought into sight.
  void MontreChoix(qsizetype intrusion);
  Fenetre Vue() const { return Vue_; }
  /// What stands at a place of the strip, in words; empty for nothing.
  QString DitA(const QPoint& place) const;
  QSize sizeHint() const override;

 Q_SIGNALS:
  void IntrusionChoisie(qsizetype intrusion);
  void IntrusionOuverte(qsizetype intrusion);

 protected:
  bool event(QEvent* evenement) override;
  void paintEvent(QPaintEvent* evenement) override;
  void mousePressEvent(QMouseEvent* evenement) override;
  void mouseMoveEvent(QMouseEvent* evenement) override;
  void mouseReleaseEvent(QMouseEvent* evenement) override;
  void mouseDoubleClickEvent(QMouseEvent* evenement) override;
  void wheelEvent(QWheelEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;

 private:
  qint64 DureeJour() const { return Jour_.De.msecsTo(Jour_.A); }
  double PlaceDe(const QDateTime& moment) const;
  qint64 MomentA(double x) const;
  QRectF Piste() const;
  QRectF Barre(const IntrusionVue& vue) const;
  QRectF Etendue(const BandeTemps& bande, double haut, double hauteur) const;
  qsizetype IntrusionA(const QPointF& place) const;
  void Regarde(const Fenetre& vue);
  void ChoisitVoisine(int pas);
  void DessineHeures(QPainter& peintre) const;
  void DessineArmees(QPainter& peintre) const;
  void DessineConditions(QPainter& peintre) const;
  void DessineIntrusions(QPainter& peintre) const;
  void DessineMarques(QPainter& peintre) const;

  std::shared_ptr<const Chronique> Chronique_;
  JourVu Jour_;
  Langue Langue_ = Langue::kFrancais;
  AllureFrise Allure_;
  Fenetre Vue_;
  qsizetype Choix_ = -1;
  qint32 PointsMax_ = 1;
  QPointF Presse_;
  Fenetre VuePressee_;
  bool Glisse_ = false;
};

}  // namespace vaktor
