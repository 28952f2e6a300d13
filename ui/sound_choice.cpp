#include "ui/sound_choice.h"

namespace vaktor {

namespace {

QString DonneMontre(const MotsFormSound& mots, qint32 indexSon, bool anglais) {
  if (indexSon >= 0 && indexSon < static_cast<qint32>(mots.Entrees.size())) {
    return mots.Entrees.at(static_cast<std::size_t>(indexSon));
  }
  return anglais ? QStringLiteral("Sound Choice") : QStringLiteral("Choix du son");
}

}  // namespace

MotsFormSound DonneMotsFormSound(qint32 langue, qint32 indexSon) {
  const bool anglais = langue == 1;
  MotsFormSound mots;
  mots.Titre = anglais ? QStringLiteral("Alarm sound") : QStringLiteral("Son de l'alarme");
  mots.Selection = anglais ? QStringLiteral("Select a sound") : QStringLiteral("Sélectionnez un son");
  mots.Ecoute = anglais ? QStringLiteral("Listen") : QStringLiteral("Ecoute");
  mots.Parcourir = anglais ? QStringLiteral("Choose a sound file") : QStringLiteral("Choisir un fichier son");
  const QString son = anglais ? QStringLiteral("Sound %1") : QStringLiteral("Son %1");
  for (int i = 0; i < ChoixSon::kSonDuFichier; ++i) mots.Entrees.at(static_cast<std::size_t>(i)) = son.arg(i + 1);
  mots.Entrees.back() = anglais ? QStringLiteral("Sound file") : QStringLiteral("Fichier son");
  mots.Montre = DonneMontre(mots, indexSon, anglais);
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
