// SPDX-License-Identifier: GPL-3.0-or-later
// The file in which something is remembered between two runs, and whether it may be written over.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <utility>

namespace vaktor {

/// What became of such a file, for those who look for the reason.
struct TroubleMemoire {
  QString Fichier;
  QString Raison;       ///< the system's words
  bool Abimee = false;  ///< it made no sense and lies beside as ".bad"; else it cannot be read at the moment
};

/// Mode 0600. No file is an empty memory. One that cannot be read at the moment (no right, no descriptor, a disk that
/// fails) is none at all: until it has been read nothing is written, which would be to forget all that it holds.
class FichierMemoire {
 public:
  /// Larger than `tailleMax` bytes it makes no sense.
  FichierMemoire(QString chemin, qint64 tailleMax) : Chemin_(std::move(chemin)), TailleMax_(tailleMax) {}

  /// Its bytes, once: the first time that it can be read. Nothing before that, and nothing afterwards.
  std::optional<QByteArray> Lit();
  bool EstLu() const { return Lu_; }
  /// Why it cannot be read, "path: reason"; empty once it was.
  const QString& Empechement() const { return Empechement_; }
  /// What was read makes no sense: it is kept beside. Where that fails it counts as not read.
  void MetDeCote();
  /// Replaced whole. False when the disk does not take it, or before it was read.
  bool Ecrit(const QByteArray& octets) const;
  /// At its end; likewise.
  bool Ajoute(const QByteArray& octets) const;
  /// What went wrong, each once.
  std::optional<TroubleMemoire> PrendTrouble();

 private:
  void NoteEmpechement(int erreur);

  QString Chemin_;
  qint64 TailleMax_;
  bool Lu_ = false;
  QString Empechement_;
  std::optional<TroubleMemoire> Trouble_;
};

}  // namespace vaktor
