// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/monitor_words.h"

#include "texts/phrase.h"

namespace vaktor {

QString MotImageCamera(Langue langue) { return Phrase{"Image de la caméra", "Camera picture"}.Dit(langue); }

// The start of the camera leaves a whole picture that begins at 1, a click one that begins at 0.
QString DitZone(Langue langue, const ZoneDetection& zone, const QSize& image) {
  const bool entiere = zone.Gauche >= 0 && zone.Gauche <= 1 && zone.Haut >= 0 && zone.Haut <= 1 &&
                       zone.Droite >= image.width() && zone.Bas >= image.height();
  if (entiere) return Phrase{"Zone : toute l'image", "Zone: the whole picture"}.Dit(langue);
  return Phrase{"Zone : gauche %1, haut %2, largeur %3, hauteur %4, sur %5",
                "Zone: left %1, top %2, width %3, height "
                "%4, of %5"}
      .Dit(langue, QString::number(zone.Gauche), QString::number(zone.Haut), QString::number(zone.Droite - zone.Gauche),
           QString::number(zone.Bas - zone.Haut), QStringLiteral("%1x%2").arg(image.width()).arg(image.height()));
}

QString DitTouchesZone(Langue langue) {
  return Phrase{
      "Flèches : déplacer la zone ; Maj et flèches : l'agrandir ou la réduire ; Ctrl : au pixel près ; "
      "Origine : toute l'image ; Entrée : menu",
      "Arrows move the zone; Shift and arrows size it; Ctrl goes by single pixels; Home resets it to the "
      "whole picture; Enter opens the menu"}
      .Dit(langue);
}

}  // namespace vaktor
