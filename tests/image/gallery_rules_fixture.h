// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the gallery's rules share: a window that keeps what it is told, and the rules over it.
#pragma once

#include <gtest/gtest.h>

#include "image/gallery_bench.h"

namespace vaktor::faux {

/// Stands in for the window and keeps what it was told.
class AffichageNote : public AffichageGalerie {
 public:
  void MontreListe(const QStringList& entrees, int index) override {
    Liste = entrees;
    Index = index;
    Appels += QStringLiteral("liste %1").arg(entrees.size());
  }
  void MontreIndex(int index) override { Index = index; }
  void MontrePhoto(const QImage& photo) override {
    Photo = photo;
    Mention.clear();
    Avis.clear();
    Appels += photo.isNull() ? QStringLiteral("vide") : QStringLiteral("photo");
  }
  void MontreMention(const QString& mention) override { Mention = mention; }
  void MontreAvis(const QString& avis) override {
    Photo = {};
    Avis = avis;
  }
  void MontreTitre(const QString& titre) override {
    Titre = titre;
    Appels += QStringLiteral("titre");
  }
  void AjusteAutourPhoto() override { Appels += QStringLiteral("ajuste"); }
  void MontreFenetre() override { Appels += QStringLiteral("montre"); }
  void OuvreProgression(int dernier) override { Appels += QStringLiteral("progression %1").arg(dernier); }
  void AvanceProgression(int pas) override { Appels += QStringLiteral("pas %1").arg(pas); }
  void FermeProgression() override { Appels += QStringLiteral("fin"); }

  QStringList Liste, Appels;
  int Index = -1;
  QImage Photo;
  QString Avis, Mention, Titre;
};

class ReglesGalerie : public testing::Test, protected BancGalerie {
 protected:
  ReglesGalerie() { Galerie.Relie(Vue); }
  static QStringList NomsSuivis(int nombre) {
    QStringList noms;
    for (int i = 0; i < nombre; ++i) noms += QStringLiteral("%1.jpg").arg(i, 5, 10, QLatin1Char('0'));
    return noms;
  }
  void Choisit(int index) {
    Galerie.ChoisitIndex(index);
    Galerie.Clique();
  }
  AffichageNote Vue;
};

}  // namespace vaktor::faux
