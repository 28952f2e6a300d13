// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/top_band.h"

#include "ui/controls/control_factory.h"

namespace vaktor {

BandeauHaut::BandeauHaut(QWidget* fenetre) {
  // Labels first: where one overlaps the gauge or a button, it stays behind.
  LblDebugAlarm = CreeEtiquette(fenetre, QStringLiteral("LblDebugAlarm"), {88, 11, 209, 17}, kPoliceGrande);
  LblDebugftp = CreeEtiquette(fenetre, QStringLiteral("LblDebugftp"), {88, 25, 209, 17}, kPoliceMoyenne);
  LabelSeuil = CreeEtiquette(fenetre, QStringLiteral("LabelSeuil"), {18, 36, 57, 17});
  CreeEtiquette(fenetre, QStringLiteral("Label3"), {9, 45, 17, 17}, kPoliceMoyenne)->setText(QStringLiteral("+"));
  CreeEtiquette(fenetre, QStringLiteral("Label2"), {382, 41, 15, 17}, kPoliceMoyenne)->setText(QStringLiteral("_"));
  static constexpr std::array<QPoint, kNombreBoutons> kPlaces = {
      {{8, 8}, {304, 8}, {304, 28}, {8, 63}, {80, 63}, {152, 63}, {224, 63}}};
  for (int i = 0; i < kNombreBoutons; ++i) {
    const auto rang = static_cast<std::size_t>(i);
    Bouton[rang] = new BoutonImage(fenetre, NomIndexe("Bouton", i), kPlaces[rang], FamilleBouton::kBleue);
  }
  ImageLedAlarme = new LampeWidget(fenetre, QStringLiteral("ImageLedAlarme"), {382, 12});
  ImageLedSurveill = new LampeWidget(fenetre, QStringLiteral("ImageLedSurveill"), {382, 33});
  PictSeuil = new JaugeWidget(fenetre, QStringLiteral("PictSeuil"), {18, 50, 360, 6});
  Signe = new SigneSante(fenetre);
}

}  // namespace vaktor
