// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/start_arguments.h"

#include "texts/phrase.h"

namespace vaktor {

namespace {

bool Prend(const QString& argument, QLatin1StringView nom, QString& valeur) {
  if (!argument.startsWith(nom, Qt::CaseInsensitive)) return false;
  valeur = argument.mid(nom.size());
  return true;
}

}  // namespace

ArgumentsDepart LitArgumentsDepart(const QStringList& arguments) {
  ArgumentsDepart resultat;
  QStringList reste;
  for (const QString& argument : arguments) {
    if (Prend(argument, QLatin1StringView("/camera:"), resultat.Camera)) continue;
    if (Prend(argument, QLatin1StringView("/dossier:"), resultat.Dossier)) continue;
    if (argument == QLatin1StringView("--help") || argument == QLatin1StringView("-h")) resultat.Aide = true;
    if (argument == QLatin1StringView("--version")) resultat.Version = true;
    if (argument == QLatin1StringView("--cameras")) resultat.Cameras = true;
    reste.append(argument);
  }
  resultat.LigneCommande = reste.join(QLatin1Char(' '));
  return resultat;
}

ArgumentsAuto LitArgumentsAuto(const QString& ligne) {
  return {.Alarme = ligne.contains(QLatin1StringView("/alarm"), Qt::CaseInsensitive),
          .Live = ligne.contains(QLatin1StringView("/surve"), Qt::CaseInsensitive)};
}

QStringList TrouveInconnus(const QStringList& arguments) {
  QStringList inconnus;
  for (const QString& argument : arguments) {
    // The switches count anywhere in the text, so an argument that holds one is known.
    const ArgumentsAuto automatiques = LitArgumentsAuto(argument);
    const ArgumentsDepart lus = LitArgumentsDepart({argument});
    const bool connu = lus.LigneCommande.isEmpty() || lus.Aide || lus.Version || lus.Cameras || automatiques.Alarme ||
                       automatiques.Live;
    if (!connu) inconnus.append(argument);
  }
  return inconnus;
}

QString TexteAide(Langue langue) {
  constexpr Phrase kAide{
      "Vaktor : un détecteur de mouvement pour une caméra.\n"
      "\n"
      "  Vaktor [ARGUMENTS]\n"
      "\n"
      "  /camera:LIEU     la caméra de cette fois : un périphérique (/dev/video2), une adresse (rtsp:// ou http://),\n"
      "                   un film, ou \"test\" pour une image intégrée\n"
      "  /alarm           démarre la caméra et arme l'alarme\n"
      "  /surve           démarre la publication en direct\n"
      "  /dossier:CHEMIN  garde réglages, photos et tout ce qui est écrit sous CHEMIN\n"
      "  --cameras        à quelle caméra mènent ces arguments, et quelles autres existent ; statut 3 : aucune\n"
      "  --help, -h       ce texte\n"
      "  --version        la version\n",
      "Vaktor: a movement detector for one camera.\n"
      "\n"
      "  Vaktor [ARGUMENTS]\n"
      "\n"
      "  /camera:WHERE   the camera for this run: a device (/dev/video2), an address (rtsp:// or http://), a video\n"
      "                  file, or \"test\" for a built-in picture\n"
      "  /alarm          starts the camera and arms the alarm by itself\n"
      "  /surve          starts the live publishing by itself\n"
      "  /dossier:PATH   keeps settings, photos and everything else that is written below PATH\n"
      "  --cameras       which camera these arguments lead to, and which others there are; status 3: none\n"
      "  --help, -h      this text\n"
      "  --version       the version\n"};
  return kAide.Dit(langue);
}

}  // namespace vaktor
