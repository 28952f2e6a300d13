#include "image/folder_words.h"

#include "texts/language.h"

namespace vaktor {
namespace {

QString DonnePhrase(qint32 langue, EtatDossier etat) {
  switch (etat) {
    case EtatDossier::kBon:
      break;
    case EtatDossier::kAbsent:
      return ChoisitLangue(langue,
                           QStringLiteral("Le dossier « %1 » n'est plus accessible : son volume a été retiré, "
                                          "ou il a été supprimé."),
                           QStringLiteral("The folder \"%1\" can no longer be reached: its volume was removed, "
                                          "or it was deleted."));
    case EtatDossier::kInterdit:
      return ChoisitLangue(langue, QStringLiteral("Vous n'avez pas les droits nécessaires sur le dossier « %1 »."),
                           QStringLiteral("You do not have the permissions needed for the folder \"%1\"."));
    case EtatDossier::kLectureSeule:
      return ChoisitLangue(langue, QStringLiteral("Le dossier « %1 » se trouve sur un volume en lecture seule."),
                           QStringLiteral("The folder \"%1\" lies on a read-only volume."));
    case EtatDossier::kPlein:
      return ChoisitLangue(langue, QStringLiteral("Le volume du dossier « %1 » est plein."),
                           QStringLiteral("The volume of the folder \"%1\" is full."));
    case EtatDossier::kSansReponse:
      return ChoisitLangue(langue, QStringLiteral("Le volume du dossier « %1 » ne répond pas."),
                           QStringLiteral("The volume of the folder \"%1\" does not answer."));
  }
  return {};
}

}  // namespace

QString DitEtatDossier(qint32 langue, EtatDossier etat, const QString& dossier) {
  const QString phrase = DonnePhrase(langue, etat);
  return phrase.isEmpty() ? phrase : phrase.arg(dossier);
}

QString DitDossierNonSauve(qint32 langue, const QString& raison, const QString& garde) {
  return raison + u'\n' +
         ChoisitLangue(langue, QStringLiteral("Le dossier des photos reste « %1 »."),
                       QStringLiteral("The photo folder is still \"%1\"."))
             .arg(garde);
}

QString DitDossierRefuse(qint32 langue, EtatDossier etat, const QString& dossier, const QString& garde) {
  const QString suite = ChoisitLangue(
      langue, QStringLiteral("Aucune photo ne peut y être enregistrée. Le dossier des photos reste « %1 »."),
      QStringLiteral("No photo can be saved there. The photo folder is still \"%1\"."));
  return DitEtatDossier(langue, etat, dossier) + u'\n' + suite.arg(garde);
}

}  // namespace vaktor
