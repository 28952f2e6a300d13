// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/form_monitor.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include "base/failure.h"
#include "engine/detection_zone.h"
#include "image/monitor_words.h"
#include "texts/language.h"

namespace vaktor {

namespace {

constexpr int kHauteurBarre = 2;  // it covers the last two rows of the picture

// Two rows leave no room for a styled frame: the bar is all there is.
class BarrePoints : public QProgressBar {
 public:
  explicit BarrePoints(QWidget* parent) : QProgressBar(parent) {
    setRange(0, kBarreMax);
    setValue(0);
    setTextVisible(false);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter peintre(this);
    peintre.fillRect(rect(), QColor(224, 224, 224));
    peintre.fillRect(QRectF(0, 0, double(width()) * value() / maximum(), height()), QColor(0, 0, 160));
  }
};

}  // namespace

// A dialog and no tool window: KWin hides tool windows while another program has the keys, and the monitor is looked at
// just then.
FormMonitor::FormMonitor(Surveillance& moteur, const EtatApplication& etat, Parametres& reglages,
                         SauvegardeParametres& sauvegarde)
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      Moteur_(moteur),
      Etat_(etat),
      Reglages_(reglages),
      Sauvegarde_(sauvegarde),
      Picture1_(new VueCadre(moteur.Surface(), this)),
      ProgressBar1_(new BarrePoints(this)),
      Rafraichissement_(new TravailVisible(this, [this] { Picture1_->Rafraichit(); })),
      Barre_(new TravailVisible(this, [this] { ProgressBar1_->setValue(Points_); })) {
  setObjectName(QStringLiteral("FormMonitor"));
  Picture1_->setObjectName(QStringLiteral("Picture1"));
  ProgressBar1_->setObjectName(QStringLiteral("ProgressBar1"));
  CreeMenu();
  BrancheSouris();
  BrancheTouches();
  Picture1_->setFocus();  // the one control that takes keys
  SuitEcrans();
  AjusteFenetre();
  Moteur_.Surface().SurTaille([this] { SuitTaille(); });
  Moteur_.Surface().SurChangement([this] { Rafraichissement_->Demande(); });
}

FormMonitor::~FormMonitor() {
  Moteur_.Surface().SurTaille({});
  Moteur_.Surface().SurChangement({});
}

// What lay on no screen may lie on one now, with nothing painted there. Each tells of all of them; the first may go.
void FormMonitor::SuitEcrans() {
  const auto suit = [this](const QScreen* ecran) {
    connect(ecran, &QScreen::virtualGeometryChanged, this, [this] { Picture1_->update(); });
  };
  for (const QScreen* ecran : QGuiApplication::screens()) suit(ecran);
  connect(qGuiApp, &QGuiApplication::screenAdded, this, suit);
}

void FormMonitor::BrancheSouris() {
  connect(Picture1_, &VueCadre::GaucheAppuye, this, [this](QPointF p) { Moteur_.Souris().Appuie(p.x(), p.y()); });
  connect(Picture1_, &VueCadre::GaucheDeplace, this, [this](QPointF p) { Moteur_.Souris().Deplace(p.x(), p.y()); });
  connect(Picture1_, &VueCadre::GaucheRelache, this, [this](QPointF p) { Moteur_.Souris().Relache(p.x(), p.y()); });
  connect(Picture1_, &VueCadre::DroitAppuye, this, &FormMonitor::OuvreMenu);
  connect(Picture1_, &VueCadre::GaucheRelache, Picture1_, &VueCadre::AnnonceParoles);
}

void FormMonitor::BrancheTouches() {
  connect(Picture1_, &VueCadre::ZonePoussee, this, [this](QPoint pas) { Moteur_.Souris().Pousse(pas.x(), pas.y()); });
  connect(Picture1_, &VueCadre::ZoneEtiree, this, [this](QPoint pas) { Moteur_.Souris().Etire(pas.x(), pas.y()); });
  connect(Picture1_, &VueCadre::ZoneRemise, this, [this] { Moteur_.Souris().Remet(); });
  connect(Picture1_, &VueCadre::ZonePoussee, Picture1_, &VueCadre::AnnonceParoles);
  connect(Picture1_, &VueCadre::ZoneEtiree, Picture1_, &VueCadre::AnnonceParoles);
  connect(Picture1_, &VueCadre::ZoneRemise, Picture1_, &VueCadre::AnnonceParoles);
  connect(Picture1_, &VueCadre::MenuAuClavier, this, [this] {
    MnuFullScreen_->setText(LibellePleinEcran_);
    OuvreAuClavier(*MnuScreen_, *Picture1_);
  });
}

// The notice over the picture first: a camera that has gone matters more than where the zone lies.
QString FormMonitor::DitImage() const {
  const Langue langue = LangueParlee(Reglages_.LangueCourante);
  QStringList phrases = {Picture1_->Avis(), DitZone(langue, Moteur_.Detection().Zone, Moteur_.Surface().Taille()),
                         DitTouchesZone(langue)};
  phrases.removeAll(QString());
  return phrases.join(u'\n');
}

void FormMonitor::CreeMenu() {
  MnuScreen_ = new QMenu(QStringLiteral("Screen"), this);
  MnuScreen_->setObjectName(QStringLiteral("MnuScreen"));
  MnuFullScreen_ = MnuScreen_->addAction(QStringLiteral("Full screen"));
  MnuFullScreen_->setObjectName(QStringLiteral("MnuFullScreen"));
  connect(MnuFullScreen_, &QAction::triggered, this, &FormMonitor::PleinEcranChoisi);
}

void FormMonitor::OuvreMenu(const QPointF& position) {
  // The caption is written at each opening: that is when it takes the language of the moment.
  MnuFullScreen_->setText(LibellePleinEcran_);
  MnuScreen_->popup(Picture1_->mapToGlobal(position.toPoint()));
}

void FormMonitor::EcritAides(const QString& image, const QString& barre) {
  Picture1_->setToolTip(image);
  ProgressBar1_->setToolTip(barre);
  ProgressBar1_->setAccessibleName(barre);
  Picture1_->ChangeParoles(MotImageCamera(LangueParlee(Reglages_.LangueCourante)), [this] { return DitImage(); });
}

void FormMonitor::MontreBarre(qint32 valeur) {
  Points_ = valeur;
  Barre_->Demande();
}

void FormMonitor::SuitTaille() {
  AjusteFenetre();
  update();
  Q_EMIT TailleChangee();
  Reglages_.ParametresModifies = true;
  try {
    Sauvegarde_.SauveParametres();
  } catch (const Echec&) {
    // This runs while a frame is being put on the surface: a store that cannot be written must not cost the frame.
    // ParametresModifies is still set, so the next save tells the user.
  }
}

// The outer size of the window is to be the picture and 450 by 100 twips more, which is 30 pixels in height and 6 2/3
// in width at 15 twips a pixel: a title bar of 24 and a frame of 3 pixels on each side. So that surplus is nothing but
// the frame of its time, and the inside of the window is the picture, to the pixel. Here the window manager adds a
// frame of its own size around the inside that is asked for; adding the numbers would leave a grey strip below and
// beside the picture. The bar that covers the last two rows shows that none is meant.
void FormMonitor::AjusteFenetre() {
  const QSize taille = Moteur_.Surface().Taille();
  Picture1_->setGeometry(QRect(QPoint(0, 0), taille));
  ProgressBar1_->setGeometry(0, taille.height() - kHauteurBarre, taille.width(), kHauteurBarre);
  setFixedSize(taille);
}

// What was on no screen was not painted: that of the last frame may lie there, or of none.
void FormMonitor::moveEvent(QMoveEvent* evenement) {
  QWidget::moveEvent(evenement);
  Picture1_->update();
}

void FormMonitor::closeEvent(QCloseEvent* evenement) {
  if (Etat_.EnFermeture) {
    evenement->accept();
    return;
  }
  // Detection goes on behind a hidden monitor; the camera button brings it back.
  evenement->ignore();
  hide();
  Moteur_.CacheMoniteur();
}

}  // namespace vaktor
