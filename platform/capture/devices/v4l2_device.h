// SPDX-License-Identifier: GPL-3.0-or-later
// What Linux tells of its cameras (V4L2): which there are, what they offer, their controls. Every call opens the node
// itself and closes it again; nothing is held. A node that vanished or is refused gives empty results, never a crash.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

#include "platform/capture/choice/camera_format.h"

namespace vaktor {

struct PeripheriqueVideo {
  QString Noeud;      ///< "/dev/video0"; may change after a replug
  QString Nom;        ///< the card's own name, for people
  QString NomStable;  ///< stays the same over a replug: the by-id link where there is one, else driver, card and bus
};

/// What one node tells of itself: a camera with both of the names that it can be found by.
struct CandidatVideo {
  QString Noeud;
  QString Nom;
  QString Modele;    ///< driver and card: the same for two equal cameras
  QString NomBus;    ///< with the bus, and the rank among the nodes of one device: never the same for two
  QString NomParId;  ///< udev's link; empty where there is none
};

/// The nodes /dev/videoN in the order of their numbers. Opens none of them.
QStringList ListeNoeudsVideo();
/// Empty where it is no camera: metadata and output nodes are none.
std::optional<CandidatVideo> SondeNoeudVideo(const QString& noeud);
/// With the names that they are remembered by; these hang on what else is plugged in.
QList<PeripheriqueVideo> NommePeripheriques(const QList<CandidatVideo>& candidats);
/// The one that now carries this stable name. Either of its names will do.
std::optional<PeripheriqueVideo> RetrouveParmi(const QList<CandidatVideo>& candidats, const QString& nomStable);

/// All discrete formats; stepwise ranges give the common sizes within them. Largest first within a coding.
QList<FormatCamera> ListeFormats(const QString& noeud);

struct ReglageCamera {
  quint32 Numero = 0;  ///< V4L2 control id
  QString Nom;
  enum class Sorte { kEntier, kBooleen, kMenu } Genre = Sorte::kEntier;
  qint32 Minimum = 0, Maximum = 0, Pas = 1, Defaut = 0, Valeur = 0;
  QStringList Choix;  ///< of a menu, by value; an empty text is a value that the device does not have
  bool Actif = true;  ///< false while another control (an automatic) rules it
};

/// What an analog grabber listens to, told as two controls, menus whose values are places in the device's lists: its
/// inputs (only where there are several), and the standards of the one that is set. Linux has no controls with numbers
/// so low. A device takes no change while frames run.
inline constexpr quint32 kReglageEntree = 1;
inline constexpr quint32 kReglageNorme = 2;

/// Those two first.
QList<ReglageCamera> ListeReglages(const QString& noeud);
/// False when the device refuses.
bool AppliqueReglage(const QString& noeud, quint32 numero, qint32 valeur);

}  // namespace vaktor
