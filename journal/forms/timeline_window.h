// SPDX-License-Identifier: GPL-3.0-or-later
// What the timeline and its player have in common as windows: the skin's material behind everything, the buttons of
// that look, Escape, and that behind a closed window nothing goes on.
#pragma once

#include <QPixmap>
#include <QPushButton>
#include <QWidget>

#include "journal/forms/timeline_look.h"

namespace vaktor {

/// A window of its own; closing hides it. User-interface thread.
class FenetreFrise : public QWidget {
 public:
  explicit FenetreFrise(const char* nom);

 protected:
  QPushButton* CreeBouton(const char* nom);
  /// `feuille` stands behind the style sheet of the look.
  void Revet(const AllureFrise& allure, const QString& feuille = {});
  const AllureFrise& Allure() const { return Allure_; }
  /// The window has been closed: what it asked others for is wanted no longer.
  virtual void Repose() = 0;

  void closeEvent(QCloseEvent* evenement) override;
  /// What no window's own key was.
  void keyPressEvent(QKeyEvent* evenement) override;
  void paintEvent(QPaintEvent* evenement) override;

 private:
  AllureFrise Allure_;
  QPixmap Fond_;  // the material at the size of the window; null until it is painted
};

}  // namespace vaktor
