// SPDX-License-Identifier: GPL-3.0-or-later
// The rehearsal of the live page: a small file goes the way of a live image, now, with every step told.
#pragma once

#include "modules/common/rehearsal_program.h"
#include "modules/common/trial_image.h"
#include "modules/ftp/ftp_dialogue.h"
#include "modules/ftp/rehearsal_advice.h"

namespace vaktor {

struct PortsRepetition {
  /// Does one job with the server, as ClientFtp::Execute. What the server says meanwhile goes to Entend.
  std::function<ResultatFtp(const TravailFtp& travail)> Execute;
  EcritureLigne Ecrit;
  std::function<void(bool)> SurFichier;  ///< something of ours may lie on the server from now on, or lies there no more
  std::function<bool()> EstInterrompue;  ///< the user wants no more of it
  /// Puts into the access what its server has to show again; may be empty.
  std::function<void(AccesFtp& acces)> Rappelle = {};
  QString Marque;  ///< makes the names of this rehearsal; letters and digits
};

/// One rehearsal. What it does: connects, logs in, enters the folder, uploads a picture of kTailleImage bytes the way
/// live images go, replaces it by another upload, asks for its size, deletes it. Its names are its own ("vaktor-try-"
/// and the mark), so that it can run beside a live page and touches none of its files. A file that a failure leaves
/// behind is deleted as far as the server lets us; where it does not, the sentence says so.
class RepetitionFtp {
 public:
  static constexpr qsizetype kTailleImage = kTailleImageEssai;

  explicit RepetitionFtp(PortsRepetition ports);

  /// `demande`: one JSON object with the keys of the store's section FTP ("ftp", "user", "racine"), "pass" in clear,
  /// and "langue". Nothing of it is saved. The last line says what happened and what to change; the password is in none
  /// of the lines.
  FinRepetition Joue(const QByteArray& demande);
  /// A line of the server, see SurReplique.
  void Entend(const QByteArray& verbe, const QByteArray& ligne);

 private:
  /// Whether a file of ours lies there.
  enum class Trace { kAucune, kPossible, kSure };

  CauseEssai Essaie();
  ResultatFtp Execute(GenreTravail genre, const QString& nom);
  CauseEssai Echoue(const ResultatFtp& resultat);
  /// Deletes what lies there; gives the names of those that may lie there still.
  QStringList EffaceTout();
  /// False when it may lie there still.
  bool Efface(const QString& nom, Trace& trace);
  void Dis(const QString& ligne);
  QString Nettoie(const QString& ligne) const;

  PortsRepetition Ports_;
  QString Nom_, Provisoire_;
  AccesFtp Acces_;
  QString Derniere_;   // the line that was told last
  QByteArray Refuse_;  // verb of the last command that was refused
  bool Salue_ = false;
  bool Muette_ = false;  // while tidying up after a failure: what fails then is no news
  qint64 Taille_ = -1;   // as the server says, -1: it does not
  Trace TraceProvisoire_ = Trace::kAucune, TraceNom_ = Trace::kAucune;
  Trace* Cible_ = &TraceNom_;  // of the file that a deletion means; an upload deletes only what it replaces
};

}  // namespace vaktor
