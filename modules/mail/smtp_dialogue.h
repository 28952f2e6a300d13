// SPDX-License-Identifier: GPL-3.0-or-later
// Follows an SMTP conversation from its lines: which command is being answered, and what the server said.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

#include "modules/mail/sending.h"
#include "modules/mail/smtp_reply.h"

namespace vaktor {

class DialogueSmtp {
 public:
  /// `destinataires`: in the order in which the server is asked about them.
  DialogueSmtp(const RappelsEnvoi& rappels, QStringList destinataires)
      : Rappels_(rappels), Destinataires_(std::move(destinataires)) {}

  /// What we send. Of it only the verb is kept, and of AUTH the mechanism: what stands behind may be a password.
  void NoteCommande(const QByteArray& ligne);
  /// One line of the server. A reply of several lines is one reply (RFC 5321, 4.2.1).
  void NoteLigne(QByteArray ligne);

  bool EstAccepte() const { return Accepte_; }  ///< 250 to the end of the data
  bool AParle() const { return Code_ != 0; }    ///< the server has said anything at all
  bool ARefuse() const { return Refus_.Code != 0; }
  bool EnDonnees() const { return EnDonnees_; }        ///< it has asked for the data and not answered them yet
  bool EnAdieu() const { return Verbe_ == "QUIT"; }    ///< what is said now is about no mail, and not told
  const ReponseSmtp& Refus() const { return Refus_; }  ///< the last reply of 400 and above
  CauseEchec CauseRefus() const;                       ///< what it means
  bool RefusDuCourriel() const;                        ///< it is about this mail alone
  const QList<VerdictAdresse>& Verdicts() const { return Verdicts_; }
  const QByteArray& Mecanisme() const { return Mecanisme_; }     ///< of the last login, empty before any
  const QByteArrayList& Mecanismes() const { return Offerts_; }  ///< those that the server offers, in capitals

 private:
  void AcheveReponse();
  void NoteOffre(const QByteArray& mots);
  void NoteVerdict(const ReponseSmtp& reponse);

  const RappelsEnvoi& Rappels_;
  QStringList Destinataires_;
  QByteArray Verbe_;
  QByteArray Reponse_;  // of the lines so far
  int Code_ = 0;
  ReponseSmtp Refus_;
  QList<VerdictAdresse> Verdicts_;
  QByteArray Mecanisme_;
  QByteArrayList Offerts_;
  bool Connecte_ = false;   // a login was taken
  bool EnDonnees_ = false;  // 354 came: the next reply decides
  bool Accepte_ = false;
};

/// One line of at most 300 characters, from what a server or the system said.
QString ResumeMots(const QByteArray& mots);

}  // namespace vaktor
