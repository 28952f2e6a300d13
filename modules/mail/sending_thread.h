// SPDX-License-Identifier: GPL-3.0-or-later
// The thread that empties the outbox, so that the companion hears its commands whatever a server does.
#pragma once

#include <QObject>
#include <QString>
#include <QThread>
#include <functional>
#include <memory>

#include "modules/mail/postman.h"

namespace vaktor {

/// Port of the mail companion's rules: what takes the mails out of the outbox.
class Poste {
 public:
  virtual ~Poste() = default;
  /// How to send from now on. Settings that differ from those before make all mails due at once. Nothing is sent before
  /// the first call.
  virtual void ChangeReglages(const ReglagesEnvoi& reglages) = 0;
  /// A mail was put into the outbox.
  virtual void Reveille() = 0;
  /// A mail that the disk does not take: it is sent from memory, and lost with the process.
  virtual void Confie(const CourrielEnAttente& courriel, const QByteArray& message) = 0;
  /// No further mail; one whose data the server has is given a few seconds. `fini` is called from the event loop.
  virtual void Arrete(std::function<void()> fini) = 0;
};

struct ReglagesFil {
  QString Dossier;  ///< of the outbox
  QString Marque;   ///< of this process: drafts with it in their name are left alone when the outbox is put in order
  int CourrielsParHeure = PlafondHoraire::kCourrielsParHeure;
  qint64 RepriseBrouillons = 60'000;  ///< milliseconds until drafts of another run that could not leave are tried again
};

/// Reports come from the event loop of the thread that made it. Of several processes with one outbox only one sends:
/// the others wait until it has ended.
class FilEnvoi : public Poste {
 public:
  FilEnvoi(const ReglagesFil& reglages, const Facteur::Rapporteur& surRapport);
  ~FilEnvoi() override;
  FilEnvoi(const FilEnvoi&) = delete;
  FilEnvoi& operator=(const FilEnvoi&) = delete;

  void ChangeReglages(const ReglagesEnvoi& reglages) override;
  void Reveille() override;
  void Confie(const CourrielEnAttente& courriel, const QByteArray& message) override;
  void Arrete(std::function<void()> fini) override;

 private:
  struct Partage;
  QObject Contexte_;  // reports that are still under way are dropped with it
  std::shared_ptr<Partage> Partage_;
  QThread* Fil_;
};

}  // namespace vaktor
