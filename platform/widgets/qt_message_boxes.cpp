// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/widgets/qt_message_boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>

#include "texts/phrase.h"

namespace vaktor {
namespace {

QMessageBox::StandardButtons BoutonsDe(BoutonsBoite boutons) {
  switch (boutons) {
    case BoutonsBoite::kOkAnnuler:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case BoutonsBoite::kOuiNon:
      return QMessageBox::Yes | QMessageBox::No;
    case BoutonsBoite::kOk:
      break;
  }
  return QMessageBox::Ok;
}

ReponseBoite ReponseDe(int bouton, BoutonsBoite boutons) {
  switch (bouton) {
    case QDialog::Rejected:
      return boutons == BoutonsBoite::kOk ? ReponseBoite::kOk : ReponseBoite::kAnnuler;
    case QMessageBox::Cancel:
      return ReponseBoite::kAnnuler;
    case QMessageBox::Yes:
      return ReponseBoite::kOui;
    case QMessageBox::No:
      return ReponseBoite::kNon;
    default:
      return ReponseBoite::kOk;
  }
}

/// Closed without an answer it has none. The toolkit would take that for a click on the button that says No, which to
/// a question such as "do you want to complete this?" is an answer with consequences.
class Boite : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  void keyPressEvent(QKeyEvent* evenement) override {
    evenement->matches(QKeySequence::Cancel) ? done(QDialog::Rejected) : QMessageBox::keyPressEvent(evenement);
  }
  void closeEvent(QCloseEvent* evenement) override {
    done(QDialog::Rejected);
    evenement->accept();
  }
};

// The toolkit would write them in the language of the system, or in English where its translations are not installed:
// a French question would be answered by "Yes" and "No".
void EcritBoutons(const QMessageBox& boite, Langue langue) {
  const auto ecrit = [&](QMessageBox::StandardButton lequel, const Phrase& mot) {
    QAbstractButton* bouton = boite.button(lequel);
    if (bouton != nullptr) bouton->setText(mot.Dit(langue));
  };
  ecrit(QMessageBox::Ok, {"&OK", "&OK"});
  ecrit(QMessageBox::Cancel, {"&Annuler", "&Cancel"});
  ecrit(QMessageBox::Yes, {"&Oui", "&Yes"});
  ecrit(QMessageBox::No, {"&Non", "&No"});
}

}  // namespace

ReponseBoite BoitesMessageQt::MontreMessage(const QString& texte, const QString& titre, BoutonsBoite boutons) {
  Boite boite(QMessageBox::Information, titre, texte, BoutonsDe(boutons), QApplication::activeWindow());
  boite.setObjectName(QStringLiteral("BoiteMessage"));
  boite.setTextFormat(Qt::PlainText);  // "<500 Mo" and file names are no markup
  EcritBoutons(boite, Langue_ ? Langue_() : Langue::kFrancais);
  // The default button is the one that Qt finds by itself: the first.
  return ReponseDe(boite.exec(), boutons);
}

}  // namespace vaktor
