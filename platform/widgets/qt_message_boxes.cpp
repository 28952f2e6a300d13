#include "platform/widgets/qt_message_boxes.h"

#include <QApplication>
#include <QMessageBox>

namespace vaktor {
namespace {

struct Choix {
  QMessageBox::StandardButtons Boutons;
  QMessageBox::StandardButton ParDefaut;
  QMessageBox::StandardButton Echappement;
};

Choix ChoixDe(BoutonsBoite boutons) {
  switch (boutons) {
    case BoutonsBoite::kOkAnnuler:
      return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel};
    case BoutonsBoite::kOuiNon:
      return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
    case BoutonsBoite::kOk:
      break;
  }
  return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
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
  const Choix choix = ChoixDe(boutons);
  QMessageBox boite(QMessageBox::Information, titre, texte, choix.Boutons, QApplication::activeWindow());
  boite.setObjectName(QStringLiteral("BoiteMessage"));
  boite.setTextFormat(Qt::PlainText);  // "<500 Mo" and file names are no markup
  boite.setDefaultButton(choix.ParDefaut);
  boite.setEscapeButton(choix.Echappement);
  return ReponseDe(boite.exec());
}

}  // namespace vaktor
