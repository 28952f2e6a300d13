// SPDX-License-Identifier: GPL-3.0-or-later
// A network camera that speaks RTSP, on the loopback and on a thread of its own: JPEG pictures over RTP, ten a second,
// and a sound track that nobody wants.
#pragma once

#include <gst/app/gstappsink.h>
#include <gst/gst.h>

#include <QElapsedTimer>
#include <QHash>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>
#include <QUdpSocket>
#include <atomic>

#include "platform/capture/streams/gst_setup.h"

namespace vaktor {

class CameraRtsp {
 public:
  struct Humeur {
    bool SeulementUdp = false;  ///< refuses to send within the connection, as a few old ones do
    bool Fermee = false;        ///< wants a name and a password
    bool MuetteDedans = false;  ///< agrees to send within the connection, and sends nothing there
    bool SourdeDedans = false;  ///< leaves the wish for that without an answer
    int Depart = 0;             ///< ms that it needs to let a client go; until then it serves no other
    int MorceauxAvant = 0;      ///< ms for which only beginnings of pictures come: a stream joined in the middle
  };

  explicit CameraRtsp(Humeur humeur) : Humeur_(humeur) {
    PrepareGStreamer();
    Fil_.start();
    Objet_.moveToThread(&Fil_);
    SurSonFil([this] {
      Udp_ = new QUdpSocket;
      Serveur_ = new QTcpServer;
      Serveur_->listen(QHostAddress::LocalHost);
      Port_ = Serveur_->serverPort();
      QObject::connect(Serveur_, &QTcpServer::newConnection, &Objet_, [this] { Accueille(); });
    });
  }
  ~CameraRtsp() {
    SurSonFil([this] {
      Arrete();
      delete Serveur_;
      delete Udp_;
    });
    Fil_.quit();
    Fil_.wait();
  }
  CameraRtsp(const CameraRtsp&) = delete;
  CameraRtsp& operator=(const CameraRtsp&) = delete;

  quint16 Port() const { return Port_; }
  bool SonDemande() const { return SonDemande_; }
  bool ParUdp() const { return ParUdp_; }
  bool VuAutorisation() const { return Autorisation_; }
  int Connexions() const { return Connexions_; }

 private:
  template <class F>
  void SurSonFil(F fonction) {
    QMetaObject::invokeMethod(&Objet_, fonction, Qt::BlockingQueuedConnection);
  }

  void Accueille() {
    QTcpSocket* client = Serveur_->nextPendingConnection();
    ++Connexions_;
    QObject::connect(client, &QTcpSocket::disconnected, client, [this, client] {
      Parti_.start();
      if (client == Client_) Arrete();
      client->deleteLater();
    });
    QObject::connect(client, &QTcpSocket::readyRead, client, [this, client] { Lit(client); });
  }

  // Reports of the receiver come in between, each behind a dollar sign and its length.
  void Lit(QTcpSocket* client) {
    QByteArray& recu = Recu_[client];
    recu += client->readAll();
    while (!recu.isEmpty()) {
      qsizetype longueur = recu.indexOf("\r\n\r\n") + 4;
      if (recu.startsWith('$')) {
        if (recu.size() < 4) return;
        longueur = 4 + (static_cast<uchar>(recu[2]) << 8) + static_cast<uchar>(recu[3]);
        if (recu.size() < longueur) return;
      } else if (longueur < 4) {
        return;
      } else {
        Repond(client, recu.left(longueur));
      }
      recu.remove(0, longueur);
    }
  }

  static QByteArray Champ(const QByteArray& demande, const char* motif) {
    const auto trouve = QRegularExpression(QLatin1String(motif), QRegularExpression::CaseInsensitiveOption)
                            .match(QString::fromLatin1(demande));
    return trouve.captured(1).toLatin1();
  }
  void Envoie(QTcpSocket* client, const QByteArray& demande, const char* etat, const QByteArray& reste) {
    client->write("RTSP/1.0 " + QByteArray(etat) + "\r\nCSeq: " + Champ(demande, "CSeq: *(\\d+)") + "\r\n" +
                  (reste.isEmpty() ? "\r\n" : reste));
  }

  void Repond(QTcpSocket* client, const QByteArray& demande) {
    const bool autorise = demande.contains("Authorization: Basic");
    if (autorise) Autorisation_ = true;
    if (Humeur_.Fermee && !autorise && !demande.startsWith("OPTIONS")) {
      return Envoie(client, demande, "401 Unauthorized", "WWW-Authenticate: Basic realm=\"c\"\r\n\r\n");
    }
    if (demande.startsWith("OPTIONS")) {
      return Envoie(client, demande, "200 OK", "Public: OPTIONS, DESCRIBE, SETUP, PLAY, TEARDOWN\r\n\r\n");
    }
    if (demande.startsWith("DESCRIBE") && Parti_.isValid() && Parti_.elapsed() < Humeur_.Depart) {
      return Envoie(client, demande, "503 Service Unavailable", {});
    }
    if (demande.startsWith("DESCRIBE")) return Decrit(client, demande);
    if (demande.startsWith("SETUP")) return Prepare(client, demande);
    Envoie(client, demande, "200 OK", "Session: 7\r\n\r\n");
    if (demande.startsWith("PLAY")) Filme(client);
    if (demande.startsWith("TEARDOWN")) Arrete();
  }

  void Decrit(QTcpSocket* client, const QByteArray& demande) {
    const QByteArray pistes =
        "v=0\r\no=- 1 1 IN IP4 127.0.0.1\r\ns=c\r\nc=IN IP4 127.0.0.1\r\nt=0 0\r\n"
        "m=audio 0 RTP/AVP 0\r\na=control:son\r\n"
        "m=video 0 RTP/AVP 26\r\na=rtpmap:26 JPEG/90000\r\na=control:image\r\n";
    Envoie(client, demande, "200 OK",
           "Content-Type: application/sdp\r\nContent-Base: rtsp://127.0.0.1:" + QByteArray::number(Port_) +
               "/c/\r\nContent-Length: " + QByteArray::number(pistes.size()) + "\r\n\r\n" + pistes);
  }

  void Prepare(QTcpSocket* client, const QByteArray& demande) {
    if (demande.left(demande.indexOf('\r')).contains("/son")) SonDemande_ = true;
    const bool udp = !demande.contains("RTP/AVP/TCP");
    if (!udp && Humeur_.SourdeDedans) return;
    const bool permis = udp == Humeur_.SeulementUdp || Humeur_.MuetteDedans || Humeur_.SourdeDedans;
    if (!permis) return Envoie(client, demande, "461 Unsupported Transport", {});
    ParUdp_ = udp;
    PortClient_ = Champ(demande, "client_port=(\\d+)").toUShort();
    const QByteArray chemin = udp ? "RTP/AVP;unicast;client_port=" + QByteArray::number(PortClient_) + '-' +
                                        QByteArray::number(PortClient_ + 1) + ";server_port=6970-6971"
                                  : QByteArray("RTP/AVP/TCP;unicast;interleaved=0-1");
    Envoie(client, demande, "200 OK", "Session: 7\r\nTransport: " + chemin + "\r\n\r\n");
  }

  void Filme(QTcpSocket* client) {
    Client_ = client;
    Depuis_.start();
    // Small packets: several to a picture, and two in a row even without its last one, or nobody takes them for a
    // stream.
    Film_ = gst_parse_launch(
        "videotestsrc is-live=true pattern=ball ! video/x-raw,format=I420,width=160,height=120,framerate=10/1 ! "
        "jpegenc ! rtpjpegpay mtu=250 ! appsink name=paquets sync=false",
        nullptr);
    gst_element_set_state(Film_, GST_STATE_PLAYING);
    Cadence_ = new QTimer;
    QObject::connect(Cadence_, &QTimer::timeout, &Objet_, [this] { EnvoieLesPaquets(); });
    Cadence_->start(20);
  }

  void EnvoieLesPaquets() {
    GstElement* paquets = gst_bin_get_by_name(GST_BIN(Film_), "paquets");
    while (GstSample* echantillon = gst_app_sink_try_pull_sample(GST_APP_SINK(paquets), 0)) {
      GstMapInfo octets;
      GstBuffer* tampon = gst_sample_get_buffer(echantillon);
      gst_buffer_map(tampon, &octets, GST_MAP_READ);
      const QByteArray paquet(reinterpret_cast<const char*>(octets.data), static_cast<qsizetype>(octets.size));
      gst_buffer_unmap(tampon, &octets);
      gst_sample_unref(echantillon);
      if (!ParUdp_ && Humeur_.MuetteDedans) continue;
      // The last packet of a picture carries the marker.
      if ((paquet[1] & 0x80) != 0 && Depuis_.elapsed() < Humeur_.MorceauxAvant) continue;
      if (ParUdp_) {
        Udp_->writeDatagram(paquet, QHostAddress::LocalHost, PortClient_);
      } else {
        const char tete[] = {'$', 0, static_cast<char>(paquet.size() >> 8), static_cast<char>(paquet.size() & 0xFF)};
        Client_->write(QByteArray(tete, 4) + paquet);
      }
    }
    gst_object_unref(paquets);
  }

  void Arrete() {
    delete Cadence_;
    Cadence_ = nullptr;
    Client_ = nullptr;
    if (Film_ == nullptr) return;
    gst_element_set_state(Film_, GST_STATE_NULL);
    gst_object_unref(Film_);
    Film_ = nullptr;
  }

  const Humeur Humeur_;
  QThread Fil_;
  QObject Objet_;
  QTcpServer* Serveur_ = nullptr;
  QUdpSocket* Udp_ = nullptr;
  QTcpSocket* Client_ = nullptr;
  QTimer* Cadence_ = nullptr;
  GstElement* Film_ = nullptr;
  QElapsedTimer Depuis_;
  QElapsedTimer Parti_;
  quint16 PortClient_ = 0;
  QHash<QTcpSocket*, QByteArray> Recu_;
  std::atomic<quint16> Port_ = 0;
  std::atomic<bool> SonDemande_ = false;
  std::atomic<bool> ParUdp_ = false;
  std::atomic<bool> Autorisation_ = false;
  std::atomic<int> Connexions_ = 0;
};

}  // namespace vaktor
