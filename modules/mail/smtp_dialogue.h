// SPDX-License-Identifier: GPL-3.0-or-later
// Follows an SMTP conversation from its lines: which command is being answered, and what the server said.
#pragma once

#include <QByteArray>

#include "modules/mail/sending.h"

namespace vaktor {

class DialogueSmtp {
 public:
  explicit DialogueSmtp(const RappelsEnvoi& rappels) : Rappels_(rappels) {}

  /// What we send. Only the verb is kept: what stands behind it may be a password.
  void NoteCommande(const QByteArray& ligne);
  /// One line of the server. A reply of several lines is one reply (RFC 5321, 4.2.1).
  void NoteLigne(QByteArray ligne);

  bool EstAccepte() const { return Accepte_; }  ///< 250 to the end of the data
  bool AParle() const { return Code_ != 0; }    ///< the server has said anything at all
  bool ARefuse() const { return CodeRefus_ != 0; }
  bool EnDonnees() const { return EnDonnees_; }
  bool EnAdieu() const { return Verbe_ == "QUIT"; }           ///< what is said now is about no mail, and not told
  int CodeRefus() const { return CodeRefus_; }                ///< of the last reply of 400 and above
  const QByteArray& MotsRefus() const { return MotsRefus_; }  ///< with its code
  CauseEchec CauseRefus() const;                              ///< what it means, by the command it answered

 private:
  void AcheveReponse();

  const RappelsEnvoi& Rappels_;
  QByteArray Verbe_;
  QByteArray Reponse_;  // of the lines so far
  int Code_ = 0;
  int CodeRefus_ = 0;
  QByteArray MotsRefus_;
  QByteArray VerbeRefus_;
  bool EnDonnees_ = false;  // 354 came: the next reply decides
  bool Accepte_ = false;
};

/// One line of at most 300 characters, from what a server or the system said.
QString ResumeMots(const QByteArray& mots);

}  // namespace vaktor
