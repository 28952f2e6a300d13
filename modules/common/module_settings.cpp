// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/common/module_settings.h"

#include "base/failure.h"
#include "companions/contract/command_words.h"
#include "settings/settings_table.h"

namespace vaktor {

ReglagesModule LitReglagesModule(const MagasinReglages& magasin, const QString& dossierPhotos) {
  ReglagesModule reglages;
  for (const LigneReglage& ligne : TableReglages()) {
    const QString defaut = DefautReglage(ligne, dossierPhotos);
    const QString texte = magasin.LitReglage(QLatin1String(ligne.Section), QLatin1String(ligne.Cle), defaut);
    try {
      LitValeur(ligne, texte, reglages.Valeurs);
    } catch (const Echec&) {
      LitValeur(ligne, defaut, reglages.Valeurs);
    }
  }
  DeduitQualiteJpeg(reglages.Valeurs);
  reglages.Largeur = magasin.LitReglage(QStringLiteral("FTP"), QStringLiteral("width"), QString());
  reglages.Hauteur = magasin.LitReglage(QStringLiteral("FTP"), QStringLiteral("height"), QString());
  return reglages;
}

qint32 LitHwndvk(const MagasinReglages& magasin, const QString& section) {
  return magasin.LitReglage(section, kCleHwndvk, QString()).toInt();
}

}  // namespace vaktor
