// SPDX-License-Identifier: GPL-3.0-or-later
// The log of a companion: for the person who wants to know why no mail came. Small and bounded, and never a secret.
#pragma once

#include <QString>
#include <QStringList>

#include "engine/ports/clock.h"

namespace vaktor {

/// Two files, "<name>.log" and "<name>.log.1" (the older half), mode 0600, together never above twice `tailleMax`.
/// A log that cannot be written is lost in silence: it must never be the reason why a companion fails.
class JournalBorne {
 public:
  static constexpr qint64 kTailleMax = 256LL * 1024;  ///< bytes of one file
  static constexpr int kLigneMax = 1000;              ///< characters of one line; what is longer is cut

  JournalBorne(const QString& dossier, const QString& nom, const Horloge& temps, qint64 tailleMax = kTailleMax);

  /// One line with date and time. Line breaks and control characters become blanks, so that what a server says cannot
  /// forge a line; every secret is replaced by "***".
  void Note(const QString& ligne);
  /// From now on this text appears in no line (NettoieLigne).
  void CacheSecret(const QString& secret);

  const QString& Chemin() const { return Chemin_; }

 private:
  QString Chemin_;
  const Horloge& Temps_;
  qint64 TailleMax_;
  QStringList Secrets_;
};

/// The text without the secrets and control characters: for logs, status files, notifications and rehearsals alike.
/// Secrets of fewer than three characters are not looked for: they would blacken half of every line and give themselves
/// away by it.
QString NettoieLigne(QString ligne, QStringList secrets);

}  // namespace vaktor
