// SPDX-License-Identifier: GPL-3.0-or-later
// PictPage(2), the live page: where the picture is published and how.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "ui/controls/face_button.h"
#include "ui/pages/page.h"

namespace vaktor {

/// Owner: Form1. User-interface thread.
class PageFtp : public PageVaktor {
  Q_OBJECT

 public:
  static constexpr int kNombreQualites = 4;
  static constexpr int kNombreCouleurs = 7;

  explicit PageFtp(QWidget* fenetre);

  QLineEdit* TxtFtp;
  QLabel* Lblftp;
  QLineEdit* TxtHtml;
  QLabel* LblHTML;
  QLineEdit* TxtFTPracine;
  QLabel* LblRepRaciine;
  QLineEdit* TxtUserName;
  QLabel* LblUserName;
  QLineEdit* TxtPass;
  QLabel* LblPass;
  QComboBox* CombQualit;   ///< kNombreQualites items, worded by the text loader
  QLabel* Label1;          ///< of CombQualit
  QComboBox* CombCouleur;  ///< kNombreCouleurs items, worded and selected by the text loader
  QLabel* LblCouleurPage;
  QLineEdit* TxtRefresh;
  QLabel* LblIntervale;
  QLineEdit* TextNbrPhotoFTP;
  QLabel* LblNbrdephotoftp;
  BoutonImage* BoutonGris2;     ///< BoutonGris(2), create and send the page
  BoutonImage* BoutonGris3;     ///< BoutonGris(3), open the page
  BoutonImage* BoutonEssaiFtp;  ///< tries what stands in the fields

 private:
  void CreeChampsServeur();
  void CreeListes();
};

}  // namespace vaktor
