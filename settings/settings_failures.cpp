// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_failures.h"

#include "texts/phrase.h"

namespace vaktor {
namespace {

constexpr qsizetype kTailleMontree = 80;

// A damaged value may be half a megabyte of anything; a message box shows one line of it.
QString RaccourcitValeur(const QString& valeur) {
  QString montre = valeur.left(kTailleMontree);
  for (QChar& c : montre) {
    if (!c.isPrint()) c = u' ';
  }
  if (valeur.size() > kTailleMontree) montre += QStringLiteral("...");
  return montre;
}

}  // namespace

QString DitReglageImpossible(Langue langue, const QString& nom, const QString& valeur, const QString& emplacement) {
  return Phrase{
      "Le paramètre %1 contient « %2 », ce qui n'est pas possible. "
      "Corrigez ou supprimez cette ligne dans %3, puis relancez Vaktor.",
      "The setting %1 holds \"%2\", which is not possible. "
      "Correct or remove this line in %3, then start Vaktor again."}
      .Dit(langue, nom, RaccourcitValeur(valeur), emplacement);
}

QString DitDossierPhotoImpossible(Langue langue, const QString& nom, const QString& valeur, const QString& dossier) {
  return Phrase{"Le dossier des photos « %2 » (paramètre %1) n'existe pas, et « %3 » n'a pas pu être créé.",
                "The photo folder \"%2\" (setting %1) does not exist, and \"%3\" could not be made."}
      .Dit(langue, nom, RaccourcitValeur(valeur), dossier);
}

QString DitSauvegardeImpossible(Langue langue, const QString& raison) {
  return Phrase{"Les paramètres n'ont pas pu être enregistrés (%1).", "The settings could not be saved (%1)."}.Dit(
      langue, raison);
}

}  // namespace vaktor
