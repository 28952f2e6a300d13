// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pages/page_ftp.h"

#include "ui/controls/control_factory.h"

namespace vaktor {

PageFtp::PageFtp(QWidget* fenetre) : PageVaktor(fenetre, 2) {
  CreeChampsServeur();
  CreeListes();
  TxtRefresh = CreeChamp(this, QStringLiteral("TxtRefresh"), {8, 140, 25, 19});
  LblIntervale = CreeEtiquette(this, QStringLiteral("LblIntervale"), {37, 144, 146, 17});
  TextNbrPhotoFTP = CreeChamp(this, QStringLiteral("TextNbrPhotoFTP"), {184, 140, 33, 19});
  LblNbrdephotoftp = CreeEtiquette(this, QStringLiteral("LblNbrdephotoftp"), {222, 144, 175, 17});
  BoutonGris2 = new BoutonImage(this, NomIndexe("BoutonGris", 2), {320, 8}, FamilleBouton::kGrise);
  BoutonGris3 = new BoutonImage(this, NomIndexe("BoutonGris", 3), {320, 32}, FamilleBouton::kGrise);
  BoutonEssaiFtp = new BoutonImage(this, QStringLiteral("BoutonEssaiFtp"), {320, 56}, FamilleBouton::kGrise,
                                   FacesBoutons::kRangeeEssaiFtp);
}

void PageFtp::CreeChampsServeur() {
  const auto etiquette = [this](const char* nom, int haut) {
    return CreeEtiquetteDeChamp(this, QLatin1String(nom), {174, haut, 140, 19});
  };
  const auto champ = [this](const char* nom, int haut) {
    return CreeChamp(this, QLatin1String(nom), {8, haut, 161, 19});
  };
  Lblftp = etiquette("Lblftp", 6);
  TxtFtp = champ("TxtFtp", 6);
  LblHTML = etiquette("LblHTML", 23);
  TxtHtml = champ("TxtHtml", 23);
  LblRepRaciine = etiquette("LblRepRaciine", 40);
  TxtFTPracine = champ("TxtFTPracine", 40);
  LblUserName = etiquette("LblUserName", 57);
  TxtUserName = champ("TxtUserName", 57);
  LblPass = etiquette("LblPass", 74);
  TxtPass = CreeChampSecret(this, QStringLiteral("TxtPass"), {8, 74, 161, 19});
}

void PageFtp::CreeListes() {
  CombQualit = CreeListe(this, QStringLiteral("CombQualit"), {8, 96, 81, 21});
  for (int i = 0; i < kNombreQualites; ++i) CombQualit->addItem(QString());
  Label1 = CreeEtiquette(this, QStringLiteral("Label1"), {93, 100, 220, 17}, kPoliceMoyenne);
  CombCouleur = CreeListe(this, QStringLiteral("CombCouleur"), {8, 115, 81, 21});
  for (int i = 0; i < kNombreCouleurs; ++i) CombCouleur->addItem(QString());
  LblCouleurPage = CreeEtiquette(this, QStringLiteral("LblCouleurPage"), {93, 119, 220, 17}, kPoliceMoyenne);
}

}  // namespace vaktor
