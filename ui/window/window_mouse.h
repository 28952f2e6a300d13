// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse does on the window beside clicking: hover sounds, the flags' frames, dragging the window.
#pragma once

#include <QHash>
#include <QObject>
#include <QSet>

#include "engine/ports/interface_sounds.h"
#include "ui/window/top_band.h"
#include "ui/window/window_pages.h"

namespace vaktor {

/// Watches the mouse moves of the window and its controls. Owner: Habillage. User-interface thread.
class SourisFenetre : public QObject {
  Q_OBJECT

 public:
  /// All of it outlives the object.
  SourisFenetre(QWidget& fenetre, const BandeauHaut& bandeau, const PagesFenetre& pages, SonsInterface& sons);
 Q_SIGNALS:
  /// A free surface was moved over with nothing but the left button held: the window follows the mouse. Told once for
  /// each press.
  void DeplacementDemande();

 protected:
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  void EcouteControle(QWidget* controle);
  void InscritFonds();
  void InscritNumeros();
  void InscritPoignees(const BandeauHaut& bandeau);
  void SuitDrapeaux(QObject* objet);
  void SuitGlisse(QObject* objet, Qt::MouseButtons boutons);

  QWidget& Fenetre_;
  const PagesFenetre Pages_;
  SonsInterface& Sons_;
  QHash<QObject*, qint32> Numeros_;
  QSet<QObject*> Poignees_;             // surfaces that drag the window
  QSet<QObject*> Fonds_;                // the window itself and the four pages
  const QObject* Demandeur_ = nullptr;  // the surface that has asked for a drag since the last press
};

}  // namespace vaktor
