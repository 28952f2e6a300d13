// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/folders/photo_names_reader.h"

#include <QFile>
#include <cerrno>
#include <utility>

#include "platform/base/system_files.h"

namespace vaktor {
namespace {

EtatNoms DonneEtat(const DossierListe& lu) {
  if (lu.Erreur == 0) return EtatNoms::kLus;
  // No file descriptor left is like no memory left: it says nothing of the folder.
  if (lu.Erreur == ENOMEM || lu.Erreur == EMFILE || lu.Erreur == ENFILE) return EtatNoms::kSansMoyens;
  return lu.Commence ? EtatNoms::kErreurDisque : EtatNoms::kIllisible;
}

}  // namespace

LecteurNomsSysteme::LecteurNomsSysteme(std::chrono::milliseconds patience, Liste liste)
    : Liste_(std::move(liste)),
      Question_(patience, {.Etat = EtatNoms::kSansReponse}, {.Etat = EtatNoms::kSansMoyens}) {}

void LecteurNomsSysteme::LitNoms(const QString& dossier, const QString& motif, Recoit recoit) {
  Question_.Pose(
      [liste = Liste_, chemin = QFile::encodeName(CheminNatif(dossier)), motif](const std::atomic<bool>& abandon) {
        DossierListe lu = liste(chemin, motif, abandon);
        return NomsPhotos{.Etat = DonneEtat(lu), .Noms = std::move(lu.Noms)};
      },
      std::move(recoit));
}

}  // namespace vaktor
