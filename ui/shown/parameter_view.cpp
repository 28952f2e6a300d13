// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/shown/parameter_view.h"

namespace vaktor {
namespace {

using P = Parametres;

void Ecrit(QLineEdit& champ, const QString& texte) { champ.setText(texte); }
void Ecrit(QLineEdit& champ, qint32 nombre) { champ.setText(QString::number(nombre)); }
void Ecrit(QPlainTextEdit& champ, const QString& texte) { champ.setPlainText(texte); }
void Ecrit(CaseACocher& boite, bool coche) { boite.setChecked(coche); }
void Ecrit(QComboBox& liste, quint8 index) { liste.setCurrentIndex(index); }
// A number in a box, a flag in a field: what would convert without a word.
template <typename Controle, typename Valeur>
void Ecrit(Controle&, const Valeur&) = delete;

}  // namespace

VueParametres::VueParametres(const Parametres& reglages, Form1& fenetre)
    : Reglages_(reglages), Fenetre_(fenetre), Montres_(CreeTable()) {}

std::vector<VueParametres::ReglageMontre> VueParametres::CreeTable() {
  const PageOptions& options = Fenetre_.Options();
  const PageMoniteur& moniteur = Fenetre_.Moniteur();
  const PageMail& mail = Fenetre_.Mail();
  const PageFtp& ftp = Fenetre_.Ftp();
  // TxtRefresh and Text1 save as they are filled, so they wait until there is nothing left to read. TxtRefresh is empty
  // until then: this is what puts the whole table into a store that was empty. The two between them come behind its
  // save: what they mark as changed stays so where Text1 has nothing to change, and the stop saves it.
  return {
      // control, variable, moment
      Relie(options.ChkSeuilAuto, &P::SeuilAuto),
      {&P::IndexSkin, Moment::kLu, [this] { MontreSkin(); }},
      Relie(moniteur.CheckPPhot, &P::PhotoActif),
      Relie(moniteur.CheckSon, &P::SonActif),
      Relie(moniteur.CheckMail, &P::MailActif),
      Relie(mail.TextEMail, &P::MailDestination),
      Relie(mail.TextSujet, &P::MailSujet),
      Relie(mail.TextTexte, &P::MailCorps),
      Relie(mail.TxtNbrPhoto, &P::MailNombrePhoto),
      Relie(mail.TextNbrMail, &P::MailNombreMail),
      Relie(ftp.TxtHtml, &P::AdresseHtml),
      Relie(ftp.TxtFtp, &P::AdresseFtp),
      Relie(ftp.TxtUserName, &P::UtilisateurFtp),
      Relie(ftp.TxtFTPracine, &P::RepertoireFtp),
      Relie(ftp.CombQualit, &P::IndexQualite),
      Relie(ftp.TxtRefresh, &P::IntervalleFtp, Moment::kFin),
      Relie(ftp.TxtPass, &P::MotDePasseFtp, Moment::kFin),
      Relie(ftp.TextNbrPhotoFTP, &P::NbrPhotosPage, Moment::kFin),
      Relie(moniteur.Text1, &P::Retard, Moment::kFin),
  };
}

template <typename Controle, typename Valeur>
VueParametres::ReglageMontre VueParametres::Relie(Controle* controle, Valeur P::*champ, Moment quand) const {
  return {champ, quand, [this, controle, champ] { Ecrit(*controle, Reglages_.*champ); }};
}

void VueParametres::MontreLu(const ChampParametre& champ) {
  for (const ReglageMontre& reglage : Montres_) {
    if (reglage.Quand == Moment::kLu && reglage.Champ == champ) reglage.Remplit();
  }
}

void VueParametres::MontreFin() {
  for (const ReglageMontre& reglage : Montres_) {
    if (reglage.Quand == Moment::kFin) reglage.Remplit();
  }
}

void VueParametres::MontreSkin() {
  QComboBox& liste = *Fenetre_.Options().CombSkin;
  const bool change = liste.currentIndex() != Reglages_.IndexSkin;
  liste.setCurrentIndex(Reglages_.IndexSkin);
  // A list that already stands there tells no change, but a load always draws the pages anew.
  if (!change && Fenetre_.Face() != nullptr) Fenetre_.Face()->ChoisitSkin();
}

}  // namespace vaktor
