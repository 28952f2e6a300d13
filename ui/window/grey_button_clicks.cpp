// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/grey_button_clicks.h"

#include <QAbstractButton>

namespace vaktor {

void BrancheBoutonsGris(Form1& fenetre, const ActionsBoutonsGris& actions) {
  const auto branche = [&fenetre](const BoutonImage* bouton, const std::function<void()>& action) {
    QObject::connect(bouton, &QAbstractButton::clicked, &fenetre, action);
  };
  branche(fenetre.Moniteur().BoutonGris0, actions.OuvreGalerie);
  branche(fenetre.Moniteur().BoutonGris1, actions.OuvreMiseAJour);
  branche(fenetre.Ftp().BoutonGris2, actions.CreationPageLive);
  branche(fenetre.Ftp().BoutonGris3, actions.TestPageLive);
  branche(fenetre.Options().BoutonGris6, actions.MontreFormSound);
  branche(fenetre.Options().BoutonGris7, actions.OuvreNotice);
  branche(fenetre.Mail().BoutonGris8, actions.MontreFrmSmtp);
  branche(fenetre.Ftp().BoutonEssaiFtp, actions.EssaiePageLive);
}

}  // namespace vaktor
