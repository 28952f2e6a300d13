// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_failures.h"

#include <algorithm>

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

QString DitReglagesAbimes(Langue langue, const QStringList& noms, qint64 lignes, const QString& emplacement) {
  constexpr qsizetype kNomsMontres = 8;
  QString quoi = noms.first(std::min(kNomsMontres, noms.size())).join(QStringLiteral(", "));
  if (noms.size() > kNomsMontres)
    quoi += Phrase{" et %1 autres", " and %1 others"}.Dit(langue, QString::number(noms.size() - kNomsMontres));
  if (noms.isEmpty())
    quoi = Phrase{"lignes incompréhensibles : %1", "lines that make no sense: %1"}.Dit(langue, QString::number(lignes));
  return Phrase{"%1 ; copie du fichier : %2", "%1; copy of the file: %2"}.Dit(langue, quoi,
                                                                              emplacement + QStringLiteral(".damaged"));
}

}  // namespace vaktor
