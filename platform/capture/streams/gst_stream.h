// SPDX-License-Identifier: GPL-3.0-or-later
// A stream through GStreamer: a device, a camera of the desktop or of the network, or a video file.
#pragma once

#include <atomic>
#include <memory>

#include "platform/capture/choice/named_source.h"
#include "platform/capture/streams/frame_intake.h"
#include "platform/capture/streams/frame_stream.h"

namespace vaktor {

struct DemandeFlux {
  SourceCapture Source;
  QString Noeud;        ///< kPeripherique: the node
  QString NomStable;    ///< kPeripherique: the name by which it is found again; empty where it has none
  FormatCamera Format;  ///< kPeripherique: what to ask it for; empty: whatever it stands at
  bool Autre = false;   ///< kPeripherique: another one than was named
  bool Udp = false;     ///< rtsp: data by UDP instead of within the connection
  bool operator==(const DemandeFlux&) const = default;
};

/// Made, opened, watched and closed by one thread; GStreamer's own threads bring the frames.
class FluxGStreamer : public FluxImages {
 public:
  FluxGStreamer(DerniereImage& derniere, const DemandeFlux& demande);
  ~FluxGStreamer() override;

  bool Ouvre() override;
  Etat Surveille(const std::stop_token& arret, std::chrono::milliseconds delai) override;
  bool EstDecrit() const override { return Decrit_; }
  bool Recoit() const override { return Recoit_; }
  Raison Pourquoi() const override;

 private:
  bool MontePeripherique();
  bool MonteReseau();
  bool MonteRtsp();
  bool MonteFichier();
  bool MonteBureau();
  bool MonteSource();
  GstElement* Ajoute(const char* fabrique);
  GstElement* AjouteDecodage();
  bool Lance();
  void Ferme();
  Etat TraiteMessage(GstMessage* message, const std::stop_token& arret);
  Etat TraiteErreur(GstMessage* message);
  Etat Recommence();
  Etat CommenceLaBoucle();
  Etat ReprendLaBoucle(const std::stop_token& arret);
  bool EstAbandonne() const;
  bool EstEnLecture(const std::stop_token& arret) const;
  void NoteRaison(const Raison& raison);
  void DemandePourquoi();

  static gboolean ChoisitFlux(GstElement* source, guint numero, GstCaps* caps, FluxGStreamer* moi);
  static GstPadProbeReturn RemarqueDonnees(GstPad* sortie, GstPadProbeInfo* quoi, gpointer moi);
  static void RelieRtp(GstElement* source, GstPad* sortie, FluxGStreamer* moi);
  static void RemarqueDemultiplexeur(GstBin* decodage, GstElement* element, FluxGStreamer* moi);
  static void RemarqueToutVu(GstElement* decodage, FluxGStreamer* moi);
  static void RelieDecode(GstElement* decodage, GstPad* sortie, FluxGStreamer* moi);

  const DemandeFlux Demande_;
  ReceptionImages Reception_;
  PtrGst<GstElement> Pipeline_;
  PtrGst<GstBus> Bus_;
  GstElement* Puits_ = nullptr;       // the pipeline's
  GstElement* Decodage_ = nullptr;    // the pipeline's; none where nothing is decoded
  std::atomic<bool> Decrit_ = false;  // rtsp: the camera has told what it sends
  std::atomic<bool> Recoit_ = false;  // from the network: something came
  std::atomic<bool> Relie_ = false;
  std::atomic<bool> Bouclable_ = false;
  bool EnBoucle_ = false;
  // Found out by an opening, for the next one.
  bool SansBoucle_ = false;
  Raison Raison_;
};

}  // namespace vaktor
