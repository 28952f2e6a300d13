#include "ui/window/window_look.h"

#include <QScopeGuard>
#include <utility>

#include "ui/face/art_images.h"
#include "ui/face/page_blend.h"

namespace vaktor {

namespace {

const QColor kFondUni(204, 212, 222);
const QColor kPageUnie(245, 245, 245);
constexpr int kLibelleCameraMarche = 7;  // of Bouton(0) while the camera runs

}  // namespace

Habillage::Habillage(PartiesFenetre fenetre, const ServicesHabillage& services)
    : Fenetre_(std::move(fenetre)),
      Services_(services),
      Densite_(Fenetre_.Fenetre.devicePixelRatioF()),
      Souris_(Fenetre_.Fenetre, services.Sons) {
  RelieBoutons();
  DessinePages();
}

Habillage::~Habillage() {
  // A window that is taken down still tells its buttons that the pointer left them.
  for (BoutonImage* bouton : Fenetre_.Fenetre.findChildren<BoutonImage*>()) bouton->Delie();
}

void Habillage::RelieBoutons() {
  const LiensBouton liens{Faces_, Services_.Sons, [this](qint32 id) { Souris_.Passe(id); },
                          [this] { return Services_.Moteur.Camera().CameraActive; }};
  for (BoutonImage* bouton : Fenetre_.Fenetre.findChildren<BoutonImage*>()) bouton->Relie(liens);
}

// Background and clean bitmaps are read anew for each blend: a skin is chosen and a page is shown for the first time so
// seldom that they would only lie about in between.
QImage Habillage::ChargeFond() const {
  return ChargeArtOuUni(QStringLiteral("SKIN%1").arg(Skin_), EchelleArt(Densite_), Fenetre_.Taille, kFondUni);
}

QImage Habillage::ChargePage(std::size_t i) const {
  return ChargeArtOuUni(QStringLiteral("PictPage%1").arg(i), EchelleArt(Densite_), PageVaktor::kPlace.size(),
                        kPageUnie);
}

void Habillage::ChoisitSkin() {
  const int index = Fenetre_.CombSkin.currentIndex();
  if (index >= 0 && index < kNombreSkins) Skin_ = index;
  DessinePages();
  Fenetre_.PictPage[3]->repaint();
}

void Habillage::DessinePages() {
  PlacePages();
  FonduPages();
}

void Habillage::PlacePages() {
  // No tick falls into the redraw; and whatever fails in it, or in what the pump lets in, they come again.
  Services_.Moteur.SuspendTic();
  const auto reprend = qScopeGuard([this] { Services_.Moteur.ReprendTic(); });
  for (std::size_t i = 0; i < Fenetre_.PictPage.size(); ++i) {
    Fenetre_.PictPage[i]->MontreFond([this, i] { return ChargePage(i); }, EchelleArt(Densite_));
  }
  Fenetre_.PictPage[1]->move(PageVaktor::kPlace.topLeft());
  for (const std::size_t i : {std::size_t{0}, std::size_t{2}, std::size_t{3}})
    Fenetre_.PictPage[i]->move(Fenetre_.PictPage[1]->pos());
  for (PageVaktor* page : Fenetre_.PictPage) page->resize(PageVaktor::kPlace.size());
  Fenetre_.Fenetre.setFixedSize(Fenetre_.Taille);
  Services_.Pompe.PompeMessages();
}

void Habillage::FonduPages() {
  const int echelle = EchelleArt(Densite_);
  Fenetre_.MontreFond(ChargeFond(), echelle);
  const QRect place(Fenetre_.PictPage[0]->pos(), Fenetre_.PictPage[0]->size());
  for (std::size_t i = 0; i < Fenetre_.PictPage.size(); ++i) {
    Fenetre_.PictPage[i]->MontreFond([=, this] { return MelangePage(ChargePage(i), ChargeFond(), place, echelle); },
                                     echelle);
  }
}

void Habillage::ChargeBoutons() {
  Faces_.ChargeBoutons(Services_.Textes, Fenetre_.BoutonEssaiFtp.text(), Densite_);
  for (BoutonImage* bouton : Fenetre_.Fenetre.findChildren<BoutonImage*>()) bouton->MontreRepos();
  AnnonceEtats();
}

void Habillage::AnnonceEtats() {
  const BandeauHaut& bandeau = Fenetre_.Bandeau;
  const bool camera = Services_.Moteur.Camera().CameraActive;
  bandeau.Bouton[0]->setAccessibleName(Services_.Textes.LibelleBouton(camera ? kLibelleCameraMarche : 0));
  bandeau.Bouton[1]->Engage(bandeau.ImageLedAlarme->Etat() != Lampe::kRouge);
  bandeau.Bouton[2]->Engage(bandeau.ImageLedSurveill->Etat() != Lampe::kRouge);
  static constexpr std::array kPageDeOnglet = {1, 3, 0, 2};
  for (std::size_t i = 0; i < kPageDeOnglet.size(); ++i) {
    bandeau.Bouton.at(i + 3)->Engage(Fenetre_.PageDevant() == kPageDeOnglet.at(i));
  }
}

void Habillage::SuitDensite() {
  if (Fenetre_.Fenetre.devicePixelRatioF() == Densite_) return;
  Densite_ = Fenetre_.Fenetre.devicePixelRatioF();
  FonduPages();
  ChargeBoutons();
}

}  // namespace vaktor
