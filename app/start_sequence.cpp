// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/start_sequence.h"

#include "base/failure.h"
#include "base/numbers.h"

namespace vaktor {

SequenceDepart::SequenceDepart(const PortsDepart& ports)
    : Ports_(ports),
      // Named with its form: the main form has a Timer1 of its own.
      Timer1_(
          ports.Minuteries.CreeMinuterie(QStringLiteral("frmSplash.Timer1"), kDureeSplash, [this] { FinitSplash(); })) {
  Ports_.Splash.SurClic([this] { FinitSplash(); });
}

void SequenceDepart::Charge(const QString& version) {
  Ports_.Splash.MontreVersion(QStringLiteral("Version ") + version);
  Ports_.Splash.MontreTitre(QStringLiteral("Vaktor"));
  LitLangue();
  if (!Passe()) return;
  Ports_.Splash.MontreProgres(QStringLiteral("Initializing..."));
  if (!Passe()) return;
  Ports_.Etapes.ChargeParametres();
  if (!Passe()) return;
  Ports_.Etapes.ChargeTextes();
  if (!Passe()) return;
  Timer1_->ChangeIntervalle(kDureeSplash);
  Timer1_->Active();
  Ports_.Etapes.LanceModules();
  if (!Passe()) return;
  Ports_.Splash.MontreProgres(QStringLiteral("Loading..."));
  if (!Passe()) return;
  Ports_.Etapes.ChargeFormMonitor();
  if (!Passe()) return;
  Ports_.Splash.MontreProgres(QStringLiteral("Ready..."));
  if (!Passe()) return;
  // Also when it has fired in one of the pumps, on a machine that is slow to launch the companions. It then fires once
  // more to no effect.
  Timer1_->Active();
  if (!Finie_) Ports_.Splash.Montre();
}

// Before the settings are loaded, for what can fail before the load comes to the language: a folder that cannot be
// made, a channel that does not open. A number that makes no sense is told by the load itself.
void SequenceDepart::LitLangue() {
  try {
    Ports_.Reglages.LangueCourante = TexteEnEntier(
        Ports_.Magasin.LitReglage(QStringLiteral("general"), QStringLiteral("langue"), QStringLiteral("0")));
  } catch (const Echec&) {
    Ports_.Reglages.LangueCourante = 0;
  }
}

bool SequenceDepart::Passe() {
  Ports_.Pompe.PompeMessages();
  return !Ports_.Etat.EnFermeture;
}

// The timer and a click do the same. Both can come, also one inside the pump of the other: the first one counts, and a
// later one only stops the timer.
void SequenceDepart::FinitSplash() {
  if (Finie_ || Ports_.Etat.EnFermeture) return Timer1_->Desactive();
  Finie_ = true;
  Ports_.Etapes.MontreForm1();
  Ports_.Pompe.PompeMessages();
  Ports_.Splash.Cache();
  Timer1_->Desactive();
}

}  // namespace vaktor
