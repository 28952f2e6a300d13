// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/repertoire.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QStyle>

#include "ui/common/field_font.h"
#include "ui/common/heard_roles.h"

namespace vaktor {
namespace {

constexpr QSize kTailleForme{300, 340};
constexpr int kPolicePixels = 11;  // Arial as in the controls of the main window

QStyle::StandardPixmap IconeLieu(int rang, const QString& chemin) {
  if (rang == 0) return QStyle::SP_DirHomeIcon;
  return chemin == u'/' ? QStyle::SP_ComputerIcon : QStyle::SP_DriveHDIcon;
}

}  // namespace

ListeLieuxDisque::ListeLieuxDisque(const ChoixDossier& choix, QWidget* parent) : QComboBox(parent), Choix_(choix) {
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(12);
}

void ListeLieuxDisque::Relit() {
  clear();
  for (const LieuDisque& lieu : Choix_.ListeLieux()) {
    addItem(style()->standardIcon(IconeLieu(count(), lieu.Chemin)), lieu.Nom + QStringLiteral("  -  ") + lieu.Chemin,
            lieu.Chemin);
    setItemData(count() - 1, lieu.Chemin, Qt::ToolTipRole);
  }
  setCurrentIndex(findData(Choix_.Lecteur()));
}

void ListeLieuxDisque::showPopup() {
  Relit();
  QComboBox::showPopup();
}

Repertoire::Repertoire(ChoixDossier& choix, ArbreDossiers& arbre) : QWidget(nullptr), Choix_(choix) {
  setObjectName(QStringLiteral("Repertoire"));
  setWindowTitle(QStringLiteral("Répertoire pour les photos"));  // fixed, as all words here: no text table writes them
  CreeControles(arbre);
  PlaceControles();
  Choix_.Charge();
  SuitChoix();
  BrancheControles();
  Dir1_->setFocus();
}

void Repertoire::CreeControles(ArbreDossiers& arbre) {
  QFont police(QStringLiteral("Arial"));
  police.setPixelSize(kPolicePixels);
  setFont(police);
  Drive1_ = new ListeLieuxDisque(Choix_, this);
  Drive1_->setObjectName(QStringLiteral("Drive1"));
  NommeListe(*Drive1_, QStringLiteral("Lecteur"));
  Dir1_ = new VueDossiers(arbre, this);
  Dir1_->setObjectName(QStringLiteral("Dir1"));
  Dir1_->setAccessibleName(QStringLiteral("Dossiers"));
  TxtPathPhot_ = CreeChampEnPolice<QLineEdit>(this, font());
  TxtPathPhot_->setText(QStringLiteral("Intrus"));
  TxtPathPhot_->setObjectName(QStringLiteral("TxtPathPhot"));
  TxtPathPhot_->setAccessibleName(QStringLiteral("Nom du nouveau dossier"));
  Command2_ = new QPushButton(QStringLiteral("Créer"), this);
  Command2_->setObjectName(QStringLiteral("Command2"));
  Command1_ = new QPushButton(QStringLiteral("Valider"), this);
  Command1_->setObjectName(QStringLiteral("Command1"));
}

void Repertoire::PlaceControles() {
  auto* grille = new QGridLayout(this);
  grille->setContentsMargins(12, 12, 12, 12);
  grille->setSpacing(8);
  grille->addWidget(Drive1_, 0, 0, 1, 2);
  grille->addWidget(Dir1_, 1, 0, 1, 2);
  grille->addWidget(TxtPathPhot_, 2, 0);
  grille->addWidget(Command2_, 2, 1);
  grille->addWidget(Command1_, 3, 0, 1, 2);
  grille->setRowStretch(1, 1);
  setMinimumSize(kTailleForme * 0.8);
  resize(kTailleForme);
}

void Repertoire::BrancheControles() {
  connect(Drive1_, &QComboBox::activated, this,
          [this](int rang) { Choix_.ChangeLecteur(Drive1_->itemData(rang).toString()); });
  connect(Dir1_, &VueDossiers::DossierChange, this, [this](const QString& chemin) { Choix_.ChangeDossier(chemin); });
  connect(Command2_, &QAbstractButton::clicked, this, [this] { Choix_.CreeDossier(TxtPathPhot_->text()); });
  connect(TxtPathPhot_, &QLineEdit::returnPressed, Command2_, &QAbstractButton::click);
  connect(Command1_, &QAbstractButton::clicked, this, [this] {
    // A message of the rules lets events run, the end of the program among them.
    const QPointer<Repertoire> encore(this);
    if (!Choix_.Valide() || !encore) return;
    // The choice is made: it waits for the gallery as it stands, and goes also when that meets a first photo that it
    // cannot show.
    setEnabled(false);
    Choix_.RepointeGalerie([encore] {
      if (encore) encore->close();
    });
  });
}

void Repertoire::SuitChoix() {
  Drive1_->Relit();
  Dir1_->MontreChemin(Choix_.Lecteur(), Choix_.Chemin());
}

// Closing drops the choice; the next showing loads everything anew.
void Repertoire::closeEvent(QCloseEvent* evenement) {
  evenement->accept();
  Q_EMIT Ferme();
}

void Repertoire::keyPressEvent(QKeyEvent* evenement) {
  const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
  if (evenement->key() == Qt::Key_Escape) {
    close();
  } else if (auto* bouton = qobject_cast<QPushButton*>(focusWidget()); entree && bouton != nullptr) {
    bouton->click();
  } else {
    QWidget::keyPressEvent(evenement);
  }
}

// The form goes from inside its own close event.
void VueRepertoire::Differe::operator()(Repertoire* forme) const { forme->deleteLater(); }

VueRepertoire::~VueRepertoire() {
  Choix_.SurChangement({});
  // At the end there may be no event loop left to carry out a deferred deletion.
  delete Forme_.release();
}

void VueRepertoire::Montre() {
  if (Dechargee_) return;
  if (!Forme_) {
    Forme_.reset(new Repertoire(Choix_, Arbre_));
    // Over the middle of the window that it was called from, also where no window manager places it.
    const QWidget* appelante = QApplication::activeWindow();
    if (appelante != nullptr) Forme_->move(appelante->frameGeometry().center() - Forme_->rect().center());
    QObject::connect(Forme_.get(), &Repertoire::Ferme, Forme_.get(), [this] { Oublie(); });
    Choix_.SurChangement([this] { Forme_->SuitChoix(); });
  }
  Forme_->show();
  Forme_->raise();
  Forme_->activateWindow();
}

void VueRepertoire::Oublie() {
  if (!Forme_) return;
  Choix_.SurChangement({});
  Forme_->disconnect();
  Forme_.reset();
}

void VueRepertoire::Decharge() {
  Dechargee_ = true;
  if (!Forme_) return;
  Forme_->hide();
  Oublie();
}

}  // namespace vaktor
