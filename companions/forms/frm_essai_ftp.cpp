#include "companions/forms/frm_essai_ftp.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

#include "companions/rehearsal_words.h"

namespace vaktor {

namespace {

constexpr int kLargeur = 430;
constexpr int kMarge = 12;
constexpr int kEcart = 10;
constexpr int kPolice = 12;  // pixels, as in all windows of the program

}  // namespace

FrmEssaiFtp::FrmEssaiFtp(PortsFrmEssaiFtp ports) : Ports_(std::move(ports)) {
  setObjectName(QStringLiteral("FrmEssaiFtp"));
  QFont police(QStringLiteral("Arial"));
  police.setPixelSize(kPolice);
  setFont(police);
  Panneau_ = new PanneauEssai(this, Ports_.Essai, Ports_.Demande);
  CmdFermer_ = new QPushButton(this);
  CmdFermer_->setObjectName(QStringLiteral("CmdFermer"));
  connect(CmdFermer_, &QAbstractButton::clicked, this, &QWidget::close);
  auto* colonne = new QVBoxLayout(this);
  colonne->setContentsMargins(kMarge, kMarge, kMarge, kMarge);
  colonne->setSpacing(kEcart);
  colonne->addWidget(Panneau_);
  colonne->addWidget(CmdFermer_, 0, Qt::AlignRight);
  colonne->setSizeConstraint(QLayout::SetFixedSize);
  Panneau_->setFixedWidth(kLargeur - 2 * kMarge);
}

void FrmEssaiFtp::EcritMots(qint32 langue) {
  setWindowTitle(TitreEssaiFtp(langue));
  CmdFermer_->setText(MotFermer(langue));
  Panneau_->EcritMots(DonneMotsEssaiFtp(langue), InviteEssaiFtp(langue, Ports_.Serveur()));
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
