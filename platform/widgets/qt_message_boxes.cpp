#include "platform/widgets/qt_message_boxes.h"

#include <QApplication>
#include <QMessageBox>

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

}  // namespace

ReponseBoite BoitesMessageQt::MontreMessage(const QString& texte, const QString& titre, BoutonsBoite boutons) {
  QMessageBox boite(QMessageBox::Information, titre, texte, BoutonsDe(boutons), QApplication::activeWindow());
  boite.setObjectName(QStringLiteral("BoiteMessage"));
  boite.setTextFormat(Qt::PlainText);  // "<500 Mo" and file names are no markup
  // The default button and the one for Escape are those that Qt finds by itself: the first, and the one that refuses.
  return ReponseDe(boite.exec());
}

}  // namespace vaktor
