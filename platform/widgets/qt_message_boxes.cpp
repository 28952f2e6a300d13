#include "platform/widgets/qt_message_boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include "base/language.h"

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

ReponseBoite ReponseDe(int bouton) {
  switch (bouton) {
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

// The toolkit would write them in the language of the system, or in English where its translations are not installed:
// a French question would be answered by "Yes" and "No".
void EcritBoutons(const QMessageBox& boite, qint32 langue) {
  const auto ecrit = [&](QMessageBox::StandardButton lequel, const char* francais, const char* anglais) {
    QAbstractButton* bouton = boite.button(lequel);
    if (bouton != nullptr) bouton->setText(ChoisitLangue(langue, QLatin1String(francais), QLatin1String(anglais)));
  };
  ecrit(QMessageBox::Ok, "&OK", "&OK");
  ecrit(QMessageBox::Cancel, "&Annuler", "&Cancel");
  ecrit(QMessageBox::Yes, "&Oui", "&Yes");
  ecrit(QMessageBox::No, "&Non", "&No");
}

}  // namespace

ReponseBoite BoitesMessageQt::MontreMessage(const QString& texte, const QString& titre, BoutonsBoite boutons) {
  QMessageBox boite(QMessageBox::Information, titre, texte, BoutonsDe(boutons), QApplication::activeWindow());
  boite.setObjectName(QStringLiteral("BoiteMessage"));
  boite.setTextFormat(Qt::PlainText);  // "<500 Mo" and file names are no markup
  EcritBoutons(boite, Langue_ ? Langue_() : 0);
  // The default button and the one for Escape are those that Qt finds by itself: the first, and the one that refuses.
  return ReponseDe(boite.exec());
}

}  // namespace vaktor
