// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disk/bounded_store.h"

#include <sched.h>

#include <cerrno>
#include <cstring>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>

#include "base/failure.h"
#include "platform/store/file_store.h"

namespace vaktor {
namespace {

QString Chemin(const QString& section, const QString& cle) { return section + u'/' + cle; }

Echec Refus(const QString& fichier, int erreur) {
  return Echec(kAccesFichier, fichier + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(erreur)));
}

}  // namespace

MagasinBorne::MagasinBorne(const QString& fichier, Patiences patiences) : Fichier_(fichier), Patiences_(patiences) {
  const auto ouvert = std::make_shared<std::shared_ptr<MagasinFichier>>();
  const auto ouvre = [fichier, ouvert] {
    *ouvert = std::make_shared<MagasinFichier>(fichier);
    return (*ouvert)->DonneTout();
  };
  Lues_ = Attend(std::packaged_task<Valeurs()>(ouvre), Patiences_.Depart);
  Magasin_ = std::move(*ouvert);
  Abimes_ = Magasin_->Abimes();
}

// What could not be saved is tried once more as the store goes, and that may hang.
MagasinBorne::~MagasinBorne() {
  if (EnRetard_.valid() || Attente_.isEmpty()) return;
  try {
    auto rend = [magasin = std::move(Magasin_)]() mutable {
      magasin.reset();
      return Valeurs();
    };
    Attend(std::packaged_task<Valeurs()>(std::move(rend)), Patiences_.Ecriture);
  } catch (const std::exception&) {
    // It was told when the save failed.
  }
}

QString MagasinBorne::LitReglage(const QString& section, const QString& cle, const QString& defaut) const {
  const QString chemin = Chemin(section, cle);
  if (const auto attente = Attente_.find(chemin); attente != Attente_.end()) return *attente;
  return Lues_.value(chemin, defaut);
}

void MagasinBorne::EcritReglage(const QString& section, const QString& cle, const QString& valeur) {
  // An empty value is one too.
  Ordres_.append({section, cle, valeur.isNull() ? QStringLiteral("") : valeur});
  Attente_.insert(Chemin(section, cle), valeur);
}

void MagasinBorne::Reprend(const QString& section, const QString& cle) {
  if (Attente_.remove(Chemin(section, cle)) != 0) Ordres_.append({section, cle, QString()});
}

void MagasinBorne::Vide() {
  if (EnRetard_.valid()) {
    if (EnRetard_.wait_for(Duree(0)) != std::future_status::ready) throw Refus(Fichier_, ETIMEDOUT);
    EnRetard_ = {};  // what it could not save the store still has
  }
  const auto ecrit = [magasin = Magasin_, ordres = Ordres_] {
    // The mask for new files, which the store narrows for as long as it writes, is this thread's own from here on:
    // photos that other threads write meanwhile are for whomever the user lets. Where the system refuses that they are,
    // for a moment or for as long as the disk is silent, for their owner alone.
    ::unshare(CLONE_FS);
    for (const Ordre& ordre : ordres) {
      ordre.Valeur.isNull() ? magasin->Reprend(ordre.Section, ordre.Cle)
                            : magasin->EcritReglage(ordre.Section, ordre.Cle, ordre.Valeur);
    }
    magasin->Vide();
    return magasin->DonneTout();
  };
  Lues_ = Attend(std::packaged_task<Valeurs()>(ecrit), Patiences_.Ecriture);
  Attente_.clear();
}

MagasinBorne::Valeurs MagasinBorne::Attend(std::packaged_task<Valeurs()> tache, Duree patience) {
  std::future<Valeurs> rendu = tache.get_future();
  try {
    std::thread(std::move(tache)).detach();
  } catch (const std::system_error&) {
    throw Refus(Fichier_, EAGAIN);
  }
  Ordres_.clear();  // it has them
  if (rendu.wait_for(patience) == std::future_status::ready) return rendu.get();
  EnRetard_ = std::move(rendu);
  throw Refus(Fichier_, ETIMEDOUT);
}

}  // namespace vaktor
