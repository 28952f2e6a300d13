// SPDX-License-Identifier: GPL-3.0-or-later
// The shutdown: one pass, nothing is asked, nothing refuses, nothing is waited for.
#include <QCoreApplication>
#include <QScopeGuard>
#include <cstdio>

#include "app/application.h"
#include "app/way_out.h"

namespace vaktor {

void Vaktor::Ferme() {
  // Whatever asks for this does not look at the screen: a message there would keep the program for good.
  SansPersonne_ = true;
  if (Fermee_) {
    // The user had closed the window, and has left a message of the stop standing.
    QCoreApplication::exit();
    return;
  }
  if (Form1_ && Form1_->isVisible()) {
    Form1_->close();
    return;
  }
  if (Sauvegarde_ && Sauvegarde_->EstCharge()) {  // still behind the splash
    DemandeFermeture();
    return;
  }
  // Half-way up, the parameters are only partly those of the store: nothing may be saved.
  Etat_.EnFermeture = true;
  Splash_.Decharge();
  QCoreApplication::exit();
}

// A start that failed. Its message may stand for hours: behind it no camera watches, nothing is saved, no window opens.
void Vaktor::AbandonneDepart() {
  Etat_.EnFermeture = true;
  if (Journal_) Journal_->Arrete();  // before what ends with the program looks like news
  EssaieJusquauBout([this] { ArreteSante(); });
  if (Moteur_) {
    EssaieJusquauBout([this] { Moteur_->DeconnectePilote(); });
    EssaieJusquauBout([this] { Moteur_->Arrete(); });
  }
  ArreteEveil();
  // The start arguments may have brought the monitor up before the step that failed.
  if (FormMonitor_) FormMonitor_->hide();
  if (Form1_) Form1_->hide();
}

// The close request of the main form, and of nothing else. A step that throws costs that step: the process ends all the
// same, where it would else go on for ever without a window.
void Vaktor::DemandeFermeture() {
  if (Fermee_) return;
  Fermee_ = true;
  // Not quit(), which does nothing while a message box runs the only event loop.
  const auto fin = qScopeGuard([this] { QCoreApplication::exit(Statut()); });
  EssaieJusquauBout([this] { Moteur_->DeconnectePilote(); });
  FermeApplication();
  Pompe();
}

void Vaktor::FermeApplication() {
  Etat_.EnFermeture = true;
  if (Journal_) Journal_->Arrete();  // before what ends with the program looks like news
  EssaieJusquauBout([this] { ArreteSante(); });
  EssaieJusquauBout([this] { Live_->CoupeLive(); });
  EssaieJusquauBout([this] { Moteur_->Arrete(); });  // no tick of the engine comes from here on
  ArreteEveil();                                     // the machine may sleep again
  PrevientCompagnons();
  Pompe();
  SauveAvantFin();
  Pompe();
  // In this order, each as far as it is there. Gallery and monitor only close: what still runs in a pump may touch
  // them.
  DechargeFrmSmtp();
  if (FrmEssaiFtp_) EssaieJusquauBout([this] { FrmEssaiFtp_->close(); });
  EssaieJusquauBout([this] { PleinEcran_.Decharge(); });
  if (Repertoire_) EssaieJusquauBout([this] { Repertoire_->Decharge(); });
  // Only a gallery on the screen is asked to close, which saves: one that nobody opened leaves the store alone.
  if (FormVisuPhoto_ && FormVisuPhoto_->isVisible()) EssaieJusquauBout([this] { FormVisuPhoto_->close(); });
  EssaieJusquauBout([this] { Envois_.reset(); });
  EssaieJusquauBout([this] { FormWinsock_.reset(); });  // a late word of a companion finds nobody any more
  EssaieJusquauBout([this] { Splash_.Decharge(); });
  if (FormMonitor_) EssaieJusquauBout([this] { FormMonitor_->close(); });
  if (FormSound_) EssaieJusquauBout([this] { FormSound_->close(); });
  if (Frise_) EssaieJusquauBout([this] { Frise_->close(); });
  Pompe();
  EssaieJusquauBout([this] { Form1_->hide(); });
}

// The companions are not waited for, and no longer looked after: one that stays is ended by the next start.
void Vaktor::PrevientCompagnons() {
  if (Veille_) EssaieJusquauBout([this] { Veille_->Arrete(); });
  if (!Modules_) return;
  for (void (ModuleSendMessages::*envoi)(Commande) :
       {&ModuleSendMessages::EnvoiFTP, &ModuleSendMessages::EnvoiMail, &ModuleSendMessages::EnvoiSon}) {
    EssaieJusquauBout([this, envoi] { (Modules_.get()->*envoi)(Commande::kQuitte); });
  }
}

void Vaktor::SauveAvantFin() {
  if (Reglages_.ParametresModifies) EssaieJusquauBout([this] { Sauvegarde_->SauveParametres(); });
}

void Vaktor::Pompe() {
  EssaieJusquauBout([this] { Systeme_.Pompe.PompeMessages(); });
}

void Vaktor::EssaieJusquauBout(const std::function<void()>& pas) {
  const bool fait = EssaiePas(pas, [this](const char* mots) {
    // The end must not stop half-way, and the user must know what was lost.
    std::fprintf(stderr, "Vaktor: %s\n", mots);
    if (SansPersonne_) return;
    Systeme_.Boites.MontreMessage(QString::fromUtf8(mots), Textes_.Dit(Message::kTitre), BoutonsBoite::kOk);
  });
  Perte_ = Perte_ || !fait;
}

void Vaktor::DechargeFormes() {
  PleinEcran_.Decharge();
  FrmSmtp_.reset();
  FrmEssaiFtp_.reset();
  ChargeurTextes_.reset();
  VueParametres_.reset();
  VueSante_.reset();
  DechargeFrise();
  FormWinsock_.reset();
  FormSound_.reset();
  Repertoire_.reset();
  FormVisuPhoto_.reset();
  FormMonitor_.reset();
  Form1_.reset();
}

}  // namespace vaktor
