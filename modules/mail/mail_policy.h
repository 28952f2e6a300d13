// When a mail is made, and with which photos. Rules only: time and files are handed in.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

namespace vaktor {

/// `nombremail` mails one after the other, then none for five minutes, however many intrusions are reported.
class CadenceCourriels {
 public:
  static constexpr qint64 kPauseMs = 5LL * 60 * 1000;

  /// An intrusion was reported at `maintenant` (milliseconds, never going back). True: make a mail for it now.
  /// Within a row the next mail waits until the one before has left or failed (`precedentRegle`), so that it shows the
  /// photos that came meanwhile. A row that was not filled ends when its first mail is five minutes old.
  bool Accepte(qint64 maintenant, int nombreMail, bool precedentRegle);

 private:
  int FaitsDansLaSerie_ = 0;
  qint64 DebutSerie_ = 0;
  qint64 FinPause_ = 0;
};

/// The user's mail account is protected by a cap on mails handed over in an hour.
class PlafondHoraire {
 public:
  static constexpr int kCourrielsParHeure = 60;
  static constexpr qint64 kHeureMs = 3600LL * 1000;
  /// Milliseconds to wait before the next mail may leave; 0: now.
  qint64 Attente(qint64 maintenant) const;
  void Note(qint64 maintenant);

 private:
  QList<qint64> Envois_;  // the last kCourrielsParHeure at the most, oldest first
};

struct PhotoConnue {
  QString Chemin;
  qint64 Instant = 0;  ///< milliseconds since 1970, UTC
  qint64 Octets = 0;
};

/// At most `nombre` photos and `octetsMax` bytes, those nearest the intrusion first; photos more than `fenetreMs` away
/// belong to another event and are left out. Of two as near, the later one comes first.
QList<PhotoConnue> ChoisitPhotos(QList<PhotoConnue> photos, qint64 intrusion, int nombre, qint64 octetsMax,
                                 qint64 fenetreMs);

}  // namespace vaktor
