// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/streams/frame_intake.h"

#include <QScopeGuard>
#include <exception>
#include <thread>

#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/frames/pixel_conversion.h"
#include "platform/capture/streams/gst_setup.h"
#include "platform/libav/pixel_refusal.h"

namespace vaktor {
namespace {

constexpr std::chrono::milliseconds kIntervalle{40};

// Without this promise the decoders pack each frame into rows without padding before they hand it on: a copy.
GstPadProbeReturn PrometMetaVideo(GstPad*, GstPadProbeInfo* info, gpointer) {
  GstQuery* question = GST_PAD_PROBE_INFO_QUERY(info);
  if (GST_QUERY_TYPE(question) != GST_QUERY_ALLOCATION) return GST_PAD_PROBE_OK;
  if ((GST_PAD_PROBE_INFO_TYPE(info) & GST_PAD_PROBE_TYPE_PUSH) == 0) return GST_PAD_PROBE_OK;
  gst_query_add_allocation_meta(question, GST_VIDEO_META_API_TYPE, nullptr);
  return GST_PAD_PROBE_HANDLED;
}

// Somebody else's memory, who may write into it and waits for it: a device's, or that of another program, which the
// desktop hands out in a buffer of its own.
bool EstEmprunte(GstBuffer* tampon) {
  return tampon->pool != nullptr || gst_buffer_get_parent_buffer_meta(tampon) != nullptr;
}

PtrGst<GstCaps> CapsAcceptes() {
  GstCaps* caps = DonneCapsBruts();
  gst_caps_append(caps, gst_caps_new_empty_simple("image/jpeg"));
  return PtrGst<GstCaps>(caps);
}

}  // namespace

ReceptionImages::ReceptionImages(DerniereImage& fraiche, Options options)
    : Fraiche_(fraiche), Options_(std::move(options)) {}

GstElement* ReceptionImages::FabriquePuits() {
  GstElement* puits = gst_element_factory_make("appsink", nullptr);
  if (puits == nullptr) return nullptr;
  Forme_ = FormeImage();
  Abimees_ = false;
  Livree_ = false;
  TropGrande_ = false;
  const PtrGst<GstCaps> caps = CapsAcceptes();
  g_object_set(puits, "caps", caps.get(), "sync", Options_.ALHeure ? TRUE : FALSE, "max-buffers", 1U, "qos", FALSE,
               "enable-last-sample", FALSE, "wait-on-eos", FALSE, nullptr);
  GstAppSinkCallbacks rappels = {};
  rappels.new_sample = [](GstAppSink* sink, gpointer moi) { return static_cast<ReceptionImages*>(moi)->Recoit(sink); };
  gst_app_sink_set_callbacks(GST_APP_SINK(puits), &rappels, this, nullptr);
  const PtrGst<GstPad> entree(gst_element_get_static_pad(puits, "sink"));
  gst_pad_add_probe(entree.get(), GST_PAD_PROBE_TYPE_QUERY_DOWNSTREAM, PrometMetaVideo, nullptr, nullptr);
  gst_pad_add_probe(entree.get(), GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM, SuitEtiquettes, this, nullptr);
  return puits;
}

// How a film is to be held stands in its header, and comes as a tag before the first picture, on the thread of the
// pictures.
GstPadProbeReturn ReceptionImages::SuitEtiquettes(GstPad*, GstPadProbeInfo* info, gpointer moi) {
  GstEvent* evenement = GST_PAD_PROBE_INFO_EVENT(info);
  if (GST_EVENT_TYPE(evenement) != GST_EVENT_TAG) return GST_PAD_PROBE_OK;
  GstTagList* etiquettes = nullptr;
  gst_event_parse_tag(evenement, &etiquettes);
  gst_video_orientation_from_tag(etiquettes, &static_cast<ReceptionImages*>(moi)->Forme_.Orientation);
  return GST_PAD_PROBE_OK;
}

GstFlowReturn ReceptionImages::Recoit(GstAppSink* puits) {
  const PtrGst<GstSample> echantillon(gst_app_sink_pull_sample(puits));
  if (!echantillon) return GST_FLOW_EOS;
  Puits_ = GST_ELEMENT(puits);
  try {
    Traite(echantillon.get());
  } catch (const std::exception&) {
    // Above this stands C, which no exception can pass. A picture that there was no memory for is lost, as one that
    // came damaged is; where it goes on like this the camera is, for it gives none.
  }
  return GST_FLOW_OK;
}

void ReceptionImages::Traite(GstSample* echantillon) {
  GstBuffer* tampon = gst_sample_get_buffer(echantillon);
  GstCaps* caps = gst_sample_get_caps(echantillon);
  if (tampon == nullptr || caps == nullptr) return;
  if (caps != Caps_.get()) LitCaps(caps);
  Espace(tampon);
  // The driver marks a frame that it could not fill; it is no picture of anything.
  Abimees_ = true;
  if (GST_BUFFER_FLAG_IS_SET(tampon, GST_BUFFER_FLAG_CORRUPTED)) return;
  if (Brut_) {
    TraiteBrut(tampon);
  } else {
    TraiteJpeg(tampon);
  }
}

void ReceptionImages::LitCaps(GstCaps* caps) {
  Caps_.reset();  // read only once all of it is: who throws here reads it again with the next frame
  Brut_.reset();
  Format_ = FormatCamera();
  Format_.Codage = Options_.Codage.isEmpty() ? CodageDesCaps(caps) : Options_.Codage;
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  gst_structure_get_fraction(structure, "framerate", &Format_.CadenceNum, &Format_.CadenceDen);
  Forme_.PixelNum = Forme_.PixelDen = 1;
  gst_structure_get_fraction(structure, "pixel-aspect-ratio", &Forme_.PixelNum, &Forme_.PixelDen);
  GstVideoInfo info;
  if (gst_structure_has_name(structure, "video/x-raw") && gst_video_info_from_caps(&info, caps)) Brut_ = info;
  Caps_.reset(gst_caps_ref(caps));
}

void ReceptionImages::Espace(const GstBuffer* tampon) {
  if (!Options_.Intervalle || GST_CLOCK_TIME_IS_VALID(GST_BUFFER_DTS_OR_PTS(tampon))) return;
  std::this_thread::sleep_until(Derniere_ + kIntervalle);
  Derniere_ = DerniereImage::Horloge::now();
}

// As it is looked at, and no larger than the detection can hold.
QSize ReceptionImages::Retenue(QSize taille) const { return TailleRetenue(Forme_.Carree(taille)); }

// A device can still write into its buffer: the picture that is decoded would not be the one whose header was read, and
// its planes too small for it. So it is looked at in a copy.
void ReceptionImages::TraiteJpeg(GstBuffer* tampon) {
  if (EstEmprunte(tampon)) {
    if (!Agrandis(Copie_, gst_buffer_get_size(tampon))) return;
    Copie_.resize(gst_buffer_extract(tampon, 0, Copie_.data(), Copie_.size()));
    return TraiteJpeg(std::span<const quint8>(Copie_));
  }
  GstMapInfo octets;
  if (!gst_buffer_map(tampon, &octets, GST_MAP_READ)) return;
  const auto rend = qScopeGuard([&] { gst_buffer_unmap(tampon, &octets); });
  TraiteJpeg(std::span<const quint8>(octets.data, octets.size));
}

void ReceptionImages::TraiteJpeg(std::span<const quint8> jpeg) {
  const QSize taille = Jpeg_.Taille(jpeg);
  if (!taille.isEmpty()) return Livre(DecodeJpeg(jpeg, taille), taille);
  if (Jpeg_.EtaitTropGrande()) RefuseTaille();
}

// Told at once, as decoders do of what gets no memory; behind pictures that were good it is one that came damaged.
void ReceptionImages::RefuseTaille() {
  if (Livree_) return;
  TropGrande_ = true;
  RefuseTropDePixels(Puits_);
}

ImageCamera ReceptionImages::DecodeJpeg(std::span<const quint8> jpeg, QSize taille) {
  if (Jpeg_.PlansDeLImage().Format == GST_VIDEO_FORMAT_UNKNOWN || !Forme_.EstDroite()) {
    return FaisImage(taille, [&](QImage& image) { return Jpeg_.Decode(jpeg, image); });
  }
  const QSize retenue = Retenue(taille);
  if (retenue != taille) {
    // Not while it is decoded, which TurboJPEG could do: it has nothing quick for these ratios, and decoding less of
    // the picture takes longer than decoding all of it.
    return Grands_.DecodeJpeg(Jpeg_, jpeg, taille) ? ReduitPlans(Grands_.Plans(), retenue) : ImageCamera();
  }
  const std::shared_ptr<TramePlans> trame = Trames_.Prend();
  if (!trame->DecodeJpeg(Jpeg_, jpeg, taille)) return {};
  trame->Prepare();
  return ImageCamera(trame);
}

// A buffer out of a pool is a device's or another element's, who may have few of them and wait for this one: its
// picture is made at once. Any other with planes is kept as it is for as long as the frame is in use. One that is too
// large, or whose pixels are not square, is scaled now, whosever it is: nobody ever needs the rest of it, and the
// decoder gets its memory back.
void ReceptionImages::TraiteBrut(GstBuffer* tampon) {
  const QSize taille(GST_VIDEO_INFO_WIDTH(&*Brut_), GST_VIDEO_INFO_HEIGHT(&*Brut_));
  if (EstDemesuree(taille.width(), taille.height())) return RefuseTaille();
  const QSize retenue = Retenue(taille);
  const bool planaire = EstPlanaire(GST_VIDEO_INFO_FORMAT(&*Brut_)) && Forme_.EstDroite();
  if (planaire && !EstEmprunte(tampon) && retenue == taille) return Livre(GardePlans(tampon), taille);
  GstVideoFrame trame;
  if (!gst_video_frame_map(&trame, &*Brut_, tampon, GST_MAP_READ)) return;
  const auto rend = qScopeGuard([&] { gst_video_frame_unmap(&trame); });
  if (planaire && retenue != taille) return Livre(ReduitPlans(PlansDe(trame), retenue), taille);
  Livre(FaisImage(taille, [&](QImage& image) { return ConvertitImage(trame, image); }), taille);
}

ImageCamera ReceptionImages::GardePlans(GstBuffer* tampon) {
  const std::shared_ptr<TramePlans> trame = Trames_.Prend();
  if (!trame->Garde(tampon, *Brut_)) return {};
  trame->Prepare();
  return ImageCamera(trame);
}

ImageCamera ReceptionImages::ReduitPlans(const PlansImage& plans, QSize retenue) {
  const std::shared_ptr<TramePlans> trame = Trames_.Prend();
  if (!trame->Reduit(plans, retenue)) return {};
  trame->Prepare();
  return ImageCamera(trame);
}

// A picture of pixels that `fait` makes in this size; put upright, and scaled where it is too large or its pixels are
// not square. Turned films go this way whatever they are stored in: there are few of them, and planes of colour that
// are halved in width only would be halved in height only, for which there is no name.
template <typename Fait>
ImageCamera ReceptionImages::FaisImage(QSize taille, const Fait& fait) {
  const QSize retenue = Retenue(taille);
  const bool entier = retenue == taille;
  QImage* image = (entier && Forme_.EstDroite() ? Reserve_ : Grandes_).Prend(taille);
  if (image == nullptr || !fait(*image)) return {};
  if (!Forme_.EstDroite()) {
    QImage* droite = (entier ? Reserve_ : Tournees_).Prend(Forme_.Debout(taille));
    if (droite == nullptr || !RedresseImage(*image, Forme_.Orientation, *droite)) return {};
    image = droite;
  }
  if (entier) return ImageCamera(*image);
  QImage* reduite = Reserve_.Prend(Forme_.Debout(retenue));
  return reduite != nullptr && ReduitImage(*image, *reduite) ? ImageCamera(*reduite) : ImageCamera();
}

// The size told is that of the source, which the dialogs and a later opening ask it for, and not the one it may have
// been scaled to. It is the picture's own: JPEG frames may change theirs without any notice in the caps.
void ReceptionImages::Livre(const ImageCamera& image, QSize taille) {
  if (image.EstNulle()) return;
  if (Format_.Largeur != taille.width() || Format_.Hauteur != taille.height()) {
    Format_.Largeur = taille.width();
    Format_.Hauteur = taille.height();
    Fraiche_.FixeFormat(Format_);
  }
  Livree_ = true;
  Fraiche_.Depose(image);
}

}  // namespace vaktor
