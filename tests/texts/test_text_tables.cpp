// The words, row by row, against a list that was typed apart from the program's own.
#include <gtest/gtest.h>

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include "texts/text_tables.h"

namespace vaktor {
namespace {

struct Mot {
  QString Table;
  int Numero;
  QString Francais, Anglais;
};

// Each line: table, number, French, English. "\r\n" stands for a line break, "(*)" and "[*]" for an example.
QList<Mot> LitListe() {
  QFile fichier(QStringLiteral(LISTE_DES_MOTS));
  EXPECT_TRUE(fichier.open(QIODevice::ReadOnly));
  QList<Mot> mots;
  for (const QString& ligne : QString::fromUtf8(fichier.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
    QString lisible = ligne;
    lisible.replace(QStringLiteral("\\r\\n"), QStringLiteral("\r\n"));
    const QStringList champs = lisible.split(u'\t');
    EXPECT_EQ(champs.size(), 4) << ligne.toStdString();
    mots.append({champs[0], champs[1].toInt(), champs[2], champs[3]});
  }
  return mots;
}

QString Lit(const TablesTextes& tables, const QString& table, int numero) {
  if (table == QStringLiteral("Texte")) return tables.Texte(numero);
  if (table == QStringLiteral("Aide")) return tables.Aide(numero);
  if (table == QStringLiteral("Messages")) return tables.Messages(numero);
  if (table == QStringLiteral("LibelleBouton")) return tables.LibelleBouton(numero);
  EXPECT_EQ(table, QStringLiteral("LibelleBoutonGris"));
  return tables.LibelleBoutonGris(numero);
}

bool Correspond(const QString& texte, const QString& attendu) {
  QString motif = QRegularExpression::escape(attendu);
  motif.replace(QStringLiteral("\\(\\*\\)"), QStringLiteral("\\([^()]+\\)"));
  motif.replace(QStringLiteral("\\[\\*\\]"), QStringLiteral("\\[[^\\[\\]]+\\]"));
  return QRegularExpression(QRegularExpression::anchoredPattern(motif)).match(texte).hasMatch();
}

TEST(TablesTextes, HoldEveryRowInBothLanguages) {
  const QList<Mot> mots = LitListe();
  ASSERT_EQ(mots.size(), 136);
  TablesTextes tables;
  for (const qint32 langue : {0, 1}) {
    tables.Remplit(langue);
    for (const Mot& mot : mots) {
      const QString& attendu = langue == 0 ? mot.Francais : mot.Anglais;
      const QString texte = Lit(tables, mot.Table, mot.Numero);
      EXPECT_TRUE(Correspond(texte, attendu))
          << mot.Table.toStdString() << '(' << mot.Numero << ") is \"" << texte.toStdString() << '"';
    }
  }
}

TEST(TablesTextes, HaveNoRowBesidesTheList) {
  QSet<QString> connus;
  for (const Mot& mot : LitListe()) connus.insert(mot.Table + QString::number(mot.Numero));
  TablesTextes tables;
  tables.Remplit(0);
  for (const char* nom : {"Texte", "Aide", "Messages", "LibelleBouton", "LibelleBoutonGris"}) {
    const QString table = QString::fromLatin1(nom);
    for (int n = -5; n < 400; ++n) {
      if (!connus.contains(table + QString::number(n))) {
        EXPECT_EQ(Lit(tables, table, n), QString()) << nom << n;
      }
    }
  }
}

TEST(TablesTextes, KeepSpellingThatLooksOdd) {
  TablesTextes tables;
  tables.Remplit(1);
  EXPECT_EQ(tables.LibelleBoutonGris(0), QStringLiteral("Pitures"));
  EXPECT_EQ(tables.Texte(72), QStringLiteral("Can not fin repertory"));
  EXPECT_EQ(tables.Aide(149), QStringLiteral("Use my eMail sofware (Outlook...)"));
  EXPECT_EQ(tables.Aide(21), QStringLiteral("[View/Set]  threshold sensitivity"));
  tables.Remplit(0);
  EXPECT_EQ(tables.Texte(42), QString::fromUtf8("En cour de création"));
}

TEST(TablesTextes, BreakLinesWithCarriageReturnAndLineFeed) {
  TablesTextes tables;
  tables.Remplit(0);
  EXPECT_EQ(tables.Messages(8), QString::fromUtf8("La camera n'est pas active.\r\n"
                                                  "Vous n'avez pas cliqué sur :           \r\n[Caméra on]"));
}

TEST(TablesTextes, GiveAnExampleOfAnAddressWhereOneHelps) {
  TablesTextes tables;
  for (const qint32 langue : {0, 1}) {
    tables.Remplit(langue);
    for (const int n : {40, 41, 150, 151}) EXPECT_TRUE(tables.Aide(n).contains(QStringLiteral("example.org"))) << n;
  }
}

TEST(TablesTextes, AreEmptyBeforeTheFirstFillAndAfterAnUnknownLanguage) {
  TablesTextes tables;
  EXPECT_EQ(tables.Texte(5), QString());
  tables.Remplit(2);
  EXPECT_EQ(tables.Texte(5), QString());
  EXPECT_EQ(tables.LibelleBouton(0), QString());
}

TEST(TablesTextes, KeepWhatTheyHoldWhenTheLanguageIsUnknown) {
  TablesTextes tables;
  tables.Remplit(1);
  tables.Remplit(7);
  EXPECT_EQ(tables.Texte(5), QStringLiteral("Pictures on each email"));
  tables.Remplit(-1);
  EXPECT_EQ(tables.Texte(5), QStringLiteral("Pictures on each email"));
}

TEST(TablesTextes, FollowALanguageChangedAtRunTime) {
  TablesTextes tables;
  tables.Remplit(0);
  EXPECT_EQ(tables.LibelleBouton(0), QString::fromUtf8("Caméra on"));
  tables.Remplit(1);
  EXPECT_EQ(tables.LibelleBouton(0), QStringLiteral("Camera on"));
  tables.Remplit(0);
  EXPECT_EQ(tables.LibelleBouton(7), QString::fromUtf8("Caméra off"));
}

}  // namespace
}  // namespace vaktor
