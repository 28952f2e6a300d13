// SPDX-License-Identifier: GPL-3.0-or-later
// PictureAfff: the gallery's left panel with its controls.
#pragma once

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "image/forms/photo_list.h"
#include "texts/text_tables.h"

namespace vaktor {

/// A bitmap of the gallery's look (PictureFond, PictureAffTampon) for a screen of this density. Null when there is
/// none.
QImage ChargeArtGalerie(const QString& nom, double densite);

/// The controls stand where they are; only the list's height follows the window.
class PanneauGalerie : public QWidget {
  Q_OBJECT

 public:
  explicit PanneauGalerie(QWidget* parent);
  void ChargeMots(const TablesTextes& textes, Langue langue);
  void PrepareFond();  ///< what painting would otherwise load

  QLabel* LblPhotoDisc;
  QLineEdit* TxtNbrPhotDisk;
  QPushButton* CmdOpenRepPhot;
  QPushButton* Command7;
  QPushButton* CmdRefresh;
  QPushButton* CmdClearRepPhot;
  ListePhotos* FilePhotoVisu;

 Q_SIGNALS:
  void DeplacementDemande();  ///< LblPhotoDisc is pressed: the window follows the mouse

 protected:
  bool eventFilter(QObject* objet, QEvent* evenement) override;
  void paintEvent(QPaintEvent* evenement) override;

 private:
  QPushButton* CreeBouton(const char* nom, const QRect& place);
  void OrdonneClavier();

  QImage Fond_;
  double Densite_ = 0;  // of the screen that Fond_ is for
};

}  // namespace vaktor
