// How the user learns that a companion could not do its work: a notification on the desktop, once a failure, and a file
// that says what happened, in the server's own words, and what to do.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "engine/ports/clock.h"

namespace vaktor {

/// One failure, told in both languages.
struct AvisEchec {
  QString Sujet;        ///< names the failure for the program ("smtp-login"): same name, same failure
  QString MotsServeur;  ///< what the other side said, as it said it; empty when nobody said anything
  QString Francais;     ///< one sentence: what happened and what to do
  QString English;
  bool operator==(const AvisEchec&) const = default;
};

/// Writes "<name>.json" into the state folder: mode 0600, replaced whole. Fields: "program", "state" ("ok" or
/// "failure"), "since" (local date and time), "subject", "server", "fr", "en".
class EtatModule {
 public:
  using Notifieur = std::function<void(const QString& titre, const QString& texte)>;

  /// `notifie` shows one notification and returns at once; may be empty.
  EtatModule(const QString& dossier, const QString& nom, const Horloge& temps, Notifieur notifie);

  /// Language of the notifications: 0 French, 1 English, any other: French.
  void ChangeLangue(qint32 langue) { Langue_ = langue; }
  void CacheSecret(const QString& secret);

  /// Writes the file, and notifies unless the same subject was the last one told: a server that is down for a day is
  /// one notification. The very same failure again costs nothing.
  void Signale(const AvisEchec& avis);
  /// All is well again: the file says so, and the same failure later is a new one.
  void Efface();

  const QString& Chemin() const { return Chemin_; }

 private:
  void Ecrit(const QString& etat, const AvisEchec& avis) const;

  QString Chemin_;
  QString Nom_;
  const Horloge& Temps_;
  Notifieur Notifie_;
  QStringList Secrets_;
  AvisEchec Dernier_;
  bool EcritBon_ = false;
  qint32 Langue_ = 0;
};

/// Shows a notification through the desktop's "notify-send", started without waiting, without a shell; nothing
/// happens where that program is not installed.
void NotifieBureau(const QString& titre, const QString& texte);

}  // namespace vaktor
