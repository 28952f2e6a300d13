// SPDX-License-Identifier: GPL-3.0-or-later
// FormVisuPhoto: the window of the photo gallery.
#pragma once

#include <QMenu>
#include <QPixmap>
#include <functional>
#include <memory>

#include "base/program_folders.h"
#include "image/forms/form_progression.h"
#include "image/forms/gallery_panel.h"
#include "image/forms/photo_place.h"
#include "image/photo_gallery.h"

namespace vaktor {

/// Owner: app/; made at its first use, which is the first load of the texts, and alive for the whole run: closing saves
/// and hides. Controls: PictureAfff with those of PanneauGalerie, PictureVisu, CmdFrise in the upper right
/// corner, over whatever photo lies there, and the pop-up menu Mnu_file with
/// Mnu_Supprim. User-interface thread.
class FormVisuPhoto : public QWidget, private AffichageGalerie {
  Q_OBJECT

 public:
  /// Its load step runs here: the limit is shown, the window is to open maximised.
  FormVisuPhoto(GaleriePhotos& regles, const Parametres& reglages, const TablesTextes& textes);

  ~FormVisuPhoto() override { Regles_.Delie(); }
  FormVisuPhoto(const FormVisuPhoto&) = delete;
  FormVisuPhoto& operator=(const FormVisuPhoto&) = delete;

  /// The window comes when its folder has been read. Fails from the event loop, with an Echec.
  void OuvreGalerie();
  /// The folder chooser has another folder: the list takes it, the first photo is shown, then `fini` is called.
  void RepointeSur(const QString& dossier, std::function<void()> fini) {
    Regles_.RepointeSur(dossier, std::move(fini));
  }
  /// What Command7 opens.
  void SurChoixRepertoire(std::function<void()> choisit) { ChoisitRepertoire_ = std::move(choisit); }
  /// What CmdFrise opens.
  void SurFrise(std::function<void()> ouvre) { OuvreFrise_ = std::move(ouvre); }
  void ChargeMots();

 protected:
  void closeEvent(QCloseEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;  ///< Escape closes it
  void resizeEvent(QResizeEvent* evenement) override;
  void paintEvent(QPaintEvent* evenement) override;

 private:
  void MontreListe(const QStringList& entrees, int index) override;
  void MontreIndex(int index) override;
  void MontrePhoto(const QImage& photo) override;
  void MontreMention(const QString& mention) override;
  void MontreAvis(const QString& avis) override;
  void MontreTitre(const QString& titre) override;
  void AjusteAutourPhoto() override;
  void MontreFenetre() override;
  void OuvreProgression(int dernier) override;
  void AvanceProgression(int pas) override;
  void FermeProgression() override;

  void CreeMenu();
  void BranchePanneau();
  void MontreLimite();
  void BrancheListe();
  void CreeCmdFrise();
  void OuvreMenu(const QPoint& position);
  void Dispose();
  void PlaceLaPhoto();
  void EtireFond();

  GaleriePhotos& Regles_;
  const Parametres& Reglages_;
  const TablesTextes& Textes_;
  std::function<void()> ChoisitRepertoire_;
  std::function<void()> OuvreFrise_;
  PlacePhoto* PictureVisu_;
  PanneauGalerie* PictureAfff_;
  QPushButton* CmdFrise_;
  QMenu* Mnu_file_ = nullptr;
  QAction* Mnu_Supprim_ = nullptr;
  QPixmap Fond_;        // as much of the stretched background as shows
  QSize TailleFondue_;  // the outer size that Fond_ was made for
  std::unique_ptr<FrmProgression> Progression_;
};

}  // namespace vaktor
