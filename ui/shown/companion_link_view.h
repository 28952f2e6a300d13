// SPDX-License-Identifier: GPL-3.0-or-later
// What the link to the companions shows, put into the controls of the main window.
#pragma once

#include "base/failure.h"
#include "base/ports/message_boxes.h"
#include "companions/ports/link_display.h"
#include "texts/text_tables.h"
#include "ui/window/main_window.h"

namespace vaktor {

/// Owner: app/. Made before the window and tied to it afterwards; nothing is shown in between. User-interface thread.
/// Untied, every call but the question throws Echec.
class VueLiaison : public AffichageLiaison {
 public:
  VueLiaison(const TablesTextes& textes, BoitesMessage& boites) : Textes_(textes), Boites_(boites) {}
  void Relie(Form1& fenetre) { Fenetre_ = &fenetre; }
  /// Throws Echec when Relie was forgotten. The start asks.
  void ExigeLien() const {
    if (Fenetre_ == nullptr) LanceNonRelie("VueLiaison");
  }

  void MontreStatut(Libelle statut) override;
  void MontreStatutLitteral(const Phrase& statut) override;
  void RougitChamp(ChampLiaison champ) override;
  void NoircitRacine() override;
  void MontrePageFtp() override;
  bool DemandeParametresSite() override;

 private:
  Form1& Fenetre() const {
    ExigeLien();
    return *Fenetre_;
  }
  void EcritStatut(const QString& texte);
  QLineEdit* TrouveChamp(ChampLiaison champ) const;

  const TablesTextes& Textes_;
  BoitesMessage& Boites_;
  Form1* Fenetre_ = nullptr;
};

}  // namespace vaktor
