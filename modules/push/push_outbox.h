// SPDX-License-Identifier: GPL-3.0-or-later
// The pushes that wait, on disk: a folder that only the user can enter, one file a push.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "modules/push/push_sender.h"

namespace vaktor {

/// A file is there whole or not at all, also after a power cut; what is no push (damaged) is deleted. Any number of
/// objects may stand for one folder; the object itself keeps nothing.
class SacPush {
 public:
  static constexpr qint64 kAgeMax = 7LL * 24 * 3600 * 1000;  ///< milliseconds; as a mail's
  static constexpr qsizetype kNombreMax = 200;
  static constexpr qint64 kImageMax = 15LL * 1024 * 1024;  ///< bytes of a picture; a larger one is left out
  static constexpr QLatin1String kFin{".push"};            ///< of a name

  explicit SacPush(QString dossier) : Dossier_(std::move(dossier)) {}

  /// `faitA`: milliseconds since 1970; it goes before what waits, also when the clock was set back meanwhile. `marque`:
  /// of this process. Gives the system's error number, 0 when it is on the disk. Without room for the picture the words
  /// alone are kept, and `sansImage` is the reason.
  int Ajoute(const MessagePush& message, qint64 faitA, const QString& marque, int* sansImage = nullptr);
  /// The names, newest first.
  QStringList Liste() const;
  /// Nothing for one that is gone, that is none, or, told by `passager`, that cannot be read just now.
  std::optional<MessagePush> Lit(const QString& nom, bool* passager = nullptr) const;
  /// Without its picture from now on.
  void RetireImage(const QString& nom);
  void Retire(const QString& nom);
  /// Deletes what is older than kAgeMax and among `echus` (tried long enough nevertheless: a clock that jumps gives up
  /// nothing), and the oldest beyond kNombreMax: the names of these. And halves that a kill has left behind.
  QStringList Elague(qint64 maintenant, const QStringList& echus);
  static qint64 FaitA(const QString& nom);

 private:
  QString Chemin(const QString& nom) const { return Dossier_ + QLatin1Char('/') + nom; }
  QString Dossier_;
};

}  // namespace vaktor
