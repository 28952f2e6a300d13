// SPDX-License-Identifier: GPL-3.0-or-later
// FrmProgression: how far the deletion of all photos has come.
#pragma once

#include <QWidget>

namespace vaktor {

/// PictProgressBar: a box that fills from the left. Its scale runs from 0 to the last photo's number across and from 0
/// to 1 down.
class BarreProgression : public QWidget {
  Q_OBJECT

 public:
  static constexpr QRgb kCouleur = qRgb(0xc0, 0xff, 0xc0);

  explicit BarreProgression(QWidget* parent);
  /// 0 or less: the scale has no length, and the first step fills the bar.
  void FixeEchelle(int dernier);
  /// Draws the box from the left edge to `pas`, where that changes a pixel.
  void Avance(int pas);
  int Rempli() const { return Rempli_; }  ///< pixels
  int Pas() const { return Pas_; }        ///< the step that was reached
  int Dernier() const { return Dernier_; }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  int Dernier_ = 0;
  int Rempli_ = 0;
  int Pas_ = 0;
};

/// Owner: the gallery's form, for the time of one deletion. User-interface thread.
class FrmProgression : public QWidget {
  Q_OBJECT

 public:
  FrmProgression(QWidget* galerie, const QString& titre, int dernier);
  void Avance(int pas) { PictProgressBar_->Avance(pas); }

 protected:
  void closeEvent(QCloseEvent* evenement) override;

 private:
  BarreProgression* PictProgressBar_;
};

}  // namespace vaktor
