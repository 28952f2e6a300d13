// The outbox: every mail lies on disk, whole, before the first attempt to send it, and leaves the disk only when a
// server has taken it or it is given up. It survives a kill and a power cut.
//
// One file a mail in a folder of mode 0700: NAME.mail holds a line of JSON (when made, attempts so far, when next,
// from, to) and then the message. Files are written under another name, flushed to disk and renamed, so that a
// half-written one is never sent. A mail that is under way is renamed to NAME.sent the moment the server has taken it,
// before it is removed: a kill between the two sends nothing twice.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace vaktor {

struct CourrielEnAttente {
  QString Nom;  ///< name of the file without its ending; sorts by the time it was made
  QString Expediteur;
  QStringList Destinataires;
  qint64 FaitA = 0;          ///< milliseconds since 1970, UTC
  int Essais = 0;            ///< attempts so far
  qint64 ProchainEssai = 0;  ///< milliseconds since 1970; not before
};

class BoiteEnvoi {
 public:
  /// Bounds: older mails are given up first.
  static constexpr int kCourrielsMax = 200;
  static constexpr qint64 kOctetsMax = 256LL * 1024 * 1024;
  static constexpr qint64 kAgeMaxMs = 7LL * 24 * 3600 * 1000;

  /// The folder is made when it is not there. Leftovers of a kill are cleared: half-written ones go, sent ones go.
  explicit BoiteEnvoi(const QString& dossier);

  /// Puts a mail into the box and on disk. False when it cannot be written (disk full): the caller tells the user.
  bool Depose(const CourrielEnAttente& courriel, const QByteArray& message);
  /// All mails, oldest first. Damaged files are set aside as NAME.bad, never sent and never fatal.
  QList<CourrielEnAttente> Liste();
  QByteArray LitMessage(const QString& nom) const;
  /// The server has it: it leaves the box for good.
  void Acheve(const QString& nom);
  /// One more failed attempt; when next is told by the schedule below.
  void Reporte(const QString& nom, qint64 maintenant);
  /// Given up, for good (refused by the server for ever, too old, box full).
  void Abandonne(const QString& nom);
  /// Gives up what is too old or too much; the names given up.
  QStringList Elague(qint64 maintenant);

  /// Waiting time after the n-th failed attempt: 10 s, 30 s, 1, 2, 5, 10, 15 min, then every 30 min.
  static qint64 AttenteApresEssai(int essais);

 private:
  QString Chemin(const QString& nom, const char* fin) const;
  bool EcritFichier(const CourrielEnAttente& courriel, const QByteArray& message);

  QString Dossier_;
};

}  // namespace vaktor
