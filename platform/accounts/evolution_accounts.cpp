// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/accounts/evolution_accounts.h"

#include <QDirIterator>
#include <QMap>
#include <algorithm>
#include <array>

#include "platform/accounts/key_file.h"

namespace vaktor {
namespace {

constexpr int kParentsMax = 8;  // parents may form a ring
constexpr qint64 kPortSsl = 465;

// What counts of one file. Each may be an account, an identity, a transport, all of them or something else.
struct Source {
  bool Active = true;
  QByteArray Parent;
  bool EstCompte = false;
  QByteArray Identite;
  QByteArray Adresse;
  QByteArray Transport;
  CompteLu Envoi;  // without an address
};

using Sources = QMap<QString, Source>;

// Its own name for a token, that of the mechanism, and the providers whose tokens it can fetch itself.
bool EstOAuth2(const QByteArray& methode) {
  constexpr std::array<const char*, 5> kMethodes{"OAuth2", "XOAUTH2", "Google", "Outlook", "Yahoo"};
  return std::ranges::any_of(kMethodes,
                             [&methode](const char* nom) { return methode.compare(nom, Qt::CaseInsensitive) == 0; });
}

CompteLu LitEnvoi(const FichierCles& fichier) {
  CompteLu envoi;
  const QByteArray genre = fichier.ValeurGlib("Mail Transport", "BackendName");
  if (!fichier.AGroupe("Mail Transport") || (!genre.isEmpty() && genre != "smtp")) return envoi;
  envoi.Serveur = fichier.ValeurGlib("Authentication", "Host");
  // The method is written as "none" where the server wants no login, whatever the user name still says.
  const QByteArray methode = fichier.ValeurGlib("Authentication", "Method");
  if (methode != "none") envoi.Utilisateur = fichier.ValeurGlib("Authentication", "User");
  envoi.OAuth2 = EstOAuth2(methode);
  bool nombre = false;
  const QByteArray port = fichier.Valeur("Authentication", "Port");
  envoi.Port = port.toLongLong(&nombre);
  if (!nombre && !port.isEmpty()) envoi.Port = -1;
  // No port, or 0, stands for the usual one: 25, which the rule takes by itself, or that of SSL.
  const bool ssl = fichier.ValeurGlib("Security", "Method") == "ssl-on-alternate-port";
  if (envoi.Port == 0 && ssl) envoi.Port = kPortSsl;
  return envoi;
}

Source LitSource(const QByteArray& octets) {
  const FichierCles fichier{SansMarque(octets)};
  return {.Active = fichier.Valeur("Data Source", "Enabled") != "false",
          .Parent = fichier.ValeurGlib("Data Source", "Parent"),
          .EstCompte = fichier.AGroupe("Mail Account"),
          .Identite = fichier.ValeurGlib("Mail Account", "IdentityUid"),
          .Adresse = fichier.ValeurGlib("Mail Identity", "Address"),
          .Transport = fichier.ValeurGlib("Mail Submission", "TransportUid"),
          .Envoi = LitEnvoi(fichier)};
}

// Sorted by name, because a folder has no order of its own and the default is the first.
Sources LitSources(const QString& dossier, BudgetLecture& budget) {
  const QString fin = QStringLiteral(".source");
  Sources sources;
  QDirIterator entrees(dossier, QDir::AllEntries | QDir::System | QDir::Hidden);
  for (int vues = 0; vues < kEntreesMax && sources.size() < kSourcesMax && entrees.hasNext(); ++vues) {
    const QString chemin = entrees.next();
    if (!chemin.endsWith(fin)) continue;
    const QByteArray octets = LitFichierEtranger(chemin, kSourceMax, budget);
    if (!octets.isEmpty()) sources.insert(entrees.fileName().chopped(fin.size()), LitSource(octets));
  }
  return sources;
}

// An account can be switched off by itself or together with the collection that it belongs to.
bool EstActive(const Sources& sources, const Source& compte) {
  Source source = compte;
  for (int i = 0; i < kParentsMax && source.Active; ++i) {
    if (source.Parent.isEmpty()) return true;
    source = sources.value(QString::fromUtf8(source.Parent));
  }
  return source.Active;
}

}  // namespace

void LitComptesEvolution(const QString& dossier, BudgetLecture& budget, ListeComptes& liste) {
  if (liste.Pleine()) return;
  const Sources sources = LitSources(dossier, budget);
  for (const Source& source : sources) {
    if (!source.EstCompte || !EstActive(sources, source)) continue;
    const auto identite = sources.constFind(QString::fromUtf8(source.Identite));
    if (identite == sources.cend()) continue;  // local folders, or a search: a place for mail that sends none
    CompteLu compte = sources.value(QString::fromUtf8(identite->Transport)).Envoi;
    compte.Adresse = identite->Adresse;
    if (!liste.Ajoute(compte)) return;
  }
}

}  // namespace vaktor
