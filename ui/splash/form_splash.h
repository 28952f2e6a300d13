// SPDX-License-Identifier: GPL-3.0-or-later
// frmSplash: what the user sees while the program comes up.
#pragma once

#include <QImage>
#include <QLabel>
#include <QWidget>
#include <array>

#include "base/ports/start_screen.h"

namespace vaktor {

/// Owner: app/. Loaded and invisible when it is made, in the middle of the screen; alive for the whole run. It cannot
/// be closed by its user, only clicked away. User-interface thread.
class FrmSplash : public QWidget, public EcranDepart {
  Q_OBJECT

 public:
  static constexpr QSize kTaille{420, 250};

  FrmSplash();

  void MontreVersion(const QString& texte) override { lblVersion_->setText(texte); }
  void MontreTitre(const QString& texte) override;
  void MontreProgres(const QString& mot) override;
  void Montre() override;
  void Cache() override { hide(); }
  void Decharge() override;
  void SurClic(std::function<void()> fonction) override { SurClic_ = std::move(fonction); }

 protected:
  void paintEvent(QPaintEvent* evenement) override;
  void mouseReleaseEvent(QMouseEvent* evenement) override;
  void hideEvent(QHideEvent* evenement) override;
  void closeEvent(QCloseEvent* evenement) override;

 private:
  QLabel* CreeLibelle(const QString& nom, const QRect& place, int police, bool gras, const QColor& couleur);

  std::array<QLabel*, 2> lblProductName_{};
  QLabel* lblVersion_;
  QLabel* LabelLoading_;
  std::function<void()> SurClic_;
  bool Dechargee_ = false;
};

}  // namespace vaktor
