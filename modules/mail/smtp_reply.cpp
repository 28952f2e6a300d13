// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/smtp_reply.h"

#include <QRegularExpression>
#include <algorithm>
#include <initializer_list>

namespace vaktor {
namespace {

constexpr int kRefusDefinitif = 500;
constexpr int kFermeture = 421;
constexpr int kConnexionExigee = 530;
constexpr int kTropGros = 552;  // RFC 5321: "exceeded storage allocation"; RFC 1870: also a message that is too large

bool Contient(const QByteArray& mots, std::initializer_list<const char*> morceaux) {
  const QByteArray bas = mots.toLower();
  return std::any_of(morceaux.begin(), morceaux.end(), [&bas](const char* m) { return bas.contains(m); });
}

/// Of "5.3.4" the part behind the class: "3.4".
QByteArray DonneSujet(const QByteArray& mots) { return DonneCodeEtendu(mots).mid(2); }

bool ParleDeLaPlace(const ReponseSmtp& r) {
  return DonneSujet(r.Mots) == "2.2" ||
         Contient(r.Mots, {"mailbox full", "mailbox is full", "over quota", "quota exceeded"});
}

bool ParleDeLaTaille(const ReponseSmtp& r) {
  if (ParleDeLaPlace(r)) return false;
  return r.Code == kTropGros || DonneSujet(r.Mots) == "3.4" ||
         Contient(r.Mots, {"too large", "too big", "size exceeds"});
}

bool ParleDeLaConnexion(const ReponseSmtp& r) {
  return Contient(r.Mots, {"relay", "authenticat", "auth required", "log in", "login"});
}

bool ParleDeLExpediteur(const ReponseSmtp& r) {
  const QByteArray sujet = DonneSujet(r.Mots);
  return sujet == "1.7" || sujet == "1.8" || Contient(r.Mots, {"sender address rejected", "sender rejected"});
}

CauseEchec ComprendRefusDuCourriel(const ReponseSmtp& r, bool connecte) {
  if (ParleDeLaTaille(r)) return CauseEchec::kTropGros;
  if (ParleDeLaPlace(r)) return CauseEchec::kSansPlace;
  if (r.Code < kRefusDefinitif) return CauseEchec::kReporte;
  if (!connecte && ParleDeLaConnexion(r)) return CauseEchec::kConnexionDemandee;
  if (r.Verbe == "MAIL" || ParleDeLExpediteur(r)) return CauseEchec::kExpediteurRefuse;
  return r.Verbe == "RCPT" ? CauseEchec::kDestinataireRefuse : CauseEchec::kMessageRefuse;
}

}  // namespace

QByteArray DonneCodeEtendu(const QByteArray& mots) {
  static const QRegularExpression kForme(QStringLiteral("^\\d{3} ([245]\\.\\d{1,3}\\.\\d{1,3})(?![\\d.])"));
  return kForme.match(QString::fromLatin1(mots.left(32))).captured(1).toLatin1();
}

bool DemandeMoinsGros(const ReponseSmtp& r) { return r.Code == kTropGros || DonneCodeEtendu(r.Mots) == "5.3.4"; }

CauseEchec ComprendRefus(const ReponseSmtp& r, bool connecte) {
  if (r.Code == kFermeture) return CauseEchec::kServeurRefuse;
  if (r.Verbe == "AUTH") return r.Code >= kRefusDefinitif ? CauseEchec::kConnexionRefusee : CauseEchec::kServeurRefuse;
  if (r.Verbe == "STARTTLS") return CauseEchec::kTls;
  if (r.Code == kConnexionExigee)
    return Contient(r.Mots, {"starttls"}) ? CauseEchec::kTls : CauseEchec::kConnexionDemandee;
  const bool duCourriel = r.Verbe == "MAIL" || r.Verbe == "RCPT" || r.Verbe == "DATA";
  return duCourriel ? ComprendRefusDuCourriel(r, connecte) : CauseEchec::kServeurRefuse;
}

// What is said at MAIL about a login is said to every mail; the same at RCPT or of the data may be about this address.
bool EstRefusDuCourriel(const ReponseSmtp& r) {
  if (r.Code == kFermeture) return false;
  return r.Verbe == "RCPT" || r.Verbe == "DATA" || (r.Verbe == "MAIL" && r.Code != kConnexionExigee);
}

}  // namespace vaktor
