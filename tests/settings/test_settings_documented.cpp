// SPDX-License-Identifier: GPL-3.0-or-later
// docs/settings.md is written for people, apart from the table; this holds both against each other.
#include <gtest/gtest.h>

#include <QFile>
#include <QMap>
#include <QStringList>

#include "base/program_folders.h"
#include "settings/settings_table.h"

namespace vaktor {
namespace {

QString NomForme(FormeStockee forme) {
  switch (forme) {
    case FormeStockee::Entier:
      return QStringLiteral("integer");
    case FormeStockee::Texte:
      return QStringLiteral("text");
    case FormeStockee::Drapeau:
      return QStringLiteral("flag");
    case FormeStockee::Booleen:
      return QStringLiteral("boolean");
    case FormeStockee::Brouille:
      return QStringLiteral("scrambled");
    case FormeStockee::Secret:
      return QStringLiteral("secret");
    case FormeStockee::Mesure:
      return QStringLiteral("number");
  }
  return {};
}

QString Defaut(const LigneReglage& ligne) {
  if (ligne.Forme == FormeStockee::Mesure) return QStringLiteral("written by the program");
  if (ligne.EstDossierPhotos)
    return QStringLiteral("program folder + `") + DefautReglage(ligne, DossiersProgramme{}.PhotosParDefaut()) + u'`';
  const QString defaut = QString::fromLatin1(ligne.Defaut);
  return defaut.isEmpty() ? QStringLiteral("empty") : u'`' + defaut + u'`';
}

// Rows of the form "| `section` | `key` | form | default | range | meaning |", cells trimmed.
QList<QStringList> LitPage() {
  QFile page(QStringLiteral(PAGE_DES_REGLAGES));
  EXPECT_TRUE(page.open(QIODevice::ReadOnly));
  QList<QStringList> lignes;
  for (const QString& ligne : QString::fromUtf8(page.readAll()).split(u'\n')) {
    QStringList cellules = ligne.split(u'|');
    if (cellules.size() != 8 || !cellules[1].contains(u'`')) continue;
    for (QString& cellule : cellules) cellule = cellule.trimmed();
    lignes.append(cellules.mid(1, 6));
  }
  return lignes;
}

QString NomEcrit(const QStringList& ecrite) {
  QString nom = ecrite[0] + u'/' + ecrite[1];
  return nom.remove(u'`');
}

TEST(PageDesReglages, ListsEveryRowOfTheTableInSaveOrderWithItsFormAndDefault) {
  const QList<QStringList> lignes = LitPage();
  ASSERT_EQ(lignes.size(), std::ssize(OrdreSauvegarde()));
  for (qsizetype i = 0; i < lignes.size(); ++i) {
    const LigneReglage& ligne = *OrdreSauvegarde()[static_cast<std::size_t>(i)];
    const QStringList& ecrite = lignes[i];
    EXPECT_EQ(NomEcrit(ecrite), NomReglage(ligne));
    EXPECT_EQ(ecrite[2], NomForme(ligne.Forme)) << ecrite[1].toStdString();
    EXPECT_EQ(ecrite[3], Defaut(ligne)) << ecrite[1].toStdString();
    EXPECT_FALSE(ecrite[4].isEmpty());
    EXPECT_GT(ecrite[5].size(), 10) << ecrite[1].toStdString();
  }
}

// The sizes of the picture are never read; the mail password is read with its section.
TEST(PageDesReglages, IsTheOrderOfTheLoadButForTheMailPassword) {
  const QString motDePasse = QStringLiteral("MAIL/pass");
  QStringList attendus;
  for (const QStringList& ecrite : LitPage()) {
    const QString nom = NomEcrit(ecrite);
    if (ecrite[2] == QStringLiteral("number") || nom == motDePasse) continue;
    if (nom.startsWith(QStringLiteral("FTP/")) && !attendus.contains(motDePasse)) attendus += motDePasse;
    attendus += nom;
  }
  QStringList lus;
  for (const LigneReglage& ligne : TableReglages()) {
    if (EstLue(ligne)) lus += NomReglage(ligne);
  }
  EXPECT_EQ(lus, attendus);
}

TEST(PageDesReglages, GivesTheRangeOfEachRowThatIsRefusedOutsideIt) {
  QMap<QString, QString> domaines;
  for (const QStringList& ecrite : LitPage()) domaines[ecrite[1]] = ecrite[4];
  EXPECT_EQ(domaines.value(QStringLiteral("`skin`")), QStringLiteral("0 to 2"));
  EXPECT_EQ(domaines.value(QStringLiteral("`qualitephoto`")), QStringLiteral("0 to 3"));
}

}  // namespace
}  // namespace vaktor
