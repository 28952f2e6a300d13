#include "image/photo_words.h"

#include <cerrno>
#include <system_error>

#include "image/jpeg_writer.h"
#include "texts/language.h"

namespace vaktor {
namespace {

QString Choisit(qint32 langue, const char* francais, const char* anglais) {
  return ChoisitLangue(langue, QString::fromUtf8(francais), QString::fromUtf8(anglais));
}

QString DitErreur(qint32 langue, int erreur) {
  switch (erreur) {
    case ENOSPC:
    case EDQUOT:
      return Choisit(langue, "le disque est plein", "the disk is full");
    case ENOENT:
    case ENOTDIR:
      return Choisit(langue, "le dossier n'existe plus", "the folder is not there any more");
    case EACCES:
    case EPERM:
      return Choisit(langue, "l'accès est refusé", "access is refused");
    case EROFS:
      return Choisit(langue, "le disque est protégé en écriture", "the disk can only be read");
    case ETIMEDOUT:
      return Choisit(langue, "le disque ne répond pas", "the disk does not answer");
    default:
      return Choisit(langue, "le disque a répondu « %1 »", "the disk answered \"%1\"")
          .arg(QString::fromStdString(std::generic_category().message(erreur)));
  }
}

QString DitRaison(qint32 langue, const Echec& echec) {
  const auto* jpeg = dynamic_cast<const EchecJpeg*>(&echec);
  if (jpeg == nullptr) return echec.Description();
  if (jpeg->Erreur() != 0) return DitErreur(langue, jpeg->Erreur());
  if (jpeg->Statut() == StatutJpeg::kMemoireEpuisee) {
    return Choisit(langue, "la mémoire manque", "there is not enough memory");
  }
  return Choisit(langue, "l'image n'a pas pu être codée (%1)", "the picture could not be encoded (%1)")
      .arg(static_cast<qint32>(jpeg->Statut()));
}

}  // namespace

// Where folders are joined by "/" a "\" in the stored form, as before "intrus", only puzzles.
QString DitDossier(const QString& dossier) {
  QString lisible = dossier;
  return lisible.replace(u'\\', u'/');
}

QString DitPannePhotos(qint32 langue, const QString& dossier, const Echec& echec) {
  // In one call: a folder's name may itself hold "%2".
  return Choisit(langue, "%1 : %2", "%1: %2").arg(DitDossier(dossier), DitRaison(langue, echec));
}

QString DitPertePhotos(qint32 langue, const QString& dossier, int erreur) {
  return Choisit(langue, "%1 : les dernières photos n'ont pas atteint le disque, %2",
                 "%1: the last photos did not reach the disk, %2")
      .arg(DitDossier(dossier), DitErreur(langue, erreur));
}

}  // namespace vaktor
