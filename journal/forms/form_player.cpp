// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/forms/form_player.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QVBoxLayout>

#include "engine/frame_surface.h"
#include "image/gallery_words.h"
#include "journal/timeline_words.h"

namespace vaktor {
namespace {

constexpr int kTicMs = 15;  // twice as often as a photo of a camera of 30 frames comes
constexpr std::array<double, 3> kVitesses = {0.5, 1, 2};
constexpr QSize kTaille{760, 620};

}  // namespace

EcranLecture::EcranLecture(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("EcranLecture"));
  setMinimumSize(320, 200);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void EcranLecture::Montre(const QImage& image, const QRect& cadre) {
  Image_ = image;
  Cadre_ = cadre;
  Avis_.clear();
  setAccessibleDescription({});
  update();
}

void EcranLecture::MontreCadre(bool montre) {
  AvecCadre_ = montre;
  update();
}

void EcranLecture::MontreAvis(const QString& avis) {
  Image_ = {};
  Avis_ = avis;
  setAccessibleDescription(avis);
  update();
}

void EcranLecture::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.fillRect(rect(), QColor(16, 18, 22));
  if (Image_.isNull()) {
    peintre.setPen(QColor(0xe0, 0xe4, 0xea));
    peintre.setFont(PoliceFrise(14));
    peintre.drawText(rect().adjusted(20, 20, -20, -20), Qt::AlignCenter | Qt::TextWordWrap, Avis_);
    return;
  }
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  const QSizeF montree = QSizeF(Image_.size()).scaled(QSizeF(size()), Qt::KeepAspectRatio);
  const QPointF coin((width() - montree.width()) / 2, (height() - montree.height()) / 2);
  peintre.drawImage(QRectF(coin, montree), Image_);
  if (!AvecCadre_ || Cadre_.isEmpty()) return;
  const double echelle = montree.width() / Image_.width();
  const QRectF cadre(coin + QPointF(Cadre_.topLeft()) * echelle, QSizeF(Cadre_.size()) * echelle);
  peintre.setRenderHint(QPainter::Antialiasing);
  peintre.setPen(QPen(QColor(0, 0, 0, 120), 4));
  peintre.drawRect(cadre);
  peintre.setPen(QPen(QColor(kCouleurContour), 2));
  peintre.drawRect(cadre);
}

FrmLecture::FrmLecture(LecteurPhotos& photos, std::function<void()> enregistre)
    : FenetreFrise("FrmLecture"),
      Photos_(photos),
      Enregistre_(std::move(enregistre)),
      Ecran_(new EcranLecture(this)),
      LblPosition_(new QLabel(this)),
      Position_(new QSlider(Qt::Horizontal, this)),
      CmdLecture_(CreeBouton("CmdLecture")),
      ChkCadre_(new QCheckBox(this)),
      CmdEnregistrer_(CreeBouton("CmdEnregistrerFilm")),
      CmdFermer_(CreeBouton("CmdFermerLecture")) {
  LblPosition_->setObjectName(QStringLiteral("LblPosition"));
  LblPosition_->setFont(PoliceFrise(13, true));
  Position_->setObjectName(QStringLiteral("Position"));
  ChkCadre_->setObjectName(QStringLiteral("ChkCadre"));
  ChkCadre_->setFont(PoliceFrise(12));
  ChkCadre_->setChecked(true);
  for (std::size_t i = 0; i < kVitesses.size(); ++i) {
    CmdVitesse_[i] = CreeBouton("CmdVitesse");
    CmdVitesse_[i]->setObjectName(QStringLiteral("CmdVitesse(%1)").arg(i));
    CmdVitesse_[i]->setCheckable(true);
    CmdVitesse_[i]->setAutoExclusive(true);
    CmdVitesse_[i]->setChecked(kVitesses[i] == 1);
    connect(CmdVitesse_[i], &QPushButton::clicked, this, [this, i] { Film_.ChoisitVitesse(kVitesses[i]); });
  }
  connect(CmdLecture_, &QPushButton::clicked, this, &FrmLecture::Bascule);
  connect(ChkCadre_, &QCheckBox::toggled, this, [this](bool coche) { Ecran_->MontreCadre(coche); });
  connect(CmdEnregistrer_, &QPushButton::clicked, this, [this] { Enregistre_(); });
  connect(CmdFermer_, &QPushButton::clicked, this, &QWidget::close);
  connect(Position_, &QSlider::valueChanged, this, [this](int valeur) { Va(valeur); });
  // The keys of the player are the same wherever the focus is: a button would else take the space to itself.
  for (QWidget* controle : findChildren<QWidget*>()) controle->installEventFilter(this);
  Tic_.setInterval(kTicMs);
  connect(&Tic_, &QTimer::timeout, this, &FrmLecture::Avance);
  Dispose();
  resize(kTaille);
}

void FrmLecture::Dispose() {
  auto* colonne = new QVBoxLayout(this);
  colonne->setContentsMargins(12, 12, 12, 12);
  colonne->setSpacing(8);
  colonne->addWidget(Ecran_, 1);
  auto* position = new QHBoxLayout;
  position->addWidget(Position_, 1);
  position->addWidget(LblPosition_);
  colonne->addLayout(position);
  auto* boutons = new QHBoxLayout;
  boutons->setSpacing(8);
  boutons->addWidget(CmdLecture_);
  for (QPushButton* vitesse : CmdVitesse_) boutons->addWidget(vitesse);
  boutons->addSpacing(8);
  boutons->addWidget(ChkCadre_);
  boutons->addStretch(1);
  boutons->addWidget(CmdEnregistrer_);
  boutons->addWidget(CmdFermer_);
  colonne->addLayout(boutons);
}

void FrmLecture::Ouvre(const IntrusionVue& vue, Langue langue, const AllureFrise& allure) {
  Photos_.Oublie();
  Vue_ = vue;
  Langue_ = langue;
  Revet(allure);
  HabilleCoche();
  Film_ = LectureFilm(PlaceFilm(vue.Photos));
  for (std::size_t i = 0; i < kVitesses.size(); ++i)
    if (CmdVitesse_[i]->isChecked()) Film_.ChoisitVitesse(kVitesses[i]);
  Demandee_ = Montree_ = -1;
  Position_->setRange(0, static_cast<int>(qMax<qsizetype>(0, Film_.Nombre() - 1)));
  Ecran_->MontreAvis(Film_.Nombre() == 0 ? MotSansImage(false, langue) : QString());
  Film_.Bascule();
  Depuis_.start();
  Tic_.start();
  Suit();
  show();
  raise();
  activateWindow();
  CmdLecture_->setFocus();
}

// Not by the style sheet, which knows one colour for the words and for the tick: light words on wood would have a light
// tick in a light box.
void FrmLecture::HabilleCoche() {
  QPalette palette = ChkCadre_->palette();
  palette.setColor(QPalette::WindowText, Allure().EncreTete);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Allure().Encre);
  ChkCadre_->setPalette(palette);
}

void FrmLecture::EcritMots() {
  setWindowTitle(DitIntrusion(Vue_, Langue_));
  CmdLecture_->setText(MotLecture(Film_.Joue(), Langue_));
  CmdEnregistrer_->setText(MotEnregistrer(Langue_));
  CmdFermer_->setText(MotFermerFrise(Langue_));
  ChkCadre_->setText(MotCadre(Langue_));
  Position_->setAccessibleName(MotPosition(Langue_));
  for (std::size_t i = 0; i < kVitesses.size(); ++i) {
    CmdVitesse_[i]->setText(MotVitesse(kVitesses[i]));
    CmdVitesse_[i]->setAccessibleName(AideVitesse(Langue_) + u' ' + QString::number(kVitesses[i]));
  }
  const qsizetype index = Film_.Index();
  LblPosition_->setText(index < 0 ? QString() : DitPosition(index, Film_.Nombre(), Vue_.Photos.at(index), Langue_));
  CmdLecture_->setEnabled(Film_.Nombre() > 0);
  CmdEnregistrer_->setEnabled(Film_.Nombre() > 0);
}

void FrmLecture::Bascule() {
  Film_.Bascule();
  Depuis_.restart();
  Suit();
}

void FrmLecture::Pas(qsizetype pas) {
  Film_.Pas(pas);
  Suit();
}

void FrmLecture::Va(qsizetype index) {
  if (index == Film_.Index()) return;
  Film_.Va(index);
  Suit();
}

void FrmLecture::Avance() {
  if (Film_.Avance(Depuis_.restart())) Suit();
}

// Slider, words and photo are where the film is.
void FrmLecture::Suit() {
  if (Film_.Index() >= 0) Position_->setValue(static_cast<int>(Film_.Index()));
  EcritMots();
  DemandePhoto();
}

// The newest that is wanted, when the one before has come: a disk that is slow shows fewer photos at the same pace.
void FrmLecture::DemandePhoto() {
  const qsizetype index = Film_.Index();
  if (Demandee_ >= 0 || index < 0 || index == Montree_) return;
  Demandee_ = index;
  Photos_.LitPhoto(Vue_.Dossier + u'\\' + Vue_.Photos.at(index),
                   [this, index](const PhotoLue& lue) { Recoit(index, lue); });
}

void FrmLecture::Recoit(qsizetype index, const PhotoLue& lue) {
  if (lue.Etat == EtatPhoto::kSansReponse) {
    Ecran_->MontreAvis(AvisPhoto(Langue_, lue.Etat, Vue_.Photos.at(index)));
    return;  // it may still come
  }
  Demandee_ = -1;
  Montree_ = index;
  lue.Etat == EtatPhoto::kLue ? Ecran_->Montre(lue.Image, CadreDe(Vue_, Vue_.Photos.at(index)))
                              : Ecran_->MontreAvis(AvisPhoto(Langue_, lue.Etat, Vue_.Photos.at(index)));
  DemandePhoto();
}

void FrmLecture::Repose() {
  Tic_.stop();
  Photos_.Oublie();
  Demandee_ = -1;
}

bool FrmLecture::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() != QEvent::KeyPress) return QWidget::eventFilter(objet, evenement);
  const auto& touche = static_cast<QKeyEvent&>(*evenement);
  const bool coche = objet == ChkCadre_ && touche.key() == Qt::Key_Space;
  const bool nous = touche.key() == Qt::Key_Space || touche.key() == Qt::Key_Left || touche.key() == Qt::Key_Right;
  if (!nous || coche) return QWidget::eventFilter(objet, evenement);
  keyPressEvent(static_cast<QKeyEvent*>(evenement));
  return true;
}

void FrmLecture::keyPressEvent(QKeyEvent* evenement) {
  switch (evenement->key()) {
    case Qt::Key_Space:
      Bascule();
      return;
    case Qt::Key_Left:
      Pas(-1);
      return;
    case Qt::Key_Right:
      Pas(1);
      return;
    case Qt::Key_Home:
      Va(0);
      return;
    case Qt::Key_End:
      Va(Film_.Nombre() - 1);
      return;
    default:
      FenetreFrise::keyPressEvent(evenement);
  }
}

}  // namespace vaktor
