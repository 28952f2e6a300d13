// The shutdown: one pass, nothing is asked, nothing refuses, nothing is waited for.
#include <QCoreApplication>
#include <cstdio>

#include "app/application.h"
#include "base/failure.h"

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
  if (Chargee_) {  // still behind the splash
    DemandeFermeture();
    return;
  }
  // Half-way up, the parameters are only partly those of the store: nothing may be saved.
  Etat_.EnFermeture = true;
  Splash_.Decharge();
  QCoreApplication::exit();
}

// The close request of the main form, and of nothing else.
void Vaktor::DemandeFermeture() {
  if (Fermee_) return;
  Fermee_ = true;
  Moteur_->DeconnectePilote();
  FermeApplication();
  Systeme_.Pompe.PompeMessages();
  // Not quit(), which does nothing while a message box runs the only event loop.
  QCoreApplication::exit();
}

void Vaktor::FermeApplication() {
  Etat_.EnFermeture = true;
  Live_->CoupeLive();
  Moteur_->Arrete();  // no tick of the engine comes from here on
  PrevientCompagnons();
  Systeme_.Pompe.PompeMessages();
  SauveAvantFin();
  Systeme_.Pompe.PompeMessages();
  // In this order, each as far as it is there. Gallery and monitor only close: what still runs in a pump may touch
  // them.
  DechargeFrmSmtp();
  if (FrmEssaiFtp_) FrmEssaiFtp_->close();
  PleinEcran_.Decharge();
  if (Repertoire_) Repertoire_->Decharge();
  // Only a gallery on the screen is asked to close, which saves: one that nobody opened leaves the store alone.
  if (FormVisuPhoto_ && FormVisuPhoto_->isVisible()) EssaieJusquauBout([this] { FormVisuPhoto_->close(); });
  FormWinsock_.reset();  // a late word of a companion finds nobody any more
  Splash_.Decharge();
  if (FormMonitor_) FormMonitor_->close();
  if (FormSound_) EssaieJusquauBout([this] { FormSound_->close(); });
  Systeme_.Pompe.PompeMessages();
  Form1_->hide();
}

// The companions are neither waited for nor looked after: one that stays is ended by the next start.
void Vaktor::PrevientCompagnons() {
  if (!Modules_) return;
  const QString mot = QStringLiteral("Quit*");
  Modules_->EnvoiFTP(mot);
  Modules_->EnvoiMail(mot);
  Modules_->EnvoiSon(mot);
}

void Vaktor::SauveAvantFin() {
  if (Reglages_.ParametresModifies) EssaieJusquauBout([this] { Sauvegarde_->SauveParametres(); });
}

void Vaktor::EssaieJusquauBout(const std::function<void()>& pas) {
  try {
    pas();
  } catch (const std::exception& echec) {
    // The end must not stop half-way, and the user must know what was lost.
    std::fprintf(stderr, "Vaktor: %s\n", echec.what());
    if (SansPersonne_) return;
    Systeme_.Boites.MontreMessage(QString::fromUtf8(echec.what()), Textes_.Messages(4), BoutonsBoite::kOk);
  }
}

void Vaktor::DechargeFormes() {
  PleinEcran_.Decharge();
  FrmSmtp_.reset();
  FrmEssaiFtp_.reset();
  ChargeurTextes_.reset();
  VueParametres_.reset();
  FormWinsock_.reset();
  FormSound_.reset();
  Repertoire_.reset();
  FormVisuPhoto_.reset();
  FormMonitor_.reset();
  Form1_.reset();
}

}  // namespace vaktor
