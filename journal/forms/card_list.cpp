// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/forms/card_list.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>

#include "engine/frame_surface.h"
#include "journal/timeline_words.h"

namespace vaktor {
namespace {

constexpr int kEcart = 12;
constexpr int kMarge = 8;
constexpr int kArrondi = 7;

}  // namespace

QString CheminParlante(const IntrusionVue& vue) {
  return vue.Parlante.isEmpty() ? QString() : vue.Dossier + u'\\' + vue.Parlante;
}

void ModeleCartes::MontreJour(std::shared_ptr<const Chronique> chronique, const JourVu& jour, Langue langue) {
  beginResetModel();
  Chronique_ = std::move(chronique);
  Jour_ = jour;
  Langue_ = langue;
  endResetModel();
}

int ModeleCartes::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || !Chronique_ ? 0 : static_cast<int>(Jour_.Intrusions.size());
}

QVariant ModeleCartes::data(const QModelIndex& index, int role) const {
  const bool dit = role == Qt::DisplayRole || role == Qt::ToolTipRole || role == Qt::AccessibleTextRole;
  return index.isValid() && dit ? QVariant(DitIntrusion(Intrusion(index.row()), Langue_)) : QVariant();
}

int ModeleCartes::Rangee(qsizetype numero) const {
  const qsizetype place = Jour_.Intrusions.indexOf(numero);
  return place < 0 ? -1 : static_cast<int>(Jour_.Intrusions.size() - 1 - place);
}

DessinCartes::DessinCartes(ListeCartes& liste) : QStyledItemDelegate(&liste), Liste_(liste) {}

QSize DessinCartes::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const { return ListeCartes::kCarte; }

void DessinCartes::paint(QPainter* peintre, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const AllureFrise& allure = Liste_.Allure();
  const IntrusionVue& vue = Liste_.Modele().Intrusion(index.row());
  const bool choisie = option.state & QStyle::State_Selected;
  const QRectF carte = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
  peintre->save();
  peintre->setRenderHint(QPainter::Antialiasing);
  peintre->setRenderHint(QPainter::SmoothPixmapTransform);
  peintre->setPen(choisie ? QPen(allure.Choisi, Liste_.hasFocus() ? 3 : 2) : QPen(allure.BordCarte, 1));
  peintre->setBrush(allure.Carte);
  peintre->drawRoundedRect(carte, kArrondi, kArrondi);
  const QRectF image(QPointF(option.rect.left() + kMarge, option.rect.top() + kMarge), QSizeF(ListeCartes::kImage));
  DessineImage(*peintre, image, vue);
  DessineMots(*peintre, QRectF(image.left(), image.bottom() + 4, image.width(), carte.bottom() - image.bottom() - 8),
              vue);
  peintre->restore();
}

void DessinCartes::DessineImage(QPainter& peintre, const QRectF& place, const IntrusionVue& vue) const {
  QPainterPath cadre;
  cadre.addRoundedRect(place, 4, 4);
  peintre.fillPath(cadre, QColor(28, 32, 40));
  peintre.setClipPath(cadre);
  const Vignette* vignette = vue.Parlante.isEmpty() ? nullptr : Liste_.Vignettes().Donne(CheminParlante(vue));
  if (vignette != nullptr && vignette->Etat == EtatPhoto::kLue) {
    const QSizeF montree = QSizeF(vignette->Entiere).scaled(place.size(), Qt::KeepAspectRatio);
    const QRectF image(place.center() - QPointF(montree.width() / 2, montree.height() / 2), montree);
    peintre.drawImage(image, vignette->Image);
    if (!vue.Cadre.isEmpty()) {
      const double echelle = montree.width() / vignette->Entiere.width();
      const QRectF boite(image.topLeft() + QPointF(vue.Cadre.topLeft()) * echelle, QSizeF(vue.Cadre.size()) * echelle);
      peintre.setBrush(Qt::NoBrush);
      peintre.setPen(QPen(QColor(0, 0, 0, 110), 3));
      peintre.drawRect(boite);
      peintre.setPen(QPen(QColor(kCouleurContour), 1.4));
      peintre.drawRect(boite);
    }
  } else if (vue.Parlante.isEmpty() || vignette != nullptr) {
    // No picture, and none comes.
    peintre.setPen(QColor(0xd0, 0xd6, 0xde));
    peintre.setFont(PoliceFrise(12));
    peintre.drawText(place.adjusted(10, 0, -10, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     MotSansImage(!vue.Parlante.isEmpty(), Liste_.Modele().DonneLangue()));
  }
  peintre.setClipping(false);
}

void DessinCartes::DessineMots(QPainter& peintre, const QRectF& place, const IntrusionVue& vue) const {
  const AllureFrise& allure = Liste_.Allure();
  const Langue langue = Liste_.Modele().DonneLangue();
  peintre.setFont(PoliceFrise(16, true));
  peintre.setPen(allure.Encre);
  peintre.drawText(place, Qt::AlignLeft | Qt::AlignTop, vue.Debut.toLocalTime().toString(QStringLiteral("HH:mm:ss")));
  peintre.setFont(PoliceFrise(12));
  if (vue.EnCours) {
    peintre.setPen(allure.Rouge);
    peintre.drawText(place.adjusted(0, 3, 0, 0), Qt::AlignRight | Qt::AlignTop, MotEnCours(langue));
  } else {
    peintre.setPen(allure.EncreDouce);
    peintre.drawText(place.adjusted(0, 3, 0, 0), Qt::AlignRight | Qt::AlignTop, DitDuree(vue.DureeMs, langue));
  }
  peintre.setPen(allure.EncreDouce);
  const QRectF bas(place.left(), place.top() + 23, place.width(), 18);
  peintre.drawText(bas, Qt::AlignLeft | Qt::AlignVCenter, DitPhotos(vue.Photos.size(), langue));
  if (vue.Points > 0)
    peintre.drawText(bas, Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("%1 Pts").arg(vue.Points));
}

ListeCartes::ListeCartes(QWidget* parent, LecteurVignettes& lecteur)
    : QListView(parent), Vignettes_(lecteur, [this](const QString&) { viewport()->update(); }) {
  setObjectName(QStringLiteral("ListeCartes"));
  setModel(&Modele_);
  setItemDelegate(new DessinCartes(*this));
  setViewMode(IconMode);
  setFlow(LeftToRight);
  setWrapping(true);
  setResizeMode(Adjust);
  setMovement(Static);
  setUniformItemSizes(true);
  setSpacing(kEcart / 2);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFrameShape(QFrame::NoFrame);
  verticalScrollBar()->setSingleStep(32);
  viewport()->setAutoFillBackground(false);
}

void ListeCartes::MontreJour(std::shared_ptr<const Chronique> chronique, const JourVu& jour, Langue langue) {
  Modele_.MontreJour(std::move(chronique), jour, langue);
  setAccessibleName(MotListeIntrusions(langue));
}

void ListeCartes::ChoisitAllure(const AllureFrise& allure) {
  Allure_ = allure;
  viewport()->update();
}

qsizetype ListeCartes::Choix() const { return currentIndex().isValid() ? Modele_.Numero(currentIndex().row()) : -1; }

void ListeCartes::MontreChoix(qsizetype intrusion) {
  const int rangee = intrusion < 0 ? -1 : Modele_.Rangee(intrusion);
  if (rangee < 0) {
    clearSelection();
    setCurrentIndex({});
    return;
  }
  selectionModel()->setCurrentIndex(Modele_.index(rangee), QItemSelectionModel::ClearAndSelect);
  scrollTo(Modele_.index(rangee));
}

void ListeCartes::MontreAvis(const QString& avis) {
  Avis_ = avis;
  setAccessibleDescription(avis);
  viewport()->update();
}

void ListeCartes::paintEvent(QPaintEvent* evenement) {
  Vignettes_.ChoisitTaille(kImage * devicePixelRatioF());
  QListView::paintEvent(evenement);
  DemandeVisibles();
  if (Avis_.isEmpty() || Modele_.rowCount() > 0) return;
  QPainter peintre(viewport());
  peintre.setPen(Allure_.EncreTete);
  peintre.setFont(PoliceFrise(16));
  peintre.drawText(viewport()->rect().adjusted(40, 20, -40, -20), Qt::AlignCenter | Qt::TextWordWrap, Avis_);
}

// What a row of cards leaves stands on both sides of it. The bar has its room whether it is there or not: a row is not
// to move for it.
void ListeCartes::resizeEvent(QResizeEvent* evenement) {
  const int place = width() - verticalScrollBar()->sizeHint().width() - spacing();
  const int carte = kCarte.width() + spacing();
  const int reste = place < carte ? 0 : place % carte;
  if (viewportMargins().left() != reste / 2) setViewportMargins(reste / 2, 0, 0, 0);
  QListView::resizeEvent(evenement);
}

// Those that are seen from the top down, which is from the newest on; then as many below, for the next turn of the
// wheel.
void ListeCartes::DemandeVisibles() {
  QStringList chemins;
  const QRect vues = viewport()->rect().adjusted(0, 0, 0, viewport()->height() / 2);
  for (int i = 0; i < Modele_.rowCount(); ++i) {
    const QRect carte = visualRect(Modele_.index(i));
    if (carte.top() > vues.bottom()) break;
    if (!carte.intersects(vues)) continue;
    const QString chemin = CheminParlante(Modele_.Intrusion(i));
    if (!chemin.isEmpty()) chemins.append(chemin);
  }
  Vignettes_.Veut(chemins);
}

void ListeCartes::keyPressEvent(QKeyEvent* evenement) {
  const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
  if (entree && Choix() >= 0) {
    Q_EMIT Ouverte(Choix());
  } else if (evenement->key() == Qt::Key_Delete && Choix() >= 0) {
    Q_EMIT SuppressionDemandee();
  } else if (evenement->key() == Qt::Key_PageUp || evenement->key() == Qt::Key_PageDown) {
    evenement->ignore();  // the window's: the day before or after
  } else {
    QListView::keyPressEvent(evenement);
  }
}

void ListeCartes::mouseDoubleClickEvent(QMouseEvent* evenement) {
  const QModelIndex ici = indexAt(evenement->position().toPoint());
  if (ici.isValid()) Q_EMIT Ouverte(Modele_.Numero(ici.row()));
}

void ListeCartes::currentChanged(const QModelIndex& ici, const QModelIndex& avant) {
  QListView::currentChanged(ici, avant);
  Q_EMIT ChoixChange(ici.isValid() ? Modele_.Numero(ici.row()) : -1);
}

}  // namespace vaktor
