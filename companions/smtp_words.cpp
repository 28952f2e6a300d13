#include "companions/smtp_words.h"

namespace vaktor {

namespace {

QString Choisit(qint32 langue, const char* francais, const char* anglais) {
  return QString::fromUtf8(langue == 1 ? anglais : francais);
}

}  // namespace

QString MessageTropDeComptes(qint32 langue, qsizetype maximum) {
  return Choisit(langue, "le logiciel de messagerie de cet ordinateur a plus de %1 comptes.",
                 "the mail software of this computer has more than %1 accounts.")
      .arg(maximum);
}

QString MessagePortTropGrand(qint32 langue, const QString& adresse) {
  return Choisit(langue, "le port SMTP du compte « %1 » est plus grand que 32767.",
                 "the SMTP port of the account \"%1\" is greater than 32767.")
      .arg(adresse);
}

QString SujetEssai(qint32 langue, const QString& sujet) {
  return Choisit(langue, "[Essai] %1", "[Test] %1").arg(sujet);
}

QString CorpsEssai(qint32 langue, const QString& corps) {
  return Choisit(langue, "Ceci est un essai de Vaktor, pas une alarme.\n\n%1",
                 "This is a test of Vaktor, not an alarm.\n\n%1")
      .arg(corps);
}

}  // namespace vaktor
