// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/main_window.h"

#include <QCloseEvent>
#include <QPainter>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <exception>

#include "engine/sensitivity_gauge.h"
#include "ui/controls/tab_mark.h"

namespace vaktor {

namespace {

constexpr int kPremierOnglet = 3;  // Bouton(3) and up change the page

}  // namespace

Form1::Form1(ServicesForm1 services)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint),
      Services_(std::move(services)),
      Bandeau_(std::make_unique<BandeauHaut>(this)),
      PictPage0_(new PageMail(this)),
      PictPage1_(new PageMoniteur(this)),
      PictPage2_(new PageFtp(this)),
      PictPage3_(new PageOptions(this)),
      ChampsMail_(DonnePortsChamps(), *PictPage0_),
      ChampsFtp_(DonnePortsChamps(), *PictPage2_),
      ChampsMoniteur_(
          DonnePortsChamps(),
          {Services_.Moteur, Services_.VerifieEspaceDisque, Services_.MontreFrmSmtp, [this] { AmenePage(0); }},
          *PictPage1_, ChampsMail_) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QStringLiteral("Vaktor"));
  CreeCheckPEcran();
  BrancheBoutons();
  BrancheJauge();
  BrancheMoniteur();
  BrancheOptions();
  AmenePage(1);
}

std::array<BoutonImage*, Form1::kNombreBoutonsGris> Form1::BoutonsGris() const {
  return {PictPage1_->BoutonGris0, PictPage1_->BoutonGris1, PictPage2_->BoutonGris2,
          PictPage2_->BoutonGris3, PictPage3_->BoutonGris4, PictPage3_->BoutonGris5,
          PictPage3_->BoutonGris6, PictPage3_->BoutonGris7, PictPage0_->BoutonGris8};
}

PortsChamps Form1::DonnePortsChamps() const {
  return {Services_.Reglages, Services_.Sauvegarde, Services_.Textes, Services_.Boites};
}

// Below the window's edge, so that nobody clicks it: the monitor's menu opens the enlarged view without it.
void Form1::CreeCheckPEcran() {
  CheckPEcran_ = new QCheckBox(this);
  CheckPEcran_->setObjectName(QStringLiteral("CheckPEcran"));
  CheckPEcran_->setGeometry(8, 304, 97, 17);
  HabilleCase(*CheckPEcran_);
  CheckPEcran_->hide();
  connect(CheckPEcran_, &QCheckBox::toggled, this, [this](bool coche) { Services_.MontrePleinEcran(coche); });
}

void Form1::BrancheBoutons() {
  for (int i = 0; i < BandeauHaut::kNombreBoutons; ++i) {
    connect(Bandeau_->Bouton.at(static_cast<std::size_t>(i)), &QAbstractButton::clicked, this,
            [this, i] { BasculeBouton(i); });
  }
  connect(PictPage3_->BoutonGris4, &QAbstractButton::clicked, this,
          [this] { Services_.Moteur.MontreDialogueFormat(); });
  connect(PictPage3_->BoutonGris5, &QAbstractButton::clicked, this,
          [this] { Services_.Moteur.MontreDialogueSource(); });
}

void Form1::BasculeBouton(int index) {
  switch (index) {
    case 0:
      return Services_.Moteur.BasculeCamera();
    case 1:
      return Services_.Moteur.BasculeAlarme();
    case 2:
      return Services_.BasculeLive();
    default:
      return ChoisitPage(kPageDeOnglet.at(static_cast<std::size_t>(index - kPremierOnglet)));
  }
}

// A change of page saves what the page before has left unsaved; the three switches do not. A save that fails is told,
// by whoever catches it, and the page comes all the same: it may be the one on which the disk's trouble is mended, and
// a tab that does nothing would be a second fault.
void Form1::ChoisitPage(int index) {
  std::exception_ptr echec;
  try {
    if (Services_.Reglages.ParametresModifies) Services_.Sauvegarde.SauveParametres();
  } catch (...) {
    echec = std::current_exception();
  }
  AmenePage(index);
  if (echec) std::rethrow_exception(echec);
}

void Form1::AmenePage(int index) {
  Pages().Toutes().at(static_cast<std::size_t>(index))->raise();
  PageDevant_ = index;
  for (int i = 0; i < static_cast<int>(Pages().Toutes().size()); ++i)
    Pages().Toutes().at(static_cast<std::size_t>(i))->Couvre(i != index);
  SortDesPagesCouvertes();
  update();  // the mark on its tab
  if (Face_) Face_->AnnonceEtats();
}

// A word of a companion brings a page to the front while somebody types into another one: the rest of the word must not
// go on into what nobody sees, nor into a field of the page that comes. The page itself takes the keys, and Tab goes on
// to its first control.
void Form1::SortDesPagesCouvertes() {
  const QWidget* tient = focusWidget();
  const auto pages = Pages().Toutes();
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (static_cast<int>(i) == PageDevant_ || tient == nullptr) continue;
    if (!pages[i]->isAncestorOf(tient)) continue;  // a page counts as its own
    pages.at(static_cast<std::size_t>(PageDevant_))->setFocus(Qt::OtherFocusReason);
    return;
  }
}

void Form1::BrancheJauge() {
  connect(Bandeau_->PictSeuil, &JaugeWidget::Souris, this,
          [this](double x, bool gaucheSeul) { Services_.Moteur.Jauge().SuitSouris(x, gaucheSeul); });
  connect(Bandeau_->PictSeuil, &JaugeWidget::DoubleClic, this, [this] { Services_.Moteur.Jauge().DoubleClic(); });
}

void Form1::BrancheMoniteur() { connect(PictPage1_, &PageMoniteur::ModeChoisi, this, &Form1::ChoisitMode); }

void Form1::BrancheOptions() {
  // No event watches this box: the engine reads the parameter when it needs it, and a later save writes it.
  connect(PictPage3_->ChkSeuilAuto, &QCheckBox::toggled, this,
          [this](bool coche) { Services_.Reglages.SeuilAuto = coche; });
  // The skin is read from the list by the next save, whoever made the choice. That of the user asks for one, as the
  // program ends at the latest; it is not saved at once, since somebody who looks at all skins chooses the last.
  connect(PictPage3_->CombSkin, &QComboBox::currentIndexChanged, this,
          [this](int index) { Services_.Reglages.IndexSkin = index; });
  connect(PictPage3_->CombSkin, &QComboBox::activated, this, [this] { Services_.Reglages.ParametresModifies = true; });
  for (const Langue langue : kLangues) {
    connect(PictPage3_->Image4.at(RangLangue(langue)), &QAbstractButton::clicked, this,
            [this, langue] { ChoisitLangue(langue); });
  }
}

void Form1::ChoisitMode(bool zoom) {
  Services_.Moteur.ChoisitModeZoom(zoom);
  PictPage1_->CocheMode(zoom);
}

void Form1::ChoisitLangue(Langue langue) {
  Services_.Reglages.LangueCourante = static_cast<qint32>(langue);
  // Saved with the next save, as the program ends at the latest: changed last of all, it would be lost otherwise.
  Services_.Reglages.ParametresModifies = true;
  Services_.ChargeTextes();
}

void Form1::Habille(const ServicesHabillage& services) {
  Face_ =
      std::make_unique<Habillage>(PartiesFenetre{*this, kTaille, *Bandeau_, Pages(),
                                                 [this](const QImage& fond, int echelle) { MontreFond(fond, echelle); },
                                                 [this] { return PageDevant_; }},
                                  services);
  // A choice counts when the program sets it and when the user makes it, also of the skin that shows already. One of
  // the user's that changes something is told twice, and drawn once.
  const auto change = std::make_shared<bool>(false);
  connect(PictPage3_->CombSkin, &QComboBox::currentIndexChanged, this, [this, change] {
    Face_->ChoisitSkin();
    *change = true;
    QTimer::singleShot(0, this, [change] { *change = false; });
  });
  connect(PictPage3_->CombSkin, &QComboBox::activated, this, [this, change] {
    if (!*change) Face_->ChoisitSkin();
  });
  // The system moves the window with the mouse from here on, under X11 and under Wayland.
  connect(&Face_->Souris(), &SourisFenetre::DeplacementDemande, this, [this] {
    if (windowHandle() != nullptr) windowHandle()->startSystemMove();
  });
}

static_assert(PageVaktor::kPlace.left() == 0 && PageVaktor::kPlace.right() + 1 == Form1::kTaille.width() &&
              PageVaktor::kPlace.bottom() + 1 == Form1::kTaille.height());

void Form1::MontreFond(const QImage& fond, int echelle) {
  const int haut = (PageVaktor::kPlace.top() + kMargeFond) * echelle;
  Fond_ = fond.copy(0, 0, fond.width(), std::min(haut, fond.height()));
  Fond_.setDevicePixelRatio(echelle);
  CouleurFond_ = Fond_.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
  update();
}

void Form1::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  peintre.drawImage(QPointF(0, 0), Fond_);
  for (std::size_t i = 0; i < kPageDeOnglet.size(); ++i) {
    if (kPageDeOnglet.at(i) == PageDevant_)
      DessineMarque(peintre, Bandeau_->Bouton.at(i + kPremierOnglet)->geometry(), CouleurFond_);
  }
}

bool Form1::event(QEvent* evenement) {
  const bool traite = QWidget::event(evenement);
  const bool autreEcran = evenement->type() == QEvent::Show || evenement->type() == QEvent::ScreenChangeInternal;
  if (autreEcran && Face_) Face_->SuitDensite();
  return traite;
}

// Pages lie on each other and none is hidden: Tab must not wander into those that another one covers.
bool Form1::PrendFocus(const QWidget& controle) const {
  if (!(controle.focusPolicy() & Qt::TabFocus) || !controle.isEnabled() || !controle.isVisible()) return false;
  if (controle.focusProxy() != nullptr || controle.window() != this) return false;
  const auto pages = Pages().Toutes();
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (pages[i]->isAncestorOf(&controle)) return static_cast<int>(i) == PageDevant_;
  }
  return true;
}

bool Form1::focusNextPrevChild(bool suivant) {
  QWidget* depart = focusWidget() != nullptr ? focusWidget() : this;
  QWidget* controle = depart;
  do {
    controle = suivant ? controle->nextInFocusChain() : controle->previousInFocusChain();
    if (!PrendFocus(*controle)) continue;
    controle->setFocus(suivant ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
  } while (controle != depart);
  return false;
}

void Form1::closeEvent(QCloseEvent* evenement) {
  Services_.FermeApplication();
  evenement->accept();
}

}  // namespace vaktor
