// SPDX-License-Identifier: GPL-3.0-or-later
// Network cameras on the loopback, good and bad ones, and a driver over them.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>
#include <atomic>

#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {

// What the camera does with whoever connects. It may change at any time.
enum class Humeur { kFilme, kCale, kMuet, kFouillis, kPageWeb, kPasTrouve, kInterdit, kEnPanne, kImagesFausses };

// A web camera on a thread of its own: multipart JPEG, ten pictures a second or one each `rythme` milliseconds, one
// after the other and round again.
class CameraReseau {
 public:
  explicit CameraReseau(const QList<QByteArray>& images, int rythme = 100, quint16 port = 0)
      : Images_(images), Rythme_(rythme), Port_(port) {
    Fil_.start();
    Objet_.moveToThread(&Fil_);
    QMetaObject::invokeMethod(
        &Objet_, [this] { Ouvre(); }, Qt::BlockingQueuedConnection);
  }
  ~CameraReseau() {
    QMetaObject::invokeMethod(
        &Objet_, [this] { delete Serveur_; }, Qt::BlockingQueuedConnection);
    Fil_.quit();
    Fil_.wait();
  }
  CameraReseau(const CameraReseau&) = delete;
  CameraReseau& operator=(const CameraReseau&) = delete;

  quint16 Port() const { return Port_; }
  int Demandes() const { return Demandes_; }
  bool VuAutorisation() const { return Autorisation_; }
  std::atomic<Humeur> Etat = Humeur::kFilme;
  /// Sends this file instead of pictures, whole and once. Before anybody connects.
  void DonneFichier(const QByteArray& octets) { Fichier_ = octets; }

 private:
  void Ouvre() {
    Serveur_ = new QTcpServer;
    Serveur_->listen(QHostAddress::LocalHost, Port_);
    Port_ = Serveur_->serverPort();
    QObject::connect(Serveur_, &QTcpServer::newConnection, &Objet_, [this] { Accueille(); });
  }
  void Accueille() {
    QTcpSocket* client = Serveur_->nextPendingConnection();
    QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
    QObject::connect(client, &QTcpSocket::readyRead, client, [this, client] { Repond(client); });
  }
  void Repond(QTcpSocket* client) {
    const QByteArray demande = client->readAll();
    ++Demandes_;
    if (demande.contains("Authorization: Basic")) Autorisation_ = true;
    if (Etat == Humeur::kMuet) return;
    if (!Fichier_.isEmpty()) {
      client->write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(Fichier_.size()) + "\r\n\r\n" +
                    Fichier_);
      return;
    }
    if (Etat == Humeur::kFouillis) {
      client->write("HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n\r\nno picture here, only words\n");
      client->disconnectFromHost();
      return;
    }
    if (Etat == Humeur::kPageWeb) {
      client->write(
          "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n<!DOCTYPE html><html><body>camera</body></html>\n");
      client->disconnectFromHost();
      return;
    }
    if (Etat == Humeur::kPasTrouve) return Refuse(client, "404 Not Found");
    if (Etat == Humeur::kInterdit) return Refuse(client, "403 Forbidden");
    if (Etat == Humeur::kEnPanne) return Refuse(client, "503 Service Unavailable");
    if (demande.contains("/ferme") && !demande.contains("Authorization")) {
      client->write("HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"c\"\r\nContent-Length: 0\r\n\r\n");
      return;
    }
    client->write("HTTP/1.1 200 OK\r\nContent-Type: multipart/x-mixed-replace; boundary=image\r\n\r\n");
    auto* cadence = new QTimer(client);
    QObject::connect(cadence, &QTimer::timeout, client, [this, client] {
      if (Etat != Humeur::kFilme && Etat != Humeur::kImagesFausses) return;
      const QByteArray image = Etat == Humeur::kFilme ? Images_.at(Rang_) : Abime(Images_.at(Rang_));
      Rang_ = (Rang_ + 1) % Images_.size();
      client->write("--image\r\nContent-Type: image/jpeg\r\nContent-Length: " + QByteArray::number(image.size()) +
                    "\r\n\r\n" + image + "\r\n");
    });
    cadence->start(Rythme_);
  }
  static void Refuse(QTcpSocket* client, const QByteArray& statut) {
    client->write("HTTP/1.1 " + statut + "\r\nContent-Length: 0\r\n\r\n");
  }

  // Of the right kind by its first bytes, cut short and full of something else behind them.
  QByteArray Abime(QByteArray image) {
    image.truncate(image.size() / 2 + Rang_);
    for (qsizetype i = 20; i < image.size(); i += 3) image[i] = static_cast<char>(i * 37 + ++Bruit_);
    return image;
  }

  const QList<QByteArray> Images_;
  QByteArray Fichier_;
  const int Rythme_;
  qsizetype Rang_ = 0;
  int Bruit_ = 0;
  QThread Fil_;
  QObject Objet_;
  QTcpServer* Serveur_ = nullptr;
  std::atomic<quint16> Port_ = 0;
  std::atomic<int> Demandes_ = 0;
  std::atomic<bool> Autorisation_ = false;
};

class PiloteReseau : public PiloteSurSource {
 protected:
  void SetUp() override { Camera_ = std::make_unique<CameraReseau>(QList<QByteArray>{Jpeg(160, 120)}); }
  QByteArray Jpeg(int largeur, int hauteur) const {
    const QString caps = QStringLiteral("width=%1,height=%2,framerate=10/1").arg(largeur).arg(hauteur);
    EXPECT_TRUE(FabriqueFilm(Fichier("une.jpg"), caps, 1, QStringLiteral("jpegenc")));
    return Lit(Fichier("une.jpg"));
  }
  QString Adresse(const char* schema, const char* chemin = "/video") const {
    return QLatin1String(schema) + QStringLiteral("127.0.0.1:") + QString::number(Camera_->Port()) +
           QLatin1String(chemin);
  }
  // How long the window is held by the call; true when it said no.
  bool EstRefusee(const QString& ou, qint64 limite) {
    QElapsedTimer depuis;
    depuis.start();
    const bool connecte = Connecte(ou);
    EXPECT_LT(depuis.elapsed(), limite) << qUtf8Printable(ou);
    return !connecte;
  }

  std::unique_ptr<CameraReseau> Camera_;
};

}  // namespace vaktor
