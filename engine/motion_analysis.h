// SPDX-License-Identifier: GPL-3.0-or-later
// The detector: what changed since the frame before, what the window says of it and whether the armed system acts.
#pragma once

#include <vector>

#include "engine/analysis_clock.h"
#include "engine/comparison/frame_comparison.h"
#include "engine/comparison/sample_table.h"
#include "engine/live_interval.h"
#include "engine/pixel_view.h"
#include "engine/reconnections.h"
#include "engine/surveillance_ports.h"
#include "engine/surveillance_state.h"

namespace vaktor {

/// Owner: the engine. Called by the tick once for each new frame, after the frame was put on the surface; runs to its
/// end without letting events in. Allocates nothing once the size of the picture is known.
class AnalyseurMouvement {
 public:
  AnalyseurMouvement(const PortsSurveillance& ports, EtatSurveillance& etat, const Minuterie& compteARebours);

  /// One analysis. `reprise`: the frame is the first one after the driver has connected again by itself. What it shows
  /// may be an hour away from the frame before, and the camera's exposure has yet to settle: its samples are stored and
  /// not compared, and nothing acts until a frame is compared with one that came a second later or more. What is only
  /// shown goes on. A first frame that could not be stored leaves this to the next one. True when the frame was only
  /// stored. Throws Echec: kIndiceHorsPlage when the zone has more samples than ImagePrecedente holds,
  /// kDepassement when 32-bit arithmetic overflows, kTypeIncompatible when the live interval is no number, and what the
  /// photo and the live page throw; std::bad_alloc when there is no memory for the pixels of a frame. What was done up
  /// to there stays.
  ///
  /// The first two (engine/limits.h) leave the index where it was. Past the table's end each later analysis fails at
  /// its first sample, with the count at 0, nothing drawn and no alarm; a zone without any sample has no first one and
  /// comes through. A time that overflows is such a failure too, at the counters, with the alarm's actions done.
  bool AnalyseMouvement(bool reprise = false);
  /// Nothing acts yet, for the driver has connected again by itself. Where it does so again and again that is all there
  /// is, and nobody is watched.
  bool EnReprise() const { return EnReprise_; }
  /// It does so again and again (SerieReprises). Ask at each tick.
  bool EnSerie() { return Serie_.EnSerie(static_cast<quint32>(Ports_.Temps.CompteTics())); }
  /// The camera was started anew: what came before it is over.
  void OublieReprise() {
    EnReprise_ = ARanger_ = false;
    Serie_.Oublie();
  }

  const VueMouvement& Vue() const { return Vue_; }
  void EffaceVue();

 private:
  void VerifieLive();
  TrameBrute TrameCourante();
  void CompareEchantillons();
  void RangeEchantillons();
  void SuitReprise(bool reprise);
  void GrandisCadre(const ResultatComparaison& resultat);
  void MontreIntrusion();
  void DeclencheActions();
  void MontreMesures();

  const PortsSurveillance& Ports_;
  EtatSurveillance& Etat_;
  const Minuterie& Timer3_;
  JeuInstructions Jeu_;
  ImagePrecedente ImagePrecedente_;
  VueMouvement Vue_;
  IntervalleLive Intervalle_;
  std::vector<uchar> LigneNoire_;  // one row of the picture that stands in for a missing one
  TempsAnalyse Temps_;
  SerieReprises Serie_;
  quint32 DebutReprise_ = 0;  // the counter at the first frame after a reconnection
  bool EnReprise_ = false;    // that second is not over, or this frame is compared with one from within it
  bool RepriseFinie_ = false;
  bool ARanger_ = false;  // no frame since the reconnection has been stored
};

}  // namespace vaktor
