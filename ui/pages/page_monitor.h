// SPDX-License-Identifier: GPL-3.0-or-later
// PictPage(1), the surveillance page: the small view, the switches of the alarm, its delay, the counters.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include "image/forms/visible_work.h"
#include "ui/controls/control_factory.h"
#include "ui/controls/face_button.h"
#include "ui/controls/small_view.h"
#include "ui/pages/page.h"

namespace vaktor {

/// Owner: Form1. User-interface thread.
class PageMoniteur : public PageVaktor {
  Q_OBJECT

 public:
  explicit PageMoniteur(QWidget* fenetre);

  /// Length of the last whole cycle and changed samples; written when somebody can see them.
  void MontreCompteurs(qint32 millisecondes, qint32 points);
  void ChangeTitreMenu(const QString& titre) { TitreMenu_ = titre; }
  /// Ticks one of the two entries of the display menu and unticks the other.
  void CocheMode(bool zoom);
  QString Mode() const;  ///< what the ticked entry is called

  VueReduite* Picture2;
  QLabel* Label4;  ///< the heading of the three switches
  CaseACocher* CheckPPhot;
  QLabel* LabelCheckPhot;
  CaseACocher* CheckSon;
  QLabel* LabelCheckSon;
  CaseACocher* CheckMail;
  QLabel* LabelCheckMail;
  QLineEdit* Text1;
  QLabel* LabelRetard;
  QLabel* LabelTemoin0;      ///< LabelTemoin(0), milliseconds
  QLabel* LabelTemoin1;      ///< LabelTemoin(1), points
  BoutonImage* BoutonGris0;  ///< BoutonGris(0)
  BoutonImage* BoutonGris1;  ///< BoutonGris(1)

 Q_SIGNALS:
  /// An entry of the display menu was picked: the zoom, or the pixel view.
  void ModeChoisi(bool zoom);

 private:
  void CreeEtiquettes();
  void CreeMenu();
  void EcritCompteurs();
  void OuvreMenu(const QPoint& position);

  TravailVisible* Compteurs_;
  qint32 Millisecondes_ = 0;
  qint32 Points_ = 0;
  QMenu* MnuDisplay_ = nullptr;
  QAction* MnuPixelView_ = nullptr;
  QAction* MnuZoomView_ = nullptr;
  QString TitreMenu_;
};

}  // namespace vaktor
