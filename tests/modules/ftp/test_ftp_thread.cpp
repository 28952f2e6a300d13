// SPDX-License-Identifier: GPL-3.0-or-later
// The thread of the conversation: jobs that are cut off, and no memory on it.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <atomic>
#include <memory>
#include <new>
#include <thread>

#include "modules/ftp/ftp_thread.h"
#include "support/event_wait.h"

namespace vaktor::essai {
namespace {

/// Something whose copies need memory that another thread than the one of the test finds only after so many tries.
class CopieSansMemoire {
 public:
  explicit CopieSansMemoire(int refus) : Refus_(std::make_shared<std::atomic<int>>(refus)) {}
  CopieSansMemoire(const CopieSansMemoire& autre) : Refus_(autre.Refus_), Ici_(autre.Ici_) {
    if (std::this_thread::get_id() != Ici_ && Refus_->fetch_sub(1) > 0) throw std::bad_alloc();
  }
  CopieSansMemoire(CopieSansMemoire&&) noexcept = default;
  ~CopieSansMemoire() = default;
  CopieSansMemoire& operator=(const CopieSansMemoire&) = delete;
  CopieSansMemoire& operator=(CopieSansMemoire&&) = delete;
  int Refus() const { return Refus_->load(); }

 private:
  std::shared_ptr<std::atomic<int>> Refus_;
  std::thread::id Ici_ = std::this_thread::get_id();
};

struct FilFtp : testing::Test {
  int Fins = 0;
  ResultatFtp Resultat;
  TravailFtp Connexion;

  // Nobody listens there: it fails at once.
  FilFtp() {
    Connexion.Genre = GenreTravail::kConnexion;
    Connexion.Acces.Hote = QStringLiteral("127.0.0.1");
    Connexion.Acces.Port = 1;
  }
  OuvrierFtp::SurFin NoteFin() {
    return [this](const ResultatFtp& resultat) {
      ++Fins;
      Resultat = resultat;
    };
  }
};

/// Takes a connection and says what it is told to, if anything.
struct ServeurParle : QTcpServer {
  explicit ServeurParle(bool parle) {
    EXPECT_TRUE(listen(QHostAddress::LocalHost));
    connect(this, &QTcpServer::newConnection, this, [this, parle] {
      Prise = nextPendingConnection();
      if (!parle) return;
      Prise->write("220 ready\r\n");
      connect(Prise, &QTcpSocket::readyRead, Prise, [this] {
        while (Prise->canReadLine()) {
          const QByteArray verbe = Prise->readLine().left(4).trimmed();
          Prise->write(verbe == "USER"   ? "331 password\r\n"
                       : verbe == "PASS" ? "230 in\r\n"
                       : verbe == "PWD"  ? "257 \"/\"\r\n"
                       : verbe == "AUTH" ? "502 no\r\n"
                                         : "200 well\r\n");
        }
      });
    });
  }
  bool EstParti() const { return Prise != nullptr && Prise->state() == QAbstractSocket::UnconnectedState; }
  QTcpSocket* Prise = nullptr;
};

struct FilCoupe : FilFtp {
  OuvrierThread Ouvrier{OptionsClient{
      .DelaiConnexion = 60, .DelaiReponse = 60, .DelaiSilence = 60, .FichierAutorites = {}, .Cherche = {}}};
  TravailFtp Vers(const QTcpServer& serveur) const {
    TravailFtp travail = Connexion;
    travail.Acces = {"127.0.0.1", serveur.serverPort(), "anna", "sesame", ""};
    return travail;
  }
  static void LaisseFaire() {
    QElapsedTimer depuis;
    depuis.start();
    while (!depuis.hasExpired(400)) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
  }
};

TEST_F(FilCoupe, AJobThatIsCutOffEndsAndSaysNothingMore) {
  ServeurParle muet(false);
  Ouvrier.Lance(Vers(muet), {}, NoteFin());
  ASSERT_TRUE(AttendQue([&] { return muet.Prise != nullptr; }));
  Ouvrier.Coupe();
  bool suivante = false;
  Ouvrier.Lance(Connexion, {}, [&suivante](const ResultatFtp&) { suivante = true; });
  EXPECT_TRUE(AttendQue([&] { return suivante; })) << "the next one waits for its end, and that is soon";
  LaisseFaire();
  EXPECT_EQ(Fins, 0);
}

TEST_F(FilCoupe, AJobThatWaitedBehindItIsNotDone) {
  ServeurParle muet(false);
  ServeurParle autre(false);
  Ouvrier.Lance(Vers(muet), {}, NoteFin());
  ASSERT_TRUE(AttendQue([&] { return muet.Prise != nullptr; }));
  Ouvrier.Coupe();
  Ouvrier.Lance(Vers(autre), {}, NoteFin());
  Ouvrier.Coupe();
  ASSERT_TRUE(AttendQue([&] { return muet.EstParti(); }));
  LaisseFaire();
  EXPECT_EQ(autre.Prise, nullptr);
  EXPECT_EQ(Fins, 0);
}

TEST_F(FilCoupe, TheConnectionOfAJobThatIsDoneIsClosed) {
  ServeurParle serveur(true);
  Ouvrier.Lance(Vers(serveur), {}, NoteFin());
  ASSERT_TRUE(AttendQue([&] { return Fins == 1; }));
  ASSERT_EQ(Resultat.Issue, IssueFtp::kReussi) << Resultat.Mots.toStdString();
  LaisseFaire();
  EXPECT_FALSE(serveur.EstParti()) << "it is kept";
  Ouvrier.Coupe();
  EXPECT_TRUE(AttendQue([&] { return serveur.EstParti(); }));
}

TEST_F(FilFtp, NoMemoryForTheClientIsAJobThatFailedAndTheNextOneIsTried) {
  OptionsClient options;
  options.Cherche = [copie = CopieSansMemoire(1)](const QString&) { return 0; };
  OuvrierThread ouvrier(std::move(options));
  for (int fois = 1; fois <= 2; ++fois) {
    ouvrier.Lance(Connexion, {}, NoteFin());
    ASSERT_TRUE(AttendQue([&] { return Fins == fois; }));
    EXPECT_NE(Resultat.Issue, IssueFtp::kReussi);
    EXPECT_EQ(Resultat.Mots.contains("bad_alloc"), fois == 1) << Resultat.Mots.toStdString();
  }
}

TEST_F(FilFtp, AnEndThatFindsNoMemoryIsToldOnceThereIsSome) {
  OuvrierThread ouvrier;
  ouvrier.Lance(Connexion, {}, [copie = CopieSansMemoire(3), fin = NoteFin()](const ResultatFtp& r) { fin(r); });
  ASSERT_TRUE(AttendQue([this] { return Fins == 1; }));
}

TEST_F(FilFtp, AnEndThatFindsNoMemoryKeepsNeitherTheNextJobNorTheEndOfTheProgram) {
  constexpr int kToujours = 1 << 30;
  auto ouvrier = std::make_unique<OuvrierThread>();
  const CopieSansMemoire copie(kToujours);
  const auto lance = [&] {
    const int avant = copie.Refus();
    ouvrier->Lance(Connexion, {}, [copie, fin = NoteFin()](const ResultatFtp& r) { fin(r); });
    EXPECT_TRUE(AttendQue([&] { return copie.Refus() < avant; })) << "it has nothing to tell yet";
  };
  lance();
  ouvrier->Coupe();
  ouvrier->Lance(Connexion, {}, NoteFin());
  ASSERT_TRUE(AttendQue([this] { return Fins == 1; })) << "it waits for one that nobody wants any more";
  lance();
  ouvrier.reset();
  EXPECT_EQ(Fins, 1);
}

}  // namespace
}  // namespace vaktor::essai
