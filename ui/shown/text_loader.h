// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the words of the current language into the forms.
#pragma once

#include <functional>

#include "image/forms/form_monitor.h"
#include "image/forms/form_visu_photo.h"
#include "settings/parameters.h"
#include "texts/text_tables.h"
#include "ui/window/main_window.h"

namespace vaktor {

/// Owner: app/. User-interface thread.
class ChargeurTextes {
 public:
  /// `chargeBoutons` prints the captions on the button faces; it is the last step.
  ChargeurTextes(const Parametres& reglages, TablesTextes& textes, Form1& fenetre, FormMonitor& moniteur,
                 std::function<void()> chargeBoutons);

  /// From here on the words go into the gallery too.
  void RelieGalerie(FormVisuPhoto& galerie) { Galerie_ = &galerie; }

  /// Fills the tables for LangueCourante and writes them into the forms. The two status lines read inactive
  /// afterwards, whatever is going on, until the next event writes them.
  void ChargeTextes();

 private:
  void EcritAides();
  void EcritTextes();
  void EcritListes();
  void EcritEtats();

  const Parametres& Reglages_;
  TablesTextes& Textes_;
  Form1& Fenetre_;
  FormMonitor& Moniteur_;
  FormVisuPhoto* Galerie_ = nullptr;
  std::function<void()> ChargeBoutons_;
};

/// Names the buttons by their captions, LibelleBouton(0..6) and LibelleBoutonGris(0..8), for those who hear the window,
/// then prints the faces.
void EcritLibellesBoutons(Form1& fenetre, const TablesTextes& textes);

}  // namespace vaktor
