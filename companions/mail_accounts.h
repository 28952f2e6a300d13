// ModuleRegistreCompteMail: the accounts of the mail software on this machine, so that the user can pick one instead of
// typing. Only reads; passwords are not looked for.
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <functional>

#include "companions/ports/mail_registry.h"
#include "engine/ports/event_pump.h"
#include "settings/parameters.h"

namespace vaktor {

/// The accounts found, in parallel tables filled from slot 0 without gaps. Owner: app/, for the whole run: they stay
/// filled between two openings of the form, and slots behind NbrComptes keep what an earlier reading left there.
struct ComptesMail {
  static constexpr qsizetype kCases = 21;  ///< slots, and the most keys that can be read

  std::array<QString, kCases> CompteServeur;
  std::array<QString, kCases> CompteAdresse;
  std::array<bool, kCases> CompteLogin{};  ///< the account has a user name
  std::array<QString, kCases> CompteUser;
  std::array<QString, kCases> ComptePort;  ///< decimal
  qint32 NbrComptes = 0;                   ///< slots in use
  qint32 IndexCompteDefaut = 0;            ///< position of the default account among the keys, not among the slots
  QString NomCompteDefaut;
};

struct PortsRegistreMail {
  RegistreComptes& Registre;
  PompeEvenements& Pompe;
  const Parametres& Reglages;  ///< the language of what can fail
  ComptesMail& Comptes;
};

/// User-interface thread.
class ModuleRegistreCompteMail {
 public:
  static constexpr qsizetype kClesLues = 11;  ///< only the first eleven keys are looked at, though there are 21 slots

  explicit ModuleRegistreCompteMail(const PortsRegistreMail& ports) : Ports_(ports) {}

  /// The data of value `nom` (case counts) of the key `cle`, without its last byte whatever its type: of a text the
  /// closing NUL goes, of a number of four bytes three stay. Empty when key or value is not there.
  QByteArray LitValeurRegistre(const QString& cle, const QString& nom) const;

  /// Reads all accounts anew. `ajoute` gets the address of each usable one, in the order of the slots. Pending events
  /// run after each key. Throws Echec(kIndiceHorsPlage) at a 22nd key and Echec(kDepassement) at a port of 32768 or
  /// above; what was read until then stays.
  void LitComptesMail(const std::function<void(const QString& adresse)>& ajoute);

 private:
  using NomsCles = std::array<QString, ComptesMail::kCases>;
  struct CompteLu {
    QString Serveur, Adresse, Utilisateur;
    QByteArray Port;
  };

  NomsCles LitNomsCles(RegistreComptes::Cle cle) const;
  CompteLu LitCompte(const QString& nomCle) const;
  void RetientCompte(const CompteLu& lu, const std::function<void(const QString&)>& ajoute);

  PortsRegistreMail Ports_;
};

/// "SMTP Port" is a number, and `brut` its raw bytes, low one first: the first two make the port, one alone is the
/// port, none is "25". In signed 16-bit arithmetic: throws Echec(kDepassement) from 32768 on, with a sentence in
/// `langue` that names the account `adresse`. A number stored as text is taken for bytes too.
QString DecodePortSmtp(const QByteArray& brut, qint32 langue, const QString& adresse);

/// Makes slot `index` the SMTP settings. The password is not touched. An empty slot is copied like any other: the port
/// becomes empty and the login goes off.
void ReprendCompte(const ComptesMail& comptes, qint32 index, Parametres& reglages);

}  // namespace vaktor
