// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/sounds.h"

namespace vaktor {

void Sons::JoueSon(qint32 n) {
  JoueFichier(Dossiers_.Executables + QStringLiteral("\\snd\\") + QString::number(n) + QStringLiteral(".wav"));
}

void Sons::SurvolSon(qint32 id) {
  if (id != DernierSurvol_ && id != kAucunSurvol) JoueSon(kTic);
  DernierSurvol_ = id;
}

void Sons::JoueFichier(const QString& chemin) {
  if (Disque_.Existe(chemin)) Lecteur_.Joue(chemin);
}

}  // namespace vaktor
