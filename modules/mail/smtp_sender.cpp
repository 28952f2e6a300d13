#include "smtp_sender.h"

#include <curl/curl.h>

#include <QFileInfo>
#include <QProcess>
#include <QUrl>
#include <algorithm>
#include <cstring>
#include <memory>

namespace vaktor {
namespace {

constexpr long kDelaiConnexion = 20;
constexpr long kDelaiSilence = 60;
constexpr long kDelaiTotal = 600;
constexpr qsizetype kMotsMax = 300;

struct Envoi {
  const QByteArray& Message;
  qsizetype Position = 0;
  const std::atomic_bool& Arret;
  const SuiviEnvoi& Suivi;
  QByteArray DerniereReponse;   // the last reply line of the server
  QByteArray DernierRefus;      // the last one of 400 and above
  QByteArray DerniereCommande;  // the verb only: what came behind it may be a password
};

size_t LitMorceau(char* tampon, size_t taille, size_t nombre, void* donnee) {
  auto* e = static_cast<Envoi*>(donnee);
  const qsizetype place = static_cast<qsizetype>(taille * nombre);
  const qsizetype n = std::min(place, e->Message.size() - e->Position);
  std::memcpy(tampon, e->Message.constData() + e->Position, static_cast<size_t>(n));
  e->Position += n;
  return static_cast<size_t>(n);
}

int VerifieArret(void* donnee, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  return static_cast<Envoi*>(donnee)->Arret.load() ? 1 : 0;
}

void NoteReponse(Envoi& e, QByteArray ligne) {
  ligne = ligne.trimmed().left(kMotsMax);
  if (ligne.size() < 3) return;
  bool chiffres = false;
  const int code = ligne.left(3).toInt(&chiffres);
  if (!chiffres) return;
  e.DerniereReponse = ligne;
  if (code >= 400) e.DernierRefus = ligne;
  if (e.Suivi) e.Suivi(QString::fromLatin1(e.DerniereCommande), QString::fromUtf8(ligne));
}

// Only the server's lines and the verb of ours are kept: the rest of our lines holds user name and password.
int EcouteDialogue(CURL*, curl_infotype genre, char* texte, size_t taille, void* donnee) {
  auto* e = static_cast<Envoi*>(donnee);
  const QByteArray bloc(texte, static_cast<qsizetype>(taille));
  if (genre == CURLINFO_HEADER_IN) {
    for (const QByteArray& ligne : bloc.split('\n')) NoteReponse(*e, ligne);
  } else if (genre == CURLINFO_HEADER_OUT) {
    const QByteArray verbe = bloc.left(8).split(' ').first().trimmed().toUpper();
    static constexpr const char* kVerbes[] = {"EHLO", "HELO", "STARTTLS", "AUTH", "MAIL", "RCPT", "DATA", "QUIT"};
    const bool connu = std::any_of(std::begin(kVerbes), std::end(kVerbes), [&](const char* v) { return verbe == v; });
    e->DerniereCommande = connu ? verbe : e->DerniereCommande;
  }
  return 0;
}

CauseEchec CauseSelonCommande(const QByteArray& commande) {
  if (commande == "AUTH") return CauseEchec::kConnexionRefusee;
  if (commande == "MAIL") return CauseEchec::kExpediteurRefuse;
  if (commande == "RCPT") return CauseEchec::kDestinataireRefuse;
  if (commande == "STARTTLS") return CauseEchec::kTls;
  return CauseEchec::kMessageRefuse;
}

CauseEchec CauseSelonCurl(CURLcode code, const Envoi& e) {
  switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_URL_MALFORMAT:
      return CauseEchec::kServeurIntrouvable;
    case CURLE_COULDNT_CONNECT:
      return CauseEchec::kPasDeConnexion;
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
      return CauseEchec::kCertificat;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_USE_SSL_FAILED:
    case CURLE_SSL_CIPHER:
      return CauseEchec::kTls;
    case CURLE_LOGIN_DENIED:
      return CauseEchec::kConnexionRefusee;
    case CURLE_OPERATION_TIMEDOUT:
      return CauseEchec::kDelai;
    case CURLE_ABORTED_BY_CALLBACK:
      return CauseEchec::kInterrompu;
    default:
      return e.DernierRefus.isEmpty() ? CauseEchec::kCoupure : CauseSelonCommande(e.DerniereCommande);
  }
}

ResultatEnvoi ComposeResultat(CURLcode code, const Envoi& e) {
  ResultatEnvoi r;
  // The server has the mail when it has answered 250 to the end of the data; a connection that breaks on our QUIT
  // behind that is no failure, and must not send the mail a second time.
  r.Accepte = code == CURLE_OK ||
              (e.Position == e.Message.size() && e.DerniereReponse.startsWith("250") && e.DerniereCommande == "QUIT");
  const QByteArray mots = !r.Accepte && !e.DernierRefus.isEmpty() ? e.DernierRefus : e.DerniereReponse;
  r.MotsServeur = QString::fromUtf8(mots);
  r.Code = mots.left(3).toInt();
  if (r.Accepte) return r;
  r.Cause = CauseSelonCurl(code, e);
  // 5xx about this very mail is for good. A refused login is not: the user corrects the password and it goes out.
  r.Definitif = r.Code >= 500 && (r.Cause == CauseEchec::kExpediteurRefuse ||
                                  r.Cause == CauseEchec::kDestinataireRefuse || r.Cause == CauseEchec::kMessageRefuse);
  if (r.MotsServeur.isEmpty()) r.MotsServeur = QString::fromUtf8(curl_easy_strerror(code));
  return r;
}

ResultatEnvoi EnvoieParSmtp(const ReglagesEnvoi& r, const QString& expediteur, const QStringList& destinataires,
                            Envoi& envoi) {
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), &curl_easy_cleanup);
  curl_slist* adresses = nullptr;
  for (const QString& a : destinataires) adresses = curl_slist_append(adresses, ('<' + a.toUtf8() + '>').constData());
  const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> garde(adresses, &curl_slist_free_all);
  QUrl url;
  url.setScheme(r.Port == 465 ? QStringLiteral("smtps") : QStringLiteral("smtp"));
  url.setHost(r.Serveur);
  url.setPort(r.Port);
  CURL* c = curl.get();
  curl_easy_setopt(c, CURLOPT_URL, url.toEncoded().constData());
  curl_easy_setopt(c, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
  curl_easy_setopt(c, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_TRY));
  curl_easy_setopt(c, CURLOPT_SSL_VERIFYPEER, 1L);
  curl_easy_setopt(c, CURLOPT_SSL_VERIFYHOST, 2L);
  const QByteArray autorites = r.FichierAutorites.toLocal8Bit();
  if (!autorites.isEmpty()) curl_easy_setopt(c, CURLOPT_CAINFO, autorites.constData());
  curl_easy_setopt(c, CURLOPT_MAIL_FROM, ('<' + expediteur.toUtf8() + '>').constData());
  curl_easy_setopt(c, CURLOPT_MAIL_RCPT, adresses);
  if (r.AvecConnexion) {
    curl_easy_setopt(c, CURLOPT_USERNAME, r.Utilisateur.toUtf8().constData());
    curl_easy_setopt(c, CURLOPT_PASSWORD, r.MotDePasse.toUtf8().constData());
  }
  curl_easy_setopt(c, CURLOPT_READFUNCTION, &LitMorceau);
  curl_easy_setopt(c, CURLOPT_READDATA, &envoi);
  curl_easy_setopt(c, CURLOPT_UPLOAD, 1L);
  curl_easy_setopt(c, CURLOPT_VERBOSE, 1L);  // gives the server's words to the listener below, prints nothing
  curl_easy_setopt(c, CURLOPT_DEBUGFUNCTION, &EcouteDialogue);
  curl_easy_setopt(c, CURLOPT_DEBUGDATA, &envoi);
  curl_easy_setopt(c, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(c, CURLOPT_XFERINFOFUNCTION, &VerifieArret);
  curl_easy_setopt(c, CURLOPT_XFERINFODATA, &envoi);
  curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT, kDelaiConnexion);
  curl_easy_setopt(c, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(c, CURLOPT_LOW_SPEED_TIME, kDelaiSilence);
  curl_easy_setopt(c, CURLOPT_SERVER_RESPONSE_TIMEOUT, kDelaiSilence);
  curl_easy_setopt(c, CURLOPT_TIMEOUT, kDelaiTotal);
  return ComposeResultat(curl_easy_perform(c), envoi);
}

ResultatEnvoi EnvoieParSendmail(const ReglagesEnvoi& r, const QString& expediteur, const QStringList& destinataires,
                                const Envoi& envoi) {
  ResultatEnvoi resultat;
  if (!QFileInfo(r.Sendmail).isExecutable()) {
    resultat.Cause = CauseEchec::kProgrammeAbsent;
    return resultat;
  }
  QStringList arguments{QStringLiteral("-i")};
  if (!expediteur.isEmpty()) arguments << QStringLiteral("-f") << expediteur;
  arguments << QStringLiteral("--") << destinataires;  // behind "--" no address is taken for an option
  QProcess programme;
  programme.setProcessChannelMode(QProcess::MergedChannels);
  programme.start(r.Sendmail, arguments);
  // The local program wants the line ends of this system.
  QByteArray message = envoi.Message;
  message.replace("\r\n", "\n");
  programme.write(message);
  programme.closeWriteChannel();
  for (int t = 0; t < kDelaiSilence * 5 && !programme.waitForFinished(200); ++t) {
    if (programme.error() == QProcess::FailedToStart || envoi.Arret.load()) break;
  }
  const bool fini = programme.state() == QProcess::NotRunning && programme.error() == QProcess::UnknownError;
  resultat.Accepte = fini && programme.exitStatus() == QProcess::NormalExit && programme.exitCode() == 0;
  resultat.MotsServeur = QString::fromUtf8(programme.readAll()).simplified().left(kMotsMax);
  if (!resultat.Accepte) resultat.Cause = fini ? CauseEchec::kMessageRefuse : CauseEchec::kDelai;
  if (!fini) programme.kill();
  return resultat;
}

}  // namespace

ResultatEnvoi EnvoieCourriel(const ReglagesEnvoi& reglages, const QString& expediteur, const QStringList& destinataires,
                             const QByteArray& message, const std::atomic_bool& arret, const SuiviEnvoi& suivi) {
  Envoi envoi{message, 0, arret, suivi, {}, {}, {}};
  const bool incomplet =
      destinataires.isEmpty() || (reglages.ParSmtp && (reglages.Serveur.isEmpty() || expediteur.isEmpty()));
  if (incomplet) {
    ResultatEnvoi r;
    r.Cause = CauseEchec::kIncomplet;
    return r;
  }
  return reglages.ParSmtp ? EnvoieParSmtp(reglages, expediteur, destinataires, envoi)
                          : EnvoieParSendmail(reglages, expediteur, destinataires, envoi);
}

}  // namespace vaktor
