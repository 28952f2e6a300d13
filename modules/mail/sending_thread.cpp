// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/sending_thread.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <cstring>
#include <exception>
#include <optional>
#include <utility>

#include "base/failure.h"
#include "modules/common/sending_loop.h"
#include "modules/mail/drafts.h"
#include "modules/mail/durable_file.h"
#include "modules/mail/mail_maker.h"
#include "modules/mail/smtp_sender.h"
#include "platform/store/private_file.h"

namespace vaktor {
namespace {

constexpr qint64 kTexteCadenceMax = 64LL * 1024;

qint64 DonneMaintenant() { return QDateTime::currentMSecsSinceEpoch(); }

}  // namespace

struct FilEnvoi::Partage : BoucleEnvoi {
  ReglagesFil Fil;
  std::function<void(const RapportEnvoi&)> Rapporte;  // hands over to the event loop

  ReglagesEnvoi Reglages;
  bool ReglagesRecus = false;
  bool Change = false;                                      // settings that differ: all mails are due
  bool Reveille = false;                                    // something happened since the last look
  QByteArray Mecanisme;                                     // the login that the server of these settings has taken
  QList<std::pair<CourrielEnAttente, QByteArray>> Confies;  // from memory

  void Execute();
  void VideLeSac();
  qint64 Tour(Facteur& facteur, bool& recommence);
  void Attends(qint64 millisecondes);
  std::unique_ptr<VerrouDossier> PrendVerrou();
  ResultatEnvoi Envoie(const CourrielEnAttente& courriel, const QByteArray& message,
                       const std::function<void(const QList<VerdictAdresse>&)>& surAccepte);
  void PrendConfies(Facteur& facteur);
  QStringList DonneDestinataires() {
    const std::lock_guard verrou(Verrou);
    return Reglages.Presente.Destinataires;
  }
  QString CheminCadence() const { return Fil.Dossier + QStringLiteral("/cadence"); }
};

void FilEnvoi::Partage::Attends(qint64 millisecondes) {
  std::unique_lock verrou(Verrou);
  if (!Reveille && !Arret) Reveil.wait_for(verrou, std::chrono::milliseconds(millisecondes));
  Reveille = false;
}

std::unique_ptr<VerrouDossier> FilEnvoi::Partage::PrendVerrou() {
  while (!Arret) {
    try {
      return std::make_unique<VerrouDossier>(Fil.Dossier);
    } catch (const Echec&) {
      Attends(1000);  // another companion still sends
    }
  }
  return nullptr;
}

ResultatEnvoi FilEnvoi::Partage::Envoie(const CourrielEnAttente& courriel, const QByteArray& message,
                                        const std::function<void(const QList<VerdictAdresse>&)>& surAccepte) {
  ReglagesEnvoi reglages;
  {
    const std::lock_guard verrou(Verrou);
    reglages = Reglages;
    reglages.Mecanisme = Mecanisme;
  }
  const CourrielPret pret = PrepareEnvoi(courriel, message, reglages);
  ResultatEnvoi resultat =
      EnvoieCourriel(reglages, pret.Adresses, pret.Message, {[this] { return Arret.load(); }, surAccepte, {}});
  const std::lock_guard verrou(Verrou);
  if (resultat.Accepte && !Change) Mecanisme = resultat.Mecanisme;
  return resultat;
}

void FilEnvoi::Partage::PrendConfies(Facteur& facteur) {
  QList<std::pair<CourrielEnAttente, QByteArray>> confies;
  {
    const std::lock_guard verrou(Verrou);
    confies = std::exchange(Confies, {});
  }
  for (const auto& [courriel, message] : std::as_const(confies)) facteur.Confie(courriel, message);
}

// Out of this thread an exception, want of memory before all, would end the companion. The mails stand on disk, and are
// looked at again a little later.
void FilEnvoi::Partage::Execute() {
  while (!Arret) {
    try {
      VideLeSac();
    } catch (const std::exception&) {
      Attends(kRepriseMs);
    }
  }
}

// The postman stays: what it alone knows is which mails have gone and must not go again.
qint64 FilEnvoi::Partage::Tour(Facteur& facteur, bool& recommence) {
  try {
    if (recommence) {
      facteur.Recommence(DonneDestinataires());
    }
    recommence = false;
    PrendConfies(facteur);
    return facteur.Tour();
  } catch (const std::exception&) {
    return kRepriseMs;
  }
}

void FilEnvoi::Partage::VideLeSac() {
  const std::unique_ptr<VerrouDossier> verrou = PrendVerrou();
  if (!verrou) return;
  SacPostal sac(Fil.Dossier);
  LecteurPhotos photos;
  int erreur = RecupereSac(sac, photos, Fil.Marque);
  QElapsedTimer depuis;
  depuis.start();
  if (erreur != 0)
    Rapporte({QStringLiteral("of an earlier run"),
              {.Cause = CauseEchec::kFichier, .MotsServeur = QString::fromLocal8Bit(std::strerror(erreur))},
              Fil.RepriseBrouillons});
  PlafondHoraire plafond(Fil.CourrielsParHeure);
  QFile cadence(CheminCadence());
  if (cadence.open(QIODevice::ReadOnly)) plafond.Relit(cadence.read(kTexteCadenceMax));
  const auto envoie = [this](const CourrielEnAttente& courriel, const QByteArray& message,
                             const std::function<void(const QList<VerdictAdresse>&)>& surAccepte) {
    return Envoie(courriel, message, surAccepte);
  };
  Facteur facteur(sac, plafond, &DonneMaintenant, envoie, [&](const RapportEnvoi& rapport) {
    if (rapport.Resultat.Accepte) EcritDurable(CheminCadence(), {plafond.Texte()});
    Rapporte(rapport);
  });
  bool recommence = false;
  while (!Arret) {
    bool pret = false;
    {
      const std::lock_guard garde(Verrou);
      recommence = std::exchange(Change, false) || recommence;
      pret = ReglagesRecus;
    }
    if (erreur != 0 && depuis.hasExpired(Fil.RepriseBrouillons)) {
      erreur = PublieBrouillons(sac, photos, Fil.Marque);
      depuis.start();
    }
    const qint64 attente = pret ? Tour(facteur, recommence) : Facteur::kRienAFaire;
    if (attente > 0) Attends(erreur != 0 ? std::min(attente, Fil.RepriseBrouillons) : attente);
  }
}

FilEnvoi::FilEnvoi(const ReglagesFil& reglages, const Facteur::Rapporteur& surRapport)
    : Partage_(std::make_shared<Partage>()), Fil_(nullptr) {
  Partage_->Fil = reglages;
  Partage_->Rapporte = RapporteALaBoucle<RapportEnvoi>(Contexte_, *Partage_, surRapport);
  Fil_ = QThread::create([partage = Partage_] { partage->Execute(); });
  Fil_->start();
}

FilEnvoi::~FilEnvoi() { FinisOuLaisse(*Partage_, Fil_); }

void FilEnvoi::ChangeReglages(const ReglagesEnvoi& reglages) {
  const std::lock_guard verrou(Partage_->Verrou);
  Partage_->Change = Partage_->Change || (Partage_->ReglagesRecus && !(Partage_->Reglages == reglages));
  if (!(Partage_->Reglages == reglages)) Partage_->Mecanisme.clear();
  Partage_->Reglages = reglages;
  Partage_->ReglagesRecus = true;
  Partage_->Reveille = true;
  Partage_->Reveil.notify_all();
}

void FilEnvoi::Reveille() {
  const std::lock_guard verrou(Partage_->Verrou);
  Partage_->Reveille = true;
  Partage_->Reveil.notify_all();
}

void FilEnvoi::Confie(const CourrielEnAttente& courriel, const QByteArray& message) {
  const std::lock_guard verrou(Partage_->Verrou);
  Partage_->Confies.append({courriel, message});
  Partage_->Reveille = true;
  Partage_->Reveil.notify_all();
}

void FilEnvoi::Arrete(std::function<void()> fini) {
  Partage_->DemandeFin();
  if (!fini) return;
  if (Fil_->isFinished())
    QMetaObject::invokeMethod(&Contexte_, fini, Qt::QueuedConnection);
  else
    QObject::connect(Fil_, &QThread::finished, &Contexte_, fini);
}

}  // namespace vaktor
