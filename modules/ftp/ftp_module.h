// The FTP companion's rules. So far it comes and goes; connecting and publishing follow.
#pragma once

#include "modules/common/module_program.h"

namespace vaktor {

class ModuleFtp : public Module {
 public:
  explicit ModuleFtp(const ContexteModule& contexte) : Contexte_(contexte) {}

  void PrendReglages(const ReglagesModule& reglages) override;
  /// "*OKO*": once for each main program, behind "HWND:".
  void Enregistre() override;
  void ExecuteCommande(const QString& mot) override;
  void Termine() override;

 private:
  ContexteModule Contexte_;
};

}  // namespace vaktor
