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
  static constexpr qint32 kAucunSurvol = 5555;

  /// All of it outlives the object.
  SourisFenetre(QWidget& fenetre, const BandeauHaut& bandeau, const PagesFenetre& pages, SonsInterface& sons);
  /// The pointer passes over the control with this hover number. Some numbers are shared by several controls: going
  /// from one to the other without a gap is silent.
  void Passe(qint32 id);

 Q_SIGNALS:
  /// A free surface was moved over with nothing but the left button held: the window follows the mouse.
  void DeplacementDemande();

 protected:
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  void EcouteControle(QWidget* controle);
  void InscritFonds();
  void InscritNumeros();
  void InscritPoignees(const BandeauHaut& bandeau);
  void SuitDrapeaux(QObject* objet);

  QWidget& Fenetre_;
  const PagesFenetre Pages_;
  SonsInterface& Sons_;
  QHash<QObject*, qint32> Numeros_;
  QSet<QObject*> Poignees_;  // surfaces that drag the window
  QSet<QObject*> Fonds_;     // the window itself and the four pages
  qint32 DernierSurvol_ = kAucunSurvol;
};

}  // namespace vaktor
