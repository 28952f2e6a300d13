// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/folder_words.h"

#include "texts/phrase.h"

namespace vaktor {
namespace {

QString DonnePhrase(Langue langue, EtatDossier etat) {
  switch (etat) {
    case EtatDossier::kBon:
      break;
    case EtatDossier::kAbsent:
      return Phrase{
          "Le dossier « %1 » n'est plus accessible : son volume a été retiré, "
          "ou il a été supprimé.",
          "The folder \"%1\" can no longer be reached: its volume was removed, "
          "or it was deleted."}
          .Dit(langue);
    case EtatDossier::kInterdit:
      return Phrase{"Vous n'avez pas les droits nécessaires sur le dossier « %1 ».",
                    "You do not have the permissions needed for the folder \"%1\"."}
          .Dit(langue);
    case EtatDossier::kLectureSeule:
      return Phrase{"Le dossier « %1 » se trouve sur un volume en lecture seule.",
                    "The folder \"%1\" lies on a read-only volume."}
          .Dit(langue);
    case EtatDossier::kPlein:
      return Phrase{"Le volume du dossier « %1 » est plein.", "The volume of the folder \"%1\" is full."}.Dit(langue);
    case EtatDossier::kSansReponse:
      return Phrase{"Le volume du dossier « %1 » ne répond pas.", "The volume of the folder \"%1\" does not answer."}
          .Dit(langue);
  }
  return {};
}

}  // namespace

QString DitEtatDossier(Langue langue, EtatDossier etat, const QString& dossier) {
  const QString phrase = DonnePhrase(langue, etat);
  return phrase.isEmpty() ? phrase : phrase.arg(dossier);
}

QString DitDossierNonSauve(Langue langue, const QString& raison, const QString& garde) {
  return raison + u'\n' +
         Phrase{"Le dossier des photos reste « %1 ».", "The photo folder is still \"%1\"."}.Dit(langue, garde);
}

QString DitDossierRefuse(Langue langue, EtatDossier etat, const QString& dossier, const QString& garde) {
  const QString suite = Phrase{"Aucune photo ne peut y être enregistrée. Le dossier des photos reste « %1 ».",
                               "No photo can be saved there. The photo folder is still \"%1\"."}
                            .Dit(langue);
  return DitEtatDossier(langue, etat, dossier) + u'\n' + suite.arg(garde);
}

}  // namespace vaktor
