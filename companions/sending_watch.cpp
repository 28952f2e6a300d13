// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/sending_watch.h"

#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <exception>

#include "base/failure.h"
#include "engine/ports/moment.h"
#include "texts/text_tables.h"

namespace vaktor {
namespace {

constexpr QLatin1StringView kSujetFichier{"sound-file "};

}  // namespace

SuiviEnvois::SuiviEnvois(const PortsEnvois& ports)
    : Ports_(ports),
      Debut_(LitMoment(ports.Temps)),
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
  JugePush();
  JugePage();
  JugeCoupure();
  JugeNouvelles();
  JugeSon();
  if (Ports_.Reglages.MailActif || LiveDepuis_ || EcouteSon())
    Ports_.Lecteur.LitEtats([this](const EtatsCompagnons& etats) { Recoit(etats); });
}

void SuiviEnvois::SuitInterrupteurs() {
  if (!Ports_.Reglages.MailActif) {
    AttendDepuis_ = {};
    AttendPushDepuis_ = {};
  }
  if (!Ports_.Liaison.SurveillanceEnCours) {
    LiveDepuis_.reset();
    PublieA_ = {};
    FtpParle_ = false;
  } else if (!LiveDepuis_) {
    LiveDepuis_ = Maintenant();
  }
  SuitNouvelles(Compagnon::kMail, Ports_.Reglages.MailActif && Ports_.Liaison.HandleMail != 0);
  SuitNouvelles(Compagnon::kFtp, LiveDepuis_ && Ports_.Liaison.HandleFTP != 0);
}

// One that has ended or hangs is told as that, and its silence is no second failure.
void SuiviEnvois::SuitNouvelles(Compagnon qui, bool attendues) {
  Nouvelles& siennes = De(qui);
  if (!attendues || (Ports_.Present && !Ports_.Present(qui)))
    siennes.Depuis.reset();
  else if (!siennes.Depuis)
    siennes.Depuis = Maintenant();
}

// What it says of its life is compared and not counted: no clock that is set makes it old. One that says nothing of it
// lives as long as its file is there.
bool SuiviEnvois::EstNouvelle(Compagnon qui, const EtatCompagnon& etat) {
  const qint32 poignee = qui == Compagnon::kFtp ? Ports_.Liaison.HandleFTP : Ports_.Liaison.HandleMail;
  if (etat.Poignee == 0 || etat.Poignee != poignee) return false;
  Nouvelles& siennes = De(qui);
  const bool change = etat.Battement.isEmpty() || etat.Battement != siennes.Battement;
  siennes.Battement = etat.Battement;
  if (change && siennes.Depuis) siennes.Depuis = Maintenant();
  return true;
}

void SuiviEnvois::JugeNouvelles() {
  QStringList muets;
  for (const Compagnon qui : {Compagnon::kMail, Compagnon::kFtp}) {
    const std::optional<qint64> depuis = De(qui).Depuis;
    if (depuis && Maintenant() - *depuis > kSansNouvelles) muets.append(DonneIdentite(qui).Programme);
  }
  if (muets.isEmpty())
    Ports_.Sante.Leve(Condition::kEnvoisInconnus);
  else
    Ports_.Sante.Signale(Condition::kEnvoisInconnus, muets.join(QStringLiteral(", ")));
}

void SuiviEnvois::Recoit(const EtatsCompagnons& etats) {
  SuitInterrupteurs();
  const bool mail = EstNouvelle(Compagnon::kMail, etats.Mail);
  const bool ftp = EstNouvelle(Compagnon::kFtp, etats.Ftp);
  JugeNouvelles();
  if (Ports_.Reglages.MailActif && mail) {
    Suit(AttendDepuis_, etats.Mail.Attente, etats.Mail.AttenteDite);
    MotsMail_ = etats.Mail.MotsServeur;
    Suit(AttendPushDepuis_, etats.Mail.AttentePush, etats.Mail.AttentePushDite);
    MotsPush_ = etats.Mail.MotsPush;
    SuitAccepte(etats.Mail.Accepte);
    JugeCourriels();
    JugePush();
  }
  if (LiveDepuis_ && ftp) {
    FtpParle_ = true;
    // One that was started again has published nothing so far; the image of the one before is still on the site.
    if (etats.Ftp.Publie) Suit(PublieA_, etats.Ftp.Publie, etats.Ftp.PublieDit);
    MotsFtp_ = etats.Ftp.MotsServeur;
    JugePage();
  }
  // What it says of its last sound is as true in an hour: it does not age, and no second file of life is wanted of it.
  if (EcouteSon() && etats.Son.Poignee == Ports_.Liaison.HandleSon) {
    const QString& sujet = etats.Son.Sujet;
    SonMuet_.reset();
    if (sujet.startsWith(kSujetFichier))
      SonMuet_ = sujet.mid(kSujetFichier.size());
    else if (!sujet.isEmpty())
      SonMuet_ = etats.Son.MotsServeur;
    JugeSon();
  }
}

void SuiviEnvois::Suit(Moment& moment, const std::optional<qint64>& age, const QString& dit) {
  if (!age)
    moment = {};
  else if (!moment.A || dit.isEmpty() || dit != moment.Dit)
    moment = {Maintenant() - *age, dit};
}

// The first reading may find what an earlier run has sent, and a mail that was taken before it: an alarm at once has
// its mail long before that.
void SuiviEnvois::SuitAccepte(const QString& accepte) {
  const QDateTime quand = QDateTime::fromString(accepte, Qt::ISODate);
  const bool nouveau = Accepte_ ? *Accepte_ != accepte && !accepte.isEmpty() : quand.isValid() && quand >= Debut_;
  Accepte_ = accepte;
  if (nouveau && Ports_.SurAccepte) Ports_.SurAccepte();
}

void SuiviEnvois::JugeCourriels() {
  if (AttendDepuis_.A && Maintenant() - *AttendDepuis_.A > kAttenteMax)
    Ports_.Sante.Signale(Condition::kCourrielsEnAttente, MotsMail_);
  else
    Ports_.Sante.Leve(Condition::kCourrielsEnAttente);
}

void SuiviEnvois::JugePush() {
  if (AttendPushDepuis_.A && Maintenant() - *AttendPushDepuis_.A > kAttenteMax)
    Ports_.Sante.Signale(Condition::kPushEnAttente, MotsPush_);
  else
    Ports_.Sante.Leve(Condition::kPushEnAttente);
}

void SuiviEnvois::JugePage() {
  if (LiveDepuis_ && FtpParle_ &&
      Maintenant() - std::max(*LiveDepuis_, PublieA_.A.value_or(*LiveDepuis_)) > DonneAgeMax())
    Ports_.Sante.Signale(Condition::kPageAncienne, MotsFtp_);
  else
    Ports_.Sante.Leve(Condition::kPageAncienne);
}

void SuiviEnvois::JugeCoupure() {
  if (!Ports_.Liaison.PageCoupee) return Ports_.Sante.Leve(Condition::kPageCoupee);
  TablesTextes textes;
  textes.Remplit(LangueParlee(Ports_.Reglages.LangueCourante));
  Ports_.Sante.Signale(Condition::kPageCoupee, textes.Dit(*Ports_.Liaison.PageCoupee));
}

bool SuiviEnvois::EcouteSon() const { return Ports_.Reglages.SonActif && Ports_.Liaison.HandleSon != 0; }

// One that was switched off and on again is asked anew.
void SuiviEnvois::JugeSon() {
  if (!EcouteSon()) SonMuet_.reset();
  if (SonMuet_)
    Ports_.Sante.Signale(Condition::kSonMuet, *SonMuet_);
  else
    Ports_.Sante.Leve(Condition::kSonMuet);
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
