// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/form_visu_photo.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QWindow>

#include "image/gallery_layout.h"
#include "image/gallery_words.h"
#include "texts/language.h"
#include "ui/common/field_text.h"

namespace vaktor {

namespace {

constexpr int kMargeFrise = 8;
constexpr QSize kTailleFrise{110, 28};        // as the panel's buttons
constexpr QSize kTailleConception{920, 620};  // once it is restored from its maximised start

}  // namespace

FormVisuPhoto::FormVisuPhoto(GaleriePhotos& regles, const Parametres& reglages, const TablesTextes& textes)
    : QWidget(nullptr, Qt::Window),
      Regles_(regles),
      Reglages_(reglages),
      Textes_(textes),
      PictureVisu_(new PlacePhoto(this)),
      PictureAfff_(new PanneauGalerie(this)),
      CmdFrise_(new QPushButton(this)) {
  setObjectName(QStringLiteral("FormVisuPhoto"));
  setWindowTitle(QStringLiteral("Intrusions"));
  PictureVisu_->setObjectName(QStringLiteral("PictureVisu"));
  resize(kTailleConception);
  CreeMenu();
  CreeCmdFrise();
  BranchePanneau();
  BrancheListe();
  connect(PictureVisu_, &PlacePhoto::TailleChangee, this, &FormVisuPhoto::PlaceLaPhoto);
  Dispose();
  Regles_.Relie(*this);
  MontreLimite();
  setWindowState(Qt::WindowMaximized);
}

void FormVisuPhoto::CreeMenu() {
  Mnu_file_ = new QMenu(QStringLiteral("Fichier"), this);
  Mnu_file_->setObjectName(QStringLiteral("Mnu_file"));
  Mnu_Supprim_ = Mnu_file_->addAction(QString());
  Mnu_Supprim_->setObjectName(QStringLiteral("Mnu_Supprim"));
  connect(Mnu_Supprim_, &QAction::triggered, this, [this] { Regles_.SupprimePhoto(); });
}

// No given control makes room for it: it stands where only the background is, or the corner of a very large photo.
void FormVisuPhoto::CreeCmdFrise() {
  CmdFrise_->setObjectName(QStringLiteral("CmdFrise"));
  CmdFrise_->setFont(PictureAfff_->font());
  CmdFrise_->setAutoDefault(true);
  connect(CmdFrise_, &QAbstractButton::clicked, this, [this] {
    if (OuvreFrise_) OuvreFrise_();
  });
  setTabOrder(PictureAfff_->CmdClearRepPhot, CmdFrise_);
}

void FormVisuPhoto::BranchePanneau() {
  PanneauGalerie& panneau = *PictureAfff_;
  connect(panneau.TxtNbrPhotDisk, &QLineEdit::textChanged, this,
          [this](const QString& texte) { EcritChamp(*PictureAfff_->TxtNbrPhotDisk, Regles_.ChangeLimite(texte)); });
  connect(panneau.CmdOpenRepPhot, &QAbstractButton::clicked, this, [this] { Regles_.OuvreRepertoire(); });
  connect(panneau.Command7, &QAbstractButton::clicked, this, [this] {
    if (ChoisitRepertoire_) ChoisitRepertoire_();
  });
  connect(panneau.CmdRefresh, &QAbstractButton::clicked, this, [this] { Regles_.Rafraichit(); });
  connect(panneau.CmdClearRepPhot, &QAbstractButton::clicked, this, [this] { Regles_.SupprimeTout(); });
  // The system moves the window with the mouse from here on, under X11 and under Wayland.
  connect(&panneau, &PanneauGalerie::DeplacementDemande, this, [this] {
    if (windowHandle() != nullptr) windowHandle()->startSystemMove();
  });
}

// Cleaned as it comes, like a text that is typed: what somebody wrote into the file by hand, "-5" for one, neither
// stays in the field nor counts for the photos. But nobody has changed anything, so nothing is marked as changed.
void FormVisuPhoto::MontreLimite() {
  const QSignalBlocker silence(PictureAfff_->TxtNbrPhotDisk);
  PictureAfff_->TxtNbrPhotDisk->setText(Regles_.ChangeLimite(QString::number(Reglages_.NombrePhotoMax), true));
}

void FormVisuPhoto::BrancheListe() {
  ListePhotos* liste = PictureAfff_->FilePhotoVisu;
  connect(liste, &ListePhotos::IndexChoisi, this, [this](int index) { Regles_.ChoisitIndex(index); });
  connect(liste, &ListePhotos::Clique, this, [this] { Regles_.Clique(); });
  connect(liste, &ListePhotos::Glisse, this, [this] { Regles_.GlisseGauche(); });
  connect(liste, &ListePhotos::BoutonDroit, this, &FormVisuPhoto::OuvreMenu);
  connect(liste, &ListePhotos::MenuDemande, this, &FormVisuPhoto::OuvreMenu);
  connect(liste, &ListePhotos::SuppressionDemandee, this, [this] { Regles_.SupprimePhoto(); });
}

// The photo is that of the selected entry, wherever the pointer is.
void FormVisuPhoto::OuvreMenu(const QPoint& position) {
  if (!Regles_.AppuieBoutonDroit()) return;
  Mnu_file_->popup(mapToGlobal(PictureAfff_->FilePhotoVisu->pos() + position));
}

void FormVisuPhoto::ChargeMots() {
  PictureAfff_->ChargeMots(Textes_, LangueParlee(Reglages_.LangueCourante));
  PictureVisu_->setAccessibleName(MotPhotoMontree(LangueParlee(Reglages_.LangueCourante)));
  Mnu_Supprim_->setText(Textes_.Dit(Libelle::kSupprime));
  CmdFrise_->setText(MotFrise(LangueParlee(Reglages_.LangueCourante)));
  CmdFrise_->setToolTip(AideFrise(LangueParlee(Reglages_.LangueCourante)));
  Regles_.AfficheNombrePhotos();
  Regles_.RedisAvis();
}

void FormVisuPhoto::OuvreGalerie() {
  Regles_.OuvreGalerie();
  PictureAfff_->PrepareFond();  // while the names are read, and not in one go with showing and painting
}

void FormVisuPhoto::MontreListe(const QStringList& entrees, int index) {
  PictureAfff_->FilePhotoVisu->MontreListe(entrees, index);
}

void FormVisuPhoto::MontreIndex(int index) { PictureAfff_->FilePhotoVisu->MontreIndex(index); }
void FormVisuPhoto::MontrePhoto(const QImage& photo) { PictureVisu_->MontrePhoto(photo); }
void FormVisuPhoto::MontreMention(const QString& mention) { PictureVisu_->MontreMention(mention); }
void FormVisuPhoto::MontreAvis(const QString& avis) { PictureVisu_->MontreAvis(avis); }
void FormVisuPhoto::MontreTitre(const QString& titre) { setWindowTitle(titre); }

void FormVisuPhoto::AjusteAutourPhoto() {
  if (isMinimized() || isMaximized()) return;
  const QSize cadre = frameGeometry().size() - size();
  resize((TailleAutourPhoto(PictureVisu_->size()) - cadre).expandedTo({1, 1}));
}

void FormVisuPhoto::MontreFenetre() {
  if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  PictureAfff_->FilePhotoVisu->setFocus();
}

void FormVisuPhoto::OuvreProgression(int dernier) {
  Progression_ = std::make_unique<FrmProgression>(this, MotEffacement(LangueParlee(Reglages_.LangueCourante)), dernier);
  PictureAfff_->setEnabled(false);  // what the user clicks while events run waits for the true list
  Progression_->move(geometry().center() - Progression_->rect().center());
  Progression_->show();
}

void FormVisuPhoto::AvanceProgression(int pas) {
  if (Progression_) Progression_->Avance(pas);
}

void FormVisuPhoto::FermeProgression() {
  Progression_.reset();
  PictureAfff_->setEnabled(true);
  PictureAfff_->FilePhotoVisu->setFocus();
}

void FormVisuPhoto::resizeEvent(QResizeEvent*) {
  if (!isMinimized()) Dispose();
}

void FormVisuPhoto::Dispose() {
  const PlacesGalerie places = PlaceGalerie(size(), PictureAfff_->FilePhotoVisu->y(), PictureVisu_->size());
  PictureAfff_->setGeometry(0, 0, kLargeurPanneau, places.HauteurPanneau);
  PictureAfff_->FilePhotoVisu->resize(PictureAfff_->FilePhotoVisu->width(), places.HauteurListe);
  PictureVisu_->move(places.Photo);
  CmdFrise_->setGeometry(width() - kMargeFrise - kTailleFrise.width(), kMargeFrise, kTailleFrise.width(),
                         kTailleFrise.height());
  CmdFrise_->raise();
  update();
}

void FormVisuPhoto::PlaceLaPhoto() {
  update();
  PictureVisu_->move(PlaceGalerie(size(), PictureAfff_->FilePhotoVisu->y(), PictureVisu_->size()).Photo);
}

void FormVisuPhoto::EtireFond() {
  TailleFondue_ = frameGeometry().size();
  Fond_ = QPixmap(size() * devicePixelRatioF());
  Fond_.setDevicePixelRatio(devicePixelRatioF());
  QPainter peintre(&Fond_);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  peintre.drawImage(QRect(QPoint(0, 0), TailleFondEtire(TailleFondue_)),
                    ChargeArtGalerie(QStringLiteral("PictureFond"), devicePixelRatioF()));
}

void FormVisuPhoto::paintEvent(QPaintEvent* evenement) {
  // Stretched again only for another size: the picture alone changes far more often.
  if (TailleFondue_ != frameGeometry().size() || Fond_.devicePixelRatio() != devicePixelRatioF()) EtireFond();
  QPainter peintre(this);
  peintre.setClipRegion(evenement->region());
  peintre.drawPixmap(0, 0, Fond_);
}

void FormVisuPhoto::keyPressEvent(QKeyEvent* evenement) {
  if (evenement->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(evenement);
}

void FormVisuPhoto::closeEvent(QCloseEvent* evenement) {
  // A save that fails is told by the guard of the event loop, and the window goes all the same: the event is accepted.
  if (Regles_.DemandeFermeture()) return;
  evenement->ignore();
  hide();
}

}  // namespace vaktor
