// SPDX-License-Identifier: GPL-3.0-or-later
// The files of the program on disks that may not answer.
#pragma once

#include <QHash>
#include <functional>
#include <list>
#include <memory>

#include "image/ports/flush_losses.h"
#include "platform/base/system_files.h"
#include "platform/disk/write_lane.h"
#include "platform/folders/bounded_work.h"

namespace vaktor {

/// FichiersSysteme, with a bound to every wait: kPatience for one call, and kPatienceCourte while a disk is silent, so
/// that a frame with all its copies, or a start with all its questions, is not held for two seconds. What is asked runs
/// on threads that own what they use and are left behind when they hang, also at the end of the program.
/// One thread, the user-interface thread.
class FichiersBornes : public Fichiers, public PertesVidage {
 public:
  using Duree = std::chrono::milliseconds;
  static constexpr Duree kPatience{700};
  static constexpr Duree kPatienceCourte{150};

  FichiersBornes() = default;
  /// Photos that are written are flushed, which may take a second in all.
  ~FichiersBornes() override;
  FichiersBornes(const FichiersBornes&) = delete;
  FichiersBornes& operator=(const FichiersBornes&) = delete;

  /// False for a disk that does not answer.
  bool Existe(const QString& chemin) const override;
  Presence RegardeDossier(const QString& chemin) const override;
  /// False for a disk that does not answer; the folder may come into being later.
  bool CreeDossier(const QString& chemin) override;
  std::optional<qint64> EspaceLibre(const QString& chemin) const override;
  std::optional<qint64> EspaceUtilisable(const QString& chemin) const override;
  /// Waits as long as the disk does.
  bool Supprime(const QString& chemin) override;
  /// Each folder has a thread of its own (VoieEcriture). ETIMEDOUT for a disk that does not answer.
  int EcritFichier(const QString& chemin, QByteArrayView contenu) override;
  int EcritNouveauFichier(const QString& chemin, QByteArrayView contenu, QString* devenu = nullptr) override;
  /// Of EcritNouveauFichier; the other files are not flushed.
  std::optional<PerteVidage> PrendPerte() override;

  /// The result of `travail`, which must own everything it uses; nothing when it has not come in time.
  template <typename Resultat>
  std::optional<Resultat> Attend(std::function<Resultat()> travail) const {
    auto rendu = Travaux_.Attend<Resultat>(std::move(travail), Patience());
    if (!rendu) DernierSilence_ = std::chrono::steady_clock::now();
    return rendu;
  }

 private:
  /// What a folder has written that is not written to any more.
  struct Reste {
    QByteArray Dossier;
    std::shared_ptr<Vidage> Disque;
  };
  Duree Patience() const;
  void RetireVoiesLibres();
  VoieEcriture& Voie(const QByteArray& dossier);
  int Ecrit(const QString& chemin, QByteArrayView contenu, VoieEcriture::Maniere maniere, QString* devenu = nullptr);

  mutable TravauxBornes Travaux_;
  mutable std::optional<std::chrono::steady_clock::time_point> DernierSilence_;  // of a question
  QHash<QByteArray, std::shared_ptr<VoieEcriture>> Voies_;                       // by folder
  std::list<Reste> Restes_;
};

}  // namespace vaktor
