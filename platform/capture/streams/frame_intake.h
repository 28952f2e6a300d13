// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a pipeline: takes what comes out, turns it into a picture and lays it in the box.
#pragma once

#include <gst/app/gstappsink.h>
#include <gst/video/video.h>

#include <atomic>
#include <optional>

#include "platform/capture/frames/jpeg_decoder.h"
#include "platform/capture/frames/newest_frame.h"
#include "platform/capture/frames/picture_shape.h"
#include "platform/capture/frames/plane_frame.h"
#include "platform/capture/streams/gst_setup.h"

namespace vaktor {

/// Makes the sink; its frames come on the pipeline's own thread. Must outlive the pipeline that it is put into.
class ReceptionImages {
 public:
  struct Options {
    bool ALHeure = false;     ///< frames wait for their time stamp (files), else they come as they are there
    bool Intervalle = false;  ///< frames without a time stamp are spaced, 25 a second
    QString Codage;           ///< what the format is told as; empty: what arrives here
  };

  ReceptionImages(DerniereImage& fraiche, Options options);

  /// The sink, floating: the pipeline that takes it owns it. Accepts the raw formats of pixel_conversion.h and
  /// JPEG.
  GstElement* FabriquePuits();
  /// Pictures have come, and not one that could be looked at: damaged, all of them. Any thread.
  bool NeRecoitQueDesAbimees() const { return Abimees_ && !Livree_; }
  /// One was refused for its size, which is posted as an error too: a film may be at its end before that is read. Any
  /// thread.
  bool ARefuseUneTaille() const { return TropGrande_; }

 private:
  GstFlowReturn Recoit(GstAppSink* puits);
  void Traite(GstSample* echantillon);
  void TraiteJpeg(GstBuffer* tampon);
  void TraiteJpeg(std::span<const quint8> jpeg);
  void RefuseTaille();
  ImageCamera DecodeJpeg(std::span<const quint8> jpeg, QSize taille);
  void TraiteBrut(GstBuffer* tampon);
  ImageCamera GardePlans(GstBuffer* tampon);
  ImageCamera ReduitPlans(const PlansImage& plans, QSize retenue);
  template <typename Fait>
  ImageCamera FaisImage(QSize taille, const Fait& fait);
  void LitCaps(GstCaps* caps);
  QSize Retenue(QSize taille) const;
  static GstPadProbeReturn SuitEtiquettes(GstPad* pad, GstPadProbeInfo* info, gpointer moi);
  void Espace(const GstBuffer* tampon);
  void Livre(const ImageCamera& image, QSize taille);

  DerniereImage& Fraiche_;
  const Options Options_;
  ReserveImages Reserve_;
  ReserveTrames Trames_;
  ReserveImages Grandes_;   // pictures before they are turned and scaled
  ReserveImages Tournees_;  // turned, before they are scaled
  PlansPropres Grands_;     // a JPEG picture before it is scaled
  std::vector<quint8> Copie_;
  FormeImage Forme_;
  DecodeurJpeg Jpeg_;
  GstElement* Puits_ = nullptr;        // the pipeline's, while a frame of it is here
  std::atomic<bool> Abimees_ = false;  // of this opening
  std::atomic<bool> Livree_ = false;
  std::atomic<bool> TropGrande_ = false;
  PtrGst<GstCaps> Caps_;
  std::optional<GstVideoInfo> Brut_;
  FormatCamera Format_;
  DerniereImage::Horloge::time_point Derniere_{};
};

}  // namespace vaktor
