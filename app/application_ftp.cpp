// SPDX-License-Identifier: GPL-3.0-or-later
// The window in which the settings of the live page are tried.
#include <QScreen>

#include "app/application.h"
#include "companions/live_rehearsal.h"
#include "texts/language.h"
#include "ui/window/window_placement.h"

namespace vaktor {

// What is tried stands in the fields, not in the settings: an emptied field keeps its last setting.
void Vaktor::EssaiePageLive() {
  if (Etat_.EnFermeture) return;
  if (!FrmEssaiFtp_) {
    FrmEssaiFtp_ = std::make_unique<FrmEssaiFtp>(PortsFrmEssaiFtp{
        Systeme_.EssaiFtp,
        [this] {
          const PageFtp& page = Form1_->Ftp();
          return ComposeDemandeEssaiFtp(
              {page.TxtFtp->text(), page.TxtUserName->text(), page.TxtPass->text(), page.TxtFTPracine->text()},
              Reglages_.LangueCourante);
        },
        [this] { return Form1_->Ftp().TxtFtp->text(); }});
    FrmEssaiFtp_->EcritMots(LangueParlee(Reglages_.LangueCourante));
    PlaceFrmEssaiFtp();
  }
  FrmEssaiFtp_->Essaie();
}

// Beside the fields that are to be put right, and beside the monitor as far as there is room.
void Vaktor::PlaceFrmEssaiFtp() {
  QRect occupe = Form1_->frameGeometry();
  if (Moniteur().isVisible()) occupe |= Moniteur().frameGeometry();
  const QSize taille = FrmEssaiFtp_->sizeHint();
  FrmEssaiFtp_->move(PlaceFenetre(Form1_->screen()->availableGeometry(), occupe, taille));
}

}  // namespace vaktor
