// SPDX-License-Identifier: GPL-3.0-or-later
// A camera whose pictures the test paints. A new one is there at each tick, or only when the test lets it come.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "engine/ports/capture_driver.h"
#include "fakes/journal.h"

namespace vaktor::faux {

class PiloteFaux : public PiloteCapture {
 public:
  explicit PiloteFaux(Journal& journal) : Journal_(journal) {}

  bool Connecte() override {
    Journal_.Note([] { return QStringLiteral("Connecte"); });
    if (Connecte_) Deconnecte();
    Connecte_ = Presente;
    if (PendantConnexion) PendantConnexion();
    return Connecte_;
  }
  void ConnecteSansAttendre() override {
    Journal_.Note([] { return QStringLiteral("ConnecteSansAttendre"); });
    Connecte_ = true;
  }
  QString Explication() const override { return Refus; }
  QString AutreCamera() const override { return Autre; }
  void Deconnecte() override {
    Journal_.Note([] { return QStringLiteral("Deconnecte"); });
    if (PendantDeconnexion) PendantDeconnexion();
    Connecte_ = false;
    Reveil_ = nullptr;
  }
  bool ImagePrete() const override { return Presente && (ParArrivee ? Arrivee_ : !Muette); }
  bool SaisitImage() override {
    Journal_.Note([] { return QStringLiteral("SaisitImage"); });
    ++Saisies;
    if (!ImagePrete()) return false;
    Arrivee_ = false;
    Reveil_ = nullptr;
    EstReprise_ = std::exchange(Reprise, false);
    Saisie_ = Suivante ? Suivante() : Image;
    return true;
  }
  void AttendImage(std::function<void()> reveil) override {
    Journal_.Note([] { return QStringLiteral("AttendImage"); });
    Reveil_ = std::move(reveil);
  }
  bool EstReprise() const override { return EstReprise_; }
  ImageCamera CopieTrame() const override {
    Journal_.Note([] { return QStringLiteral("CopieTrame"); });
    return SuivanteDifferee != nullptr ? ImageCamera(SuivanteDifferee) : ImageCamera(Saisie_);
  }
  bool SignalPerdu() const override { return Perdu; }
  void MontreDialogueFormat() override {
    Journal_.Note([] { return QStringLiteral("DialogueFormat"); });
    if (PendantDialogue) PendantDialogue();
  }
  void MontreDialogueSource() override {
    Journal_.Note([] { return QStringLiteral("DialogueSource"); });
    if (PendantDialogue) PendantDialogue();
  }

  bool EstConnecte() const { return Connecte_; }
  bool EstAttendue() const { return Reveil_ != nullptr; }
  /// ParArrivee: the camera gives a frame, and wakes whoever waits for one.
  void Arrive() {
    Arrivee_ = true;
    if (const std::function<void()> reveil = std::exchange(Reveil_, nullptr)) reveil();
  }

  bool Presente = true;                             ///< Connecte succeeds
  QString Autre;                                    ///< AutreCamera
  QString Refus;                                    ///< why Connecte fails, as the driver words it
  bool Muette = false;                              ///< there is no newer frame
  bool ParArrivee = false;                          ///< a newer frame is there only after each Arrive
  bool Reprise = false;                             ///< the next frame is the first after a reconnection
  bool Perdu = false;                               ///< SignalPerdu
  QImage Image;                                     ///< the frame that the next grab takes
  std::function<QImage()> Suivante;                 ///< if set, asked for a frame at each grab instead
  std::shared_ptr<TrameDifferee> SuivanteDifferee;  ///< if set, given as the frame that was grabbed
  std::function<void()> PendantDialogue;            ///< runs while one of the dialogs is open
  std::function<void()> PendantConnexion;           ///< runs while Connecte waits for a first frame
  std::function<void()> PendantDeconnexion;         ///< runs at the beginning of Deconnecte; may throw
  qint32 Saisies = 0;

 private:
  Journal& Journal_;
  QImage Saisie_;
  std::function<void()> Reveil_;
  bool Arrivee_ = false;
  bool EstReprise_ = false;
  bool Connecte_ = false;
};

}  // namespace vaktor::faux
