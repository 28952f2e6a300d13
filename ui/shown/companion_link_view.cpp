// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/shown/companion_link_view.h"

#include "ui/fields/field_events.h"

namespace vaktor {

namespace {
constexpr int kPageFtp = 2;
}  // namespace

void VueLiaison::MontreStatut(Libelle statut) { EcritStatut(Textes_.Dit(statut)); }

void VueLiaison::MontreStatutLitteral(const Phrase& statut) { EcritStatut(statut.Dit(Textes_.Parlee())); }

void VueLiaison::EcritStatut(const QString& texte) { Fenetre().Bandeau().LblDebugftp->setText(texte); }

void VueLiaison::RougitChamp(ChampLiaison champ) { vaktor::RougitChamp(*TrouveChamp(champ), true); }

void VueLiaison::NoircitRacine() { vaktor::RougitChamp(*Fenetre().Ftp().TxtFTPracine, false); }

QLineEdit* VueLiaison::TrouveChamp(ChampLiaison champ) const {
  PageFtp& page = Fenetre().Ftp();
  switch (champ) {
    case ChampLiaison::kTxtFtp:
      return page.TxtFtp;
    case ChampLiaison::kTxtFTPracine:
      return page.TxtFTPracine;
    case ChampLiaison::kTxtUserName:
      return page.TxtUserName;
    case ChampLiaison::kTxtPass:
      break;
  }
  return page.TxtPass;
}

void VueLiaison::MontrePageFtp() { Fenetre().AmenePage(kPageFtp); }

bool VueLiaison::DemandeParametresSite() {
  return Boites_.MontreMessage(Textes_.Dit(Message::kSiteIncomplet), Textes_.Dit(Message::kTitreManque),
                               BoutonsBoite::kOkAnnuler) == ReponseBoite::kOk;
}

}  // namespace vaktor
