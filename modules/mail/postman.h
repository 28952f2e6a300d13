// SPDX-License-Identifier: GPL-3.0-or-later
// The postman: which mail of the outbox is tried when, and what follows from each answer. Rules only: what sends, and
// the time, are handed in; runs on the sending thread.
#pragma once

#include <QHash>
#include <QSet>
#include <functional>

#include "modules/mail/mail_policy.h"
#include "modules/mail/outbox.h"
#include "modules/mail/sending.h"

namespace vaktor {

/// What became of one mail.
struct RapportEnvoi {
  QString Nom;
  ResultatEnvoi Resultat;
  qint64 ProchainEssaiDans = 0;  ///< milliseconds; of a mail that stays in the box
};

class Facteur {
 public:
  /// Hands the mail over, and calls `surAccepte` the very moment that the server has it.
  using Envoyeur = std::function<ResultatEnvoi(const CourrielEnAttente& courriel, const QByteArray& message,
                                               const std::function<void()>& surAccepte)>;
  using Rapporteur = std::function<void(const RapportEnvoi& rapport)>;

  static constexpr qint64 kRienAFaire = 60LL * 1000;  ///< milliseconds until the next look at an empty box

  /// `maintenant` gives milliseconds since 1970.
  Facteur(SacPostal sac, PlafondHoraire& plafond, std::function<qint64()> maintenant, Envoyeur envoie,
          Rapporteur rapporte);

  /// Tries at most one mail: the oldest that is due, those of the watch before all others. Gives the milliseconds until
  /// the next round is worth while, 0 for at once. A failure that says nothing about the mail itself (no network, login
  /// refused) holds up all mails, each time for longer; one about the mail alone holds up that mail and lets the others
  /// pass.
  qint64 Tour();
  /// The settings were changed: all mails are due at once.
  void Recommence();

 private:
  qint64 Essaie(const CourrielEnAttente& courriel);
  qint64 EssaieUneFois(const CourrielEnAttente& courriel);
  qint64 TraiteEchec(const CourrielEnAttente& courriel, const ResultatEnvoi& resultat);
  void NoteAccepte(const QString& nom);
  qint64 AttenteDuCourriel(const CourrielEnAttente& courriel, qint64 maintenant);

  SacPostal Sac_;
  PlafondHoraire& Plafond_;
  std::function<qint64()> Maintenant_;
  Envoyeur Envoie_;
  Rapporteur Rapporte_;
  int EchecsDeSuite_ = 0;            // of the way to the server
  qint64 PasAvant_ = 0;              // no mail at all before
  QHash<QString, qint64> Reportes_;  // the next attempt of a mail, also where the disk could not take the note
  QSet<QString> Partis_;             // accepted: never again, even if the disk kept the file
  QSet<QString> Essayes_;            // those that stayed: what was never tried is not given up for its age
};

}  // namespace vaktor
