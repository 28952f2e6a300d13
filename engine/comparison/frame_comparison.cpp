// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/comparison/frame_comparison.h"

#include <algorithm>
#include <bit>

#include "engine/comparison/frame_comparison_bands.h"

namespace vaktor {
namespace {

/// How many of the `nombre` samples from `debut` on lie below `borne`.
qint32 CompteAvantBorne(qint32 debut, qint32 nombre, qint32 borne) {
  const qint64 distance = qint64{borne} - debut;
  if (distance <= 0) return 0;
  return static_cast<qint32>(std::min<qint64>(nombre, (distance + kPasEchantillon - 1) / kPasEchantillon));
}

class Decoupeur {
 public:
  Decoupeur(const TrameBrute& trame, const ZoneDetection& zone, qint32* entrees)
      : Trame_(trame), Zone_(zone), Entree_(entrees) {}

  /// Adds `lignes` rows of `colonnes` samples, all of them in the picture's rows or all outside.
  void AjouteLignes(qint32 lignes, qint32 colonnes, bool dedans) {
    if (lignes > 0 && colonnes > 0) AjouteBande(lignes, colonnes, dedans);
    Ligne_ += lignes;
  }

  DecoupeBalayage Resultat;

 private:
  void AjouteBande(qint32 lignes, qint32 colonnes, bool dedans) {
    BandeEchantillons& bande = Resultat.Bandes[static_cast<std::size_t>(Resultat.Nombre++)];
    bande.PremiereLigne = Ligne_;
    bande.Lignes = lignes;
    bande.Entrees = Entree_;
    bande.Avant = colonnes;
    if (dedans) PlaceColonnes(bande, colonnes);
    Entree_ += qsizetype{lignes} * colonnes;
    Resultat.Echantillons += lignes * colonnes;
  }

  void PlaceColonnes(BandeEchantillons& bande, qint32 colonnes) const {
    const qint32 avant = CompteAvantBorne(Zone_.Gauche, colonnes, 0);
    const qint32 dedans = CompteAvantBorne(Zone_.Gauche, colonnes, Trame_.Largeur) - avant;
    if (dedans <= 0) return;
    const qint32 x = Zone_.Gauche + kPasEchantillon * avant;
    const qsizetype y = Zone_.Haut + kPasEchantillon * Ligne_;
    bande.Avant = avant;
    bande.Dedans = dedans;
    bande.Apres = colonnes - avant - dedans;
    bande.PasPixels = Trame_.Serree ? 1 : kPasEchantillon;
    const qint32 saut = kPasEchantillon / bande.PasPixels;  // pixels of the picture to a stored one
    bande.Pixels = Trame_.Bits + y * Trame_.OctetsParLigne + qsizetype{4} * (x / saut);
    bande.PixelsLisibles = (Trame_.Largeur - x + saut - 1) / saut;
    bande.SautLigne = kPasEchantillon * Trame_.OctetsParLigne;
  }

  const TrameBrute& Trame_;
  const ZoneDetection& Zone_;
  qint32* Entree_;
  qint32 Ligne_ = 0;
};

void CompareBande([[maybe_unused]] JeuInstructions jeu, const BandeEchantillons& bande, qint32 tolerance,
                  CumulBande& cumul) {
#if defined(__x86_64__)
  if (bande.Dedans > 0 && bande.Dedans <= kGroupe * kGroupesMax) {
    if (jeu == JeuInstructions::kAvx2) return CompareBandeAvx2(bande, tolerance, cumul);
    if (jeu == JeuInstructions::kSse41) return CompareBandeSse41(bande, tolerance, cumul);
  }
#endif
  CompareBandeSimple(bande, tolerance, cumul, [](qint32, qint32) {});
}

}  // namespace

DecoupeBalayage CoupeBalayage(const TrameBrute& trame, const ZoneDetection& zone, const TableEchantillons& table,
                              qint32 premierRang) {
  Decoupeur decoupeur(trame, zone, table.Entrees + premierRang);
  const qint64 colonnesVoulues = CompteEchantillons(zone.Gauche, zone.Droite);
  const qint64 voulus = colonnesVoulues * CompteEchantillons(zone.Haut, zone.Bas);
  if (voulus == 0) return decoupeur.Resultat;
  // From here on every count fits 32 bits: it is no greater than the table.
  const qint64 tenus = std::clamp<qint64>(table.Nombre - qint64{premierRang}, 0, voulus);
  const auto lignes = static_cast<qint32>(tenus / colonnesVoulues);
  const auto colonnes = static_cast<qint32>(std::min<qint64>(colonnesVoulues, table.Nombre));
  const auto reste = static_cast<qint32>(tenus % colonnesVoulues);

  const qint32 auDessus = CompteAvantBorne(zone.Haut, lignes, 0);
  const qint32 jusquAuBas = CompteAvantBorne(zone.Haut, lignes, trame.Hauteur);
  decoupeur.AjouteLignes(auDessus, colonnes, false);
  decoupeur.AjouteLignes(jusquAuBas - auDessus, colonnes, true);
  decoupeur.AjouteLignes(lignes - jusquAuBas, colonnes, false);
  const qint64 yReste = qint64{zone.Haut} + qint64{kPasEchantillon} * lignes;
  decoupeur.AjouteLignes(1, reste, yReste >= 0 && yReste < trame.Hauteur);

  decoupeur.Resultat.TablePleine = tenus < voulus;
  return decoupeur.Resultat;
}

ResultatComparaison DonneResultat(const DecoupeBalayage& decoupe, const CumulBande& cumul, const ZoneDetection& zone) {
  ResultatComparaison resultat;
  resultat.NbrPoints = cumul.Changes;
  resultat.Echantillons = decoupe.Echantillons;
  resultat.TablePleine = decoupe.TablePleine;
  if (cumul.Changes > 0) {
    resultat.Cadre.MinX = zone.Gauche + kPasEchantillon * cumul.ColonneMin;
    resultat.Cadre.MaxX = zone.Gauche + kPasEchantillon * cumul.ColonneMax;
    resultat.Cadre.MinY = zone.Haut + kPasEchantillon * cumul.LigneMin;
    resultat.Cadre.MaxY = zone.Haut + kPasEchantillon * cumul.LigneMax;
  }
  return resultat;
}

PartageLigne CalculePartage(const BandeEchantillons& bande) {
  // A whole group reads two pixels past its last sample, which the row may not have.
  const qint32 groupes = std::min(bande.Dedans / kGroupe, bande.PixelsLisibles / (kGroupe * bande.PasPixels));
  return {.Groupes = groupes, .Reste = bande.Dedans - kGroupe * groupes};
}

void CompareDehors(qint32* entree, PlaceEchantillon place, qint32 nombre, qint32 tolerance, CumulBande& cumul) {
  for (; nombre > 0; --nombre, ++entree, ++place.Colonne) {
    if (EstChange(-1, *entree, tolerance)) cumul.Compte(place);
    *entree = -1;
  }
}

void CumulBande::CompteMasques(qint32 colonne, std::span<const quint16> masques) {
  // Only what lies outside the box so far is looked at. Where the first change of a row lies cannot be foreseen: with a
  // noisy picture, looking for it in each row costs more than the comparison.
  qint32 debut = colonne;
  for (const quint16 masque : masques) {
    if (debut >= ColonneMin) break;
    if (masque != 0) ColonneMin = std::min(ColonneMin, debut + std::countr_zero(masque));
    debut += kGroupe;
  }
  qint32 fin = colonne + kGroupe * static_cast<qint32>(masques.size()) - 1;
  for (std::size_t i = masques.size(); i > 0 && fin > ColonneMax; --i, fin -= kGroupe) {
    const quint16 masque = masques[i - 1];
    if (masque != 0) ColonneMax = std::max(ColonneMax, fin - std::countl_zero(masque));
  }
}

bool ConnaitJeu(JeuInstructions jeu) {
  switch (jeu) {
#if defined(__x86_64__)
    case JeuInstructions::kAvx2:
      return __builtin_cpu_supports("avx2") != 0;
    case JeuInstructions::kSse41:
      return __builtin_cpu_supports("sse4.1") != 0;
#else
    case JeuInstructions::kAvx2:
    case JeuInstructions::kSse41:
      return false;
#endif
    case JeuInstructions::kPortable:
      return true;
  }
  return false;
}

JeuInstructions ChoisitJeu() {
  if (ConnaitJeu(JeuInstructions::kAvx2)) return JeuInstructions::kAvx2;
  if (ConnaitJeu(JeuInstructions::kSse41)) return JeuInstructions::kSse41;
  return JeuInstructions::kPortable;
}

ResultatComparaison CompareTrame(JeuInstructions jeu, const TrameBrute& trame, const ZoneDetection& zone,
                                 qint32 tolerance, const TableEchantillons& table, qint32 premierRang) {
  const DecoupeBalayage decoupe = CoupeBalayage(trame, zone, table, premierRang);
  CumulBande cumul;
  for (qint32 i = 0; i < decoupe.Nombre; ++i) {
    CompareBande(jeu, decoupe.Bandes[static_cast<std::size_t>(i)], tolerance, cumul);
  }
  return DonneResultat(decoupe, cumul, zone);
}

}  // namespace vaktor
