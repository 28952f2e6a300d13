// SPDX-License-Identifier: GPL-3.0-or-later
// What a session makes of a camera that is named by its host alone, and of what a grabber is to listen to.
#include <gtest/gtest.h>

#include <QStringList>
#include <mutex>
#include <thread>

#include "platform/capture/choice/common_addresses.h"
#include "platform/capture/driver/capture_session.h"

namespace vaktor {
namespace {

using namespace std::chrono_literals;

/// What was asked, in its order, from any thread.
class Carnet {
 public:
  void Note(const QString& ligne) {
    const std::lock_guard verrou(Verrou_);
    Lignes_.append(ligne);
  }
  QStringList Lignes() const {
    const std::lock_guard verrou(Verrou_);
    return Lignes_;
  }

 private:
  mutable std::mutex Verrou_;
  QStringList Lignes_;
};

/// One address answers; the others refuse at once.
class FluxQuiRepond : public FluxImages {
 public:
  FluxQuiRepond(DerniereImage& derniere, bool repond) : Derniere_(derniere), Repond_(repond) {}
  bool Ouvre() override { return Repond_; }
  Etat Surveille(const std::stop_token&, std::chrono::milliseconds) override {
    Derniere_.Depose(QImage(4, 4, QImage::Format_RGB32));
    std::this_thread::sleep_for(5ms);
    return Etat::kCoule;
  }
  bool EstDecrit() const override { return Repond_; }

 private:
  DerniereImage& Derniere_;
  const bool Repond_;
};

bool AttendImage(const SessionCapture& session) {
  const auto fin = DerniereImage::Horloge::now() + 5s;
  while (!session.DonneDesImages() && !session.EstFinie() && DerniereImage::Horloge::now() < fin)
    std::this_thread::sleep_for(5ms);
  return session.DonneDesImages();
}

std::shared_ptr<SessionCapture> Cherche(const QString& hote, const QString& bonne,
                                        const std::shared_ptr<Carnet>& carnet) {
  SessionCapture::Demande demande;
  demande.Source = ComprendSource(hote);
  return SessionCapture::Lance(std::move(demande), [=](DerniereImage& derniere, const DemandeFlux& flux) {
    carnet->Note(flux.Source.Lieu);
    return std::make_unique<FluxQuiRepond>(derniere, flux.Source.Lieu == bonne);
  });
}

TEST(SessionParHote, TriesTheMakersAddressesUntilOneAnswers) {
  const auto carnet = std::make_shared<Carnet>();
  const QString bonne = QStringLiteral("rtsp://192.0.2.7/stream1");
  const auto session = Cherche(QStringLiteral("admin:secret@192.0.2.7"), bonne, carnet);
  ASSERT_TRUE(AttendImage(*session));
  EXPECT_EQ(session->Source().Lieu, bonne);
  EXPECT_EQ(session->Source().MotDePasse, QStringLiteral("secret"));
  EXPECT_TRUE(session->Source().Description.startsWith(QStringLiteral("rtsp://admin:")));
  EXPECT_FALSE(session->Source().Description.contains(QStringLiteral("secret")));
  EXPECT_EQ(carnet->Lignes().last(), bonne) << "none behind the one that answers";
  EXPECT_GT(carnet->Lignes().size(), 1);
  EXPECT_TRUE(session->Arrete(2s));
}

TEST(SessionParHote, ATypedAddressComesFirst) {
  const auto carnet = std::make_shared<Carnet>();
  const QString bonne = QStringLiteral("rtsp://192.0.2.7:8554");
  const auto session = Cherche(bonne, bonne, carnet);
  ASSERT_TRUE(AttendImage(*session));
  EXPECT_EQ(carnet->Lignes(), QStringList{bonne});
  EXPECT_TRUE(session->Arrete(2s));
}

TEST(SessionParHote, ThatNobodyAnswersIsTriedToTheLast) {
  const auto carnet = std::make_shared<Carnet>();
  const auto session = Cherche(QStringLiteral("192.0.2.7"), QString(), carnet);
  EXPECT_FALSE(AttendImage(*session));
  EXPECT_EQ(carnet->Lignes().size(), AdressesPossibles(ComprendSource(QStringLiteral("192.0.2.7"))).size());
}

// With ten wrong logins in a row a camera locks our address.
TEST(SessionParHote, ARefusedLoginEndsTheSearch) {
  class FluxRefuse : public FluxImages {
   public:
    bool Ouvre() override { return false; }
    Etat Surveille(const std::stop_token&, std::chrono::milliseconds) override { return Etat::kErreur; }
    Raison Pourquoi() const override { return {Motif::kMotDePasse, {}}; }
  };
  const auto carnet = std::make_shared<Carnet>();
  SessionCapture::Demande demande;
  demande.Source = ComprendSource(QStringLiteral("admin:secret@192.0.2.7"));
  const auto session = SessionCapture::Lance(std::move(demande), [carnet](DerniereImage&, const DemandeFlux& flux) {
    carnet->Note(flux.Source.Lieu);
    return std::make_unique<FluxRefuse>();
  });
  EXPECT_FALSE(AttendImage(*session));
  EXPECT_EQ(carnet->Lignes().size(), 1);
  EXPECT_EQ(session->Pourquoi().Quoi, Motif::kMotDePasse);
}

QuestionsV4L2 UnNumeriseur(const std::shared_ptr<Carnet>& carnet) {
  QuestionsV4L2 questions;
  questions.Noeuds = [] { return QStringList{QStringLiteral("/dev/video7")}; };
  questions.Sonde = [](const QString& noeud) {
    CandidatVideo candidat;
    candidat.Noeud = noeud;
    candidat.NomBus = QStringLiteral("bus");
    return std::optional(candidat);
  };
  questions.Formats = [carnet](const QString&) {
    carnet->Note(QStringLiteral("formats"));
    return QList<FormatCamera>{{QStringLiteral("YUYV"), 640, 480, 25, 1}};
  };
  questions.Regle = [carnet](const QString&, quint32 numero, qint32 valeur) {
    carnet->Note(QStringLiteral("%1=%2").arg(numero).arg(valeur));
    return true;
  };
  return questions;
}

// Formats hang on the input, and standards too; and a device takes none of them while it is open.
TEST(SessionSurNumeriseur, SetsInputAndStandardBeforeItAsksAndOpens) {
  const auto carnet = std::make_shared<Carnet>();
  SessionCapture::Demande demande;
  demande.EntreeRetenue = [](const QString& nom) {
    return nom == QStringLiteral("bus") ? EntreeCamera{2, 5} : EntreeCamera();
  };
  const auto session = SessionCapture::Lance(
      std::move(demande),
      [carnet](DerniereImage& derniere, const DemandeFlux&) {
        carnet->Note(QStringLiteral("open"));
        return std::make_unique<FluxQuiRepond>(derniere, true);
      },
      UnNumeriseur(carnet));
  ASSERT_TRUE(AttendImage(*session));
  EXPECT_TRUE(session->Arrete(2s));
  EXPECT_EQ(carnet->Lignes(), (QStringList{"1=2", "2=5", "formats", "open"}));
}

}  // namespace
}  // namespace vaktor
