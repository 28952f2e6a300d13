// SPDX-License-Identifier: GPL-3.0-or-later
// How many mails may leave, and which photos they take. Rules only: time and files are handed in.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace vaktor {

/// The user's mail account is protected by a cap on mails handed over in an hour: providers close accounts that send
/// hundreds.
class PlafondHoraire {
 public:
  static constexpr int kCourrielsParHeure = 60;
  /// Of these, kept for mails of what happens now: a day that waited must not use up the hour of the next alarm.
  static constexpr int kReserveFrais = 20;
  static constexpr qint64 kFraisMs = 10LL * 60 * 1000;  ///< so old a mail is one of now
  /// Above the cap, for mails of the watch alone: that it has gone blind must not wait an hour behind the intrusion
  /// before. They are few by themselves.
  static constexpr int kReserveVeille = 10;
  static constexpr qint64 kHeureMs = 3600LL * 1000;

  explicit PlafondHoraire(int parHeure = kCourrielsParHeure) : ParHeure_(parHeure) {}

  enum class Rang { kAncien, kFrais, kVeille };

  /// Milliseconds to wait before the next mail of this rank may leave; 0: now. Time is milliseconds since 1970; when
  /// the clock was set back, what lies in the future is forgotten.
  qint64 Attente(qint64 maintenant, Rang rang = Rang::kFrais);
  void Note(qint64 maintenant);

  /// As text, to be kept over a restart. What does not read as such is taken for an empty list.
  QByteArray Texte() const;
  void Relit(const QByteArray& texte);

 private:
  qsizetype DonnePlafond(Rang rang) const;

  int ParHeure_;
  QList<qint64> Envois_;  // no more than cap and reserve, oldest first
};

/// After a row of mails there is none for so long, whatever is reported: an evening must not fill the user's mailbox.
inline constexpr qint32 kPauseEntreSeries = 5 * 60 * 1000;  // milliseconds

struct PhotoConnue {
  QString Chemin;
  qint64 Instant = 0;  ///< of its last change, milliseconds since 1970, UTC; see ListePhotos
  qint64 Octets = 0;
  bool operator==(const PhotoConnue&) const = default;
};

/// Photos further away than this belong to another event.
constexpr qint64 kFenetrePhotosMs = 10LL * 60 * 1000;

/// The photos in the order in which they are wanted: nearest the intrusion first, of two as near the later one.
QList<PhotoConnue> ClassePhotos(QList<PhotoConnue> photos, qint64 intrusion);

/// What the user typed for a count: digits with blanks around; anything else gives nothing.
bool LitNombre(const QString& texte, int& nombre);

}  // namespace vaktor
