#include "ui/shown/text_loader.h"

#include <QAbstractButton>

#include "ui/controls/control_factory.h"
#include "ui/shown/own_words.h"

namespace vaktor {

namespace {

struct LigneTexte {
  int Numero;
  const char* Controle;
};

// Tooltips of Form1 in the order in which they are written. Where two rows name one control the later one counts.
constexpr std::array kAides = {LigneTexte{0, "Bouton(0)"},
                               LigneTexte{1, "Bouton(1)"},
                               LigneTexte{2, "Text1"},
                               LigneTexte{6, "LabelTemoin(1)"},
                               LigneTexte{7, "TxtNbrPhoto"},
                               LigneTexte{8, "TextNbrMail"},
                               LigneTexte{9, "TextEMail"},
                               LigneTexte{10, "TextSujet"},
                               LigneTexte{11, "TextTexte"},
                               LigneTexte{17, "CheckMail"},
                               LigneTexte{19, "CheckPPhot"},
                               LigneTexte{20, "CheckSon"},
                               LigneTexte{21, "PictSeuil"},
                               LigneTexte{23, "CheckPEcran"},
                               LigneTexte{24, "LabelTemoin(0)"},
                               LigneTexte{25, "BoutonGris(4)"},
                               LigneTexte{26, "BoutonGris(5)"},
                               LigneTexte{33, "BoutonGris(1)"},
                               LigneTexte{34, "BoutonGris(7)"},
                               LigneTexte{40, "TxtFtp"},
                               LigneTexte{41, "TxtHtml"},
                               LigneTexte{42, "TxtUserName"},
                               LigneTexte{43, "TxtPass"},
                               LigneTexte{44, "TxtRefresh"},
                               LigneTexte{45, "CombQualit"},
                               LigneTexte{46, "BoutonGris(2)"},
                               LigneTexte{47, "BoutonGris(3)"},
                               LigneTexte{54, "CombCouleur"},
                               LigneTexte{159, "LblNbrdephotoftp"},
                               LigneTexte{160, "LblCouleurPage"},
                               LigneTexte{199, "ChkSeuilAuto"},
                               LigneTexte{199, "LblSeuilAuto"}};

constexpr std::array kEtiquettes = {
    LigneTexte{5, "LabelVague"},       LigneTexte{6, "LabelMaildest"},   LigneTexte{7, "LabelMailSujet"},
    LigneTexte{8, "LabelMailTexte"},   LigneTexte{11, "LabelCheckMail"}, LigneTexte{13, "LabelCheckPhot"},
    LigneTexte{14, "LabelCheckSon"},   LigneTexte{18, "LabelNbrMail"},   LigneTexte{46, "Lblftp"},
    LigneTexte{47, "LblHTML"},         LigneTexte{48, "LblUserName"},    LigneTexte{49, "LblPass"},
    LigneTexte{50, "LblIntervale"},    LigneTexte{51, "Label1"},         LigneTexte{79, "Label4"},
    LigneTexte{159, "LabelSeuil"},     LigneTexte{160, "LabelRetard"},   LigneTexte{164, "LblNbrdephotoftp"},
    LigneTexte{165, "LblCouleurPage"}, LigneTexte{219, "LblSeuilAuto"},  LigneTexte{230, "LblRepRaciine"}};

// Fields without a caption of their own carry the one of the label beside them, for those who hear the window.
constexpr std::array kNomsAccessibles = {
    LigneTexte{5, "TxtNbrPhoto"},   LigneTexte{6, "TextEMail"},      LigneTexte{7, "TextSujet"},
    LigneTexte{8, "TextTexte"},     LigneTexte{11, "CheckMail"},     LigneTexte{13, "CheckPPhot"},
    LigneTexte{14, "CheckSon"},     LigneTexte{17, "CheckPEcran"},   LigneTexte{18, "TextNbrMail"},
    LigneTexte{46, "TxtFtp"},       LigneTexte{47, "TxtHtml"},       LigneTexte{48, "TxtUserName"},
    LigneTexte{49, "TxtPass"},      LigneTexte{50, "TxtRefresh"},    LigneTexte{51, "CombQualit"},
    LigneTexte{159, "PictSeuil"},   LigneTexte{160, "Text1"},        LigneTexte{164, "TextNbrPhotoFTP"},
    LigneTexte{165, "CombCouleur"}, LigneTexte{219, "ChkSeuilAuto"}, LigneTexte{230, "TxtFTPracine"}};

}  // namespace

ChargeurTextes::ChargeurTextes(const Parametres& reglages, TablesTextes& textes, Form1& fenetre, FormMonitor& moniteur,
                               std::function<void()> chargeBoutons)
    : Reglages_(reglages),
      Textes_(textes),
      Fenetre_(fenetre),
      Moniteur_(moniteur),
      ChargeBoutons_(std::move(chargeBoutons)) {}

void ChargeurTextes::ChargeTextes() {
  Textes_.Remplit(Reglages_.LangueCourante);
  EcritAides();
  EcritTextes();
  EcritListes();
  if (Galerie_ != nullptr) Galerie_->ChargeMots();
  Moniteur_.setWindowTitle(Textes_.Texte(17));
  EcritEtats();
  ChargeBoutons_();
}

void ChargeurTextes::EcritAides() {
  for (const LigneTexte& ligne : kAides) {
    if (auto* controle = Fenetre_.findChild<QWidget*>(QLatin1String(ligne.Controle))) {
      controle->setToolTip(Textes_.Aide(ligne.Numero));
    }
  }
  Moniteur_.EcritAides(Textes_.Aide(4), AideBarre(Reglages_.LangueCourante));
}

void ChargeurTextes::EcritTextes() {
  for (const LigneTexte& ligne : kEtiquettes) {
    if (auto* etiquette = Fenetre_.findChild<QLabel*>(QLatin1String(ligne.Controle))) {
      etiquette->setText(Textes_.Texte(ligne.Numero));
    }
  }
  for (const LigneTexte& ligne : kNomsAccessibles) {
    if (auto* controle = Fenetre_.findChild<QWidget*>(QLatin1String(ligne.Controle))) {
      controle->setAccessibleName(Textes_.Texte(ligne.Numero));
    }
  }
  Fenetre_.Bandeau().ImageLedAlarme->ChangeMots(MotsLampeAlarme(Reglages_.LangueCourante));
  Fenetre_.Bandeau().ImageLedSurveill->ChangeMots(MotsLampeSurveillance(Reglages_.LangueCourante));
  // Heard, not seen: which language it is now.
  for (int langue = 0; langue < 2; ++langue) {
    Fenetre_.Options().Image4.at(static_cast<std::size_t>(langue))->Engage(langue == Reglages_.LangueCourante);
  }
  Fenetre_.CheckPEcran().setText(Textes_.Texte(17));
  Fenetre_.Ftp().BoutonEssaiFtp->ChangeLibelle(LibelleEssaiFtp(Reglages_.LangueCourante));
  Fenetre_.Ftp().BoutonEssaiFtp->setToolTip(AideEssaiFtp(Reglages_.LangueCourante));
  Fenetre_.Ftp().TxtFTPracine->setToolTip(Textes_.Texte(230));  // the one field of its page without a row in Aide
  Fenetre_.Moniteur().ChangeTitreMenu(Textes_.Texte(194));
  Moniteur_.ChangeLibellePleinEcran(Textes_.Texte(194));
}

void ChargeurTextes::EcritListes() {
  // In place: the lists never grow, and a selection stays where it is.
  PageFtp& page = Fenetre_.Ftp();
  for (int i = 0; i < PageFtp::kNombreQualites; ++i) page.CombQualit->setItemText(i, Textes_.Texte(54 + i));
  for (int i = 0; i < PageFtp::kNombreCouleurs; ++i) page.CombCouleur->setItemText(i, Textes_.Texte(59 + i));
  page.CombCouleur->setPlaceholderText(Textes_.Texte(58));
  page.CombCouleur->setCurrentIndex(Reglages_.IndexCouleurPage);
}

void ChargeurTextes::EcritEtats() {
  BandeauHaut& bandeau = Fenetre_.Bandeau();
  bandeau.LblDebugftp->setText(Textes_.Texte(34));
  bandeau.LblDebugAlarm->setText(Textes_.Texte(169));
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
