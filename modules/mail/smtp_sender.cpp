// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/smtp_sender.h"

#include <curl/curl.h>
#include <sys/socket.h>

#include <QElapsedTimer>
#include <QUrl>
#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <memory>

#include "modules/mail/sendmail_sender.h"
#include "modules/mail/smtp_dialogue.h"
#include "modules/mail/token_program.h"

namespace vaktor {
namespace {

constexpr int kRefusDefinitif = 500;

/// One conversation, as the callbacks of libcurl see it.
struct Envoi {
  Envoi(const QByteArray& message, const DelaisEnvoi& delais, const RappelsEnvoi& rappels,
        const QStringList& destinataires)
      : Message(message), Delais(delais), Rappels(rappels), Dialogue(rappels, destinataires) {
    DepuisActivite.start();
    DepuisFin.start();
  }
  bool DonneesParties() const { return Dialogue.EnDonnees() && Position == Message.size(); }
  bool TropLong() const { return DepuisActivite.hasExpired(DonneesParties() ? Delais.FinDonnees : Delais.Reponse); }

  const QByteArray& Message;
  const DelaisEnvoi& Delais;
  const RappelsEnvoi& Rappels;
  DialogueSmtp Dialogue;
  qsizetype Position = 0;
  QElapsedTimer DepuisActivite;  // since the server last did anything
  QElapsedTimer DepuisFin;       // since we were asked to end
  curl_off_t Envoyes = 0;
  bool Chiffre = false;
  bool Arrete = false;
  bool DelaiDepasse = false;
  std::array<char, CURL_ERROR_SIZE> Erreur = {};
};

size_t LitMorceau(char* tampon, size_t taille, size_t nombre, void* donnee) {
  auto* e = static_cast<Envoi*>(donnee);
  const qsizetype n = std::min(static_cast<qsizetype>(taille * nombre), e->Message.size() - e->Position);
  std::memcpy(tampon, e->Message.constData() + e->Position, static_cast<size_t>(n));
  e->Position += n;
  return static_cast<size_t>(n);
}

// libcurl asks about once a second, whatever it waits for. Its own limits on silence would be the same at all stages.
int Surveille(void* donnee, curl_off_t, curl_off_t, curl_off_t, curl_off_t envoyes) {
  auto* e = static_cast<Envoi*>(donnee);
  if (envoyes != e->Envoyes) e->DepuisActivite.restart();
  e->Envoyes = envoyes;
  const bool fin = e->Rappels.Arret && e->Rappels.Arret();
  // Whatever comes of the farewell, it changes nothing about the mail.
  if (e->Dialogue.EnAdieu()) return fin || e->DelaiDepasse || e->DepuisActivite.hasExpired(e->Delais.Grace) ? 1 : 0;
  if (!fin) e->DepuisFin.restart();
  // A mail whose data the server has is worth a few seconds.
  e->Arrete = fin && (!e->DonneesParties() || e->DepuisFin.hasExpired(e->Delais.Grace));
  e->DelaiDepasse = e->TropLong();
  return e->Arrete || e->DelaiDepasse ? 1 : 0;
}

void NoteDialogue(Envoi& e, curl_infotype genre, const QByteArray& bloc) {
  // What TLS itself sends: there is none without it.
  if (genre == CURLINFO_SSL_DATA_OUT) e.Chiffre = true;
  if (genre == CURLINFO_HEADER_OUT) e.Dialogue.NoteCommande(bloc);
  if (genre != CURLINFO_HEADER_IN) return;
  e.DepuisActivite.restart();
  for (const QByteArray& ligne : bloc.split('\n')) e.Dialogue.NoteLigne(ligne);
}

int EcouteDialogue(CURL*, curl_infotype genre, char* texte, size_t taille, void* donnee) {
  try {
    NoteDialogue(*static_cast<Envoi*>(donnee), genre, QByteArray(texte, static_cast<qsizetype>(taille)));
  } catch (const std::exception&) {
    // The library is C, which no exception can pass. A word that there was no memory for is not told; the library's own
    // verdict stands.
  }
  return 0;
}

CauseEchec CauseSelonCurl(CURLcode code, const Envoi& e) {
  if (e.Arrete) return CauseEchec::kInterrompu;
  const bool muet = !e.Dialogue.AParle();
  if (e.DelaiDepasse || code == CURLE_OPERATION_TIMEDOUT)
    return muet ? CauseEchec::kPasDeConnexion : CauseEchec::kDelai;
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
    case CURLE_USE_SSL_FAILED:
      return CauseEchec::kSansTls;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CIPHER:
      return CauseEchec::kTls;
    default:
      break;
  }
  // Behind the server's "go on" what it said before, of one of the addresses, is not why this mail has stayed.
  if (e.Dialogue.EnDonnees()) return CauseEchec::kCoupure;
  if (e.Dialogue.ARefuse()) return e.Dialogue.CauseRefus();
  return code == CURLE_LOGIN_DENIED ? CauseEchec::kConnexionRefusee : CauseEchec::kCoupure;
}

bool SontTousRefusesPourToujours(const QList<VerdictAdresse>& verdicts) {
  return std::ranges::all_of(verdicts, [](const VerdictAdresse& v) { return v.Code >= kRefusDefinitif; });
}

void ComposeRefus(ResultatEnvoi& r, const DialogueSmtp& dialogue) {
  r.Cause = dialogue.CauseRefus();
  r.Code = dialogue.Refus().Code;
  r.MotsServeur = ResumeMots(dialogue.Refus().Mots);
  r.TropGros = DemandeMoinsGros(dialogue.Refus()) ||
               std::ranges::any_of(r.Verdicts, [](const VerdictAdresse& v) { return v.TropGros; });
}

ResultatEnvoi ComposeResultat(CURLcode code, const Envoi& e) {
  ResultatEnvoi r;
  // A connection that breaks behind the server's 250 is no failure, and must not send the mail a second time.
  r.Accepte = code == CURLE_OK || e.Dialogue.EstAccepte();
  r.Chiffre = e.Chiffre;
  r.Verdicts = e.Dialogue.Verdicts();
  r.Mecanisme = e.Dialogue.Mecanisme();
  if (e.Dialogue.ARefuse()) ComposeRefus(r, e.Dialogue);
  if (r.Accepte) return r;
  r.Cause = CauseSelonCurl(code, e);
  // A path that does not carry this mail, or a filter that dies of it, may well let the next one through.
  const bool dansLesDonnees =
      e.Dialogue.EnDonnees() && (r.Cause == CauseEchec::kCoupure || r.Cause == CauseEchec::kDelai);
  const bool refuse = e.Dialogue.ARefuse() && r.Cause == e.Dialogue.CauseRefus() && !dansLesDonnees;
  r.DuCourriel = dansLesDonnees || (refuse && e.Dialogue.RefusDuCourriel());
  if (refuse) {
    // 5xx about this very mail is for good. A refused login is not: the user corrects the password and it goes out.
    const bool auxAdresses = e.Dialogue.Refus().Verbe == "RCPT";
    r.Definitif =
        r.DuCourriel && r.Code >= kRefusDefinitif && (!auxAdresses || SontTousRefusesPourToujours(r.Verdicts));
    return r;
  }
  r.Code = 0;
  r.TropGros = false;
  r.MotsServeur = ResumeMots(e.Erreur.front() != '\0' ? e.Erreur.data() : curl_easy_strerror(code));
  return r;
}

// Whatever is started meanwhile, the system's mail program or a notification, has no business with the conversation.
curl_socket_t OuvreSocket(void*, curlsocktype, curl_sockaddr* adresse) {
  return ::socket(adresse->family, adresse->socktype | SOCK_CLOEXEC, adresse->protocol);
}

/// What goes instead of the library's own choice of a login.
void RegleConnexion(CURL* c, const ReglagesEnvoi& r, const QByteArray& jeton) {
  if (!r.AvecConnexion) return;
  curl_easy_setopt(c, CURLOPT_USERNAME, r.Utilisateur.toUtf8().constData());
  if (!jeton.isEmpty()) {
    curl_easy_setopt(c, CURLOPT_XOAUTH2_BEARER, jeton.constData());
    curl_easy_setopt(c, CURLOPT_LOGIN_OPTIONS, "AUTH=XOAUTH2");
    return;
  }
  curl_easy_setopt(c, CURLOPT_PASSWORD, r.MotDePasse.toUtf8().constData());
  if (!r.Mecanisme.isEmpty()) curl_easy_setopt(c, CURLOPT_LOGIN_OPTIONS, ("AUTH=" + r.Mecanisme).constData());
}

/// What libcurl has to be told about the way to the server. False for a server that is no name.
bool RegleServeur(CURL* c, const ReglagesEnvoi& r) {
  QUrl url;
  url.setScheme(r.TlsDesLeDebut ? QStringLiteral("smtps") : QStringLiteral("smtp"));
  url.setHost(r.Serveur.trimmed());
  url.setPort(r.Port);
  if (!url.isValid() || url.host().isEmpty()) return false;
  curl_easy_setopt(c, CURLOPT_URL, url.toEncoded().constData());
  curl_easy_setopt(c, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
  curl_easy_setopt(c, CURLOPT_USE_SSL, static_cast<long>(r.TlsExige ? CURLUSESSL_ALL : CURLUSESSL_TRY));
  curl_easy_setopt(c, CURLOPT_SSL_VERIFYPEER, 1L);
  curl_easy_setopt(c, CURLOPT_SSL_VERIFYHOST, 2L);
  if (!r.FichierAutorites.isEmpty()) curl_easy_setopt(c, CURLOPT_CAINFO, r.FichierAutorites.toLocal8Bit().constData());
  curl_easy_setopt(c, CURLOPT_OPENSOCKETFUNCTION, &OuvreSocket);
  curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(r.Delais.Connexion));
  curl_easy_setopt(c, CURLOPT_SERVER_RESPONSE_TIMEOUT, static_cast<long>(r.Delais.FinDonnees / 1000 + 1));
  // The farewell belongs to the sending then, and is watched like it: a kept connection takes leave behind it,
  // unwatched, and waits for a server that is gone as long as for the end of the data.
  curl_easy_setopt(c, CURLOPT_FORBID_REUSE, 1L);
  curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(c, CURLOPT_QUICK_EXIT, 1L);  // a name server that hangs must not hold up our end
  return true;
}

void RegleRappels(CURL* c, Envoi& envoi) {
  curl_easy_setopt(c, CURLOPT_READFUNCTION, &LitMorceau);
  curl_easy_setopt(c, CURLOPT_READDATA, &envoi);
  curl_easy_setopt(c, CURLOPT_UPLOAD, 1L);
  // Tells the size in the command MAIL, so that a server can refuse a mail that is too large before it travels.
  curl_easy_setopt(c, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(envoi.Message.size()));
  curl_easy_setopt(c, CURLOPT_VERBOSE, 1L);  // gives the server's words to the listener, prints nothing
  curl_easy_setopt(c, CURLOPT_DEBUGFUNCTION, &EcouteDialogue);
  curl_easy_setopt(c, CURLOPT_DEBUGDATA, &envoi);
  curl_easy_setopt(c, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(c, CURLOPT_XFERINFOFUNCTION, &Surveille);
  curl_easy_setopt(c, CURLOPT_XFERINFODATA, &envoi);
  curl_easy_setopt(c, CURLOPT_ERRORBUFFER, envoi.Erreur.data());
}

/// One conversation. What the server offers for a login comes back in `offerts`.
ResultatEnvoi Converse(const ReglagesEnvoi& r, const Enveloppe& enveloppe, const QByteArray& message,
                       const RappelsEnvoi& rappels, const QByteArray& jeton, QByteArrayList& offerts) {
  static const CURLcode kPret = curl_global_init(CURL_GLOBAL_DEFAULT);
  Envoi envoi(message, r.Delais, rappels, enveloppe.Destinataires);
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), &curl_easy_cleanup);
  curl_slist* adresses = nullptr;
  for (const QString& a : enveloppe.Destinataires)
    adresses = curl_slist_append(adresses, ('<' + a.toUtf8() + '>').constData());
  const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> garde(adresses, &curl_slist_free_all);
  CURL* c = curl.get();
  if (kPret != CURLE_OK || c == nullptr) return {.Cause = CauseEchec::kCoupure};
  if (!RegleServeur(c, r)) return {.Cause = CauseEchec::kServeurIntrouvable};
  RegleConnexion(c, r, jeton);
  curl_easy_setopt(c, CURLOPT_MAIL_FROM, ('<' + enveloppe.Expediteur.toUtf8() + '>').constData());
  curl_easy_setopt(c, CURLOPT_MAIL_RCPT, adresses);
  curl_easy_setopt(c, CURLOPT_MAIL_RCPT_ALLLOWFAILS, 1L);
  RegleRappels(c, envoi);
  ResultatEnvoi resultat = ComposeResultat(curl_easy_perform(c), envoi);
  offerts = envoi.Dialogue.Mecanismes();
  return resultat;
}

/// The other connection says nothing about the login, or nothing new.
bool NeDitRienDeLaConnexion(const ResultatEnvoi& r) {
  return r.Cause == CauseEchec::kPasDeConnexion || r.Cause == CauseEchec::kCoupure ||
         r.Cause == CauseEchec::kServeurRefuse || r.Cause == CauseEchec::kDelai || r.Cause == CauseEchec::kTls;
}

// The library takes the strongest of what a server offers, and some servers offer what they cannot do: a password that
// is right is refused there. The plain ones are safe within TLS. Each once: too many refusals lock an account.
ResultatEnvoi EnvoieParSmtp(const ReglagesEnvoi& reglages, const Enveloppe& enveloppe, const QByteArray& message,
                            const RappelsEnvoi& rappels, const QByteArray& jeton) {
  ReglagesEnvoi r = reglages;
  QByteArrayList offerts;
  ResultatEnvoi resultat = Converse(r, enveloppe, message, rappels, jeton, offerts);
  const QByteArray premier = resultat.Mecanisme;
  for (const char* mecanisme : {"PLAIN", "LOGIN"}) {
    if (resultat.Cause != CauseEchec::kConnexionRefusee || !resultat.Chiffre || !jeton.isEmpty()) break;
    if (premier == mecanisme || !offerts.contains(mecanisme)) continue;
    r.Mecanisme = mecanisme;
    const ResultatEnvoi autre = Converse(r, enveloppe, message, rappels, jeton, offerts);
    if (autre.Accepte || !NeDitRienDeLaConnexion(autre)) resultat = autre;
  }
  return resultat;
}

CauseEchec CherchePremierManque(const ReglagesEnvoi& r, const Enveloppe& enveloppe) {
  if (enveloppe.Destinataires.isEmpty()) return CauseEchec::kIncomplet;
  if (!r.ParSmtp) return r.Sendmail.isEmpty() ? CauseEchec::kProgrammeAbsent : CauseEchec::kAucune;
  if (r.Serveur.trimmed().isEmpty() || enveloppe.Expediteur.isEmpty()) return CauseEchec::kIncomplet;
  if (r.Port == 0) return CauseEchec::kPortMauvais;
  const bool sansMot = r.MotDePasse.isEmpty() && r.Jeton.isEmpty();
  if (r.AvecConnexion && (r.Utilisateur.isEmpty() || sansMot)) return CauseEchec::kConnexionIncomplete;
  return CauseEchec::kAucune;
}

}  // namespace

ResultatEnvoi EnvoieCourriel(const ReglagesEnvoi& reglages, const Enveloppe& enveloppe, const QByteArray& message,
                             const RappelsEnvoi& rappels) {
  const CauseEchec manque = CherchePremierManque(reglages, enveloppe);
  // Without a server no mail leaves; an address that is missing is this mail's own affair.
  if (manque != CauseEchec::kAucune) {
    const bool duCourriel =
        manque == CauseEchec::kIncomplet && !(reglages.ParSmtp && reglages.Serveur.trimmed().isEmpty());
    return {.DuCourriel = duCourriel, .Cause = manque};
  }
  if (!reglages.ParSmtp) return EnvoieParSendmail(reglages, enveloppe, message, rappels);
  if (!reglages.AvecConnexion || reglages.Jeton.isEmpty())
    return EnvoieParSmtp(reglages, enveloppe, message, rappels, {});
  return EnvoieAvecJeton(reglages, rappels, [&](const RappelsEnvoi& propres, const QByteArray& jeton) {
    return EnvoieParSmtp(reglages, enveloppe, message, propres, jeton);
  });
}

}  // namespace vaktor
