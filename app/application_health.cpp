// SPDX-License-Identifier: GPL-3.0-or-later
// The health of the watch: who shows it, who tells it, and from when on.
#include <QScreen>

#include "app/application.h"
#include "ui/window/window_placement.h"

namespace vaktor {

// With the words of the forms: before them the language is not known, and a start that fails tells its own reason. What
// was reported until then is kept.
void Vaktor::CreeSante() {
  VueSante_ = std::make_unique<VueSante>(PortsVueSante{Sante_, *Form1_, Reglages_, [this] { return Etat_.EnFermeture; },
                                                       [this](const QSize& taille) { return PlaceFrmSante(taille); }});
  AvisBureau_ = std::make_unique<AvisBureau>(Systeme_.Bureau, Reglages_);
  CourrielsAveugle_ = std::make_unique<CourrielsAveugle>(
      PortsCourrielsAveugle{Systeme_.Courriels, *Modules_, Reglages_, [this] { return DoitVeiller(); },
                            [this] { return Moteur_->Surface().Image(); }});
  AnnonceEtats_ = std::make_unique<AnnonceEtats>(Systeme_.Personnel, Reglages_);
  ReessaieReglages_ = std::make_unique<ReessaieReglages>(*Sauvegarde_, [this] {
    return Systeme_.Disque.RegardeDossier(Systeme_.DossierMagasin) != Presence::kSansReponse;
  });
  CreeJournal();
  for (ObservateurSante* observateur :
       std::initializer_list<ObservateurSante*>{VueSante_.get(), AvisBureau_.get(), CourrielsAveugle_.get(),
                                                AnnonceEtats_.get(), ReessaieReglages_.get(), Journal_.get()}) {
    Sante_.Observe(*observateur);
  }
  Sante_.Lance();
  SigneDeVie_->Lance();
  Journal_->Lance();
}

// Armed, or on the way to it: a start with "/alarm" that waits for its camera is told like one that has lost it.
bool Vaktor::DoitVeiller() const {
  return Moteur_->Alarme().AlarmeArmee || Moteur_->CompteAReboursEnCours() || DemarrageAuto_->AttendPourArmer();
}

// Beside the main window and, as far as there is room, beside the monitor.
QPoint Vaktor::PlaceFrmSante(const QSize& taille) {
  QRect occupe = Form1_->frameGeometry();
  if (Moniteur().isVisible()) occupe |= Moniteur().frameGeometry();
  return PlaceFenetre(Form1_->screen()->availableGeometry(), occupe, taille);
}

// From here on nobody looks after the watch, and what ends with it is no news.
void Vaktor::ArreteSante() {
  Sante_.Arrete();
  if (SigneDeVie_) SigneDeVie_->Arrete();
  if (VueSante_) VueSante_->Ferme();
}

}  // namespace vaktor
