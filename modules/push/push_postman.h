// SPDX-License-Identifier: GPL-3.0-or-later
// Which push goes next, and when. Rules only: time and sender are handed in.
#pragma once

#include <QHash>
#include <QSet>
#include <array>
#include <functional>

#include "modules/push/push_outbox.h"

namespace vaktor {

struct RapportPush {
  QString Nom;
  ResultatPush Resultat;
  bool Abandonne = false;        ///< it is gone and was not taken
  qint64 ProchainEssaiDans = 0;  ///< milliseconds; 0 when none follows
  bool Abime = false;            ///< it is gone: it was no push
};

/// The newest first: it is what counts now. All go to one server, so that what fails for the server's sake holds up all
/// of them, for longer each time; a push that has just been made, or other settings, are tried at once. A push that the
/// server does not want is given up; one too large for it goes without its picture. One that is cut off on its way
/// waits by itself, for longer each time, and the next one goes first; when kCoupuresMax in a row were, all wait.
class FacteurPush {
 public:
  static constexpr std::array<qint64, 8> kAttentes = {10'000,  30'000,  60'000,  120'000,
                                                      300'000, 600'000, 900'000, 1'800'000};
  static constexpr qint64 kRienAFaire = 3'600'000;
  static constexpr size_t kCoupuresMax = 5;
  static constexpr qint64 kSursis = 3'600'000;  ///< for so long one that is too old is tried all the same; as a mail

  using Envoyeur = std::function<ResultatPush(const MessagePush& message)>;
  using Rapporteur = std::function<void(const RapportPush& rapport)>;

  FacteurPush(SacPush boite, std::function<qint64()> maintenant, Envoyeur envoie, Rapporteur rapporte)
      : Sac_(std::move(boite)),
        Maintenant_(std::move(maintenant)),
        Envoie_(std::move(envoie)),
        Rapporte_(std::move(rapporte)) {}

  /// Other settings, or a new push: nothing waits any longer for the server's sake.
  void Recommence();
  /// Sends one at most. Milliseconds until there is something to do again; 0: at once.
  qint64 Tour();

 private:
  qint64 Juge(const QString& nom, const MessagePush& message, const ResultatPush& resultat);
  qint64 EssaieLePremier(const QStringList& noms, qint64 maintenant);
  void Oublie(const QString& nom);
  qint64 Reporte(const QString& nom, const ResultatPush& resultat);
  qint64 AttendTous(size_t fois);
  qint64 AttenteDe(const QString& nom, qint64 maintenant) const;

  SacPush Sac_;
  std::function<qint64()> Maintenant_;
  Envoyeur Envoie_;
  Rapporteur Rapporte_;
  QHash<QString, qint64> Echus_;  // too old when they were tried, and when that was first so
  QSet<QString> SansImage_;       // too large for the server with its picture
  QSet<QString> Partis_;          // taken, though the disk may keep their file
  size_t Echecs_ = 0;             // in a row, for the server's sake
  size_t Coupures_ = 0;           // in a row
  qint64 PasAvant_ = 0;           // milliseconds since 1970
  struct Report {
    size_t Fois = 0;
    qint64 PasAvant = 0;
  };
  QHash<QString, Report> Reports_;  // of those that were cut off
};

}  // namespace vaktor
