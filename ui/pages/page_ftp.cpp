#include "ui/pages/page_ftp.h"

#include "ui/controls/control_factory.h"

namespace vaktor {

PageFtp::PageFtp(QWidget* fenetre) : PageVaktor(fenetre, 2) {
  CreeChampsServeur();
  CreeListes();
  TxtRefresh = CreeChamp(this, QStringLiteral("TxtRefresh"), {8, 140, 25, 19});
  CreeEtiquette(this, QStringLiteral("LblIntervale"), {37, 144, 146, 17});
  TextNbrPhotoFTP = CreeChamp(this, QStringLiteral("TextNbrPhotoFTP"), {184, 140, 33, 19});
  CreeEtiquette(this, QStringLiteral("LblNbrdephotoftp"), {222, 144, 175, 17});
  BoutonGris2 = new BoutonImage(this, NomIndexe("BoutonGris", 2), {320, 8}, FamilleBouton::kGrise);
  BoutonGris3 = new BoutonImage(this, NomIndexe("BoutonGris", 3), {320, 32}, FamilleBouton::kGrise);
  BoutonEssaiFtp = new BoutonImage(this, QStringLiteral("BoutonEssaiFtp"), {320, 56}, FamilleBouton::kGrise,
                                   FacesBoutons::kRangeeEssaiFtp);
}

void PageFtp::CreeChampsServeur() {
  const auto ligne = [this](const char* champ, const char* etiquette, int haut) {
    CreeEtiquetteDeChamp(this, QLatin1String(etiquette), {174, haut, 140, 19});
    return CreeChamp(this, QLatin1String(champ), {8, haut, 161, 19});
  };
  TxtFtp = ligne("TxtFtp", "Lblftp", 6);
  TxtHtml = ligne("TxtHtml", "LblHTML", 23);
  TxtFTPracine = ligne("TxtFTPracine", "LblRepRaciine", 40);
  TxtUserName = ligne("TxtUserName", "LblUserName", 57);
  CreeEtiquetteDeChamp(this, QStringLiteral("LblPass"), {174, 74, 140, 19});
  TxtPass = CreeChampSecret(this, QStringLiteral("TxtPass"), {8, 74, 161, 19});
}

void PageFtp::CreeListes() {
  CombQualit = CreeListe(this, QStringLiteral("CombQualit"), {8, 96, 81, 21});
  for (int i = 0; i < kNombreQualites; ++i) CombQualit->addItem(QString());
  CreeEtiquette(this, QStringLiteral("Label1"), {93, 100, 220, 17}, kPoliceMoyenne);
  CombCouleur = CreeListe(this, QStringLiteral("CombCouleur"), {8, 115, 81, 21});
  for (int i = 0; i < kNombreCouleurs; ++i) CombCouleur->addItem(QString());
  CreeEtiquette(this, QStringLiteral("LblCouleurPage"), {93, 119, 220, 17}, kPoliceMoyenne);
}

}  // namespace vaktor
