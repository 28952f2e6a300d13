// SPDX-License-Identifier: GPL-3.0-or-later
// The looks of all push buttons, printed once for each language and then only shown.
#pragma once

#include <QFont>
#include <QImage>
#include <array>

#include "texts/text_tables.h"

namespace vaktor {

/// The three looks of one button.
struct FaceBouton {
  QImage FaceRepos;
  QImage FaceSurvol;
  QImage FaceEnfoncee;
};

/// Where a caption is printed: its top left corner on a face of 72 x 16 points. Halves go to the even number. A caption
/// wider than the face begins left of it and is cut at both ends alike.
QPoint PlaceLibelle(int largeurTexte, int hauteurTexte);

/// Owner: Habillage. User-interface thread.
class FacesBoutons {
 public:
  static constexpr QSize kTaille{72, 16};
  static constexpr int kNombre = 8;  ///< row 7 is the second set of Bouton(0), shown while the camera runs
  static constexpr int kNombreGris = 10;
  static constexpr int kRangeeEssaiFtp = 9;  ///< of the grey buttons: the one that is in no array

  /// Prints all faces with the captions of the current language, for a screen of `densite` device pixels a point.
  /// `libelleEssaiFtp`: the caption that the numbered tables do not hold.
  void ChargeBoutons(const TablesTextes& textes, const QString& libelleEssaiFtp, double densite);

  const FaceBouton& FacesBouton(int i) const { return FacesBouton_.at(static_cast<std::size_t>(i)); }
  /// FaceEnfoncee of the grey buttons is printed with the others and never shown.
  const FaceBouton& FacesBoutonGris(int i) const { return FacesBoutonGris_.at(static_cast<std::size_t>(i)); }
  /// How many captions were laid out since the start. It must stand still while the mouse moves.
  qint32 NombreImpressions() const { return NombreImpressions_; }

 private:
  using Gabarits = std::array<QImage, 3>;  // rest, hover, pressed; clean, without a caption

  void ChargeGabarits(double densite);
  void ImprimeBouton(int i, const TablesTextes& textes);
  void ImprimeBoutonGris(int i, const QString& libelle);
  FaceBouton Imprime(const Gabarits& gabarits, const QString& libelle);

  double Densite_ = 0;
  QFont Police_;
  Gabarits PictBlue_;
  Gabarits PictGrey_;
  std::array<FaceBouton, kNombre> FacesBouton_;
  std::array<FaceBouton, kNombreGris> FacesBoutonGris_;
  qint32 NombreImpressions_ = 0;
};

}  // namespace vaktor
