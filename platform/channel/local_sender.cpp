// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/local_sender.h"

#include <QTimerEvent>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>

namespace vaktor {

qint64 EmetteurLocal::CompteMonotone() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

EmetteurLocal::EmetteurLocal(const DossierCanal& dossier, std::function<qint64()> maintenant)
    : Dossier_(dossier), Maintenant_(std::move(maintenant)) {}

EmetteurLocal::~EmetteurLocal() = default;

EmetteurLocal::Destinataire& EmetteurLocal::DonneDestinataire(qint32 poignee) {
  const auto connu = Destinataires_.find(poignee);
  if (connu != Destinataires_.end()) return *connu->second;
  // Made before its place: one without it would stay where there is no memory for it.
  auto nouveau = std::make_unique<Destinataire>(Dossier_, poignee);
  return *Destinataires_.emplace(poignee, std::move(nouveau)).first->second;
}

// One command at a time is on its way: what the kernel has cannot be taken back, folded or let go stale.
bool EmetteurLocal::PeutPartir(Destinataire& vers, Genre genre) {
  return genre == Genre::kMot || genre == Genre::kDerniere || !vers.Socket.ANonLus();
}

// Told on the terminal alone: the channel knows nobody else, and whoever posts goes on with what matters more.
void EmetteurLocal::Poste(qint32 poignee, const QByteArray& message, Genre genre) noexcept {
  try {
    PosteOuEchoue(poignee, message, genre);
  } catch (const std::exception& echec) {
    std::fprintf(stderr, "Vaktor: a message to %d is lost: %s\n", poignee, echec.what());
  }
}

void EmetteurLocal::PosteOuEchoue(qint32 poignee, const QByteArray& message, Genre genre) {
  if (poignee <= 0 || message.size() > kMessageMax) return;
  Destinataire& vers = DonneDestinataire(poignee);
  RetirePerimes(vers.File);
  if (vers.File.isEmpty() && PeutPartir(vers, genre)) {
    const Issue issue = vers.Socket.Essaie(message);
    if (issue == Issue::kPersonne) Oublie(poignee);
    if (issue != Issue::kPlein) return;
  }
  Range(vers, message, genre);
  // Nobody offers anything again once the program has ended: now or never.
  if (genre == Genre::kDerniere && !Offre(vers)) return Oublie(poignee);
  if (!Reprise_.isActive()) Reprise_.start(kReprise, this);
}

void EmetteurLocal::Range(Destinataire& chez, const QByteArray& message, Genre genre) const {
  QList<Attendu>& file = chez.File;
  if (genre == Genre::kMot) {
    if (file.size() < kMotsMax) file.append({message, genre, Maintenant_()});
    return;
  }
  if (!file.isEmpty() && file.last().Message == message) {
    file.last().Poste = Maintenant_();
    return;
  }
  if (genre == Genre::kDerniere) GardeSeules(file);
  file.append({message, genre, Maintenant_()});
  Borne(file);
}

// What waits in front of the last message must fit into the box together with it: only what is kept, and that once.
void EmetteurLocal::GardeSeules(QList<Attendu>& file) {
  QList<QByteArray> vus;
  file.removeIf([&vus](const Attendu& a) {
    if (a.Quoi != Genre::kGardee || vus.contains(a.Message)) return true;
    vus.append(a.Message);
    return false;
  });
}

void EmetteurLocal::Borne(QList<Attendu>& file) {
  if (file.size() <= kCommandesMax) return;
  auto victime = std::find_if(file.begin(), file.end(), [](const Attendu& a) {
    return a.Quoi == Genre::kInstant || a.Quoi == Genre::kOrdinaire;
  });
  // Nothing but what is kept: the first of them is said once more further back, there are not so many words.
  if (victime == file.end()) victime = file.begin();
  file.erase(victime);
}

void EmetteurLocal::RetirePerimes(QList<Attendu>& file) const {
  if (file.isEmpty()) return;
  const qint64 limite = Maintenant_() - kDureeInstant;
  file.removeIf([limite](const Attendu& a) { return a.Quoi == Genre::kInstant && a.Poste < limite; });
}

bool EmetteurLocal::Offre(Destinataire& vers) {
  RetirePerimes(vers.File);
  const bool fin =
      std::any_of(vers.File.begin(), vers.File.end(), [](const Attendu& a) { return a.Quoi == Genre::kDerniere; });
  while (!vers.File.isEmpty()) {
    const Attendu& premier = vers.File.first();
    if (!PeutPartir(vers, fin ? Genre::kDerniere : premier.Quoi)) return true;
    const Issue issue = vers.Socket.Essaie(premier.Message);
    if (issue == Issue::kPersonne) return false;
    if (issue == Issue::kPlein) return true;
    vers.File.removeFirst();
  }
  return true;
}

qsizetype EmetteurLocal::EnAttente(qint32 poignee) const {
  const auto connu = Destinataires_.find(poignee);
  return connu == Destinataires_.end() ? 0 : connu->second->File.size();
}

bool EmetteurLocal::Attend(qint32 poignee) {
  const auto connu = Destinataires_.find(poignee);
  return connu != Destinataires_.end() && (!connu->second->File.isEmpty() || connu->second->Socket.ANonLus());
}

bool EmetteurLocal::APris(qint32 poignee) {
  const auto connu = Destinataires_.find(poignee);
  return connu != Destinataires_.end() && connu->second->Socket.APris();
}

void EmetteurLocal::timerEvent(QTimerEvent* evenement) {
  if (evenement->timerId() != Reprise_.timerId()) return;
  bool attend = false;
  for (auto it = Destinataires_.begin(); it != Destinataires_.end();) {
    const bool present = Offre(*it->second);
    attend = attend || (present && !it->second->File.isEmpty());
    it = present ? std::next(it) : Destinataires_.erase(it);
  }
  if (!attend) Reprise_.stop();
}

}  // namespace vaktor
