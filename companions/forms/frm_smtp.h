// SPDX-License-Identifier: GPL-3.0-or-later
// FrmSmtp: the window in which the user says how the alarm mails are sent.
#pragma once

#include <QWidget>
#include <functional>

#include "base/application_state.h"
#include "base/ports/message_boxes.h"
#include "companions/forms/push_fields.h"
#include "companions/forms/rehearsal_panel.h"
#include "companions/forms/smtp_controls.h"
#include "companions/mail_accounts.h"
#include "companions/smtp_settings.h"
#include "settings/saving.h"
#include "texts/text_tables.h"

namespace vaktor {

/// All of it outlives the form.
struct PortsFrmSmtp {
  Parametres& Reglages;
  SauvegardeParametres& Sauvegarde;
  const TablesTextes& Textes;
  const EtatApplication& Etat;
  BoitesMessage& Boites;
  PompeEvenements& Pompe;
  LecteurComptes& Lecteur;
  ComptesMail& Comptes;
  EssaiReglages& Essai;
};

/// Made anew for each opening, so that the accounts are read anew; gone when it is closed. The settings change with
/// each key that is typed; they reach the store when the form is closed. Owner: app/. User-interface thread.
class FrmSmtp : public QWidget {
  Q_OBJECT

 public:
  explicit FrmSmtp(const PortsFrmSmtp& ports);
  ~FrmSmtp() override;

  /// The load step, before the form is shown: shows the settings, reads the accounts, fills empty settings from the
  /// default account. Pending events run in it. What they throw goes through: the form is then not to be shown.
  void Charge();
  /// The words of the current language.
  void EcritMots();
  void Montre();
  /// The end of the program: saves and hides, asks nothing. Throws Echec when the store cannot be written.
  void Decharge();

 Q_SIGNALS:
  /// The form was closed and saved; it is to be deleted, later.
  void Dechargee();

 protected:
  void closeEvent(QCloseEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;
  void changeEvent(QEvent* evenement) override;

 private:
  void AfficheCompteSmtp();
  void ActiveChampsSmtp();
  void EcritRaisons();
  void BrancheControles();
  void BrancheTexte(QLineEdit* champ, QString Parametres::*variable);
  void SuitPort(const QString& texte);
  void ChoisitCompte(qint32 index);
  void EcritComptes();
  void MontreOAuth2();
  void JugeExpediteur();
  void EcritSigneDeVie(Langue langue);
  bool PeutFermer();
  bool AccepteSansServeur();
  bool AccepteSansConnexion();
  TextesSmtp LitTextes() const;
  QString DonneDestination() const;

  PortsFrmSmtp Ports_;
  ControlesSmtp Controles_;
  ChampsPush Push_;
  PanneauEssai* Panneau_;
};

}  // namespace vaktor
