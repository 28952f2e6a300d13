// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/companion_rehearsal.h"

#include <utility>

#include "companions/contract/command_words.h"
#include "platform/base/inherited_files.h"
#include "platform/channel/system_processes.h"

namespace vaktor {

namespace {

/// Longer lines than this come from no companion of ours.
constexpr qint64 kLigneMax = 4096;

FinEssai DonneFin(QProcess::ExitStatus genre, int code) {
  if (genre != QProcess::NormalExit) return FinEssai::kImpossible;
  if (code == 0) return FinEssai::kAccepte;
  return code == 1 ? FinEssai::kRefuse : FinEssai::kImpossible;
}

}  // namespace

EssaiParCompagnon::EssaiParCompagnon(QString programme, QString dossierPrive, QStringList arguments, int dureeMax)
    : Programme_(std::move(programme)), DossierPrive_(std::move(dossierPrive)), Arguments_(std::move(arguments)) {
  Limite_.setSingleShot(true);
  Limite_.setInterval(dureeMax);
  QObject::connect(&Limite_, &QTimer::timeout, &Limite_, [this] { Termine(FinEssai::kSansFin); });
}

EssaiParCompagnon::~EssaiParCompagnon() { Abandonne(); }

void EssaiParCompagnon::Lance(const QByteArray& demande, const RappelsEssai& rappels) {
  Annule();
  Rappels_ = rappels;
  Processus_ = std::make_unique<QProcess>();
  QProcess* processus = Processus_.get();
  processus->setProcessEnvironment(DonneMilieuCompagnon(DossierPrive_));
  processus->setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QObject::connect(processus, &QProcess::readyReadStandardOutput, processus, [this] { LitLignes(); });
  QObject::connect(processus, &QProcess::finished, processus, [this](int code, QProcess::ExitStatus genre) {
    LitLignes();
    Termine(DonneFin(genre, code));
  });
  // Other errors come before the end, which then tells them.
  QObject::connect(processus, &QProcess::errorOccurred, processus, [this](QProcess::ProcessError erreur) {
    if (erreur == QProcess::FailedToStart) Termine(FinEssai::kImpossible);
  });
  Limite_.start();
  GardeFichiersOuverts();
  processus->start(Programme_, Arguments_ + QStringList{QString(kArgumentEssai)});
  if (!Processus_) return;  // it could not be started, and that has been told
  processus->write(demande);
  processus->closeWriteChannel();
}

void EssaiParCompagnon::LitLignes() {
  while (Processus_ && (Processus_->canReadLine() || Processus_->bytesAvailable() >= kLigneMax)) {
    const QString ligne = QString::fromUtf8(Processus_->readLine(kLigneMax)).trimmed();
    if (!ligne.isEmpty() && Rappels_.SurLigne) Rappels_.SurLigne(ligne);
  }
}

void EssaiParCompagnon::Annule() {
  Rappels_ = {};
  Abandonne();
}

void EssaiParCompagnon::Termine(FinEssai fin) {
  const RappelsEssai rappels = std::exchange(Rappels_, {});
  Abandonne();
  if (rappels.SurFin) rappels.SurFin(fin);
}

// Called also from inside the process's own signals: the object goes once it has ended, and nobody waits for that.
void EssaiParCompagnon::Abandonne() {
  Limite_.stop();
  if (!Processus_) return;
  QProcess* processus = Processus_.release();
  processus->disconnect();
  if (processus->state() == QProcess::NotRunning) {
    processus->deleteLater();
    return;
  }
  QObject::connect(processus, &QProcess::finished, processus, &QObject::deleteLater);
  QTimer::singleShot(kGrace, processus, &QProcess::kill);
  processus->terminate();
}

}  // namespace vaktor
