// SPDX-License-Identifier: GPL-3.0-or-later
// The server of push_server.py as an object.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include "support/file_bytes.h"

namespace vaktor::essai {

class ServeurPush {
 public:
  ~ServeurPush() { Arrete(); }

  /// With TLS: a certificate of its own for "localhost". A second start takes the port of the first.
  void Demarre(bool tls = false) {
    QStringList arguments{VAKTOR_PUSH_SERVER, Recu_.path(), "--port", QString::number(Port_)};
    if (tls) arguments << "--tls" << Certificat();
    Programme_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    Programme_.start("/usr/bin/python3", arguments);
    while (!Programme_.canReadLine() && Programme_.waitForReadyRead(20'000)) {
    }
    Port_ = Programme_.readLine().trimmed().toUShort();
    ASSERT_NE(Port_, 0);
    Schema_ = tls ? "https" : "http";
  }
  void Arrete() {
    Programme_.kill();
    Programme_.waitForFinished();
  }
  void Repond(const QByteArray& quoi) { EcritOctets(Recu_.filePath("answer"), quoi); }

  QString Adresse(const QString& chemin = "/maison?cle=1", const QString& hote = "localhost") const {
    return QStringLiteral("%1://%2:%3%4").arg(Schema_, hote).arg(Port_).arg(chemin);
  }
  QString Autorite() const { return Tls_.filePath("autorite.pem"); }
  qsizetype Nombre() const { return QDir(Recu_.path()).entryList({"*.json"}, QDir::Files).size(); }
  QJsonObject Demande(int i) const {
    return QJsonDocument::fromJson(LitOctets(Recu_.filePath(QString::number(i) + ".json"))).object();
  }
  QString Entete(int i, const char* nom) const {
    return Demande(i)["headers"].toObject()[QLatin1String(nom)].toString();
  }
  QByteArray Corps(int i) const { return LitOctets(Recu_.filePath(QString::number(i) + ".body")); }

 private:
  QString Certificat() {
    QString paire = Tls_.filePath("serveur.pem");  // not const: returned
    if (QFile::exists(paire)) return paire;
    QProcess openssl;
    openssl.start("openssl", {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=localhost",
                              "-addext", "subjectAltName=DNS:localhost", "-keyout", paire, "-out", Autorite()});
    openssl.waitForFinished();
    EXPECT_EQ(openssl.exitCode(), 0) << "openssl is needed";
    EcritOctets(paire, LitOctets(paire) + LitOctets(Autorite()));
    return paire;
  }

  QTemporaryDir Recu_, Tls_;
  QProcess Programme_;
  QString Schema_ = "http";
  quint16 Port_ = 0;
};

}  // namespace vaktor::essai
