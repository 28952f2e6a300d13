// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/photo_words.h"

#include <cerrno>
#include <system_error>

#include "image/jpeg_writer.h"
#include "texts/phrase.h"

namespace vaktor {
namespace {

QString DitErreur(Langue langue, int erreur) {
  switch (erreur) {
    case ENOSPC:
    case EDQUOT:
      return Phrase{"le disque est plein", "the disk is full"}.Dit(langue);
    case ENOENT:
    case ENOTDIR:
      return Phrase{"le dossier n'existe plus", "the folder is not there any more"}.Dit(langue);
    case EACCES:
    case EPERM:
      return Phrase{"l'accès est refusé", "access is refused"}.Dit(langue);
    case EROFS:
      return Phrase{"le disque est protégé en écriture", "the disk can only be read"}.Dit(langue);
    case ETIMEDOUT:
      return Phrase{"le disque ne répond pas", "the disk does not answer"}.Dit(langue);
    default:
      return Phrase{"le disque a répondu « %1 »", "the disk answered \"%1\""}.Dit(
          langue, QString::fromStdString(std::generic_category().message(erreur)));
  }
}

QString DitRaison(Langue langue, const Echec& echec) {
  const auto* jpeg = dynamic_cast<const EchecJpeg*>(&echec);
  if (jpeg == nullptr) return echec.Description();
  if (jpeg->Erreur() != 0) return DitErreur(langue, jpeg->Erreur());
  if (jpeg->Statut() == StatutJpeg::kMemoireEpuisee) {
    return Phrase{"la mémoire manque", "there is not enough memory"}.Dit(langue);
  }
  return Phrase{"l'image n'a pas pu être codée (%1)", "the picture could not be encoded (%1)"}.Dit(
      langue, QString::number(static_cast<qint32>(jpeg->Statut())));
}

}  // namespace

// Where folders are joined by "/" a "\" in the stored form, as before "intrus", only puzzles.
QString DitDossier(const QString& dossier) {
  QString lisible = dossier;
  return lisible.replace(u'\\', u'/');
}

QString DitPannePhotos(Langue langue, const QString& dossier, const Echec& echec) {
  // In one call: a folder's name may itself hold "%2".
  return Phrase{"%1 : %2", "%1: %2"}.Dit(langue, DitDossier(dossier), DitRaison(langue, echec));
}

QString DitPertePhotos(Langue langue, const QString& dossier, int erreur) {
  return Phrase{"%1 : les dernières photos n'ont pas atteint le disque, %2",
                "%1: the last photos did not reach the disk, %2"}
      .Dit(langue, DitDossier(dossier), DitErreur(langue, erreur));
}

}  // namespace vaktor
