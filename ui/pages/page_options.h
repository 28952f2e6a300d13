// SPDX-License-Identifier: GPL-3.0-or-later
// PictPage(3), the options page: camera dialogs, sounds, help, language, skin, automatic tolerance.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <array>

#include "ui/controls/control_factory.h"
#include "ui/controls/face_button.h"
#include "ui/controls/flag_button.h"
#include "ui/pages/page.h"

namespace vaktor {

/// Owner: Form1. User-interface thread.
class PageOptions : public PageVaktor {
  Q_OBJECT

 public:
  explicit PageOptions(QWidget* fenetre);

  BoutonImage* BoutonGris4;                             ///< BoutonGris(4), video format
  BoutonImage* BoutonGris5;                             ///< BoutonGris(5), video source
  BoutonImage* BoutonGris6;                             ///< BoutonGris(6), alarm sound
  BoutonImage* BoutonGris7;                             ///< BoutonGris(7), manual
  std::array<DrapeauLangue*, kNombreLangues> Image4{};  ///< by language
  QComboBox* CombSkin;
  CaseACocher* ChkSeuilAuto;
  QLabel* LblSeuilAuto;
  CaseACocher* ChkSession;  ///< started at the login, with the alarm
  QLabel* LblSession;
};

}  // namespace vaktor
