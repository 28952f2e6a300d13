// Hands one mail to a server or to the system's own mail program. Blocks: called on a thread of its own.
// Sources: RFC 5321 (SMTP), RFC 3207 (STARTTLS), RFC 8314 (TLS from the start, port 465), RFC 4954 (AUTH).
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <atomic>
#include <functional>

namespace vaktor {

struct ReglagesEnvoi {
  bool ParSmtp = true;  ///< false: the system's own mail program (sendmail interface)
  QString Serveur;
  quint16 Port = 25;  ///< 465: TLS from the first byte; else STARTTLS when the server offers it
  bool AvecConnexion = false;
  QString Utilisateur;
  QString MotDePasse;        ///< in clear; goes to the server and nowhere else
  QString FichierAutorites;  ///< PEM file of trusted authorities; empty: those of the system
  QString Sendmail;          ///< path of the sendmail interface
};

/// Why a mail was not taken, in the order in which a sending goes. Each has its advice in failure_advice.h.
enum class CauseEchec {
  kAucune,
  kIncomplet,           ///< no server, no sender or no destination
  kServeurIntrouvable,  ///< the name is unknown
  kPasDeConnexion,      ///< nobody answers on that port, or the network is down
  kCertificat,          ///< the server's certificate is not to be trusted
  kTls,                 ///< TLS could not be made
  kConnexionRefusee,    ///< user name or password refused
  kExpediteurRefuse,
  kDestinataireRefuse,
  kMessageRefuse,    ///< too large, taken for spam, quota
  kDelai,            ///< the server stopped answering
  kCoupure,          ///< the connection broke
  kProgrammeAbsent,  ///< no sendmail interface on this system
  kInterrompu        ///< our own end
};

struct ResultatEnvoi {
  bool Accepte = false;
  bool Definitif = false;  ///< refused for good (5xx about this mail): trying again makes no sense
  CauseEchec Cause = CauseEchec::kAucune;
  int Code = 0;         ///< SMTP reply code, 0 when there was none
  QString MotsServeur;  ///< the server's last words, one line, at most 300 characters
};

/// A step as it happens: "connect", "tls", "login", "send". For the rehearsal; may be empty.
using SuiviEnvoi = std::function<void(const QString& etape, const QString& detail)>;

/// Limits: 20 s to connect, 60 s without a byte, 10 minutes in all. `arret` set from another thread ends it within a
/// second. Certificates are verified. What is sent is never logged; only the server's replies are read.
ResultatEnvoi EnvoieCourriel(const ReglagesEnvoi& reglages, const QString& expediteur, const QStringList& destinataires,
                             const QByteArray& message, const std::atomic_bool& arret, const SuiviEnvoi& suivi = {});

}  // namespace vaktor
