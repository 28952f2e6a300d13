// SPDX-License-Identifier: GPL-3.0-or-later
// A session over streams that the test plays.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/capture/driver/capture_session.h"

namespace vaktor::essai {

using namespace std::chrono_literals;

// What the streams of one session do, one after the other.
struct Scenario {
  enum class Suite {
    kRefuse,
    kMuet,
    kCale,
    kErreur,
    kFin,
    kCoule,
    kSansMemoire,
    kPlusDeMemoire,
    kUneImage,    // one picture and, with it, the end, which is told once
    kBavard,      // something comes, and never a picture
    kMotDePasse,  // the login is refused
    kOccupee,
  };

  std::mutex Verrou;
  std::vector<Suite> Suites;
  std::vector<DerniereImage::Horloge::time_point> Ouvertures;
  std::atomic<int> Vivants = 0;

  Suite Prochaine() {
    const std::lock_guard verrou(Verrou);
    Ouvertures.push_back(DerniereImage::Horloge::now());
    const size_t rang = std::min(Ouvertures.size(), Suites.size()) - 1;
    return Suites[rang];
  }
  size_t Nombre() {
    const std::lock_guard verrou(Verrou);
    return Ouvertures.size();
  }
};

class FluxJoue : public FluxImages {
 public:
  FluxJoue(DerniereImage& derniere, std::shared_ptr<Scenario> scenario)
      : Derniere_(derniere), Scenario_(std::move(scenario)) {
    ++Scenario_->Vivants;
  }
  ~FluxJoue() override { --Scenario_->Vivants; }

  bool Ouvre() override {
    Suite_ = Scenario_->Prochaine();
    if (Suite_ == Scenario::Suite::kSansMemoire) throw std::bad_alloc();
    return Suite_ != Scenario::Suite::kRefuse && Suite_ != Scenario::Suite::kMotDePasse &&
           Suite_ != Scenario::Suite::kOccupee;
  }
  bool Recoit() const override { return Suite_ == Scenario::Suite::kBavard; }
  bool EstDecrit() const override { return Suite_ != Scenario::Suite::kMotDePasse; }
  Raison Pourquoi() const override {
    if (Suite_ == Scenario::Suite::kMotDePasse) return {Motif::kMotDePasse, {}};
    return {Suite_ == Scenario::Suite::kOccupee ? Motif::kOccupee : Motif::kInconnu, {}};
  }
  Etat Surveille(const std::stop_token& arret, std::chrono::milliseconds delai) override {
    if (Suite_ == Scenario::Suite::kUneImage && Images_ == 0) {
      ++Images_;
      Derniere_.Depose(QImage(4, 4, QImage::Format_RGB32));
      return Etat::kFini;
    }
    const bool donne = Suite_ != Scenario::Suite::kUneImage && Suite_ != Scenario::Suite::kMuet &&
                       Suite_ != Scenario::Suite::kBavard && (Images_ < 3 || Suite_ == Scenario::Suite::kCoule);
    if (donne) {
      ++Images_;
      Derniere_.Depose(QImage(4, 4, QImage::Format_RGB32));
    } else if (Suite_ == Scenario::Suite::kPlusDeMemoire) {
      throw std::bad_alloc();
    } else if (Suite_ == Scenario::Suite::kErreur) {
      return Etat::kErreur;
    } else if (Suite_ == Scenario::Suite::kFin) {
      return Etat::kFini;
    }
    std::unique_lock verrou(Verrou_);
    Reveil_.wait_for(verrou, arret, donne ? std::min<std::chrono::milliseconds>(delai, 20ms) : delai,
                     [] { return false; });
    return Etat::kCoule;
  }

 private:
  DerniereImage& Derniere_;
  std::shared_ptr<Scenario> Scenario_;
  Scenario::Suite Suite_ = Scenario::Suite::kCoule;
  int Images_ = 0;
  std::mutex Verrou_;
  std::condition_variable_any Reveil_;
};

inline std::shared_ptr<SessionCapture> Joue(const std::shared_ptr<Scenario>& scenario, const QString& source,
                                            bool persiste = false) {
  SessionCapture::Demande demande;
  demande.Source = ComprendSource(source);
  demande.Persiste = persiste;
  return SessionCapture::Lance(std::move(demande), [scenario](DerniereImage& derniere, const DemandeFlux&) {
    return std::make_unique<FluxJoue>(derniere, scenario);
  });
}

inline bool Attends(const std::function<bool()>& condition, std::chrono::milliseconds limite) {
  const auto fin = DerniereImage::Horloge::now() + limite;
  while (!condition() && DerniereImage::Horloge::now() < fin) std::this_thread::sleep_for(10ms);
  return condition();
}

/// As the driver waits: until a frame is there, or there will be none.
inline bool DonneUneImage(const SessionCapture& session, std::chrono::milliseconds limite) {
  Attends([&] { return session.DonneDesImages() || session.EstFinie(); }, limite);
  return session.DonneDesImages();
}

inline const QString kReseau = QStringLiteral("http://localhost/x");

}  // namespace vaktor::essai
