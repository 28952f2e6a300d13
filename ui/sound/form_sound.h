// SPDX-License-Identifier: GPL-3.0-or-later
// FormSound: the small window in which the alarm sound is chosen and heard.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "ui/controls/heard_button.h"
#include "ui/sound/sound_choice.h"

namespace vaktor {

/// ImagePlaySon: a picture that is clicked, with a frame that goes away under the pointer.
class ImageCliquable : public BoutonEntendu {
  Q_OBJECT

 public:
  static constexpr QSize kTaille{34, 34};  ///< the picture and a frame of one pixel
  ImageCliquable(QWidget* parent, const QString& nom, QPoint place);
  /// 1 a single line around the picture, 0 none.
  void ChangeBord(int bord);
  int Bord() const { return Bord_; }
  QSize sizeHint() const override { return kTaille; }

 protected:
  void paintEvent(QPaintEvent* evenement) override;
  void mouseMoveEvent(QMouseEvent* evenement) override;
  void mousePressEvent(QMouseEvent* evenement) override;

 private:
  int Bord_ = 1;
};

/// Owner: app/. Lives for the whole run; closing hides it. User-interface thread.
class FormSound : public QWidget {
  Q_OBJECT

 public:
  static constexpr qint32 kTailleListe = 4;

  explicit FormSound(const ChoixSon& choix);
  /// Opens the form, or brings it to the front: words in the current language, the current choice in the closed list.
  void Montre();

 protected:
  void closeEvent(QCloseEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;  ///< Escape closes it
  void mouseMoveEvent(QMouseEvent* evenement) override;

 private:
  void ChargeMots();
  void PermetFichier(bool permis);

  ChoixSon Choix_;
  QLabel* LabelSelectSon_;
  QComboBox* CombSound_;
  QPushButton* CmdChoixSonRep_;
  ImageCliquable* ImagePlaySon_;
  QLabel* LabelPlaySon_;
};

}  // namespace vaktor
