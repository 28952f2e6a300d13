// SPDX-License-Identifier: GPL-3.0-or-later
// What the small windows of this folder have in common: font, width, margins.
#pragma once

#include <QVBoxLayout>
#include <QWidget>

namespace vaktor {

inline constexpr int kLargeurForme = 430;  // pixels
inline constexpr int kMargeForme = 12;
inline constexpr int kEcartForme = 10;
inline constexpr int kPoliceForme = 12;  // pixels, as in all windows of the program

/// Gives a window whose look is given its font, and with it those of its controls that have no style sheet.
inline void HabilleForme(QWidget& forme) {
  QFont police(QStringLiteral("Arial"));
  police.setPixelSize(kPoliceForme);
  forme.setFont(police);
}

/// The column in which its parts stand; the window is as large as they need. Owned by the window.
inline QVBoxLayout* CreeColonne(QWidget& forme) {
  auto* colonne = new QVBoxLayout(&forme);
  colonne->setContentsMargins(kMargeForme, kMargeForme, kMargeForme, kMargeForme);
  colonne->setSpacing(kEcartForme);
  colonne->setSizeConstraint(QLayout::SetFixedSize);
  return colonne;
}

}  // namespace vaktor
