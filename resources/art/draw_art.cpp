// SPDX-License-Identifier: GPL-3.0-or-later
// Draws all of the product's art into a folder: draw_art FOLDER. The output is kept beside this source and only made
// anew when the drawing changes (target "art").
#include <QGuiApplication>
#include <cstdio>

#include "pieces.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "usage: draw_art FOLDER\n");
    return 2;
  }
  const QString dossier = QString::fromLocal8Bit(argv[1]);
  using namespace vaktor::art;
  DessineSkins(dossier);
  DessineBoutons(dossier);
  DessineLampes(dossier);
  DessineDrapeaux(dossier);
  DessineSignes(dossier);
  DessinePagesPlan(dossier);
  DessineFonds(dossier);
  DessineIcone(dossier);
  return 0;
}
