// SPDX-License-Identifier: GPL-3.0-or-later
// The postman: which mail of the outbox is tried when, and what follows from each answer. Rules only: what sends, and
// the time, are handed in; runs on the sending thread.
#pragma once

#include <QHash>
#include <QMap>
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
  /// Hands the mail over to `courriel.Destinataires`, those who are still to get it, and calls `surAccepte` the very
  /// moment that the server has it.
  using Envoyeur = std::function<ResultatEnvoi(const CourrielEnAttente& courriel, const QByteArray& message,
                                               const std::function<void(const QList<VerdictAdresse>&)>& surAccepte)>;
  using Rapporteur = std::function<void(const RapportEnvoi& rapport)>;

  static constexpr qint64 kRienAFaire = 60LL * 1000;  ///< milliseconds until the next look at an empty box
  /// After so many refused logins in a row none is tried for kReposConnexion: providers close accounts that go on.
  static constexpr int kRefusConnexionMax = 5;
  static constexpr qint64 kReposConnexion = 6LL * 3600 * 1000;
  /// The longest wait for a server that nobody finds: asking again costs nobody anything, and after an outage the alarm
  /// is not to wait for half an hour.
  static constexpr qint64 kAttenteReseauMax = 120LL * 1000;
  /// So many mails that broke off in their data, one after the other, say something about the way.
  static constexpr int kCoupuresMax = 5;
  static constexpr int kEnMemoireMax = 50;
  /// For so long a mail that is too old is tried all the same: a clock that was put right, or a machine that has slept,
  /// makes all of them old at one stroke, and the network comes back a little later.
  static constexpr qint64 kSursis = 3600LL * 1000;

  /// `maintenant` gives milliseconds since 1970.
  Facteur(SacPostal sac, PlafondHoraire& plafond, std::function<qint64()> maintenant, Envoyeur envoie,
          Rapporteur rapporte);

  /// Tries at most one mail that is due: those of the watch first and in their order, then the newest, since what
  /// happens now matters more than what waited. Gives the milliseconds until the next round is worth while, 0 for at
  /// once. A failure that says nothing about the mail itself (no network, login refused) holds up all mails, each time
  /// for longer; one about the mail alone holds up that mail and lets the others pass. A mail of now that was never
  /// tried is, once, whatever holds up the others: the network may be back.
  qint64 Tour();
  /// The settings were changed: all mails are due at once. `adresses`: the destinations of the settings.
  void Recommence(const QStringList& adresses = {});
  /// A mail that the disk does not take. It is forgotten as soon as the outbox has one of its name; of more than
  /// kEnMemoireMax the oldest are given up, those of the watch last.
  void Confie(const CourrielEnAttente& courriel, const QByteArray& message);

 private:
  struct EnMemoire {
    CourrielEnAttente Courriel;
    QByteArray Message;
  };

  QList<CourrielEnAttente> DonneOrdre();
  void PrendSort(CourrielEnAttente& courriel) const;
  qint64 EssaieLePremier(const QList<CourrielEnAttente>& liste, qint64 maintenant);
  qint64 EssaieUnNouveau(qint64 maintenant, qint64 sinon);
  bool EstFrais(const CourrielEnAttente& courriel, qint64 maintenant) const;
  qint64 Essaie(const CourrielEnAttente& courriel);
  qint64 EssaieUneFois(CourrielEnAttente courriel);
  ResultatEnvoi Remet(CourrielEnAttente& courriel, const QByteArray& message);
  qint64 TraiteEchec(const CourrielEnAttente& courriel, const ResultatEnvoi& resultat);
  qint64 TraiteEchecDuCourriel(const CourrielEnAttente& courriel, const ResultatEnvoi& resultat);
  qint64 TraiteEchecDuServeur(const CourrielEnAttente& courriel, const ResultatEnvoi& resultat);
  qint64 Reporte(const CourrielEnAttente& courriel);
  void MetDeCote(const CourrielEnAttente& courriel);
  void NoteEssai(const CourrielEnAttente& courriel);
  QSet<QString> DonneEchus(qint64 maintenant) const;
  void GardeSort(const CourrielEnAttente& courriel);
  void NoteAccepte(CourrielEnAttente& courriel, const QList<VerdictAdresse>& verdicts);
  qint64 AttenteDuCourriel(const CourrielEnAttente& courriel, qint64 maintenant);
  void NoteSucces();

  SacPostal Sac_;
  PlafondHoraire& Plafond_;
  std::function<qint64()> Maintenant_;
  Envoyeur Envoie_;
  Rapporteur Rapporte_;
  int EchecsDeSuite_ = 0;               // of the way to the server
  int RefusConnexion_ = 0;              // logins refused since the last that was taken
  int Coupures_ = 0;                    // mails in a row that broke off in their data
  qint64 PasAvant_ = 0;                 // no mail at all before
  qint64 PasAvantDepuis_ = 0;           // when that was decided
  QHash<QString, qint64> Reportes_;     // the next attempt of a mail, also where the disk could not take the note
  QHash<QString, SortCourriel> Sorts_;  // likewise
  QHash<QString, qint64> RefusesA_;     // when a mail was put aside in this run, likewise
  QMap<QString, EnMemoire> Memoire_;
  QSet<QString> Partis_;          // accepted: never again, even if the disk kept the file
  QSet<QString> Essayes_;         // those that stayed
  QHash<QString, qint64> Echus_;  // those that were too old when they were tried in vain, and when that was first so
};

}  // namespace vaktor
