// SPDX-License-Identifier: GPL-3.0-or-later
#include "canvas.h"

#include <QDir>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace vaktor::art {

QImage Dessine(int largeur, int hauteur, int echelle, const std::function<void(QPainter&)>& dessin, bool transparent) {
  QImage image(largeur * echelle, hauteur * echelle, transparent ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  image.fill(transparent ? Qt::transparent : Qt::black);
  QPainter peintre(&image);
  peintre.setRenderHint(QPainter::Antialiasing);
  peintre.scale(echelle, echelle);
  dessin(peintre);
  return image;
}

double Grain(quint32 x, quint32 y, quint32 graine) {
  // A small integer hash (xorshift-multiply): no state, so the order of drawing does not matter.
  quint32 h = x * 0x9E3779B1U ^ y * 0x85EBCA77U ^ graine * 0xC2B2AE3DU;
  h = (h ^ (h >> 15)) * 0x2C1B3C6DU;
  h = (h ^ (h >> 12)) * 0x297A2D39U;
  h ^= h >> 15;
  return h / 4294967296.0;
}

namespace {

int Borne(double v) { return static_cast<int>(std::clamp(std::floor(v), 0.0, 255.0)); }

void Transforme(QImage& image, const std::function<QRgb(int, int, QRgb)>& f) {
  for (int y = 0; y < image.height(); ++y) {
    auto* ligne = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) ligne[x] = f(x, y, ligne[x]);
  }
}

}  // namespace

void AjouteGrain(QImage& image, double force, int etirement, quint32 graine) {
  Transforme(image, [&](int x, int y, QRgb c) {
    const auto colonne = static_cast<quint32>(x / etirement);
    const double part = static_cast<double>(x % etirement) / etirement;
    const double g = Grain(colonne, static_cast<quint32>(y), graine) * (1 - part) +
                     Grain(colonne + 1, static_cast<quint32>(y), graine) * part;
    const double d = (g - 0.5) * 2 * force + 0.5;
    return qRgba(Borne(qRed(c) + d), Borne(qGreen(c) + d), Borne(qBlue(c) + d), qAlpha(c));
  });
}

Moyenne CalculeMoyenne(const QImage& image) {
  const QImage plate = image.convertToFormat(QImage::Format_RGB32);
  Moyenne m;
  for (int y = 0; y < plate.height(); ++y) {
    const auto* ligne = reinterpret_cast<const QRgb*>(plate.constScanLine(y));
    for (int x = 0; x < plate.width(); ++x) {
      m.Rouge += qRed(ligne[x]);
      m.Vert += qGreen(ligne[x]);
      m.Bleu += qBlue(ligne[x]);
    }
  }
  const double n = static_cast<double>(plate.width()) * plate.height();
  return {m.Rouge / n, m.Vert / n, m.Bleu / n};
}

void AjusteMoyenne(QImage& image, const QColor& moyenne) {
  for (int tour = 0; tour < 24; ++tour) {
    const Moyenne m = CalculeMoyenne(image);
    const double r = moyenne.red() - m.Rouge;
    const double v = moyenne.green() - m.Vert;
    const double b = moyenne.blue() - m.Bleu;
    if (std::max({std::abs(r), std::abs(v), std::abs(b)}) < 0.1) return;
    // The fraction of a level is spread over the pixels by grain, so a mean between two levels can be met.
    Transforme(image, [&](int x, int y, QRgb c) {
      const double g = Grain(static_cast<quint32>(x), static_cast<quint32>(y), 77U + static_cast<quint32>(tour));
      return qRgba(Borne(qRed(c) + r + g), Borne(qGreen(c) + v + g), Borne(qBlue(c) + b + g), qAlpha(c));
    });
  }
}

QImage ReduitPalette(const QImage& image, int couleurs) {
  // Equal shares of the pixels, ordered by brightness, each share becoming its mean colour: the mean of the whole
  // picture is kept, and there are most colours where there are most pixels.
  struct Point {
    QRgb Couleur;
    int Cle, X, Y;
  };
  std::vector<Point> points;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb c = image.pixel(x, y);
      points.push_back({c, qRed(c) * 3 + qGreen(c) * 6 + qBlue(c), x, y});
    }
  }
  std::stable_sort(points.begin(), points.end(), [](const Point& a, const Point& b) { return a.Cle < b.Cle; });
  QImage palette(image.size(), QImage::Format_Indexed8);
  palette.fill(0);
  QList<QRgb> table;
  const std::size_t n = points.size();
  for (int k = 0; k < couleurs; ++k) {
    const std::size_t debut = n * static_cast<std::size_t>(k) / static_cast<std::size_t>(couleurs);
    const std::size_t fin = n * static_cast<std::size_t>(k + 1) / static_cast<std::size_t>(couleurs);
    double r = 0, v = 0, b = 0;
    for (std::size_t i = debut; i < fin; ++i) {
      r += qRed(points[i].Couleur);
      v += qGreen(points[i].Couleur);
      b += qBlue(points[i].Couleur);
      palette.scanLine(points[i].Y)[points[i].X] = static_cast<uchar>(k);
    }
    const auto compte = static_cast<double>(std::max<std::size_t>(1, fin - debut));
    table.append(qRgb(Borne(r / compte + 0.5), Borne(v / compte + 0.5), Borne(b / compte + 0.5)));
  }
  palette.setColorTable(table);
  return palette;
}

void Enregistre(const QImage& image, const QString& dossier, const QString& nom) {
  QDir().mkpath(dossier);
  const QString fichier = dossier + QLatin1Char('/') + nom + QStringLiteral(".png");
  if (!image.save(fichier, "PNG", 0)) {
    std::fprintf(stderr, "cannot write %s\n", qPrintable(fichier));
    std::exit(1);
  }
}

}  // namespace vaktor::art
