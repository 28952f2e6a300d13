// SPDX-License-Identifier: GPL-3.0-or-later
// The journal of the watch: one owner writes what happened. It only watches: whoever tells it something goes on the
// same whatever becomes of the line.
#pragma once

#include <QDateTime>
#include <functional>
#include <memory>
#include <optional>

#include "engine/ports/clock.h"
#include "engine/ports/timers.h"
#include "health/watch_health.h"
#include "journal/intrusion_slate_keeper.h"
#include "journal/journal_entry.h"
#include "journal/ports/journal_file.h"

namespace vaktor {

/// All references outlive the journal.
struct PortsJournal {
  const Horloge& Temps;
  FabriqueMinuteries& Minuteries;
  FichierJournal& Fichier;
  QString Course;                     ///< tells this run from others that write the same file
  std::function<bool()> AlarmeArmee;  ///< read from its owner once a second
  std::function<bool()> PageEnCours;  ///< the live page is switched on
};

/// Armed and disarmed are looked for once a second, so both are told to the second. An intrusion ends when nothing has
/// acted for kReposMs, or with the alarm. No call throws, none waits.
/// Owner: app/. User-interface thread.
class JournalVeille : public ObservateurSante {
 public:
  static constexpr qint32 kTicMs = 1000;
  static constexpr qint64 kReposMs = 10'000;  ///< without an acting frame: the intrusion is over
  static constexpr qint64 kVieMs = 600'000;   ///< between two signs of life while armed
  static constexpr qint64 kTrouMs = 15'000;   ///< between two ticks: the machine slept, or its clock was set

  explicit JournalVeille(const PortsJournal& ports);

  /// Once, with the settings loaded: the run begins.
  void Lance() noexcept;
  /// The program ends: what goes on ends with it, and nothing is written any more.
  void Arrete() noexcept;

  /// A frame of an armed watch is above the action level, before anything is done about it. `taille`: of its picture.
  void NoteImage(qint32 points, const QRect& cadre, const QSize& taille = {}) noexcept;
  /// Its photo was handed to the disk. `nom`: the file's name as it was written.
  void NotePhoto(const QString& dossier, const QString& nom) noexcept;
  /// A copy of it for the companions: mails take that one where the user keeps no photos.
  void NoteCopie(const QString& nom) noexcept;
  void NoteCourriel() noexcept;

  /// Called after a line was written: who shows the journal may read it again. Empty: nobody does.
  void SurChangement(std::function<void()> change) { Change_ = std::move(change); }

  void Commence(const ConditionEnCours& condition) override;
  void Finit(const ConditionEnCours& condition, const QDateTime& jusqua) override;

 private:
  struct Intrusion {
    Intrusion(const QDateTime& depuis, qint64 debutMs) : Depuis(depuis), DebutMs(debutMs), Ardoise(depuis) {}
    QDateTime Depuis;
    qint64 DebutMs = 0;  // as MaintenantMs_
    qint64 DerniereMs = 0;
    bool Ecrite = false;  // its beginning
    EntreeJournal Bilan;  // what its end will say
    TeneurArdoise Ardoise;
    qint32 PasCadres = 1;  // of so many photos one has its box kept
  };
  struct Trou {
    QDateTime De;
    qint64 VuMs = 0;
  };

  template <typename Travail>
  void Garde(Travail&& travail) noexcept;
  void AvanceTemps();
  void SuitSeconde();
  void SuitTrou();
  void SuitArmement();
  void SuitIntrusion();
  void GardeCadre(const QString& nom);
  void FinitIntrusion();
  void MontreArdoise();
  void Ecrit(EntreeJournal entree);
  QDateTime Maintenant() const { return LitMoment(Ports_.Temps); }

  PortsJournal Ports_;
  std::function<void()> Change_;
  std::unique_ptr<Minuterie> TimerJournal_;
  bool Lance_ = false;
  bool Armee_ = false;
  qint64 MaintenantMs_ = 0;  // since the start: the counter of the clock wraps
  qint32 DernierTic_;
  qint64 DerniereVieMs_ = 0;
  QDateTime DernierMoment_;  // of the last tick
  std::optional<Trou> Trou_;
  std::optional<Intrusion> Intrusion_;
  // Of the frame in hand, until its photo comes.
  qint32 Points_ = 0;
  QRect Cadre_;
  bool Meilleure_ = false;
};

}  // namespace vaktor
