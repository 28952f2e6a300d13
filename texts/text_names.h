// SPDX-License-Identifier: GPL-3.0-or-later
// The names of the numbered texts. Each has its row in texts/text_rows.cpp; the number is that of the row, and what
// tests/texts/words.tsv knows it by. Numbers have gaps.
#pragma once

namespace vaktor {

/// Captions, list items, status words.
enum class Libelle : int {
  kPhotosParMail = 5,
  kEMail = 6,
  kSujet = 7,
  kTexteMail = 8,
  kPhotosMax = 10,
  kEnvoieMail = 11,
  kPrendPhoto = 13,
  kAlarmeSonore = 14,
  kMoniteur = 17,
  kNombreMails = 18,
  kSurveillanceActive = 33,
  kSurveillanceInactive = 34,
  kFtpConnecte = 36,
  kUploadTermine = 37,
  kAccesIncorrect = 38,
  kEchecFtp = 39,
  kInfosManquent = 40,
  kEnCreation = 42,
  kAdresseFtp = 46,
  kAdresseHtml = 47,
  kUtilisateurFtp = 48,
  kMotDePasseFtp = 49,
  kIntervalle = 50,
  kQualiteImages = 51,
  kDeconnecte = 52,
  kQualiteMax = 54,
  kQualiteHaute = 55,
  kQualiteMoyenne = 56,
  kQualiteBasse = 57,
  kCouleur = 58,  ///< of the list while nothing is chosen
  kRouge = 59,
  kVert = 60,
  kBleu = 61,
  kGris = 62,
  kMarron = 63,
  kJaune = 64,
  kBlanc = 65,
  kVaktorPasConnecte = 67,
  kEnConnexion = 69,
  kEnUpload = 70,
  kServeurIntrouvable = 71,
  kRepertoireInexistant = 72,
  kAlarme = 79,
  kDepartDans = 89,  ///< seconds follow
  kVoitRepertoire = 99,
  kChoisitRepertoire = 100,
  kRafraichit = 101,
  kEffacePhotos = 102,
  kPhotos = 103,  ///< a number stands before it
  kLogicielMessagerie = 149,
  kAdresseSmtp = 150,
  kAdresseEMail = 151,
  kUtilisateurSmtp = 153,
  kMotDePasseSmtp = 154,
  kSensibilite = 159,
  kRetard = 160,
  kNombrePhotosPage = 164,
  kCouleurPage = 165,
  kAlarmeInactive = 169,
  kAlarmeActive = 170,
  kInternetImpossible = 174,
  kMailDestination = 189,  ///< the prompt in the place of an address that is missing, too
  kPleinEcran = 194,
  kSupprime = 199,
  kSmtpAvecMotDePasse = 209,
  kChoisitCompte = 210,
  kSensibiliteAuto = 219,
  kPortSmtp = 229,
  kRepertoire = 230,
};

/// Tooltips.
enum class Aide : int {
  kCamera = 0,
  kAlarme = 1,
  kRetard = 2,
  kZone = 4,
  kPoints = 6,
  kPhotosParMail = 7,
  kNombreMails = 8,
  kMailDestination = 9,
  kSujet = 10,
  kTexteMail = 11,
  kChoisitRepertoire = 13,
  kPhotosMax = 14,
  kEnvoieMail = 17,
  kPrendPhoto = 19,
  kAlarmeSonore = 20,
  kJauge = 21,
  kPleinEcran = 23,
  kDureeAnalyse = 24,
  kFormatVideo = 25,
  kSourceVideo = 26,
  kMiseAJour = 33,
  kNotice = 34,
  kAdresseFtp = 40,
  kAdresseHtml = 41,
  kUtilisateurFtp = 42,
  kMotDePasseFtp = 43,
  kIntervalle = 44,
  kQualiteImages = 45,
  kCreePage = 46,
  kTestePage = 47,
  kListeCouleurs = 54,  ///< of the list itself; kCouleurPage is that of its label
  kLogicielMessagerie = 149,
  kAdresseSmtp = 150,
  kAdresseEMail = 151,
  kNombrePhotosPage = 159,
  kCouleurPage = 160,
  kSensibiliteAuto = 199,
  kPortSmtp = 229,
};

/// Texts and titles of message boxes; line breaks are CR LF.
enum class Message : int {
  kAdresseManque = 1,
  kTitreManque = 2,  ///< title: something has to be filled in first
  kPeuDePlace = 3,
  kTitre = 4,  ///< title of all other boxes
  kCameraInactive = 8,
  kSiteIncomplet = 9,
  kEffaceTout = 14,
  kTitreEffaceTout = 15,  ///< title
  kCameraIntrouvable = 16,
  kEffacePhoto = 22,  ///< the photo's name follows
  kMessagerieManque = 24,
  kAccesIncomplet = 25,
};

}  // namespace vaktor
