#include "mail_policy.h"

#include <algorithm>

namespace vaktor {

bool CadenceCourriels::Accepte(qint64 maintenant, int nombreMail, bool precedentRegle) {
  if (nombreMail < 1 || maintenant < FinPause_) return false;
  if (FaitsDansLaSerie_ > 0 && maintenant - DebutSerie_ >= kPauseMs) FaitsDansLaSerie_ = 0;
  if (FaitsDansLaSerie_ > 0 && !precedentRegle) return false;
  if (FaitsDansLaSerie_ == 0) DebutSerie_ = maintenant;
  ++FaitsDansLaSerie_;
  if (FaitsDansLaSerie_ >= nombreMail) {
    FaitsDansLaSerie_ = 0;
    FinPause_ = maintenant + kPauseMs;
  }
  return true;
}

qint64 PlafondHoraire::Attente(qint64 maintenant) const {
  if (Envois_.size() < kCourrielsParHeure) return 0;
  return std::max<qint64>(0, Envois_.first() + kHeureMs - maintenant);
}

void PlafondHoraire::Note(qint64 maintenant) {
  if (Envois_.size() >= kCourrielsParHeure) Envois_.removeFirst();
  Envois_.append(maintenant);
}

QList<PhotoConnue> ChoisitPhotos(QList<PhotoConnue> photos, qint64 intrusion, int nombre, qint64 octetsMax,
                                 qint64 fenetreMs) {
  photos.removeIf([&](const PhotoConnue& p) { return qAbs(p.Instant - intrusion) > fenetreMs; });
  std::sort(photos.begin(), photos.end(), [&](const PhotoConnue& a, const PhotoConnue& b) {
    const qint64 ecartA = qAbs(a.Instant - intrusion);
    const qint64 ecartB = qAbs(b.Instant - intrusion);
    if (ecartA != ecartB) return ecartA < ecartB;
    if (a.Instant != b.Instant) return a.Instant > b.Instant;
    return a.Chemin > b.Chemin;
  });
  QList<PhotoConnue> choix;
  qint64 octets = 0;
  for (const PhotoConnue& p : photos) {
    if (choix.size() >= nombre) break;
    if (octets + p.Octets > octetsMax) continue;
    octets += p.Octets;
    choix.append(p);
  }
  return choix;
}

}  // namespace vaktor
