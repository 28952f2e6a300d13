// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/health_form.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>

#include "texts/language.h"
#include "ui/common/heard_roles.h"
#include "ui/controls/health_sign.h"
#include "ui/window/health_form_words.h"

namespace vaktor {

namespace {

constexpr int kLargeur = 430;
constexpr int kSignesMin = 64;  // characters beside each other, at the least
constexpr int kMarge = 12;
constexpr int kEcart = 8;
constexpr int kCoteSigne = 20;
constexpr int kHauteurMinimale = 160;

QLabel* CreeTexte(QWidget* parent, const char* nom, bool gras = false) {
  auto* texte = new QLabel(parent);
  texte->setObjectName(QLatin1String(nom));
  texte->setTextFormat(Qt::PlainText);
  texte->setWordWrap(true);
  if (gras) {
    QFont police = texte->font();
    police.setBold(true);
    texte->setFont(police);
  }
  return texte;
}

}  // namespace

LigneSante::LigneSante(QWidget* parent, Condition quoi)
    : QFrame(parent),
      Image_(new QLabel(this)),
      Titre_(CreeTexte(this, "LblGravite")),
      Quoi_(CreeTexte(this, "LblQuoi", true)),
      Depuis_(CreeTexte(this, "LblDepuis")),
      Faire_(CreeTexte(this, "LblFaire")) {
  setObjectName(QStringLiteral("LigneSante(%1)").arg(MotCondition(quoi)));
  DonneRole(*this, QAccessible::ListItem);
  setFocusPolicy(Qt::StrongFocus);
  setFrameStyle(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  Image_->setFixedSize(kCoteSigne, kCoteSigne);
  auto* rangee = new QHBoxLayout(this);
  rangee->setSpacing(kEcart);
  rangee->addWidget(Image_, 0, Qt::AlignTop);
  auto* textes = new QVBoxLayout;
  textes->setSpacing(3);
  for (QLabel* texte : {Titre_, Quoi_, Depuis_, Faire_}) textes->addWidget(texte);
  rangee->addLayout(textes, 1);
}

void LigneSante::Ecrit(const ConditionEnCours& condition, Langue langue) {
  const Gravite gravite = DonneGravite(condition.Quoi);
  Image_->setPixmap(QPixmap::fromImage(DonneSigne(gravite, devicePixelRatioF())));
  Titre_->setText(PhraseGravite(gravite, langue));
  Image_->setAccessibleName(Titre_->text());
  Quoi_->setText(PhraseQuoi(condition.Quoi, condition.Detail, langue));
  Depuis_->setText(MotDepuis(langue, DitMoment(condition.Depuis, langue)));
  Faire_->setText(PhraseFaire(condition.Quoi, langue));
  QStringList tout;
  for (const QLabel* texte : {Titre_, Quoi_, Depuis_, Faire_}) tout.append(texte->text());
  setAccessibleName(tout.join(u'\n'));
}

void LigneSante::paintEvent(QPaintEvent* evenement) {
  QFrame::paintEvent(evenement);
  if (!hasFocus()) return;
  QPainter peintre(this);
  peintre.setPen(QPen(palette().color(QPalette::Highlight), 2));
  peintre.drawRect(rect().adjusted(1, 1, -1, -1));
}

FrmSante::FrmSante()
    : Defilement_(new QScrollArea(this)),
      Contenu_(new QWidget),
      Colonne_(new QVBoxLayout(Contenu_)),
      LblRien_(CreeTexte(Contenu_, "LblRien")),
      CmdFermer_(new QPushButton(this)) {
  setObjectName(QStringLiteral("FrmSante"));  // its font is the desktop's: whoever needs large print has set it there
  Colonne_->setContentsMargins(0, 0, 0, 0);
  Colonne_->setSpacing(kEcart);
  Colonne_->addWidget(LblRien_);
  Colonne_->addStretch(1);
  Defilement_->setObjectName(QStringLiteral("ListeSante"));
  Defilement_->setFrameShape(QFrame::NoFrame);
  Defilement_->setWidgetResizable(true);
  // Words wrap at the window's width; what is too high is scrolled to. Tab goes through the entries, not to their
  // frame.
  Defilement_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  Defilement_->setFocusPolicy(Qt::NoFocus);
  Defilement_->setWidget(Contenu_);
  CmdFermer_->setObjectName(QStringLiteral("CmdFermer"));
  CmdFermer_->setAutoDefault(true);  // Enter presses it too; only dialogs do that by themselves
  connect(CmdFermer_, &QAbstractButton::clicked, this, &QWidget::close);
  auto* fenetre = new QVBoxLayout(this);
  fenetre->setContentsMargins(kMarge, kMarge, kMarge, kMarge);
  fenetre->setSpacing(kEcart);
  fenetre->addWidget(Defilement_, 1);
  fenetre->addWidget(CmdFermer_, 0, Qt::AlignRight);
  // The longest word of an entry, the path of a folder, has to find its place, whatever the size of the desktop's text.
  const int place = screen()->availableGeometry().width() * 3 / 4;
  const int mots = std::min(kSignesMin * fontMetrics().averageCharWidth(), place);
  setMinimumSize(std::max(kLargeur / 2, mots), kHauteurMinimale);
  resize(std::max(kLargeur, mots), kHauteurMinimale);
}

// Entries are kept as long as their condition stands, so that focus and scroll position stay where they are.
void FrmSante::MontreListe(const QList<ConditionEnCours>& liste, Langue langue) {
  setWindowTitle(TitreSante(langue));
  CmdFermer_->setText(MotFermerSante(langue));
  LblRien_->setText(MotRienASignaler(langue));
  LblRien_->setVisible(liste.isEmpty());
  RetireLignes(liste);
  QWidget* avant = CmdFermer_;
  for (qsizetype i = 0; i < liste.size(); ++i) {
    LigneSante*& ligne = Lignes_[liste[i].Quoi];
    if (ligne == nullptr) ligne = new LigneSante(Contenu_, liste[i].Quoi);
    ligne->Ecrit(liste[i], langue);
    const int place = static_cast<int>(i) + 1;  // behind LblRien
    if (Colonne_->indexOf(ligne) != place) {
      Colonne_->removeWidget(ligne);
      Colonne_->insertWidget(place, ligne);
    }
    ligne->show();
    setTabOrder(avant, ligne);
    avant = ligne;
  }
  if (isVisible()) Grandit();
}

void FrmSante::RetireLignes(const QList<ConditionEnCours>& liste) {
  for (auto it = Lignes_.begin(); it != Lignes_.end();) {
    const bool reste = std::any_of(liste.begin(), liste.end(),
                                   [&it](const ConditionEnCours& condition) { return condition.Quoi == it.key(); });
    if (reste) {
      ++it;
      continue;
    }
    if (it.value()->hasFocus()) CmdFermer_->setFocus();
    delete it.value();
    it = Lignes_.erase(it);
  }
}

// Wrapped words have a height only for a width.
int FrmSante::HauteurVoulue() const {
  const QMargins marges = layout()->contentsMargins();
  const int largeur = width() - marges.left() - marges.right();
  const int liste = Colonne_->hasHeightForWidth() ? Colonne_->heightForWidth(largeur) : Colonne_->sizeHint().height();
  return liste + CmdFermer_->sizeHint().height() + kEcart + marges.top() + marges.bottom();
}

void FrmSante::Grandit() {
  const int place = screen()->availableGeometry().height() * 3 / 4;
  const int voulue = std::clamp(HauteurVoulue(), kHauteurMinimale, std::max(kHauteurMinimale, place));
  if (voulue > height()) resize(width(), voulue);
}

void FrmSante::Ouvre() {
  if (!isVisible()) {
    ensurePolished();
    resize(std::max(kLargeur, minimumWidth()), kHauteurMinimale);
    Grandit();
    CmdFermer_->setFocus();
  }
  show();
  raise();
  activateWindow();
}

void FrmSante::closeEvent(QCloseEvent* evenement) {
  evenement->accept();
  Q_EMIT Fermee();
}

void FrmSante::keyPressEvent(QKeyEvent* evenement) {
  if (evenement->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(evenement);
}

}  // namespace vaktor
