// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/motion_analysis.h"

#include <QScopeGuard>
#include <algorithm>
#include <limits>
#include <new>

#include "base/numbers.h"
#include "engine/comparison/frame_comparison_bands.h"
#include "engine/limits.h"
#include "engine/sampling.h"

namespace vaktor {
namespace {

/// A loop in steps up to `fin` counts one step too far before it sees that it is done. Near the end of the 32-bit range
/// that step overflows.
bool DepasseApresBoucle(qint32 debut, qint32 fin) {
  if (debut > fin) return false;
  return debut + CompteEchantillons(debut, fin) * kPasEchantillon > std::numeric_limits<qint32>::max();
}

/// A camera that was just opened finds its exposure within a second.
constexpr quint32 kReposRepriseMs = 1000;

}  // namespace

AnalyseurMouvement::AnalyseurMouvement(const PortsSurveillance& ports, EtatSurveillance& etat,
                                       const Minuterie& compteARebours)
    : Ports_(ports), Etat_(etat), Timer3_(compteARebours), Jeu_(ChoisitJeu()), Temps_(ports.Temps) {}

bool AnalyseurMouvement::AnalyseMouvement(bool reprise) {
  Etat_.Detection.NbrPoints = 0;
  if (!Etat_.Detection.ModeZoom) EffaceVue();
  Temps_.Ramene();
  SuitReprise(reprise);
  VerifieLive();
  const bool aRanger = ARanger_;
  if (aRanger) {
    RangeEchantillons();
  } else {
    CompareEchantillons();
    ++Etat_.Detection.Comparees;
  }
  const ZoneDetection& zone = Etat_.Detection.Zone;
  const QSize taille = Etat_.Surface.Taille();
  Etat_.Detection.SansEchantillon =
      !ToucheImage(zone.Gauche, zone.Droite, taille.width()) || !ToucheImage(zone.Haut, zone.Bas, taille.height());
  // After the scan, so that the comparison never sees the outline; the next frame wipes it.
  Etat_.Surface.Dessine({zone.Gauche, zone.Haut, zone.Droite, zone.Bas});
  MontreIntrusion();
  DeclencheActions();
  MontreMesures();
  ImagePrecedente_.Recommence();
  return aRanger;
}

void AnalyseurMouvement::EffaceVue() {
  Vue_.Efface();
  Ports_.Affichage.RafraichitVue();
}

void AnalyseurMouvement::VerifieLive() {
  // The interval is read before the switch is looked at: a text that is no number ends the analysis here even with the
  // live page off.
  const qint32 ecoule = Temps_.DepuisLive();
  const double intervalle = double{Intervalle_.LitSecondes(Ports_.Reglages.IntervalleFtp)} * 1000.0;
  if (intervalle <= ecoule && Ports_.Live.LiveActif()) {
    Temps_.NoteLive();
    Ports_.Live.PublieLive(Etat_.Surface.Trame());
  }
}

// The frame that finds the second over is itself compared with one from within it, whose exposure may have been
// another: the one after it is the first that may act. With a camera of a frame a second that is what counts.
void AnalyseurMouvement::SuitReprise(bool reprise) {
  const auto maintenant = static_cast<quint32>(Ports_.Temps.CompteTics());
  if (reprise) {
    DebutReprise_ = maintenant;
    Serie_.Note(maintenant);
    EnReprise_ = ARanger_ = true;
    RepriseFinie_ = false;
  } else if (EnReprise_) {
    EnReprise_ = !RepriseFinie_;
    RepriseFinie_ = maintenant - DebutReprise_ >= kReposRepriseMs;
  }
}

TrameBrute AnalyseurMouvement::TrameCourante() {
  const ImageCamera& image = Etat_.Surface.Trame();
  const ZoneDetection& zone = Etat_.Detection.Zone;
  // The view of the changed points shows the pixels between the samples too.
  const TrameBrute trame = Etat_.Detection.ModeZoom
                               ? image.Echantillons({.X = PhaseDe(zone.Gauche), .Y = PhaseDe(zone.Haut)})
                               : PixelsDe(image.Entiere());
  if (trame.Bits != nullptr) return trame;
  // A frame whose pixels find no memory is not black: nothing is known of it, and nobody is to be alarmed by it.
  if (!image.EstNulle()) throw std::bad_alloc();
  // The camera runs but has given no frame yet: the empty surface is black. One black row does for all of them.
  const QSize taille = Etat_.Surface.Taille();
  LigneNoire_.resize(static_cast<std::size_t>(taille.width()) * 4, 0);
  return {LigneNoire_.data(), 0, taille.width(), taille.height()};
}

void AnalyseurMouvement::CompareEchantillons() {
  const TrameBrute trame = TrameCourante();
  ZoneDetection zone = Etat_.Detection.Zone;
  const bool depasseX = zone.Haut <= zone.Bas && DepasseApresBoucle(zone.Gauche, zone.Droite);
  if (depasseX) zone.Bas = zone.Haut;
  const qint32 tolerance = Ports_.Reglages.SeuilDetection;
  const TableEchantillons table = ImagePrecedente_.Table();
  const qint32 rang = ImagePrecedente_.Rang();
  const auto marque = [&](qint32 x, qint32 y) { Vue_.MarquePoint(trame, x, y); };
  const ResultatComparaison resultat = Etat_.Detection.ModeZoom
                                           ? CompareTrame(Jeu_, trame, zone, tolerance, table, rang)
                                           : CompareEtMarque(trame, zone, tolerance, table, rang, marque);
  Etat_.Detection.NbrPoints = resultat.NbrPoints;
  GrandisCadre(resultat);
  ImagePrecedente_.Avance(resultat.Echantillons);
  if (!Etat_.Detection.ModeZoom && resultat.NbrPoints > 0) Ports_.Affichage.MontreVuePixel();
  if (resultat.TablePleine) LanceTablePleine();
  if (depasseX || DepasseApresBoucle(zone.Haut, zone.Bas)) LanceDepassement();
}

// The same scan, for what it leaves in the table: no count, no box, no points in the small view. A frame that did not
// get here leaves in the table what was seen before the loss, with which nothing is to be compared: the next one tries.
void AnalyseurMouvement::RangeEchantillons() {
  const ResultatComparaison resultat = CompareTrame(Jeu_, TrameCourante(), Etat_.Detection.Zone, kSeuilDetectionMax,
                                                    ImagePrecedente_.Table(), ImagePrecedente_.Rang());
  ImagePrecedente_.Avance(resultat.Echantillons);
  if (resultat.TablePleine) LanceTablePleine();
  ARanger_ = false;
}

void AnalyseurMouvement::GrandisCadre(const ResultatComparaison& resultat) {
  if (resultat.NbrPoints == 0) return;
  // The box grows from what it holds: 0 on all sides in the first frame of the process, whose left and top edges thus
  // stay 0, and the box of the frame before when that tick was cut short.
  CadreMouvement& cadre = Etat_.Detection.Mouv;
  cadre.MinX = std::min(cadre.MinX, resultat.Cadre.MinX);
  cadre.MaxX = std::max(cadre.MaxX, resultat.Cadre.MaxX);
  cadre.MinY = std::min(cadre.MinY, resultat.Cadre.MinY);
  cadre.MaxY = std::max(cadre.MaxY, resultat.Cadre.MaxY);
}

void AnalyseurMouvement::MontreIntrusion() {
  const bool compte = Timer3_.EstActive();
  if (Etat_.Detection.NbrPoints > kSeuilIntrusion && !compte) {
    // Armed or not: this level only shows.
    Ports_.Affichage.MontreLibelleAlarme(LibelleAlarme::kIntrusion);
    const CadreMouvement& cadre = Etat_.Detection.Mouv;
    Etat_.Surface.Dessine({cadre.MinX, cadre.MinY, cadre.MaxX, cadre.MaxY});
    return;
  }
  if (Etat_.Alarme.AlarmeArmee) {
    Ports_.Affichage.MontreLibelleAlarme(LibelleAlarme::kActive);
  } else if (!compte) {
    Ports_.Affichage.MontreLibelleAlarme(LibelleAlarme::kInactive);
  } else {
    Ports_.Affichage.GriseLibelleAlarme();  // the caption is the countdown's
  }
}

void AnalyseurMouvement::DeclencheActions() {
  const Parametres& reglages = Ports_.Reglages;
  if (!Etat_.Alarme.AlarmeArmee || EnReprise_ || Etat_.Detection.NbrPoints <= kSeuilAlarme) {
    // So the zoom of a frame that acted stays in view until a frame that does not.
    if (Etat_.Detection.ModeZoom) EffaceVue();
    return;
  }
  // Whatever becomes of the photo: a full disk must not keep the user's own program from hearing of somebody.
  const auto note = qScopeGuard([this] { Ports_.Actions.NoteIntrusion(); });
  // Nothing is spaced or limited here: each such frame acts again, and the companions know how often is enough.
  if (reglages.PhotoActif || Ports_.Live.VeutPhotos()) {
    try {
      Ports_.Actions.EnregistrePhoto();
    } catch (...) {
      // The frame is lost with its commands, but not the detection: with the index left behind the scan, a folder
      // that is gone for a few frames, or a want of memory, would use up the table and no later photo would ever be
      // taken.
      ImagePrecedente_.Recommence();
      throw;
    }
  }
  if (reglages.MailActif) Ports_.Actions.EnvoiMail();
  if (reglages.SonActif) Ports_.Actions.EnvoiSon();
}

void AnalyseurMouvement::MontreMesures() {
  // From the end of the last analysis to here: the whole cycle, not the time of the comparison.
  const qint32 cycle = Temps_.DepuisTick();
  Ports_.Affichage.MontreCompteurs(cycle, Etat_.Detection.NbrPoints);
  Temps_.NoteTick();
  Ports_.Affichage.MontreBarre(std::min(kBarreMax, Etat_.Detection.NbrPoints));
}

}  // namespace vaktor
