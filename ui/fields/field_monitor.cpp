// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/fields/field_monitor.h"

#include <utility>

#include "base/numbers.h"
#include "ui/common/field_text.h"
#include "ui/fields/field_events.h"
#include "ui/fields/field_rules.h"

namespace vaktor {

namespace {
constexpr qsizetype kAdresseMinimum = 3;  // characters, "a@b"
}  // namespace

ChampsMoniteur::ChampsMoniteur(const PortsChamps& ports, PortsChampsMoniteur moniteur, PageMoniteur& page,
                               ChampsMail& mail)
    : Ports_(ports), Moniteur_(std::move(moniteur)), Page_(page), Mail_(mail) {
  // Before the handler is tied: a design text is no change.
  PrepareChamp(*Page_.Text1, QStringLiteral("0"));
  connect(Page_.Text1, &QLineEdit::textChanged, this, &ChampsMoniteur::SuitText1);
  connect(Page_.CheckMail, &CaseACocher::Relachee, this, &ChampsMoniteur::RelacheCheckMail);
  connect(Page_.CheckPPhot, &CaseACocher::Relachee, this, &ChampsMoniteur::RelacheCheckPPhot);
  connect(Page_.CheckSon, &CaseACocher::Relachee, this, &ChampsMoniteur::RelacheCheckSon);
}

// Cleaned before anything else, so that a save that fails leaves no letters behind. The engine then takes the value,
// also into a countdown that runs, and saves.
void ChampsMoniteur::SuitText1() {
  EcritChamp(*Page_.Text1, NettoieNombre(Page_.Text1->text(), QStringLiteral("0"), 0));
  ReporteEchec(*Page_.Text1, [this] { Moniteur_.Moteur.ChangeRetard(ChiffresEnEntierBorne(Page_.Text1->text())); });
}

void ChampsMoniteur::RelacheCheckMail() {
  if (SmtpIncomplet(Ports_.Reglages)) {
    Ports_.Reglages.MailActif = false;
    Page_.CheckMail->setChecked(false);
    if (Moniteur_.MontreFrmSmtp) Moniteur_.MontreFrmSmtp();
  }
  if (AdresseManque()) {
    DemandeAdresse();
    return;
  }
  Ports_.Reglages.MailActif = Page_.CheckMail->isChecked();
  Ports_.NoteEtSauve();
}

bool ChampsMoniteur::AdresseManque() const {
  const QString& destination = Ports_.Reglages.MailDestination;
  if (destination.isEmpty() && SansServeurMaisPush(Ports_.Reglages)) return false;
  return Page_.CheckMail->isChecked() && destination.size() < kAdresseMinimum;
}

// Neither the switch nor the store changes: the box is unticked whatever the answer.
void ChampsMoniteur::DemandeAdresse() {
  const ReponseBoite reponse = Ports_.Boites.MontreMessage(
      Ports_.Textes.Dit(Message::kAdresseManque), Ports_.Textes.Dit(Message::kTitreManque), BoutonsBoite::kOkAnnuler);
  if (reponse == ReponseBoite::kOk) {
    Moniteur_.AmenePageMail();
    Mail_.DemandeAdresse();
  }
  Page_.CheckMail->setChecked(false);
}

void ChampsMoniteur::RelacheCheckPPhot() {
  const bool coche = Page_.CheckPPhot->isChecked();
  Ports_.Reglages.PhotoActif = coche;
  // Only a warning: the box stays ticked whatever the disk holds.
  if (coche && Moniteur_.VerifieEspaceDisque()) {
    Ports_.Boites.MontreMessage(Ports_.Textes.Dit(Message::kPeuDePlace), Ports_.Textes.Dit(Message::kTitre),
                                BoutonsBoite::kOk);
  }
  Ports_.NoteEtSauve();
}

void ChampsMoniteur::RelacheCheckSon() {
  Ports_.Reglages.SonActif = Page_.CheckSon->isChecked();
  Ports_.NoteEtSauve();
}

}  // namespace vaktor
