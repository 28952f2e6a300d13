// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/real_system.h"

#include <QCoreApplication>
#include <QDateTime>

#include "app/camera.h"
#include "companions/contract/command_words.h"
#include "companions/module_lifecycle.h"
#include "platform/base/program_folders.h"
#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/choice/named_source.h"
#include "platform/channel/local_channel.h"
#include "platform/disk/bounded_store.h"
#include "texts/language.h"

namespace vaktor {

namespace {

QString TrouveFichierReglages(const QString& dossier) {
  return TrouveDossierReglages(dossier) + QLatin1Char('/') + kFichierReglages;
}

QString TrouveFichierJournal(const QString& dossier) {
  return TrouveDossierEtat(dossier) + QStringLiteral("/journal.jsonl");
}

// No two runs begin in the same millisecond under the same number.
QString NommeCourse() {
  return QString::number(QDateTime::currentMSecsSinceEpoch(), 36) + QLatin1Char('-') +
         QString::number(QCoreApplication::applicationPid(), 36);
}

// The built-in picture is for a try, and ./run names it by itself where there is no camera. At a login nobody would see
// that it is what is watched: there the camera is the one that was chosen, or the first.
QString CameraDeSession(const QString& camera) {
  return ComprendSource(camera).Genre == GenreSource::kTest ? QString() : camera;
}

}  // namespace

SystemeReel::SystemeReel(const ArgumentsDepart& arguments)
    : Arguments_(arguments),
      Dossiers_(TrouveDossiers(arguments.Dossier)),
      Sons_(Dossiers_, DisqueBorne_, LecteurSon_),
      Programmes_(arguments.Dossier),
      CasiersPublies_(TrouveFichierReglages(arguments.Dossier)),
      EssaiMail_(Dossiers_.Executables + u'/' + DonneIdentite(Compagnon::kMail).Programme, arguments.Dossier),
      EssaiFtp_(Dossiers_.Executables + u'/' + DonneIdentite(Compagnon::kFtp).Programme, arguments.Dossier),
      Etats_(TrouveDossierEtat(arguments.Dossier)),
      Courriels_(TrouveDossierReglages(arguments.Dossier) + u'/' + kDossierVeille, Encodeur_),
      Personnel_(TrouveDossierReglages(arguments.Dossier) + QStringLiteral("/alarme"),
                 TrouveDossierEtat(arguments.Dossier)),

      Journal_(TrouveFichierJournal(arguments.Dossier)),
      Chroniques_(TrouveFichierJournal(arguments.Dossier)),
      Session_(TrouveDossierSession(),
               {QCoreApplication::applicationFilePath(), CameraDeSession(arguments.Camera), arguments.Dossier}) {}

SystemeReel::~SystemeReel() = default;

// A disk that does not answer keeps no start from going on: the folders are there as a rule, or will be when it does.
QString SystemeReel::PrepareDossiersSansAttendre() {
  return DisqueBorne_.Attend<QString>([dossiers = Dossiers_] { return PrepareDossiers(dossiers); }).value_or(QString());
}

// One that ignores the polite request is waited for.
void SystemeReel::TermineErrants(Compagnon compagnon, std::function<void()> fini) {
  const auto balaie = [dossier = Arguments_.Dossier, compagnon] {
    ProcessusSysteme programmes(dossier, 0);  // no event loop here
    ::vaktor::TermineErrants(programmes, DonneIdentite(compagnon).Programme);
    return true;
  };
  Balais_.at(static_cast<std::size_t>(compagnon)).Pose(balaie, false, [fini = std::move(fini)](bool) { fini(); });
}

PortsSysteme SystemeReel::Ports() {
  const QString reglages = TrouveDossierReglages(Arguments_.Dossier);
  return {
      .Dossiers = Dossiers_,
      .PrepareDossiers = [this] { return PrepareDossiersSansAttendre(); },
      .OuvreMagasin = [this] { return std::make_unique<MagasinBorne>(TrouveFichierReglages(Arguments_.Dossier)); },
      .DossierMagasin = reglages,
      .OuvreCanal = [] { return std::make_unique<CanalLocal>(); },
      .CreePilote =
          [this, reglages](std::function<Langue()> langue) {
            Memoire_ = std::make_unique<MemoireCapture>(FichierMemoireCapture(reglages));
            return ::vaktor::CreePilote(Arguments_.Camera, *Memoire_, std::move(langue),
                                        TrouveDossierEtat(Arguments_.Dossier));
          },
      .Temps = Temps_,
      .Disque = DisqueBorne_,
      .Pompe = Pompe_,
      .Minuteries = Minuteries_,
      .Boites = Boites_,
      .Ecrivain = Ecrivain_,
      .Noms = Noms_,
      .Lecteur = Lecteur_,
      .Effaceur = Effaceur_,
      .Arbre = Arbre_,
      .Sonde = Sonde_,
      .EssaiPhotos = EssaiPhotos_,
      .Pertes = DisqueBorne_,
      .Sons = Sons_,
      .Programmes = Programmes_,
      .CasiersPublies = CasiersPublies_,
      .Mesureur = Mesureur_,
      .Machine = Machine_,
      .Navigateur = Navigateur_,
      .Comptes = Comptes_,
      .EssaiMail = EssaiMail_,
      .EssaiFtp = EssaiFtp_,
      .Etats = Etats_,
      .Bureau = Bureau_,
      .Courriels = Courriels_,
      .Personnel = Personnel_,
      .Journal = Journal_,
      .Chroniques = Chroniques_,
      .Vignettes = Vignettes_,
      .PhotosDuFilm = PhotosDuFilm_,
      .Films = Films_,
      .ChoixFilm = ChoixFilm_,
      .Course = NommeCourse(),
      .Session = Session_,
      .Site = {QStringLiteral(VAKTOR_SITE), Dossiers_.Executables + QStringLiteral("/site"),
               QStringLiteral(VAKTOR_VERSION)},
      .TermineErrants = [this](Compagnon compagnon,
                               std::function<void()> fini) { TermineErrants(compagnon, std::move(fini)); },
      .CreeFormSound =
          [this](Parametres& valeurs, SauvegardeParametres& sauvegarde) {
            return std::make_unique<FormSound>(ChoixSon(valeurs, sauvegarde, Sons_, ChoixFichier_));
          },
      .SuitLangue = [this](std::function<Langue()> langue) { Boites_.SuitLangue(std::move(langue)); },
      .ParleOutils = [this](Langue langue) { MotsOutils_.Parle(langue); },
  };
}

}  // namespace vaktor
