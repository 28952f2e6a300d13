// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/forms/smtp_controls.h"

#include <QHBoxLayout>
#include <limits>

namespace vaktor {

namespace {

constexpr int kColonneChamps = 1;
constexpr int kLargeurPort = 64;
constexpr int kEspace = 6;
constexpr QRgb kBlanc = qRgb(0xff, 0xff, 0xff);
constexpr QRgb kGris = qRgb(0xe0, 0xe0, 0xe0);

template <typename T>
T* Nomme(T* controle, const char* nom) {
  controle->setObjectName(QLatin1String(nom));
  return controle;
}

QLabel* CreeEtiquette(QWidget* forme, const char* nom) {
  auto* etiquette = Nomme(new QLabel(forme), nom);
  etiquette->setTextFormat(Qt::PlainText);
  return etiquette;
}

constexpr const char* kAide = "aide";
constexpr const char* kRaison = "raison";

void ComposeAide(QWidget& controle) {
  QStringList lignes = {controle.property(kAide).toString()};
  if (!controle.isEnabled()) lignes += controle.property(kRaison).toString();
  lignes.removeAll(QString());
  controle.setToolTip(lignes.join(u'\n'));
}

QLineEdit* CreeChamp(QWidget* forme, const char* nom) {
  auto* champ = Nomme(new QLineEdit(forme), nom);
  champ->setMaxLength(std::numeric_limits<int>::max());
  return champ;
}

}  // namespace

ControlesSmtp::ControlesSmtp(QWidget* forme)
    : ChkMailWinsock(Nomme(new QCheckBox(forme), "ChkMailWinsock")),
      LblMailWinsock(CreeEtiquette(forme, "LblMailWinsock")),
      CmbComptes(Nomme(new QComboBox(forme), "CmbComptes")),
      LblFrom(CreeEtiquette(forme, "LblFrom")),
      TxtFrom(CreeChamp(forme, "TxtFrom")),
      LblSMTPadresse(CreeEtiquette(forme, "LblSMTPadresse")),
      TxtSMTP(CreeChamp(forme, "TxtSMTP")),
      LblSMTPport(CreeEtiquette(forme, "LblSMTPport")),
      TextPort(CreeChamp(forme, "TextPort")),
      CheckNeedLoginSMTP(Nomme(new QCheckBox(forme), "CheckNeedLoginSMTP")),
      LblNeedLoginSMTP(CreeEtiquette(forme, "LblNeedLoginSMTP")),
      LblSMTPuser(CreeEtiquette(forme, "LblSMTPuser")),
      TxtSMTPuser(CreeChamp(forme, "TxtSMTPuser")),
      LblSMTPass(CreeEtiquette(forme, "LblSMTPass")),
      TxtSMTPpass(CreeChamp(forme, "TxtSMTPpass")),
      LblSMTPjeton(CreeEtiquette(forme, "LblSMTPjeton")),
      TxtSMTPjeton(CreeChamp(forme, "TxtSMTPjeton")),
      CheckSansChiffrement(Nomme(new QCheckBox(forme), "CheckSansChiffrement")),
      LblSansChiffrement(CreeEtiquette(forme, "LblSansChiffrement")),
      LblSigneDeVie(CreeEtiquette(forme, "LblSigneDeVie")),
      CmbSigneDeVie(Nomme(new QComboBox(forme), "CmbSigneDeVie")) {
  for (int i = 0; i <= kHeures; ++i) CmbSigneDeVie->addItem(QString());
  TxtSMTP->setText(QStringLiteral("smtp."));
  TextPort->setFixedWidth(kLargeurPort);
  TxtSMTPpass->setEchoMode(QLineEdit::Password);
  TxtSMTPpass->setStyleSheet(QStringLiteral("lineedit-password-character: 42"));      // "*"
  CmbComptes->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);  // a long address widens nothing
}

QGridLayout* ControlesSmtp::DonneGrille() const {
  auto* grille = new QGridLayout;
  grille->setHorizontalSpacing(2 * kEspace);
  grille->setVerticalSpacing(kEspace);
  grille->setColumnStretch(kColonneChamps, 1);
  int rang = 0;
  const auto ligneEntiere = [&](QWidget* case_, QWidget* etiquette) {
    auto* ligne = new QHBoxLayout;
    ligne->setSpacing(kEspace);
    ligne->addWidget(case_);
    ligne->addWidget(etiquette, 1);
    grille->addLayout(ligne, rang++, 0, 1, 2);
  };
  const auto ligne = [&](QWidget* etiquette, QWidget* champ) {
    grille->addWidget(etiquette, rang, 0);
    grille->addWidget(champ, rang++, kColonneChamps);
  };
  ligneEntiere(ChkMailWinsock, LblMailWinsock);
  grille->addWidget(CmbComptes, rang++, 0, 1, 2);
  ligne(LblFrom, TxtFrom);
  ligne(LblSMTPadresse, TxtSMTP);
  ligne(LblSMTPport, TextPort);
  ligneEntiere(CheckNeedLoginSMTP, LblNeedLoginSMTP);
  ligne(LblSMTPuser, TxtSMTPuser);
  ligne(LblSMTPass, TxtSMTPpass);
  ligne(LblSMTPjeton, TxtSMTPjeton);
  ligneEntiere(CheckSansChiffrement, LblSansChiffrement);
  ligne(LblSigneDeVie, CmbSigneDeVie);
  return grille;
}

void EcritAide(QWidget& controle, const QString& aide) {
  controle.setProperty(kAide, aide);
  ComposeAide(controle);
}

void EcritRaison(QWidget& controle, const QString& raison) {
  controle.setProperty(kRaison, raison);
  ComposeAide(controle);
}

void RougitChampSmtp(QLineEdit& champ, bool rouge) {
  QPalette palette = champ.palette();
  palette.setColor(QPalette::Text, rouge ? QColor(Qt::red) : QColor(Qt::black));
  champ.setPalette(palette);
}

bool EstRougeSmtp(const QLineEdit& champ) { return champ.palette().color(QPalette::Text) == QColor(Qt::red); }

void ActiveChamp(QLineEdit& champ, bool actif) {
  champ.setEnabled(actif);
  // For all states of the window: the system's own grey of a disabled field is not the one wanted.
  QPalette palette = champ.palette();
  palette.setColor(QPalette::Base, QColor::fromRgb(actif ? kBlanc : kGris));
  champ.setPalette(palette);
}

}  // namespace vaktor
