// SPDX-License-Identifier: GPL-3.0-or-later
// The conversation with the FTP server. Blocks: lives on a thread of its own.
// Sources: RFC 959 (FTP), RFC 2428 (EPSV), RFC 4217 (TLS for FTP), RFC 3986 (URL).
#pragma once

#include <QString>
#include <QStringList>
#include <algorithm>
#include <functional>
#include <memory>

#include "modules/ftp/ftp_dialogue.h"
#include "modules/ftp/ftp_worker.h"

namespace vaktor {

/// What tests and the rehearsal change.
struct OptionsClient {
  int DelaiConnexion = 20;  ///< seconds until a connection stands
  int DelaiReponse = 20;    ///< seconds until the server answers a command
  int DelaiSilence = 30;    ///< seconds of a transfer without a byte
  /// Seconds after which a server is given up whatever is waited for. Over SSH the library knows no bound of its own
  /// between the login and the first byte of a file.
  int DelaiMuet() const { return std::max(DelaiConnexion, DelaiReponse + DelaiSilence); }
  QString FichierAutorites;  ///< PEM file of trusted authorities; empty: those of the system
  /// Looks up a host name: 0 or one of getaddrinfo()'s codes. Empty: asks the system.
  std::function<int(const QString& hote)> Cherche;
  SurReplique Suivi = {};  ///< hears the server, from inside Execute
};

/// One control connection, kept between jobs and opened again where it is gone. Explicit TLS when the server offers it,
/// or when it is required, or TLS from the first byte; a certificate that cannot be trusted is a failure, not a reason
/// to go on without. Passive mode. Or files over SSH, with user name and password, where the server has the key it had
/// before (AccesFtp::CleHote).
///
/// TLS 1.2 where the server has it. Many servers want each data connection to resume the session of the control
/// connection. A ticket of TLS 1.3 is good for one connection, and the library keeps one: the first file would arrive
/// and no other.
///
/// A file is sent under a name of its own and renamed: a visitor of the site gets the old picture or the new one, never
/// half of one. Some servers do not rename over a file that exists, and over SSH none does; there the old one is
/// deleted first.
class ClientFtp {
 public:
  static constexpr QLatin1String kNomProvisoire{"vaktor.part"};

  explicit ClientFtp(OptionsClient options);
  ~ClientFtp();
  ClientFtp(const ClientFtp&) = delete;
  ClientFtp& operator=(const ClientFtp&) = delete;

  /// `arret` is asked from inside, at least once a second; once true the job ends with kPasDeConnexion.
  ResultatFtp Execute(const TravailFtp& travail, const OuvrierFtp::SurEtape& etape, std::function<bool()> arret);
  /// Says good-bye to the server, if there is a connection, and waits for no answer.
  void Ferme();

 private:
  struct Conversation;

  void NeLisPlus();
  ResultatFtp Connecte(const TravailFtp& travail, const OuvrierFtp::SurEtape& etape);
  ResultatFtp Publie(const TravailFtp& travail, const QByteArray& contenu);
  ResultatFtp Renomme(const TravailFtp& travail, const QString& provisoire);
  /// One run of the library. `commandes` are sent behind the transfer, or alone when there is no `contenu`.
  ResultatFtp Parle(const TravailFtp& travail, const QByteArray* contenu, const QStringList& commandes,
                    const OuvrierFtp::SurEtape& etape);
  /// All options of the next run anew.
  void Regle(const TravailFtp& travail, Conversation& conversation, const QByteArray* contenu);
  void RegleAcces(const TravailFtp& travail, const QString& nom);
  void RegleConnexion();
  void RegleConversation(Conversation& conversation);
  void RegleProtocole(const TravailFtp& travail, Conversation& conversation);
  /// What our runs over SSH do, told to OptionsClient::Suivi as if a server of FTP had said it.
  void Raconte(const TravailFtp& travail, const QByteArray* contenu, const QStringList& commandes, bool fait) const;
  ResultatFtp Juge(int code, const TravailFtp& travail, const Conversation& conversation) const;
  ResultatFtp JugeSsh(int code, const TravailFtp& travail, const Conversation& conversation) const;
  /// `code` is one of the library's; `refuse`: the server has refused a command of this run.
  IssueFtp JugeCode(int code, bool refuse, const QString& hote) const;
  /// For a host that the library could not find: whether it is the name or the network.
  ResultatFtp JugeNom(const QString& hote) const;

  OptionsClient Options_;
  void* Poignee_ = nullptr;  // the library's handle, with its connection
  std::function<bool()> Arret_;
  AccesFtp Acces_;                  // of the last job
  bool RenommeParDessus_ = true;    // as far as we know; learnt for each server
  bool TlsBorne_ = true;            // TLS 1.2 at most; learnt for each server
  bool QuoteRefusee_ = false;       // the last run failed on a command behind the transfer
  bool ConnexionNeuve_ = false;     // the next run must not take the old connection
  bool ConnexionDemandee_ = false;  // this job is a connection
};

/// "ftp://host:port/folder/name" with everything encoded but for what is typed of ".."; `nom` may be empty, for the
/// folder itself.
QByteArray CreeUrlFtp(const AccesFtp& acces, const QString& nom);

}  // namespace vaktor
