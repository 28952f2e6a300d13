// SPDX-License-Identifier: GPL-3.0-or-later
// What a sending is given, what it calls and what comes of it, whichever way the mail goes.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

#include "texts/language.h"

namespace vaktor {

/// How long a server may stay silent, in milliseconds. RFC 5321, 4.5.3.2, asks for patience at the end of the data: who
/// gives up there sends the mail a second time.
struct DelaisEnvoi {
  qint64 Connexion = 20'000;
  qint64 Reponse = 120'000;
  qint64 FinDonnees = 600'000;  ///< between the end of the data and the server's "250"
  /// For that "250", once we are asked to end: to leave at once would be to send it twice. And for the answer to our
  /// farewell.
  qint64 Grace = 10'000;
  bool operator==(const DelaisEnvoi&) const = default;
};

struct Enveloppe {
  QString Expediteur;  ///< may be empty for the system's mail program
  QStringList Destinataires;
  bool operator==(const Enveloppe&) const = default;
};

struct ReglagesEnvoi {
  bool ParSmtp = true;         ///< false: the system's own mail program (sendmail interface)
  QString Serveur;             ///< a name or an address; nothing else passes
  quint16 Port = 25;           ///< 0: what the user typed is no port
  bool TlsDesLeDebut = false;  ///< TLS from the first byte (port 465); else STARTTLS when the server offers it
  /// The mail goes by TLS or not at all: a password, and whoever stands on the way could else read it, or take away the
  /// server's offer to encrypt. Not asked of this machine itself, nor where the user does without.
  bool TlsExige = false;
  bool AvecConnexion = false;
  QString Utilisateur;
  QString MotDePasse;  ///< in clear; goes to the server and nowhere else
  QString Jeton = {};  ///< command that prints a token for an OAuth2 login, in the password's place; may be empty
  QByteArray Mecanisme = {};  ///< the login that this server has taken before ("PLAIN"); empty: the best that it offers
  QString FichierAutorites;   ///< PEM file of trusted authorities beside those of the system; may be empty
  QString Sendmail;           ///< path of the sendmail interface; empty where there is none
  DelaisEnvoi Delais = {};
  Enveloppe Presente = {};  ///< the addresses of now, for a mail that was made when some were missing or wrong
  Langue Parlee = Langue::kFrancais;  ///< of what is said in a mail about the mail itself
  bool operator==(const ReglagesEnvoi&) const = default;
};

/// Why a mail was not taken, in the order in which a sending goes. Each has its advice in failure_advice.h.
enum class CauseEchec {
  kAucune,
  kIncomplet,            ///< no server, no sender or no destination
  kConnexionIncomplete,  ///< the server needs a login and there is no user name or no password
  kPortMauvais,
  kServeurIntrouvable,  ///< the name is unknown, or no name
  kPasDeConnexion,      ///< nobody answers on that port, or the network is down
  kCertificat,          ///< the server's certificate is not to be trusted
  kTls,                 ///< TLS could not be made
  kSansTls,             ///< the server offers none, and the password must not go in clear
  kServeurRefuse,       ///< the server does not want to talk now
  kConnexionRefusee,    ///< user name or password refused
  kConnexionDemandee,   ///< the server takes no mail without a login
  kExpediteurRefuse,
  kDestinataireRefuse,
  kMessageRefuse,    ///< taken for spam, a virus, a wrong form
  kTropGros,         ///< too large for the server
  kSansPlace,        ///< no room in the mailbox of the destination
  kReporte,          ///< the server wants to be asked again later: it does not know us yet, or is busy
  kJeton,            ///< the command for the token of the login gave none
  kDelai,            ///< the server stopped answering
  kCoupure,          ///< the connection broke
  kProgrammeAbsent,  ///< no sendmail interface on this system
  kProgrammeEchoue,  ///< it gave an error
  kFichier,          ///< the mail cannot be read from the outbox
  kAbandonne,        ///< waited too long in the outbox
  kInterrompu        ///< our own end
};

/// What a server said of one address.
struct VerdictAdresse {
  QString Adresse;
  int Code = 0;           ///< below 400: it gets the mail, once the data are taken; from 500 on: never
  bool TropGros = false;  ///< a smaller mail may be taken
};

struct ResultatEnvoi {
  bool Accepte = false;
  bool Chiffre = false;                    ///< the way to the server was encrypted
  bool Definitif = false;                  ///< refused for good (5xx about this mail): trying again makes no sense
  bool DuCourriel = false;                 ///< the fault is this mail's alone, or may be: others may well be taken
  bool TropGros = false;                   ///< a smaller mail may be taken, by the server or for one of the addresses
  CauseEchec Cause = CauseEchec::kAucune;  ///< of a mail that was accepted: why one of its addresses was not
  int Code = 0;                            ///< SMTP reply code, 0 when there was none
  QString MotsServeur = {};  ///< the server's own words, or the system's; one line, at most 300 characters. Of a mail
                             ///< that was accepted: what was said against one of its addresses
  QList<VerdictAdresse> Verdicts = {};  ///< of the addresses that were asked for; empty: all are as the mail is
  QByteArray Mecanisme = {};            ///< the login that was taken; empty: none, or the library's own choice
};

/// A command of ours by its verb alone ("MAIL"; empty for the greeting) and the server's reply to it.
using SuiviEnvoi = std::function<void(const QString& commande, const QString& reponse)>;

/// What the sender calls, on the thread of the call. All may be empty.
struct RappelsEnvoi {
  std::function<bool()> Arret;  ///< asked about once a second; true ends the sending
  /// The moment in which the server's "250" is read, with what it has said of each address before; once.
  std::function<void(const QList<VerdictAdresse>&)> SurAccepte;
  SuiviEnvoi Suivi;
};

}  // namespace vaktor
