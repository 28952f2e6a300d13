// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pages/page_options.h"

#include "ui/common/heard_roles.h"

namespace vaktor {

PageOptions::PageOptions(QWidget* fenetre) : PageVaktor(fenetre, 3) {
  BoutonGris4 = new BoutonImage(this, NomIndexe("BoutonGris", 4), {8, 64}, FamilleBouton::kGrise);
  BoutonGris5 = new BoutonImage(this, NomIndexe("BoutonGris", 5), {8, 82}, FamilleBouton::kGrise);
  BoutonGris6 = new BoutonImage(this, NomIndexe("BoutonGris", 6), {96, 64}, FamilleBouton::kGrise);
  BoutonGris7 = new BoutonImage(this, NomIndexe("BoutonGris", 7), {192, 64}, FamilleBouton::kGrise);
  // From the right edge leftwards, and made from the left: the tab key goes that way.
  for (std::size_t i = kNombreLangues; i-- > 0;)
    Image4.at(i) = new DrapeauLangue(this, kLangues.at(i), {312 - 24 * static_cast<int>(i), 64});
  CombSkin = CreeListe(this, QStringLiteral("CombSkin"), {208, 136, 81, 21});
  CombSkin->addItems({QStringLiteral("Skin 1"), QStringLiteral("Skin 2"), QStringLiteral("Skin 3")});
  CombSkin->setPlaceholderText(QStringLiteral("Skins"));
  CombSkin->setCurrentIndex(-1);
  NommeListe(*CombSkin, QStringLiteral("Skins"));
  ChkSeuilAuto = CreeCase(this, QStringLiteral("ChkSeuilAuto"), {8, 144});
  LblSeuilAuto = CreeEtiquetteDeChamp(this, QStringLiteral("LblSeuilAuto"), {26, 144, 138, 17});
  RelieMots(*LblSeuilAuto, *ChkSeuilAuto);
  // Above the tolerance, in the free corner beside the list of skins.
  ChkSession = CreeCase(this, QStringLiteral("ChkSession"), {8, 120});
  LblSession = CreeEtiquetteDeChamp(this, QStringLiteral("LblSession"), {26, 120, 176, 17});
  RelieMots(*LblSession, *ChkSession);
}

}  // namespace vaktor
