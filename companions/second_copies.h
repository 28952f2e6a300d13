// SPDX-License-Identifier: GPL-3.0-or-later
// The alarm photos that go to the web site: whether another one is welcome in "Temp/FTP". While the FTP companion is
// away nobody takes them out of there, and this program deletes nothing.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "companions/link_state.h"
#include "companions/ports/folder_measure.h"

namespace vaktor {

struct PortsCopies {
  const EtatLiaison& Etat;
  std::function<bool()> CompagnonPrend;  ///< the FTP companion is there and takes its messages
  MesureurDossier& Mesureur;
  QString Dossier;  ///< "Temp/FTP"
};

/// Owner: app/. User-interface thread; the disk is not touched there.
class SecondesCopies {
 public:
  // The bounds that the companion itself keeps to (docs/companions.md).
  static constexpr qint64 kNombreMax = 5000;
  static constexpr qint64 kOctetsMax = 200'000'000;
  /// Between two measurements, in photos that were asked for.
  static constexpr int kEntreMesures = 100;

  explicit SecondesCopies(const PortsCopies& ports) : Ports_(ports) {}
  ~SecondesCopies() { Ports_.Mesureur.Oublie(); }
  SecondesCopies(const SecondesCopies&) = delete;
  SecondesCopies& operator=(const SecondesCopies&) = delete;

  /// The live page is on, or was on when its companion went: the next one takes it up again and finds the photos.
  bool SontVoulues() const { return Ports_.Etat.LiveActif || Ports_.Etat.PageInterrompue; }
  /// Asked once before each second copy that is wanted; true when there is room for it, and then it counts as one that
  /// is there.
  bool Demande();

 private:
  bool AssezDePlace() const;
  void Mesure();

  PortsCopies Ports_;
  std::optional<TailleDossier> Mesuree_;
  qint64 Depuis_ = 0;  // copies since that was asked for
  int Demandes_ = 0;   // photos since then
};

}  // namespace vaktor
