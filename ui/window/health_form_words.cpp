#include "ui/window/health_form_words.h"

#include "texts/language.h"

namespace vaktor {

QString TitreSante(qint32 langue) {
  return ChoisitLangue(langue, QStringLiteral("Santé de la surveillance"), QStringLiteral("Health of the watch"));
}

QString MotFermerSante(qint32 langue) {
  return ChoisitLangue(langue, QStringLiteral("Fermer"), QStringLiteral("Close"));
}

QString MotRienASignaler(qint32 langue) {
  return ChoisitLangue(langue, QStringLiteral("Rien à signaler."), QStringLiteral("Nothing to report."));
}

QString MotDepuis(qint32 langue, const QString& moment) {
  return ChoisitLangue(langue, QStringLiteral("Depuis le %1"), QStringLiteral("Since %1")).arg(moment);
}

}  // namespace vaktor
