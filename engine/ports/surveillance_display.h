// SPDX-License-Identifier: GPL-3.0-or-later
// What the engine shows, as states with their numbers. The forms find the words, colours and pictures.
#pragma once

#include <QRect>
#include <QString>
#include <QtGlobal>

namespace vaktor {

/// What the status line of the alarm, LblDebugAlarm, tells.
enum class LibelleAlarme {
  kIntrusion,  ///< "Intrusion", pure red
  kActive,     ///< Libelle::kAlarmeActive, dark grey
  kInactive    ///< Libelle::kAlarmeInactive, dark grey
};

/// The three bitmaps of a lamp.
enum class Lampe {
  kRouge,         ///< "LEDRED": off
  kRougeAllumee,  ///< "LEDREDON": countdown, connecting
  kVerte          ///< "LEDVERT": armed, live
};

/// The notice over the picture of the monitor.
enum class AvisMoniteur {
  kAucun,
  kSignalPerdu,       ///< the camera gives no new frames
  kConnexion,         ///< the driver is being connected, which may take a quarter of a minute
  kDetectionArretee,  ///< frame upon frame is not compared: nothing is counted and no alarm can come
};

/// Implemented by the main window. User-interface thread; calls come from inside ticks and handlers and must not block,
/// but for the two announcements, which are message boxes.
class AffichageSurveillance {
 public:
  virtual ~AffichageSurveillance() = default;

  // The analysis, once for each new frame.
  virtual void MontreLibelleAlarme(LibelleAlarme libelle) = 0;
  virtual void NommeAlarmeInactive() = 0;  ///< Libelle::kAlarmeInactive, colour left alone (camera stopped)
  virtual void GriseLibelleAlarme() = 0;   ///< dark grey, caption left alone (countdown running)
  virtual void MontreCompteARebours(qint32 secondes) = 0;                 ///< "Départ dans N sec"
  virtual void MontreCompteurs(qint32 millisecondes, qint32 points) = 0;  ///< LabelTemoin(0) and (1)
  virtual void MontreBarre(qint32 valeur) = 0;  ///< ProgressBar1, already cut to its maximum of 900

  // The small view Picture2.
  virtual void RafraichitVue() = 0;                  ///< back to black, or to what VuePixel holds
  virtual void MontreVuePixel() = 0;                 ///< VuePixel has new blocks: show them
  virtual void MontreZoom(const QRect& source) = 0;  ///< stretch this part of the surface over the whole view;
                                                     ///< width and height may be zero or negative

  // The enlarged view WebcamPecran and the monitor.
  virtual void CopiePleinEcran() = 0;  ///< take the surface's picture and outlines as they stand, shown or not
  virtual void RafraichitPleinEcran() = 0;
  virtual void MontreMoniteur() = 0;               ///< make FormMonitor visible
  virtual void MontreAvis(AvisMoniteur avis) = 0;  ///< told at each tick; over the picture, never in it

  // Camera, alarm, gauge.
  virtual void ActiveBouton(qint32 index, bool actif) = 0;   ///< enabled state of Bouton(1) and Bouton(2)
  virtual void MontreLampeAlarme(Lampe lampe) = 0;           ///< ImageLedAlarme
  virtual void MontreLampeSurveillance(Lampe lampe) = 0;     ///< ImageLedSurveill
  virtual void MontreSurveillanceInactive() = 0;             ///< LblDebugftp: Libelle::kSurveillanceInactive
  virtual void EcritRetard(qint32 secondes) = 0;             ///< Text1; its change handler runs if the text changes
  virtual void DessineJauge(qint32 valeur, bool haute) = 0;  ///< PictSeuil: bar to `valeur` as passed (it may lie
                                                             ///< outside 0 to 7000000), light red when `haute`
  /// Message box, Message::kCameraIntrouvable, below it `explication` where it is not empty; title Message::kTitre.
  /// Returns on OK.
  virtual void AnnonceCameraIntrouvable(const QString& explication) = 0;
  virtual void
  AnnonceCameraInactive() = 0;  ///< message box, Message::kCameraInactive, title Message::kTitre; returns on OK
};

}  // namespace vaktor
