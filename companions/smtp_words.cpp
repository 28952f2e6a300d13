#include "companions/smtp_words.h"

namespace vaktor {

namespace {

QString Choisit(qint32 langue, const char* francais, const char* anglais) {
  return QString::fromUtf8(langue == 1 ? anglais : francais);
}

}  // namespace

QString NommeCompte(qint32 langue, const CompteMail& compte) {
  if (!compte.OAuth2) return compte.Adresse;
  return compte.Adresse + Choisit(langue, " (connexion OAuth2)", " (OAuth2 login)");
}

QString InviteOAuth2(qint32 langue) { return Choisit(langue, "mot de passe d'application", "app password"); }

QString AideOAuth2(qint32 langue) {
  return Choisit(
      langue,
      "Ce compte se connecte par OAuth2 : son mot de passe habituel peut être refusé. Créez un mot de passe "
      "d'application chez votre fournisseur, s'il en propose.",
      "This account logs in with OAuth2: its usual password may be refused. Create an app password with your "
      "provider, if it offers them.");
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
