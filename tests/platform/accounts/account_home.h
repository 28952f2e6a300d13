// SPDX-License-Identifier: GPL-3.0-or-later
// A home folder of mail programs' files, and the accounts that are read from it.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/accounts/account_reader.h"

namespace vaktor::essai {

struct DomicileComptes : testing::Test {
  QTemporaryDir Temporaire;
  const LieuxComptes Lieux{Temporaire.filePath("home"), Temporaire.filePath("home/.config")};

  QString Chemin(const QString& nom) const { return Lieux.Domicile + '/' + nom; }
  void Ecrit(const QString& nom, const QByteArray& octets) const {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(Chemin(nom)).path()));
    QFile fichier(Chemin(nom));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    ASSERT_EQ(fichier.write(octets), octets.size());
  }
  void Copie(const QString& fixture, const QString& nom) const {
    QFile fichier(QStringLiteral(COMPTES_D_ESSAI "/") + fixture);
    ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
    Ecrit(nom, fichier.readAll());
  }
  /// One profile, "p", with these preferences.
  void EcritProfil(const QByteArray& prefs, const QString& racine = ".thunderbird") const {
    Ecrit(racine + "/profiles.ini", "[Profile0]\nName=default\nIsRelative=1\nPath=p\nDefault=1\n");
    Ecrit(racine + "/p/prefs.js", prefs);
  }

  /// "address|server|user|port" of each account that can be used, in order, the default one marked with "*", one that
  /// logs in with OAuth2 with "OAuth2" behind it.
  QStringList Montre() const {
    QStringList lignes;
    for (const CompteMail& compte : LitTousLesComptes(Lieux)) {
      if (!EstUtilisable(compte)) continue;
      const QString port = compte.Port == 0 ? QStringLiteral("-") : QString::number(compte.Port);
      lignes << (compte.ParDefaut ? "*" : "") +
                    QStringList{compte.Adresse, compte.Serveur, compte.Utilisateur, port}.join('|') +
                    (compte.OAuth2 ? "|OAuth2" : "");
    }
    return lignes;
  }
  /// Of all accounts, in order: true for those that can be used.
  QList<bool> Utilisables() const {
    QList<bool> utilisables;
    for (const CompteMail& compte : LitTousLesComptes(Lieux)) utilisables << EstUtilisable(compte);
    return utilisables;
  }
};

/// The preferences of one account "a" with the identity "i" and the server "s"; `autres` stands behind them, and what
/// stands there holds.
inline QByteArray PrefsDUnCompte(const QByteArray& autres = {}) {
  return "user_pref(\"mail.accountmanager.accounts\", \"a\");\n"
         "user_pref(\"mail.account.a.identities\", \"i\");\n"
         "user_pref(\"mail.identity.i.useremail\", \"a@b.org\");\n"
         "user_pref(\"mail.identity.i.smtpServer\", \"s\");\n"
         "user_pref(\"mail.smtpserver.s.hostname\", \"smtp.b.org\");\n"
         "user_pref(\"mail.smtpserver.s.port\", 587);\n"
         "user_pref(\"mail.smtpserver.s.username\", \"moi\");\n" +
         autres;
}
inline const QStringList kUnCompte = {QStringLiteral("*a@b.org|smtp.b.org|moi|587")};

}  // namespace vaktor::essai
