// SPDX-License-Identifier: GPL-3.0-or-later
// The format dialog. Three choices that narrow each other: coding, size, rate. What is picked is one entry of the
// device's list, never a combination that it does not offer.
#include "platform/capture/dialogs/format_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/devices/device_access.h"
#include "platform/capture/dialogs/dialog_texts.h"
#include "platform/capture/dialogs/driver_commands.h"
#include "platform/capture/dialogs/message_strip.h"
#include "texts/language.h"

namespace vaktor {
namespace {

QString SansMarque(QString texte) { return texte.remove(QLatin1Char('&')); }

template <class T>
T* Nomme(T* controle, const char* nom, const QString& legende) {
  controle->setObjectName(QLatin1String(nom));
  controle->setAccessibleName(SansMarque(legende));
  return controle;
}

QString Explication(const CommandesPilote& pilote, Langue langue) {
  const QString format = TexteFormat(pilote.FormatCourant(), langue);
  switch (pilote.Genre()) {
    case GenreSource::kBureau:
      return TexteDe(TexteDialogue::kFormatBureau, langue).arg(format);
    case GenreSource::kReseau:
      return TexteDe(TexteDialogue::kFormatReseau, langue).arg(format);
    case GenreSource::kFichier:
      return TexteDe(TexteDialogue::kFormatFichier, langue).arg(format);
    default:
      return TexteDe(TexteDialogue::kFormatTest, langue).arg(format);
  }
}

// Empty for a format whose pictures are compared as they come.
QString RemarqueReduit(const FormatCamera& format, Langue langue) {
  if (!EstReduit(format)) return {};
  return TexteDe(TexteDialogue::kRemarqueReduit, langue).arg(TexteTaille(TailleRetenue(format)));
}

}  // namespace

DialogueFormat::DialogueFormat(QWidget* parent, Langue langue, CommandesPilote& pilote, MemoireCapture& memoire,
                               const AccesPeripheriques& acces)
    : QDialog(parent), Langue_(langue), Pilote_(pilote), Memoire_(memoire), Acces_(acces) {
  setObjectName(QStringLiteral("DialogueFormat"));
  setWindowTitle(TexteDe(TexteDialogue::kTitreFormat, langue));
  setAccessibleName(windowTitle());
  auto* colonne = new QVBoxLayout(this);
  colonne->setContentsMargins(18, 16, 18, 14);
  colonne->setSpacing(10);
  Courant_ = Nomme(new QLabel(this), "LblFormatCourant", QString());
  Courant_->setTextFormat(Qt::PlainText);
  Courant_->setWordWrap(true);
  colonne->addWidget(Courant_);
  MontreFormatCourant();

  const bool avecChoix = pilote.Genre() == GenreSource::kPeripherique;
  if (avecChoix) {
    Formats_ = acces.Formats(pilote.NoeudPeripherique());
    ConstruitChoix(*colonne);
  } else {
    ConstruitExplication(*colonne);
  }
  ConstruitBoutons(*colonne, avecChoix);
  setMinimumWidth(460);
}

void DialogueFormat::ConstruitChoix(QVBoxLayout& colonne) {
  const auto texte = [this](TexteDialogue t) { return TexteDe(t, Langue_); };
  Codages_ = Nomme(new QComboBox(this), "CmbCodage", texte(TexteDialogue::kCodage));
  Tailles_ = Nomme(new QListWidget(this), "ListeTailles", texte(TexteDialogue::kTaille));
  Cadences_ = Nomme(new QComboBox(this), "CmbCadence", texte(TexteDialogue::kCadence));
  Remarque_ = Nomme(new QLabel(this), "LblRemarque", QString());
  Etat_ = new BandeauMessage(QStringLiteral("LblEtatFormat"), this);
  Tailles_->setMinimumHeight(170);
  Tailles_->setAlternatingRowColors(true);
  Remarque_->setWordWrap(true);
  Remarque_->setStyleSheet(QStringLiteral("color:#9a4a00;font-weight:bold;"));
  // Its room is kept, so that the list does not shrink under the pointer when a large size is picked.
  Remarque_->setMinimumHeight(4 * Remarque_->fontMetrics().lineSpacing());
  Remarque_->setAlignment(Qt::AlignTop | Qt::AlignLeft);

  auto* grille = new QFormLayout;
  grille->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  grille->setLabelAlignment(Qt::AlignLeft | Qt::AlignTop);
  grille->addRow(texte(TexteDialogue::kCodage), Codages_);
  grille->addRow(texte(TexteDialogue::kTaille), Tailles_);
  grille->addRow(texte(TexteDialogue::kCadence), Cadences_);
  colonne.addLayout(grille, 1);
  colonne.addWidget(Remarque_);
  colonne.addWidget(Etat_);

  connect(Codages_, &QComboBox::currentIndexChanged, this, &DialogueFormat::RemplitTailles);
  connect(Tailles_, &QListWidget::currentRowChanged, this, &DialogueFormat::RemplitCadences);
  connect(Tailles_, &QListWidget::itemDoubleClicked, this, &DialogueFormat::Valide);
  RemplitCodages();
  ChoisitDansListes(Pilote_.FormatCourant());
  if (!Formats_.isEmpty()) return;
  const QString noeud = Pilote_.NoeudPeripherique();
  Etat_->MontreErreur(Acces_.Muets().contains(noeud) ? texte(TexteDialogue::kPeripheriqueMuet).arg(noeud)
                                                     : texte(TexteDialogue::kAucunFormat));
}

void DialogueFormat::ConstruitExplication(QVBoxLayout& colonne) {
  auto* explication = Nomme(new QLabel(Explication(Pilote_, Langue_), this), "LblExplication", QString());
  explication->setWordWrap(true);
  explication->setTextFormat(Qt::PlainText);
  colonne.addWidget(explication);
  if (const QString remarque = RemarqueReduit(Pilote_.FormatCourant(), Langue_); !remarque.isEmpty()) {
    Remarque_ = Nomme(new QLabel(this), "LblRemarque", remarque);
    Remarque_->setText(remarque);
    Remarque_->setWordWrap(true);
    Remarque_->setStyleSheet(QStringLiteral("color:#9a4a00;font-weight:bold;"));
    colonne.addWidget(Remarque_);
  }
  colonne.addStretch(1);
}

void DialogueFormat::ConstruitBoutons(QVBoxLayout& colonne, bool avecChoix) {
  auto* boutons = new QDialogButtonBox(this);
  const auto ajoute = [&](TexteDialogue t, const char* nom, QDialogButtonBox::ButtonRole role) {
    const QString legende = TexteDe(t, Langue_);
    auto* bouton = Nomme(new QPushButton(legende, this), nom, legende);
    boutons->addButton(bouton, role);
    return bouton;
  };
  if (avecChoix) {
    QPushButton* ok = ajoute(TexteDialogue::kOk, "BtnOkFormat", QDialogButtonBox::AcceptRole);
    QPushButton* annule = ajoute(TexteDialogue::kAnnule, "BtnAnnulerFormat", QDialogButtonBox::RejectRole);
    QPushButton* applique = ajoute(TexteDialogue::kApplique, "BtnAppliquerFormat", QDialogButtonBox::ApplyRole);
    ok->setDefault(true);
    ok->setEnabled(!Formats_.isEmpty());
    applique->setEnabled(!Formats_.isEmpty());
    connect(ok, &QPushButton::clicked, this, &DialogueFormat::Valide);
    connect(annule, &QPushButton::clicked, this, &QDialog::reject);
    connect(applique, &QPushButton::clicked, this, &DialogueFormat::Applique);
    Tailles_->setFocus();
  } else {
    QPushButton* ferme = ajoute(TexteDialogue::kFerme, "BtnFermerFormat", QDialogButtonBox::AcceptRole);
    ferme->setDefault(true);
    connect(ferme, &QPushButton::clicked, this, &QDialog::accept);
  }
  colonne.addWidget(boutons);
}

void DialogueFormat::MontreFormatCourant() {
  const QString texte = TexteDe(TexteDialogue::kFormatCourant, Langue_)
                            .arg(NomPourGens(Acces_, Pilote_.NoeudPeripherique(), Pilote_.DescriptionSource()),
                                 TexteFormat(Pilote_.FormatCourant(), Langue_));
  Courant_->setText(texte);
  Courant_->setAccessibleName(texte);
}

void DialogueFormat::RemplitCodages() {
  for (const FormatCamera& f : Formats_)
    if (Codages_->findData(f.Codage) < 0) Codages_->addItem(TexteCodage(f.Codage, Langue_), f.Codage);
}

void DialogueFormat::RemplitTailles() {
  const FormatCamera premier = ChoisitPremierFormat(Formats_);
  Tailles_->clear();
  QList<QSize> vues;
  for (const FormatCamera& f : Formats_) {
    const QSize taille(f.Largeur, f.Hauteur);
    if (f.Codage != Codages_->currentData().toString() || vues.contains(taille)) continue;
    vues.append(taille);
    QString texte = TexteTaille(f);
    if (EstReduit(f))
      texte +=
          QStringLiteral("   (%1)").arg(TexteDe(TexteDialogue::kReduit, Langue_).arg(TexteTaille(TailleRetenue(f))));
    else if (f.Codage == premier.Codage && f.Largeur == premier.Largeur && f.Hauteur == premier.Hauteur)
      texte += QStringLiteral("   (%1)").arg(TexteDe(TexteDialogue::kConseille, Langue_));
    auto* element = new QListWidgetItem(texte, Tailles_);
    element->setData(Qt::UserRole, taille);
    if (EstReduit(f)) element->setForeground(QColor(0x9a, 0x4a, 0x00));
  }
  if (Tailles_->count() > 0) Tailles_->setCurrentRow(0);
}

void DialogueFormat::RemplitCadences() {
  Cadences_->clear();
  const QListWidgetItem* element = Tailles_->currentItem();
  if (element != nullptr) {
    const QSize taille = element->data(Qt::UserRole).toSize();
    for (int i = 0; i < Formats_.size(); ++i) {
      const FormatCamera& f = Formats_.at(i);
      if (f.Codage == Codages_->currentData().toString() && QSize(f.Largeur, f.Hauteur) == taille)
        Cadences_->addItem(TexteCadence(f, Langue_), i);
    }
  }
  MontreRemarque();
}

void DialogueFormat::MontreRemarque() {
  const std::optional<FormatCamera> choisi = FormatChoisi();
  Remarque_->setText(choisi ? RemarqueReduit(*choisi, Langue_) : QString());
  Remarque_->setAccessibleName(Remarque_->text());
}

void DialogueFormat::ChoisitDansListes(const FormatCamera& format) {
  EnService_.reset();
  const int codage = Codages_->findData(format.Codage);
  if (codage >= 0) Codages_->setCurrentIndex(codage);
  for (int i = 0; i < Tailles_->count(); ++i)
    if (Tailles_->item(i)->data(Qt::UserRole).toSize() == QSize(format.Largeur, format.Hauteur))
      Tailles_->setCurrentRow(i);
  // The negotiated rate may differ a little from the announced one (30000/1001): the nearest is it.
  int meilleur = -1;
  double ecart = 0.0;
  for (int i = 0; i < Cadences_->count(); ++i) {
    const double e =
        std::abs(Formats_.at(Cadences_->itemData(i).toInt()).ImagesParSeconde() - format.ImagesParSeconde());
    if (meilleur >= 0 && e >= ecart) continue;
    meilleur = i;
    ecart = e;
  }
  if (meilleur >= 0) Cadences_->setCurrentIndex(meilleur);
  const std::optional<FormatCamera> choisi = FormatChoisi();
  if (choisi && choisi->Codage == format.Codage && choisi->Largeur == format.Largeur &&
      choisi->Hauteur == format.Hauteur)
    EnService_ = choisi;
}

std::optional<FormatCamera> DialogueFormat::FormatChoisi() const {
  if (Cadences_->currentIndex() < 0) return std::nullopt;
  return Formats_.at(Cadences_->currentData().toInt());
}

bool DialogueFormat::Applique() {
  const std::optional<FormatCamera> choisi = FormatChoisi();
  if (!choisi) return false;
  Etat_->MontreAttente(TexteDe(TexteDialogue::kUnInstant, Langue_));
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const bool fait = Pilote_.AppliqueFormat(*choisi);
  QApplication::restoreOverrideCursor();
  MontreFormatCourant();
  if (!fait) {
    ChoisitDansListes(Pilote_.FormatCourant());
    const Raison raison = Pilote_.Pourquoi();
    QString texte = TexteDe(TexteDialogue::kFormatRefuse, Langue_);
    if (raison.Quoi != Motif::kInconnu) texte = DitRaison(raison, Langue_) + QLatin1Char('\n') + texte;
    Etat_->MontreErreur(texte);
    return false;
  }
  if (!Memoire_.RetientFormat(Pilote_.NomStable(), *choisi)) {
    Etat_->MontreErreur(TexteDe(TexteDialogue::kNonRetenu, Langue_));
    return false;
  }
  EnService_ = choisi;
  Etat_->MontreReussite(TexteDe(TexteDialogue::kFormatApplique, Langue_));
  return true;
}

void DialogueFormat::Valide() {
  // Nothing else was picked: the camera is left at its work.
  if ((EnService_ && FormatChoisi() == EnService_) || Applique()) accept();
}

}  // namespace vaktor
