// Network cameras on the loopback, good and bad ones.
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>
#include <atomic>

#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

// What the camera does with whoever connects. It may change at any time.
enum class Humeur { kFilme, kCale, kMuet, kFouillis, kPasTrouve };

// A web camera on a thread of its own: multipart JPEG, ten pictures a second.
class CameraReseau {
 public:
  explicit CameraReseau(const QByteArray& jpeg) : Jpeg_(jpeg) {
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

 private:
  void Ouvre() {
    Serveur_ = new QTcpServer;
    Serveur_->listen(QHostAddress::LocalHost);
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
    if (Etat == Humeur::kFouillis) {
      client->write("HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n\r\nno picture here, only words\n");
      client->disconnectFromHost();
      return;
    }
    if (Etat == Humeur::kPasTrouve) {
      client->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
      return;
    }
    if (demande.contains("/ferme") && !demande.contains("Authorization")) {
      client->write("HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"c\"\r\nContent-Length: 0\r\n\r\n");
      return;
    }
    client->write("HTTP/1.1 200 OK\r\nContent-Type: multipart/x-mixed-replace; boundary=image\r\n\r\n");
    auto* cadence = new QTimer(client);
    QObject::connect(cadence, &QTimer::timeout, client, [this, client] {
      if (Etat != Humeur::kFilme) return;
      client->write("--image\r\nContent-Type: image/jpeg\r\nContent-Length: " + QByteArray::number(Jpeg_.size()) +
                    "\r\n\r\n" + Jpeg_ + "\r\n");
    });
    cadence->start(100);
  }

  const QByteArray Jpeg_;
  QThread Fil_;
  QObject Objet_;
  QTcpServer* Serveur_ = nullptr;
  std::atomic<quint16> Port_ = 0;
  std::atomic<int> Demandes_ = 0;
  std::atomic<bool> Autorisation_ = false;
};

class PiloteReseau : public PiloteSurSource {
 protected:
  void SetUp() override {
    ASSERT_TRUE(FabriqueFilm(Fichier("une.jpg"), QStringLiteral("width=160,height=120,framerate=10/1"), 1,
                             QStringLiteral("jpegenc")));
    Camera_ = std::make_unique<CameraReseau>(Lit(Fichier("une.jpg")));
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

TEST_F(PiloteReseau, ShowsAWebCamera) {
  ASSERT_TRUE(Connecte(Adresse("http://")));
  EXPECT_EQ(Pilote_->Genre(), GenreSource::kReseau);
  const Recolte recolte = Recueille(2000);
  EXPECT_GE(recolte.Images, 12);
  EXPECT_EQ(recolte.Tailles, (std::set<std::pair<int, int>>{{160, 120}}));
}

TEST_F(PiloteReseau, GivesThePasswordToTheCameraAndToNobodyElse) {
  ASSERT_TRUE(Connecte(Adresse("http://jean:tresSecret@", "/ferme")));
  EXPECT_TRUE(Camera_->VuAutorisation());
  EXPECT_FALSE(Pilote_->DescriptionSource().contains(QStringLiteral("tresSecret")));
  EXPECT_TRUE(Pilote_->DescriptionSource().contains(QStringLiteral("127.0.0.1")));
}

// It stalls, for long; then it is back, and so is the picture. Nobody tells the driver of either.
TEST_F(PiloteReseau, ComesBackAfterAStall) {
  ASSERT_TRUE(Connecte(Adresse("http://")));
  ASSERT_TRUE(Pilote_->SaisitImage());
  Camera_->Etat = Humeur::kCale;
  EXPECT_TRUE(AttendSignalPerdu(true, 6000));
  EXPECT_FALSE(Pilote_->CopieImage().isNull()) << "the last frame stays";
  QElapsedTimer appel;
  appel.start();
  Pilote_->SaisitImage();
  EXPECT_LT(appel.elapsed(), 600);
  Camera_->Etat = Humeur::kFilme;
  EXPECT_TRUE(AttendSignalPerdu(false, 15'000));
  EXPECT_TRUE(Pilote_->SaisitImage());
}

TEST_F(PiloteReseau, SaysNoToNonsenseAndSilence) {
  Camera_->Etat = Humeur::kFouillis;
  EXPECT_TRUE(EstRefusee(Adresse("http://"), 9000));
  EXPECT_TRUE(EstRefusee(Adresse("rtsp://"), 9000));
  Camera_->Etat = Humeur::kPasTrouve;
  EXPECT_TRUE(EstRefusee(Adresse("http://"), 9000));
  EXPECT_TRUE(EstRefusee(QStringLiteral("http://127.0.0.1:1/x"), 9000));
  EXPECT_TRUE(EstRefusee(QStringLiteral("rtsp://127.0.0.1:1/x"), 9000));
  EXPECT_TRUE(EstRefusee(QStringLiteral("http://"), 9000));
  EXPECT_TRUE(EstRefusee(QStringLiteral("rtsp://::::/"), 9000));
}

TEST_F(PiloteReseau, SaysNoToACameraThatAcceptsAndSaysNothing) {
  Camera_->Etat = Humeur::kMuet;
  const int descripteursAvant = Compte("/proc/self/fd");
  EXPECT_TRUE(EstRefusee(Adresse("http://"), 9000));
  EXPECT_TRUE(EstRefusee(Adresse("rtsp://"), 9000));
  QElapsedTimer arret;
  arret.start();
  Pilote_->Deconnecte();
  EXPECT_LT(arret.elapsed(), 1500);
  EXPECT_GT(Camera_->Demandes(), 0);
  // Both sides of a connection count here; the server's close a moment later.
  QElapsedTimer depuis;
  depuis.start();
  while (Compte("/proc/self/fd") > descripteursAvant + 4 && depuis.elapsed() < 3000) QThread::msleep(20);
  EXPECT_LE(Compte("/proc/self/fd"), descripteursAvant + 4);
}

}  // namespace
}  // namespace vaktor
