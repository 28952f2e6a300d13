// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/streams/gst_stream.h"

#include <QUrl>

#include "engine/signal_loss.h"
#include "platform/capture/frames/pixel_conversion.h"
#include "platform/capture/streams/desktop_cameras.h"
#include "platform/capture/streams/gst_setup.h"
#include "platform/capture/streams/reason_probe.h"
#include "platform/capture/streams/stream_size.h"

namespace vaktor {
namespace {

// Without a byte, in seconds. A slow camera may be silent for so long; how long is too long is judged by its pictures.
constexpr guint kDelaiHttp = PerteSignal::kMaximum / 1000;
constexpr guint64 kDelaiUdp = guint64{PerteSignal::kMaximum} * 1000;  // the same of rtsp's packets, in microseconds
constexpr guint kLatenceRtsp = 100;  // ms to put packets back into order; frames are shown as they come
// For a film whose first turn is over already. Only one without any picture takes all of the looks.
constexpr GstClockTime kRegardLecture = 50 * GST_MSECOND;
constexpr int kRegardsLecture = 40;

ReceptionImages::Options OptionsDe(const DemandeFlux& demande) {
  ReceptionImages::Options options;
  // A file plays at its own rate. So does a film that a web server sends; the pictures of a web camera carry no time
  // and come as they are sent.
  options.ALHeure =
      demande.Source.Genre == GenreSource::kFichier || demande.Source.Lieu.startsWith(QLatin1String("http"));
  options.Intervalle = demande.Source.Genre == GenreSource::kFichier;
  if (demande.Source.Genre == GenreSource::kPeripherique) options.Codage = demande.Format.Codage;
  return options;
}

void FixeTexte(GstElement* element, const char* propriete, const QString& valeur) {
  if (!valeur.isEmpty()) g_object_set(element, propriete, valeur.toUtf8().constData(), nullptr);
}

// The end of a wait for messages when a stop is asked for.
void ReveilleBus(GstBus* bus) {
  gst_bus_post(bus, gst_message_new_application(nullptr, gst_structure_new_empty("arret")));
}

// Whether what these caps tell can go straight into the sink.
bool EstDirect(const GstCaps* caps) {
  const GstStructure* structure = gst_caps_get_structure(caps, 0);
  if (gst_structure_has_name(structure, "image/jpeg")) return true;
  const char* format = gst_structure_get_string(structure, "format");
  return format != nullptr && FormatConvertible(gst_video_format_from_string(format));
}

// Compares as a search wants it: 0 for what is looked for. One that has stopped reading and has nothing to give.
gint EstDemultiplexeurArrete(gconstpointer valeur, gconstpointer) {
  auto* element = static_cast<GstElement*>(g_value_get_object(static_cast<const GValue*>(valeur)));
  const bool demultiplexe =
      gst_element_factory_list_is_type(gst_element_get_factory(element), GST_ELEMENT_FACTORY_TYPE_DEMUXER) != FALSE;
  if (!demultiplexe || element->numsrcpads > 0) return 1;
  const PtrGst<GstPad> entree(gst_element_get_static_pad(element, "sink"));
  return entree && gst_pad_get_task_state(entree.get()) == GST_TASK_PAUSED ? 0 : 1;
}

}  // namespace

FluxGStreamer::FluxGStreamer(DerniereImage& derniere, const DemandeFlux& demande)
    : Demande_(demande), Reception_(derniere, OptionsDe(demande)) {}

FluxGStreamer::~FluxGStreamer() { Ferme(); }

bool FluxGStreamer::Ouvre() {
  if (!PrepareGStreamer()) return false;
  Relie_ = false;
  Bouclable_ = false;
  EnBoucle_ = false;
  Decrit_ = false;
  Recoit_ = false;
  Pipeline_.reset(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
  Bus_.reset(gst_element_get_bus(Pipeline_.get()));
  Puits_ = Reception_.FabriquePuits();
  if (Puits_ != nullptr) gst_bin_add(GST_BIN(Pipeline_.get()), Puits_);
  if (Puits_ != nullptr && MonteSource() && Lance()) return true;
  if (const PtrGst<GstMessage> erreur{gst_bus_pop_filtered(Bus_.get(), GST_MESSAGE_ERROR)})
    NoteRaison(LitRaison(erreur.get()));
  DemandePourquoi();
  Ferme();
  return false;
}

bool FluxGStreamer::MonteSource() {
  switch (Demande_.Source.Genre) {
    case GenreSource::kPeripherique:
      return MontePeripherique();
    case GenreSource::kReseau:
      return MonteReseau();
    case GenreSource::kFichier:
      return MonteFichier();
    case GenreSource::kBureau:
      return MonteBureau();
    case GenreSource::kTest:
      break;
  }
  return false;
}

GstElement* FluxGStreamer::Ajoute(const char* fabrique) {
  GstElement* element = gst_element_factory_make(fabrique, nullptr);
  if (element == nullptr) return nullptr;
  gst_bin_add(GST_BIN(Pipeline_.get()), element);
  return element;
}

GstElement* FluxGStreamer::AjouteDecodage() {
  GstElement* decodage = Ajoute("decodebin");
  if (decodage == nullptr) return nullptr;
  ChoisitDecodeurs(decodage, Demande_.Source.Genre == GenreSource::kReseau);
  g_signal_connect(decodage, "pad-added", G_CALLBACK(RelieDecode), this);
  g_signal_connect(decodage, "no-more-pads", G_CALLBACK(RemarqueToutVu), this);
  g_signal_connect(decodage, "element-added", G_CALLBACK(RemarqueDemultiplexeur), this);
  Decodage_ = decodage;
  return decodage;
}

// Straight from the driver's buffers to the conversion when the device gives what is converted here: no thread and no
// queue between them.
bool FluxGStreamer::MontePeripherique() {
  const PtrGst<GstCaps> caps = CapsDuFormat(Demande_.Format);
  GstElement* source = Ajoute("v4l2src");
  if (source == nullptr || !caps) return false;
  FixeTexte(source, "device", Demande_.Noeud);
  const bool direct = gst_caps_is_any(caps.get()) || EstDirect(caps.get());
  GstElement* suite = direct ? Puits_ : AjouteDecodage();
  return suite != nullptr && gst_element_link_filtered(source, suite, caps.get()) != FALSE;
}

bool FluxGStreamer::MonteFichier() {
  GstElement* source = Ajoute("filesrc");
  GstElement* decodage = AjouteDecodage();
  if (source == nullptr || decodage == nullptr) return false;
  FixeTexte(source, "location", Demande_.Source.Lieu);
  return gst_element_link(source, decodage) != FALSE;
}

bool FluxGStreamer::MonteBureau() {
  GstElement* camera = FabriqueCameraBureau(Demande_.Source.Lieu);
  if (camera == nullptr) return false;
  gst_bin_add(GST_BIN(Pipeline_.get()), camera);
  GstElement* decodage = AjouteDecodage();
  const PtrGst<GstCaps> caps(CapsDuBureau());
  return decodage != nullptr && gst_element_link_filtered(camera, decodage, caps.get()) != FALSE;
}

bool FluxGStreamer::MonteReseau() {
  // What is no address would only make the network elements complain on the console.
  const QUrl adresse(Demande_.Source.Lieu);
  if (!adresse.isValid() || adresse.host().isEmpty()) return false;
  if (Demande_.Source.Lieu.startsWith(QLatin1String("rtsp"))) return MonteRtsp();
  GstElement* source = Ajoute("souphttpsrc");
  GstElement* decodage = AjouteDecodage();
  if (source == nullptr || decodage == nullptr) return false;
  FixeTexte(source, "location", Demande_.Source.Lieu);
  FixeTexte(source, "user-id", Demande_.Source.Utilisateur);
  FixeTexte(source, "user-pw", Demande_.Source.MotDePasse);
  g_object_set(source, "timeout", kDelaiHttp, "retries", 0, nullptr);
  const PtrGst<GstPad> sortie(gst_element_get_static_pad(source, "src"));
  gst_pad_add_probe(sortie.get(), GST_PAD_PROBE_TYPE_BUFFER, RemarqueDonnees, this, nullptr);
  return gst_element_link(source, decodage) != FALSE;
}

bool FluxGStreamer::MonteRtsp() {
  GstElement* source = Ajoute("rtspsrc");
  GstElement* decodage = AjouteDecodage();
  if (source == nullptr || decodage == nullptr) return false;
  FixeTexte(source, "location", Demande_.Source.Lieu);
  FixeTexte(source, "user-id", Demande_.Source.Utilisateur);
  FixeTexte(source, "user-pw", Demande_.Source.MotDePasse);
  gst_util_set_object_arg(G_OBJECT(source), "protocols", Demande_.Udp ? "udp-mcast+udp" : "tcp");
  g_object_set(source, "latency", kLatenceRtsp, "timeout", kDelaiUdp, nullptr);
  g_signal_connect(source, "select-stream", G_CALLBACK(ChoisitFlux), this);
  g_signal_connect(source, "pad-added", G_CALLBACK(RelieRtp), this);
  return true;
}

gboolean FluxGStreamer::ChoisitFlux(GstElement* source, guint numero, GstCaps* caps, FluxGStreamer* moi) {
  moi->Decrit_ = true;
  return EstFluxVideo(source, numero, caps, nullptr);
}

GstPadProbeReturn FluxGStreamer::RemarqueDonnees(GstPad*, GstPadProbeInfo*, gpointer moi) {
  static_cast<FluxGStreamer*>(moi)->Recoit_ = true;
  return GST_PAD_PROBE_REMOVE;
}

// Comes with the first packet of a stream.
void FluxGStreamer::RelieRtp(GstElement*, GstPad* sortie, FluxGStreamer* moi) {
  moi->Recoit_ = true;
  const PtrGst<GstPad> entree(gst_element_get_static_pad(moi->Decodage_, "sink"));
  if (!gst_pad_is_linked(entree.get())) gst_pad_link(sortie, entree.get());
}

void FluxGStreamer::RemarqueDemultiplexeur(GstBin*, GstElement* element, FluxGStreamer* moi) {
  // Those that play segments well. Others refuse them, lose the time, or never tell the end of one.
  for (const char* connu : {"avidemux", "qtdemux", "matroskademux"}) {
    if (EstDeFabrique(element, connu)) moi->Bouclable_ = true;
  }
}

// Words, or sounds, and nothing that is shown: of a page of the camera itself decodebin makes no error.
void FluxGStreamer::RemarqueToutVu(GstElement* decodage, FluxGStreamer* moi) {
  if (moi->Relie_) return;
  const std::unique_ptr<GError, decltype(&g_error_free)> erreur(
      g_error_new_literal(GST_STREAM_ERROR, GST_STREAM_ERROR_WRONG_TYPE, "no picture"), g_error_free);
  gst_element_post_message(decodage, gst_message_new_error(GST_OBJECT(decodage), erreur.get(), nullptr));
}

void FluxGStreamer::RelieDecode(GstElement*, GstPad* sortie, FluxGStreamer* moi) {
  PtrGst<GstCaps> caps(gst_pad_get_current_caps(sortie));
  // A decoder may be shown before it knows its format: then a conversion stands by, and does nothing if not needed.
  if (!caps) caps.reset(gst_pad_query_caps(sortie, nullptr));
  if (!caps || !EstVideo(caps.get()) || moi->Relie_.exchange(true)) return;
  GstElement* suite = moi->Puits_;
  if (!EstDirect(caps.get())) {
    suite = moi->Ajoute("videoconvert");
    if (suite == nullptr) return;
    g_object_set(suite, "n-threads", 1U, nullptr);
    gst_element_link(suite, moi->Puits_);
    gst_element_sync_state_with_parent(suite);
  }
  const PtrGst<GstPad> entree(gst_element_get_static_pad(suite, "sink"));
  gst_pad_link(sortie, entree.get());
}

// A file waits for its first frame before it plays: the loop is a segment, and that has to be asked for before.
bool FluxGStreamer::Lance() {
  const bool fichier = Demande_.Source.Genre == GenreSource::kFichier;
  return gst_element_set_state(Pipeline_.get(), fichier ? GST_STATE_PAUSED : GST_STATE_PLAYING) !=
         GST_STATE_CHANGE_FAILURE;
}

FluxImages::Etat FluxGStreamer::Surveille(const std::stop_token& arret, std::chrono::milliseconds delai) {
  const PtrGst<GstBus> bus(GST_BUS(gst_object_ref(Bus_.get())));
  const std::stop_callback reveil(arret, [&bus] { ReveilleBus(bus.get()); });
  if (arret.stop_requested()) return Etat::kCoule;
  constexpr auto kTypes =
      static_cast<GstMessageType>(GST_MESSAGE_ERROR | GST_MESSAGE_EOS | GST_MESSAGE_SEGMENT_DONE |
                                  GST_MESSAGE_ASYNC_DONE | GST_MESSAGE_ELEMENT | GST_MESSAGE_APPLICATION);
  const auto limite = static_cast<GstClockTime>(delai.count()) * GST_MSECOND;
  const PtrGst<GstMessage> message(gst_bus_timed_pop_filtered(bus.get(), limite, kTypes));
  if (message) return TraiteMessage(message.get(), arret);
  return EstAbandonne() ? Etat::kErreur : Etat::kCoule;
}

// decodebin swallows the error of a demultiplexer that fails while it is being plugged in: of a film of which little is
// left nothing more would be heard.
bool FluxGStreamer::EstAbandonne() const {
  if (Relie_ || Demande_.Source.Genre != GenreSource::kFichier) return false;
  GstIterator* elements = gst_bin_iterate_elements(GST_BIN(Decodage_));
  GValue trouve = G_VALUE_INIT;
  const bool arrete = gst_iterator_find_custom(elements, EstDemultiplexeurArrete, &trouve, nullptr) != FALSE;
  if (arrete) g_value_unset(&trouve);
  gst_iterator_free(elements);
  return arrete;
}

FluxImages::Etat FluxGStreamer::TraiteMessage(GstMessage* message, const std::stop_token& arret) {
  switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ERROR:
      return TraiteErreur(message);
    case GST_MESSAGE_EOS:
      return Etat::kFini;
    case GST_MESSAGE_SEGMENT_DONE:
      return ReprendLaBoucle(arret);
    case GST_MESSAGE_ASYNC_DONE:
      return CommenceLaBoucle();
    case GST_MESSAGE_ELEMENT:
      // What decodebin says before it gives up. A part of the stream that is no picture may be meant: it is looked at
      // only where no picture comes.
      NoteRaison(LitManque(message));
      return Etat::kCoule;
    default:
      return Etat::kCoule;
  }
}

// A film or a camera that our own decoder refuses: of too many pixels, or of a format that nothing reads.
FluxImages::Etat FluxGStreamer::TraiteErreur(GstMessage* message) {
  NoteRaison(LitRaison(message));
  DemandePourquoi();
  return Etat::kErreur;
}

// The first one that says something: what follows an error are errors of those who hang on it.
void FluxGStreamer::NoteRaison(const Raison& raison) {
  if (Raison_.Quoi == Motif::kInconnu) Raison_ = raison;
}

Raison FluxGStreamer::Pourquoi() const {
  if (Raison_.Quoi != Motif::kInconnu) return Raison_;
  if (Reception_.ARefuseUneTaille() || (Decodage_ != nullptr && ANoteTropDePixels(GST_OBJECT(Decodage_))))
    return {Motif::kTropGrande, {}};
  if (!Reception_.NeRecoitQueDesAbimees()) return {};
  return {Motif::kAbimee, {}};
}

// GStreamer tells of a device and of a file only that they cannot be opened.
void FluxGStreamer::DemandePourquoi() {
  if (Demande_.Source.Genre == GenreSource::kPeripherique) NoteRaison(SondeOuverture(Demande_.Noeud, true));
  if (Demande_.Source.Genre == GenreSource::kBureau) NoteRaison(PourquoiPasDuBureau(Demande_.Source.Lieu));
  if (Demande_.Source.Genre == GenreSource::kFichier) NoteRaison(SondeOuverture(Demande_.Source.Lieu, false));
}

FluxImages::Etat FluxGStreamer::Recommence() {
  Ferme();
  return Ouvre() ? Etat::kCoule : Etat::kErreur;
}

// Playing a segment of the whole file ends without an end of stream: the next turn is a seek that flushes nothing, the
// decoder and the clock run on, and no frame comes late. Where that is not possible the file plays to its end, and the
// session opens it anew.
FluxImages::Etat FluxGStreamer::CommenceLaBoucle() {
  if (Demande_.Source.Genre != GenreSource::kFichier || EnBoucle_) return Etat::kCoule;
  EnBoucle_ = true;
  if (Bouclable_ && !SansBoucle_ &&
      !gst_element_seek(Pipeline_.get(), 1.0, GST_FORMAT_TIME,
                        static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_SEGMENT), GST_SEEK_TYPE_SET, 0,
                        GST_SEEK_TYPE_NONE, -1)) {
    // A refused seek may leave a pipeline that nothing flows through any more.
    SansBoucle_ = true;
    return Recommence();
  }
  gst_element_set_state(Pipeline_.get(), GST_STATE_PLAYING);
  return Etat::kCoule;
}

// A film of a few pictures is at its end before the pipeline has begun to play. A seek then would wait for the
// demultiplexer, which waits for the pipeline to play, which waits for the seek.
bool FluxGStreamer::EstEnLecture(const std::stop_token& arret) const {
  for (int i = 0; i < kRegardsLecture && !arret.stop_requested(); ++i) {
    GstState etat = GST_STATE_NULL;
    const GstStateChangeReturn reponse = gst_element_get_state(Pipeline_.get(), &etat, nullptr, kRegardLecture);
    if (reponse != GST_STATE_CHANGE_ASYNC) return reponse == GST_STATE_CHANGE_SUCCESS && etat == GST_STATE_PLAYING;
  }
  return false;
}

FluxImages::Etat FluxGStreamer::ReprendLaBoucle(const std::stop_token& arret) {
  if (!EstEnLecture(arret)) return Etat::kFini;
  const bool repris = gst_element_seek(Pipeline_.get(), 1.0, GST_FORMAT_TIME, GST_SEEK_FLAG_SEGMENT, GST_SEEK_TYPE_SET,
                                       0, GST_SEEK_TYPE_NONE, -1) != FALSE;
  return repris ? Etat::kCoule : Etat::kFini;
}

void FluxGStreamer::Ferme() {
  if (!Pipeline_) return;
  gst_element_set_state(Pipeline_.get(), GST_STATE_NULL);
  gst_bus_set_flushing(Bus_.get(), TRUE);
  Bus_.reset();
  Pipeline_.reset();
  Puits_ = nullptr;
  Decodage_ = nullptr;
}

}  // namespace vaktor
