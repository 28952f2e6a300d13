// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/next_name.h"

namespace vaktor {

QByteArray NomVoisin(const QByteArray& chemin, int rang) {
  constexpr int kLettres = 26;
  const int reste = rang - 1;
  const QByteArray lettres = QByteArray(reste / kLettres, 'z') + static_cast<char>('a' + reste % kLettres);
  const qsizetype point = chemin.lastIndexOf('.');
  const bool fini = point > chemin.lastIndexOf('/') + 1;  // a name that begins with its dot has no ending
  return QByteArray(chemin).insert(fini ? point : chemin.size(), lettres);
}

}  // namespace vaktor
