// The registry tree of mail accounts, over the files of the mail programs that Linux users have.
//
//   Software\Microsoft\Internet Account Manager            "Default Mail Account": name of the first key below
//   Software\Microsoft\Internet Account Manager\Accounts\00000001 ...
//       "SMTP Server", "SMTP Email Address"     text
//       "SMTP User Name"                        text, where the server wants a login
//       "SMTP Port"                             number, where it is known
#pragma once

#include <QHash>
#include <QStringList>

#include "companions/ports/mail_registry.h"
#include "platform/accounts/mail_account.h"

namespace vaktor {

/// Where the mail programs keep their files.
struct LieuxComptes {
  QString Domicile;       ///< the user's home folder
  QString Configuration;  ///< XDG_CONFIG_HOME, by default ~/.config
};

LieuxComptes TrouveLieuxComptes();

/// What one reading may take in: Thunderbird's preferences and Evolution's sources, bytes.
inline constexpr qint64 kBudgetThunderbird = 64LL << 20;
inline constexpr qint64 kBudgetEvolution = 8LL << 20;

/// The accounts of Thunderbird (its own folders and those of its Snap and Flatpak packages), then those of Evolution.
/// Only accounts that can be used are among them. Never fails: what cannot be read is not there.
QList<CompteMail> LitTousLesComptes(const LieuxComptes& lieux);

/// The files are read when the key "Accounts" is opened, and all keys show that reading until it is opened again: a
/// walk over names and values must not see two states, and a large file is read once. No key is there without accounts.
class RegistreComptesFichiers : public RegistreComptes {
 public:
  explicit RegistreComptesFichiers(LieuxComptes lieux);

  Cle OuvreCle(const QString& chemin) override;
  long EnumereCle(Cle cle, quint32 index, QString& nom) override;
  long EnumereValeur(Cle cle, quint32 index, QString& nom, QByteArray& donnee) override;
  void FermeCle(Cle cle) override;

 private:
  struct Noeud {
    QStringList Cles;
    QList<std::pair<QString, QByteArray>> Valeurs;
  };

  void LitComptes();

  const LieuxComptes Lieux_;
  bool Lu_ = false;
  QHash<QString, Noeud> Arbre_;  // by path in lower case: the names of keys have no case
  QHash<Cle, Noeud> Ouvertes_;
  Cle Derniere_ = 0;
};

}  // namespace vaktor
