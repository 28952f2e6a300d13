// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the conversation with the FTP server, as the rules of the companion see it. One job at a time, never blocking.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>

namespace vaktor {

/// What is spoken with the server.
enum class ProtocoleFtp {
  kFtp,           ///< with explicit TLS where the server offers it
  kFtpImplicite,  ///< TLS from the first byte
  kSftp           ///< files over SSH: another protocol, in spite of its name
};

/// Where to. Frozen at "Conne": what the user is typing must not send a running connection elsewhere.
struct AccesFtp {
  QString Hote;
  quint16 Port = 21;
  QString Utilisateur;
  QString MotDePasse;  ///< in clear; goes to the server and nowhere else
  QString Dossier;     ///< as the user wrote it; with "/" in front from the server's root, else from the login folder
  ProtocoleFtp Protocole = ProtocoleFtp::kFtp;
  bool TlsExige = false;  ///< this server has spoken TLS before: without it nothing is sent
  QString CleHote = {};   ///< the key that this SSH server had before; empty: whatever it shows is taken
  /// Why nobody knows what this server has shown before; empty: it is known. Nothing is sent over SSH then.
  QString SansMemoire = {};
  bool operator==(const AccesFtp&) const = default;
};

/// How a job ended.
enum class IssueFtp {
  kReussi,
  kSansReseau,        ///< no network at the moment: no name can be looked up, or no way leads there
  kServeurInconnu,    ///< there is no server of that name
  kAccesRefuse,       ///< user name or password refused
  kDossierAbsent,     ///< the folder on the server does not exist
  kPasDeConnexion,    ///< nobody answers, no trust in the certificate, the connection broke or fell silent
  kRefus,             ///< the server is there and will not take this file: quota, rights
  kSourceIncomplete,  ///< the local file is missing or no whole JPEG at the moment; nothing was sent
  kSourceIllisible    ///< the local file cannot be read at the moment, whatever it holds; nothing was sent
};

/// Why a job failed, where that is known more exactly. The companion's rules need none of it; a person who looks for
/// the mistake does.
enum class PrecisionFtp {
  kAucune,
  kPersonne,    ///< the port is closed
  kDelai,       ///< no answer in time
  kPasFtp,      ///< who answers speaks something else
  kCertificat,  ///< not trusted, or another's
  kTls,         ///< the encryption could not be agreed upon
  kTlsPerdu,    ///< the server offered it once and does not any more
  kCleHote,     ///< the SSH server has another key than before
  kMemoire,     ///< what the server has shown before cannot be read (AccesFtp::SansMemoire)
  kComplet,     ///< the server has too many guests, or too many of this user
  kDonnees,     ///< the second connection, for the file itself, could not be made (passive mode)
  kPlace,       ///< no space, quota used up
  kCoupure      ///< the connection broke
};

struct ResultatFtp {
  IssueFtp Issue = IssueFtp::kReussi;
  QString Mots = {};  ///< the server's last words of refusal, or the library's; one line
  PrecisionFtp Precision = PrecisionFtp::kAucune;
  bool Chiffre = false;  ///< TLS was spoken
  QString CleHote = {};  ///< the key that the SSH server has shown, as "SHA256:..." (RFC 4253; the form of OpenSSH)
};

/// A step of a connection as it is reached, in this order.
enum class EtapeFtp { kServeurTrouve, kIdentification };

enum class GenreTravail {
  kConnexion,  ///< a new connection, up to the folder
  kFichier,    ///< a file of this machine, JPEG, under its final name in one step
  kPage,       ///< Contenu, likewise
  kSigne,      ///< a sign of life, so that an idle connection stays and a dead one is noticed
  kTaille,     ///< asks for the size of the file Nom; the answer is one of the server's words
  kEfface,     ///< deletes the file Nom
  kNettoie     ///< deletes the files Noms; what cannot be deleted is passed over
};

struct TravailFtp {
  GenreTravail Genre = GenreTravail::kSigne;
  AccesFtp Acces;
  QString Source;      ///< native path, for kFichier
  QByteArray Contenu;  ///< for kPage
  QString Nom;         ///< name on the server, no "/" and no control character in it
  /// The name under which a file is sent before it is renamed; empty: ClientFtp::kNomProvisoire.
  QString Provisoire = {};
  QStringList Noms = {};  ///< for kNettoie
};

class OuvrierFtp {
 public:
  using SurEtape = std::function<void(EtapeFtp)>;
  using SurFin = std::function<void(const ResultatFtp&)>;

  virtual ~OuvrierFtp() = default;
  /// Starts a job; not while one runs. `etape` (connections only) and then `fin`, once, come from the event loop.
  virtual void Lance(const TravailFtp& travail, SurEtape etape, SurFin fin) = 0;
  /// The running job, if any, is given up and says nothing more; the connection is closed. The next job may be started
  /// at once: it waits for the end of this one.
  virtual void Coupe() = 0;
};

}  // namespace vaktor
