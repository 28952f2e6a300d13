// SPDX-License-Identifier: GPL-3.0-or-later
// FormMonitor: the small window that shows the frame at its own size and takes the zone from the mouse.
#pragma once

#include <QMenu>
#include <QProgressBar>
#include <QWidget>

#include "base/application_state.h"
#include "engine/surveillance.h"
#include "image/forms/frame_view.h"
#include "image/forms/visible_work.h"
#include "settings/parameters.h"
#include "settings/saving.h"

namespace vaktor {

/// Owner: app/; made hidden at the start and alive for the whole run. Its controls: Picture1, ProgressBar1, the pop-up
/// menu MnuScreen with MnuFullScreen. Their words are written by the text loader. User-interface thread.
class FormMonitor : public QWidget {
  Q_OBJECT

 public:
  /// Takes the surface's two handlers for itself. The store holds the picture's size for the FTP companion, so a new
  /// size is saved at once.
  FormMonitor(Surveillance& moteur, const EtatApplication& etat, Parametres& reglages,
              SauvegardeParametres& sauvegarde);
  ~FormMonitor() override;

  void MontreBarre(qint32 valeur);
  /// The notice over the picture, as it is told at each tick; empty for none.
  void MontreAvis(const QString& avis) { Picture1_->MontreAvis(avis); }
  /// Tool tips; those who hear the window are told in the language of the moment what it shows.
  void EcritAides(const QString& image, const QString& barre);
  void ChangeLibellePleinEcran(const QString& libelle) { LibellePleinEcran_ = libelle; }

 Q_SIGNALS:
  void TailleChangee();     ///< the window has fitted itself to a new frame size
  void PleinEcranChoisi();  ///< MnuFullScreen

 protected:
  void closeEvent(QCloseEvent* evenement) override;
  void moveEvent(QMoveEvent* evenement) override;

 private:
  void CreeMenu();
  void SuitEcrans();
  void BrancheSouris();
  void BrancheTouches();
  QString DitImage() const;
  void OuvreMenu(const QPointF& position);
  void SuitTaille();
  void AjusteFenetre();

  Surveillance& Moteur_;
  const EtatApplication& Etat_;
  Parametres& Reglages_;
  SauvegardeParametres& Sauvegarde_;
  VueCadre* Picture1_;
  QProgressBar* ProgressBar1_;
  TravailVisible* Rafraichissement_;  // of the picture
  TravailVisible* Barre_;
  qint32 Points_ = 0;
  QMenu* MnuScreen_ = nullptr;
  QAction* MnuFullScreen_ = nullptr;
  QString LibellePleinEcran_;
};

}  // namespace vaktor
