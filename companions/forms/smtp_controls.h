// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of FrmSmtp and their places. No rules.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace vaktor {

/// Made in the order in which the Tab key walks them. Owner of all controls: the form.
struct ControlesSmtp {
  explicit ControlesSmtp(QWidget* forme);

  /// The fields and boxes in their rows, top to bottom.
  QGridLayout* DonneGrille() const;

  QCheckBox* ChkMailWinsock;
  QLabel* LblMailWinsock;
  QComboBox* CmbComptes;
  QLabel* LblFrom;
  QLineEdit* TxtFrom;
  QLabel* LblSMTPadresse;
  QLineEdit* TxtSMTP;
  QLabel* LblSMTPport;
  QLineEdit* TextPort;
  QCheckBox* CheckNeedLoginSMTP;
  QLabel* LblNeedLoginSMTP;
  QLabel* LblSMTPuser;
  QLineEdit* TxtSMTPuser;
  QLabel* LblSMTPass;
  QLineEdit* TxtSMTPpass;
  QLabel* LblSMTPjeton;
  QLineEdit* TxtSMTPjeton;
  QCheckBox* CheckSansChiffrement;
  QLabel* LblSansChiffrement;
  QLabel* LblSigneDeVie;
  QComboBox* CmbSigneDeVie;  ///< none, then the hours from 0 to 23; its words are the form's
};

inline constexpr int kHeures = 24;

/// Enabled and white, or disabled and grey.
void ActiveChamp(QLineEdit& champ, bool actif);
/// The tool tip of a control that can be off, and why it then is: behind the tip, as long as it is off.
void EcritAide(QWidget& controle, const QString& aide);
void EcritRaison(QWidget& controle, const QString& raison);
/// Text colour: red where the user is to look.
void RougitChampSmtp(QLineEdit& champ, bool rouge);
bool EstRougeSmtp(const QLineEdit& champ);

}  // namespace vaktor
