// SPDX-License-Identifier: GPL-3.0-or-later
// The look of the main window: skin, frosted pages, button faces, and what the mouse makes of them.
#pragma once

#include <QImage>
#include <functional>

#include "engine/ports/event_pump.h"
#include "engine/ports/interface_sounds.h"
#include "engine/surveillance.h"
#include "ui/face/button_faces.h"
#include "ui/face/skin.h"
#include "ui/window/top_band.h"
#include "ui/window/window_mouse.h"
#include "ui/window/window_pages.h"

namespace vaktor {

/// The parts of the window that the look works on. All references outlive it.
struct PartiesFenetre {
  QWidget& Fenetre;
  QSize Taille;  ///< of the window, points
  BandeauHaut& Bandeau;
  PagesFenetre Pages;
  std::function<void(const QImage&, int)> MontreFond;  ///< the background, and how many pixels a point it is drawn at
  std::function<int()> PageDevant;                     ///< index of the page in front
};

/// What the look needs of others. All references outlive the window.
struct ServicesHabillage {
  const TablesTextes& Textes;
  Surveillance& Moteur;
  PompeEvenements& Pompe;
  SonsInterface& Sons;
};

/// Owner: Form1. User-interface thread.
class Habillage {
 public:
  /// Ties buttons and mouse, and draws the pages over the plain background.
  Habillage(PartiesFenetre fenetre, const ServicesHabillage& services);
  ~Habillage();
  Habillage(const Habillage&) = delete;
  Habillage& operator=(const Habillage&) = delete;

  /// A click on CombSkin, by the user or by code: shows the skin that the list stands on. Any index without a skin
  /// keeps the picture; the pages are blended again all the same.
  void ChoisitSkin();
  /// Puts the pages in their places and blends them anew, always from their clean bitmaps. The tick is off meanwhile.
  void DessinePages();
  /// Prints the button faces in the current language; every button shows its face at rest afterwards, Bouton(0) that of
  /// the camera at rest even while it runs, until the next move over it.
  void ChargeBoutons();
  /// Tells those who hear the window what the buttons stand for: the camera's by the caption of its click, the alarm
  /// and the live page by their lamps, the tabs by the page in front. After each change of one of these.
  void AnnonceEtats();
  /// The window may have come to a screen of another density: draws everything for it if so.
  void SuitDensite();

  const FacesBoutons& Faces() const { return Faces_; }
  SourisFenetre& Souris() { return Souris_; }

 private:
  void PlacePages();
  void FonduPages();
  void RelieBoutons();

  const PartiesFenetre Fenetre_;
  ServicesHabillage Services_;
  ImagesSkin Skin_;
  FacesBoutons Faces_;
  SourisFenetre Souris_;
};

}  // namespace vaktor
