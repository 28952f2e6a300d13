// SPDX-License-Identifier: GPL-3.0-or-later
// The cards of a day: one for each intrusion, with its most telling picture.
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <QStyledItemDelegate>
#include <memory>

#include "journal/day_view.h"
#include "journal/forms/thumbnail_cache.h"
#include "journal/forms/timeline_look.h"
#include "texts/language.h"

namespace vaktor {

/// The intrusions of a day, the newest first. A row's text is what is heard of it.
class ModeleCartes : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;
  void MontreJour(std::shared_ptr<const Chronique> chronique, const JourVu& jour, Langue langue);
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  const IntrusionVue& Intrusion(int rangee) const { return Chronique_->Intrusions.at(Numero(rangee)); }
  /// In Chronique::Intrusions.
  qsizetype Numero(int rangee) const { return Jour_.Intrusions.at(Jour_.Intrusions.size() - 1 - rangee); }
  int Rangee(qsizetype numero) const;  ///< -1 where that intrusion is not of this day
  Langue DonneLangue() const { return Langue_; }

 private:
  std::shared_ptr<const Chronique> Chronique_;
  JourVu Jour_;
  Langue Langue_ = Langue::kFrancais;
};

class ListeCartes;

class DessinCartes : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit DessinCartes(ListeCartes& liste);
  void paint(QPainter* peintre, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  void DessineImage(QPainter& peintre, const QRectF& place, const IntrusionVue& vue) const;
  void DessineMots(QPainter& peintre, const QRectF& place, const IntrusionVue& vue) const;

  ListeCartes& Liste_;
};

/// User-interface thread.
class ListeCartes : public QListView {
  Q_OBJECT

 public:
  static constexpr QSize kCarte{236, 230};
  static constexpr QSize kImage{220, 165};  ///< the shape of most cameras' pictures

  ListeCartes(QWidget* parent, LecteurVignettes& lecteur);
  void MontreJour(std::shared_ptr<const Chronique> chronique, const JourVu& jour, Langue langue);
  void ChoisitAllure(const AllureFrise& allure);
  const AllureFrise& Allure() const { return Allure_; }
  /// -1: none is chosen.
  qsizetype Choix() const;
  void MontreChoix(qsizetype intrusion);
  /// Words where the cards would be; empty for none.
  void MontreAvis(const QString& avis);
  const QString& Avis() const { return Avis_; }
  const ModeleCartes& Modele() const { return Modele_; }
  CacheVignettes& Vignettes() { return Vignettes_; }

 Q_SIGNALS:
  void ChoixChange(qsizetype intrusion);
  void Ouverte(qsizetype intrusion);
  void SuppressionDemandee();

 protected:
  void paintEvent(QPaintEvent* evenement) override;
  void resizeEvent(QResizeEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;
  void mouseDoubleClickEvent(QMouseEvent* evenement) override;
  void currentChanged(const QModelIndex& ici, const QModelIndex& avant) override;

 private:
  void DemandeVisibles();

  ModeleCartes Modele_;
  CacheVignettes Vignettes_;
  AllureFrise Allure_;
  QString Avis_;
};

/// The photo of a card as the port for photos names it; empty where there is none.
QString CheminParlante(const IntrusionVue& vue);

}  // namespace vaktor
