// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/form_sound.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>

#include "ui/controls/control_factory.h"

// A library's resources are not there by themselves; the call has to stand outside every namespace.
static void ChargeImageSon() { Q_INIT_RESOURCE(sound_art); }

namespace vaktor {

namespace {
constexpr QSize kTailleForme{250, 100};
}  // namespace

ImageCliquable::ImageCliquable(QWidget* parent, const QString& nom, QPoint place) : BoutonEntendu(parent) {
  setObjectName(nom);
  setGeometry(QRect(place, kTaille));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
}

void ImageCliquable::ChangeBord(int bord) {
  if (Bord_ == bord) return;
  Bord_ = bord;
  update();
}

void ImageCliquable::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  const bool fin = devicePixelRatioF() > 1.0;
  peintre.drawImage(rect().adjusted(1, 1, -1, -1), QImage(fin ? QStringLiteral(":/sound/2x/ImagePlaySon.png")
                                                              : QStringLiteral(":/sound/1x/ImagePlaySon.png")));
  if (Bord_ == 1) {
    peintre.setPen(QColor(100, 106, 116));
    peintre.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  if (!hasFocus()) return;
  peintre.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DotLine));
  peintre.drawRect(rect().adjusted(2, 2, -3, -3));
}

void ImageCliquable::mouseMoveEvent(QMouseEvent* evenement) {
  BoutonEntendu::mouseMoveEvent(evenement);
  ChangeBord(0);
  evenement->accept();  // the form below would put the frame back
}

void ImageCliquable::mousePressEvent(QMouseEvent* evenement) {
  BoutonEntendu::mousePressEvent(evenement);
  ChangeBord(1);
}

FormSound::FormSound(const ChoixSon& choix)
    : Choix_(choix),
      LabelSelectSon_(CreeEtiquette(this, QStringLiteral("LabelSelectSon"), {12, 10, 150, 17}, kPoliceMoyenne)),
      CombSound_(CreeListe(this, QStringLiteral("CombSound"), {12, 30, 140, 22})),
      CmdChoixSonRep_(new QPushButton(QStringLiteral("..."), this)),
      ImagePlaySon_(new ImageCliquable(this, QStringLiteral("ImagePlaySon"), {204, 24})),
      LabelPlaySon_(CreeEtiquette(this, QStringLiteral("LabelPlaySon"), {190, 62, 60, 17}, kPoliceMoyenne)) {
  ChargeImageSon();
  setObjectName(QStringLiteral("FormSound"));
  setFixedSize(kTailleForme);
  setMouseTracking(true);
  LabelPlaySon_->setGeometry(188, 62, 60, 17);
  LabelPlaySon_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  CmdChoixSonRep_->setObjectName(QStringLiteral("CmdChoixSonRep"));
  CmdChoixSonRep_->setAutoDefault(true);  // Enter presses it too; only dialogs do that by themselves
  CmdChoixSonRep_->setGeometry(12, 62, 60, 24);
  // Only the user's choice: the list is filled anew at each opening.
  connect(CombSound_, &QComboBox::activated, this, [this](int index) {
    PermetFichier(index == ChoixSon::kSonDuFichier);
    Choix_.Choisit(index);
  });
  // The list is left as it is: after a cancelled dialog it still shows the file, though the first sound is chosen.
  connect(CmdChoixSonRep_, &QAbstractButton::clicked, this, [this] { Choix_.ParcourtFichiers(); });
  connect(ImagePlaySon_, &QAbstractButton::clicked, this, [this] { Choix_.Ecoute(); });
}

void FormSound::Montre() {
  if (!isVisible()) ChargeMots();
  show();
  raise();
  activateWindow();
}

void FormSound::ChargeMots() {
  const MotsFormSound mots = Choix_.DonneMots();
  setWindowTitle(mots.Titre);
  LabelSelectSon_->setText(mots.Selection);
  LabelPlaySon_->setText(mots.Ecoute);
  CombSound_->setAccessibleName(mots.Selection);
  ImagePlaySon_->setAccessibleName(mots.Ecoute);
  CmdChoixSonRep_->setAccessibleName(mots.Parcourir);
  LabelSelectSon_->setBuddy(CombSound_);  // a list is called by its label alone: its name is what it shows
  PermetFichier(Choix_.FichierPermis());
  // The shown text is no selection: picking the entry of that name is a choice like any other.
  CombSound_->clear();
  CombSound_->setPlaceholderText(mots.Montre);
  for (const QString& entree : mots.Entrees) CombSound_->addItem(entree);
  CombSound_->setCurrentIndex(-1);
}

// A dead button says what would wake it.
void FormSound::PermetFichier(bool permis) {
  const MotsFormSound mots = Choix_.DonneMots();
  CmdChoixSonRep_->setEnabled(permis);
  CmdChoixSonRep_->setToolTip(permis ? mots.Parcourir : mots.Parcourir + u'\n' + mots.FichierInterdit);
}

void FormSound::keyPressEvent(QKeyEvent* evenement) {
  if (evenement->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(evenement);
}

void FormSound::closeEvent(QCloseEvent* evenement) {
  Choix_.Ferme();
  evenement->accept();
}

void FormSound::mouseMoveEvent(QMouseEvent*) { ImagePlaySon_->ChangeBord(1); }

}  // namespace vaktor
