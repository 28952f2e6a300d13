// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the journal of the watch, and as the slate of an intrusion: what can be read is read, what is made of it
// is in good order, and what was read once is the same after it was written and read again.
#include <cstdint>
#include <cstdlib>

#include "companions/contract/intrusion_slate.h"
#include "journal/chronicle.h"

namespace vaktor {
namespace {

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

void Essaie(QByteArrayView octets) {
  const JournalLu lu = LitJournal(octets);
  QByteArray relu;
  for (const EntreeJournal& entree : lu.Entrees) {
    const QByteArray ligne = EcritLigne(entree);
    Exige(!ligne.contains('\n'));
    // Characters that JSON writes longer than they came may make a line too long for its own reader.
    if (ligne.size() <= kLigneMax) Exige(LitLigne(ligne) == entree);
    relu += ligne + '\n';
  }
  if (const auto ardoise = LitArdoise(octets)) {
    Exige(ardoise->Photos.size() <= kPhotosArdoise && ardoise->Depuis.isValid() && ardoise->Jusqua.isValid());
    for (const PhotoArdoise& photo : ardoise->Photos) Exige(!photo.Nom.isEmpty() && !photo.Nom.contains(u'/'));
    EstDeCetteIntrusion(*ardoise, 0);
  }
  const qsizetype garde = TrouveDebutGarde(octets, octets.size() / 2);
  Exige(garde >= octets.size() - octets.size() / 2 && garde <= octets.size());

  SourcesChronique sources{.Journal = lu, .Course = QStringLiteral("r1")};
  sources.Maintenant = QDateTime(QDate(2026, 11, 22), QTime(12, 0));
  for (const EntreeJournal& entree : lu.Entrees) {
    sources.Noms[entree.Dossier] << entree.Premiere << entree.Meilleure << entree.Derniere;
  }
  const Chronique chronique = ComposeChronique(sources);
  for (const BandeTemps& bande : chronique.Armees) Exige(bande.De <= bande.A);
  for (const BandeCondition& bande : chronique.Conditions) Exige(bande.De <= bande.A);
  for (const IntrusionVue& vue : chronique.Intrusions) {
    Exige(vue.Debut.isValid() && vue.DureeMs >= 0);
    Exige(vue.Parlante.isEmpty() == vue.Photos.isEmpty());
  }
  const qint64 veille =
      chronique.DureeVeille(QDateTime(QDate(2026, 11, 22), QTime(0, 0)), QDateTime(QDate(2026, 11, 23), QTime(0, 0)));
  Exige(veille >= 0 && veille <= 25LL * 3'600'000);
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  vaktor::Essaie(QByteArrayView(donnees, static_cast<qsizetype>(taille)));
  return 0;
}
