// SPDX-License-Identifier: GPL-3.0-or-later
// One line of the journal of the watch, as a value and as text. docs/journal.md tells the same to other programs.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QList>
#include <QRect>
#include <QString>
#include <optional>

namespace vaktor {

/// What a line tells.
enum class Fait {
  kDemarre,         ///< the program has started
  kFini,            ///< it has ended in order
  kArmee,           ///< the alarm is armed
  kDesarmee,        ///< it is armed no longer
  kVie,             ///< the program lives: said now and then while armed, for a kill leaves no word
  kDebutIntrusion,  ///< something moved on an armed watch
  kFinIntrusion,    ///< nothing has acted for ten seconds
  kCourriel,        ///< a server has taken a mail
  kPageRetablie,    ///< the live page is fresh again after a gap
  kDebutCondition,  ///< a condition of the watch counts from now on
  kFinCondition     ///< it has ended
};

/// The box of the movement in one photo, which is told apart by the number in its name.
struct CadrePhoto {
  qint32 Numero = 0;
  QRect Cadre;

  bool operator==(const CadrePhoto&) const = default;
};

/// Fields that a line does not need keep their start values and are not written.
struct EntreeJournal {
  Fait Quoi = Fait::kVie;
  QDateTime Quand = {};     ///< with the distance to UTC of the writer's zone; to the millisecond
  QString Course = {};      ///< tells the lines of one run of the program from those of others
  qint64 DepuisDepart = 0;  ///< ms since that run began: no clock that is set moves it

  QDateTime Depuis =
      {};  ///< conditions: since when it is so; kDebutIntrusion, kFinIntrusion: the first frame that acted

  // Intrusions.
  qint64 DureeMs = 0;                                    ///< from the first frame that acted to the last
  qint32 Images = 0;                                     ///< frames that acted
  qint32 Points = 0;                                     ///< most changed samples of one frame
  QRect Cadre = {};                                      ///< the box of that frame, in pixels of the photo
  qint32 Photos = 0;                                     ///< photos that were written
  QString Dossier = {};                                  ///< of the photos, in its stored form
  QString Premiere = {}, Derniere = {}, Meilleure = {};  ///< file names; Meilleure: of the most changed samples
  QList<CadrePhoto> Cadres = {};                         ///< boxes of the photos, as many as a line has room for

  // Conditions.
  QString Mot = {};        ///< the stable word of the condition ("signal-lost")
  QString Detail = {};     ///< what only this case can say
  bool Evenement = false;  ///< it happened and is over: no end follows
  bool operator==(const EntreeJournal&) const = default;
};

/// What was written by a later program, in a way that this one may misunderstand, has a greater number.
inline constexpr int kVersionJournal = 1;
/// Bytes of a line; a longer one is none of ours.
inline constexpr qsizetype kLigneMax = qsizetype{64} * 1024;
/// Boxes of one intrusion: a line with so many stays below kLigneMax.
inline constexpr qsizetype kCadresMax = 800;

/// JSON of one line, without the line break.
QByteArray EcritLigne(const EntreeJournal& entree);
/// Nothing for a line that is torn, too long, of another version, or tells what is not known.
std::optional<EntreeJournal> LitLigne(QByteArrayView ligne);

struct JournalLu {
  QList<EntreeJournal> Entrees;  ///< in the order of the file
  qint64 Illisibles = 0;         ///< lines that were left out
};
/// Any bytes. What cannot be read costs its line and no other.
JournalLu LitJournal(QByteArrayView octets);

/// Where a file of `octets` that has grown too large is to begin, so that at most `plafond` bytes stay: with the first
/// line of a day, the oldest days going; with some line where the newest day alone is larger.
qsizetype TrouveDebutGarde(QByteArrayView octets, qsizetype plafond);

}  // namespace vaktor
