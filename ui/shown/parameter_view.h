// The controls that a load of the parameters fills, by their names.
#pragma once

#include "settings/parameters.h"
#include "settings/ports/settings_display.h"
#include "ui/window/main_window.h"

namespace vaktor {

/// Owner: app/. User-interface thread.
class VueParametres : public AffichageParametres {
 public:
  VueParametres(const Parametres& reglages, Form1& fenetre) : Reglages_(reglages), Fenetre_(fenetre) {}

  void MontreParametre(ControleParametre controle) override;

 private:
  void MontreSkin();
  void MontreMoniteur(ControleParametre controle);
  void MontreMail(ControleParametre controle);
  void MontreFtp(ControleParametre controle);

  const Parametres& Reglages_;
  Form1& Fenetre_;
};

}  // namespace vaktor
