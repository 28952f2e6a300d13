// SPDX-License-Identifier: GPL-3.0-or-later
// How the user learns that a companion could not do its work: a notification on the desktop, once a failure, and a file
// that says what happened, in the server's own words, and what to do.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <functional>

#include "engine/ports/clock.h"
#include "texts/phrase.h"

namespace vaktor {

/// One failure, told in every language.
struct AvisEchec {
  QString Sujet;        ///< names the failure for the program ("smtp-login"): same name, same failure
  QString MotsServeur;  ///< what the other side said, as it said it; empty when nobody said anything
  PhraseDite Mots;      ///< one sentence: what happened and what to do
  bool operator==(const AvisEchec&) const = default;
};

/// Writes "<name>.json" into the state folder: mode 0600, replaced whole. Fields: "program", "state" ("ok" or
/// "failure"), "since" (local date and time), "subject", "server", and one a language ("fr", "en"); once started
/// "handle", "started" and "alive"; and those of the companion itself.
class EtatModule {
 public:
  /// Milliseconds between two writings for a field of the companion's own that only got another value.
  static constexpr qint64 kRythme = 5000;
  /// Milliseconds between two signs of life.
  static constexpr qint32 kBattement = 60'000;

  using Notifieur = std::function<void(const QString& titre, const QString& texte)>;

  /// `notifie` shows one notification and returns at once; may be empty.
  EtatModule(const QString& dossier, const QString& nom, const Horloge& temps, Notifieur notifie);

  /// The first of all: from now on the file tells whose it is, by the handle of the command window with which this
  /// process registers, so that a reader does not take what an earlier one left for news. What failed before, or went
  /// well, still stands.
  void Demarre(qint32 poignee, qint64 maintenant);
  /// The companion lives, and its file says so: written at once, with what still had to wait. Who reads the file takes
  /// one that has not changed for some minutes for one that can no longer be written.
  void Bat(qint64 maintenant);
  /// A field of the companion's own; an empty `valeur` takes it away. Written at once when it comes or goes, else every
  /// kRythme at most: a value that has to wait is written by the next call.
  void NoteChamp(const QString& champ, const QString& valeur);
  /// A moment as it stands in such a field: ISO 8601, UTC, so that summer time ends without an hour that counts twice.
  static QString EcritInstant(qint64 millisecondes);

  /// Language of the notifications.
  void ChangeLangue(Langue langue) { Parlee_ = langue; }
  void CacheSecret(const QString& secret);

  /// Writes the file, and notifies unless the same subject was the last one told: a server that is down for a day is
  /// one notification. The very same failure again costs nothing.
  void Signale(const AvisEchec& avis);
  /// All is well again: the file says so, and the same failure later is a new one.
  void Efface();

  const QString& Chemin() const { return Chemin_; }

 private:
  void Change(const QString& etat, const AvisEchec& avis);
  void Ecrit();
  QString DonneDate() const;
  bool RelitAncien();

  QString Chemin_;
  QString Nom_;
  const Horloge& Temps_;
  Notifieur Notifie_;
  QStringList Secrets_;
  AvisEchec Dernier_;
  QJsonObject Constat_;  // "state" and what belongs to it, cleaned
  QJsonObject Champs_;
  bool Retenu_ = false;  // a value waits
  quint32 EcritA_ = 0;   // counter of the clock
  bool EcritBon_ = false;
  Langue Parlee_ = Langue::kFrancais;
};

/// Shows a notification through the desktop's "notify-send", started without waiting, without a shell; nothing
/// happens where that program is not installed.
void NotifieBureau(const QString& titre, const QString& texte);

}  // namespace vaktor
