// SPDX-License-Identifier: GPL-3.0-or-later
// A camera's life from its connection to its end: opens it, watches over it, and opens it again for as long as it
// takes.
#pragma once

#include <QList>
#include <QString>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/choice/named_source.h"
#include "platform/capture/devices/device_access.h"
#include "platform/capture/frames/newest_frame.h"
#include "platform/capture/streams/frame_stream.h"
#include "platform/capture/streams/gst_stream.h"

namespace vaktor {

/// A thread of its own does everything that may block: looking for the device, opening, closing. It holds the session
/// alive, so that one that hangs in the system can be left behind.
class SessionCapture : public std::enable_shared_from_this<SessionCapture> {
 public:
  using Fabrique = std::function<std::unique_ptr<FluxImages>(DerniereImage&, const DemandeFlux&)>;

  struct Demande {
    SourceCapture Source;
    /// kPeripherique: the first capture driver where this one is not plugged in.
    bool OuLePremier = false;
    /// kPeripherique: the format to open it with. Where the device refuses it, others follow unless it is imposed.
    FormatCamera Format;
    bool FormatImpose = false;
    /// A source that was already at work: a first opening that fails does not end the session, it goes on trying.
    bool Persiste = false;
    /// Makes ready what the stream needs; may take long the first time in a process. Its time is not the camera's.
    std::function<void()> Prepare;
    /// kPeripherique without a format: the one that this device is remembered with, by stable name.
    std::function<FormatCamera(const QString&)> FormatRetenu;
    /// kPeripherique: the input and the standard that it is remembered with; set each time before it is opened, since a
    /// grabber that was unplugged has forgotten them.
    std::function<EntreeCamera(const QString&)> EntreeRetenue;
  };

  static Fabrique FabriqueReelle();
  /// `questions`: how the devices are asked what there is.
  static std::shared_ptr<SessionCapture> Lance(Demande demande, Fabrique fabrique = FabriqueReelle(),
                                               const QuestionsV4L2& questions = {});
  ~SessionCapture();

  // Any thread from here on.

  /// Demande::Prepare is over: from here on a first frame comes within DelaisCapture::kConnexion or never.
  bool EstPrete() const { return Prete_; }
  /// Whether a frame has come, and whether there is any use in waiting for one.
  bool DonneDesImages() const { return Derniere_.Numero() > 0; }
  bool EstFinie() const;
  /// What was tried last gives something that nothing installed here can decode.
  bool EstSansDecodeur() const { return SansDecodeur_; }
  /// Asks for the end and waits for it. False: it still hangs; call again to wait longer.
  bool Arrete(std::chrono::milliseconds limite);

  DerniereImage& Derniere() { return Derniere_; }
  /// kPeripherique: the one that has given frames; empty until then.
  QString Noeud() const;
  QString NomStable() const;
  /// What is being tried, or has given frames: of a network camera that was named by its host, one of its addresses.
  SourceCapture Source() const;

 private:
  using Horloge = DerniereImage::Horloge;

  SessionCapture(Demande demande, Fabrique fabrique, const QuestionsV4L2& questions);
  void Deroule();
  void SansSortir(const std::function<void()>& quoi);
  bool EssaieTous();
  void Veille();
  void Rouvre(bool enBonOrdre = false);
  bool EssaieConnue();
  void Connait(const DemandeFlux& demande);
  FluxImages::Etat VeilleFlux();
  bool Essaie(const DemandeFlux& demande, Horloge::time_point limite);
  QList<DemandeFlux> Candidats();
  QList<DemandeFlux> CandidatsPeripherique(DemandeFlux demande);
  QList<DemandeFlux> CandidatsReseau() const;
  bool TrouvePeripherique(DemandeFlux& demande);
  void RegleEntree(const DemandeFlux& demande);
  void Patiente(Horloge::time_point jusqua);
  void AttendBranchement();

  const Demande Demande_;
  const Fabrique Fabrique_;
  DerniereImage Derniere_;
  std::stop_source Arret_;
  std::thread Fil_;

  // The session's thread only.
  AccesV4L2 Acces_;  // a camera that hangs must not keep another one from being found
  const QString DossierNoeuds_;
  std::unique_ptr<FluxImages> Flux_;
  std::optional<DemandeFlux> Connue_;  // has given frames; what is merely being tried never stands here
  std::unique_ptr<GuetNoeuds> Guet_;   // from the first loss of a device on
  bool Introuvable_ = false;           // the last look for the device has not found it
  Horloge::time_point Eveil_{};        // until then it is looked for at each try
  Horloge::time_point DernierEssai_{};
  bool Decrit_ = false;  // the last one that was tried had told what it sends
  std::atomic<bool> Prete_ = false;
  std::atomic<bool> SansDecodeur_ = false;

  mutable std::mutex Verrou_;
  std::condition_variable_any Change_;
  PeripheriqueVideo Connu_;
  SourceCapture Essayee_;
  bool Finie_ = false;
};

}  // namespace vaktor
