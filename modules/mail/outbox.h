// SPDX-License-Identifier: GPL-3.0-or-later
// The outbox: every mail lies on disk, whole, before the first attempt to send it, and leaves the disk only when a
// server has taken it or it is given up. It survives a kill and a power cut.
//
// A folder of mode 0700. One mail has one name and one file, whose ending tells where the mail stands:
//   NAME.draft    still gathering photos, or about to be sent. As below, but where the first line says "recipe": true
//                 there is no message yet, only what it is made of (drafts.h), also after a kill
//   NAME.mail     to be sent. First line JSON (made, from, to, and first: true where it goes before others), then the
//                 message. Never changed
//   NAME.try      beside it, after attempts that failed for this mail alone: how many, and when next
//   NAME.rcpt     beside it, once servers have said different things of its addresses, or that it is too large: who has
//                 it already, who was refused, and whether it goes without its photos from now on
//   NAME.sent     a server has taken it; about to be removed
//   NAME.refused  a server has refused it for good; put back when the user changes the settings, and every six hours
//   NAME.bad      damaged, kept for a person to look at
// Each step from one to the next is one rename, flushed to the disk. A mail is sent twice only when the machine stops
// between the server's "250" and the rename to ".sent"; both copies then carry the same Message-ID.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <optional>

#include "modules/mail/mail_fate.h"

namespace vaktor {

struct CourrielEnAttente {
  QString Nom;  ///< name of the file without its ending; sorts by the time it was made
  QString Expediteur;
  QStringList Destinataires;
  qint64 FaitA = 0;          ///< milliseconds since 1970, UTC
  bool Prioritaire = false;  ///< of the watch: goes before all that are not
  int Essais = 0;            ///< failed attempts of this mail alone
  qint64 ProchainEssai = 0;  ///< milliseconds since 1970; not before
  SortCourriel Sort = {};
};

/// Holds nothing but the folder's name: each thread may have its own.
class SacPostal {
 public:
  static constexpr int kCourrielsMax = 2000;
  static constexpr int kMauvaisMax = 20;                      ///< damaged ones that are kept, the newest
  static constexpr qint64 kOctetsMax = 1024LL * 1024 * 1024;  ///< beyond it new mails are made without photos
  static constexpr qint64 kAgeMaxMs = 7LL * 24 * 3600 * 1000;
  static constexpr qint64 kRepriseRefuseMs = 6LL * 3600 * 1000;  ///< after which a refused mail is tried again

  /// The folder is made when it is not there.
  explicit SacPostal(const QString& dossier);

  /// Names of the drafts but for those that hold `saufMarque`; with an empty mark of all. Gives the system's error
  /// number when the folder could not be listed.
  int ListeBrouillons(const QString& saufMarque, QStringList& noms) const;
  /// Removes what a kill left half-written or already sent, but for names that hold `saufMarque`.
  void RetireRestes(const QString& saufMarque);
  /// Keeps a little room on the disk for PoseBrouillon and PoseRecette, which use it up when there is no other. To be
  /// called from time to time.
  void TientReserve() const;
  /// Puts a mail on disk as a draft, in the place of an earlier draft of that name. Gives the system's error number,
  /// 0 when it is there.
  int PoseBrouillon(const CourrielEnAttente& courriel, const QByteArray& message);
  /// The same with what the message will be made of.
  int PoseRecette(const CourrielEnAttente& courriel, const QByteArray& recette);
  /// What was given to PoseRecette; nothing for a draft with a message, and for a damaged one. Gives the system's error
  /// number where it cannot be told at this moment, or there is no such draft.
  int LitBrouillon(const QString& nom, CourrielEnAttente& courriel, std::optional<QByteArray>& recette) const;
  /// From now on the draft may be sent. False, with errno, when the system refuses.
  bool Publie(const QString& nom);

  /// All mails to be sent, oldest first, but for those that cannot be read at this moment. What is damaged is passed
  /// over, and where `mauvais` is given becomes NAME.bad: then its names are those.
  QList<CourrielEnAttente> Liste(QStringList* mauvais = nullptr) const;
  /// Names of all mails, in whichever state. Nothing when the folder cannot be listed at this moment.
  std::optional<QStringList> DonneNoms() const;
  /// When the oldest mail that is to be sent was made, milliseconds since 1970; of one that cannot be read at this
  /// moment, when its file was written. So do drafts that do not hold `marque`, which another run has left; with an
  /// empty mark no drafts. Gives the system's error number when the folder could not be listed.
  int LitPlusAncien(std::optional<qint64>& faitA, const QString& marque = {}) const;
  /// Empty when it cannot be read whole.
  QByteArray LitMessage(const QString& nom) const;
  qint64 DonneOctets() const;  ///< all files together

  /// Keeps `courriel.Sort`, of a mail that stays. False when the disk does not take it.
  bool NoteSort(const CourrielEnAttente& courriel);
  /// The server has it: it leaves the box for good, its draft too where there is one.
  void Acheve(const QString& nom);
  /// A failed attempt that says something about this mail alone; when next is told by the schedule below.
  void Reporte(const CourrielEnAttente& courriel, qint64 maintenant);
  /// The server has refused it for good, `maintenant` (milliseconds since 1970).
  void MetDeCote(CourrielEnAttente courriel, qint64 maintenant);
  /// The settings were changed: everything may be tried at once, what was refused too. Where an address was refused and
  /// `adresses`, those of the settings, hold others than the mail has, it goes to these instead.
  void RemetTout(const QStringList& adresses = {});
  /// Puts back what was refused kRepriseRefuseMs ago or more, and what a clock that was set back would keep for ever,
  /// but for `sauf`.
  void RemetLesAnciens(qint64 maintenant, const QSet<QString>& sauf);
  /// Gives up what is too old or too much, the oldest first, refused ones too; the names given up. Too old is only what
  /// is among `echus`, the mails that were tried long enough although they are: by a clock that was set forward all of
  /// them are.
  QStringList Elague(qint64 maintenant, const QSet<QString>& echus);
  /// How the name of a mail made at `faitA` (milliseconds since 1970) begins so that it sorts by the time: behind all
  /// that are in the box, also when the clock was set back since they were made.
  QString DonneRang(qint64 faitA) const;

  /// Milliseconds after the n-th failed attempt: 10, 30 s, 1, 2, 5, 10, 15 min, then every 30 min.
  static qint64 AttenteApresEssai(int essais);

 private:
  QString Chemin(const QString& nom, const char* fin) const;
  int Ecrit(const QString& chemin, const QByteArrayList& parties) const;
  void LitEssais(CourrielEnAttente& courriel) const;
  std::optional<qint64> LitInstant(const QString& chemin) const;
  std::optional<CourrielEnAttente> LitCourriel(const QString& nom, const char* fin) const;
  void RemetRefuse(const QString& nom, const QStringList& adresses);

  QString Dossier_;
};

}  // namespace vaktor
