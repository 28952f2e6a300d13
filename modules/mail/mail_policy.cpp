// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/mail_policy.h"

#include <algorithm>

namespace vaktor {

qsizetype PlafondHoraire::DonnePlafond(Rang rang) const {
  if (rang == Rang::kVeille) return ParHeure_ + kReserveVeille;
  return rang == Rang::kFrais ? ParHeure_ : std::max(1, ParHeure_ - kReserveFrais);
}

qint64 PlafondHoraire::Attente(qint64 maintenant, Rang rang) {
  Envois_.removeIf([maintenant](qint64 t) { return t > maintenant || maintenant - t >= kHeureMs; });
  const qsizetype plafond = DonnePlafond(rang);
  return Envois_.size() < plafond ? 0 : Envois_.at(Envois_.size() - plafond) + kHeureMs - maintenant;
}

void PlafondHoraire::Note(qint64 maintenant) {
  Envois_.append(maintenant);
  while (Envois_.size() > ParHeure_ + kReserveVeille) Envois_.removeFirst();
}

QByteArray PlafondHoraire::Texte() const {
  QByteArray texte;
  for (const qint64 t : Envois_) texte += QByteArray::number(t) + '\n';
  return texte;
}

void PlafondHoraire::Relit(const QByteArray& texte) {
  Envois_.clear();
  for (const QByteArray& ligne : texte.split('\n')) {
    bool nombre = false;
    const qint64 t = ligne.toLongLong(&nombre);
    if (nombre) Envois_.append(t);
  }
  std::sort(Envois_.begin(), Envois_.end());
  while (Envois_.size() > ParHeure_ + kReserveVeille) Envois_.removeFirst();
}

QList<PhotoConnue> ClassePhotos(QList<PhotoConnue> photos, qint64 intrusion) {
  photos.removeIf([&](const PhotoConnue& p) { return qAbs(p.Instant - intrusion) > kFenetrePhotosMs; });
  std::sort(photos.begin(), photos.end(), [&](const PhotoConnue& a, const PhotoConnue& b) {
    const qint64 ecartA = qAbs(a.Instant - intrusion);
    const qint64 ecartB = qAbs(b.Instant - intrusion);
    if (ecartA != ecartB) return ecartA < ecartB;
    if (a.Instant != b.Instant) return a.Instant > b.Instant;
    return a.Chemin > b.Chemin;
  });
  return photos;
}

bool LitNombre(const QString& texte, int& nombre) {
  bool bon = false;
  const int lu = texte.trimmed().toInt(&bon);
  if (bon) nombre = lu;
  return bon;
}

}  // namespace vaktor
