// SPDX-License-Identifier: GPL-3.0-or-later
// The thread that empties the outbox of pushes, so that the companion hears its commands whatever a server does.
#pragma once

#include <QObject>
#include <QThread>
#include <functional>
#include <memory>

#include "modules/push/push_postman.h"

namespace vaktor {

/// Port of the rules: what takes the pushes out of the outbox.
class PostePush {
 public:
  virtual ~PostePush() = default;
  /// Where they go from now on; nothing is sent before the first call, nor while there is no address.
  virtual void ChangeReglages(const ReglagesPush& reglages) = 0;
  /// One was put into the outbox.
  virtual void Reveille() = 0;
};

/// Reports come from the event loop of the thread that made it, and none after its end. At its end a push under way is
/// cut and stays in the outbox; a thread that a name server holds up is left behind after two seconds.
class FilPush : public PostePush {
 public:
  FilPush(const QString& dossier, const FacteurPush::Rapporteur& surRapport);
  ~FilPush() override;
  FilPush(const FilPush&) = delete;
  FilPush& operator=(const FilPush&) = delete;

  void ChangeReglages(const ReglagesPush& reglages) override;
  void Reveille() override;

 private:
  struct Partage;
  QObject Contexte_;  // reports that are still under way are dropped with it
  std::shared_ptr<Partage> Partage_;
  QThread* Fil_;
};

}  // namespace vaktor
