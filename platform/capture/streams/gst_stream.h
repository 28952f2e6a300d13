// SPDX-License-Identifier: GPL-3.0-or-later
// A stream through GStreamer: a device, a network camera or a video file.
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
  bool Udp = false;     ///< rtsp: data by UDP instead of within the connection
  /// rtsp: another way will be tried after this one, so that a camera that has told what it sends and then sends
  /// nothing is given up soon.
  bool AutreChemin = false;
};

/// Made, opened, watched and closed by one thread; GStreamer's own threads bring the frames.
class FluxGStreamer : public FluxImages {
 public:
  FluxGStreamer(DerniereImage& derniere, const DemandeFlux& demande);
  ~FluxGStreamer() override;

  bool Ouvre() override;
  Etat Surveille(const std::stop_token& arret, std::chrono::milliseconds delai) override;
  bool EstDecrit() const override { return Annonce_ != 0; }
  bool EstSansDecodeur() const override { return SansDecodeur_; }

 private:
  bool MontePeripherique();
  bool MonteReseau();
  bool MonteRtsp();
  bool MonteFichier();
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
  bool EstEnLecture(const std::stop_token& arret) const;

  bool EstSansSuite() const;

  static gboolean ChoisitFlux(GstElement* source, guint numero, GstCaps* caps, FluxGStreamer* moi);
  static void RelieRtp(GstElement* source, GstPad* sortie, FluxGStreamer* moi);
  static void RemarqueDemultiplexeur(GstBin* decodage, GstElement* element, FluxGStreamer* moi);
  static void RelieDecode(GstElement* decodage, GstPad* sortie, FluxGStreamer* moi);

  const DemandeFlux Demande_;
  ReceptionImages Reception_;
  PtrGst<GstElement> Pipeline_;
  PtrGst<GstBus> Bus_;
  GstElement* Puits_ = nullptr;      // the pipeline's
  GstElement* Decodage_ = nullptr;   // the pipeline's; rtsp only
  std::atomic<qint64> Annonce_ = 0;  // rtsp: when the camera had told what it sends, ms of the steady clock; 0: not yet
  std::atomic<bool> Recoit_ = false;  // rtsp: something came
  std::atomic<bool> Relie_ = false;
  std::atomic<bool> Bouclable_ = false;
  bool EnBoucle_ = false;
  // Found out by an opening, for the next one.
  bool SansBoucle_ = false;
  bool SansDecodeur_ = false;
};

}  // namespace vaktor
