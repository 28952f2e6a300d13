// SPDX-License-Identifier: GPL-3.0-or-later
// Listens to what the library and the server say to each other: for the steps of a connection, and for the server's own
// words when something is refused.
#pragma once

#include <QByteArray>
#include <functional>

#include "modules/ftp/ftp_worker.h"

namespace vaktor {

/// One line of the server, at most 300 characters, and the verb of the command that it answers, empty for the greeting.
/// Inner lines of a long answer, which may begin with anything, are left out.
using SurReplique = std::function<void(const QByteArray& verbe, const QByteArray& ligne)>;

class DialogueFtp {
 public:
  /// Both outlive it and may be empty.
  DialogueFtp(const OuvrierFtp::SurEtape& etape, const SurReplique& replique) : Etape_(etape), Replique_(replique) {}

  /// A line of ours. Only its verb is kept: what stands behind it may be a password.
  void NoteCommande(const QByteArray& ligne);
  /// What the server said, one line or several.
  void NoteReponse(const QByteArray& lignes);

  /// The key that an SSH server shows in the place of a greeting.
  void NoteCle(const QString& cle);

  /// The last refusal that matters, one line of at most 300 characters; empty when nothing was refused. A server that
  /// does not know TLS or the extended passive mode refuses these, and that is no failure.
  const QByteArray& Refus() const { return Refus_; }
  const QByteArray& Verbe() const { return Verbe_; }  ///< of our last command
  /// Something came instead of a greeting that no FTP server says.
  bool EstEtranger() const { return Etranger_; }
  int CodeRefus() const { return Refus_.left(3).toInt(); }
  /// An upload was refused, and the library took that for something else. A server with TLS that refuses one closes the
  /// data connection too; where the library sees that first, it asks for another, and reads the refusal as the answer.
  bool EnvoiRefuseEnCroisant() const { return Croise_ && !Refus_.isEmpty(); }

 private:
  void NoteLigne(const QByteArray& ligne);

  const OuvrierFtp::SurEtape& Etape_;
  const SurReplique& Replique_;
  QByteArray Verbe_;
  QByteArray Refus_;
  bool Repondu_ = true;  // to our last command
  bool Croise_ = false;  // a command went out before the answer to an upload: the next answer is still that one
  bool Salue_ = false;
  bool Etranger_ = false;
};

}  // namespace vaktor
