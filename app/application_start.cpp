// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of the start-up sequence. Their order stands in start_sequence.cpp.
#include <QScreen>
#include <QShortcut>

#include "app/application.h"
#include "base/failure.h"
#include "texts/language.h"
#include "ui/shown/own_words.h"
#include "ui/window/window_placement.h"

namespace vaktor {

namespace {
constexpr int kPagePrincipale = 1;

// From the window to its monitor and back, whatever the desktop makes of a window that belongs to another.
void RelieF6(QWidget& de, QWidget& vers) {
  auto* touche = new QShortcut(QKeySequence(Qt::Key_F6), &de);
  QObject::connect(touche, &QShortcut::activated, &vers, [&vers] {
    if (!vers.isVisible()) return;
    vers.raise();
    vers.activateWindow();
  });
}

}  // namespace

void Vaktor::Demarre(const QString& version) {
  if (Systeme_.SuitLangue) Systeme_.SuitLangue([this] { return LangueParlee(Reglages_.LangueCourante); });
  Magasin_ = Systeme_.OuvreMagasin();
  Depart_ = std::make_unique<SequenceDepart>(
      PortsDepart{Splash_, *Magasin_, Reglages_, Systeme_.Pompe, Minuteries_, *this, Etat_});
  Depart_->Charge(version);
}

void Vaktor::ChargeParametres() {
  const QString manquant = Systeme_.PrepareDossiers();
  if (!manquant.isEmpty()) {
    throw Echec(kFichierIntrouvable, MessageDossierImpossible(LangueParlee(Reglages_.LangueCourante), manquant));
  }
  Canal_ = Systeme_.OuvreCanal();
  Pilote_ = Systeme_.CreePilote([this] { return LangueParlee(Reglages_.LangueCourante); });
  CreeReglages();
  CreeVeille();
  ChargeReglages();
}

// The window is made as soon as the delay and the language are known: its load step needs both. From then on each value
// is shown as it is read, but for those that wait since their fields save.
void Vaktor::ChargeReglages() {
  Sauvegarde_->LitJusqua(&Parametres::LangueCourante);
  ChargeForm1();
  while (const LigneReglage* ligne = Sauvegarde_->LitSuivant()) VueParametres_->MontreLu(ligne->Champ);
  Sauvegarde_->TermineChargement([this] { VueParametres_->MontreFin(); });
}

// The load step of the main form. All settings but the delay and the language still have their start values. The window
// and its timers are made first, as parts of the form.
void Vaktor::ChargeForm1() {
  CreeLive();
  CreeMoteur();
  CreeForm1();
  Vue_.ExigeLien();
  VueLiaison_.ExigeLien();
  Systeme_.Sons.SurvolSon(SonsInterface::kAucunSurvol);
  CreeFormWinsock();
  Systeme_.Pompe.PompeMessages();
  Reglages_.SmtpPort = QStringLiteral("25");
  Moteur_->ChoisitModeZoom(true);
  Form1_->Moniteur().CocheMode(true);
  Form1_->AmenePage(kPagePrincipale);
  Photos_->FixeDateJour();
  Form1_->Habille({Textes_, *Moteur_, Systeme_.Pompe, Systeme_.Sons});  // draws the pages
  DemarrageAuto_->Lance(LitArgumentsAuto(LigneCommande_));
  BrancheSession();
}

// Nothing of it is kept in the settings: the desktop's own list of programs may change too, so what stands there is
// looked up.
void Vaktor::BrancheSession() {
  CaseACocher& boite = *Form1_->Options().ChkSession;
  boite.setChecked(Systeme_.Session.EstVoulue());
  QObject::connect(&boite, &CaseACocher::Relachee, Form1_.get(), [this, &boite] {
    if (boite.isChecked() == Systeme_.Session.EstVoulue() || Systeme_.Session.Veut(boite.isChecked())) return;
    boite.setChecked(!boite.isChecked());
    const Langue langue = LangueParlee(Reglages_.LangueCourante);
    Systeme_.Boites.MontreMessage(MessageSessionImpossible(langue), Textes_.Dit(Message::kTitre), BoutonsBoite::kOk);
  });
}

void Vaktor::ChargeTextes() {
  // The words go into the monitor and the gallery too: this is their first use.
  ChargeurTextes_ = std::make_unique<ChargeurTextes>(Reglages_, Textes_, *Form1_, Moniteur(), [this] {
    if (FrmSmtp_) FrmSmtp_->EcritMots();
    if (FrmEssaiFtp_) FrmEssaiFtp_->EcritMots(LangueParlee(Reglages_.LangueCourante));
    if (VueSante_) VueSante_->Actualise();
    if (Frise_) Frise_->Habille();
    EcritLibellesBoutons(*Form1_, Textes_);
    if (Systeme_.ParleOutils) Systeme_.ParleOutils(LangueParlee(Reglages_.LangueCourante));
  });
  ChargeurTextes_->RelieGalerie(Galerie());
  ChargeurTextes_->ChargeTextes();
  CreeSante();
}

void Vaktor::LanceModules() {
  ModulesCompagnons(
      Systeme_.Programmes, [this](Compagnon compagnon) { return Veille_->Lance(compagnon); }, Reglages_)
      .LanceModules();
  Veille_->Commence();
  Envois_ = std::make_unique<SuiviEnvois>(
      PortsEnvois{Reglages_, Liaison_, Systeme_.Temps, Systeme_.Minuteries, Systeme_.Etats, Sante_,
                  [this](Compagnon qui) { return Veille_->Prend(qui); }, [this] { Journal_->NoteCourriel(); }});
}

void Vaktor::ChargeFormMonitor() { Moniteur(); }

FormMonitor& Vaktor::Moniteur() {
  if (!FormMonitor_) {
    FormMonitor_ = std::make_unique<FormMonitor>(*Moteur_, Etat_, Reglages_, *Sauvegarde_);
    QObject::connect(FormMonitor_.get(), &FormMonitor::PleinEcranChoisi, Form1_.get(),
                     [this] { PleinEcran_.Montre(); });
    RelieF6(*Form1_, *FormMonitor_);
    RelieF6(*FormMonitor_, *Form1_);
    QObject::connect(FormMonitor_.get(), &FormMonitor::TailleChangee, Form1_.get(), [this] { PlaceMoniteur(); });
  }
  return *FormMonitor_;
}

FormVisuPhoto& Vaktor::Galerie() {
  if (!FormVisuPhoto_) {
    Galerie_ = std::make_unique<GaleriePhotos>(PortsGalerie{Reglages_, Systeme_.Dossiers, Etat_, *Sauvegarde_, Textes_,
                                                            Systeme_.Noms, Systeme_.Lecteur, Systeme_.Effaceur,
                                                            Systeme_.Boites, Systeme_.Navigateur});
    FormVisuPhoto_ = std::make_unique<FormVisuPhoto>(*Galerie_, Reglages_, Textes_);
    Galerie_->ExigeLien();
    BrancheFrise();
    CreeRepertoire(*FormVisuPhoto_);
  }
  return *FormVisuPhoto_;
}

// The folder chooser is reached from the gallery and in no other way.
void Vaktor::CreeRepertoire(FormVisuPhoto& galerie) {
  ChoixDossier_ = std::make_unique<ChoixDossier>(
      PortsChoixDossier{Reglages_, *Sauvegarde_, Systeme_.Dossiers, Systeme_.Arbre, Systeme_.Pompe, Systeme_.Boites,
                        Textes_, [&galerie](const QString& dossier, std::function<void()> fini) {
                          galerie.RepointeSur(dossier, std::move(fini));
                        }});
  Repertoire_ = std::make_unique<VueRepertoire>(*ChoixDossier_, Systeme_.Arbre);
  galerie.SurChoixRepertoire([this] { Repertoire_->Montre(); });
}

void Vaktor::MontreForm1() {
  Centrage_ = std::make_unique<CentrageFenetre>(*Form1_, [this] { PlaceMoniteur(); });
  Centrage_->Centre();
  Form1_->show();
  PlaceMoniteur();
}

// The monitor opens beside the main window, not over it, and stays clear of it when the frame gets another size, until
// the user has moved it.
void Vaktor::PlaceMoniteur() {
  FormMonitor& moniteur = Moniteur();
  if (PlaceMoniteur_ && moniteur.pos() != *PlaceMoniteur_) return;
  const QRect ecran = Form1_->screen()->availableGeometry();
  PlaceMoniteur_ = PlaceFenetre(ecran, Form1_->frameGeometry(), moniteur.frameGeometry().size());
  moniteur.move(*PlaceMoniteur_);
}

}  // namespace vaktor
