// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/postman.h"

#include <algorithm>
#include <exception>

namespace vaktor {
namespace {

bool ConcerneLeCourriel(CauseEchec cause) {
  return cause == CauseEchec::kExpediteurRefuse || cause == CauseEchec::kDestinataireRefuse ||
         cause == CauseEchec::kMessageRefuse || cause == CauseEchec::kFichier;
}

// A wait that is longer than any of ours was noted before the clock was set back.
qint64 AttenteSaine(qint64 attente) {
  static const qint64 kMax = SacPostal::AttenteApresEssai(1000);
  return attente <= 0 || attente > kMax ? 0 : attente;
}

}  // namespace

Facteur::Facteur(SacPostal sac, PlafondHoraire& plafond, std::function<qint64()> maintenant, Envoyeur envoie,
                 Rapporteur rapporte)
    : Sac_(std::move(sac)),
      Plafond_(plafond),
      Maintenant_(std::move(maintenant)),
      Envoie_(std::move(envoie)),
      Rapporte_(std::move(rapporte)) {}

void Facteur::Recommence() {
  EchecsDeSuite_ = 0;
  PasAvant_ = 0;
  Reportes_.clear();
  Sac_.RemetTout();
}

qint64 Facteur::AttenteDuCourriel(const CourrielEnAttente& courriel, qint64 maintenant) {
  const qint64 sienne = AttenteSaine(std::max(courriel.ProchainEssai, Reportes_.value(courriel.Nom, 0)) - maintenant);
  return std::max(sienne, Plafond_.Attente(maintenant, courriel.Prioritaire));
}

qint64 Facteur::Tour() {
  const qint64 maintenant = Maintenant_();
  const qint64 pourTous = AttenteSaine(PasAvant_ - maintenant);
  if (pourTous > 0) return pourTous;
  for (const QString& nom : Sac_.Elague(maintenant, Essayes_)) {
    Essayes_.remove(nom);
    Rapporte_({nom, {.Definitif = true, .Cause = CauseEchec::kAbandonne}, 0});
  }
  qint64 attente = kRienAFaire;
  QList<CourrielEnAttente> liste = Sac_.Liste();
  std::stable_partition(liste.begin(), liste.end(), [](const CourrielEnAttente& c) { return c.Prioritaire; });
  for (const CourrielEnAttente& courriel : liste) {
    if (Partis_.contains(courriel.Nom)) continue;
    const qint64 avant = AttenteDuCourriel(courriel, maintenant);
    if (avant == 0) return Essaie(courriel);
    attente = std::min(attente, avant);
  }
  return attente;
}

void Facteur::NoteAccepte(const QString& nom) {
  if (Partis_.contains(nom)) return;
  // First of all that it has gone: whatever the disk or the memory does afterwards, it does not go again.
  Partis_.insert(nom);
  Plafond_.Note(Maintenant_());
  Essayes_.remove(nom);
  Sac_.Acheve(nom);
}

// A mail that finds no memory is put off like one whose file cannot be read: the others need not wait for it.
qint64 Facteur::Essaie(const CourrielEnAttente& courriel) {
  try {
    return EssaieUneFois(courriel);
  } catch (const std::exception&) {
    return Partis_.contains(courriel.Nom) ? 0 : TraiteEchec(courriel, {.Cause = CauseEchec::kFichier});
  }
}

qint64 Facteur::EssaieUneFois(const CourrielEnAttente& courriel) {
  const QByteArray message = Sac_.LitMessage(courriel.Nom);
  if (message.isEmpty()) return TraiteEchec(courriel, {.Cause = CauseEchec::kFichier});
  const ResultatEnvoi resultat = Envoie_(courriel, message, [&] { NoteAccepte(courriel.Nom); });
  if (resultat.Cause == CauseEchec::kInterrompu) return kRienAFaire;
  if (!resultat.Accepte) return TraiteEchec(courriel, resultat);
  NoteAccepte(courriel.Nom);
  EchecsDeSuite_ = 0;
  PasAvant_ = 0;
  Rapporte_({courriel.Nom, resultat, 0});
  return 0;
}

qint64 Facteur::TraiteEchec(const CourrielEnAttente& courriel, const ResultatEnvoi& resultat) {
  const qint64 maintenant = Maintenant_();
  const bool duCourriel = ConcerneLeCourriel(resultat.Cause);
  Essayes_.insert(courriel.Nom);
  qint64 attente = 0;
  if (duCourriel && resultat.Definitif) {
    Sac_.MetDeCote(courriel.Nom);
  } else if (duCourriel) {
    attente = SacPostal::AttenteApresEssai(courriel.Essais + 1);
    Sac_.Reporte(courriel, maintenant);
    Reportes_.insert(courriel.Nom, maintenant + attente);
  } else {
    attente = SacPostal::AttenteApresEssai(++EchecsDeSuite_);
    PasAvant_ = maintenant + attente;
  }
  Rapporte_({courriel.Nom, resultat, attente});
  return duCourriel ? 0 : attente;  // the next mail may have better luck, unless the way itself is closed
}

}  // namespace vaktor
