// SPDX-License-Identifier: GPL-3.0-or-later
// Port: opens a web address, a file or a folder with the program that the system keeps for it.
#pragma once

#include <QString>

namespace vaktor {

class Ouvreur {
 public:
  virtual ~Ouvreur() = default;
  /// The address as it was typed; one without a scheme is a web address ("http"). The result is of no interest: what
  /// the system shows is all there is.
  virtual void OuvreAdresse(const QString& adresse) = 0;
  /// A folder in the stored form of a path.
  virtual void OuvreDossier(const QString& chemin) = 0;
};

}  // namespace vaktor
