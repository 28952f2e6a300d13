// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_sender.h"

#include <curl/curl.h>

#include <QFile>
#include <QStringEncoder>
#include <algorithm>
#include <array>
#include <exception>
#include <memory>

#include "base/photo_format.h"

namespace vaktor {

namespace {

constexpr qsizetype kMotsMax = 300;
constexpr qsizetype kOctetsMot = 45;  // of UTF-8 in one encoded word: 60 characters of base64, 75 in all (RFC 2047, 2)

struct Echange {
  const std::function<bool()>& Arret;
  QByteArray Reponse;  // its beginning
  std::array<char, CURL_ERROR_SIZE> Erreur = {};
};

size_t PrendReponse(char* octets, size_t taille, size_t nombre, void* donnee) {
  try {
    QByteArray& reponse = static_cast<Echange*>(donnee)->Reponse;
    reponse += QByteArrayView(octets, static_cast<qsizetype>(taille * nombre))
                   .first(std::min(static_cast<qsizetype>(taille * nombre), kMotsMax - reponse.size()));
  } catch (const std::exception&) {
    // The library is C, which no exception can pass. These words are not told then.
  }
  return taille * nombre;
}

int Surveille(void* donnee, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  const auto* e = static_cast<Echange*>(donnee);
  return e->Arret && e->Arret() ? 1 : 0;
}

IssuePush JugeReponse(long code) {
  switch (code) {
    case 401:
    case 403:
      return IssuePush::kAcces;
    case 404:
    case 405:
    case 410:
      return IssuePush::kAdresse;
    case 408:
    case 425:
    case 429:
      return IssuePush::kPanne;
    case 413:
      return IssuePush::kTropGrand;
    default:
      break;
  }
  if (code >= 200 && code < 300) return IssuePush::kPris;
  if (code >= 300 && code < 400) return IssuePush::kAdresse;
  return code >= 400 && code < 500 ? IssuePush::kRefuse : IssuePush::kPanne;
}

IssuePush JugeEchec(CURLcode code) {
  switch (code) {
    case CURLE_ABORTED_BY_CALLBACK:
      return IssuePush::kInterrompu;
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
      return IssuePush::kCertificat;
    default:
      return IssuePush::kPanne;
  }
}

class Entetes {
 public:
  Entetes() = default;
  ~Entetes() { curl_slist_free_all(Tete_); }
  Entetes(const Entetes&) = delete;
  Entetes& operator=(const Entetes&) = delete;
  void Ajoute(const QByteArray& ligne) { Tete_ = curl_slist_append(Tete_, ligne.constData()); }
  curl_slist* Tete() const { return Tete_; }

 private:
  curl_slist* Tete_ = nullptr;
};

void ComposeEntetes(const ReglagesPush& reglages, const MessagePush& message, Entetes& entetes) {
  entetes.Ajoute("Title: " + CodeEntete(message.Titre));
  if (message.Image.isEmpty()) {
    entetes.Ajoute("Content-Type: text/plain; charset=utf-8");
  } else {
    entetes.Ajoute(QByteArray("Content-Type: ") + kTypePhoto);
    entetes.Ajoute("Message: " + CodeEntete(message.Texte));
    entetes.Ajoute("Filename: " + CodeEntete(message.NomImage));
  }
  entetes.Ajoute("Expect:");  // a server that does not know it would hold each push up for a second
  if (!reglages.Entete.isEmpty()) entetes.Ajoute(reglages.Entete);
}

void RegleConnexion(CURL* c, const ReglagesPush& reglages, const DelaisPush& delais) {
  curl_easy_setopt(c, CURLOPT_URL, reglages.Adresse.constData());
  curl_easy_setopt(c, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(c, CURLOPT_FOLLOWLOCATION, 0L);
  curl_easy_setopt(c, CURLOPT_SSL_VERIFYPEER, 1L);
  curl_easy_setopt(c, CURLOPT_SSL_VERIFYHOST, 2L);
  if (!reglages.Autorites.isEmpty())
    curl_easy_setopt(c, CURLOPT_CAINFO, QFile::encodeName(reglages.Autorites).constData());
  curl_easy_setopt(c, CURLOPT_USERAGENT, "Vaktor");
  curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(c, CURLOPT_QUICK_EXIT, 1L);  // a name server that hangs must not hold up our end
  curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT, delais.Connexion);
  curl_easy_setopt(c, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(c, CURLOPT_LOW_SPEED_TIME, delais.Silence);
  curl_easy_setopt(c, CURLOPT_TIMEOUT, delais.Tout);
}

void RegleEchange(CURL* c, Echange& echange, const QByteArray& corps, const Entetes& entetes) {
  curl_easy_setopt(c, CURLOPT_POST, 1L);
  curl_easy_setopt(c, CURLOPT_POSTFIELDS, corps.constData());
  curl_easy_setopt(c, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(corps.size()));
  curl_easy_setopt(c, CURLOPT_HTTPHEADER, entetes.Tete());
  curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, &PrendReponse);
  curl_easy_setopt(c, CURLOPT_WRITEDATA, &echange);
  curl_easy_setopt(c, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(c, CURLOPT_XFERINFOFUNCTION, &Surveille);
  curl_easy_setopt(c, CURLOPT_XFERINFODATA, &echange);
  curl_easy_setopt(c, CURLOPT_ERRORBUFFER, echange.Erreur.data());
}

}  // namespace

QByteArray CodeEntete(const QString& texte) {
  const QString ligne = texte.simplified();
  const bool ascii = std::all_of(ligne.begin(), ligne.end(), [](QChar c) { return c >= u' ' && c < QChar(127); });
  if (ascii) return ligne.toLatin1();
  QByteArray mots;
  QByteArray mot;
  const auto ferme = [&] {
    if (!mot.isEmpty()) mots += (mots.isEmpty() ? "=?UTF-8?B?" : " =?UTF-8?B?") + mot.toBase64() + "?=";
    mot.clear();
  };
  // A character, of up to four bytes, stands in one word whole.
  for (const char32_t signe : ligne.toUcs4()) {
    const QByteArray octets = QString::fromUcs4(&signe, 1).toUtf8();
    if (mot.size() + octets.size() > kOctetsMot) ferme();
    mot += octets;
  }
  ferme();
  return mots;
}

ResultatPush EnvoiePush(const ReglagesPush& reglages, const MessagePush& message, const std::function<bool()>& arret,
                        const DelaisPush& delais) {
  static const CURLcode kPret = curl_global_init(CURL_GLOBAL_DEFAULT);
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), &curl_easy_cleanup);
  if (kPret != CURLE_OK || curl == nullptr) return {};
  Echange echange{arret, {}};
  Entetes entetes;
  ComposeEntetes(reglages, message, entetes);
  const QByteArray corps = message.Image.isEmpty() ? message.Texte.toUtf8() : message.Image;
  RegleConnexion(curl.get(), reglages, delais);
  RegleEchange(curl.get(), echange, corps, entetes);
  const CURLcode code = curl_easy_perform(curl.get());
  if (code != CURLE_OK) {
    curl_off_t partis = 0;
    curl_easy_getinfo(curl.get(), CURLINFO_SIZE_UPLOAD_T, &partis);
    const char* mots = echange.Erreur.front() != '\0' ? echange.Erreur.data() : curl_easy_strerror(code);
    return {JugeEchec(code), 0, QString::fromLocal8Bit(mots).simplified().left(kMotsMax), partis > 0};
  }
  long reponse = 0;
  curl_easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &reponse);
  QString mots = QStringLiteral("HTTP %1").arg(reponse);
  const QString dit = QString::fromUtf8(echange.Reponse).simplified();
  if (!dit.isEmpty()) mots += QStringLiteral(": ") + dit;
  return {JugeReponse(reponse), static_cast<int>(reponse), mots.left(kMotsMax)};
}

}  // namespace vaktor
