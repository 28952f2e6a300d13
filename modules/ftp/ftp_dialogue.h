// Listens to what the library and the server say to each other: for the steps of a connection, and for the server's own
// words when something is refused.
#pragma once

#include <QByteArray>

#include "modules/ftp/ftp_worker.h"

namespace vaktor {

class DialogueFtp {
 public:
  explicit DialogueFtp(const OuvrierFtp::SurEtape& etape) : Etape_(etape) {}

  /// A line of ours. Only its verb is kept: what stands behind it may be a password.
  void NoteCommande(const QByteArray& ligne);
  /// What the server said, one line or several.
  void NoteReponse(const QByteArray& lignes);

  /// The last refusal that matters, one line of at most 300 characters; empty when nothing was refused. A server that
  /// does not know TLS or the extended passive mode refuses these, and that is no failure.
  const QByteArray& Refus() const { return Refus_; }
  int CodeRefus() const { return Refus_.left(3).toInt(); }

 private:
  void NoteLigne(const QByteArray& ligne);

  const OuvrierFtp::SurEtape& Etape_;
  QByteArray Verbe_;
  QByteArray Refus_;
  bool Salue_ = false;
};

}  // namespace vaktor
