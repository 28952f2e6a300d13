// SPDX-License-Identifier: GPL-3.0-or-later
// The numbers of the detection. One owner, the surveillance engine; forms and rules above read them from there.
#pragma once

#include <QtGlobal>

namespace vaktor {

inline constexpr qint32 kSeuilAlarme = 30;     ///< action level: strictly more changed samples than this
inline constexpr qint32 kSeuilIntrusion = 10;  ///< display level
inline constexpr qint32 kSeuilZoom = 4;        ///< zoom level
inline constexpr qint32 kSeuilDetectionMin = 1;
inline constexpr qint32 kSeuilDetectionMax = 7000000;
inline constexpr qint32 kSeuilDetectionRouge = 6000000;  ///< the gauge turns red from here up
inline constexpr qint32 kPasSeuilGrossier = 10000;  ///< step of the coarse search, from a start or a double click on
inline constexpr qint32 kPasSeuilFin = 1000;        ///< of the tracking, from the first frame with changes on
inline constexpr qint32 kBarreMax = 900;            ///< maximum of ProgressBar1

/// Detection zone, pixels of the frame surface, both edges included. All 0 until the first start of the camera; not
/// saved. Edges may lie outside the picture and, during a drag, stand in the wrong order.
struct ZoneDetection {
  qint32 Gauche = 0, Droite = 0, Haut = 0, Bas = 0;
};

/// Motion box of the current frame. 0 before the first tick of the process; after each complete tick MinX and MinY
/// take the surface's width and height and MaxX and MaxY take 0, so a box that nothing grew is inside out.
struct CadreMouvement {
  qint32 MinX = 0, MaxX = 0, MinY = 0, MaxY = 0;
};

struct EtatDetection {
  qint32 NbrPoints = 0;                 ///< changed samples of the last analysed frame
  quint32 Comparees = 0;                ///< frames compared so far; begins anew after 2^32
  bool SansEchantillon = false;         ///< the last of them had none of its zone's samples in the picture
  ZoneDetection Zone;                   ///< ZoneGauche, ZoneDroite, ZoneHaut, ZoneBas
  CadreMouvement Mouv;                  ///< MouvMinX, MouvMaxX, MouvMinY, MouvMaxY
  qint32 PasSeuil = kPasSeuilGrossier;  ///< size of one downward step of the automatic tolerance
  bool ModeZoom = true;                 ///< view mode of Picture2: zoom, else pixel; not saved
};

struct EtatCamera {
  bool CameraActive = false;    ///< the driver is connected; written by CommandeCamera alone
  bool MoniteurCache = false;   ///< the user closed FormMonitor, which only hid it
  qint32 NonComparees = 0;      ///< the last frames, without a gap, that came and were not compared; 0 from a start on
  bool DialogueOuvert = false;  ///< one of the driver's dialogs is open: no timer of the engine ticks
  bool ConnexionEnCours = false;  ///< the driver is being connected: no timer ticks, and no switch does anything
  bool Attendue = false;          ///< a start that nobody watches waits for the camera; written by CommandeCamera alone
  bool Terminee = false;          ///< the program ends: the driver has been let go for good, no switch does anything

  /// No timer ticks that switches or detects.
  bool EnPause() const { return DialogueOuvert || ConnexionEnCours; }
};

struct EtatAlarme {
  bool AlarmeArmee = false;   ///< the alarm acts on motion
  qint32 CompteARebours = 0;  ///< seconds left of the running countdown, Retard when none runs
};

}  // namespace vaktor
