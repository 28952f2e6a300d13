// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/common/module_program.h"

#include <QCoreApplication>
#include <QTextStream>
#include <cstdio>
#include <optional>

#include "base/failure.h"
#include "modules/common/main_link.h"
#include "platform/base/core_file.h"
#include "platform/base/end_signals.h"
#include "platform/base/qt_timers.h"
#include "platform/base/system_clock.h"
#include "platform/store/file_store.h"
#include "texts/language.h"

namespace vaktor {

namespace {

constexpr int kMauvaisArgument = 2;

/// A failure that nobody handles is told to the log, and the companion goes on: the next alarm may go better.
class ApplicationModule : public QCoreApplication {
 public:
  ApplicationModule(int& argc, char** argv) : QCoreApplication(argc, argv) {}

  std::function<void(const QString&)> SurEchec;

  bool notify(QObject* objet, QEvent* evenement) override {
    try {
      return QCoreApplication::notify(objet, evenement);
    } catch (const std::exception& echec) {
      if (SurEchec) SurEchec(QString::fromUtf8(echec.what()));
      return false;
    }
  }
};

/// "--help" and "--version", or nothing to do: gives the exit status then.
std::optional<int> TraiteArguments(int argc, char** argv, const DescriptionModule& description) {
  const QString programme = DonneIdentite(description.Qui).Programme;
  for (int i = 1; i < argc; ++i) {
    const QString argument = QString::fromLocal8Bit(argv[i]);
    if (argument == QLatin1String("--version")) {
      QTextStream(stdout) << programme << ' ' << description.Version << '\n';
      return 0;
    }
    if (argument == QLatin1String("--help")) {
      QTextStream(stdout) << description.Francais << '\n'
                          << description.English << "\n\n"
                          << programme << " [--help | --version]\n\n"
                          << description.Options
                          << QString::fromUtf8("Vaktor lance ce programme lui-même, sans argument.\n")
                          << "Vaktor starts this program by itself, without arguments.\n";
      return 0;
    }
    QTextStream(stderr) << programme << ": " << argument << " ? (--help)\n";
    return kMauvaisArgument;
  }
  return std::nullopt;
}

QString NommeInscription(Inscription comment) {
  switch (comment) {
    case Inscription::kTot:
      return QStringLiteral("registered");
    case Inscription::kTard:
      return QStringLiteral("registered late");
    case Inscription::kRelance:
      break;
  }
  return QStringLiteral("registered again");
}

/// The parts of a running companion, in the order in which they need each other.
class Execution {
 public:
  Execution(ApplicationModule& application, const DescriptionModule& description)
      : Identite_(DonneIdentite(description.Qui)),
        Dossiers_(TrouveDossiersModule()),
        Journal_(Dossiers_.Etat, Identite_.Programme, Temps_),
        Etat_(Dossiers_.Etat, Identite_.Programme, Temps_, NotifieBureau) {
    application.SurEchec = [this](const QString& quoi) { Journal_.Note(QStringLiteral("failure: ") + quoi); };
    Journal_.Note(QStringLiteral("start, version ") + description.Version);
  }

  int Execute(Compagnon qui, const std::function<std::unique_ptr<Module>(const ContexteModule&)>& cree) {
    // Before the window is opened, which a plain end would leave behind; what comes meanwhile is heard in the event
    // loop.
    const SignauxFin signaux([this] { Termine(QStringLiteral("signal")); });
    LienPrincipal lien(PortsLien{qui, DossierCanal(), Minuteries_, [this] { return LitPoignee(); },
                                 [this](Commande commande) { Execute(commande); },
                                 [this](Inscription comment) {
                                   Journal_.Note(NommeInscription(comment));
                                   Module_->Enregistre(comment);
                                 },
                                 [this] { Termine(QStringLiteral("main program gone")); },
                                 &QDateTime::currentMSecsSinceEpoch,
                                 qEnvironmentVariableIsSet(kVariableRelance.data())});
    Etat_.Demarre(lien.Poignee(), QDateTime::currentMSecsSinceEpoch());
    const std::unique_ptr<Minuterie> vie = Minuteries_.CreeMinuterie(
        QStringLiteral("TimerVie"), EtatModule::kBattement, [this] { Etat_.Bat(QDateTime::currentMSecsSinceEpoch()); });
    vie->Active();
    Module_ = cree(ContexteModule{Dossiers_, Journal_, Etat_, Minuteries_, Temps_,
                                  [&lien](const QString& mot) { lien.Dis(mot); }, [] { QCoreApplication::quit(); }});
    DonneReglages();
    lien.Demarre();
    const int statut = ApplicationModule::exec();
    Module_.reset();
    Journal_.Note(QStringLiteral("end"));
    return statut;
  }

  JournalBorne& Journal() { return Journal_; }

 private:
  /// Null while the file cannot be read; it may be a moment later.
  const MagasinReglages* OuvreMagasin() {
    try {
      if (Magasin_)
        Magasin_->Relit();
      else
        Magasin_ = std::make_unique<MagasinFichier>(Dossiers_.FichierReglages);
      return Magasin_.get();
    } catch (const Echec& echec) {
      if (DernierRefus_ != echec.Description()) Journal_.Note(echec.Description());
      DernierRefus_ = echec.Description();
      return nullptr;
    }
  }

  qint32 LitPoignee() {
    const MagasinReglages* magasin = OuvreMagasin();
    if (magasin == nullptr) return 0;
    // Asked every two seconds: what could not be read when it was saved is read now. No command comes twice.
    if (!ReglagesDonnes_ && Module_) DonneReglages();
    return LitHwndvk(*magasin, Identite_.Section);
  }

  void DonneReglages() {
    const MagasinReglages* magasin = OuvreMagasin();
    ReglagesDonnes_ = false;
    if (magasin == nullptr) return;
    const ReglagesModule reglages = LitReglagesModule(*magasin, Dossiers_.Programme.PhotosParDefaut());
    for (const QString& secret : {reglages.Valeurs.SmtpPass, reglages.Valeurs.MotDePasseFtp}) {
      Journal_.CacheSecret(secret);
      Etat_.CacheSecret(secret);
    }
    Etat_.ChangeLangue(LangueParlee(reglages.Valeurs.LangueCourante));
    Module_->PrendReglages(reglages);
    ReglagesDonnes_ = true;
  }

  void Execute(Commande commande) {
    if (commande == Commande::kOptions)
      DonneReglages();
    else if (commande == Commande::kQuitte)
      Termine(DonneMot(commande));
    else
      Module_->ExecuteCommande(commande);
  }

  void Termine(const QString& raison) {
    if (!Module_ || EnFin_) return;
    EnFin_ = true;
    Journal_.Note(QStringLiteral("ending: ") + raison);
    Module_->Termine();
  }

  IdentiteCompagnon Identite_;
  HorlogeSysteme Temps_;
  FabriqueMinuteriesQt Minuteries_;
  DossiersModule Dossiers_;
  JournalBorne Journal_;
  EtatModule Etat_;
  std::unique_ptr<MagasinFichier> Magasin_;
  std::unique_ptr<Module> Module_;
  QString DernierRefus_;
  bool EnFin_ = false;
  bool ReglagesDonnes_ = false;
};

}  // namespace

int ExecuteModule(int argc, char** argv, const DescriptionModule& description,
                  const std::function<std::unique_ptr<Module>(const ContexteModule&)>& cree) {
  if (const std::optional<int> statut = TraiteArguments(argc, argv, description)) return *statut;
  InterditImageMemoire();
  ApplicationModule application(argc, argv);
  Execution execution(application, description);
  try {
    return execution.Execute(description.Qui, cree);
  } catch (const std::exception& echec) {
    const QString quoi = QString::fromUtf8(echec.what());
    execution.Journal().Note(QStringLiteral("failure: ") + quoi);
    QTextStream(stderr) << DonneIdentite(description.Qui).Programme << ": " << quoi << '\n';
    return 1;
  }
}

}  // namespace vaktor
