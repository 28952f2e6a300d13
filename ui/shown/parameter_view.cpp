#include "ui/shown/parameter_view.h"

namespace vaktor {

void VueParametres::MontreParametre(ControleParametre controle) {
  // Each helper knows the controls of its page and leaves the others alone.
  MontreMoniteur(controle);
  MontreMail(controle);
  MontreFtp(controle);
  if (controle == ControleParametre::ChkSeuilAuto) Fenetre_.Options().ChkSeuilAuto->setChecked(Reglages_.SeuilAuto);
  if (controle == ControleParametre::CombSkin) MontreSkin();
}

void VueParametres::MontreSkin() {
  QComboBox& liste = *Fenetre_.Options().CombSkin;
  const bool change = liste.currentIndex() != Reglages_.IndexSkin;
  liste.setCurrentIndex(Reglages_.IndexSkin);
  // A list that already stands there tells no change, but a load always draws the pages anew.
  if (!change && Fenetre_.Face() != nullptr) Fenetre_.Face()->ChoisitSkin();
}

void VueParametres::MontreMoniteur(ControleParametre controle) {
  PageMoniteur& page = Fenetre_.Moniteur();
  switch (controle) {
    case ControleParametre::CheckPPhot:
      page.CheckPPhot->setChecked(Reglages_.PhotoActif);
      break;
    case ControleParametre::CheckSon:
      page.CheckSon->setChecked(Reglages_.SonActif);
      break;
    case ControleParametre::CheckMail:
      page.CheckMail->setChecked(Reglages_.MailActif);
      break;
    case ControleParametre::Text1:
      page.Text1->setText(QString::number(Reglages_.Retard));
      break;
    default:
      break;
  }
}

void VueParametres::MontreMail(ControleParametre controle) {
  PageMail& page = Fenetre_.Mail();
  switch (controle) {
    case ControleParametre::TextEMail:
      page.TextEMail->setText(Reglages_.MailDestination);
      break;
    case ControleParametre::TextSujet:
      page.TextSujet->setText(Reglages_.MailSujet);
      break;
    case ControleParametre::TextTexte:
      page.TextTexte->setPlainText(Reglages_.MailCorps);
      break;
    case ControleParametre::TxtNbrPhoto:
      page.TxtNbrPhoto->setText(Reglages_.MailNombrePhoto);
      break;
    case ControleParametre::TextNbrMail:
      page.TextNbrMail->setText(Reglages_.MailNombreMail);
      break;
    default:
      break;
  }
}

void VueParametres::MontreFtp(ControleParametre controle) {
  PageFtp& page = Fenetre_.Ftp();
  switch (controle) {
    case ControleParametre::TxtHtml:
      page.TxtHtml->setText(Reglages_.AdresseHtml);
      break;
    case ControleParametre::TxtFtp:
      page.TxtFtp->setText(Reglages_.AdresseFtp);
      break;
    case ControleParametre::TxtUserName:
      page.TxtUserName->setText(Reglages_.UtilisateurFtp);
      break;
    case ControleParametre::TxtFTPracine:
      page.TxtFTPracine->setText(Reglages_.RepertoireFtp);
      break;
    case ControleParametre::TxtRefresh:
      page.TxtRefresh->setText(Reglages_.IntervalleFtp);
      break;
    case ControleParametre::TxtPass:
      page.TxtPass->setText(Reglages_.MotDePasseFtp);
      break;
    case ControleParametre::TextNbrPhotoFTP:
      page.TextNbrPhotoFTP->setText(QString::number(Reglages_.NbrPhotosPage));
      break;
    case ControleParametre::CombQualit:
      page.CombQualit->setCurrentIndex(Reglages_.IndexQualite);
      break;
    default:
      break;
  }
}

}  // namespace vaktor
