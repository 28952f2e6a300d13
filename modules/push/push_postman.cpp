// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_postman.h"

#include <algorithm>
#include <optional>

namespace vaktor {

void FacteurPush::Recommence() {
  Echecs_ = 0;
  PasAvant_ = 0;
}

qint64 FacteurPush::Tour() {
  const qint64 maintenant = Maintenant_();
  // A wait that is longer than any of ours was noted before the clock was set back.
  const qint64 attente = PasAvant_ - maintenant;
  if (attente > 0 && attente <= kAttentes.back()) return attente;
  for (const QString& nom : Sac_.Elague(maintenant, Essayes_)) Rapporte_({nom, {}, true, 0});
  qint64 regard = kRienAFaire;
  for (const QString& nom : Sac_.Liste()) {
    if (Partis_.contains(nom)) continue;
    bool passager = false;
    std::optional<MessagePush> message = Sac_.Lit(nom, &passager);
    if (passager) {
      regard = kAttentes.front();
      continue;
    }
    if (!message) {
      Sac_.Retire(nom);
      Partis_.insert(nom);
      Rapporte_({nom, {}, true, 0, true});
      continue;
    }
    if (!Essayes_.contains(nom)) Essayes_.append(nom);
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
    Recommence();
    Partis_.insert(nom);
    Essayes_.removeAll(nom);
    SansImage_.remove(nom);
    Sac_.Retire(nom);
    Rapporte_({nom, resultat, refuse, 0});
    return 0;
  }
  if (resultat.Issue == IssuePush::kInterrompu) return kRienAFaire;
  const qint64 attente = kAttentes.at(std::min(Echecs_, kAttentes.size() - 1));
  ++Echecs_;
  PasAvant_ = Maintenant_() + attente;
  Rapporte_({nom, resultat, false, attente});
  return attente;
}

}  // namespace vaktor
