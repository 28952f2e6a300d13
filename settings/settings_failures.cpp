#include "settings/settings_failures.h"

#include "texts/language.h"

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

QString DitReglageImpossible(qint32 langue, const QString& nom, const QString& valeur, const QString& emplacement) {
  const QString montre = RaccourcitValeur(valeur);
  return ChoisitLangue(langue,
                       QStringLiteral("Le paramètre %1 contient « %2 », ce qui n'est pas possible. "
                                      "Corrigez ou supprimez cette ligne dans %3, puis relancez Vaktor.")
                           .arg(nom, montre, emplacement),
                       QStringLiteral("The setting %1 holds \"%2\", which is not possible. "
                                      "Correct or remove this line in %3, then start Vaktor again.")
                           .arg(nom, montre, emplacement));
}

QString DitDossierPhotoImpossible(qint32 langue, const QString& nom, const QString& valeur, const QString& dossier) {
  const QString montre = RaccourcitValeur(valeur);
  return ChoisitLangue(
      langue,
      QStringLiteral("Le dossier des photos « %2 » (paramètre %1) n'existe pas, et « %3 » n'a pas pu être créé.")
          .arg(nom, montre, dossier),
      QStringLiteral("The photo folder \"%2\" (setting %1) does not exist, and \"%3\" could not be made.")
          .arg(nom, montre, dossier));
}

QString DitSauvegardeImpossible(qint32 langue, const QString& raison) {
  return ChoisitLangue(langue, QStringLiteral("Les paramètres n'ont pas pu être enregistrés (%1).").arg(raison),
                       QStringLiteral("The settings could not be saved (%1).").arg(raison));
}

}  // namespace vaktor
