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
constexpr int kConnecte = 235;
constexpr int kRefus = 400;
constexpr std::array<const char*, 8> kVerbes = {"EHLO", "HELO", "STARTTLS", "AUTH", "MAIL", "RCPT", "DATA", "QUIT"};

}  // namespace

QString ResumeMots(const QByteArray& mots) { return QString::fromUtf8(mots).simplified().left(kMotsMax); }

void DialogueSmtp::NoteCommande(const QByteArray& ligne) {
  const QByteArray verbe = ligne.left(8).split(' ').first().trimmed().toUpper();
  if (std::find(kVerbes.begin(), kVerbes.end(), verbe) == kVerbes.end()) return;
  Verbe_ = verbe;
  if (verbe == "AUTH") Mecanisme_ = ligne.trimmed().split(' ').value(1).toUpper();
  if (verbe == "EHLO") Offerts_.clear();  // what is offered before TLS does not hold behind it
}

void DialogueSmtp::NoteLigne(QByteArray ligne) {
  ligne = ligne.trimmed();
  bool chiffres = false;
  const int code = ligne.left(3).toInt(&chiffres);
  if (ligne.size() < 3 || !chiffres) return;
  const bool suite = ligne.size() > 3 && ligne.at(3) == '-';
  const QByteArray mots = ligne.mid(4);
  if (Verbe_ == "EHLO") NoteOffre(mots);
  if (Reponse_.isEmpty())
    Reponse_ = ligne.left(3) + ' ' + mots;
  else if (Reponse_.size() < kReponseMax)
    Reponse_ += ' ' + mots;
  Code_ = code;
  if (!suite) AcheveReponse();
}

// "AUTH PLAIN LOGIN"; "AUTH=PLAIN LOGIN" is the form of a draft that some servers still add.
void DialogueSmtp::NoteOffre(const QByteArray& mots) {
  QByteArrayList offre = QByteArray(mots).replace('=', ' ').toUpper().simplified().split(' ');
  if (offre.takeFirst() == "AUTH") Offerts_ += offre;
}

// The server is asked about one address after the other, and answers each before the next.
void DialogueSmtp::NoteVerdict(const ReponseSmtp& reponse) {
  const QString adresse = Destinataires_.value(Verdicts_.size());
  if (!adresse.isEmpty()) Verdicts_.append({adresse, reponse.Code, DemandeMoinsGros(reponse)});
}

void DialogueSmtp::AcheveReponse() {
  if (EnAdieu()) return Reponse_.clear();
  const ReponseSmtp reponse{Verbe_, Code_, Reponse_};
  if (Code_ >= kRefus) Refus_ = reponse;
  if (Verbe_ == "RCPT") NoteVerdict(reponse);
  if (Verbe_ == "AUTH" && Code_ == kConnecte) Connecte_ = true;
  if (EnDonnees_ && Code_ == kFait && !Accepte_) {
    Accepte_ = true;
    if (Rappels_.SurAccepte) Rappels_.SurAccepte(Verdicts_);
  }
  if (Verbe_ == "DATA") EnDonnees_ = Code_ == kContinue;
  if (Rappels_.Suivi) Rappels_.Suivi(QString::fromLatin1(Verbe_), ResumeMots(Reponse_));
  Reponse_.clear();
}

CauseEchec DialogueSmtp::CauseRefus() const { return ComprendRefus(Refus_, Connecte_); }
bool DialogueSmtp::RefusDuCourriel() const { return EstRefusDuCourriel(Refus_); }

}  // namespace vaktor
