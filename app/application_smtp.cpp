// SPDX-License-Identifier: GPL-3.0-or-later
// The opening and the going of the form of the mail settings, which lives from its opening to its close. A change of
// language does not make it: each opening reads the accounts anew, and the first may put the default one into an empty
// configuration, which nobody asked for at a start.
#include "app/application.h"
#include "base/failure.h"

namespace vaktor {

// An open form comes to the front as it is. While it still reads the accounts, events run: a second request finds it
// made and leaves it alone; the first one shows it.
void Vaktor::MontreFrmSmtp() {
  if (Etat_.EnFermeture) return;
  if (FrmSmtp_) {
    if (FrmSmtp_->isVisible()) FrmSmtp_->Montre();
    return;
  }
  FrmSmtp_ = std::make_unique<FrmSmtp>(PortsFrmSmtp{Reglages_, *Sauvegarde_, Textes_, Etat_, Systeme_.Boites,
                                                    Systeme_.Pompe, Systeme_.Comptes, Comptes_, Systeme_.EssaiMail});
  // Deleted later: the form is still inside its own close.
  QObject::connect(FrmSmtp_.get(), &FrmSmtp::Dechargee, Form1_.get(), [this] { FrmSmtp_.release()->deleteLater(); });
  try {
    FrmSmtp_->Charge();
  } catch (...) {
    FrmSmtp_.reset();  // an opening that failed leaves nothing behind: the next one reads everything again
    throw;
  }
  if (Etat_.EnFermeture) return;
  FrmSmtp_->EcritMots();
  FrmSmtp_->Montre();
}

void Vaktor::DechargeFrmSmtp() {
  if (FrmSmtp_) EssaieJusquauBout([this] { FrmSmtp_->Decharge(); });
}

}  // namespace vaktor
