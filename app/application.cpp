// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/application.h"

#include <cstdio>

#include "app/way_out.h"
#include "texts/language.h"
#include "ui/shown/own_words.h"
#include "ui/window/grey_button_clicks.h"

namespace vaktor {

Vaktor::Vaktor(const PortsSysteme& systeme, QString ligneCommande)
    : Systeme_(systeme),
      LigneCommande_(std::move(ligneCommande)),
      Sante_(Systeme_.Temps, Systeme_.Minuteries),
      Minuteries_(Systeme_.Minuteries, [this] { return PeutAgir(); }),
      Vue_(Textes_, Systeme_.Boites),
      VueLiaison_(Textes_, Systeme_.Boites),
      EcrivainLive_(Systeme_.Ecrivain),
      Liens_(Reglages_, Systeme_.Sons, Systeme_.Navigateur, Systeme_.Site) {}

Vaktor::~Vaktor() { DechargeFormes(); }

bool Vaktor::EstFinie() const { return Etat_.EnFermeture; }

int Vaktor::Statut() const { return Perte_ ? kStatutEchec : 0; }

// The one answer to "may anything happen by itself": with half of the settings an alarm would act, and save, with start
// values; behind the message of a start that failed, and in the pumps of the stop, nothing may begin any more.
bool Vaktor::PeutAgir() const { return Sauvegarde_ != nullptr && Sauvegarde_->EstCharge() && !Etat_.EnFermeture; }

// The rules are made in the order in which one is given the other. What goes round in a circle (the engine needs the
// live page, which needs the camera; both show what the window does not have yet) is tied up afterwards.
void Vaktor::CreeReglages() {
  Modules_ = std::make_unique<ModuleSendMessages>(*Canal_, Liaison_);
  Sauvegarde_ = std::make_unique<ReglagesPersistants>(
      LiensReglages{Reglages_, *Magasin_, Systeme_.Disque, *Modules_, Systeme_.Dossiers.PhotosParDefaut(),
                    [this] { return Moteur_ ? Moteur_->Surface().Taille() : QSize(); }, Sante_});
}

void Vaktor::CreeLive() {
  Live_ = std::make_unique<PublicationLive>(PortsLive{Reglages_, Systeme_.Dossiers, EcrivainLive_, Timbre_,
                                                      Systeme_.Temps, *Modules_, Vue_, VueLiaison_, Systeme_.Navigateur,
                                                      Liaison_, [this] { return LitChampsSite(); }});
}

ChampsSite Vaktor::LitChampsSite() const {
  const PageFtp& page = Form1_->Ftp();
  return {page.TxtPass->text(), page.TxtUserName->text(), page.TxtHtml->text(), page.TxtFtp->text()};
}

void Vaktor::CreeMoteur() {
  SigneDeVie_ = std::make_unique<SigneDeVie>(
      PortsSigneDeVie{Systeme_.Courriels, *Modules_, Reglages_, Systeme_.Temps, Minuteries_, Systeme_.Disque,
                      [this] { return Moteur_->Alarme().AlarmeArmee; }, [this] { return Moteur_->Surface().Image(); },
                      [this] { return Sante_.Comptees(); }});
  Annonce_ = std::make_unique<AnnonceIntrusion>(
      PortsAnnonceIntrusion{Systeme_.Temps, Minuteries_, Systeme_.Personnel, [this] { SigneDeVie_->NoteAlarme(); }});
  Actions_ = std::make_unique<ActionsAlarmeReelles>(
      *Modules_, *Annonce_, [this] { Photos_->EnregistrePhoto(); }, [this] { NoteImageAgissante(); });
  Moteur_ = std::make_unique<Surveillance>(PortsSurveillance{Reglages_, *Sauvegarde_, *Pilote_, Minuteries_,
                                                             Systeme_.Temps, Systeme_.Pompe, Systeme_.Sons, *Actions_,
                                                             *Live_, Vue_, Sante_, [this] { Live_->OublieLive(); }});
  InterrupteurLive_ = std::make_unique<InterrupteurLive>(
      PortsInterrupteurLive{Reglages_, *Sauvegarde_, *Moteur_, *Live_, Vue_, Systeme_.Pompe});
  DemarrageAuto_ = std::make_unique<DemarrageAuto>(PortsDemarrageAuto{
      Minuteries_, [this] { return Moteur_->Camera().EnPause(); }, [this] { return Moteur_->AttendCamera(); },
      [this] { return Live_->EstAllume(); },
      [this] { return Moteur_->Alarme().AlarmeArmee || Moteur_->CompteAReboursEnCours(); },
      [this] { InterrupteurLive_->BasculeLiveSansPersonne(); }, [this] { Moteur_->BasculeAlarme(); }});
  Moteur_->Lance();
  Photos_ = std::make_unique<EnregistreurPhotos>(
      PortsPhotos{Reglages_, Systeme_.Dossiers, Moteur_->Surface(), Systeme_.Temps, Systeme_.Ecrivain, Systeme_.Disque,
                  [this] { return Copies_->SontVoulues(); }, Sante_, [this] { return Copies_->Demande(); },
                  [this](const QString& fichier) {
                    Annonce_->NotePhoto(fichier);
                    SigneDeVie_->NotePhoto();
                    NotePhotoAgissante(fichier);
                  },
                  [this](const QString& fichier) { NoteCopieAgissante(fichier); }});
  VeillePhotos_ = std::make_unique<VeillePhotos>(PortsVeillePhotos{Reglages_, *Photos_, Minuteries_, Systeme_.Sonde,
                                                                   Systeme_.EssaiPhotos, Systeme_.Pertes, Sante_,
                                                                   [this] { return Moteur_->Alarme().AlarmeArmee; }});
  CreeEveil();
}

void Vaktor::CreeForm1() {
  Form1_ = std::make_unique<Form1>(ServicesForm1{
      Reglages_, *Sauvegarde_, Textes_, *Moteur_, [this] { InterrupteurLive_->BasculeLive(); }, Systeme_.Boites,
      [this] { return Photos_->VerifieEspaceDisque(); }, [this] { ChargeurTextes_->ChargeTextes(); },
      [this](bool montre) { montre ? PleinEcran_.Montre() : PleinEcran_.Cache(); }, [this] { DemandeFermeture(); },
      [this] { MontreFrmSmtp(); }});
  PleinEcran_.SurFermeture([this] { Form1_->CheckPEcran().setChecked(false); });
  Vue_.Relie({*Moteur_, Reglages_, *Form1_, [this]() -> FormMonitor& { return Moniteur(); }, PleinEcran_});
  VueLiaison_.Relie(*Form1_);
  VueParametres_ = std::make_unique<VueParametres>(Reglages_, *Form1_);
  BrancheActions();
}

void Vaktor::BrancheActions() {
  BrancheBoutonsGris(*Form1_, {.OuvreGalerie = [this] { Galerie().OuvreGalerie(); },
                               .OuvreMiseAJour = [this] { Liens_.OuvreMiseAJour(); },
                               .CreationPageLive = [this] { InterrupteurLive_->CreationPageLive(); },
                               .TestPageLive = [this] { Live_->TestPageLive(); },
                               .MontreFormSound = [this] { MontreFormSound(); },
                               .OuvreNotice = [this] { Liens_.OuvreNotice(); },
                               .MontreFrmSmtp =
                                   [this] {
                                     MontreFrmSmtp();
                                     ChargeurTextes_->ChargeTextes();
                                   },
                               .EssaiePageLive = [this] { EssaiePageLive(); }});
}

void Vaktor::MontreFormSound() {
  if (!FormSound_ && Systeme_.CreeFormSound) FormSound_ = Systeme_.CreeFormSound(Reglages_, *Sauvegarde_);
  if (FormSound_) FormSound_->Montre();
}

void Vaktor::CreeVeille() {
  Casiers_ = std::make_unique<GardeCasiers>(PortsGarde{Systeme_.CasiersPublies, *Canal_, Sante_,
                                                       [this] { return FormWinsock_->Poignees(); },
                                                       [this] { FormWinsock_->Republie(); }});
  Veille_ = std::make_unique<VeilleCompagnons>(
      PortsVeille{Systeme_.Programmes, *Canal_, Liaison_, Minuteries_, Sante_, Systeme_.Dossiers, Reglages_, *Casiers_,
                  [this](Compagnon compagnon) {
                    if (compagnon == Compagnon::kFtp) Live_->PerdCompagnon();
                  },
                  [this](Compagnon compagnon) { RetrouveCompagnon(compagnon); }, Systeme_.TermineErrants});
  Copies_ = std::make_unique<SecondesCopies>(PortsCopies{Liaison_, [this] { return Veille_->Prend(Compagnon::kFtp); },
                                                         Systeme_.Mesureur,
                                                         Systeme_.Dossiers.Donnees + QStringLiteral("/Temp/FTP")});
}

// What was sent to the one before it has found nobody: settings that were saved between its reading of them and its
// registration, and a message of the watch.
void Vaktor::RetrouveCompagnon(Compagnon compagnon) {
  switch (compagnon) {
    case Compagnon::kFtp:
      Modules_->EnvoiFTP(Commande::kOptions);
      Live_->RetrouveCompagnon();
      break;
    case Compagnon::kMail:
      Modules_->EnvoiMail(Commande::kOptions);
      Modules_->EnvoiMail(Commande::kVeille);
      break;
    case Compagnon::kSon:
      Modules_->EnvoiSon(Commande::kOptions);
      break;
  }
}

// From here on the three inboxes stand in the store, and companions can be launched.
void Vaktor::CreeFormWinsock() {
  FormWinsock_ = std::make_unique<FormWinsock>(
      PortsWinsock{*Canal_, *Magasin_, Minuteries_, *Modules_, Vue_, VueLiaison_, Liaison_,
                   [this] { DemarrageAuto_->Relance(); }, [this] { return Veille_->EstRelance(Compagnon::kFtp); },
                   [this](Compagnon compagnon) { Veille_->Inscrit(compagnon); },
                   [this] { return Veille_->EstInscrit(Compagnon::kFtp); }});
}

void Vaktor::AnnonceEchec(const QString& description) {
  if (SansPersonne_) return;  // a window that saves as it closes, in a stop that nobody looks at
  Systeme_.Boites.MontreMessage(MessageEchecInattendu(LangueParlee(Reglages_.LangueCourante), description),
                                Textes_.Dit(Message::kTitre), BoutonsBoite::kOk);
}

void Vaktor::AnnonceDemarrageImpossible(const QString& description) {
  const QString message = MessageDemarrageImpossible(LangueParlee(Reglages_.LangueCourante), description);
  std::fprintf(stderr, "%s\n", qUtf8Printable(message));
  AbandonneDepart();
  Systeme_.Boites.MontreMessage(message, QStringLiteral("Vaktor"), BoutonsBoite::kOk);
  PrevientCompagnons();
}

}  // namespace vaktor
