// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the mail companion share: a real server on loopback, a certificate authority of their own, mails
// read back by another mail library.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include "support/file_bytes.h"

namespace vaktor::essai {

/// The mail as Python's email package reads it.
inline QJsonObject LitCourriel(const QByteArray& message) {
  QProcess lecteur;
  lecteur.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(VAKTOR_READ_MAIL)});
  lecteur.write(message);
  lecteur.closeWriteChannel();
  lecteur.waitForFinished();
  EXPECT_EQ(lecteur.exitCode(), 0) << lecteur.readAllStandardError().toStdString();
  return QJsonDocument::fromJson(lecteur.readAllStandardOutput()).object();
}

/// One server. Its port is given by the system.
class ServeurMail {
 public:
  ServeurMail() = default;
  ~ServeurMail() { Arrete(); }
  ServeurMail(const ServeurMail&) = delete;
  ServeurMail& operator=(const ServeurMail&) = delete;

  bool Demarre(const QStringList& options = {}) {
    Programme_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QStringList arguments{QStringLiteral(VAKTOR_MAIL_SERVER), Dossier_.path()};
    if (Port_ != 0) arguments << QStringLiteral("--port") << QString::number(Port_);
    Programme_.start(QStringLiteral("/usr/bin/python3"), arguments + options);
    while (!Programme_.canReadLine() && Programme_.waitForReadyRead(20000)) {
    }
    Port_ = Programme_.readLine().trimmed().toUShort();
    return Port_ != 0;
  }
  void Arrete() {
    if (Programme_.state() == QProcess::NotRunning) return;
    Programme_.kill();
    Programme_.waitForFinished();
  }
  quint16 Port() const { return Port_; }
  QStringList Noms() const {
    return QDir(Dossier_.path()).entryList({QStringLiteral("*.eml")}, QDir::Files, QDir::Name);
  }
  QString Chemin(const QString& nom) const { return Dossier_.filePath(nom); }
  qsizetype NombreRecus() const { return Noms().size(); }
  QByteArray Message(qsizetype i = 0) const { return LitOctets(Dossier_.filePath(Noms().value(i))); }
  QJsonObject Enveloppe(qsizetype i = 0) const {
    return QJsonDocument::fromJson(LitOctets(Dossier_.filePath(Noms().value(i).replace(".eml", ".json")))).object();
  }

 private:
  QTemporaryDir Dossier_;
  QProcess Programme_;
  quint16 Port_ = 0;
};

/// An authority of our own and a certificate for one name, made by openssl.
class Certificats {
 public:
  explicit Certificats(const QString& nom) {
    const QString d = Dossier_.path();
    Lance({"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=Essai", "-keyout",
           d + "/ca.key", "-out", d + "/ca.pem"});
    Lance(
        {"req", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=" + nom, "-keyout", d + "/s.key", "-out", d + "/s.csr"});
    const QString genre = nom.at(0).isDigit() ? QStringLiteral("IP:") : QStringLiteral("DNS:");
    EcritOctets(d + "/ext", ("subjectAltName=" + genre + nom + "\n").toUtf8());
    Lance({"x509", "-req", "-in", d + "/s.csr", "-CA", d + "/ca.pem", "-CAkey", d + "/ca.key", "-CAcreateserial",
           "-days", "2", "-extfile", d + "/ext", "-out", d + "/s.pem"});
  }
  QString Autorite() const { return Dossier_.filePath("ca.pem"); }
  QStringList Paire() const { return {Dossier_.filePath("s.pem"), Dossier_.filePath("s.key")}; }

 private:
  static void Lance(const QStringList& arguments) {
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"), arguments);
    openssl.waitForFinished();
    EXPECT_EQ(openssl.exitCode(), 0) << openssl.readAllStandardError().toStdString();
  }
  QTemporaryDir Dossier_;
};

}  // namespace vaktor::essai
