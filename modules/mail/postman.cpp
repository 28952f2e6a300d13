// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/postman.h"

#include <algorithm>
#include <exception>

namespace vaktor {
namespace {

constexpr int kRefus = 400;
constexpr int kRefusDefinitif = 500;

bool ConcerneLeCourriel(const ResultatEnvoi& resultat) {
  switch (resultat.Cause) {
    case CauseEchec::kExpediteurRefuse:
    case CauseEchec::kDestinataireRefuse:
    case CauseEchec::kMessageRefuse:
    case CauseEchec::kTropGros:
    case CauseEchec::kSansPlace:
    case CauseEchec::kReporte:
    case CauseEchec::kFichier:
      return true;
    default:
      return resultat.DuCourriel;
  }
}

// A wait that is longer than any of ours was noted before the clock was set back.
qint64 AttenteSaine(qint64 attente, qint64 max) { return attente <= 0 || attente > max ? 0 : attente; }

qint64 AttenteMaxDuCourriel() { return SacPostal::AttenteApresEssai(1000); }

void Ajoute(QStringList& liste, const QString& adresse) {
  if (!liste.contains(adresse)) liste.append(adresse);
}

}  // namespace

Facteur::Facteur(SacPostal sac, PlafondHoraire& plafond, std::function<qint64()> maintenant, Envoyeur envoie,
                 Rapporteur rapporte)
    : Sac_(std::move(sac)),
      Plafond_(plafond),
      Maintenant_(std::move(maintenant)),
      Envoie_(std::move(envoie)),
      Rapporte_(std::move(rapporte)) {}

void Facteur::Recommence(const QStringList& adresses) {
  EchecsDeSuite_ = 0;
  RefusConnexion_ = 0;
  Coupures_ = 0;
  PasAvant_ = 0;
  Reportes_.clear();
  RefusesA_.clear();
  for (auto memoire = Memoire_.begin(); memoire != Memoire_.end(); ++memoire)
    memoire->Courriel.Sort = RecommenceSort(memoire->Courriel.Destinataires, memoire->Courriel.Sort, adresses);
  // What the disk could not take of their fates is all that is known of who has them; it stays.
  for (auto sort = Sorts_.begin(); sort != Sorts_.end(); ++sort) sort->Refuses.clear();
  Sac_.RemetTout(adresses);
}

void Facteur::Confie(const CourrielEnAttente& courriel, const QByteArray& message) {
  if (Partis_.contains(courriel.Nom)) return;
  Memoire_.insert(courriel.Nom, {courriel, message});
  while (Memoire_.size() > kEnMemoireMax) {
    auto premier =
        std::find_if(Memoire_.begin(), Memoire_.end(), [](const EnMemoire& m) { return !m.Courriel.Prioritaire; });
    if (premier == Memoire_.end()) premier = Memoire_.begin();
    const QString nom = premier.key();
    Memoire_.erase(premier);
    Rapporte_({nom, {.Definitif = true, .Cause = CauseEchec::kAbandonne}, 0});
  }
}

bool Facteur::EstFrais(const CourrielEnAttente& courriel, qint64 maintenant) const {
  // One of the future was made before the clock was set back.
  return maintenant - courriel.FaitA < PlafondHoraire::kFraisMs;
}

qint64 Facteur::AttenteDuCourriel(const CourrielEnAttente& courriel, qint64 maintenant) {
  const qint64 sienne = AttenteSaine(std::max(courriel.ProchainEssai, Reportes_.value(courriel.Nom, 0)) - maintenant,
                                     AttenteMaxDuCourriel());
  const PlafondHoraire::Rang rang = courriel.Prioritaire             ? PlafondHoraire::Rang::kVeille
                                    : EstFrais(courriel, maintenant) ? PlafondHoraire::Rang::kFrais
                                                                     : PlafondHoraire::Rang::kAncien;
  return std::max(sienne, Plafond_.Attente(maintenant, rang));
}

// Of what the disk could not take note of only the memory knows; where both speak the memory is the newer.
void Facteur::PrendSort(CourrielEnAttente& courriel) const {
  const auto sort = Sorts_.constFind(courriel.Nom);
  if (sort != Sorts_.constEnd()) courriel.Sort = *sort;
}

QList<CourrielEnAttente> Facteur::DonneOrdre() {
  QStringList mauvais;
  QList<CourrielEnAttente> liste = Sac_.Liste(&mauvais);
  for (const QString& nom : std::as_const(mauvais))
    Rapporte_({nom, {.Definitif = true, .Cause = CauseEchec::kFichier}, 0});
  for (const CourrielEnAttente& courriel : std::as_const(liste)) {
    const SortCourriel sort = Memoire_.take(courriel.Nom).Courriel.Sort;
    if (sort != SortCourriel{}) Sorts_.insert(courriel.Nom, sort);
  }
  for (const EnMemoire& memoire : std::as_const(Memoire_)) liste.append(memoire.Courriel);
  for (CourrielEnAttente& courriel : liste) {
    PrendSort(courriel);
    // Whatever kept it in the box: who has it does not get it again.
    if (Partis_.contains(courriel.Nom)) Sac_.Acheve(courriel.Nom);
  }
  liste.removeIf([this](const CourrielEnAttente& c) { return Partis_.contains(c.Nom); });
  std::sort(liste.begin(), liste.end(), [](const CourrielEnAttente& a, const CourrielEnAttente& b) {
    if (a.Prioritaire != b.Prioritaire) return a.Prioritaire;
    return a.Prioritaire ? a.Nom < b.Nom : a.Nom > b.Nom;
  });
  return liste;
}

qint64 Facteur::Tour() {
  const qint64 maintenant = Maintenant_();
  const qint64 pourTous = maintenant < PasAvantDepuis_ ? 0 : AttenteSaine(PasAvant_ - maintenant, kReposConnexion);
  if (pourTous > 0) return EssaieUnNouveau(maintenant, pourTous);
  QSet<QString> recents;
  for (auto refus = RefusesA_.begin(); refus != RefusesA_.end(); ++refus)
    if (refus.value() <= maintenant && maintenant - refus.value() < SacPostal::kRepriseRefuseMs)
      recents.insert(refus.key());
  Sac_.RemetLesAnciens(maintenant, recents);
  for (const QString& nom : Sac_.Elague(maintenant, DonneEchus(maintenant))) {
    Essayes_.remove(nom);
    Echus_.remove(nom);
    Sorts_.remove(nom);
    Rapporte_({nom, {.Definitif = true, .Cause = CauseEchec::kAbandonne}, 0});
  }
  return EssaieLePremier(DonneOrdre(), maintenant);
}

void Facteur::NoteEssai(const CourrielEnAttente& courriel) {
  Essayes_.insert(courriel.Nom);
  const qint64 maintenant = Maintenant_();
  const bool vieux = maintenant - courriel.FaitA > SacPostal::kAgeMaxMs;
  if (vieux && !Echus_.contains(courriel.Nom)) Echus_.insert(courriel.Nom, maintenant);
}

QSet<QString> Facteur::DonneEchus(qint64 maintenant) const {
  QSet<QString> echus;
  for (auto echu = Echus_.begin(); echu != Echus_.end(); ++echu)
    if (maintenant - echu.value() >= kSursis) echus.insert(echu.key());
  return echus;
}

qint64 Facteur::EssaieLePremier(const QList<CourrielEnAttente>& liste, qint64 maintenant) {
  qint64 attente = kRienAFaire;
  const CourrielEnAttente* choisi = nullptr;
  for (const CourrielEnAttente& courriel : liste) {
    const qint64 avant = AttenteDuCourriel(courriel, maintenant);
    if (avant > 0)
      attente = std::min(attente, avant);
    else if (choisi == nullptr || courriel.Essais < choisi->Essais)
      choisi = &courriel;
    // Where many broke off in a row each has its turn: the newest would be the only one to be tried behind each rest.
    if (choisi != nullptr && Coupures_ < kCoupuresMax) break;
  }
  return choisi != nullptr ? Essaie(*choisi) : attente;
}

// A network that comes back tells nobody. The wait that has grown while it was away is for what waited with it;
// whatever comes of this attempt, it stays as it is.
qint64 Facteur::EssaieUnNouveau(qint64 maintenant, qint64 sinon) {
  if (RefusConnexion_ >= kRefusConnexionMax || Coupures_ >= kCoupuresMax) return sinon;
  QList<CourrielEnAttente> liste = DonneOrdre();
  liste.removeIf([&](const CourrielEnAttente& c) { return Essayes_.contains(c.Nom) || !EstFrais(c, maintenant); });
  if (liste.isEmpty() || AttenteDuCourriel(liste.first(), maintenant) > 0) return sinon;
  const int echecs = EchecsDeSuite_;
  const qint64 pasAvant = PasAvant_;
  const qint64 depuis = PasAvantDepuis_;
  const qint64 attente = Essaie(liste.first());
  if (PasAvant_ == 0) return attente;  // the server has answered
  EchecsDeSuite_ = echecs;
  if (RefusConnexion_ < kRefusConnexionMax) PasAvant_ = pasAvant, PasAvantDepuis_ = depuis;
  return 0;
}

void Facteur::GardeSort(const CourrielEnAttente& courriel) {
  const auto memoire = Memoire_.find(courriel.Nom);
  if (memoire != Memoire_.end())
    memoire->Courriel.Sort = courriel.Sort;
  else if (Sac_.NoteSort(courriel))
    Sorts_.remove(courriel.Nom);
  else
    Sorts_.insert(courriel.Nom, courriel.Sort);
}

void Facteur::NoteAccepte(CourrielEnAttente& courriel, const QList<VerdictAdresse>& verdicts) {
  if (Partis_.contains(courriel.Nom)) return;
  Plafond_.Note(Maintenant_());
  SortCourriel& sort = courriel.Sort;
  for (const VerdictAdresse& verdict : verdicts)
    if (verdict.Code < kRefus) Ajoute(sort.Servis, verdict.Adresse);
  if (!verdicts.isEmpty() && !EstSolde(courriel.Destinataires, sort)) return GardeSort(courriel);
  // First of all that it has gone: whatever the disk or the memory does afterwards, it does not go again.
  Partis_.insert(courriel.Nom);
  Essayes_.remove(courriel.Nom);
  Echus_.remove(courriel.Nom);
  Sorts_.remove(courriel.Nom);
  Memoire_.remove(courriel.Nom);
  Sac_.Acheve(courriel.Nom);
}

// A mail that finds no memory is put off like one whose file cannot be read: the others need not wait for it.
qint64 Facteur::Essaie(const CourrielEnAttente& courriel) {
  try {
    return EssaieUneFois(courriel);
  } catch (const std::exception&) {
    return Partis_.contains(courriel.Nom) ? 0 : TraiteEchec(courriel, {.Cause = CauseEchec::kFichier});
  }
}

ResultatEnvoi Facteur::Remet(CourrielEnAttente& courriel, const QByteArray& message) {
  CourrielEnAttente aRemettre = courriel;
  aRemettre.Destinataires = DonneRestants(courriel.Destinataires, courriel.Sort);
  bool note = false;
  ResultatEnvoi resultat = Envoie_(aRemettre, message, [&](const QList<VerdictAdresse>& verdicts) {
    note = true;
    NoteAccepte(courriel, verdicts);
  });
  if (resultat.Accepte && !note) NoteAccepte(courriel, resultat.Verdicts);
  return resultat;
}

void Facteur::NoteSucces() {
  EchecsDeSuite_ = 0;
  RefusConnexion_ = 0;
  Coupures_ = 0;
  PasAvant_ = 0;
}

qint64 Facteur::EssaieUneFois(CourrielEnAttente courriel) {
  const auto memoire = Memoire_.constFind(courriel.Nom);
  const QByteArray message = memoire != Memoire_.constEnd() ? memoire->Message : Sac_.LitMessage(courriel.Nom);
  if (message.isEmpty()) return TraiteEchec(courriel, {.Cause = CauseEchec::kFichier});
  ResultatEnvoi resultat = Remet(courriel, message);
  if (resultat.TropGros && !courriel.Sort.Allege && !Partis_.contains(courriel.Nom)) {
    courriel.Sort.Allege = true;
    GardeSort(courriel);
    resultat = Remet(courriel, message);
  }
  if (resultat.Cause == CauseEchec::kInterrompu) return kRienAFaire;
  if (!resultat.Accepte) return TraiteEchec(courriel, resultat);
  NoteSucces();
  if (Partis_.contains(courriel.Nom)) {
    Rapporte_({courriel.Nom, resultat, 0});
    return 0;
  }
  return TraiteEchecDuCourriel(courriel, resultat);
}

void Facteur::MetDeCote(const CourrielEnAttente& courriel) {
  const qint64 maintenant = Maintenant_();
  RefusesA_.insert(courriel.Nom, maintenant);
  // A disk that takes no more leaves it among those to be sent: it has its rest all the same.
  Reportes_.insert(courriel.Nom, maintenant + AttenteMaxDuCourriel());
  if (!Memoire_.contains(courriel.Nom)) Sac_.MetDeCote(courriel, maintenant);
}

qint64 Facteur::Reporte(const CourrielEnAttente& courriel) {
  const qint64 maintenant = Maintenant_();
  const qint64 attente = SacPostal::AttenteApresEssai(courriel.Essais + 1);
  const auto memoire = Memoire_.find(courriel.Nom);
  if (memoire != Memoire_.end())
    ++memoire->Courriel.Essais;
  else
    Sac_.Reporte(courriel, maintenant);
  Reportes_.insert(courriel.Nom, maintenant + attente);
  return attente;
}

qint64 Facteur::TraiteEchec(const CourrielEnAttente& courriel, const ResultatEnvoi& resultat) {
  return ConcerneLeCourriel(resultat) ? TraiteEchecDuCourriel(courriel, resultat)
                                      : TraiteEchecDuServeur(courriel, resultat);
}

// Also of a mail that some of its addresses have: it stays for the others.
qint64 Facteur::TraiteEchecDuCourriel(const CourrielEnAttente& courriel, const ResultatEnvoi& resultat) {
  NoteEssai(courriel);
  CourrielEnAttente reste = courriel;
  for (const VerdictAdresse& verdict : resultat.Verdicts)
    if (verdict.Code >= kRefusDefinitif) Ajoute(reste.Sort.Refuses, verdict.Adresse);
  if (reste.Sort != courriel.Sort) GardeSort(reste);
  qint64 attente = 0;
  if (resultat.Definitif || DonneRestants(reste.Destinataires, reste.Sort).isEmpty())
    MetDeCote(reste);
  else
    attente = Reporte(reste);
  Rapporte_({courriel.Nom, resultat, attente});
  const bool coupe = resultat.Cause == CauseEchec::kCoupure || resultat.Cause == CauseEchec::kDelai;
  Coupures_ = coupe ? Coupures_ + 1 : 0;
  if (resultat.Code != 0 && !coupe) EchecsDeSuite_ = 0, PasAvant_ = 0;  // a server that judges a mail is there
  if (Coupures_ < kCoupuresMax) return 0;                               // the next mail may have better luck
  PasAvantDepuis_ = Maintenant_();
  PasAvant_ = PasAvantDepuis_ + SacPostal::AttenteApresEssai(Coupures_ - kCoupuresMax + 1);
  return 0;
}

qint64 Facteur::TraiteEchecDuServeur(const CourrielEnAttente& courriel, const ResultatEnvoi& resultat) {
  NoteEssai(courriel);
  if (resultat.Cause == CauseEchec::kConnexionRefusee) ++RefusConnexion_;
  qint64 attente =
      RefusConnexion_ >= kRefusConnexionMax ? kReposConnexion : SacPostal::AttenteApresEssai(++EchecsDeSuite_);
  const bool introuvable =
      resultat.Cause == CauseEchec::kServeurIntrouvable || resultat.Cause == CauseEchec::kPasDeConnexion;
  if (introuvable) attente = std::min(attente, kAttenteReseauMax);
  PasAvantDepuis_ = Maintenant_();
  PasAvant_ = PasAvantDepuis_ + attente;
  Rapporte_({courriel.Nom, resultat, attente});
  return attente;
}

}  // namespace vaktor
