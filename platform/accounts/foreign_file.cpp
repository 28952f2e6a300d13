// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/accounts/foreign_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QStringDecoder>
#include <algorithm>
#include <cerrno>

namespace vaktor {
namespace {

bool EstOrdinaire(const struct stat& etat) { return S_ISREG(etat.st_mode); }

// -1 unless the name leads to a regular file. Looked at before the opening, because to open a device can set it off,
// and after it, because the name may lead elsewhere by then; O_NONBLOCK is for that case.
int OuvreOrdinaire(const QByteArray& nom) {
  struct stat etat {};
  if (::stat(nom.constData(), &etat) != 0 || !EstOrdinaire(etat)) return -1;
  const int descripteur = ::open(nom.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (descripteur < 0) return -1;
  if (::fstat(descripteur, &etat) == 0 && EstOrdinaire(etat)) return descripteur;
  ::close(descripteur);
  return -1;
}

// What could be read is kept when the reading fails in the middle: the accounts in it are as good as any.
QByteArray LitAuPlus(int descripteur, qint64 limite) {
  constexpr qint64 kMorceau = 1 << 20;
  QByteArray octets;
  struct stat etat {};
  if (::fstat(descripteur, &etat) == 0) octets.reserve(std::min<qint64>(etat.st_size, limite) + kMorceau);
  while (octets.size() < limite) {
    const qint64 debut = octets.size();
    const qint64 voulus = std::min(kMorceau, limite - debut);
    octets.resize(debut + voulus);
    ssize_t lus = 0;
    do {
      lus = ::read(descripteur, octets.data() + debut, static_cast<std::size_t>(voulus));
    } while (lus < 0 && errno == EINTR);
    octets.truncate(debut + std::max<qint64>(lus, 0));
    if (lus <= 0) break;
  }
  return octets;
}

}  // namespace

QByteArray LitFichierEtranger(const QString& fichier, qint64 limite, BudgetLecture& budget) {
  if (fichier.contains(QChar(u'\0'))) return {};  // the system would open the name before it
  const int descripteur = OuvreOrdinaire(QFile::encodeName(fichier));
  if (descripteur < 0) return {};
  QByteArray octets = LitAuPlus(descripteur, std::min(limite, budget.Octets));
  ::close(descripteur);
  budget.Octets -= octets.size();
  return octets;
}

QByteArray SansMarque(const QByteArray& octets) {
  if (octets.startsWith("\xEF\xBB\xBF")) return octets.mid(3);
  const bool petit = octets.startsWith("\xFF\xFE");
  if (!petit && !octets.startsWith("\xFE\xFF")) return octets;
  QStringDecoder decodeur(petit ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
  const QString texte = decodeur.decode(octets);
  return texte.toUtf8();
}

QByteArray RendUtf8(QByteArrayView octets) {
  if (octets.isValidUtf8()) return octets.toByteArray();
  return QString::fromLatin1(octets).toUtf8();
}

}  // namespace vaktor
