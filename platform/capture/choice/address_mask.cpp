#include "platform/capture/choice/address_mask.h"

#include <QRegularExpression>

namespace vaktor {

QString MarqueMotDePasse() { return QString(5, QChar(0x2022)); }

QString MasqueAdresse(const QString& adresse) {
  const qsizetype schema = adresse.indexOf(QLatin1String("://"));
  if (schema < 0) return adresse;
  QString masquee = adresse;
  // Up to the last "@": a password may hold "@" or "/" that nobody encoded, and its tail would show otherwise.
  const qsizetype debut = schema + 3;
  const qsizetype arobase = adresse.lastIndexOf(QLatin1Char('@'));
  const qsizetype deuxPoints = adresse.indexOf(QLatin1Char(':'), debut);
  if (arobase > debut && deuxPoints >= debut && deuxPoints < arobase)
    masquee.replace(deuxPoints + 1, arobase - deuxPoints - 1, MarqueMotDePasse());
  static const QRegularExpression kChamp(
      QStringLiteral(R"(([?&;](?:[a-z_]*(?:pass|pwd|psw|secret|token|auth|key)[a-z_]*)=)[^&;#]*)"),
      QRegularExpression::CaseInsensitiveOption);
  return masquee.replace(kChamp, QStringLiteral("\\1") + MarqueMotDePasse());
}

}  // namespace vaktor
