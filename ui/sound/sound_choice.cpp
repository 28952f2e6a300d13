// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/sound_choice.h"

#include "texts/phrase.h"

namespace vaktor {

namespace {

QString DonneMontre(const MotsFormSound& mots, qint32 indexSon, Langue langue) {
  if (indexSon >= 0 && indexSon < static_cast<qint32>(mots.Entrees.size())) {
    return mots.Entrees.at(static_cast<std::size_t>(indexSon));
  }
  return Phrase{"Choix du son", "Sound Choice"}.Dit(langue);
}

}  // namespace

MotsFormSound DonneMotsFormSound(Langue langue, qint32 indexSon) {
  MotsFormSound mots;
  mots.Titre = Phrase{"Son de l'alarme", "Alarm sound"}.Dit(langue);
  mots.Selection = Phrase{"Sélectionnez un son", "Select a sound"}.Dit(langue);
  mots.Ecoute = Phrase{"Ecoute", "Listen"}.Dit(langue);
  mots.Parcourir = Phrase{"Choisir un fichier son", "Choose a sound file"}.Dit(langue);
  const QString son = Phrase{"Son %1", "Sound %1"}.Dit(langue);
  for (int i = 0; i < ChoixSon::kSonDuFichier; ++i) mots.Entrees.at(static_cast<std::size_t>(i)) = son.arg(i + 1);
  mots.Entrees.back() = Phrase{"Fichier son", "Sound file"}.Dit(langue);
  mots.FichierInterdit = Phrase{"Indisponible tant que « %1 » n'est pas choisi dans la liste.",
                                "Not available until \"%1\" is chosen in the list."}
                             .Dit(langue, mots.Entrees.back());
  mots.Montre = DonneMontre(mots, indexSon, langue);
  return mots;
}

void ChoixSon::Choisit(qint32 index) {
  Reglages_.IndexSon = index;
  Reglages_.ParametresModifies = true;
  Sauvegarde_.SauveParametres();
}

void ChoixSon::ParcourtFichiers() {
  Reglages_.FichierSon = Dialogue_.ChoisitFichier(QStringLiteral("Audio (*.WAV *.wav)"));
  if (Reglages_.FichierSon.isEmpty()) Reglages_.IndexSon = 0;
}

void ChoixSon::Ecoute() {
  if (Reglages_.IndexSon < 0 || Reglages_.IndexSon > kSonDuFichier) Reglages_.IndexSon = 0;
  if (Reglages_.IndexSon == kSonDuFichier) {
    Sons_.JoueFichier(Reglages_.FichierSon);
  } else {
    Sons_.JoueSon(Reglages_.IndexSon);
  }
}

void ChoixSon::Ferme() {
  if (Reglages_.ParametresModifies) Sauvegarde_.SauveParametres();
}

}  // namespace vaktor
