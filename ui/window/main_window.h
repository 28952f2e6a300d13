// SPDX-License-Identifier: GPL-3.0-or-later
// Form1: the main window. A top band and four pages; its slots read a control, call a rule and show the result.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "base/ports/message_boxes.h"
#include "engine/surveillance.h"
#include "settings/parameters.h"
#include "settings/saving.h"
#include "texts/text_tables.h"
#include "ui/fields/field_ftp.h"
#include "ui/fields/field_monitor.h"
#include "ui/pages/page_ftp.h"
#include "ui/pages/page_mail.h"
#include "ui/pages/page_monitor.h"
#include "ui/pages/page_options.h"
#include "ui/window/top_band.h"
#include "ui/window/window_look.h"

namespace vaktor {

/// What the window calls. All references outlive it.
struct ServicesForm1 {
  Parametres& Reglages;
  SauvegardeParametres& Sauvegarde;
  const TablesTextes& Textes;
  Surveillance& Moteur;
  std::function<void()> BasculeLive;  ///< Bouton(2)
  BoitesMessage& Boites;
  std::function<bool()> VerifieEspaceDisque;   ///< the free-space warning is due
  std::function<void()> ChargeTextes;          ///< after a change of language
  std::function<void(bool)> MontrePleinEcran;  ///< CheckPEcran: shows or hides the enlarged view
  std::function<void()> FermeApplication;      ///< close request: carries out the whole shutdown
  std::function<void()> MontreFrmSmtp = {};    ///< opens the SMTP settings; empty: nothing opens
};

/// Owner: app/. User-interface thread.
class Form1 : public QWidget {
  Q_OBJECT

 public:
  static constexpr QSize kTaille{398, 243};

  explicit Form1(ServicesForm1 services);

  /// Gives the window its look. Once, after it is made and before its texts are loaded.
  void Habille(const ServicesHabillage& services);
  /// Null before Habille.
  Habillage* Face() { return Face_.get(); }
  /// Shows this background, drawn at `echelle` pixels a point. Pages cover the window from their top edge to its foot
  /// and leave nothing to be seen through: only what lies above them, and kMargeFond points more, is kept.
  void MontreFond(const QImage& fond, int echelle);
  const QImage& Fond() const { return Fond_; }
  static constexpr int kMargeFond = 4;  ///< what smoothing mixes in on a screen of a fractional density

  /// Brings PictPage(index) to the front. Whatever had the focus on another page loses it to this one.
  void AmenePage(int index);
  int PageDevant() const { return PageDevant_; }

  BandeauHaut& Bandeau() { return *Bandeau_; }
  PageMail& Mail() { return *PictPage0_; }
  PageMoniteur& Moniteur() { return *PictPage1_; }
  PageFtp& Ftp() { return *PictPage2_; }
  PageOptions& Options() { return *PictPage3_; }
  QCheckBox& CheckPEcran() { return *CheckPEcran_; }
  /// Behind the tool tips of the fields, once they are written: what a field that is red has to say instead.
  void RediRaisons() { ChampsMail_.RediRaison(); }
  static constexpr int kNombreBoutonsGris = 9;
  /// BoutonGris(0..8), whichever page they stand on.
  std::array<BoutonImage*, kNombreBoutonsGris> BoutonsGris() const;

 protected:
  void closeEvent(QCloseEvent* evenement) override;
  bool event(QEvent* evenement) override;
  bool focusNextPrevChild(bool suivant) override;
  void paintEvent(QPaintEvent* evenement) override;

 private:
  bool PrendFocus(const QWidget& controle) const;
  PagesFenetre Pages() const { return {*PictPage0_, *PictPage1_, *PictPage2_, *PictPage3_}; }
  PortsChamps DonnePortsChamps() const;
  void CreeCheckPEcran();
  void BrancheBoutons();
  void BrancheJauge();
  void BrancheMoniteur();
  void BrancheOptions();
  void BasculeBouton(int index);
  void ChoisitPage(int index);
  void SortDesPagesCouvertes();
  void ChoisitMode(bool zoom);
  void ChoisitLangue(Langue langue);

  ServicesForm1 Services_;
  std::unique_ptr<BandeauHaut> Bandeau_;
  PageMail* PictPage0_;
  PageMoniteur* PictPage1_;
  PageFtp* PictPage2_;
  PageOptions* PictPage3_;
  ChampsMail ChampsMail_;
  ChampsFtp ChampsFtp_;
  ChampsMoniteur ChampsMoniteur_;
  QCheckBox* CheckPEcran_ = nullptr;
  int PageDevant_ = 1;
  QImage Fond_;
  QColor CouleurFond_ = Qt::gray;  // the mean of Fond_
  std::unique_ptr<Habillage> Face_;
};

}  // namespace vaktor
