#include "app/application.h"

#include <QCoreApplication>
#include <QScreen>
#include <cstdio>

#include "app/camera.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "platform/base/program_folders.h"
#include "platform/capture/capture_memory.h"
#include "ui/own_words.h"
#include "ui/window_placement.h"

namespace vaktor {

namespace {
constexpr qint32 kAucunSurvol = 5555;
}  // namespace

Vaktor::Vaktor(ArgumentsDepart arguments)
    : Arguments_(std::move(arguments)), Dossiers_(TrouveDossiers(Arguments_.Dossier)) {}

Vaktor::~Vaktor() { DechargeFormes(); }

void Vaktor::Demarre() {
  const QString reglages = TrouveDossierReglages(Arguments_.Dossier);
  Magasin_ = std::make_unique<MagasinFichier>(reglages + QStringLiteral("/vaktor.ini"));
  LitLangue();
  const QString manquant = PrepareDossiers(Dossiers_);
  if (!manquant.isEmpty()) {
    throw Echec(kFichierIntrouvable, MessageDossierImpossible(Reglages_.LangueCourante, manquant));
  }
  Memoire_ = std::make_unique<MemoireCapture>(reglages + QStringLiteral("/capture.ini"));
  Pilote_ = CreePilote(Arguments_.Camera, *Memoire_, [this] { return Reglages_.LangueCourante; });
  Sauvegarde_ = std::make_unique<ReglagesPersistants>(
      LiensReglages{Reglages_, *Magasin_, Disque_, Modules_, Dossiers_.Donnees,
                    [this]() -> AffichageParametres& { return ChargeForm1(); },
                    [this] { return Moteur_ ? Moteur_->Surface().Taille() : QSize(); }});

  Pompe_.PompeMessages();
  Sauvegarde_->ChargeParametres();
  Pompe_.PompeMessages();
  ChargeurTextes_->ChargeTextes();
  Pompe_.PompeMessages();
  if (Etat_.EnFermeture) return;
  MontreFenetres();
  Demarree_ = true;
}

// The language of a message that has to be shown before the settings are loaded. A number that makes no sense is told
// by the load itself.
void Vaktor::LitLangue() {
  try {
    Reglages_.LangueCourante =
        TexteEnEntier(Magasin_->LitReglage(QStringLiteral("general"), QStringLiteral("langue"), QStringLiteral("0")));
  } catch (const Echec&) {
    Reglages_.LangueCourante = 0;
  }
}

// The load step of the main form. It runs inside the load of the settings: the delay and the language are known, the
// rest still has its start values.
AffichageParametres& Vaktor::ChargeForm1() {
  Sons_.SurvolSon(kAucunSurvol);
  Pompe_.PompeMessages();
  CreeMoteur();
  CreeForm1();
  Photos_->FixeDateJour();
  Moteur_->LitArguments(Arguments_.LigneCommande);
  return *VueParametres_;
}

void Vaktor::CreeMoteur() {
  Moteur_ = std::make_unique<Surveillance>(
      PortsSurveillance{Reglages_, *Sauvegarde_, *Pilote_, Minuteries_, Temps_, Pompe_, Sons_, Actions_, Live_, Vue_});
  Photos_ = std::make_unique<EnregistreurPhotos>(PortsPhotos{Reglages_, Dossiers_, Moteur_->Surface(), Temps_,
                                                             Ecrivain_, Disque_, [this] { return Live_.LiveActif(); }});
  Actions_.Relie(*Photos_);
}

void Vaktor::CreeForm1() {
  Form1_ = std::make_unique<Form1>(ServicesForm1{
      Reglages_, *Sauvegarde_, Textes_, *Moteur_, Live_, Boites_, [this] { return Photos_->VerifieEspaceDisque(); },
      [this] { ChargeurTextes_->ChargeTextes(); },
      [this](bool montre) { montre ? PleinEcran_.Montre() : PleinEcran_.Cache(); }, [this] { FermeApplication(); }});
  FormMonitor_ = std::make_unique<FormMonitor>(*Moteur_, Etat_, Reglages_, *Sauvegarde_);
  QObject::connect(FormMonitor_.get(), &FormMonitor::PleinEcranChoisi, Form1_.get(), [this] { PleinEcran_.Montre(); });
  PleinEcran_.SurFermeture([this] { Form1_->CheckPEcran().setChecked(false); });
  Vue_.Relie({*Moteur_, Reglages_, *Form1_, *FormMonitor_, PleinEcran_});
  VueParametres_ = std::make_unique<VueParametres>(Reglages_, *Form1_);
  ChargeurTextes_ = std::make_unique<ChargeurTextes>(Reglages_, Textes_, *Form1_, *FormMonitor_,
                                                     [this] { EcritLibellesBoutons(*Form1_, Textes_); });
}

void Vaktor::MontreFenetres() {
  const QRect ecran = Form1_->screen()->availableGeometry();
  Form1_->move(ecran.center() - QPoint(Form1_->width() / 2, Form1_->height() / 2));
  Form1_->show();
  PlaceMoniteur();
  QObject::connect(FormMonitor_.get(), &FormMonitor::TailleChangee, Form1_.get(), [this] { PlaceMoniteur(); });
}

// The monitor opens beside the main window, not over it, and stays clear of it when the frame gets another size, until
// the user has moved it.
void Vaktor::PlaceMoniteur() {
  if (PlaceMoniteur_ && FormMonitor_->pos() != *PlaceMoniteur_) return;
  const QRect ecran = Form1_->screen()->availableGeometry();
  PlaceMoniteur_ = PlaceFenetre(ecran, Form1_->frameGeometry(), FormMonitor_->frameGeometry().size());
  FormMonitor_->move(*PlaceMoniteur_);
}

void Vaktor::Ferme() {
  if (Demarree_) {
    Form1_->close();
    return;
  }
  // Half-way up, the parameters are only partly those of the store: nothing may be saved.
  Etat_.EnFermeture = true;
  QCoreApplication::exit();
}

// The close request of the main form. One pass: nothing is asked, nothing refuses, nothing is waited for.
void Vaktor::FermeApplication() {
  if (Fermee_) return;
  Fermee_ = true;
  Moteur_->DeconnectePilote();
  Etat_.EnFermeture = true;
  Live_.OublieLive();
  Moteur_->Arrete();
  const QString mot = QStringLiteral("Quit*");
  Modules_.EnvoiFTP(mot);
  Modules_.EnvoiMail(mot);
  Modules_.EnvoiSon(mot);
  Pompe_.PompeMessages();
  SauveAvantFin();
  Pompe_.PompeMessages();
  PleinEcran_.Decharge();
  FormMonitor_->close();
  Pompe_.PompeMessages();
  // Not quit(), which does nothing while a message box runs the only event loop.
  QCoreApplication::exit();
}

void Vaktor::SauveAvantFin() {
  if (!Reglages_.ParametresModifies) return;
  try {
    Sauvegarde_->SauveParametres();
  } catch (const Echec& echec) {
    // The end must not stop half-way, and the user must know what was lost.
    std::fprintf(stderr, "Vaktor: %s\n", qUtf8Printable(echec.Description()));
    Boites_.MontreMessage(echec.Description(), Textes_.Messages(4), BoutonsBoite::kOk);
  }
}

void Vaktor::DechargeFormes() {
  PleinEcran_.Decharge();
  ChargeurTextes_.reset();
  VueParametres_.reset();
  FormMonitor_.reset();
  Form1_.reset();
}

void Vaktor::AnnonceEchec(const QString& description) {
  Boites_.MontreMessage(MessageEchecInattendu(Reglages_.LangueCourante, description), Textes_.Messages(4),
                        BoutonsBoite::kOk);
}

void Vaktor::AnnonceDemarrageImpossible(const QString& description) {
  const QString message = MessageDemarrageImpossible(Reglages_.LangueCourante, description);
  std::fprintf(stderr, "%s\n", qUtf8Printable(message));
  Boites_.MontreMessage(message, QStringLiteral("Vaktor"), BoutonsBoite::kOk);
}

}  // namespace vaktor
