// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of one camera as sliders, boxes and menus. What is moved takes effect at once.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "platform/capture/devices/v4l2_device.h"
#include "texts/language.h"

class QFormLayout;

namespace vaktor {

class AccesPeripheriques;

class PanneauReglages : public QWidget {
  Q_OBJECT

 public:
  /// `acces` outlives the panel. An empty node shows no controls.
  PanneauReglages(QWidget* parent, Langue langue, AccesPeripheriques& acces, const QString& noeud);
  bool EstVide() const { return Reglages_.isEmpty(); }
  /// All to their defaults. False: the camera refused some.
  bool RemetDefauts();

 Q_SIGNALS:
  void RegleFait();
  void RegleRefuse(const QString& nom);
  /// An input or a standard was picked (kReglageEntree, kReglageNorme), and nothing done: frames must stand still for
  /// it.
  void EntreeChoisie(quint32 numero, qint32 valeur);

 protected:
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  QString NomAffiche(const ReglageCamera& reglage) const;
  void AjouteLigne(QFormLayout& lignes, const ReglageCamera& reglage);
  QWidget* FaitEntier(const ReglageCamera& reglage);
  QWidget* FaitBooleen(const ReglageCamera& reglage);
  QWidget* FaitMenu(const ReglageCamera& reglage);
  void Regle(quint32 numero, qint32 valeur);
  bool RemetSorte(bool entiers);
  void Relit();
  void MontreValeur(const ReglageCamera& reglage);

  const Langue Langue_;
  AccesPeripheriques& Acces_;
  const QString Noeud_;
  QList<ReglageCamera> Reglages_;
  QHash<quint32, std::function<void(const ReglageCamera&)>> Montres_;  ///< what shows a control's value in its line
  QTimer Relecture_;  ///< one control can change others (an automatic): all are read again soon after a change
};

}  // namespace vaktor
