// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/window_look.h"

#include <QScopeGuard>
#include <utility>

namespace vaktor {

namespace {

constexpr int kLibelleCameraMarche = 7;  // of Bouton(0) while the camera runs

}  // namespace

Habillage::Habillage(PartiesFenetre fenetre, const ServicesHabillage& services)
    : Fenetre_(std::move(fenetre)),
      Services_(services),
      Skin_(Fenetre_.Taille, PageVaktor::kPlace, Fenetre_.Fenetre.devicePixelRatioF()),
      Souris_(Fenetre_.Fenetre, Fenetre_.Bandeau, Fenetre_.Pages, services.Sons) {
  RelieBoutons();
  DessinePages();
}

Habillage::~Habillage() {
  // A window that is taken down still tells its buttons that the pointer left them.
  for (BoutonImage* bouton : Fenetre_.Fenetre.findChildren<BoutonImage*>()) bouton->Delie();
}

void Habillage::RelieBoutons() {
  const LiensBouton liens{Faces_, Services_.Sons, [this] { return Services_.Moteur.Camera().CameraActive; }};
  for (BoutonImage* bouton : Fenetre_.Fenetre.findChildren<BoutonImage*>()) bouton->Relie(liens);
}

void Habillage::ChoisitSkin() {
  Skin_.Choisit(Fenetre_.Pages.Options.CombSkin->currentIndex());
  DessinePages();
  Fenetre_.Pages.Options.repaint();
}

void Habillage::DessinePages() {
  PlacePages();
  FonduPages();
}

void Habillage::PlacePages() {
  // No tick falls into the redraw; and whatever fails in it, or in what the pump lets in, they come again.
  Services_.Moteur.SuspendTic();
  const auto reprend = qScopeGuard([this] { Services_.Moteur.ReprendTic(); });
  const auto pages = Fenetre_.Pages.Toutes();
  for (std::size_t i = 0; i < pages.size(); ++i) {
    pages[i]->MontreFond([this, i] { return Skin_.ChargePage(i); }, Skin_.Echelle());
    pages[i]->setGeometry(PageVaktor::kPlace);
  }
  Fenetre_.Fenetre.setFixedSize(Fenetre_.Taille);
  Services_.Pompe.PompeMessages();
}

void Habillage::FonduPages() {
  Fenetre_.MontreFond(Skin_.ChargeFond(), Skin_.Echelle());
  const auto pages = Fenetre_.Pages.Toutes();
  for (std::size_t i = 0; i < pages.size(); ++i) {
    pages[i]->MontreFond([this, i] { return Skin_.MelangePage(i); }, Skin_.Echelle());
  }
}

void Habillage::ChargeBoutons() {
  Faces_.ChargeBoutons(Services_.Textes, Fenetre_.Pages.Ftp.BoutonEssaiFtp->text(), Skin_.Densite());
  for (BoutonImage* bouton : Fenetre_.Fenetre.findChildren<BoutonImage*>()) bouton->MontreRepos();
  // The page itself may have the focus, and is then called by its tab.
  for (std::size_t i = 0; i < kPageDeOnglet.size(); ++i) {
    Fenetre_.Pages.Toutes()
        .at(static_cast<std::size_t>(kPageDeOnglet.at(i)))
        ->setAccessibleName(Services_.Textes.LibelleBouton(static_cast<int>(i) + 3));
  }
  AnnonceEtats();
}

void Habillage::AnnonceEtats() {
  const BandeauHaut& bandeau = Fenetre_.Bandeau;
  const bool camera = Services_.Moteur.Camera().CameraActive;
  // Its caption says what a click will do: "on" beside it would say the contrary.
  bandeau.Bouton[0]->setAccessibleName(Services_.Textes.LibelleBouton(camera ? kLibelleCameraMarche : 0));
  bandeau.Bouton[1]->Engage(bandeau.ImageLedAlarme->Etat() != Lampe::kRouge);
  bandeau.Bouton[2]->Engage(bandeau.ImageLedSurveill->Etat() != Lampe::kRouge);
  for (std::size_t i = 0; i < kPageDeOnglet.size(); ++i) {
    bandeau.Bouton.at(i + 3)->Engage(Fenetre_.PageDevant() == kPageDeOnglet.at(i));
  }
}

void Habillage::SuitDensite() {
  if (Fenetre_.Fenetre.devicePixelRatioF() == Skin_.Densite()) return;
  Skin_.ChangeDensite(Fenetre_.Fenetre.devicePixelRatioF());
  FonduPages();
  ChargeBoutons();
}

}  // namespace vaktor
