// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pages/page_mail.h"

#include "ui/common/field_font.h"
#include "ui/controls/control_factory.h"

namespace vaktor {

PageMail::PageMail(QWidget* fenetre) : PageVaktor(fenetre, 0) {
  TxtNbrPhoto = CreeChamp(this, QStringLiteral("TxtNbrPhoto"), {8, 8, 30, 19});
  LabelVague = CreeEtiquetteDeChamp(this, QStringLiteral("LabelVague"), {45, 8, 260, 19});
  TextNbrMail = CreeChamp(this, QStringLiteral("TextNbrMail"), {8, 24, 30, 19});
  LabelNbrMail = CreeEtiquetteDeChamp(this, QStringLiteral("LabelNbrMail"), {45, 25, 260, 17});
  TextEMail = CreeChamp(this, QStringLiteral("TextEMail"), {8, 54, 129, 19});
  LabelMaildest = CreeEtiquetteDeChamp(this, QStringLiteral("LabelMaildest"), {144, 54, 170, 19});
  TextSujet = CreeChamp(this, QStringLiteral("TextSujet"), {8, 72, 129, 17});
  LabelMailSujet = CreeEtiquetteDeChamp(this, QStringLiteral("LabelMailSujet"), {144, 72, 170, 17});
  LabelMailTexte = CreeEtiquette(this, QStringLiteral("LabelMailTexte"), {8, 94, 82, 16}, kPoliceMoyenne);
  TextTexte = CreeChampEnPolice<QPlainTextEdit>(this, TextSujet->font());
  TextTexte->setObjectName(QStringLiteral("TextTexte"));
  TextTexte->setGeometry(8, 112, 249, 40);
  TextTexte->setTabChangesFocus(true);
  BoutonGris8 = new BoutonImage(this, NomIndexe("BoutonGris", 8), {320, 8}, FamilleBouton::kGrise);
}

}  // namespace vaktor
