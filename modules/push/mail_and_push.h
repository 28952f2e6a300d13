// SPDX-License-Identifier: GPL-3.0-or-later
// The mail companion as a whole: mails, and pushes beside them.
#pragma once

#include <memory>

#include "modules/push/push_module.h"

namespace vaktor {

/// Both hear everything, with one exception: who has given an address for pushes and none for mails is not told at
/// each alarm that mails lack an address, and hears by push what the watch has to say of itself.
class ModuleMailEtPush : public Module {
 public:
  ModuleMailEtPush(std::unique_ptr<Module> mail, std::unique_ptr<ModulePush> push)
      : Mail_(std::move(mail)), Push_(std::move(push)) {}

  void PrendReglages(const ReglagesModule& reglages) override {
    // What has no "@" is the prompt of an empty field, but for the mail program of the system, which knows local names.
    const QString adresse = reglages.Valeurs.MailDestination.trimmed();
    SansMail_ = adresse.isEmpty() || (reglages.Valeurs.SmtpActif && !adresse.contains(u'@'));
    Push_->FaitLaVeille(SansMail_);
    Push_->PrendReglages(reglages);
    Mail_->PrendReglages(reglages);
  }
  void Enregistre(Inscription comment) override {
    Push_->Enregistre(comment);
    Mail_->Enregistre(comment);
  }
  void ExecuteCommande(Commande commande) override {
    Push_->ExecuteCommande(commande);
    if (SansMail_ && Push_->EstVoulu()) return;
    Mail_->ExecuteCommande(commande);
  }
  /// The mail's end is the end of both: it may wait for a mail under way, a push waits on disk.
  void Termine() override {
    Push_->Termine();
    Mail_->Termine();
  }

 private:
  std::unique_ptr<Module> Mail_;
  std::unique_ptr<ModulePush> Push_;
  bool SansMail_ = false;
};

}  // namespace vaktor
