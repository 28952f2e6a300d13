// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/module_lifecycle.h"

#include <algorithm>

#include "base/failure.h"
#include "texts/phrase.h"

namespace vaktor {

namespace {

constexpr int kErrantsMax = 64;
constexpr int kImmortelsMax = 3;  // each costs half a second: processes that will not die must not hold the start up

QString DecritAbsence(const QString& programme, Langue langue) {
  return Phrase{"Le programme %1 est introuvable ou ne peut pas être lancé. Réinstallez Vaktor.",
                "The program %1 is missing or cannot be started. Please install Vaktor again."}
      .Dit(langue, programme);
}

bool TerminePid(Processus& processus, const ProcessusVu& vu) {
  if (vu.Pid == 0) return false;
  return processus.TermineProcessus(vu);
}

/// The matching processes of a fresh table, in its order. A rehearsal registers with nobody and ends by itself;
/// somebody looks at it, perhaps before another copy of this program.
QList<ProcessusVu> Cherche(const Processus& processus, const QString& nom) {
  QList<ProcessusVu> table = processus.PrendInstantane();
  table.removeIf([&nom](const ProcessusVu& vu) {
    if (vu.Essai) return true;
    const QStringList noms = {vu.Nom, vu.NomAppele, vu.NomScript};
    return std::none_of(noms.begin(), noms.end(),
                        [&nom](const QString& sien) { return sien.contains(nom, Qt::CaseInsensitive); });
  });
  return table;
}

}  // namespace

// Looked for anew until none is left, because a start leaves one instance and no second stray behind it: those that end
// by themselves meanwhile, and those that they have started, fall out or come in. One that cannot be ended is passed
// over, and the new one started all the same.
void TermineErrants(Processus& processus, const QString& nom) {
  QList<qint32> restes;
  for (int fois = 0; fois < kErrantsMax && restes.size() <= kImmortelsMax; ++fois) {
    QList<ProcessusVu> trouves = Cherche(processus, nom);
    trouves.removeIf([&restes](const ProcessusVu& vu) { return restes.contains(vu.Pid); });
    if (trouves.isEmpty()) return;
    if (!TerminePid(processus, trouves.first())) restes.append(trouves.first().Pid);
  }
}

void ModulesCompagnons::LanceModules() {
  for (const Compagnon compagnon : kCompagnons) TermineErrants(Processus_, DonneIdentite(compagnon).Programme);
  for (const Compagnon compagnon : kCompagnons) {
    if (!Lance_(compagnon))
      throw Echec(kFichierIntrouvable,
                  DecritAbsence(DonneIdentite(compagnon).Programme, LangueParlee(Reglages_.LangueCourante)));
  }
}

}  // namespace vaktor
