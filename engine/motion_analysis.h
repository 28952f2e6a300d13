// The detector: what changed since the frame before, what the window says of it and whether the armed system acts.
#pragma once

#include <vector>

#include "engine/frame_comparison.h"
#include "engine/live_interval.h"
#include "engine/pixel_view.h"
#include "engine/sample_table.h"
#include "engine/surveillance_ports.h"
#include "engine/surveillance_state.h"

namespace vaktor {

/// Owner: the engine. Called by the tick once a frame, after the frame was put on the surface; runs to its end without
/// letting events in. Allocates nothing once the size of the picture is known.
class AnalyseurMouvement {
 public:
  AnalyseurMouvement(const PortsSurveillance& ports, EtatSurveillance& etat, const Minuterie& compteARebours);

  /// One analysis. Throws Echec: kIndiceHorsPlage when the zone has more samples than ImagePrecedente holds,
  /// kDepassement when 32-bit arithmetic overflows, kTypeIncompatible when the live interval is no number, and what the
  /// photo and the live page throw; std::bad_alloc when there is no memory for the pixels of a frame. What was done up
  /// to there stays.
  ///
  /// The first two leave IndexImage where it was. Past the table's end each later analysis fails at its first sample,
  /// with the count at 0, nothing drawn and no alarm, until the program ends; a zone without any sample has no first
  /// one and comes through. The millisecond counter turns negative after 24.8 days: from that day on each analysis
  /// ends at the counters, with the alarm's actions done, and the table is used up within a few frames.
  void AnalyseMouvement();

  /// How many analyses have come so far that their frame was compared; it begins anew after 2^32.
  quint32 Comparees() const { return Comparees_; }

  const VueMouvement& Vue() const { return Vue_; }
  void EffaceVue();

 private:
  void VerifieLive();
  TrameBrute TrameCourante();
  void CompareEchantillons();
  void GrandisBoite(const ResultatComparaison& resultat);
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
  quint32 Comparees_ = 0;
  qint32 DernierTick_ = 0;  // clock at the end of the last analysis
  qint32 DernierLive_ = 0;  // clock at the last live image
};

}  // namespace vaktor
