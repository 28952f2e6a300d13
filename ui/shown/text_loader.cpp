#include "ui/shown/text_loader.h"

#include <QAbstractButton>
#include <array>

#include "texts/language.h"
#include "ui/controls/control_factory.h"
#include "ui/shown/own_words.h"

namespace vaktor {

namespace {

template <typename Nom>
struct LigneTexte {
  Nom Mots;
  const char* Controle;
};

// Tooltips of Form1 in the order in which they are written. Where two rows name one control the later one counts.
constexpr std::array kAides = {LigneTexte{Aide::kCamera, "Bouton(0)"},
                               LigneTexte{Aide::kAlarme, "Bouton(1)"},
                               LigneTexte{Aide::kRetard, "Text1"},
                               LigneTexte{Aide::kPoints, "LabelTemoin(1)"},
                               LigneTexte{Aide::kPhotosParMail, "TxtNbrPhoto"},
                               LigneTexte{Aide::kNombreMails, "TextNbrMail"},
                               LigneTexte{Aide::kMailDestination, "TextEMail"},
                               LigneTexte{Aide::kSujet, "TextSujet"},
                               LigneTexte{Aide::kTexteMail, "TextTexte"},
                               LigneTexte{Aide::kEnvoieMail, "CheckMail"},
                               LigneTexte{Aide::kPrendPhoto, "CheckPPhot"},
                               LigneTexte{Aide::kAlarmeSonore, "CheckSon"},
                               LigneTexte{Aide::kJauge, "PictSeuil"},
                               LigneTexte{Aide::kPleinEcran, "CheckPEcran"},
                               LigneTexte{Aide::kDureeAnalyse, "LabelTemoin(0)"},
                               LigneTexte{Aide::kFormatVideo, "BoutonGris(4)"},
                               LigneTexte{Aide::kSourceVideo, "BoutonGris(5)"},
                               LigneTexte{Aide::kMiseAJour, "BoutonGris(1)"},
                               LigneTexte{Aide::kNotice, "BoutonGris(7)"},
                               LigneTexte{Aide::kAdresseFtp, "TxtFtp"},
                               LigneTexte{Aide::kAdresseHtml, "TxtHtml"},
                               LigneTexte{Aide::kUtilisateurFtp, "TxtUserName"},
                               LigneTexte{Aide::kMotDePasseFtp, "TxtPass"},
                               LigneTexte{Aide::kIntervalle, "TxtRefresh"},
                               LigneTexte{Aide::kQualiteImages, "CombQualit"},
                               LigneTexte{Aide::kCreePage, "BoutonGris(2)"},
                               LigneTexte{Aide::kTestePage, "BoutonGris(3)"},
                               LigneTexte{Aide::kListeCouleurs, "CombCouleur"},
                               LigneTexte{Aide::kNombrePhotosPage, "LblNbrdephotoftp"},
                               LigneTexte{Aide::kCouleurPage, "LblCouleurPage"},
                               LigneTexte{Aide::kSensibiliteAuto, "ChkSeuilAuto"},
                               LigneTexte{Aide::kSensibiliteAuto, "LblSeuilAuto"}};

constexpr std::array kEtiquettes = {LigneTexte{Libelle::kPhotosParMail, "LabelVague"},
                                    LigneTexte{Libelle::kEMail, "LabelMaildest"},
                                    LigneTexte{Libelle::kSujet, "LabelMailSujet"},
                                    LigneTexte{Libelle::kTexteMail, "LabelMailTexte"},
                                    LigneTexte{Libelle::kEnvoieMail, "LabelCheckMail"},
                                    LigneTexte{Libelle::kPrendPhoto, "LabelCheckPhot"},
                                    LigneTexte{Libelle::kAlarmeSonore, "LabelCheckSon"},
                                    LigneTexte{Libelle::kNombreMails, "LabelNbrMail"},
                                    LigneTexte{Libelle::kAdresseFtp, "Lblftp"},
                                    LigneTexte{Libelle::kAdresseHtml, "LblHTML"},
                                    LigneTexte{Libelle::kUtilisateurFtp, "LblUserName"},
                                    LigneTexte{Libelle::kMotDePasseFtp, "LblPass"},
                                    LigneTexte{Libelle::kIntervalle, "LblIntervale"},
                                    LigneTexte{Libelle::kQualiteImages, "Label1"},
                                    LigneTexte{Libelle::kAlarme, "Label4"},
                                    LigneTexte{Libelle::kSensibilite, "LabelSeuil"},
                                    LigneTexte{Libelle::kRetard, "LabelRetard"},
                                    LigneTexte{Libelle::kNombrePhotosPage, "LblNbrdephotoftp"},
                                    LigneTexte{Libelle::kCouleurPage, "LblCouleurPage"},
                                    LigneTexte{Libelle::kSensibiliteAuto, "LblSeuilAuto"},
                                    LigneTexte{Libelle::kRepertoire, "LblRepRaciine"}};

// Fields without a caption of their own carry the one of the label beside them, for those who hear the window.
constexpr std::array kNomsAccessibles = {LigneTexte{Libelle::kPhotosParMail, "TxtNbrPhoto"},
                                         LigneTexte{Libelle::kEMail, "TextEMail"},
                                         LigneTexte{Libelle::kSujet, "TextSujet"},
                                         LigneTexte{Libelle::kTexteMail, "TextTexte"},
                                         LigneTexte{Libelle::kEnvoieMail, "CheckMail"},
                                         LigneTexte{Libelle::kPrendPhoto, "CheckPPhot"},
                                         LigneTexte{Libelle::kAlarmeSonore, "CheckSon"},
                                         LigneTexte{Libelle::kMoniteur, "CheckPEcran"},
                                         LigneTexte{Libelle::kNombreMails, "TextNbrMail"},
                                         LigneTexte{Libelle::kAdresseFtp, "TxtFtp"},
                                         LigneTexte{Libelle::kAdresseHtml, "TxtHtml"},
                                         LigneTexte{Libelle::kUtilisateurFtp, "TxtUserName"},
                                         LigneTexte{Libelle::kMotDePasseFtp, "TxtPass"},
                                         LigneTexte{Libelle::kIntervalle, "TxtRefresh"},
                                         LigneTexte{Libelle::kQualiteImages, "CombQualit"},
                                         LigneTexte{Libelle::kSensibilite, "PictSeuil"},
                                         LigneTexte{Libelle::kRetard, "Text1"},
                                         LigneTexte{Libelle::kNombrePhotosPage, "TextNbrPhotoFTP"},
                                         LigneTexte{Libelle::kCouleurPage, "CombCouleur"},
                                         LigneTexte{Libelle::kSensibiliteAuto, "ChkSeuilAuto"},
                                         LigneTexte{Libelle::kRepertoire, "TxtFTPracine"}};

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
  for (const auto& ligne : kAides) {
    if (auto* controle = Fenetre_.findChild<QWidget*>(QLatin1String(ligne.Controle))) {
      controle->setToolTip(Textes_.Dit(ligne.Mots));
    }
  }
  Moniteur_.EcritAides(Textes_.Dit(Aide::kZone), AideBarre(LangueParlee(Reglages_.LangueCourante)));
}

void ChargeurTextes::EcritTextes() {
  for (const auto& ligne : kEtiquettes) {
    if (auto* etiquette = Fenetre_.findChild<QLabel*>(QLatin1String(ligne.Controle))) {
      etiquette->setText(Textes_.Dit(ligne.Mots));
    }
  }
  for (const auto& ligne : kNomsAccessibles) {
    if (auto* controle = Fenetre_.findChild<QWidget*>(QLatin1String(ligne.Controle))) {
      controle->setAccessibleName(Textes_.Dit(ligne.Mots));
    }
  }
  Fenetre_.Bandeau().ImageLedAlarme->ChangeMots(MotsLampeAlarme(LangueParlee(Reglages_.LangueCourante)));
  Fenetre_.Bandeau().ImageLedSurveill->ChangeMots(MotsLampeSurveillance(LangueParlee(Reglages_.LangueCourante)));
  // Heard, not seen: which language it is now.
  for (const Langue drapeau : kLangues) {
    Fenetre_.Options().Image4.at(RangLangue(drapeau))->Engage(drapeau == LitLangue(Reglages_.LangueCourante));
  }
  Fenetre_.CheckPEcran().setText(Textes_.Dit(Libelle::kMoniteur));
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
  for (int i = 0; i < 9; ++i) {
    if (auto* bouton = fenetre.findChild<BoutonImage*>(NomIndexe("BoutonGris", i))) {
      bouton->ChangeLibelle(textes.LibelleBoutonGris(i));
    }
  }
  if (fenetre.Face() != nullptr) fenetre.Face()->ChargeBoutons();
}

}  // namespace vaktor
