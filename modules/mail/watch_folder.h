// SPDX-License-Identifier: GPL-3.0-or-later
// The folder in which the main program leaves what the watch has to say of itself: one file a message, a picture beside
// it where there is one.
#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QStringList>
#include <optional>

#include "platform/base/bounded_log.h"
#include "texts/phrase.h"

namespace vaktor {

struct MessageVeille {
  QString Nom;       ///< of its files, without the ending: "<milliseconds since 1970>-<number>"
  qint64 FaitA = 0;  ///< milliseconds since 1970, from the name
  QString Condition;
  PhraseDite Sujet;
  PhraseDite Texte;
  QByteArray Photo = {};       ///< a whole JPEG, or empty
  bool PhotoPlusTard = false;  ///< it cannot be read at this moment
};

/// Holds nothing but the folder's name. A folder that is not there is an empty one; it is the main program's to make.
class DossierVeille {
 public:
  static constexpr int kMessagesMax = 100;  ///< in one look
  static constexpr int kEntreesMax = 10'000;
  static constexpr qint64 kOctetsTexteMax = 64LL * 1024;
  static constexpr qint64 kAgeOrphelinMs = 24LL * 3600 * 1000;

  explicit DossierVeille(QString dossier) : Dossier_(std::move(dossier)) {}

  /// The messages that lie there, oldest first, kMessagesMax at the most. `erreur`: the system's error number when the
  /// folder could not be listed, else 0.
  QStringList Liste(int* erreur = nullptr) const;
  /// Nothing, and why in `raison`, for a file that is no message. An empty `raison`: gone meanwhile, or perhaps
  /// readable the next time. Links, pipes and devices are not followed nor waited for. A picture that is not whole, or
  /// larger than `photoMax` bytes, is left out.
  std::optional<MessageVeille> Lit(const QString& nom, qint64 photoMax, QString& raison) const;
  /// Deletes both files. False when the message is still there.
  bool Efface(const QString& nom) const;
  /// Keeps a damaged message as "<name>.bad", for a person to look at. False when the system refuses.
  bool MetDeCote(const QString& nom) const;
  /// Deletes pictures without a message, a day after they were made: who wrote them was killed before the message.
  void RetireOrphelins(qint64 maintenant) const;

  const QString& Dossier() const { return Dossier_; }
  /// Of a message's name; -1 for a name that is none.
  static qint64 DonneInstant(const QString& nom);

 private:
  QString Chemin(const QString& nom, QLatin1String fin) const { return Dossier_ + u'/' + nom + fin; }
  QStringList ListeNoms(QLatin1String fin, int& erreur) const;

  QString Dossier_;
};

/// What came of reading one message.
struct LectureVeille {
  std::optional<MessageVeille> Message;
  bool Illisible = false;  ///< it was no message; it is put aside
};

/// The folder for one companion's run: tells the log, and does not look again at what the system would not let go.
class LecteurVeille {
 public:
  LecteurVeille(const QString& dossier, JournalBorne& journal) : Dossier_(dossier), Journal_(journal) {}

  const DossierVeille& Dossier() const { return Dossier_; }
  /// As DossierVeille::Liste.
  QStringList Liste(int* erreur = nullptr) const;
  /// Neither a message nor one that was put aside: perhaps the next time.
  LectureVeille Lit(const QString& nom, qint64 photoMax);
  void Efface(const QString& nom);
  void Note(const QString& nom, const QString& quoi) const;

 private:
  DossierVeille Dossier_;
  JournalBorne& Journal_;
  QSet<QString> Passes_;  // the system would not let them go
};

}  // namespace vaktor
