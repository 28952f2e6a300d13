#include "platform/accounts/account_registry.h"

#include <QDir>
#include <QStandardPaths>

#include "platform/accounts/evolution_accounts.h"
#include "platform/accounts/thunderbird_accounts.h"

namespace vaktor {
namespace {

const QString& CheminRacine() {
  static const QString chemin = QStringLiteral("software\\microsoft\\internet account manager");
  return chemin;
}

const QString& CheminComptes() {
  static const QString chemin = CheminRacine() + QStringLiteral("\\accounts");
  return chemin;
}

QByteArray DonneeTexte(const QByteArray& texte) { return texte + '\0'; }

QByteArray DonneeNombre(quint32 nombre) {
  QByteArray donnee;
  for (int i = 0; i < 4; ++i) donnee += static_cast<char>((nombre >> (8 * i)) & 0xff);
  return donnee;
}

QList<std::pair<QString, QByteArray>> ValeursDe(const CompteMail& compte) {
  QList<std::pair<QString, QByteArray>> valeurs = {{QStringLiteral("SMTP Server"), DonneeTexte(compte.Serveur)},
                                                   {QStringLiteral("SMTP Email Address"), DonneeTexte(compte.Adresse)}};
  if (!compte.Utilisateur.isEmpty()) {
    valeurs.append({QStringLiteral("SMTP User Name"), DonneeTexte(compte.Utilisateur)});
  }
  // A port that no server can have (0, below it, above 65535) is left out, and the rule then shows its own default,
  // which the user sees and corrects. So is one from 32768 on, although a server can have it: to the rule it is an
  // overflow that ends the opening of the form, and one odd account must not take the others with it.
  if (compte.Port >= 1 && compte.Port <= kPortMax) {
    valeurs.append({QStringLiteral("SMTP Port"), DonneeNombre(static_cast<quint32>(compte.Port))});
  }
  return valeurs;
}

}  // namespace

LieuxComptes TrouveLieuxComptes() {
  return {QDir::homePath(), QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)};
}

QList<CompteMail> LitTousLesComptes(const LieuxComptes& lieux) {
  const QString paquets = lieux.Domicile + QStringLiteral("/.var/app");  // where Flatpak keeps the homes
  ListeComptes liste;
  BudgetLecture thunderbird{kBudgetThunderbird};
  for (const QString& racine :
       {lieux.Domicile + QStringLiteral("/.thunderbird"), lieux.Configuration + QStringLiteral("/thunderbird"),
        lieux.Domicile + QStringLiteral("/snap/thunderbird/common/.thunderbird"),
        paquets + QStringLiteral("/org.mozilla.Thunderbird/.thunderbird"),
        paquets + QStringLiteral("/org.mozilla.thunderbird/.thunderbird")}) {
    for (const QString& profil : TrouveProfils(racine, thunderbird)) LitProfilThunderbird(profil, thunderbird, liste);
  }
  BudgetLecture evolution{kBudgetEvolution};
  for (const QString& config : {lieux.Configuration, paquets + QStringLiteral("/org.gnome.Evolution/config")}) {
    LitComptesEvolution(config + QStringLiteral("/evolution/sources"), evolution, liste);
  }
  return liste.Comptes();
}

RegistreComptesFichiers::RegistreComptesFichiers(LieuxComptes lieux) : Lieux_(std::move(lieux)) {}

void RegistreComptesFichiers::LitComptes() {
  Arbre_.clear();
  Lu_ = true;
  QStringList noms;
  for (const CompteMail& compte : LitTousLesComptes(Lieux_)) {
    noms << QStringLiteral("%1").arg(noms.size() + 1, 8, 10, QLatin1Char('0'));
    Arbre_.insert(CheminComptes() + QLatin1Char('\\') + noms.last(), {{}, ValeursDe(compte)});
  }
  if (noms.isEmpty()) return;
  Arbre_.insert(CheminComptes(), {noms, {}});
  Arbre_.insert(CheminRacine(), {{QStringLiteral("Accounts")},
                                 {{QStringLiteral("Default Mail Account"), DonneeTexte(noms.first().toUtf8())}}});
}

RegistreComptes::Cle RegistreComptesFichiers::OuvreCle(const QString& chemin) {
  const QString place = chemin.toLower();
  if (!Lu_ || place == CheminComptes()) LitComptes();
  const auto noeud = Arbre_.constFind(place);
  if (noeud == Arbre_.cend()) return 0;
  Ouvertes_.insert(++Derniere_, *noeud);
  return Derniere_;
}

// A key that is not open has nothing to enumerate. Any other number would not do: walks end at this one only.
long RegistreComptesFichiers::EnumereCle(Cle cle, quint32 index, QString& nom) {
  const auto noeud = Ouvertes_.constFind(cle);
  if (noeud == Ouvertes_.cend() || index >= static_cast<quint32>(noeud->Cles.size())) return kPlusDElements;
  nom = noeud->Cles[index];
  return kSucces;
}

long RegistreComptesFichiers::EnumereValeur(Cle cle, quint32 index, QString& nom, QByteArray& donnee) {
  const auto noeud = Ouvertes_.constFind(cle);
  if (noeud == Ouvertes_.cend() || index >= static_cast<quint32>(noeud->Valeurs.size())) return kPlusDElements;
  nom = noeud->Valeurs[index].first;
  donnee = noeud->Valeurs[index].second;
  return kSucces;
}

void RegistreComptesFichiers::FermeCle(Cle cle) { Ouvertes_.remove(cle); }

}  // namespace vaktor
