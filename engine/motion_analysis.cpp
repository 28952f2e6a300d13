#include "engine/motion_analysis.h"

#include <algorithm>
#include <limits>
#include <new>

#include "base/failure.h"
#include "base/numbers.h"
#include "engine/frame_comparison_bands.h"

namespace vaktor {
namespace {

/// A loop over first, first + 3, ... up to `fin` counts one step too far before it sees that it is done. Near the end
/// of the 32-bit range that step overflows.
bool DepasseApresBoucle(qint32 debut, qint32 fin) {
  if (debut > fin) return false;
  const qint64 pas = (qint64{fin} - debut) / kPasEchantillon + 1;
  return debut + pas * kPasEchantillon > std::numeric_limits<qint32>::max();
}

/// Of a zone that begins outside the picture too.
qint32 ResteParTrois(qint32 bord) { return (bord % kPasEchantillon + kPasEchantillon) % kPasEchantillon; }

[[noreturn]] void LanceDepassement() { throw Echec(kDepassement, QStringLiteral("Overflow")); }

}  // namespace

AnalyseurMouvement::AnalyseurMouvement(const PortsSurveillance& ports, EtatSurveillance& etat,
                                       const Minuterie& compteARebours)
    : Ports_(ports), Etat_(etat), Timer3_(compteARebours), Jeu_(ChoisitJeu()) {}

void AnalyseurMouvement::AnalyseMouvement() {
  Etat_.Detection.NbrPoints = 0;
  if (!Etat_.Detection.ModeZoom) EffaceVue();
  VerifieLive();
  CompareEchantillons();
  ++Comparees_;
  // After the scan, so that the comparison never sees the outline; the next frame wipes it.
  const ZoneDetection& zone = Etat_.Detection.Zone;
  Etat_.Surface.Dessine({zone.Gauche, zone.Haut, zone.Droite, zone.Bas});
  MontreIntrusion();
  DeclencheActions();
  MontreMesures();
  ImagePrecedente_.Recommence();
}

void AnalyseurMouvement::EffaceVue() {
  Vue_.Efface();
  Ports_.Affichage.RafraichitVue();
}

void AnalyseurMouvement::VerifieLive() {
  // The interval is read before the switch is looked at: a text that is no number ends the analysis here even with the
  // live page off.
  const qint32 ecoule = SoustraitVerifie(Ports_.Temps.CompteTics(), DernierLive_);
  const double intervalle = double{Intervalle_.LitSecondes(Ports_.Reglages.IntervalleFtp)} * 1000.0;
  if (intervalle <= ecoule && Ports_.Live.LiveActif()) {
    DernierLive_ = Ports_.Temps.CompteTics();
    Ports_.Live.PublieLive();
  }
}

TrameBrute AnalyseurMouvement::TrameCourante() {
  const ImageCamera& image = Etat_.Surface.Trame();
  const ZoneDetection& zone = Etat_.Detection.Zone;
  // The view of the changed points shows the pixels between the samples too.
  const TrameBrute trame = Etat_.Detection.ModeZoom
                               ? image.Echantillons(ResteParTrois(zone.Gauche), ResteParTrois(zone.Haut))
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
  GrandisBoite(resultat);
  ImagePrecedente_.Avance(resultat.Echantillons);
  if (!Etat_.Detection.ModeZoom && resultat.NbrPoints > 0) Ports_.Affichage.MontreVuePixel();
  if (resultat.TablePleine) throw Echec(kIndiceHorsPlage, QStringLiteral("Subscript out of range"));
  if (depasseX || DepasseApresBoucle(zone.Haut, zone.Bas)) LanceDepassement();
}

void AnalyseurMouvement::GrandisBoite(const ResultatComparaison& resultat) {
  if (resultat.NbrPoints == 0) return;
  // The box grows from what it holds: 0 on all sides in the first frame of the process, whose left and top edges thus
  // stay 0, and the box of the frame before when that tick was cut short.
  BoiteMouvement& boite = Etat_.Detection.Mouv;
  boite.MinX = std::min(boite.MinX, resultat.Boite.MinX);
  boite.MaxX = std::max(boite.MaxX, resultat.Boite.MaxX);
  boite.MinY = std::min(boite.MinY, resultat.Boite.MinY);
  boite.MaxY = std::max(boite.MaxY, resultat.Boite.MaxY);
}

void AnalyseurMouvement::MontreIntrusion() {
  const bool compte = Timer3_.EstActive();
  if (Etat_.Detection.NbrPoints > kSeuilIntrusion && !compte) {
    // Armed or not: this level only shows.
    Ports_.Affichage.MontreLibelleAlarme(LibelleAlarme::kIntrusion);
    const BoiteMouvement& boite = Etat_.Detection.Mouv;
    Etat_.Surface.Dessine({boite.MinX, boite.MinY, boite.MaxX, boite.MaxY});
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
  if (!Etat_.Alarme.AlarmeArmee || Etat_.Detection.NbrPoints <= kSeuilAlarme) {
    // So the zoom of a frame that acted stays in view until a frame that does not.
    if (Etat_.Detection.ModeZoom) EffaceVue();
    return;
  }
  const QString mot = QStringLiteral("Intru");
  // Nothing is spaced or limited here: each such frame acts again, and the companions know how often is enough.
  if (reglages.PhotoActif || Ports_.Live.LiveActif()) {
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
  if (reglages.MailActif) Ports_.Actions.EnvoiMail(mot);
  if (reglages.SonActif) Ports_.Actions.EnvoiSon(mot);
}

void AnalyseurMouvement::MontreMesures() {
  // From the end of the last analysis to here: the whole cycle, not the time of the comparison.
  const qint32 cycle = SoustraitVerifie(Ports_.Temps.CompteTics(), DernierTick_);
  Ports_.Affichage.MontreCompteurs(cycle, Etat_.Detection.NbrPoints);
  DernierTick_ = Ports_.Temps.CompteTics();
  Ports_.Affichage.MontreBarre(std::min(kBarreMax, Etat_.Detection.NbrPoints));
}

}  // namespace vaktor
