// SPDX-License-Identifier: GPL-3.0-or-later
// Names of photos out of files in memory: at once, or when the test lets them come.
#pragma once

#include <exception>
#include <utility>

#include "fakes/fake_files.h"
#include "image/ports/photo_names.h"

namespace vaktor::faux {

/// At once is within the call, which the real reader never does: the rules must stand both.
class LecteurNomsFaux : public LecteurNoms {
 public:
  explicit LecteurNomsFaux(const FauxFichiers& disque) : Disque_(disque) {}

  void LitNoms(const QString& dossier, const QString& motif, Recoit recoit) override {
    Lus += dossier;
    if (Jette) std::rethrow_exception(std::exchange(Jette, nullptr));
    Dossier_ = dossier;
    Motif_ = motif;
    EnAttente_ = std::move(recoit);
    if (!Retient) Livre();
  }
  void Oublie() override { EnAttente_ = nullptr; }

  bool Attend() const { return EnAttente_ != nullptr; }
  /// The folder as it is now. Nothing when nobody waits any more.
  void Livre() {
    const Recoit recoit = std::exchange(EnAttente_, nullptr);
    if (!recoit) return;
    if (!Disque_.PeutLister(Dossier_)) return recoit({.Etat = EtatNoms::kIllisible});
    if (Etat == EtatNoms::kSansMoyens) return recoit({.Etat = Etat});
    recoit({.Etat = Etat, .Noms = Noms ? *Noms : Disque_.ListeFichiers(Dossier_, Motif_)});
  }
  /// The disk lets its reader wait.
  void Tarde() {
    const Recoit recoit = EnAttente_;
    if (recoit) recoit({.Etat = EtatNoms::kSansReponse});
  }

  bool Retient = false;             ///< names wait for Livre()
  EtatNoms Etat = EtatNoms::kLus;   ///< or kErreurDisque, kSansMoyens: of folders that are there
  std::exception_ptr Jette;         ///< the next reading throws it, and is none
  std::optional<QStringList> Noms;  ///< in place of what the files say
  QStringList Lus;                  ///< folders that were read, in order

 private:
  const FauxFichiers& Disque_;
  QString Dossier_, Motif_;
  Recoit EnAttente_;
};

}  // namespace vaktor::faux
