// SPDX-License-Identifier: GPL-3.0-or-later
// What the engine shows, put into the controls of the forms, with the words of the current language.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "base/failure.h"
#include "base/ports/message_boxes.h"
#include "engine/ports/surveillance_display.h"
#include "engine/surveillance.h"
#include "image/forms/form_monitor.h"
#include "image/forms/webcam_pecran.h"
#include "texts/text_tables.h"
#include "ui/window/main_window.h"

namespace vaktor {

/// Owner: app/. Made before the engine, which is given it, and tied to the forms after they were made; the engine shows
/// nothing in between. User-interface thread. Untied, every call throws Echec.
class VueSurveillance : public AffichageSurveillance {
 public:
  /// What it writes to. All outlive the last call of the engine.
  struct Formes {
    const Surveillance& Moteur;
    const Parametres& Reglages;
    Form1& Fenetre;
    std::function<FormMonitor&()> Moniteur;  ///< made at its first use, which may come before its turn in the start
    VueAgrandie& PleinEcran;
  };

  VueSurveillance(const TablesTextes& textes, BoitesMessage& boites) : Textes_(textes), Boites_(boites) {}
  void Relie(const Formes& formes) { Formes_ = std::make_unique<Formes>(formes); }
  /// Throws Echec when Relie was forgotten. The start asks.
  void ExigeLien() const {
    if (Formes_ == nullptr) LanceNonRelie("VueSurveillance");
  }

  void MontreLibelleAlarme(LibelleAlarme libelle) override;
  void NommeAlarmeInactive() override;
  void GriseLibelleAlarme() override;
  void MontreCompteARebours(qint32 secondes) override;
  void MontreCompteurs(qint32 millisecondes, qint32 points) override;
  void MontreBarre(qint32 valeur) override;
  void RafraichitVue() override;
  void MontreVuePixel() override;
  void MontreZoom(const QRect& source) override;
  void CopiePleinEcran() override;
  void RafraichitPleinEcran() override;
  void MontreMoniteur() override;
  void MontreAvis(AvisMoniteur avis) override;
  void ActiveBouton(qint32 index, bool actif) override;
  void MontreLampeAlarme(Lampe lampe) override;
  void MontreLampeSurveillance(Lampe lampe) override;
  void MontreSurveillanceInactive() override;
  void EcritRetard(qint32 secondes) override;
  void DessineJauge(qint32 valeur, bool haute) override;
  void AnnonceCameraIntrouvable(const QString& explication) override;
  void AnnonceCameraInactive() override;

 private:
  void AnnonceEtats();
  void ColoreAlarme(QRgb couleur);
  const Formes& Liees() const {
    ExigeLien();
    return *Formes_;
  }
  BandeauHaut& Bandeau() { return Liees().Fenetre.Bandeau(); }
  PageMoniteur& Page() { return Liees().Fenetre.Moniteur(); }

  const TablesTextes& Textes_;
  BoitesMessage& Boites_;
  std::unique_ptr<Formes> Formes_;
  std::optional<QRgb> CouleurAlarme_;  // of LblDebugAlarm, which nobody else colours
};

}  // namespace vaktor
