// SPDX-License-Identifier: GPL-3.0-or-later
// The small pictures of the cards: those in sight are asked for, one after the other, and kept as far as memory goes.
#pragma once

#include <QHash>
#include <QStringList>
#include <functional>

#include "journal/ports/thumbnail_reader.h"

namespace vaktor {

/// User-interface thread.
class CacheVignettes {
 public:
  static constexpr qint64 kOctetsMax = qint64{16} * 1024 * 1024;

  /// `arrivee` is told when a picture has come, or cannot come.
  CacheVignettes(LecteurVignettes& lecteur, std::function<void(const QString& chemin)> arrivee,
                 qint64 octetsMax = kOctetsMax)
      : Lecteur_(lecteur), Arrivee_(std::move(arrivee)), OctetsMax_(octetsMax) {}
  ~CacheVignettes() { Lecteur_.Oublie(); }
  CacheVignettes(const CacheVignettes&) = delete;
  CacheVignettes& operator=(const CacheVignettes&) = delete;

  /// What is known of a photo now; null when nothing was read yet. Valid until the next call of anything here.
  const Vignette* Donne(const QString& chemin);
  /// These are in sight, the first first: what else was wanted is forgotten.
  void Veut(const QStringList& chemins);
  /// For pictures of this size, pixels, from now on; another size forgets what is there.
  void ChoisitTaille(const QSize& taille);
  /// What could not be shown is tried again when it is wanted.
  void OublieEchecs();
  qint64 Octets() const { return Octets_; }

 private:
  struct Case {
    Vignette Image;
    quint64 Usage = 0;
  };
  void DemandeSuivante();
  void Recoit(const QString& chemin, const Vignette& vignette);
  void FaitPlace();

  LecteurVignettes& Lecteur_;
  const std::function<void(const QString&)> Arrivee_;
  const qint64 OctetsMax_;
  QSize Taille_;
  QHash<QString, Case> Cases_;
  QStringList Voulus_;
  QString EnCours_;
  qint64 Octets_ = 0;
  quint64 Usage_ = 0;
};

}  // namespace vaktor
