// SPDX-License-Identifier: GPL-3.0-or-later
// The capture driver of this system: Linux devices, network cameras and video files through GStreamer, and the built-in
// test picture.
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "engine/ports/capture_driver.h"
#include "platform/capture/devices/device_access.h"
#include "platform/capture/dialogs/driver_commands.h"
#include "platform/capture/driver/capture_session.h"
#include "texts/language.h"

namespace vaktor {

class DialogueSource;
class MemoireCapture;
enum class Gestes;

class PiloteGStreamer : public PiloteCapture, public CommandesPilote {
 public:
  /// `ou`: the source named at the start (named_source.h); empty: the remembered one, else the first capture driver.
  /// `memoire` must outlive the driver. `langue`: the language of the dialogs when they are opened. `parent`: their
  /// window, may be null. `note` takes the lines of the log, on any thread; may be empty.
  PiloteGStreamer(const QString& ou, MemoireCapture& memoire, std::function<Langue()> langue, QWidget* parent,
                  std::function<void(const QString&)> note = {});
  ~PiloteGStreamer() override;

  bool Connecte() override;
  void ConnecteSansAttendre() override;
  QString Explication() const override;
  QString AutreCamera() const override;
  void Deconnecte() override;
  bool ImagePrete() const override;
  bool SaisitImage() override;
  void AttendImage(std::function<void()> reveil) override;
  bool EstReprise() const override { return EstReprise_; }
  ImageCamera CopieTrame() const override;
  bool SignalPerdu() const override;
  void MontreDialogueFormat() override;
  void MontreDialogueSource() override;

  GenreSource Genre() const override;
  QString DescriptionSource() const override;
  QString AdresseEnService() const override;
  QString NoeudPeripherique() const override;
  QString NomStable() const override;
  FormatCamera FormatCourant() const override;
  bool AppliqueFormat(const FormatCamera& format) override;
  bool ChangeSource(const QString& source) override;
  void Abandonne() override;
  Raison Pourquoi() const override;

 private:
  static QuestionsV4L2 Questions();
  bool Ouvre(SessionCapture::Demande demande, Gestes gestes);
  void LanceSession(SessionCapture::Demande demande);
  bool ProposeSources();
  bool EstRetenue() const;
  bool ConnaitLaVoulue();
  void LaissePartir();
  void SuitSonnette();
  bool AttendLesPartants(std::chrono::milliseconds limite);
  bool SontPartis();
  SessionCapture::Demande DemandeVoulue() const;
  SessionCapture::Demande DemandeDe(const SourceCapture& source) const;
  void NoteEnService();
  void Reprend(quint64 tour);

  QString Ou_;
  MemoireCapture& Memoire_;
  std::function<Langue()> Langue_;
  QPointer<QWidget> Parent_;
  const std::function<void(const QString&)> Note_;
  // The dialogs'; here, because which devices hang is to be known from one to the next.
  AccesV4L2 Acces_{Questions(), {}};
  SourceCapture Source_;                     // of the session: being tried, or at work
  std::shared_ptr<SessionCapture> Session_;  // null: the signal is lost
  // What has given frames since the camera was switched on, so that it can be had back. A session that is only being
  // tried never stands here.
  std::optional<SessionCapture::Demande> EnService_;
  Raison Raison_;                                          // of the last opening that failed
  QPointer<DialogueSource> Question_;                      // open while the user is asked for a source to connect
  std::vector<std::shared_ptr<SessionCapture>> Partants_;  // asked to end, not ended yet
  ImageCamera Image_;
  quint64 Numero_ = 0;
  quint64 Reprises_ = 0;
  bool EstReprise_ = false;
  std::function<void()> Reveil_;  // whoever waits for the next frame
  EcouteSonnette Ecoute_{[this] { SuitSonnette(); }};
  QTimer Relecture_;      // of a memory that cannot be read, while nobody is there to be told
  bool Abandon_ = false;  // of the opening that waits
  quint64 Tour_ = 0;  // changes with each opening and closing: an opening that waits sees that it is no longer wanted
};

}  // namespace vaktor
