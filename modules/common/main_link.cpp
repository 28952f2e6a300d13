// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/common/main_link.h"

#include <utility>

namespace vaktor {

LienPrincipal::LienPrincipal(const PortsLien& ports)
    : Ports_(ports),
      Emetteur_(ports.Dossier),
      Fenetre_(ports.Dossier, [this](const QByteArray& message) { RecoitMessage(message); }),
      TimerVerification_(
          ports.Minuteries.CreeMinuterie(QStringLiteral("TimerVerification"), kVerification, [this] { Verifie(); })),
      Relance_(ports.Relance) {}

void LienPrincipal::Demarre() {
  TimerVerification_->Active();
  Enregistre();
}

void LienPrincipal::Dis(const QString& texte) { Emetteur_.Poste(PoigneePrincipale_, texte.toUtf8()); }

void LienPrincipal::RecoitMessage(const QByteArray& message) {
  bool nombre = false;
  const qint32 code = message.toInt(&nombre);
  const std::optional<Commande> commande = nombre ? LitCodeTouche(Ports_.Qui, code) : std::nullopt;
  if (!commande) return;
  // One that waited for us while we were busy or held up: whatever it told of is over.
  if (DonneTenue(*commande) == Tenue::kInstant && Age() > kDureeInstant) return;
  Ports_.SurCommande(*commande);
}

qint64 LienPrincipal::Age() const {
  const qint64 maintenant = Ports_.Maintenant();
  return maintenant - Fenetre_.Depart().value_or(maintenant);
}

bool LienPrincipal::Enregistre() {
  const qint32 poignee = Ports_.LitHwndvk();
  if (poignee == PoigneePrincipale_ || !Ports_.Dossier.Repond(poignee).value_or(false)) return false;
  PoigneePrincipale_ = poignee;
  Dis(kMotHwnd + QString::number(Fenetre_.Poignee()));
  Ports_.SurEnregistrement(JugeInscription(poignee));
  return true;
}

Inscription LienPrincipal::JugeInscription(qint32 poignee) {
  // Asked first: a clock that was set back may give an old inbox the look of a new one.
  if (std::exchange(Relance_, false)) return Inscription::kRelance;
  const std::optional<qint64> ouverture = Ports_.Dossier.DonneOuverture(poignee);
  // A clock that was set back in between tells nothing: late is what does no harm.
  const qint64 age = ouverture ? Ports_.Maintenant() - *ouverture : -1;
  return age >= 0 && age < kDebut ? Inscription::kTot : Inscription::kTard;
}

void LienPrincipal::Verifie() {
  // The store first: a second main program may have published its handle while the first one still answers.
  if (Enregistre()) {
    Absence_ = 0;
    return;
  }
  const std::optional<bool> repond = Ports_.Dossier.Repond(PoigneePrincipale_);
  if (!repond) return;  // who has no descriptor left to ask with is not alone for that
  if (*repond) {
    Absence_ = 0;
    return;
  }
  Absence_ += kVerification;
  if (Absence_ < kAbandon) return;
  TimerVerification_->Desactive();
  Ports_.SurPerte();
}

}  // namespace vaktor
