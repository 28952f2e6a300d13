#include "engine/surveillance_tick.h"

#include <algorithm>
#include <exception>

#include "base/numbers.h"
#include "engine/detection_zone.h"

namespace vaktor {
namespace {

/// A second of ticks. A frame or two may fail while the picture changes its size; that is no news. More of them do not
/// pass by themselves: the table of samples is used up, the millisecond counter has come to its end after 24.8 days,
/// the interval of the live page is no number. A photo that cannot be written is another matter: its frame was
/// compared.
constexpr qint32 kTicsTolerables = 33;

}  // namespace

TicSurveillance::TicSurveillance(const PortsSurveillance& ports, EtatSurveillance& etat, AnalyseurMouvement& analyse)
    : Ports_(ports), Etat_(etat), Analyse_(analyse) {}

void TicSurveillance::TraiteTic() {
  if (!Etat_.Camera.CameraActive) {
    TicsSansComparaison_ = 0;
    return;
  }
  // The surface still holds the frame of the last tick with what was drawn over it: the enlarged view runs one tick
  // behind and shows the outlines.
  Ports_.Affichage.CopiePleinEcran();
  const quint32 avant = Analyse_.Comparees();
  try {
    TraiteImage();
  } catch (const std::exception&) {
    // Detection does not stop because a photo could not be written. What shows is that the labels stand still.
  }
  TicsSansComparaison_ = Analyse_.Comparees() != avant ? 0 : std::min(TicsSansComparaison_ + 1, kTicsTolerables + 1);
}

// Without the comparison no alarm can come, whatever the camera does: that is the worse news of the two.
AvisMoniteur TicSurveillance::Avis() const {
  if (TicsSansComparaison_ > kTicsTolerables) return AvisMoniteur::kDetectionArretee;
  return Ports_.Pilote.SignalPerdu() ? AvisMoniteur::kSignalPerdu : AvisMoniteur::kAucun;
}

void TicSurveillance::TraiteImage() {
  PoseImage();
  Analyse_.AnalyseMouvement();
  MontreZoom();
  Ports_.Affichage.RafraichitPleinEcran();
  ReposeBoite();
}

void TicSurveillance::PoseImage() {
  // A failed grab is not looked at: the earlier frame goes on, and its outlines are wiped all the same.
  Etat_.Camera.ImageRepetee = !Ports_.Pilote.SaisitImage();
  Ports_.Affichage.MontreAvis(Avis());
  const QSize avant = Etat_.Surface.Taille();
  Etat_.Surface.Pose(Ports_.Pilote.CopieTrame());
  if (Etat_.Surface.Taille() != avant) SuitTailleSurface(Etat_);
}

void TicSurveillance::MontreZoom() {
  const EtatDetection& detection = Etat_.Detection;
  const BoiteMouvement& boite = detection.Mouv;
  // 0 is taken for "nothing found": motion that touches only column 0 or row 0 gives no zoom.
  if (!detection.ModeZoom || boite.MaxX == 0 || boite.MaxY == 0 || detection.NbrPoints <= kSeuilZoom) return;
  // One pixel less on each side. A thin box gives a width or height of zero or less; it is passed on as it is.
  const qint32 largeur = SoustraitVerifie(SoustraitVerifie(boite.MaxX, boite.MinX), 2);
  const qint32 hauteur = SoustraitVerifie(SoustraitVerifie(boite.MaxY, boite.MinY), 2);
  Ports_.Affichage.MontreZoom(QRect(AjouteVerifie(boite.MinX, 1), AjouteVerifie(boite.MinY, 1), largeur, hauteur));
}

void TicSurveillance::ReposeBoite() {
  const QSize taille = Etat_.Surface.Taille();
  Etat_.Detection.Mouv = {.MinX = taille.width(), .MaxX = 0, .MinY = taille.height(), .MaxY = 0};
}

}  // namespace vaktor
