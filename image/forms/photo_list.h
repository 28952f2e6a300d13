// SPDX-License-Identifier: GPL-3.0-or-later
// FilePhotoVisu: the list of the photos, with the mouse as the gallery's rules want it.
#pragma once

#include <QListView>
#include <QStringListModel>

namespace vaktor {

/// One entry selected or none. The left button selects where it is pressed and while it is dragged, and counts as a
/// click when it is released; keys that move the selection count as one too. The right button selects nothing.
class ListePhotos : public QListView {
  Q_OBJECT

 public:
  explicit ListePhotos(QWidget* parent);
  /// No signal comes of it. The place of the keyboard stays near where it was.
  void MontreListe(const QStringList& entrees, int index);
  void MontreIndex(int index);
  int Index() const;  ///< the selected entry, -1 for none

 Q_SIGNALS:
  void IndexChoisi(int index);  ///< before each of the following
  void Clique();
  void Glisse();
  void BoutonDroit(QPoint position);  ///< in the coordinates of the list
  void MenuDemande(QPoint position);  ///< by the menu key
  void SuppressionDemandee();         ///< by the Delete key

 protected:
  void mousePressEvent(QMouseEvent* evenement) override;
  void mouseMoveEvent(QMouseEvent* evenement) override;
  void mouseReleaseEvent(QMouseEvent* evenement) override;
  void mouseDoubleClickEvent(QMouseEvent* evenement) override;
  void contextMenuEvent(QContextMenuEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;

 private:
  void Choisit(int index);
  int IndexSous(const QPoint& position) const;

  QStringListModel* Modele_;
};

}  // namespace vaktor
