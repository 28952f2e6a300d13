// SPDX-License-Identifier: GPL-3.0-or-later
// How long a file that cannot be written may stand in the way of everything else.
#pragma once

#include <QtGlobal>

namespace vaktor {

/// Of one place that is written to. Moments are those of Horloge::CompteTics, whose wrap does no harm here.
class PanneEcriture {
 public:
  /// Milliseconds: so long every try is made, and its failure ends what asked for it; then one try in so long.
  static constexpr quint32 kInsistance = 1000;

  bool Dure() const { return Dure_; }
  /// It has lasted for kInsistance; so until it ends.
  bool Installee(qint32 tic);
  /// A file may be tried now.
  bool EssaiDu(qint32 tic);
  /// A try that began at `tic` has failed.
  void Note(qint32 tic);
  void Oublie() { *this = {}; }

 private:
  bool Dure_ = false;
  bool Installee_ = false;
  qint32 Debut_ = 0;
  qint32 DernierEssai_ = 0;
};

}  // namespace vaktor
