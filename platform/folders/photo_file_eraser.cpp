// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/folders/photo_file_eraser.h"

#include <QElapsedTimer>
#include <atomic>
#include <memory>
#include <utility>

#include "image/deletion_slice.h"
#include "platform/base/system_files.h"

namespace vaktor {

EffaceurPhotosSysteme::EffaceurPhotosSysteme(std::chrono::milliseconds patience)
    : Question_(patience, {.Etat = EtatEffacement::kSansReponse}, {.Etat = EtatEffacement::kSansMoyens}) {}

void EffaceurPhotosSysteme::Efface(const QStringList& chemins, qsizetype debut, Recoit recoit) {
  // Of a slice that hangs or fails it has to be known which photo it hangs at.
  const auto essayees = std::make_shared<std::atomic<qsizetype>>(0);
  Question_.Pose(
      [chemins, debut, essayees](const std::atomic<bool>& abandon) {
        FichiersSysteme disque;
        QElapsedTimer horloge;
        horloge.start();
        EffaceTranche(chemins, debut,
                      {.Millisecondes = [&] { return horloge.elapsed(); },
                       .Supprime = [&](const QString& chemin) { disque.Supprime(chemin); },
                       .Abandonnee = [&] { return abandon.load(); },
                       .Essayee = [&] { essayees->fetch_add(1); }});
        return TrancheEffacee{.Etat = EtatEffacement::kFait};
      },
      [this, essayees, recoit = std::move(recoit)](TrancheEffacee tranche) {
        // It is told once: what the disk has done when it wakes is for the next list to show.
        if (tranche.Etat == EtatEffacement::kSansReponse) Question_.Oublie();
        tranche.Essayees = essayees->load();
        recoit(tranche);
      });
}

}  // namespace vaktor
