#include "companions/sending_watch.h"

#include <algorithm>
#include <cstdio>
#include <exception>

#include "base/failure.h"

namespace vaktor {

SuiviEnvois::SuiviEnvois(const PortsEnvois& ports)
    : Ports_(ports),
      DernierTic_(static_cast<quint32>(ports.Temps.CompteTics())),
      TimerEnvois_(ports.Minuteries.CreeMinuterie(QStringLiteral("TimerEnvois"), kRegard, [this] { Regarde(); })) {
  TimerEnvois_->Active();
}

SuiviEnvois::~SuiviEnvois() {
  try {
    Ports_.Lecteur.Oublie();
  } catch (const std::exception& echec) {
    std::fprintf(stderr, "Vaktor: %s\n", echec.what());
  }
}

qint64 SuiviEnvois::Maintenant() {
  const auto tic = static_cast<quint32>(Ports_.Temps.CompteTics());
  Ecoule_ += tic - DernierTic_;
  DernierTic_ = tic;
  return Ecoule_;
}

// First what is known, which has aged; then the files are asked, whose answer may never come.
void SuiviEnvois::Regarde() {
  SuitInterrupteurs();
  JugeCourriels();
  JugePage();
  if (Ports_.Reglages.MailActif || LiveDepuis_)
    Ports_.Lecteur.LitEtats([this](const EtatsCompagnons& etats) { Recoit(etats); });
}

void SuiviEnvois::SuitInterrupteurs() {
  if (!Ports_.Reglages.MailActif) AttendDepuis_.reset();
  if (!Ports_.Liaison.SurveillanceEnCours) {
    LiveDepuis_.reset();
    PublieA_.reset();
    FtpParle_ = false;
  } else if (!LiveDepuis_) {
    LiveDepuis_ = Maintenant();
  }
}

void SuiviEnvois::Recoit(const EtatsCompagnons& etats) {
  SuitInterrupteurs();
  const qint64 maintenant = Maintenant();
  if (Ports_.Reglages.MailActif && etats.Mail.Poignee != 0 && etats.Mail.Poignee == Ports_.Liaison.HandleMail) {
    AttendDepuis_ = etats.Mail.Attente ? std::optional(maintenant - *etats.Mail.Attente) : std::nullopt;
    MotsMail_ = etats.Mail.MotsServeur;
    JugeCourriels();
  }
  if (LiveDepuis_ && etats.Ftp.Poignee != 0 && etats.Ftp.Poignee == Ports_.Liaison.HandleFTP) {
    FtpParle_ = true;
    // One that was started again has published nothing so far; the image of the one before is still on the site.
    if (etats.Ftp.Publie) PublieA_ = maintenant - *etats.Ftp.Publie;
    MotsFtp_ = etats.Ftp.MotsServeur;
    JugePage();
  }
}

void SuiviEnvois::JugeCourriels() {
  if (AttendDepuis_ && Maintenant() - *AttendDepuis_ > kAttenteMax)
    Ports_.Sante.Signale(Condition::kCourrielsEnAttente, MotsMail_);
  else
    Ports_.Sante.Leve(Condition::kCourrielsEnAttente);
}

void SuiviEnvois::JugePage() {
  if (LiveDepuis_ && FtpParle_ &&
      Maintenant() - std::max(*LiveDepuis_, PublieA_.value_or(*LiveDepuis_)) > DonneAgeMax())
    Ports_.Sante.Signale(Condition::kPageAncienne, MotsFtp_);
  else
    Ports_.Sante.Leve(Condition::kPageAncienne);
}

qint64 SuiviEnvois::DonneAgeMax() {
  qint64 intervalle = kIntervalleParDefaut;
  try {
    intervalle = static_cast<qint64>(double{Intervalle_.LitSecondes(Ports_.Reglages.IntervalleFtp)} * 1000.0);
  } catch (const Echec&) {
    // While such a text stands no image is published at all: the page grows old, which is to be told.
  }
  return kIntervallesPage * std::max<qint64>(intervalle, 0) + kMargePage;
}

}  // namespace vaktor
