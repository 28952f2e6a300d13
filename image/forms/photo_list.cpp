// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/photo_list.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

namespace vaktor {

ListePhotos::ListePhotos(QWidget* parent) : QListView(parent), Modele_(new QStringListModel(this)) {
  setModel(Modele_);
  setUniformItemSizes(true);  // tens of thousands of entries: only those in sight are measured and drawn
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setTextElideMode(Qt::ElideNone);
}

void ListePhotos::MontreListe(const QStringList& entrees, int index) {
  const int place = currentIndex().row();
  const int defilement = verticalScrollBar()->value();
  Modele_->setStringList(entrees);
  if (index >= 0) {
    MontreIndex(index);
    return;
  }
  // Nothing is selected, but the arrow keys go on from where a deleted entry stood: Down comes to the one after it.
  verticalScrollBar()->setValue(defilement);
  if (place > 0 && !entrees.isEmpty()) {
    const int reprise = qMin<int>(place - 1, static_cast<int>(entrees.size()) - 1);
    selectionModel()->setCurrentIndex(Modele_->index(reprise), QItemSelectionModel::NoUpdate);
  }
}

void ListePhotos::MontreIndex(int index) {
  if (index < 0) {
    clearSelection();
    return;
  }
  selectionModel()->setCurrentIndex(Modele_->index(index), QItemSelectionModel::ClearAndSelect);
  scrollTo(Modele_->index(index));
}

int ListePhotos::Index() const {
  const QModelIndexList choisis = selectionModel()->selectedIndexes();
  return choisis.isEmpty() ? -1 : choisis.first().row();
}

void ListePhotos::Choisit(int index) {
  if (index >= 0) MontreIndex(index);
  Q_EMIT IndexChoisi(Index());
}

// A pointer that was dragged over an edge is over the entry that comes in there.
int ListePhotos::IndexSous(const QPoint& position) const {
  const int nombre = Modele_->rowCount();
  if (nombre == 0) return -1;
  if (position.y() < 0) return qMax(0, indexAt({0, 0}).row() - 1);
  const QModelIndex dernier = indexAt({0, viewport()->height() - 1});
  if (position.y() >= viewport()->height()) return dernier.isValid() ? qMin(nombre - 1, dernier.row() + 1) : nombre - 1;
  return indexAt({0, position.y()}).row();
}

void ListePhotos::mousePressEvent(QMouseEvent* evenement) {
  const QPoint position = evenement->position().toPoint();
  if (evenement->button() == Qt::LeftButton) Choisit(IndexSous(position));
  if (evenement->button() == Qt::RightButton) Q_EMIT BoutonDroit(viewport()->mapToParent(position));
}

void ListePhotos::mouseMoveEvent(QMouseEvent* evenement) {
  if (!(evenement->buttons() & Qt::LeftButton)) return;
  Choisit(IndexSous(evenement->position().toPoint()));
  Q_EMIT Glisse();
}

void ListePhotos::mouseReleaseEvent(QMouseEvent* evenement) {
  if (evenement->button() == Qt::LeftButton) Q_EMIT Clique();
}

void ListePhotos::mouseDoubleClickEvent(QMouseEvent* evenement) { mousePressEvent(evenement); }

void ListePhotos::contextMenuEvent(QContextMenuEvent* evenement) {
  // The right button has opened the menu where it was pressed. The menu key opens it at the selected entry.
  if (evenement->reason() == QContextMenuEvent::Mouse) return;
  const int index = Index();
  Q_EMIT MenuDemande(index < 0 ? QPoint() : viewport()->mapToParent(visualRect(Modele_->index(index)).bottomLeft()));
}

void ListePhotos::keyPressEvent(QKeyEvent* evenement) {
  if (evenement->key() == Qt::Key_Delete) {
    Q_EMIT SuppressionDemandee();
    return;
  }
  const int avant = Index();
  QListView::keyPressEvent(evenement);
  if (Index() == avant) return;
  Q_EMIT IndexChoisi(Index());
  Q_EMIT Clique();
}

}  // namespace vaktor
