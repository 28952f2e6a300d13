// SPDX-License-Identifier: GPL-3.0-or-later
// The test server of ftp_server.py as an object, and pictures to send to it.
#pragma once

#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include "support/file_bytes.h"

namespace vaktor::essai {

/// A real JPEG of noise, so that it has some size; `graine` makes different ones.
inline QByteArray CreeJpeg(int graine, int cote = 200) {
  QImage image(cote, cote, QImage::Format_RGB32);
  quint32 n = static_cast<quint32>(graine) * 2654435761U + 1;
  for (int y = 0; y < cote; ++y)
    for (int x = 0; x < cote; ++x) {
      n = n * 1664525U + 1013904223U;
      image.setPixel(x, y, n | 0xFF000000U);
    }
  QByteArray octets;
  QBuffer tampon(&octets);
  tampon.open(QIODevice::WriteOnly);
  image.save(&tampon, "JPG", 90);
  return octets;
}

class ServeurEssai {
 public:
  ServeurEssai() { QDir(Temporaire_.path()).mkdir("site"); }
  ~ServeurEssai() { Arrete(); }
  ServeurEssai(const ServeurEssai&) = delete;
  ServeurEssai& operator=(const ServeurEssai&) = delete;

  /// A second start takes the port of the first.
  void Demarre() {
    QStringList arguments{VAKTOR_FTP_SERVER, Dossier(), "--port", QString::number(Port_)};
    if (!Certificat_.isEmpty()) arguments << "--tls" << Certificat_;
    if (Implicite_) arguments << "--implicit";
    if (Nouveau_) arguments << "--only-1.3";
    Processus_.setProcessChannelMode(QProcess::SeparateChannels);
    Processus_.start("/usr/bin/python3", arguments);
    Port_ = Lit().toUShort();
    ASSERT_NE(Port_, 0) << Processus_.readAllStandardError().toStdString();
  }
  void Arrete() {
    Processus_.kill();
    Processus_.waitForFinished();
  }
  /// Explicit TLS with a certificate of its own for "localhost".
  void PrepareTls() {
    Certificat_ = Temporaire_.filePath("serveur.pem");
    QProcess openssl;
    openssl.start("openssl", {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=localhost",
                              "-addext", "subjectAltName=DNS:localhost", "-keyout", Certificat_, "-out",
                              Temporaire_.filePath("autorite.pem")});
    ASSERT_TRUE(openssl.waitForFinished()) << "openssl is needed";
    EcritOctets(Certificat_, LitOctets(Certificat_) + LitOctets(Autorite()));
  }
  /// Nothing older than TLS 1.3.
  void PrepareTlsNouveau() {
    PrepareTls();
    Nouveau_ = true;
  }
  /// TLS from the first byte.
  void PrepareTlsImplicite() {
    PrepareTls();
    Implicite_ = true;
  }
  /// From the next start on none is offered.
  void OublieTls() { Certificat_.clear(); }
  void Dit(const QByteArray& commande) {
    Processus_.write(commande + '\n');
    ASSERT_EQ(Lit(), "ok");
  }

  quint16 Port() const { return Port_; }
  QString Dossier() const { return Temporaire_.filePath("site"); }
  QString Autorite() const { return Temporaire_.filePath("autorite.pem"); }
  QString Chemin(const QString& nom) const { return Dossier() + '/' + nom; }
  QStringList Noms() const { return QDir(Dossier()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

 private:
  QByteArray Lit() {
    while (!Processus_.canReadLine())
      if (!Processus_.waitForReadyRead(20000)) return {};
    return Processus_.readLine().trimmed();
  }

  QTemporaryDir Temporaire_;
  QProcess Processus_;
  QString Certificat_;
  bool Nouveau_ = false;
  bool Implicite_ = false;
  quint16 Port_ = 0;
};

}  // namespace vaktor::essai
