// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the file to which the journal is written, line by line, and the slate beside it.
#pragma once

#include <QByteArray>
#include <QString>

namespace vaktor {

/// User-interface thread.
class FichierJournal {
 public:
  virtual ~FichierJournal() = default;
  /// Appends a line, which holds no line break, and returns at once: the disk is asked elsewhere. Lines keep their
  /// order. One that a disk does not take, or for which too many wait already, is lost, and the program goes on.
  virtual void Ajoute(const QByteArray& ligne) noexcept = 0;
  /// The slate of the intrusion of now, beside the journal (companions/contract/intrusion_slate.h), in place of the one
  /// before. Returns at once; where the disk is slower than the slates come, the newest counts.
  virtual void MontreArdoise(const QByteArray& ardoise) noexcept = 0;
  /// The system's error number of the last line that was lost; 0 while lines reach the file.
  virtual int Erreur() const noexcept = 0;
};

}  // namespace vaktor
