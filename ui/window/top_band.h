// SPDX-License-Identifier: GPL-3.0-or-later
// The permanent band above the pages: status lines, lamps, gauge and the main buttons.
#pragma once

#include <QLabel>
#include <array>

#include "ui/controls/face_button.h"
#include "ui/controls/gauge.h"
#include "ui/controls/health_sign.h"
#include "ui/controls/lamp.h"

namespace vaktor {

/// Its controls stand on the window itself; this struct only makes and names them. Owner: Form1.
struct BandeauHaut {
  static constexpr int kNombreBoutons = 7;
  explicit BandeauHaut(QWidget* fenetre);

  std::array<BoutonImage*, kNombreBoutons> Bouton{};
  QLabel* LblDebugAlarm;
  QLabel* LblDebugftp;
  LampeWidget* ImageLedAlarme;
  LampeWidget* ImageLedSurveill;
  QLabel* LabelSeuil;
  JaugeWidget* PictSeuil;
  SigneSante* Signe;  ///< hidden while nothing is wrong
};

}  // namespace vaktor
