// SPDX-License-Identifier: GPL-3.0-or-later
// SigneSante: the sign of the top band that is there only while something is wrong with the watch.
#pragma once

#include <QImage>

#include "health/conditions.h"
#include "ui/controls/heard_button.h"

namespace vaktor {

/// Stands in the free corner below the gauge, where no given control and no text is. Shape, mark and colour tell how
/// bad it is. User-interface thread.
class SigneSante : public BoutonEntendu {
  Q_OBJECT

 public:
  static constexpr QRect kPlace{370, 59, 20, 20};
  explicit SigneSante(QWidget* parent);

  /// What the sign says. Those who hear the window are told when it appears or tells of another condition; the words of
  /// one that goes on may change every few seconds (a server that numbers its answers), which nobody wants to hear.
  struct Mots {
    QString Nom;          ///< how bad, and the worst condition
    QString Description;  ///< what a click does
    QString Aide;         ///< tooltip: the worst condition
    bool operator==(const Mots&) const = default;
  };
  void Montre(Condition pire, const Mots& mots);
  void Cache();
  Gravite Niveau() const { return Niveau_; }
  QSize sizeHint() const override { return kPlace.size(); }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  void Alerte();

  Gravite Niveau_ = Gravite::kAvis;
  Condition Pire_{};
  Mots Mots_;
};

/// The picture of a gravity, at `densite` pixels a point at least; its device pixel ratio is set.
QImage DonneSigne(Gravite gravite, double densite);

}  // namespace vaktor
