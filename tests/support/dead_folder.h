// SPDX-License-Identifier: GPL-3.0-or-later
// A folder on a disk that never answers, beside a living one.
#pragma once

#include <QDir>
#include <QString>

#include "support/dead_disk.h"
#include "support/small_disk.h"

namespace vaktor {

/// Only this process sees it. Check EstMonte(), skip the test with Raison().
class DossierMort {
 public:
  bool EstMonte() const { return Petit_.EstMonte() && Mort_.EstMonte(); }
  const char* Raison() const { return Petit_.EstMonte() ? Mort_.Raison() : Petit_.Raison(); }
  /// Naming it waits for nobody; everything in it does.
  QString Chemin(const char* suite = "") const { return Chemin_ + QLatin1String(suite); }
  /// The folder that it lies in, which answers.
  QString Vivant(const char* suite = "") const { return Petit_.Chemin() + QLatin1String(suite); }
  /// All who wait get an error.
  void Reveille() { Mort_.Reveille(); }

 private:
  static QString Cree(const QString& dossier) {
    QDir().mkdir(dossier);
    return dossier;
  }

  PetitDisque Petit_{1024 * 1024};
  const QString Chemin_ = Cree(Petit_.Chemin() + QStringLiteral("/mort"));
  DisqueMort Mort_{Chemin_};
};

}  // namespace vaktor
