// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_postman.h"

#include <algorithm>
#include <optional>

namespace vaktor {

namespace {

qint64 DonneAttente(size_t fois) {
  return FacteurPush::kAttentes.at(std::min(fois, FacteurPush::kAttentes.size() - 1));
}

// A wait that is longer than any of ours was noted before the clock was set back.
qint64 AttenteSaine(qint64 attente) {
  return attente > FacteurPush::kAttentes.back() ? 0 : std::max<qint64>(attente, 0);
}

}  // namespace

void FacteurPush::Recommence() {
  Echecs_ = Coupures_ = 0;
  PasAvant_ = 0;
  Reports_.clear();
}

qint64 FacteurPush::AttenteDe(const QString& nom, qint64 maintenant) const {
  const auto report = Reports_.constFind(nom);
  return report == Reports_.cend() ? 0 : AttenteSaine(report->PasAvant - maintenant);
}

qint64 FacteurPush::Tour() {
  const qint64 maintenant = Maintenant_();
  if (const qint64 attente = AttenteSaine(PasAvant_ - maintenant); attente > 0) return attente;
  QStringList echus;
  for (auto echu = Echus_.begin(); echu != Echus_.end(); ++echu)
    if (maintenant - echu.value() >= kSursis) echus.append(echu.key());
  for (const QString& nom : Sac_.Elague(maintenant, echus)) {
    Oublie(nom);
    Rapporte_({nom, {}, true, 0});
  }
  QStringList noms = Sac_.Liste();
  // Those that were cut off less often first, whether they wait or not: the same one would have each turn else.
  std::stable_sort(noms.begin(), noms.end(), [this](const QString& a, const QString& b) {
    return Reports_.value(a).Fois < Reports_.value(b).Fois;
  });
  return EssaieLePremier(noms, maintenant);
}

qint64 FacteurPush::EssaieLePremier(const QStringList& noms, qint64 maintenant) {
  qint64 regard = kRienAFaire;
  for (const QString& nom : noms) {
    if (Partis_.contains(nom)) continue;
    if (const qint64 sienne = AttenteDe(nom, maintenant); sienne > 0) {
      regard = std::min(regard, sienne);
      continue;
    }
    bool passager = false;
    std::optional<MessagePush> message = Sac_.Lit(nom, &passager);
    if (passager) {
      regard = std::min(regard, kAttentes.front());
      continue;
    }
    if (!message) {
      Sac_.Retire(nom);
      Partis_.insert(nom);
      Rapporte_({nom, {}, true, 0, true});
      continue;
    }
    if (maintenant - SacPush::FaitA(nom) > SacPush::kAgeMax && !Echus_.contains(nom)) Echus_.insert(nom, maintenant);
    if (SansImage_.contains(nom)) message->Image.clear();
    return Juge(nom, *message, Envoie_(*message));
  }
  return regard;
}

qint64 FacteurPush::Juge(const QString& nom, const MessagePush& message, const ResultatPush& resultat) {
  const bool sansImage = resultat.Issue == IssuePush::kTropGrand && !message.Image.isEmpty();
  const bool refuse = (resultat.Issue == IssuePush::kTropGrand && !sansImage) || resultat.Issue == IssuePush::kRefuse;
  if (sansImage) {
    SansImage_.insert(nom);  // also where the disk does not take the shorter file
    Sac_.RetireImage(nom);
    return 0;
  }
  if (resultat.Issue == IssuePush::kPris || refuse) {
    Echecs_ = Coupures_ = 0;
    PasAvant_ = 0;
    Partis_.insert(nom);
    Oublie(nom);
    Sac_.Retire(nom);
    Rapporte_({nom, resultat, refuse, 0});
    return 0;
  }
  if (resultat.Issue == IssuePush::kInterrompu) return kRienAFaire;
  if (resultat.Coupe) return Reporte(nom, resultat);
  const qint64 attente = AttendTous(Echecs_++);
  Rapporte_({nom, resultat, false, attente});
  return attente;
}

void FacteurPush::Oublie(const QString& nom) {
  Echus_.remove(nom);
  SansImage_.remove(nom);
  Reports_.remove(nom);
}

qint64 FacteurPush::AttendTous(size_t fois) {
  const qint64 attente = DonneAttente(fois);
  PasAvant_ = Maintenant_() + attente;
  return attente;
}

// Many that are cut off, one after the other, say something about the way.
qint64 FacteurPush::Reporte(const QString& nom, const ResultatPush& resultat) {
  Report& report = Reports_[nom];
  const qint64 attente = DonneAttente(report.Fois++);
  report.PasAvant = Maintenant_() + attente;
  ++Coupures_;
  const qint64 pourTous = Coupures_ < kCoupuresMax ? 0 : AttendTous(Coupures_ - kCoupuresMax);
  Rapporte_({nom, resultat, false, std::max(attente, pourTous)});
  return pourTous;
}

}  // namespace vaktor
