// SPDX-License-Identifier: GPL-3.0-or-later
// The words, row by row, against a list that was typed apart from the program's own; and each name has its row.
#include <gtest/gtest.h>

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <string_view>
#include <utility>

#include "texts/text_tables.h"

namespace vaktor {
namespace {

struct Mot {
  QString Table;
  int Numero;
  QStringList Textes;  // by language
};

// Each line: table, number, and the text in each language, in the order of Langue. "\r\n" stands for a line break,
// "(*)" and "[*]" for an example.
QList<Mot> LitListe() {
  QFile fichier(QStringLiteral(LISTE_DES_MOTS));
  EXPECT_TRUE(fichier.open(QIODevice::ReadOnly));
  QList<Mot> mots;
  for (const QString& ligne : QString::fromUtf8(fichier.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
    QString lisible = ligne;
    lisible.replace(QStringLiteral("\\r\\n"), QStringLiteral("\r\n"));
    const QStringList champs = lisible.split(u'\t');
    EXPECT_EQ(champs.size(), static_cast<qsizetype>(2 + kNombreLangues)) << ligne.toStdString();
    mots.append({champs.value(0), champs.value(1).toInt(), champs.mid(2)});
  }
  return mots;
}

QString Lit(const TablesTextes& tables, const QString& table, int numero) {
  if (table == QStringLiteral("Texte")) return tables.Dit(Libelle{numero});
  if (table == QStringLiteral("Aide")) return tables.Dit(Aide{numero});
  if (table == QStringLiteral("Messages")) return tables.Dit(Message{numero});
  if (table == QStringLiteral("LibelleBouton")) return tables.LibelleBouton(numero);
  EXPECT_EQ(table, QStringLiteral("LibelleBoutonGris"));
  return tables.LibelleBoutonGris(numero);
}

// What the compiler calls the enumerator of that value; a number in parentheses where there is none.
template <auto kValeur>
constexpr bool EstNomme() {
  const std::string_view signature = __PRETTY_FUNCTION__;
  return signature.substr(signature.rfind('=')).find('(') == std::string_view::npos;
}

// The numbers up to kFin that have a name.
constexpr int kFin = 400;
template <typename Nom>
QList<int> DonneNommes() {
  QList<int> nommes;
  [&]<int... kNumeros>(std::integer_sequence<int, kNumeros...>) {
    // A list: an expression of so many parts is more than each compiler takes.
    const std::initializer_list<bool> estNomme{EstNomme<Nom{kNumeros}>()...};
    for (int i = 0; const bool est : estNomme) {
      if (est) nommes.append(i);
      ++i;
    }
  }
  (std::make_integer_sequence<int, kFin>());
  return nommes;
}

bool Correspond(const QString& texte, const QString& attendu) {
  QString motif = QRegularExpression::escape(attendu);
  motif.replace(QStringLiteral("\\(\\*\\)"), QStringLiteral("\\([^()]+\\)"));
  motif.replace(QStringLiteral("\\[\\*\\]"), QStringLiteral("\\[[^\\[\\]]+\\]"));
  return QRegularExpression(QRegularExpression::anchoredPattern(motif)).match(texte).hasMatch();
}

TEST(TablesTextes, HoldEveryRowInBothLanguages) {
  const QList<Mot> mots = LitListe();
  ASSERT_GT(mots.size(), 100);
  TablesTextes tables;
  for (const Langue langue : kLangues) {
    tables.Remplit(langue);
    for (const Mot& mot : mots) {
      const QString attendu = mot.Textes.value(static_cast<qsizetype>(RangLangue(langue)));
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
  tables.Remplit(Langue::kFrancais);
  for (const char* nom : {"Texte", "Aide", "Messages", "LibelleBouton", "LibelleBoutonGris"}) {
    const QString table = QString::fromLatin1(nom);
    for (int n = -5; n < kFin; ++n) {
      if (!connus.contains(table + QString::number(n))) {
        EXPECT_EQ(Lit(tables, table, n), QString()) << nom << n;
      }
    }
  }
}

// A name without its row would be an empty word on the screen, and a row that can only be reached by number a dead one.
TEST(TablesTextes, HaveARowForEachNameAndANameForEachRow) {
  QMap<QString, QList<int>> rangees;
  for (const Mot& mot : LitListe()) rangees[mot.Table].append(mot.Numero);
  for (QList<int>& numeros : rangees) std::sort(numeros.begin(), numeros.end());
  EXPECT_EQ(DonneNommes<Libelle>(), rangees.value(QStringLiteral("Texte")));
  EXPECT_EQ(DonneNommes<Aide>(), rangees.value(QStringLiteral("Aide")));
  EXPECT_EQ(DonneNommes<Message>(), rangees.value(QStringLiteral("Messages")));
}

TEST(TablesTextes, KeepSpellingThatLooksOdd) {
  TablesTextes tables;
  tables.Remplit(Langue::kAnglais);
  EXPECT_EQ(tables.LibelleBoutonGris(0), QStringLiteral("Pitures"));
  EXPECT_EQ(tables.Dit(Libelle::kRepertoireInexistant), QStringLiteral("Can not fin repertory"));
  EXPECT_EQ(tables.Dit(Aide::kLogicielMessagerie), QStringLiteral("Use my eMail sofware (Outlook...)"));
  EXPECT_EQ(tables.Dit(Aide::kJauge), QStringLiteral("[View/Set]  threshold sensitivity"));
  tables.Remplit(Langue::kFrancais);
  EXPECT_EQ(tables.Dit(Libelle::kEnCreation), QString::fromUtf8("En cour de création"));
}

TEST(TablesTextes, BreakLinesWithCarriageReturnAndLineFeed) {
  TablesTextes tables;
  tables.Remplit(Langue::kFrancais);
  EXPECT_EQ(tables.Dit(Message::kCameraInactive),
            QString::fromUtf8("La camera n'est pas active.\r\n"
                              "Vous n'avez pas cliqué sur :           \r\n[Caméra on]"));
}

TEST(TablesTextes, GiveAnExampleOfAnAddressWhereOneHelps) {
  TablesTextes tables;
  for (const Langue langue : kLangues) {
    tables.Remplit(langue);
    for (const Aide aide : {Aide::kAdresseFtp, Aide::kAdresseHtml, Aide::kAdresseSmtp, Aide::kAdresseEMail})
      EXPECT_TRUE(tables.Dit(aide).contains(QStringLiteral("example.org"))) << static_cast<int>(aide);
  }
}

TEST(TablesTextes, AreEmptyBeforeTheFirstFillAndAfterAnUnknownLanguage) {
  TablesTextes tables;
  EXPECT_EQ(tables.Dit(Libelle::kPhotosParMail), QString());
  tables.Remplit(LitLangue(2));
  EXPECT_EQ(tables.Dit(Libelle::kPhotosParMail), QString());
  EXPECT_EQ(tables.LibelleBouton(0), QString());
}

TEST(TablesTextes, KeepWhatTheyHoldWhenTheLanguageIsUnknown) {
  TablesTextes tables;
  tables.Remplit(Langue::kAnglais);
  tables.Remplit(LitLangue(7));
  EXPECT_EQ(tables.Dit(Libelle::kPhotosParMail), QStringLiteral("Pictures on each email"));
  tables.Remplit(LitLangue(-1));
  EXPECT_EQ(tables.Dit(Libelle::kPhotosParMail), QStringLiteral("Pictures on each email"));
}

TEST(TablesTextes, FollowALanguageChangedAtRunTime) {
  TablesTextes tables;
  tables.Remplit(Langue::kFrancais);
  EXPECT_EQ(tables.LibelleBouton(0), QString::fromUtf8("Caméra on"));
  tables.Remplit(Langue::kAnglais);
  EXPECT_EQ(tables.LibelleBouton(0), QStringLiteral("Camera on"));
  tables.Remplit(Langue::kFrancais);
  EXPECT_EQ(tables.LibelleBouton(7), QString::fromUtf8("Caméra off"));
}

}  // namespace
}  // namespace vaktor
