// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/folder_measurer.h"

#include <QFile>
#include <filesystem>

namespace vaktor {

namespace {

std::optional<TailleDossier> MesureFichiers(const QByteArray& dossier) {
  std::error_code erreur;
  std::filesystem::directory_iterator entree(dossier.toStdString(), erreur);
  if (erreur) return std::nullopt;
  TailleDossier taille;
  for (; entree != std::filesystem::directory_iterator(); entree.increment(erreur)) {
    if (erreur) return std::nullopt;
    std::error_code sienne;  // a file that goes meanwhile is none
    if (!entree->is_regular_file(sienne)) continue;
    const auto octets = entree->file_size(sienne);
    if (sienne) continue;
    ++taille.Nombre;
    taille.Octets += static_cast<qint64>(octets);
  }
  return erreur ? std::nullopt : std::optional(taille);
}

}  // namespace

void MesureurDossierSysteme::Mesure(const QString& dossier, Rend rend) {
  if (Question_.Attend()) return;
  Question_.Pose([chemin = QFile::encodeName(dossier)] { return MesureFichiers(chemin); }, std::nullopt,
                 std::move(rend));
}

}  // namespace vaktor
