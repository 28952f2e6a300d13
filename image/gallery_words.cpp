#include "image/gallery_words.h"

#include "texts/language.h"

namespace vaktor {
namespace {

constexpr qsizetype kNomsDits = 10;

QString Choisit(qint32 langue, const char* francais, const char* anglais) {
  return ChoisitLangue(langue, QString::fromUtf8(francais), QString::fromUtf8(anglais));
}

QString DitRaison(qint32 langue, EtatPhoto etat) {
  switch (etat) {
    case EtatPhoto::kAbsente:
      return Choisit(langue, "le fichier n'est plus là ou ne peut pas être lu",
                     "the file is not there any more or cannot be read");
    case EtatPhoto::kVide:
      return Choisit(langue, "le fichier est vide", "the file is empty");
    case EtatPhoto::kTropGrande:
      return Choisit(langue, "elle est trop grande", "it is too large");
    case EtatPhoto::kSansMoyens:
      return Choisit(langue, "l'ordinateur manque de mémoire pour l'instant",
                     "the computer lacks memory at the moment");
    case EtatPhoto::kSansReponse:
      return Choisit(langue, "le disque ne répond pas encore", "the disk does not answer yet");
    case EtatPhoto::kIllisible:
    case EtatPhoto::kLue:
      break;
  }
  return Choisit(langue, "le fichier est endommagé", "the file is damaged");
}

}  // namespace

QString AvisPhoto(qint32 langue, EtatPhoto etat, const QString& nom) {
  if (etat == EtatPhoto::kLue) return {};
  // In one call: a name may itself hold "%2".
  return Choisit(langue, "Cette photo ne peut pas être affichée :\n%2.\n%1", "This picture cannot be shown:\n%2.\n%1")
      .arg(nom, DitRaison(langue, etat));
}

QString AvisDommage(qint32 langue, Dommage defaut) {
  if (defaut == Dommage::kAucun) return {};
  if (defaut == Dommage::kCoupee) {
    return Choisit(langue, "Photo endommagée : le fichier s'arrête avant la fin.",
                   "Damaged picture: the file ends too early.");
  }
  return Choisit(langue, "Photo endommagée : une partie de l'image est fausse.",
                 "Damaged picture: a part of it is wrong.");
}

QString AvisAucunePhoto(qint32 langue) {
  return Choisit(langue, "Aucune photo dans ce répertoire.", "No picture in this folder.");
}

QString DitPhotoImpossible(qint32 langue, EtatPhoto etat, const QString& nom) {
  return Choisit(langue, "la photo « %1 » ne peut pas être affichée, %2.", "the picture \"%1\" cannot be shown, %2.")
      .arg(nom, DitRaison(langue, etat));
}

QString DitLectureImpossible(qint32 langue, EtatNoms etat, const QString& dossier) {
  switch (etat) {
    case EtatNoms::kIllisible:
      return Choisit(langue, "le répertoire des photos « %1 » n'existe pas ou ne peut pas être lu.",
                     "the folder of the pictures \"%1\" does not exist or cannot be read.")
          .arg(dossier);
    case EtatNoms::kErreurDisque:
      return Choisit(langue,
                     "le disque du répertoire des photos « %1 » a signalé une erreur : la liste n'est pas complète.",
                     "the disk of the folder of the pictures \"%1\" has reported an error: the list is not complete.")
          .arg(dossier);
    case EtatNoms::kSansMoyens:
      return Choisit(langue,
                     "l'ordinateur manque de mémoire pour lire le répertoire des photos « %1 ». Cliquez sur "
                     "« Rafraîchir » pour réessayer.",
                     "the computer lacks the memory to read the folder of the pictures \"%1\". Click on \"Refresh\" to "
                     "try again.")
          .arg(dossier);
    case EtatNoms::kLus:
    case EtatNoms::kSansReponse:
      break;
  }
  return {};
}

QString AvisSansReponse(qint32 langue, const QString& dossier) {
  return Choisit(langue, "Le disque du répertoire des photos ne répond pas encore :\n%1",
                 "The disk of the folder of the pictures does not answer yet:\n%1")
      .arg(dossier);
}

QString DitPhotosRestees(qint32 langue, const QStringList& noms) {
  QString message =
      noms.size() == 1
          ? Choisit(langue, "Cette photo n'a pas pu être supprimée :", "This picture could not be erased:")
          : Choisit(langue, "Ces photos n'ont pas pu être supprimées :", "These pictures could not be erased:");
  for (const QString& nom : noms.first(qMin(noms.size(), kNomsDits))) message += QStringLiteral("\r\n\"%1\"").arg(nom);
  if (noms.size() > kNomsDits) {
    message += QStringLiteral("\r\n") +
               Choisit(langue, "et %1 autre(s).", "and %1 more.").arg(QString::number(noms.size() - kNomsDits));
  }
  return message;
}

QString DitEffacementArrete(qint32 langue, EtatEffacement etat, const QStringList& noms) {
  const QString raison = etat == EtatEffacement::kSansReponse
                             ? Choisit(langue, "Le disque ne répond pas.", "The disk does not answer.")
                             : Choisit(langue, "L'ordinateur manque de mémoire pour l'instant.",
                                       "The computer lacks memory at the moment.");
  return raison + QStringLiteral("\r\n") + DitPhotosRestees(langue, noms);
}

QString MotListePhotos(qint32 langue) { return Choisit(langue, "Liste des photos", "List of pictures"); }

QString MotEffacement(qint32 langue) { return Choisit(langue, "Suppression des photos", "Erasing pictures"); }

}  // namespace vaktor
