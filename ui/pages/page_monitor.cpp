// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pages/page_monitor.h"

namespace vaktor {

PageMoniteur::PageMoniteur(QWidget* fenetre) : PageVaktor(fenetre, 1) {
  CreeEtiquettes();
  Picture2 = new VueReduite(this, QStringLiteral("Picture2"), {264, 8, 127, 109});
  CheckPPhot = CreeCase(this, QStringLiteral("CheckPPhot"), {8, 28});
  CheckSon = CreeCase(this, QStringLiteral("CheckSon"), {8, 56});
  CheckMail = CreeCase(this, QStringLiteral("CheckMail"), {8, 84});
  RelieMots(*LabelCheckPhot, *CheckPPhot);
  RelieMots(*LabelCheckSon, *CheckSon);
  RelieMots(*LabelCheckMail, *CheckMail);
  Text1 = CreeChamp(this, QStringLiteral("Text1"), {56, 136, 30, 19});
  BoutonGris0 = new BoutonImage(this, NomIndexe("BoutonGris", 0), {180, 58}, FamilleBouton::kGrise);
  BoutonGris1 = new BoutonImage(this, NomIndexe("BoutonGris", 1), {320, 144}, FamilleBouton::kGrise);
  CreeMenu();
}

void PageMoniteur::CreeEtiquettes() {
  Label4 = CreeEtiquette(this, QStringLiteral("Label4"), {8, 9, 105, 17}, kPoliceMoyenne, kBlancTexte);
  LabelCheckPhot = CreeEtiquetteDeChamp(this, QStringLiteral("LabelCheckPhot"), {78, 28, 100, 17});
  LabelCheckSon = CreeEtiquetteDeChamp(this, QStringLiteral("LabelCheckSon"), {78, 56, 100, 17});
  LabelCheckMail = CreeEtiquetteDeChamp(this, QStringLiteral("LabelCheckMail"), {78, 84, 100, 17});
  LabelRetard = CreeEtiquette(this, QStringLiteral("LabelRetard"), {8, 117, 32, 14}, kPolicePetite, kBlancTexte);
  // The French word is a pixel wider than its place: closer letters keep its last one whole.
  QFont police = LabelRetard->font();
  police.setLetterSpacing(QFont::PercentageSpacing, 96);
  LabelRetard->setFont(police);
  CreeEtiquette(this, QStringLiteral("Label5"), {96, 138, 25, 17})->setText(QStringLiteral("Sec."));
  LabelTemoin0 = CreeEtiquette(this, NomIndexe("LabelTemoin", 0), {328, 120, 63, 15});
  LabelTemoin1 = CreeEtiquette(this, NomIndexe("LabelTemoin", 1), {264, 120, 63, 15});
  Compteurs_ = new TravailVisible(this, [this] { EcritCompteurs(); });
  EcritCompteurs();
}

void PageMoniteur::CreeMenu() {
  MnuDisplay_ = new QMenu(this);
  MnuDisplay_->setObjectName(QStringLiteral("MnuDisplay"));
  MnuPixelView_ = MnuDisplay_->addAction(QStringLiteral("Pixel"));
  MnuPixelView_->setObjectName(QStringLiteral("MnuPixelView"));
  MnuZoomView_ = MnuDisplay_->addAction(QStringLiteral("Zoom"));
  MnuZoomView_->setObjectName(QStringLiteral("MnuZoomView"));
  for (QAction* entree : {MnuPixelView_, MnuZoomView_}) entree->setCheckable(true);
  CocheMode(true);
  // A click on the ticked entry unticks it in a toolkit; CocheMode puts the tick back.
  connect(MnuPixelView_, &QAction::triggered, this, [this] { Q_EMIT ModeChoisi(false); });
  connect(MnuZoomView_, &QAction::triggered, this, [this] { Q_EMIT ModeChoisi(true); });
  connect(Picture2, &VueReduite::DroitAppuye, this, &PageMoniteur::OuvreMenu);
  connect(Picture2, &VueAMenu::MenuAuClavier, this, [this] {
    MnuDisplay_->setTitle(TitreMenu_);
    OuvreAuClavier(*MnuDisplay_, *Picture2);
  });
}

void PageMoniteur::CocheMode(bool zoom) {
  MnuPixelView_->setChecked(!zoom);
  MnuZoomView_->setChecked(zoom);
  Picture2->AnnonceParoles();
}

// The entries' own words.
QString PageMoniteur::Mode() const { return (MnuZoomView_->isChecked() ? MnuZoomView_ : MnuPixelView_)->text(); }

void PageMoniteur::OuvreMenu(const QPoint& position) {
  MnuDisplay_->setTitle(TitreMenu_);
  MnuDisplay_->popup(Picture2->mapToGlobal(position));
}

void PageMoniteur::MontreCompteurs(qint32 millisecondes, qint32 points) {
  Millisecondes_ = millisecondes;
  Points_ = points;
  Compteurs_->Demande();
}

void PageMoniteur::EcritCompteurs() {
  LabelTemoin0->setText(QStringLiteral("%1 ms ").arg(Millisecondes_));
  LabelTemoin1->setText(QStringLiteral("%1 Pts ").arg(Points_));
}

}  // namespace vaktor
