// A camera's life from its connection to its end: opens it, watches over it, and opens it again for as long as it
// takes.
#pragma once

#include <QList>
#include <QString>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>

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
  using Fabrique = std::function<std::unique_ptr<FluxImages>(BoiteImages&, const DemandeFlux&)>;

  struct Demande {
    SourceCapture Source;
    /// kPeripherique: the first capture driver where this one is not plugged in.
    bool OuLePremier = false;
    /// kPeripherique: the format to open it with. Where the device refuses it, others follow unless it is imposed.
    FormatCamera Format;
    bool FormatImpose = false;
    /// A source that was already at work: a first opening that fails does not end the session, it goes on trying.
    bool Persiste = false;
    /// kPeripherique without a format: the one that this device is remembered with, by stable name.
    std::function<FormatCamera(const QString&)> FormatRetenu;
  };

  static Fabrique FabriqueReelle();
  /// `questions`: how the devices are asked what there is.
  static std::shared_ptr<SessionCapture> Lance(Demande demande, Fabrique fabrique = FabriqueReelle(),
                                               QuestionsV4L2 questions = {});
  ~SessionCapture();

  // Any thread from here on.

  /// True as soon as a frame is there; false when the source cannot be opened or gives none in this time.
  bool AttendPremiereImage(std::chrono::milliseconds limite);
  /// The same for who cannot stand and wait: whether a frame has come, and whether there is any use in waiting.
  bool DonneDesImages() const { return Boite_.Numero() > 0; }
  bool EstFinie() const;
  /// Asks for the end and waits for it. False: it still hangs; call again to wait longer.
  bool Arrete(std::chrono::milliseconds limite);

  BoiteImages& Boite() { return Boite_; }
  QString Noeud() const;
  QString NomStable() const;

 private:
  using Horloge = BoiteImages::Horloge;

  SessionCapture(Demande demande, Fabrique fabrique, QuestionsV4L2 questions);
  void Deroule();
  void SansSortir(const std::function<void()>& quoi);
  bool OuvrePremiereFois();
  void Veille();
  void Rouvre(bool enBonOrdre = false);
  FluxImages::Etat VeilleFlux();
  bool Essaie(const DemandeFlux& demande);
  QList<DemandeFlux> Candidats();
  QList<DemandeFlux> CandidatsPeripherique(DemandeFlux demande);
  bool TrouvePeripherique(DemandeFlux& demande);
  void Patiente(Horloge::time_point jusqua);

  const Demande Demande_;
  const Fabrique Fabrique_;
  BoiteImages Boite_;
  std::stop_source Arret_;
  std::thread Fil_;

  // The session's thread only.
  AccesV4L2 Acces_;  // a camera that hangs must not keep another one from being found
  std::unique_ptr<FluxImages> Flux_;
  DemandeFlux Retenue_;
  Horloge::time_point DernierEssai_{};
  bool Decrit_ = false;  // the last one that was tried had told what it sends

  mutable std::mutex Verrou_;
  std::condition_variable_any Change_;
  QString Noeud_;
  QString NomStable_;
  bool Finie_ = false;
};

}  // namespace vaktor
