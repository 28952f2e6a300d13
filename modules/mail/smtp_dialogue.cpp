// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/smtp_dialogue.h"

#include <algorithm>
#include <array>

namespace vaktor {
namespace {

constexpr qsizetype kMotsMax = 300;
constexpr qsizetype kReponseMax = 4096;  // a server that never ends its reply must not fill the memory
constexpr int kContinue = 354;
constexpr int kFait = 250;
constexpr int kRefus = 400;
constexpr int kRefusDefinitif = 500;
constexpr int kFermeture = 421;
constexpr int kConnexionExigee = 530;
constexpr std::array<const char*, 8> kVerbes = {"EHLO", "HELO", "STARTTLS", "AUTH", "MAIL", "RCPT", "DATA", "QUIT"};

}  // namespace

QString ResumeMots(const QByteArray& mots) { return QString::fromUtf8(mots).simplified().left(kMotsMax); }

void DialogueSmtp::NoteCommande(const QByteArray& ligne) {
  const QByteArray verbe = ligne.left(8).split(' ').first().trimmed().toUpper();
  if (std::find(kVerbes.begin(), kVerbes.end(), verbe) != kVerbes.end()) Verbe_ = verbe;
}

void DialogueSmtp::NoteLigne(QByteArray ligne) {
  ligne = ligne.trimmed();
  bool chiffres = false;
  const int code = ligne.left(3).toInt(&chiffres);
  if (ligne.size() < 3 || !chiffres) return;
  const bool suite = ligne.size() > 3 && ligne.at(3) == '-';
  const QByteArray mots = ligne.mid(4);
  if (Reponse_.isEmpty())
    Reponse_ = ligne.left(3) + ' ' + mots;
  else if (Reponse_.size() < kReponseMax)
    Reponse_ += ' ' + mots;
  Code_ = code;
  if (!suite) AcheveReponse();
}

void DialogueSmtp::AcheveReponse() {
  if (EnAdieu()) return Reponse_.clear();
  if (Code_ >= kRefus) {
    CodeRefus_ = Code_;
    MotsRefus_ = Reponse_;
    VerbeRefus_ = Verbe_;
  }
  if (EnDonnees_ && Code_ == kFait && !Accepte_) {
    Accepte_ = true;
    if (Rappels_.SurAccepte) Rappels_.SurAccepte();
  }
  if (Verbe_ == "DATA") EnDonnees_ = Code_ == kContinue;
  if (Rappels_.Suivi) Rappels_.Suivi(QString::fromLatin1(Verbe_), ResumeMots(Reponse_));
  Reponse_.clear();
}

CauseEchec DialogueSmtp::CauseRefus() const {
  if (CodeRefus_ == kFermeture) return CauseEchec::kServeurRefuse;
  if (VerbeRefus_ == "AUTH")
    return CodeRefus_ >= kRefusDefinitif ? CauseEchec::kConnexionRefusee : CauseEchec::kServeurRefuse;
  if (CodeRefus_ == kConnexionExigee) return CauseEchec::kConnexionDemandee;
  if (VerbeRefus_ == "MAIL") return CauseEchec::kExpediteurRefuse;
  if (VerbeRefus_ == "RCPT") return CauseEchec::kDestinataireRefuse;
  if (VerbeRefus_ == "STARTTLS") return CauseEchec::kTls;
  if (VerbeRefus_ == "DATA") return CauseEchec::kMessageRefuse;
  return CauseEchec::kServeurRefuse;
}

}  // namespace vaktor
