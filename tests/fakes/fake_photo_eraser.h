// SPDX-License-Identifier: GPL-3.0-or-later
// Photos deleted from files in memory, slice by slice in virtual time: at once, or when the test lets a slice come.
#pragma once

#include <exception>
#include <functional>
#include <utility>

#include "fakes/fake_files.h"
#include "fakes/virtual_clock.h"
#include "image/deletion_slice.h"
#include "image/ports/photo_eraser.h"

namespace vaktor::faux {

/// At once is within the call, which the real one never does: the rules must stand both.
class EffaceurFaux : public EffaceurPhotos {
 public:
  EffaceurFaux(FauxFichiers& disque, HorlogeVirtuelle& horloge) : Disque_(disque), Horloge_(horloge) {}

  void Efface(const QStringList& chemins, qsizetype debut, Recoit recoit) override {
    ++Tranches;
    if (Jette) std::rethrow_exception(std::exchange(Jette, nullptr));
    Chemins_ = chemins;
    Debut_ = debut;
    EnAttente_ = std::move(recoit);
    if (!Retient) Livre();
  }
  void Oublie() override { EnAttente_ = nullptr; }

  bool Attend() const { return EnAttente_ != nullptr; }
  /// Events run, then the slice; nothing when nobody waits any more.
  void Livre() {
    if (const auto evenements = std::exchange(Evenements, nullptr)) evenements();
    const Recoit recoit = std::exchange(EnAttente_, nullptr);
    if (!recoit) return;
    const qsizetype essayees = EffaceTranche(Chemins_, Debut_,
                                             {.Millisecondes = [this] { return Horloge_.Millisecondes; },
                                              .Supprime =
                                                  [this](const QString& chemin) {
                                                    Disque_.Supprime(chemin);
                                                    Horloge_.Millisecondes += MsParPhoto;
                                                  },
                                              .Abandonnee = [] { return false; },
                                              .Essayee = [] {}});
    recoit({.Etat = EtatEffacement::kFait, .Essayees = essayees});
  }
  /// The slice ends so after some photos, which are deleted.
  void Echoue(EtatEffacement etat, qsizetype essayees) {
    const Recoit recoit = std::exchange(EnAttente_, nullptr);
    if (!recoit) return;
    for (qsizetype i = 0; i < essayees; ++i) Disque_.Supprime(Chemins_.at(Debut_ + i));
    recoit({.Etat = etat, .Essayees = essayees});
  }

  bool Retient = false;              ///< slices wait for Livre()
  qint64 MsParPhoto = 0;             ///< what a photo takes
  std::function<void()> Evenements;  ///< run before the next slice, once
  std::exception_ptr Jette;          ///< the next slice throws it, and is none
  int Tranches = 0;

 private:
  FauxFichiers& Disque_;
  HorlogeVirtuelle& Horloge_;
  QStringList Chemins_;
  qsizetype Debut_ = 0;
  Recoit EnAttente_;
};

}  // namespace vaktor::faux
