// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/ftp_client.h"

#include <curl/curl.h>
#include <netdb.h>
#include <sys/socket.h>

#include <QCryptographicHash>
#include <QFile>
#include <QScopeGuard>
#include <QThread>
#include <QUrl>
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <exception>
#include <utility>

#include "base/jpeg_end.h"
#include "modules/ftp/ftp_commands.h"
#include "modules/ftp/ftp_failure.h"
#include "modules/ftp/server_address.h"
#include "platform/store/bounded_file.h"

namespace vaktor {

namespace {

constexpr int kEssaisLecture = 5;
constexpr unsigned long kPauseLecture = 20;  // milliseconds
constexpr qint64 kImageMax = 256LL * 1024 * 1024;
constexpr int kServiceFerme = 421;  // RFC 959: the server closes the connection
constexpr int kPasDeDonnees = 425;  // no data connection
constexpr int kInconnue = 500;      // not understood, or something is wrong with the server itself
constexpr long kGarde = 86400;      // seconds for which an idle connection is taken again

struct Liste {
  curl_slist* Tete = nullptr;
  explicit Liste(const QStringList& lignes) {
    for (const QString& ligne : lignes) Tete = curl_slist_append(Tete, ligne.toUtf8().constData());
  }
  ~Liste() { curl_slist_free_all(Tete); }
  Liste(const Liste&) = delete;
  Liste& operator=(const Liste&) = delete;
};

size_t Jette(char* /*octets*/, size_t taille, size_t nombre, void* /*donnee*/) { return taille * nombre; }

/// Reads the file once it is a whole picture; empty for none. The main program takes a few milliseconds to rewrite it.
/// `erreur`: the system's number where the last attempt could not read what is there.
QByteArray LitImageEntiere(const QString& chemin, int& erreur) {
  QByteArray octets;
  for (int essai = 0; essai < kEssaisLecture; ++essai) {
    if (essai > 0) QThread::msleep(kPauseLecture);
    erreur = LitFichierBorne(chemin, kImageMax, octets);
    if (erreur == ENOENT || erreur == EAGAIN) erreur = 0;  // gone, or growing under the reading
    if (EstJpegEntier(octets)) return octets;
  }
  return {};
}

int ChercheNom(const QString& hote) {
  addrinfo* adresses = nullptr;
  addrinfo voulu{};
  voulu.ai_socktype = SOCK_STREAM;
  const int code = ::getaddrinfo(QUrl::toAce(hote).constData(), nullptr, &voulu, &adresses);
  if (code == 0) ::freeaddrinfo(adresses);
  return code;
}

bool EstSansRoute(long numero) { return numero == ENETUNREACH || numero == EHOSTUNREACH || numero == ENETDOWN; }

}  // namespace

/// What the library's call-backs need, for one run.
struct ClientFtp::Conversation {
  DialogueFtp Dialogue;
  const QByteArray* Contenu;
  const std::function<bool()>& Arret;
  qsizetype Position = 0;
  std::array<char, CURL_ERROR_SIZE> Erreur{};
  bool Chiffre = false;
  QString CleVoulue = {};  // empty: any
  QString CleVue = {};
  std::chrono::seconds PatienceMuette{0};  // 0: the library has bounds of its own
  std::chrono::steady_clock::time_point DernierSigne = std::chrono::steady_clock::now();
  curl_off_t Echanges = 0;  // bytes that went, in both directions
  bool Muet = false;        // given up for its silence

  bool EstMuet(curl_off_t echanges) {
    const auto maintenant = std::chrono::steady_clock::now();
    if (std::exchange(Echanges, echanges) != echanges) DernierSigne = maintenant;
    return PatienceMuette.count() > 0 && maintenant - DernierSigne > PatienceMuette;
  }
  static size_t Donne(char* tampon, size_t taille, size_t nombre, void* donnee) {
    auto* c = static_cast<Conversation*>(donnee);
    const qsizetype n = std::min(static_cast<qsizetype>(taille * nombre), c->Contenu->size() - c->Position);
    std::memcpy(tampon, c->Contenu->constData() + c->Position, static_cast<size_t>(n));
    c->Position += n;
    return static_cast<size_t>(n);
  }
  static int Avance(void* donnee, curl_off_t, curl_off_t recus, curl_off_t, curl_off_t envoyes) {
    auto* c = static_cast<Conversation*>(donnee);
    c->Muet = c->EstMuet(recus + envoyes);
    return c->Muet || (c->Arret && c->Arret()) ? 1 : 0;
  }
  /// The key of an SSH server: the first one is taken, and from then on no other.
  static int JugeCle(void* donnee, int /*genre*/, const char* cle, size_t taille) {
    auto* c = static_cast<Conversation*>(donnee);
    try {
      const QByteArray empreinte =
          QCryptographicHash::hash(QByteArray(cle, static_cast<qsizetype>(taille)), QCryptographicHash::Sha256);
      c->CleVue = QStringLiteral("SHA256:") + QString::fromLatin1(empreinte.toBase64(QByteArray::OmitTrailingEquals));
      c->Dialogue.NoteCle(c->CleVue);
      return c->CleVoulue.isEmpty() || c->CleVoulue == c->CleVue ? CURLKHMATCH_OK : CURLKHMATCH_MISMATCH;
    } catch (const std::exception&) {
      return CURLKHMATCH_MISMATCH;  // want of memory: nobody is trusted for that
    }
  }
  static int Ecoute(CURL* /*poignee*/, curl_infotype genre, char* texte, size_t taille, void* donnee) {
    auto* c = static_cast<Conversation*>(donnee);
    try {
      const QByteArray bloc(texte, static_cast<qsizetype>(taille));
      if (genre == CURLINFO_SSL_DATA_OUT) c->Chiffre = true;  // what TLS itself sends: there is none without it
      if (genre == CURLINFO_HEADER_IN) c->Dialogue.NoteReponse(bloc);
      if (genre == CURLINFO_HEADER_OUT) c->Dialogue.NoteCommande(bloc);
    } catch (const std::exception&) {
      // The library is C, which no exception can pass. A word that there was no memory for is not told; the library's
      // own verdict stands.
    }
    return 0;
  }
};

QByteArray CreeUrlFtp(const AccesFtp& acces, const QString& nom) {
  QString chemin = acces.Dossier.trimmed();
  chemin.replace(QLatin1Char('\\'), QLatin1Char('/'));
  const bool racine = chemin.startsWith(QLatin1Char('/'));
  const bool sftp = acces.Protocole == ProtocoleFtp::kSftp;
  // Over SSH the path begins at the server's root, and "~" is the folder one arrives in.
  QByteArray encode = sftp ? (racine ? "" : "~/") : racine ? "%2F" : "";
  for (const QString& partie : chemin.split(QLatin1Char('/'), Qt::SkipEmptyParts))
    encode += QUrl::toPercentEncoding(partie) + '/';
  QByteArray hote = acces.Hote.toUtf8();
  if (hote.contains(':')) hote = '[' + hote.replace("%", "%25") + ']';
  const char* schema = sftp ? "sftp://" : acces.Protocole == ProtocoleFtp::kFtpImplicite ? "ftps://" : "ftp://";
  return schema + hote + ':' + QByteArray::number(acces.Port) + '/' + encode + QUrl::toPercentEncoding(nom);
}

ClientFtp::ClientFtp(OptionsClient options) : Options_(std::move(options)) {
  curl_global_init(CURL_GLOBAL_DEFAULT);
  if (!Options_.Cherche) Options_.Cherche = ChercheNom;
}

ClientFtp::~ClientFtp() { Ferme(); }

// The library waits for the answer to its farewell as long as for any other, also before it opens another connection.
// Where the network has gone away nobody answers: with nothing to be read any more the farewell still goes out, and
// that is all.
void ClientFtp::NeLisPlus() {
  curl_socket_t prise = CURL_SOCKET_BAD;
  if (Poignee_ == nullptr) return;
  if (curl_easy_getinfo(Poignee_, CURLINFO_ACTIVESOCKET, &prise) != CURLE_OK || prise == CURL_SOCKET_BAD) return;
  ::shutdown(prise, SHUT_RD);
}

void ClientFtp::Ferme() {
  NeLisPlus();
  if (Poignee_ != nullptr) curl_easy_cleanup(Poignee_);
  Poignee_ = nullptr;
}

ResultatFtp ClientFtp::Execute(const TravailFtp& travail, const OuvrierFtp::SurEtape& etape,
                               std::function<bool()> arret) {
  // A key that nobody can compare would be trusted like one of a first visit, and get the password.
  if (travail.Acces.Protocole == ProtocoleFtp::kSftp && !travail.Acces.SansMemoire.isEmpty())
    return {IssueFtp::kPasDeConnexion, travail.Acces.SansMemoire, PrecisionFtp::kMemoire};
  Arret_ = std::move(arret);
  if (travail.Acces.Hote != Acces_.Hote || travail.Acces.Port != Acces_.Port) RenommeParDessus_ = TlsBorne_ = true;
  if (travail.Acces.Protocole == ProtocoleFtp::kSftp) RenommeParDessus_ = false;
  Acces_ = travail.Acces;
  switch (travail.Genre) {
    case GenreTravail::kConnexion:
      return Connecte(travail, etape);
    case GenreTravail::kFichier: {
      int erreur = 0;
      const QByteArray image = LitImageEntiere(travail.Source, erreur);
      if (erreur != 0) return {IssueFtp::kSourceIllisible, QString::fromLocal8Bit(std::strerror(erreur))};
      if (image.isEmpty()) return {IssueFtp::kSourceIncomplete, travail.Source};
      return Publie(travail, image);
    }
    case GenreTravail::kPage:
      return Publie(travail, travail.Contenu);
    case GenreTravail::kTaille:
      return Parle(travail, nullptr, CommandesTaille(travail), {});
    case GenreTravail::kEfface:
      return Parle(travail, nullptr, {CommandeEfface(travail, travail.Nom)}, {});
    case GenreTravail::kNettoie: {
      QStringList commandes;
      for (const QString& nom : travail.Noms) commandes += u'*' + CommandeEfface(travail, nom);
      return Parle(travail, nullptr, commandes, {});
    }
    case GenreTravail::kSigne:
      break;
  }
  return Parle(travail, nullptr, {CommandeSigne(travail)}, {});
}

ResultatFtp ClientFtp::Connecte(const TravailFtp& travail, const OuvrierFtp::SurEtape& etape) {
  if (!EstSansRecherche(travail.Acces.Hote)) {
    // Asked before the library asks: it gives the same answer for a name that is wrong and for a network that is down.
    ResultatFtp nom = JugeNom(travail.Acces.Hote);
    if (nom.Issue != IssueFtp::kReussi) return nom;
  }
  NeLisPlus();  // of the connection before
  ConnexionNeuve_ = ConnexionDemandee_ = true;
  const auto demandee = qScopeGuard([this] { ConnexionDemandee_ = false; });
  ResultatFtp resultat = Parle(travail, nullptr, {}, etape);
  if (resultat.Precision != PrecisionFtp::kTls || !TlsBorne_) return resultat;
  TlsBorne_ = false;  // perhaps it speaks nothing older
  ConnexionNeuve_ = true;
  return Parle(travail, nullptr, {}, etape);
}

ResultatFtp ClientFtp::Publie(const TravailFtp& travail, const QByteArray& contenu) {
  TravailFtp provisoire = travail;
  provisoire.Nom = travail.Provisoire.isEmpty() ? QString(kNomProvisoire) : travail.Provisoire;
  if (!RenommeParDessus_) {
    ResultatFtp envoi = Parle(provisoire, &contenu, {}, {});
    return envoi.Issue == IssueFtp::kReussi ? Renomme(travail, provisoire.Nom) : envoi;
  }
  ResultatFtp envoi = Parle(provisoire, &contenu, CommandesRenomme(travail, provisoire.Nom), {});
  if (envoi.Issue != IssueFtp::kRefus || !QuoteRefusee_) return envoi;
  ResultatFtp secours = Renomme(travail, provisoire.Nom);
  if (secours.Issue == IssueFtp::kReussi) RenommeParDessus_ = false;
  return secours;
}

ResultatFtp ClientFtp::Renomme(const TravailFtp& travail, const QString& provisoire) {
  // The star: a file that is not there cannot be deleted, and need not be.
  return Parle(travail, nullptr,
               QStringList(u'*' + CommandeEfface(travail, travail.Nom)) + CommandesRenomme(travail, provisoire), {});
}

// A rehearsal follows what lies on the server by what is said there.
void ClientFtp::Raconte(const TravailFtp& travail, const QByteArray* contenu, const QStringList& commandes,
                        bool fait) const {
  if (travail.Acces.Protocole != ProtocoleFtp::kSftp || !Options_.Suivi) return;
  if (contenu != nullptr) Options_.Suivi("STOR", fait ? "226 SFTP: stored" : "150 SFTP: storing");
  if (!fait) return;
  for (const QString& commande : commandes) {
    if (commande.startsWith(QLatin1String("rename "))) Options_.Suivi("RNTO", "250 SFTP: renamed");
    if (commande.startsWith(QLatin1String("rm "))) Options_.Suivi("DELE", "250 SFTP: deleted");
  }
}

void ClientFtp::Regle(const TravailFtp& travail, Conversation& conversation, const QByteArray* contenu) {
  if (Poignee_ == nullptr) Poignee_ = curl_easy_init();
  curl_easy_reset(Poignee_);  // the options go, the connection stays
  RegleAcces(travail, contenu == nullptr ? QString() : travail.Nom);
  RegleConnexion();
  RegleConversation(conversation);
  RegleProtocole(travail, conversation);
  if (contenu == nullptr) {
    // Over SSH only a look into the folder tells whether it is there.
    const bool regarde = travail.Acces.Protocole == ProtocoleFtp::kSftp && travail.Genre == GenreTravail::kConnexion;
    curl_easy_setopt(Poignee_, regarde ? CURLOPT_DIRLISTONLY : CURLOPT_NOBODY, 1L);
    return;
  }
  curl_easy_setopt(Poignee_, CURLOPT_UPLOAD, 1L);
  curl_easy_setopt(Poignee_, CURLOPT_READFUNCTION, Conversation::Donne);
  curl_easy_setopt(Poignee_, CURLOPT_READDATA, &conversation);
  curl_easy_setopt(Poignee_, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(contenu->size()));
}

void ClientFtp::RegleAcces(const TravailFtp& travail, const QString& nom) {
  CURL* p = Poignee_;
  curl_easy_setopt(p, CURLOPT_URL, CreeUrlFtp(travail.Acces, nom).constData());
  curl_easy_setopt(p, CURLOPT_PATH_AS_IS, 1L);  // "../www" is for the server to understand
  curl_easy_setopt(p, CURLOPT_USERNAME, travail.Acces.Utilisateur.toUtf8().constData());
  curl_easy_setopt(p, CURLOPT_PASSWORD, travail.Acces.MotDePasse.toUtf8().constData());
  curl_easy_setopt(p, CURLOPT_PROXY, "");
  if (TlsBorne_) curl_easy_setopt(p, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_MAX_TLSv1_2));
  if (!Options_.FichierAutorites.isEmpty())
    curl_easy_setopt(p, CURLOPT_CAINFO, QFile::encodeName(Options_.FichierAutorites).constData());
  curl_easy_setopt(p, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_SINGLECWD));
}

void ClientFtp::RegleProtocole(const TravailFtp& travail, Conversation& conversation) {
  CURL* p = Poignee_;
  const AccesFtp& acces = travail.Acces;
  if (acces.Protocole == ProtocoleFtp::kSftp) {
    conversation.CleVoulue = acces.CleHote;
    conversation.PatienceMuette = std::chrono::seconds(Options_.DelaiMuet());
    curl_easy_setopt(p, CURLOPT_PROTOCOLS_STR, "sftp");
    curl_easy_setopt(p, CURLOPT_SSH_AUTH_TYPES, static_cast<long>(CURLSSH_AUTH_PASSWORD | CURLSSH_AUTH_KEYBOARD));
    curl_easy_setopt(p, CURLOPT_SSH_HOSTKEYFUNCTION, Conversation::JugeCle);
    curl_easy_setopt(p, CURLOPT_SSH_HOSTKEYDATA, &conversation);
    return;
  }
  const bool implicite = acces.Protocole == ProtocoleFtp::kFtpImplicite;
  curl_easy_setopt(p, CURLOPT_PROTOCOLS_STR, implicite ? "ftps" : "ftp");
  curl_easy_setopt(p, CURLOPT_USE_SSL,
                   static_cast<long>(implicite || acces.TlsExige ? CURLUSESSL_ALL : CURLUSESSL_TRY));
}

void ClientFtp::RegleConnexion() {
  CURL* p = Poignee_;
  curl_easy_setopt(p, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(p, CURLOPT_CONNECTTIMEOUT, static_cast<long>(Options_.DelaiConnexion));
  curl_easy_setopt(p, CURLOPT_FTP_RESPONSE_TIMEOUT, static_cast<long>(Options_.DelaiReponse));
  curl_easy_setopt(p, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(p, CURLOPT_LOW_SPEED_TIME, static_cast<long>(Options_.DelaiSilence));
  curl_easy_setopt(p, CURLOPT_MAXCONNECTS, 1L);
  curl_easy_setopt(p, CURLOPT_MAXAGE_CONN, kGarde);
  curl_easy_setopt(p, CURLOPT_TCP_KEEPALIVE, 1L);
  curl_easy_setopt(p, CURLOPT_FRESH_CONNECT, ConnexionNeuve_ ? 1L : 0L);
}

void ClientFtp::RegleConversation(Conversation& conversation) {
  CURL* p = Poignee_;
  curl_easy_setopt(p, CURLOPT_ERRORBUFFER, conversation.Erreur.data());
  curl_easy_setopt(p, CURLOPT_WRITEFUNCTION, Jette);
  curl_easy_setopt(p, CURLOPT_HEADERFUNCTION, Jette);
  curl_easy_setopt(p, CURLOPT_VERBOSE, 1L);
  curl_easy_setopt(p, CURLOPT_DEBUGFUNCTION, Conversation::Ecoute);
  curl_easy_setopt(p, CURLOPT_DEBUGDATA, &conversation);
  curl_easy_setopt(p, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(p, CURLOPT_XFERINFOFUNCTION, Conversation::Avance);
  curl_easy_setopt(p, CURLOPT_XFERINFODATA, &conversation);
}

ResultatFtp ClientFtp::Parle(const TravailFtp& travail, const QByteArray* contenu, const QStringList& commandes,
                             const OuvrierFtp::SurEtape& etape) {
  Conversation conversation{DialogueFtp(etape, Options_.Suivi), contenu, Arret_};
  const Liste suite(commandes);
  // The handle must not point to what ends here: closing the connection talks too.
  const auto remet = qScopeGuard([this] {
    curl_easy_reset(Poignee_);
    curl_easy_setopt(Poignee_, CURLOPT_NOSIGNAL, 1L);
  });
  Raconte(travail, contenu, commandes, false);
  Regle(travail, conversation, contenu);
  curl_easy_setopt(Poignee_, CURLOPT_POSTQUOTE, suite.Tete);
  const CURLcode code = curl_easy_perform(Poignee_);
  ConnexionNeuve_ = false;
  QuoteRefusee_ = code == CURLE_QUOTE_ERROR;
  if (code == CURLE_OK) Raconte(travail, contenu, commandes, true);
  ResultatFtp resultat = Juge(code, travail, conversation);
  resultat.Chiffre = conversation.Chiffre;
  resultat.CleHote = conversation.CleVue;
  return resultat;
}

ResultatFtp ClientFtp::JugeNom(const QString& hote) const {
  const int code = Options_.Cherche(hote);
  if (code == 0) return {};
  // EAI_AGAIN: nobody could be asked. Everything else is an answer: there is no such name.
  const bool sansReseau = code == EAI_AGAIN || code == EAI_SYSTEM;
  return {sansReseau ? IssueFtp::kSansReseau : IssueFtp::kServeurInconnu, QString::fromUtf8(::gai_strerror(code))};
}

ResultatFtp ClientFtp::Juge(int code, const TravailFtp& travail, const Conversation& conversation) const {
  if (code == CURLE_OK) return {};
  if (travail.Acces.Protocole == ProtocoleFtp::kSftp) return JugeSsh(code, travail, conversation);
  const DialogueFtp& dialogue = conversation.Dialogue;
  if (dialogue.EnvoiRefuseEnCroisant()) code = CURLE_UPLOAD_FAILED;
  ResultatFtp resultat{IssueFtp::kPasDeConnexion, QString::fromUtf8(dialogue.Refus()), PreciseEchec(code, dialogue)};
  if (resultat.Mots.isEmpty()) resultat.Mots = QString::fromUtf8(conversation.Erreur.data());
  if (resultat.Mots.isEmpty()) resultat.Mots = QString::fromUtf8(curl_easy_strerror(static_cast<CURLcode>(code)));
  // TLS was asked for since nobody knows better: the server need not have spoken it before.
  if (resultat.Precision == PrecisionFtp::kTlsPerdu && !travail.Acces.SansMemoire.isEmpty()) {
    resultat.Precision = PrecisionFtp::kMemoire;
    resultat.Mots = travail.Acces.SansMemoire;
  }
  const int refus = dialogue.CodeRefus();
  // Some servers find out behind the right password that the folder of that user is missing or has the wrong access,
  // and say 500: nobody should look for the mistake in the password.
  const bool panne = code == CURLE_LOGIN_DENIED && refus == kInconnue;
  if (refus != kServiceFerme && refus != kPasDeDonnees && !panne)
    resultat.Issue = JugeCode(code, refus != 0, travail.Acces.Hote);
  return resultat;
}

// There are no codes of a server here, only the library's words.
ResultatFtp ClientFtp::JugeSsh(int code, const TravailFtp& travail, const Conversation& conversation) const {
  ResultatFtp resultat{IssueFtp::kPasDeConnexion, QString::fromUtf8(conversation.Erreur.data()),
                       PreciseEchec(code, conversation.Dialogue)};
  if (resultat.Mots.isEmpty()) resultat.Mots = QString::fromUtf8(curl_easy_strerror(static_cast<CURLcode>(code)));
  switch (code) {
    case CURLE_PEER_FAILED_VERIFICATION:
      resultat.Precision = PrecisionFtp::kCleHote;
      resultat.Mots = conversation.CleVue;
      break;
    case CURLE_REMOTE_FILE_NOT_FOUND:
      resultat.Issue = IssueFtp::kDossierAbsent;
      break;
    case CURLE_REMOTE_ACCESS_DENIED:
      resultat.Issue = travail.Genre == GenreTravail::kConnexion ? IssueFtp::kDossierAbsent : IssueFtp::kRefus;
      break;
    case CURLE_REMOTE_DISK_FULL:
      resultat.Precision = PrecisionFtp::kPlace;
      resultat.Issue = IssueFtp::kRefus;
      break;
    case CURLE_QUOTE_ERROR:
    case CURLE_UPLOAD_FAILED:
    case CURLE_REMOTE_FILE_EXISTS:
      resultat.Issue = IssueFtp::kRefus;
      break;
    case CURLE_SSH:
    case CURLE_FAILED_INIT:
      // No SSH answers, or the server fails with what it was asked for: a full disk has no code of its own there.
      if (conversation.CleVue.isEmpty() && ConnexionDemandee_)
        resultat.Precision = PrecisionFtp::kPasFtp;
      else if (conversation.Contenu != nullptr)
        resultat.Issue = IssueFtp::kRefus;
      break;
    default:
      resultat.Issue = JugeCode(code, false, travail.Acces.Hote);
      if (conversation.Muet) resultat.Precision = PrecisionFtp::kDelai;
  }
  return resultat;
}

IssueFtp ClientFtp::JugeCode(int code, bool refuse, const QString& hote) const {
  switch (code) {
    case CURLE_LOGIN_DENIED:
      return IssueFtp::kAccesRefuse;
    case CURLE_REMOTE_ACCESS_DENIED:
      return IssueFtp::kDossierAbsent;
    case CURLE_UPLOAD_FAILED:
    case CURLE_QUOTE_ERROR:
    case CURLE_REMOTE_DISK_FULL:
    case CURLE_PARTIAL_FILE:
    case CURLE_FTP_COULDNT_SET_TYPE:
      return refuse ? IssueFtp::kRefus : IssueFtp::kPasDeConnexion;
    case CURLE_COULDNT_RESOLVE_HOST: {
      if (EstSansRecherche(hote)) return IssueFtp::kServeurInconnu;
      const IssueFtp issue = JugeNom(hote).Issue;
      return issue == IssueFtp::kReussi ? IssueFtp::kSansReseau : issue;  // it is back this very moment
    }
    case CURLE_URL_MALFORMAT:
      return IssueFtp::kServeurInconnu;
    case CURLE_COULDNT_CONNECT: {
      long numero = 0;
      curl_easy_getinfo(Poignee_, CURLINFO_OS_ERRNO, &numero);
      return EstSansRoute(numero) && !EstSansRecherche(hote) ? IssueFtp::kSansReseau : IssueFtp::kPasDeConnexion;
    }
    default:
      return IssueFtp::kPasDeConnexion;
  }
}

}  // namespace vaktor
