#include "ui/sound/sound_choice.h"

#include "texts/language.h"

namespace vaktor {

namespace {

QString DonneMontre(const MotsFormSound& mots, qint32 indexSon, qint32 langue) {
  if (indexSon >= 0 && indexSon < static_cast<qint32>(mots.Entrees.size())) {
    return mots.Entrees.at(static_cast<std::size_t>(indexSon));
  }
  return ChoisitLangue(langue, QStringLiteral("Choix du son"), QStringLiteral("Sound Choice"));
}

}  // namespace

MotsFormSound DonneMotsFormSound(qint32 langue, qint32 indexSon) {
  MotsFormSound mots;
  mots.Titre = ChoisitLangue(langue, QStringLiteral("Son de l'alarme"), QStringLiteral("Alarm sound"));
  mots.Selection = ChoisitLangue(langue, QStringLiteral("Sélectionnez un son"), QStringLiteral("Select a sound"));
  mots.Ecoute = ChoisitLangue(langue, QStringLiteral("Ecoute"), QStringLiteral("Listen"));
  mots.Parcourir =
      ChoisitLangue(langue, QStringLiteral("Choisir un fichier son"), QStringLiteral("Choose a sound file"));
  const QString son = ChoisitLangue(langue, QStringLiteral("Son %1"), QStringLiteral("Sound %1"));
  for (int i = 0; i < ChoixSon::kSonDuFichier; ++i) mots.Entrees.at(static_cast<std::size_t>(i)) = son.arg(i + 1);
  mots.Entrees.back() = ChoisitLangue(langue, QStringLiteral("Fichier son"), QStringLiteral("Sound file"));
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
