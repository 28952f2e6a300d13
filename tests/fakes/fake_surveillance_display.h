// SPDX-License-Identifier: GPL-3.0-or-later
// The window as the engine sees it: keeps the last state of each control and counts.
#pragma once

#include <array>
#include <functional>
#include <optional>

#include "engine/ports/surveillance_display.h"
#include "fakes/journal.h"

namespace vaktor::faux {

class AffichageFaux : public AffichageSurveillance {
 public:
  explicit AffichageFaux(Journal& journal) : Journal_(journal) {}

  void MontreLibelleAlarme(LibelleAlarme libelle) override {
    Note("MontreLibelleAlarme", static_cast<qint32>(libelle));
    Libelle = libelle;
    CompteMontre.reset();
    Rouge = libelle == LibelleAlarme::kIntrusion;
  }
  void NommeAlarmeInactive() override {
    Note("NommeAlarmeInactive");
    Libelle = LibelleAlarme::kInactive;
    CompteMontre.reset();
  }
  void GriseLibelleAlarme() override {
    Note("GriseLibelleAlarme");
    Rouge = false;
  }
  void MontreCompteARebours(qint32 secondes) override {
    Note("MontreCompteARebours", secondes);
    Libelle.reset();
    CompteMontre = secondes;
  }
  void MontreCompteurs(qint32 millisecondes, qint32 points) override {
    Note("MontreCompteurs", points);
    Cycle = millisecondes;
    Points = points;
    ++NombreCompteurs;
  }
  void MontreBarre(qint32 valeur) override {
    Note("MontreBarre", valeur);
    Barre = valeur;
  }

  void RafraichitVue() override {
    Note("RafraichitVue");
    ++VuesEffacees;
    ZoomVisible.reset();
  }
  void MontreVuePixel() override {
    Note("MontreVuePixel");
    ++VuesPixel;
  }
  void MontreZoom(const QRect& source) override {
    Note("MontreZoom");
    ++Zooms;
    ZoomVisible = source;
  }

  void CopiePleinEcran() override {
    Note("CopiePleinEcran");
    if (PendantCopie) PendantCopie();
  }
  void RafraichitPleinEcran() override {
    Note("RafraichitPleinEcran");
    ++PleinsEcrans;
  }
  void MontreMoniteur() override {
    Note("MontreMoniteur");
    MoniteurVisible = true;
  }
  void MontreAvis(AvisMoniteur avis) override {
    Note("MontreAvis", static_cast<qint32>(avis));
    Avis = avis;
  }

  void ActiveBouton(qint32 index, bool actif) override {
    Note(actif ? "ActiveBouton" : "DesactiveBouton", index);
    Boutons.at(static_cast<std::size_t>(index)) = actif;
  }
  void MontreLampeAlarme(Lampe lampe) override {
    Note("MontreLampeAlarme", static_cast<qint32>(lampe));
    LampeAlarme = lampe;
  }
  void MontreLampeSurveillance(Lampe lampe) override {
    Note("MontreLampeSurveillance", static_cast<qint32>(lampe));
    LampeSurveillance = lampe;
  }
  void MontreSurveillanceInactive() override { Note("MontreSurveillanceInactive"); }
  void EcritRetard(qint32 secondes) override {
    Note("EcritRetard", secondes);
    RetardEcrit = secondes;
    if (ChangeRetard && QString::number(secondes) != TexteRetard) {
      TexteRetard = QString::number(secondes);
      ChangeRetard(secondes);
    }
  }
  void DessineJauge(qint32 valeur, bool haute) override {
    Note(haute ? "DessineJaugeHaute" : "DessineJauge", valeur);
    Jauge = valeur;
    JaugeHaute = haute;
    ++JaugesDessinees;
  }
  void AnnonceCameraIntrouvable(const QString& explication) override {
    Note("AnnonceCameraIntrouvable");
    Explication = explication;
    ++CamerasIntrouvables;
  }
  void AnnonceCameraInactive() override {
    Note("AnnonceCameraInactive");
    ++CamerasInactives;
  }

  std::optional<LibelleAlarme> Libelle = LibelleAlarme::kInactive;  ///< nothing while the countdown's text stands
  std::optional<qint32> CompteMontre;
  bool Rouge = false;
  qint32 Cycle = -1, Points = -1, NombreCompteurs = 0;
  qint32 Barre = -1;
  std::optional<QRect> ZoomVisible;
  qint32 VuesEffacees = 0, VuesPixel = 0, Zooms = 0, PleinsEcrans = 0;
  std::function<void()> PendantCopie;  ///< runs inside CopiePleinEcran
  bool MoniteurVisible = false;
  AvisMoniteur Avis = AvisMoniteur::kAucun;
  std::array<bool, 3> Boutons{};
  std::optional<Lampe> LampeAlarme, LampeSurveillance;
  qint32 RetardEcrit = -1;
  QString TexteRetard;                       ///< the content of Text1
  std::function<void(qint32)> ChangeRetard;  ///< the change handler of Text1
  qint32 Jauge = -1, JaugesDessinees = 0;
  bool JaugeHaute = false;
  qint32 CamerasIntrouvables = 0, CamerasInactives = 0;
  QString Explication;  ///< of the last camera that was not found

 private:
  void Note(const char* nom) {
    Journal_.Note([nom] { return QString::fromLatin1(nom); });
  }
  void Note(const char* nom, qint32 nombre) {
    Journal_.Note([nom, nombre] { return QString::fromLatin1(nom) + QLatin1Char(' ') + QString::number(nombre); });
  }

  Journal& Journal_;
};

}  // namespace vaktor::faux
