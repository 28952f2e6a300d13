// A home folder of mail programs' files, and what the registry tree shows of it.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/accounts/account_registry.h"

namespace vaktor::essai {

inline const QString kRacine = QStringLiteral("Software\\Microsoft\\Internet Account Manager");

struct DomicileComptes : testing::Test {
  QTemporaryDir Temporaire;
  const LieuxComptes Lieux{Temporaire.filePath("home"), Temporaire.filePath("home/.config")};
  RegistreComptesFichiers Registre{Lieux};

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

  QStringList Cles(const QString& chemin) {
    QStringList noms;
    const RegistreComptes::Cle cle = Registre.OuvreCle(chemin);
    QString nom;
    for (quint32 i = 0; Registre.EnumereCle(cle, i, nom) == RegistreComptes::kSucces; ++i) noms << nom;
    Registre.FermeCle(cle);
    return noms;
  }
  QMap<QString, QByteArray> Valeurs(const QString& chemin) {
    QMap<QString, QByteArray> valeurs;
    const RegistreComptes::Cle cle = Registre.OuvreCle(chemin);
    QString nom;
    QByteArray donnee;
    for (quint32 i = 0; Registre.EnumereValeur(cle, i, nom, donnee) == RegistreComptes::kSucces; ++i) {
      valeurs[nom] = donnee;
    }
    Registre.FermeCle(cle);
    return valeurs;
  }
  /// "address|server|user|port" of each account in the order of the keys, the default one marked with "*".
  QStringList Montre() {
    const QStringList noms = Cles(kRacine + "\\Accounts");
    const QByteArray defaut = Valeurs(kRacine)["Default Mail Account"];
    QStringList lignes;
    for (const QString& nom : noms) {
      const auto valeurs = Valeurs(kRacine + "\\Accounts\\" + nom);
      const auto texte = [&valeurs](const char* valeur) {
        const QByteArray donnee = valeurs[QString::fromLatin1(valeur)];
        EXPECT_TRUE(donnee.isEmpty() || donnee.endsWith('\0')) << valeur;
        EXPECT_LE(donnee.size(), RegistreComptes::kLongueurMax);
        return QString::fromUtf8(donnee.chopped(donnee.isEmpty() ? 0 : 1));
      };
      const QByteArray port = valeurs["SMTP Port"];
      EXPECT_TRUE(port.isEmpty() || (port.size() == 4 && port[2] == 0 && port[3] == 0));
      const QString nombre = port.isEmpty()
                                 ? QStringLiteral("-")
                                 : QString::number(static_cast<quint8>(port[0]) + 256 * static_cast<quint8>(port[1]));
      lignes << (defaut == nom.toUtf8() + '\0' ? "*" : "") +
                    QStringList{texte("SMTP Email Address"), texte("SMTP Server"), texte("SMTP User Name"), nombre}
                        .join('|');
    }
    return lignes;
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
