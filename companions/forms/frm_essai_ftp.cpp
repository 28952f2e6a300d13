// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/forms/frm_essai_ftp.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <utility>

#include "companions/forms/form_look.h"
#include "companions/rehearsal_words.h"
#include "texts/language.h"

namespace vaktor {

FrmEssaiFtp::FrmEssaiFtp(PortsFrmEssaiFtp ports) : Ports_(std::move(ports)) {
  setObjectName(QStringLiteral("FrmEssaiFtp"));
  // No font of its own: whoever needs large print has set it in the desktop.
  Panneau_ = new PanneauEssai(this, Ports_.Essai, Ports_.Demande);
  CmdFermer_ = new QPushButton(this);
  CmdFermer_->setObjectName(QStringLiteral("CmdFermer"));
  CmdFermer_->setAutoDefault(true);  // Enter presses it too; only dialogs do that by themselves
  connect(CmdFermer_, &QAbstractButton::clicked, this, &QWidget::close);
  QVBoxLayout* colonne = CreeColonne(*this);
  colonne->addWidget(Panneau_);
  colonne->addWidget(CmdFermer_, 0, Qt::AlignRight);
  Panneau_->setFixedWidth(kLargeurForme - 2 * kMargeForme);
}

void FrmEssaiFtp::EcritMots(Langue langue) {
  setWindowTitle(TitreEssaiFtp(langue));
  CmdFermer_->setText(MotFermer(langue));
  Panneau_->EcritMots(DonneMotsEssaiFtp(langue), {}, InviteEssaiFtp(langue, Ports_.Serveur()));
}

void FrmEssaiFtp::Essaie() {
  show();
  raise();
  activateWindow();
  Panneau_->Essaie();
}

void FrmEssaiFtp::closeEvent(QCloseEvent* evenement) {
  Panneau_->Arrete();
  evenement->accept();
}

void FrmEssaiFtp::keyPressEvent(QKeyEvent* evenement) {
  if (evenement->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(evenement);
}

}  // namespace vaktor
