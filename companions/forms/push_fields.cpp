// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/forms/push_fields.h"

#include <QHBoxLayout>
#include <limits>
#include <utility>

#include "base/typed_text.h"
#include "companions/push_words.h"
#include "companions/rehearsal_words.h"

namespace vaktor {

namespace {

constexpr int kEspace = 6;

template <typename T>
T* Nomme(T* controle, const char* nom) {
  controle->setObjectName(QLatin1String(nom));
  return controle;
}

}  // namespace

ChampsPush::ChampsPush(QWidget* forme, Parametres& reglages, std::function<void()> essaie)
    : Reglages_(reglages),
      LblPush(Nomme(new QLabel(forme), "LblPush")),
      TxtPush(Nomme(new QLineEdit(forme), "TxtPush")),
      CmdEssaiPush(Nomme(new QPushButton(forme), "CmdEssaiPush")),
      LblPushEntete(Nomme(new QLabel(forme), "LblPushEntete")),
      TxtPushEntete(Nomme(new QLineEdit(forme), "TxtPushEntete")) {
  for (QLabel* etiquette : {LblPush, LblPushEntete}) etiquette->setTextFormat(Qt::PlainText);
  for (QLineEdit* champ : {TxtPush, TxtPushEntete}) champ->setMaxLength(std::numeric_limits<int>::max());
  TxtPushEntete->setEchoMode(
      QLineEdit::PasswordEchoOnEdit);  // it lets in like a password, and must be seen to be typed
  CmdEssaiPush->setAutoDefault(true);  // Enter presses it too; only dialogs do that by themselves
  QObject::connect(CmdEssaiPush, &QAbstractButton::clicked, CmdEssaiPush, std::move(essaie));
  Branche(TxtPush, &Parametres::PushAdresse, &EstPushAdresseMauvaise);
  Branche(TxtPushEntete, &Parametres::PushEntete, &EstPushEnteteMauvais);
}

void ChampsPush::Branche(QLineEdit* champ, QString Parametres::*variable, bool (*mauvais)(const QString&)) {
  QObject::connect(champ, &QLineEdit::textChanged, champ, [this, champ, variable, mauvais](const QString& texte) {
    const QString ligne = GardePremiereLigne(texte);
    Reglages_.*variable = ligne.trimmed();
    QPalette palette = champ->palette();
    palette.setColor(QPalette::Text, mauvais(ligne) ? Qt::red : Qt::black);
    champ->setPalette(palette);
    if (ligne != texte) champ->setText(ligne);
  });
}

void ChampsPush::AjouteA(QGridLayout& grille) const {
  const int rang = grille.rowCount();
  grille.addWidget(LblPush, rang, 0);
  auto* ligne = new QHBoxLayout;
  ligne->setSpacing(kEspace);
  ligne->addWidget(TxtPush, 1);
  ligne->addWidget(CmdEssaiPush);
  grille.addLayout(ligne, rang, 1);
  grille.addWidget(LblPushEntete, rang + 1, 0);
  grille.addWidget(TxtPushEntete, rang + 1, 1);
}

void ChampsPush::Montre() {
  const Parametres valeurs = Reglages_;  // each assignment below writes into the settings
  TxtPush->setText(valeurs.PushAdresse);
  TxtPushEntete->setText(valeurs.PushEntete);
}

void ChampsPush::EcritMots(Langue langue) {
  LblPush->setText(MotsPushAdresse(langue));
  TxtPush->setAccessibleName(MotsPushAdresse(langue));
  for (QWidget* controle : {static_cast<QWidget*>(LblPush), static_cast<QWidget*>(TxtPush)})
    controle->setToolTip(AidePushAdresse(langue));
  CmdEssaiPush->setText(DonneMotsEssaiPush(langue).Essayer);
  CmdEssaiPush->setAccessibleName(NomEssaiPush(langue));
  CmdEssaiPush->setToolTip(AideEssaiPush(langue));
  LblPushEntete->setText(MotsPushEntete(langue));
  TxtPushEntete->setAccessibleName(MotsPushEntete(langue));
  for (QWidget* controle : {static_cast<QWidget*>(LblPushEntete), static_cast<QWidget*>(TxtPushEntete)})
    controle->setToolTip(AidePushEntete(langue));
}

}  // namespace vaktor
