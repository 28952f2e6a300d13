// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/shown/text_loader.h"

#include <array>
#include <vector>

#include "texts/language.h"
#include "ui/shown/own_words.h"

namespace vaktor {

namespace {

struct LigneAide {
  Aide Mots;
  QWidget* Controle;
};

std::vector<LigneAide> DonneAides(Form1& fenetre) {
  const BandeauHaut& bandeau = fenetre.Bandeau();
  const PageMoniteur& moniteur = fenetre.Moniteur();
  const PageMail& mail = fenetre.Mail();
  const PageFtp& ftp = fenetre.Ftp();
  const PageOptions& options = fenetre.Options();
  return {{Aide::kCamera, bandeau.Bouton[0]},
          {Aide::kRetard, moniteur.Text1},
          {Aide::kPoints, moniteur.LabelTemoin1},
          {Aide::kPhotosParMail, mail.TxtNbrPhoto},
          {Aide::kNombreMails, mail.TextNbrMail},
          {Aide::kMailDestination, mail.TextEMail},
          {Aide::kSujet, mail.TextSujet},
          {Aide::kTexteMail, mail.TextTexte},
          {Aide::kEnvoieMail, moniteur.CheckMail},
          {Aide::kPrendPhoto, moniteur.CheckPPhot},
          {Aide::kAlarmeSonore, moniteur.CheckSon},
          {Aide::kJauge, bandeau.PictSeuil},
          {Aide::kPleinEcran, &fenetre.CheckPEcran()},
          {Aide::kDureeAnalyse, moniteur.LabelTemoin0},
          {Aide::kFormatVideo, options.BoutonGris4},
          {Aide::kSourceVideo, options.BoutonGris5},
          {Aide::kMiseAJour, moniteur.BoutonGris1},
          {Aide::kNotice, options.BoutonGris7},
          {Aide::kAdresseFtp, ftp.TxtFtp},
          {Aide::kAdresseHtml, ftp.TxtHtml},
          {Aide::kUtilisateurFtp, ftp.TxtUserName},
          {Aide::kMotDePasseFtp, ftp.TxtPass},
          {Aide::kIntervalle, ftp.TxtRefresh},
          {Aide::kQualiteImages, ftp.CombQualit},
          {Aide::kCreePage, ftp.BoutonGris2},
          {Aide::kTestePage, ftp.BoutonGris3},
          {Aide::kListeCouleurs, ftp.CombCouleur},
          {Aide::kNombrePhotosPage, ftp.LblNbrdephotoftp},
          {Aide::kCouleurPage, ftp.LblCouleurPage},
          {Aide::kSensibiliteAuto, options.ChkSeuilAuto},
          {Aide::kSensibiliteAuto, options.LblSeuilAuto}};
}

// A label and what it stands beside: that has no words of its own, and carries the label's for those who hear the
// window.
struct Legende {
  Libelle Mots;
  QLabel* Etiquette;
  QWidget* Champ;  // null: a heading
};

std::vector<Legende> DonneLegendes(Form1& fenetre) {
  const BandeauHaut& bandeau = fenetre.Bandeau();
  const PageMoniteur& moniteur = fenetre.Moniteur();
  const PageMail& mail = fenetre.Mail();
  const PageFtp& ftp = fenetre.Ftp();
  const PageOptions& options = fenetre.Options();
  return {{Libelle::kPhotosParMail, mail.LabelVague, mail.TxtNbrPhoto},
          {Libelle::kEMail, mail.LabelMaildest, mail.TextEMail},
          {Libelle::kSujet, mail.LabelMailSujet, mail.TextSujet},
          {Libelle::kTexteMail, mail.LabelMailTexte, mail.TextTexte},
          {Libelle::kEnvoieMail, moniteur.LabelCheckMail, moniteur.CheckMail},
          {Libelle::kPrendPhoto, moniteur.LabelCheckPhot, moniteur.CheckPPhot},
          {Libelle::kAlarmeSonore, moniteur.LabelCheckSon, moniteur.CheckSon},
          {Libelle::kNombreMails, mail.LabelNbrMail, mail.TextNbrMail},
          {Libelle::kAdresseFtp, ftp.Lblftp, ftp.TxtFtp},
          {Libelle::kAdresseHtml, ftp.LblHTML, ftp.TxtHtml},
          {Libelle::kUtilisateurFtp, ftp.LblUserName, ftp.TxtUserName},
          {Libelle::kMotDePasseFtp, ftp.LblPass, ftp.TxtPass},
          {Libelle::kIntervalle, ftp.LblIntervale, ftp.TxtRefresh},
          {Libelle::kQualiteImages, ftp.Label1, ftp.CombQualit},
          {Libelle::kAlarme, moniteur.Label4, nullptr},
          {Libelle::kSensibilite, bandeau.LabelSeuil, bandeau.PictSeuil},
          {Libelle::kRetard, moniteur.LabelRetard, moniteur.Text1},
          {Libelle::kNombrePhotosPage, ftp.LblNbrdephotoftp, ftp.TextNbrPhotoFTP},
          {Libelle::kCouleurPage, ftp.LblCouleurPage, ftp.CombCouleur},
          {Libelle::kSensibiliteAuto, options.LblSeuilAuto, options.ChkSeuilAuto},
          {Libelle::kRepertoire, ftp.LblRepRaciine, ftp.TxtFTPracine}};
}

// In the order of the lists.
constexpr std::array<Libelle, PageFtp::kNombreQualites> kQualites = {Libelle::kQualiteMax, Libelle::kQualiteHaute,
                                                                     Libelle::kQualiteMoyenne, Libelle::kQualiteBasse};
constexpr std::array<Libelle, PageFtp::kNombreCouleurs> kCouleurs = {Libelle::kRouge, Libelle::kVert,   Libelle::kBleu,
                                                                     Libelle::kGris,  Libelle::kMarron, Libelle::kJaune,
                                                                     Libelle::kBlanc};

}  // namespace

ChargeurTextes::ChargeurTextes(const Parametres& reglages, TablesTextes& textes, Form1& fenetre, FormMonitor& moniteur,
                               std::function<void()> chargeBoutons)
    : Reglages_(reglages),
      Textes_(textes),
      Fenetre_(fenetre),
      Moniteur_(moniteur),
      ChargeBoutons_(std::move(chargeBoutons)) {}

void ChargeurTextes::ChargeTextes() {
  Textes_.Remplit(LitLangue(Reglages_.LangueCourante));
  EcritAides();
  EcritTextes();
  EcritListes();
  if (Galerie_ != nullptr) Galerie_->ChargeMots();
  Moniteur_.setWindowTitle(Textes_.Dit(Libelle::kMoniteur));
  EcritEtats();
  ChargeBoutons_();
}

void ChargeurTextes::EcritAides() {
  for (const LigneAide& ligne : DonneAides(Fenetre_)) ligne.Controle->setToolTip(Textes_.Dit(ligne.Mots));
  Fenetre_.RediRaisons();
  // Both are disabled until the camera has been started, where it could not be. The second has no row in Aide.
  const QString raison = RaisonSansCamera(LangueParlee(Reglages_.LangueCourante));
  Fenetre_.Bandeau().Bouton[1]->ChangeAide(Textes_.Dit(Aide::kAlarme), raison);
  Fenetre_.Bandeau().Bouton[2]->ChangeAide(QString(), raison);
  Moniteur_.EcritAides(Textes_.Dit(Aide::kZone), AideBarre(LangueParlee(Reglages_.LangueCourante)));
}

void ChargeurTextes::EcritTextes() {
  for (const Legende& legende : DonneLegendes(Fenetre_)) {
    legende.Etiquette->setText(Textes_.Dit(legende.Mots));
    if (legende.Champ == nullptr) continue;
    legende.Champ->setAccessibleName(Textes_.Dit(legende.Mots));
    legende.Etiquette->setBuddy(legende.Champ);  // a list is called by its label alone: its name is what it shows
  }
  Fenetre_.Bandeau().ImageLedAlarme->ChangeMots(MotsLampeAlarme(LangueParlee(Reglages_.LangueCourante)));
  Fenetre_.Bandeau().ImageLedSurveill->ChangeMots(MotsLampeSurveillance(LangueParlee(Reglages_.LangueCourante)));
  // Heard, not seen: which language it is now.
  for (const Langue drapeau : kLangues) {
    Fenetre_.Options().Image4.at(RangLangue(drapeau))->Engage(drapeau == LitLangue(Reglages_.LangueCourante));
  }
  Fenetre_.Bandeau().PictSeuil->setAccessibleDescription(AideTouchesJauge(LangueParlee(Reglages_.LangueCourante)) +
                                                         u'\n' + Textes_.Dit(Aide::kJauge));
  PageMoniteur& page = Fenetre_.Moniteur();
  page.Picture2->ChangeParoles(MotVueReduite(LangueParlee(Reglages_.LangueCourante)), [&page] { return page.Mode(); });
  const Langue langue = LangueParlee(Reglages_.LangueCourante);
  PageOptions& options = Fenetre_.Options();
  options.LblSession->setText(LibelleSession(langue));
  options.LblSession->setBuddy(options.ChkSession);
  options.ChkSession->setAccessibleName(LibelleSession(langue));
  for (QWidget* controle : {static_cast<QWidget*>(options.ChkSession), static_cast<QWidget*>(options.LblSession)})
    controle->setToolTip(AideSession(langue));
  Fenetre_.CheckPEcran().setText(Textes_.Dit(Libelle::kMoniteur));
  Fenetre_.CheckPEcran().setAccessibleName(Textes_.Dit(Libelle::kMoniteur));
  Fenetre_.Ftp().BoutonEssaiFtp->ChangeLibelle(LibelleEssaiFtp(LangueParlee(Reglages_.LangueCourante)));
  Fenetre_.Ftp().BoutonEssaiFtp->setToolTip(AideEssaiFtp(LangueParlee(Reglages_.LangueCourante)));
  Fenetre_.Ftp().TxtFTPracine->setToolTip(
      Textes_.Dit(Libelle::kRepertoire));  // the one field of its page without a row in Aide
  Fenetre_.Moniteur().ChangeTitreMenu(Textes_.Dit(Libelle::kPleinEcran));
  Moniteur_.ChangeLibellePleinEcran(Textes_.Dit(Libelle::kPleinEcran));
}

void ChargeurTextes::EcritListes() {
  // In place: the lists never grow, and a selection stays where it is.
  PageFtp& page = Fenetre_.Ftp();
  for (int i = 0; i < PageFtp::kNombreQualites; ++i)
    page.CombQualit->setItemText(i, Textes_.Dit(kQualites.at(static_cast<std::size_t>(i))));
  for (int i = 0; i < PageFtp::kNombreCouleurs; ++i)
    page.CombCouleur->setItemText(i, Textes_.Dit(kCouleurs.at(static_cast<std::size_t>(i))));
  page.CombCouleur->setPlaceholderText(Textes_.Dit(Libelle::kCouleur));
  page.CombCouleur->setCurrentIndex(Reglages_.IndexCouleurPage);
}

void ChargeurTextes::EcritEtats() {
  BandeauHaut& bandeau = Fenetre_.Bandeau();
  bandeau.LblDebugftp->setText(Textes_.Dit(Libelle::kSurveillanceInactive));
  bandeau.LblDebugAlarm->setText(Textes_.Dit(Libelle::kAlarmeInactive));
}

void EcritLibellesBoutons(Form1& fenetre, const TablesTextes& textes) {
  for (int i = 0; i < BandeauHaut::kNombreBoutons; ++i) {
    fenetre.Bandeau().Bouton.at(static_cast<std::size_t>(i))->ChangeLibelle(textes.LibelleBouton(i));
  }
  const auto gris = fenetre.BoutonsGris();
  for (int i = 0; i < Form1::kNombreBoutonsGris; ++i) {
    gris.at(static_cast<std::size_t>(i))->ChangeLibelle(textes.LibelleBoutonGris(i));
  }
  if (fenetre.Face() != nullptr) fenetre.Face()->ChargeBoutons();
}

}  // namespace vaktor
