// SPDX-License-Identifier: GPL-3.0-or-later
// FrmLecture: the player of an intrusion.
#pragma once

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>

#include "image/ports/photo_reader.h"
#include "journal/chronicle.h"
#include "journal/film_pace.h"
#include "journal/forms/timeline_window.h"
#include "texts/language.h"

namespace vaktor {

/// The photo, as large as there is room, with the box of its movement.
class EcranLecture : public QWidget {
 public:
  explicit EcranLecture(QWidget* parent);
  void Montre(const QImage& image, const QRect& cadre);
  void MontreCadre(bool montre);
  void MontreAvis(const QString& avis);
  const QImage& Image() const { return Image_; }
  QRect Cadre() const { return AvecCadre_ ? Cadre_ : QRect(); }

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  QImage Image_;
  QRect Cadre_;
  QString Avis_;
  bool AvecCadre_ = true;
};

/// Space plays and stops, the arrows show one photo after the other, Escape closes. A photo that is not there in time
/// is passed over. User-interface thread.
class FrmLecture : public FenetreFrise {
  Q_OBJECT

 public:
  /// `enregistre` is what the button does.
  FrmLecture(LecteurPhotos& photos, std::function<void()> enregistre);
  ~FrmLecture() override { Photos_.Oublie(); }
  FrmLecture(const FrmLecture&) = delete;
  FrmLecture& operator=(const FrmLecture&) = delete;

  /// Plays from the first photo on.
  void Ouvre(const IntrusionVue& vue, Langue langue, const AllureFrise& allure);
  const LectureFilm& Film() const { return Film_; }
  const IntrusionVue& Intrusion() const { return Vue_; }

 protected:
  void keyPressEvent(QKeyEvent* evenement) override;
  void Repose() override;
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  void Dispose();
  void Bascule();
  void Pas(qsizetype pas);
  void Va(qsizetype index);
  void Avance();
  void Suit();
  void DemandePhoto();
  void Recoit(qsizetype index, const PhotoLue& lue);
  void EcritMots();
  void HabilleCoche();

  LecteurPhotos& Photos_;
  const std::function<void()> Enregistre_;
  IntrusionVue Vue_;
  Langue Langue_ = Langue::kFrancais;
  LectureFilm Film_{{}};
  qsizetype Demandee_ = -1;  // is being read
  qsizetype Montree_ = -1;
  QTimer Tic_;
  QElapsedTimer Depuis_;
  EcranLecture* Ecran_;
  QLabel* LblPosition_;
  QSlider* Position_;
  QPushButton* CmdLecture_;
  std::array<QPushButton*, 3> CmdVitesse_{};
  QCheckBox* ChkCadre_;
  QPushButton* CmdEnregistrer_;
  QPushButton* CmdFermer_;
};

}  // namespace vaktor
