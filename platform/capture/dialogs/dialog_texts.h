// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the capture driver's dialogs, French and English, all in one place.
#pragma once

#include <QSize>
#include <QString>

#include "platform/capture/choice/camera_format.h"
#include "texts/language.h"

namespace vaktor {

enum class TexteDialogue {
  kTitreFormat,
  kTitreSource,
  kFormatCourant,  ///< %1: source, %2: format
  kCodage,
  kTaille,
  kCadence,
  kCadenceLibre,    ///< the camera picks the rate itself
  kReduit,          ///< mark in the list; %1: the size that it is scaled down to
  kConseille,       ///< mark in the list
  kRemarqueReduit,  ///< %1: the same
  kFormatReseau,    ///< %1: size
  kFormatFichier,   ///< %1: size
  kFormatTest,      ///< %1: size
  kFormatBureau,    ///< %1: size
  kTailleInconnue,
  kAucunFormat,
  kApplique,
  kOk,
  kAnnule,
  kFerme,
  kUnInstant,
  kEssaiSource,
  kFormatApplique,
  kFormatRefuse,
  kNonRetenu,  ///< it holds for this run, but could not be remembered
  kGroupeSource,
  kListeSources,
  kAucuneCamera,
  kDuBureau,  ///< %1: a camera's name
  kImageEssai,
  kAdresseOuFichier,
  kEnService,  ///< mark of the source at work
  kAdresse,
  kAdresseExemple,
  kParcourt,
  kChoisitFichier,
  kFiltreVideo,
  kTousFichiers,
  kUtilise,
  kActualise,
  kSourceChangee,       ///< %1: source
  kSourceReduite,       ///< %1: source, %2: size, %3: the size that it is scaled down to
  kSourceRefusee,       ///< %1: source, %2: why
  kSourceSansImage,     ///< the same where nothing else goes on
  kDemandeAutreSource,  ///< the same at a connection, when another one may be chosen
  kAdresseVide,
  kMotDePasseMasque,
  kGroupeReglages,
  kDefauts,
  kReglagesReseau,
  kReglagesFichier,
  kReglagesTest,
  kReglagesBureau,
  kAucunReglage,
  kPeripheriqueMuet,  ///< %1: node
  kReglageRefuse,     ///< %1: name of the control
  kDefautsRemis,
  kDefautsRefuses,
  kDossier,
  kNomFichier,
  kGenreFichiers,
  kOuvre,
  kNombre  ///< how many there are
};

QString TexteDe(TexteDialogue texte, Langue langue);

/// "640 x 480" with the proper sign.
QString TexteTaille(QSize taille);
QString TexteTaille(const FormatCamera& format);
/// "30 images/s", "7.5 frames/s"; for an unknown rate the words of kCadenceLibre.
QString TexteCadence(const FormatCamera& format, Langue langue);
/// A coding with what it means: "MJPG - ..." ; one that is not known is shown by its code alone.
QString TexteCodage(const QString& codage, Langue langue);
/// All three.
QString TexteFormat(const FormatCamera& format, Langue langue);

/// Linux names controls and their choices in English only. The common ones are known here; others stay as they are.
QString NomReglage(quint32 numero, const QString& nom, Langue langue);
QString NomChoix(const QString& choix, Langue langue);

}  // namespace vaktor
