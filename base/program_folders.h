// SPDX-License-Identifier: GPL-3.0-or-later
// Where the program lies and where it writes. Both without a separator at the end.
#pragma once

#include <QString>

namespace vaktor {

struct DossiersProgramme {
  QString Executables;  ///< the program, the companions and "snd"
  QString Donnees;  ///< everything written: "Temp", "Temp/FTP", "intrus". The same folder where it is writable, else
                    ///< the user's data folder
  QString Images = {};  ///< of an installed program: where users look for pictures; else empty

  /// The photo folder as long as the user has chosen none, in its stored form.
  QString PhotosParDefaut() const {
    return Images.isEmpty() ? Donnees + QStringLiteral("\\intrus") : Images + QStringLiteral("\\Vaktor");
  }
};

}  // namespace vaktor
