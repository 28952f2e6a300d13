// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/gallery_words.h"

#include "texts/phrase.h"

namespace vaktor {
namespace {

constexpr qsizetype kNomsDits = 10;

QString DitRaison(Langue langue, EtatPhoto etat) {
  switch (etat) {
    case EtatPhoto::kAbsente:
      return Phrase{"le fichier n'est plus là ou ne peut pas être lu",
                    "the file is not there any more or cannot be read"}
          .Dit(langue);
    case EtatPhoto::kVide:
      return Phrase{"le fichier est vide", "the file is empty"}.Dit(langue);
    case EtatPhoto::kTropGrande:
      return Phrase{"elle est trop grande", "it is too large"}.Dit(langue);
    case EtatPhoto::kSansMoyens:
      return Phrase{"l'ordinateur manque de mémoire pour l'instant", "the computer lacks memory at the moment"}.Dit(
          langue);
    case EtatPhoto::kSansReponse:
      return Phrase{"le disque ne répond pas encore", "the disk does not answer yet"}.Dit(langue);
    case EtatPhoto::kIllisible:
    case EtatPhoto::kLue:
      break;
  }
  return Phrase{"le fichier est endommagé", "the file is damaged"}.Dit(langue);
}

}  // namespace

QString AvisPhoto(Langue langue, EtatPhoto etat, const QString& nom) {
  if (etat == EtatPhoto::kLue) return {};
  // In one call: a name may itself hold "%2".
  return Phrase{"Cette photo ne peut pas être affichée :\n%2.\n%1", "This picture cannot be shown:\n%2.\n%1"}.Dit(
      langue, nom, DitRaison(langue, etat));
}

QString AvisDommage(Langue langue, Dommage defaut) {
  if (defaut == Dommage::kAucun) return {};
  if (defaut == Dommage::kCoupee) {
    return Phrase{"Photo endommagée : le fichier s'arrête avant la fin.", "Damaged picture: the file ends too early."}
        .Dit(langue);
  }
  return Phrase{"Photo endommagée : une partie de l'image est fausse.", "Damaged picture: a part of it is wrong."}.Dit(
      langue);
}

QString AvisAucunePhoto(Langue langue) {
  return Phrase{"Aucune photo dans ce répertoire.", "No picture in this folder."}.Dit(langue);
}

QString DitPhotoImpossible(Langue langue, EtatPhoto etat, const QString& nom) {
  return Phrase{"la photo « %1 » ne peut pas être affichée, %2.", "the picture \"%1\" cannot be shown, %2."}.Dit(
      langue, nom, DitRaison(langue, etat));
}

QString DitLectureImpossible(Langue langue, EtatNoms etat, const QString& dossier) {
  switch (etat) {
    case EtatNoms::kIllisible:
      return Phrase{"le répertoire des photos « %1 » n'existe pas ou ne peut pas être lu.",
                    "the folder of the pictures \"%1\" does not exist or cannot be read."}
          .Dit(langue, dossier);
    case EtatNoms::kErreurDisque:
      return Phrase{"le disque du répertoire des photos « %1 » a signalé une erreur : la liste n'est pas complète.",
                    "the disk of the folder of the pictures \"%1\" has reported an error: the list is not complete."}
          .Dit(langue, dossier);
    case EtatNoms::kSansMoyens:
      return Phrase{
          "l'ordinateur manque de mémoire pour lire le répertoire des photos « %1 ». Cliquez sur "
          "« Rafraîchir » pour réessayer.",
          "the computer lacks the memory to read the folder of the pictures \"%1\". Click on \"Refresh\" to "
          "try again."}
          .Dit(langue, dossier);
    case EtatNoms::kLus:
    case EtatNoms::kSansReponse:
      break;
  }
  return {};
}

QString AvisSansReponse(Langue langue, const QString& dossier) {
  return Phrase{"Le disque du répertoire des photos ne répond pas encore :\n%1",
                "The disk of the folder of the pictures does not answer yet:\n%1"}
      .Dit(langue, dossier);
}

QString DitPhotosRestees(Langue langue, const QStringList& noms) {
  QString message =
      noms.size() == 1
          ? Phrase{"Cette photo n'a pas pu être supprimée :", "This picture could not be erased:"}.Dit(langue)
          : Phrase{"Ces photos n'ont pas pu être supprimées :", "These pictures could not be erased:"}.Dit(langue);
  for (const QString& nom : noms.first(qMin(noms.size(), kNomsDits))) message += QStringLiteral("\r\n\"%1\"").arg(nom);
  if (noms.size() > kNomsDits) {
    message += QStringLiteral("\r\n") +
               Phrase{"et %1 autre(s).", "and %1 more."}.Dit(langue, QString::number(noms.size() - kNomsDits));
  }
  return message;
}

QString DitEffacementArrete(Langue langue, EtatEffacement etat, const QStringList& noms) {
  const QString raison =
      etat == EtatEffacement::kSansReponse
          ? Phrase{"Le disque ne répond pas.", "The disk does not answer."}.Dit(langue)
          : Phrase{"L'ordinateur manque de mémoire pour l'instant.", "The computer lacks memory at the moment."}.Dit(
                langue);
  return raison + QStringLiteral("\r\n") + DitPhotosRestees(langue, noms);
}

QString MotFrise(Langue langue) { return Phrase{"Frise", "Timeline"}.Dit(langue); }

QString AideFrise(Langue langue) {
  return Phrase{"La journée d'un coup d'œil : intrusions, veille, films (F4, ici comme dans la fenêtre principale)",
                "The day at a glance: intrusions, the watch, films (F4, here and in the main window)"}
      .Dit(langue);
}

QString MotListePhotos(Langue langue) { return Phrase{"Liste des photos", "List of pictures"}.Dit(langue); }

QString MotEffacement(Langue langue) { return Phrase{"Suppression des photos", "Erasing pictures"}.Dit(langue); }

QString MotPhotoMontree(Langue langue) { return Phrase{"Photo affichée", "Shown picture"}.Dit(langue); }

}  // namespace vaktor
