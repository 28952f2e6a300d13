// The mail companion: hears the alarm, makes the mails, hands them to the outbox.
#pragma once

#include "modules/common/module_program.h"

namespace vaktor {

class ModuleMail : public Module {
 public:
  explicit ModuleMail(const ContexteModule& contexte) : Contexte_(contexte) {}

  void PrendReglages(const ReglagesModule& reglages) override;
  void ExecuteCommande(const QString& mot) override;
  void Termine() override;

 private:
  ContexteModule Contexte_;
};

}  // namespace vaktor
