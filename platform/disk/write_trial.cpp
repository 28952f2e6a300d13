// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disk/write_trial.h"

#include <QFile>
#include <utility>

#include "platform/base/system_files.h"
#include "platform/folders/folder_access.h"

namespace vaktor {

// One whose thread has ended without bringing its answer here is tried again.
void EssaiEcritureSysteme::Essaie(const QString& dossier, Recoit recoit) {
  if (!Essais_.value(dossier).Fil.expired()) return;
  const auto fil = std::make_shared<int>();
  Essais_.insert(dossier, {fil, std::move(recoit)});
  const QByteArray nom = QFile::encodeName(CheminNatif(dossier));
  // Nothing is told of one that throws, or gets no thread: the folder goes on failing, and the next trial comes.
  Travaux_.Lance([this, fil, dossier, nom, relais = Relais_] {
    const bool reussi = EssaieUneEcriture(nom) == EtatDossier::kBon;
    // Run only while the relay is not cut, which this object does as it goes.
    relais->Poste([this, dossier, reussi] { Rend(dossier, reussi); });
  });
}

void EssaiEcritureSysteme::Rend(const QString& dossier, bool reussi) {
  const Essai essai = Essais_.take(dossier);
  if (essai.Rend) essai.Rend(reussi);
}

}  // namespace vaktor
