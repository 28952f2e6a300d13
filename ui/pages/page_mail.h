// SPDX-License-Identifier: GPL-3.0-or-later
// PictPage(0), the mail page: words and counts of the alarm mails.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "ui/controls/face_button.h"
#include "ui/pages/page.h"

namespace vaktor {

/// Owner: Form1. User-interface thread.
class PageMail : public PageVaktor {
  Q_OBJECT

 public:
  explicit PageMail(QWidget* fenetre);

  QLineEdit* TxtNbrPhoto;
  QLabel* LabelVague;
  QLineEdit* TextNbrMail;
  QLabel* LabelNbrMail;
  QLineEdit* TextEMail;
  QLabel* LabelMaildest;
  QLineEdit* TextSujet;
  QLabel* LabelMailSujet;
  QPlainTextEdit* TextTexte;
  QLabel* LabelMailTexte;
  BoutonImage* BoutonGris8;  ///< BoutonGris(8), SMTP settings
};

}  // namespace vaktor
