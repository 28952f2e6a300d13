// SPDX-License-Identifier: GPL-3.0-or-later
// What the timeline and its player look like in each skin: the skin's own material, and inks that can be read on it.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>

class QPainter;

namespace vaktor {

struct AllureFrise {
  QImage Matiere;     ///< the skin's material, for the head of the window; null where it cannot be loaded
  QColor Voile;       ///< over the material, so that words can be read on it
  QColor EncreTete;   ///< words on it
  QColor Fond;        ///< below the head
  QColor Encre;       ///< words on cards and foot
  QColor EncreDouce;  ///< what matters less
  QColor Carte;       ///< a card
  QColor BordCarte;
  QColor Piste;  ///< the track of the strip
  QColor BordPiste;
  QColor EncrePiste;  ///< hours and words on the track
  QColor Armee;       ///< the band of armed time
  QColor Barre;       ///< the bar of an intrusion
  QColor BarreVague;  ///< of one of which the movement is not known
  QColor Choisi;      ///< frame of what is chosen, and the bar of it
  QColor Rouge;       ///< what was wrong with the watch
};

/// `index` as the settings have it; any number without a skin is the first.
AllureFrise ChoisitAllure(int index, double densite);

/// "Arial" in pixels, as in all windows of the program.
QFont PoliceFrise(int pixels, bool gras = false);

/// The skin's material over a whole window, with its veil.
void DessineTete(QPainter& peintre, const QRect& place, const AllureFrise& allure);

/// Buttons, ticks and bars of a window in this look, as a style sheet.
QString FeuilleFrise(const AllureFrise& allure);

}  // namespace vaktor
