// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/accounts/thunderbird_accounts.h"

#include "platform/accounts/key_file.h"

namespace vaktor {
namespace {

// Mozilla's own numbers.
constexpr qint64 kSocketSsl = 3;         // nsMsgSocketType::SSL
constexpr qint64 kSansLogin = 1;         // nsMsgAuthMethod::none
constexpr qint64 kOAuth2 = 10;           // nsMsgAuthMethod::OAuth2
constexpr qint64 kPortSubmission = 587;  // what it takes where no port is set
constexpr qint64 kPortSsl = 465;

struct Profil {
  QByteArray Chemin;  // as it stands in the file
  QString Dossier;
  bool ParDefaut = false;
};

QList<Profil> LitListeProfils(const FichierCles& fichier, const QString& racine) {
  QList<Profil> profils;
  for (const GroupeCles& groupe : fichier.Groupes()) {
    const QByteArray chemin = ValeurDe(groupe, "Path");
    if (!groupe.Nom.startsWith("Profile") || chemin.isEmpty() || profils.size() >= kProfilsMax) continue;
    const QString dossier = QString::fromUtf8(chemin);
    const bool absolu = ValeurDe(groupe, "IsRelative") == "0";
    profils.append(
        {chemin, absolu ? dossier : racine + QLatin1Char('/') + dossier, ValeurDe(groupe, "Default") == "1"});
  }
  return profils;
}

QByteArrayList PartageListe(const QByteArray& texte) {
  QByteArrayList noms;
  for (qsizetype debut = 0; debut < texte.size() && noms.size() < kComptesVusMax;) {
    qsizetype fin = texte.indexOf(',', debut);
    if (fin < 0) fin = texte.size();
    const QByteArray nom = texte.mid(debut, fin - debut).trimmed();
    if (!nom.isEmpty()) noms << nom;
    debut = fin + 1;
  }
  return noms;
}

// The account that writing starts with comes first: a list may be looked at from its head only.
QByteArrayList OrdonneComptes(const Prefs& prefs) {
  QByteArrayList comptes = PartageListe(prefs.Texte("mail.accountmanager.accounts"));
  const qsizetype place = comptes.indexOf(prefs.Texte("mail.accountmanager.defaultaccount"));
  if (place > 0) comptes.move(place, 0);
  return comptes;
}

QByteArray ChoisitServeur(const Prefs& prefs, const QByteArray& identite) {
  QByteArray serveur = prefs.Texte("mail.identity." + identite + ".smtpServer");
  if (serveur.isEmpty()) serveur = prefs.Texte("mail.smtp.defaultserver");
  if (serveur.isEmpty()) serveur = PartageListe(prefs.Texte("mail.smtpservers")).value(0);
  return serveur;
}

// An identity whose server speaks something else than SMTP comes out without a server, and so cannot be used.
CompteLu LitIdentite(const Prefs& prefs, const QByteArray& identite) {
  CompteLu compte;
  compte.Adresse = prefs.Texte("mail.identity." + identite + ".useremail");
  const QByteArray serveur = "mail.smtpserver." + ChoisitServeur(prefs, identite);
  const QByteArray type = prefs.Texte(serveur + ".type");
  if (!type.isEmpty() && type != "smtp") return compte;
  compte.Serveur = prefs.Texte(serveur + ".hostname");
  const qint64 methode = prefs.Nombre(serveur + ".authMethod", 0);
  if (methode != kSansLogin) compte.Utilisateur = prefs.Texte(serveur + ".username");
  compte.OAuth2 = methode == kOAuth2;
  compte.Port = prefs.Nombre(serveur + ".port", 0);
  const bool ssl = prefs.Nombre(serveur + ".try_ssl", 0) == kSocketSsl;
  if (compte.Port == 0) compte.Port = ssl ? kPortSsl : kPortSubmission;
  return compte;
}

}  // namespace

QStringList TrouveProfils(const QString& racine, BudgetLecture& budget) {
  const QByteArray octets = LitFichierEtranger(racine + QStringLiteral("/profiles.ini"), kListeProfilsMax, budget);
  const FichierCles fichier(SansMarque(octets));
  const QList<Profil> profils = LitListeProfils(fichier, racine);
  QStringList dossiers;
  const auto ajoute = [&dossiers](const Profil& profil) {
    if (!dossiers.contains(profil.Dossier)) dossiers << profil.Dossier;
  };
  // An installation remembers its own profile since version 68, and "Default=1" then only tells what older ones take.
  for (const GroupeCles& groupe : fichier.Groupes()) {
    if (!groupe.Nom.startsWith("Install")) continue;
    const QByteArray chemin = ValeurDe(groupe, "Default");
    for (const Profil& profil : profils) {
      if (profil.Chemin == chemin) ajoute(profil);
    }
  }
  for (const Profil& profil : profils) {
    if (profil.ParDefaut) ajoute(profil);
  }
  for (const Profil& profil : profils) ajoute(profil);
  return dossiers;
}

void AjouteComptes(const Prefs& prefs, ListeComptes& liste) {
  QByteArrayList autres;
  for (const QByteArray& compte : OrdonneComptes(prefs)) {
    const QByteArrayList identites = PartageListe(prefs.Texte("mail.account." + compte + ".identities"));
    if (identites.isEmpty()) continue;  // the local folders, or a feed
    if (!liste.Ajoute(LitIdentite(prefs, identites[0]))) return;
    if (autres.size() < kComptesVusMax) autres += identites.mid(1);
  }
  for (const QByteArray& identite : autres) {
    if (!liste.Ajoute(LitIdentite(prefs, identite))) return;
  }
}

// user.js is left alone: what stands in it is in prefs.js after the next start.
void LitProfilThunderbird(const QString& profil, BudgetLecture& budget, ListeComptes& liste) {
  if (liste.Pleine()) return;
  const QByteArray octets = LitFichierEtranger(profil + QStringLiteral("/prefs.js"), budget.Octets, budget);
  AjouteComptes(LitPrefs(SansMarque(octets), "mail."), liste);
}

}  // namespace vaktor
