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
    /// kPeripherique: the only camera there is, where the one that is named is not plugged in.
    bool OuLaSeule = false;
    /// OuLaSeule: that one is left alone for so long.
    std::chrono::milliseconds AvantUneAutre{0};
    /// kPeripherique: the format to open it with. Where the device refuses it, others follow. One that is imposed is
    /// the only one of the first opening; the device may be plugged in elsewhere later, and offer others there.
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
    /// Takes a line for the log of the capture, on the session's thread; may be empty.
    std::function<void(const QString&)> Note;
  };

  static Fabrique FabriqueReelle();
  /// `questions`: how the devices are asked what there is.
  static std::shared_ptr<SessionCapture> Lance(Demande demande, Fabrique fabrique = FabriqueReelle(),
                                               const QuestionsV4L2& questions = {});
  ~SessionCapture();

  // Any thread from here on.

  /// Demande::Prepare is over: from here on a first frame comes within DelaisCapture::Connexion, or it is told why not.
  bool EstPrete() const { return Prete_; }
  /// Whether a frame has come, and whether there is any use in waiting for one.
  bool DonneDesImages() const { return Donnees_; }
  bool EstFinie() const;
  /// Why what was tried last gave no frame.
  Raison Pourquoi() const;
  /// Asks for the end and waits for it. False: it still hangs; call again to wait longer.
  bool Arrete(std::chrono::milliseconds limite);

  DerniereImage& Derniere() { return Derniere_; }
  /// kPeripherique: the one that has given frames; empty until then.
  QString Noeud() const;
  QString NomStable() const;
  /// What is being tried, or has given frames: of a network camera that was named by its host, one of its addresses.
  SourceCapture Source() const;
  /// It is another camera than the one that was named (Demande::OuLaSeule).
  bool EstAutre() const;

 private:
  using Horloge = DerniereImage::Horloge;

  SessionCapture(Demande demande, Fabrique fabrique, const QuestionsV4L2& questions);
  void Deroule();
  void SansSortir(const std::function<void()>& quoi);
  bool EssaieTous();
  void Veille();
  void Rouvre(bool enBonOrdre = false);
  void Connait(const DemandeFlux& demande);
  FluxImages::Etat VeilleFlux();
  std::optional<Raison> Essaie(const DemandeFlux& demande, Horloge::time_point limite, Horloge::time_point fin,
                               bool seuleAdresse);
  bool EstDonneeParLeBureau(const QString& lieu) const;
  Raison PourquoiAucun() const;
  bool EstUneCameraIci() const;
  Raison Approfondit(const Raison& raison) const;
  void Retient(const Raison& raison);
  QList<DemandeFlux> Candidats();
  QList<DemandeFlux> CandidatsPeripherique(DemandeFlux demande);
  static QList<DemandeFlux> CandidatsReseau(const SourceCapture& hote);
  bool TrouvePeripherique(DemandeFlux& demande);
  void RegleEntree(const DemandeFlux& demande);
  std::optional<PeripheriqueVideo> ChoisitPeripherique(DemandeFlux& demande);
  void Note(const QString& ligne) const;
  void Patiente(Horloge::time_point jusqua);
  void AttendBranchement();

  const Demande Demande_;
  const Horloge::time_point Debut_ = Horloge::now();
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
  FluxImages::Etat Vu_ = FluxImages::Etat::kCoule;  // what the last look of an opening has found
  bool EnSerie_ = false;                            // it came to its end in good order, and opens again
  bool Decrit_ = false;                             // the last one that was tried had told what it sends
  std::atomic<bool> Prete_ = false;
  std::atomic<bool> Donnees_ = false;  // behind what is known of the camera: who sees it can ask for that

  mutable std::mutex Verrou_;
  std::condition_variable_any Change_;
  PeripheriqueVideo Connu_;
  SourceCapture Essayee_;
  bool Autre_ = false;
  Raison Raison_;
  bool Finie_ = false;
};

}  // namespace vaktor
