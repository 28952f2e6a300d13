// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/surveillance_tick.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <exception>
#include <utility>

#include "base/numbers.h"
#include "engine/detection_zone.h"
#include "engine/limits.h"
#include "texts/phrase.h"

namespace vaktor {
namespace {

QString DitSerie(Langue langue) {
  return Phrase{"elle se reconnecte sans cesse", "it connects again and again"}.Dit(langue);
}

}  // namespace

TicSurveillance::TicSurveillance(const PortsSurveillance& ports, EtatSurveillance& etat, AnalyseurMouvement& analyse,
                                 std::function<void()> reveil)
    : Ports_(ports), Etat_(etat), Analyse_(analyse), Reveil_(std::move(reveil)) {}

void TicSurveillance::TraiteTic() {
  if (!Etat_.Camera.CameraActive || EnCours_) return;
  if (Ports_.Pilote.ImagePrete()) return TraiteNouvelleImage();
  // A camera that is lost gives no frame that could tell of it.
  DitEtat();
  Ports_.Pilote.AttendImage(Reveil_);
}

void TicSurveillance::TraiteReveil() {
  if (Etat_.Camera.CameraActive && !EnCours_ && Ports_.Pilote.ImagePrete()) TraiteNouvelleImage();
}

void TicSurveillance::TraiteNouvelleImage() {
  // What an action lets in must not begin a second frame in the middle of this one.
  const QScopedValueRollback<bool> garde(EnCours_, true);
  // The surface still holds the frame of the last tick with what was drawn over it: the enlarged view runs one frame
  // behind and shows the outlines.
  Ports_.Affichage.CopiePleinEcran();
  const quint32 avant = Etat_.Detection.Comparees;
  bool rangee = false;
  try {
    rangee = TraiteImage();
  } catch (const std::exception&) {
    // Detection does not stop because a photo could not be written. What shows is that the labels stand still.
  }
  // A zone that has none of its samples in the picture (one drawn in a larger picture keeps its top in a smaller one)
  // is gone through without a failure, and sees nothing.
  const bool comparee = Etat_.Detection.Comparees != avant && !Etat_.Detection.SansEchantillon;
  CompteComparaison(rangee || comparee);
  ++Traitees_;
  try {
    SuitFigee();
  } catch (const std::exception&) {
    // A frame whose pixels found no memory finds none here either: the next look will tell.
  }
}

// Also of a frame that was not compared, or whose photo failed: what it looks like is another matter.
void TicSurveillance::SuitFigee() {
  const auto maintenant = static_cast<quint32>(Ports_.Temps.CompteTics());
  if (Etat_.Detection.NbrPoints > 0) {
    Etat_.Figee.Oublie();
  } else if (Etat_.Figee.RegardDu(maintenant)) {
    const ZoneDetection& zone = Etat_.Detection.Zone;
    const PhaseEchantillons phase{.X = PhaseDe(zone.Gauche), .Y = PhaseDe(zone.Haut)};
    const TrameBrute trame = Etat_.Surface.Trame().Echantillons(phase);
    // Null without a frame, or without the memory for its pixels: nothing is known of it.
    if (trame.Bits != nullptr) Etat_.Figee.Regarde(PrendEmpreinte(trame, phase), maintenant);
  }
  DitFigee();
}

void TicSurveillance::DitFigee() {
  const auto dit = [this](Condition quoi, ImageFigee::Etat etat) {
    Etat_.Figee.Dit() == etat ? Ports_.Sante.Signale(quoi) : Ports_.Sante.Leve(quoi);
  };
  dit(Condition::kImageFigee, ImageFigee::Etat::kFigee);
  dit(Condition::kImageNoire, ImageFigee::Etat::kNoire);
}

// A frame that waits just now is taken in a moment, as a rule: only one that waited 15 s ago as well, with none
// analysed since, has been left lying. A slow camera is none of that, nor is one that gives nothing.
void TicSurveillance::VerifieMarche(bool premier) {
  const bool attend = Etat_.Camera.CameraActive && Ports_.Pilote.ImagePrete();
  if (!premier && attend && AttendaitVue_ && Traitees_ == TraiteesVues_)
    Ports_.Sante.Signale(Condition::kDetectionArretee);
  TraiteesVues_ = Traitees_;
  AttendaitVue_ = attend;
}

// Only frames that came are counted, not ticks without one: a lost signal is no end of the comparison.
void TicSurveillance::CompteComparaison(bool vue) {
  qint32& sans = Etat_.Camera.NonComparees;
  if (vue) {
    sans = 0;
    return;
  }
  const auto maintenant = static_cast<quint32>(Ports_.Temps.CompteTics());
  if (sans == 0) DebutNonComparees_ = maintenant;
  DureeNonComparees_ = maintenant - DebutNonComparees_;
  sans = std::min(sans + 1, kImagesTolerables + 1);
}

bool TicSurveillance::EstArretee() const {
  const qint32 sans = Etat_.Camera.NonComparees;
  return sans > kImagesTolerables || (sans > kImagesPassageres && DureeNonComparees_ >= kDureeTolerableMs);
}

void TicSurveillance::DitEtat() {
  const bool arretee = EstArretee();
  const bool perdu = Ports_.Pilote.SignalPerdu();
  arretee ? Ports_.Sante.Signale(Condition::kDetectionArretee) : Ports_.Sante.Leve(Condition::kDetectionArretee);
  // A camera that comes back again and again gives frames, and few or none that could be compared with another: as good
  // as none, though the picture looks alive and each loss by itself is too short to count.
  const bool serie = Analyse_.EnSerie();
  if (perdu || serie || Analyse_.EnReprise()) {
    Ports_.Sante.Signale(Condition::kSignalPerdu,
                         serie ? DitSerie(LangueParlee(Ports_.Reglages.LangueCourante)) : Ports_.Pilote.Explication());
  } else {
    Ports_.Sante.Leve(Condition::kSignalPerdu);
  }
  // A camera that gives nothing stands still too, which is told as what it is.
  if (perdu) {
    Etat_.Figee.Oublie();
    DitFigee();
  }
  // Without the comparison no alarm can come, whatever the camera does: that is the worse news of the two.
  Ports_.Affichage.MontreAvis(arretee ? AvisMoniteur::kDetectionArretee
                              : perdu ? AvisMoniteur::kSignalPerdu
                                      : AvisMoniteur::kAucun);
}

// True when the frame was only stored.
bool TicSurveillance::TraiteImage() {
  const bool rangee = Analyse_.AnalyseMouvement(PoseImage());
  MontreZoom();
  Ports_.Affichage.RafraichitPleinEcran();
  ReposeCadre();
  return rangee;
}

bool TicSurveillance::PoseImage() {
  // A grab that fails in spite of all is not looked at: the earlier frame goes on.
  Ports_.Pilote.SaisitImage();
  DitEtat();
  const ImageCamera trame = Ports_.Pilote.CopieTrame();
  // The zone first: the window fits itself to the new size, saves and tells the companions while the picture is put on
  // the surface, and whatever looks at the zone then finds that of this picture.
  if (!trame.EstNulle() && trame.Taille() != Etat_.Surface.Taille()) SuitTailleSurface(Etat_, trame.Taille());
  Etat_.Surface.Pose(trame);
  return Ports_.Pilote.EstReprise();
}

void TicSurveillance::MontreZoom() {
  const EtatDetection& detection = Etat_.Detection;
  const CadreMouvement& cadre = detection.Mouv;
  // 0 is taken for "nothing found": motion that touches only column 0 or row 0 gives no zoom.
  if (!detection.ModeZoom || cadre.MaxX == 0 || cadre.MaxY == 0 || detection.NbrPoints <= kSeuilZoom) return;
  // One pixel less on each side. A thin box gives a width or height of zero or less; it is passed on as it is.
  const qint32 largeur = SoustraitVerifie(SoustraitVerifie(cadre.MaxX, cadre.MinX), 2);
  const qint32 hauteur = SoustraitVerifie(SoustraitVerifie(cadre.MaxY, cadre.MinY), 2);
  Ports_.Affichage.MontreZoom(QRect(AjouteVerifie(cadre.MinX, 1), AjouteVerifie(cadre.MinY, 1), largeur, hauteur));
}

void TicSurveillance::ReposeCadre() {
  const QSize taille = Etat_.Surface.Taille();
  Etat_.Detection.Mouv = {.MinX = taille.width(), .MaxX = 0, .MinY = taille.height(), .MaxY = 0};
}

}  // namespace vaktor
