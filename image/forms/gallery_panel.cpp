// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/gallery_panel.h"

#include <QMouseEvent>
#include <QPainter>
#include <limits>

#include "image/gallery_layout.h"
#include "image/gallery_words.h"
#include "texts/language.h"
#include "ui/common/field_font.h"

// A library's resources are not there by themselves; the call has to stand outside every namespace.
static void PrepareArtGalerie() { Q_INIT_RESOURCE(gallery_art); }

namespace vaktor {

namespace {

constexpr int kHautListe = 106;
constexpr int kPolice = 12;       // pixels, so that the captions fit whatever density the screen claims
constexpr int kPoliceListe = 11;  // a photo's name and the scroll bar find room beside each other

QFont DonnePolice(int pixels) {
  QFont police(QStringLiteral("Arial"));
  police.setPixelSize(pixels);
  return police;
}

}  // namespace

QImage ChargeArtGalerie(const QString& nom, double densite) {
  PrepareArtGalerie();
  const int echelle = densite > 1 ? 2 : 1;
  QImage image(QStringLiteral(":/gallery/%1x/%2.png").arg(echelle).arg(nom));
  image.setDevicePixelRatio(echelle);
  return image;
}

PanneauGalerie::PanneauGalerie(QWidget* parent)
    : QWidget(parent),
      LblPhotoDisc(new QLabel(this)),
      TxtNbrPhotDisk(CreeChampEnPolice<QLineEdit>(this, DonnePolice(kPolice))),
      CmdOpenRepPhot(CreeBouton("CmdOpenRepPhot", {8, 38, 110, 28})),
      Command7(CreeBouton("Command7", {123, 38, 110, 28})),
      CmdRefresh(CreeBouton("CmdRefresh", {8, 70, 110, 28})),
      CmdClearRepPhot(CreeBouton("CmdClearRepPhot", {123, 70, 110, 28})),
      FilePhotoVisu(new ListePhotos(this)) {
  setObjectName(QStringLiteral("PictureAfff"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFont(DonnePolice(kPolice));
  LblPhotoDisc->setObjectName(QStringLiteral("LblPhotoDisc"));
  LblPhotoDisc->setGeometry(10, 11, 136, 20);
  LblPhotoDisc->setTextFormat(Qt::PlainText);
  LblPhotoDisc->setCursor(Qt::SizeAllCursor);
  LblPhotoDisc->installEventFilter(this);
  QPalette encre = LblPhotoDisc->palette();
  encre.setColor(QPalette::WindowText, QColor(0x40, 0x40, 0x40));
  LblPhotoDisc->setPalette(encre);
  TxtNbrPhotDisk->setText(QStringLiteral("1000"));
  TxtNbrPhotDisk->setObjectName(QStringLiteral("TxtNbrPhotDisk"));
  TxtNbrPhotDisk->setGeometry(148, 9, 85, 24);
  TxtNbrPhotDisk->setMaxLength(std::numeric_limits<int>::max());
  FilePhotoVisu->setFont(DonnePolice(kPoliceListe));
  FilePhotoVisu->setObjectName(QStringLiteral("FilePhotoVisu"));
  FilePhotoVisu->setGeometry(8, kHautListe, kLargeurPanneau - 16, 100);
  OrdonneClavier();
}

QPushButton* PanneauGalerie::CreeBouton(const char* nom, const QRect& place) {
  auto* bouton = new QPushButton(this);
  bouton->setObjectName(QLatin1String(nom));
  bouton->setGeometry(place);
  bouton->setAutoDefault(true);  // Enter presses it too; only dialogs do that by themselves
  return bouton;
}

void PanneauGalerie::OrdonneClavier() {
  setTabOrder(FilePhotoVisu, TxtNbrPhotDisk);
  setTabOrder(TxtNbrPhotDisk, CmdOpenRepPhot);
  setTabOrder(CmdOpenRepPhot, Command7);
  setTabOrder(Command7, CmdRefresh);
  setTabOrder(CmdRefresh, CmdClearRepPhot);
}

void PanneauGalerie::ChargeMots(const TablesTextes& textes, Langue langue) {
  LblPhotoDisc->setText(textes.Dit(Libelle::kPhotosMax));
  TxtNbrPhotDisk->setAccessibleName(textes.Dit(Libelle::kPhotosMax));
  CmdOpenRepPhot->setText(textes.Dit(Libelle::kVoitRepertoire));
  Command7->setText(textes.Dit(Libelle::kChoisitRepertoire));
  CmdRefresh->setText(textes.Dit(Libelle::kRafraichit));
  CmdClearRepPhot->setText(textes.Dit(Libelle::kEffacePhotos));
  Command7->setToolTip(textes.Dit(Aide::kChoisitRepertoire));
  TxtNbrPhotDisk->setToolTip(textes.Dit(Aide::kPhotosMax));
  FilePhotoVisu->setAccessibleName(MotListePhotos(langue));
}

bool PanneauGalerie::eventFilter(QObject* objet, QEvent* evenement) {
  if (objet == LblPhotoDisc && evenement->type() == QEvent::MouseButtonPress &&
      static_cast<QMouseEvent*>(evenement)->button() == Qt::LeftButton) {
    Q_EMIT DeplacementDemande();
    return true;
  }
  return QWidget::eventFilter(objet, evenement);
}

void PanneauGalerie::PrepareFond() {
  if (!Fond_.isNull() && Densite_ == devicePixelRatioF()) return;
  Densite_ = devicePixelRatioF();
  Fond_ = ChargeArtGalerie(QStringLiteral("PictureAffTampon"), Densite_);
}

void PanneauGalerie::paintEvent(QPaintEvent*) {
  PrepareFond();
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  peintre.fillRect(rect(), QColor(208, 213, 217));
  for (const int haut : BandesPanneau(height())) peintre.drawImage(QPointF(0, haut), Fond_);
}

}  // namespace vaktor
