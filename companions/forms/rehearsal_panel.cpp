// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/forms/rehearsal_panel.h"

#include <QGridLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace vaktor {

namespace {

constexpr int kEspace = 6;
constexpr int kHauteurEtapes = 122;
constexpr int kLignesPhrase = 4;
constexpr QRgb kNeutre = qRgb(0x40, 0x40, 0x40);
constexpr QRgb kVert = qRgb(0x00, 0x66, 0x22);
constexpr QRgb kRouge = qRgb(0xb0, 0x10, 0x10);

void Colore(QLabel& etiquette, QRgb couleur) {
  QPalette palette = etiquette.palette();
  palette.setColor(QPalette::WindowText, QColor::fromRgb(couleur));
  etiquette.setPalette(palette);
}

void RetireDerniereLigne(QPlainTextEdit& liste) {
  QTextCursor curseur(liste.document()->lastBlock());
  curseur.select(QTextCursor::BlockUnderCursor);
  curseur.removeSelectedText();
}

}  // namespace

PanneauEssai::PanneauEssai(QWidget* parent, EssaiReglages& essai, std::function<QByteArray()> demande)
    : QWidget(parent),
      Essai_(essai),
      Demande_(std::move(demande)),
      CmdEssai_(new QPushButton(this)),
      LblEssai_(new QLabel(this)),
      TxtEssai_(new QPlainTextEdit(this)) {
  CmdEssai_->setObjectName(QStringLiteral("CmdEssai"));
  CmdEssai_->setAutoDefault(true);  // Enter presses it too; only dialogs do that by themselves
  LblEssai_->setObjectName(QStringLiteral("LblEssai"));
  TxtEssai_->setObjectName(QStringLiteral("TxtEssai"));
  // What a server says is text, never markup.
  LblEssai_->setTextFormat(Qt::PlainText);
  LblEssai_->setWordWrap(true);
  LblEssai_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  LblEssai_->setMinimumHeight(kLignesPhrase * LblEssai_->fontMetrics().lineSpacing());  // nothing jumps when it fills
  TxtEssai_->setReadOnly(true);
  TxtEssai_->setTabChangesFocus(true);
  TxtEssai_->setMaximumBlockCount(kEtapesMax);
  TxtEssai_->setFixedHeight(kHauteurEtapes);
  // The keyboard can walk and copy the lines.
  TxtEssai_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* grille = new QGridLayout(this);
  grille->setContentsMargins(0, 0, 0, 0);
  grille->setHorizontalSpacing(2 * kEspace);
  grille->setVerticalSpacing(kEspace);
  grille->addWidget(CmdEssai_, 0, 0, Qt::AlignVCenter);
  grille->addWidget(LblEssai_, 0, 1);
  grille->addWidget(TxtEssai_, 1, 0, 1, 2);
  grille->setColumnStretch(1, 1);
  connect(CmdEssai_, &QAbstractButton::clicked, this, &PanneauEssai::Bascule);
}

PanneauEssai::~PanneauEssai() { Arrete(); }

void PanneauEssai::EcritMots(const MotsEssai& mots, const MotsEssai& autre, const QString& invite) {
  Mots_ = mots;
  MotsAutre_ = autre;
  TxtEssai_->setAccessibleName(Mots_.Etapes);
  CmdEssai_->setToolTip(Mots_.Aide);
  // How the last one ended stays; what the companion or the server said of it cannot be said anew.
  if (FinMontree_ && MotFin_ != nullptr) LblEssai_->setText(MotsDites().*MotFin_);
  if (EnCours_) LblEssai_->setText(Mots_.EnCours);
  MontreInvite(invite);
  RafraichitBouton();
}

void PanneauEssai::MontreInvite(const QString& invite) {
  if (EnCours_ || FinMontree_) return;
  Colore(*LblEssai_, kNeutre);
  LblEssai_->setText(invite);
}

void PanneauEssai::RafraichitBouton() { CmdEssai_->setText(EnCours_ ? Mots_.Annuler : Mots_.Essayer); }

void PanneauEssai::Bascule() {
  if (!EnCours_) {
    Essaie();
    return;
  }
  Arrete();
  MontreEchec(&MotsEssai::Annule);
}

void PanneauEssai::Essaie() {
  if (EnCours_) return;
  Autre_ = false;
  Lance(Demande_());
}

void PanneauEssai::EssaieAutre(const QByteArray& demande) {
  Autre_ = true;
  Lance(demande);
}

void PanneauEssai::Lance(const QByteArray& demande) {
  EnCours_ = true;
  Derniere_.clear();
  TxtEssai_->clear();
  Colore(*LblEssai_, kNeutre);
  LblEssai_->setText(Mots_.EnCours);
  RafraichitBouton();
  Essai_.Lance(demande, {[this](const QString& ligne) { AjouteEtape(ligne); }, [this](FinEssai fin) { Acheve(fin); }});
}

void PanneauEssai::Arrete() {
  if (!EnCours_) return;
  EnCours_ = false;
  Essai_.Annule();
  RafraichitBouton();
}

void PanneauEssai::AjouteEtape(const QString& ligne) {
  Derniere_ = ligne.left(kLigneMax);
  TxtEssai_->appendPlainText(MotsDites().NommeEtape ? MotsDites().NommeEtape(Derniere_) : Derniere_);
}

void PanneauEssai::Acheve(FinEssai fin) {
  EnCours_ = false;
  RafraichitBouton();
  const bool phrase = (fin == FinEssai::kAccepte || fin == FinEssai::kRefuse) && !Derniere_.isEmpty();
  if (!phrase) {
    MontreEchec(fin == FinEssai::kSansFin ? &MotsEssai::SansFin : &MotsEssai::Impossible);
    return;
  }
  RetireDerniereLigne(*TxtEssai_);  // it moves into the sentence
  MontreFin(Derniere_, fin == FinEssai::kAccepte);
}

void PanneauEssai::MontreEchec(QString MotsEssai::*mot) {
  MontreFin(MotsDites().*mot, false);
  MotFin_ = mot;
}

void PanneauEssai::MontreFin(const QString& phrase, bool reussi) {
  MotFin_ = nullptr;
  FinMontree_ = true;
  Colore(*LblEssai_, reussi ? kVert : kRouge);
  LblEssai_->setText(phrase);
}

}  // namespace vaktor
