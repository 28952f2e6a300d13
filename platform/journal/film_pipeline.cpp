// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/journal/film_pipeline.h"

#include <fcntl.h>
#include <gst/app/gstappsrc.h>
#include <gst/gst.h>
#include <unistd.h>

#include <QFile>
#include <QSize>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <mutex>

#include "base/photo_format.h"
#include "platform/journal/film_photo.h"

namespace vaktor {
namespace {

constexpr guint64 kEnFile = 8ULL * 1024 * 1024;  // bytes of photos that wait for the muxer
constexpr GstClockTime kRegard = 20 * GST_MSECOND;
/// In the order of how well they do; each of them comes with a package of its own.
constexpr std::array<const char*, 5> kEncodeurs = {"x264enc", "openh264enc", "vah264enc", "vaapih264enc",
                                                   "v4l2h264enc"};

struct LibereObjet {
  void operator()(void* objet) const { gst_object_unref(objet); }
};
template <typename T>
using Objet = std::unique_ptr<T, LibereObjet>;

bool Prepare() { return gst_is_initialized() != FALSE || gst_init_check(nullptr, nullptr, nullptr) != FALSE; }

bool Existe(const char* element) { return Objet<GstElementFactory>(gst_element_factory_find(element)) != nullptr; }

const char* TrouveEncodeur() {
  for (const char* encodeur : kEncodeurs)
    if (Existe(encodeur)) return encodeur;
  return nullptr;
}

class Film {
 public:
  Film(const FilmVoulu& voulu, const std::atomic<bool>& abandon)
      : Voulu_(voulu), Abandon_(abandon), Brouillon_(QFile::encodeName(voulu.Sortie) + ".part") {}
  ~Film() {
    Arrete();
    if (!Brouillon_.isEmpty()) ::unlink(Brouillon_.constData());
  }
  Film(const Film&) = delete;
  Film& operator=(const Film&) = delete;

  FilmFait Fait(const std::function<void(int)>& avance) {
    // The errors that a person can do something about come from the system itself, and before any work.
    const int place = ::open(Brouillon_.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (place < 0) {
      const int erreur = errno;
      Brouillon_.clear();
      return {.Etat = EtatFilm::kDisque, .Erreur = erreur};
    }
    ::close(place);
    for (qsizetype i = 0; i < Voulu_.Chemins.size() && !EstArrete(); ++i) {
      Prend(LitPhotoDuFilm(Voulu_.Chemins.at(i)), Voulu_.Instants.at(i), DureeDe(i));
      avance(static_cast<int>(i) + 1);
    }
    if (!EstArrete() && !Source_) {
      Bilan_.Etat = EtatFilm::kSansPhoto;
      Arrete_ = true;
    }
    if (!EstArrete()) Acheve();
    if (Abandon_) Bilan_.Etat = EtatFilm::kAnnule;
    return Bilan_;
  }

 private:
  bool EstArrete() const { return Arrete_ || Abandon_; }

  // To the next one; the last one as long as the player shows it. A film whose last picture lasts no time ends before
  // it, for some players.
  qint64 DureeDe(qsizetype i) const {
    constexpr qint64 kDerniereMs = 500;
    return i + 1 < Voulu_.Instants.size() ? Voulu_.Instants.at(i + 1) - Voulu_.Instants.at(i) : kDerniereMs;
  }

  // All of one size: what the first photo has is written in front.
  void Prend(const PhotoDuFilm& photo, qint64 instant, qint64 duree) {
    if (photo.Taille.isEmpty() || (Source_ && photo.Taille != Taille_)) {
      ++Bilan_.Manquantes;
      return;
    }
    if (!Source_ && !Monte(photo.Taille)) return;
    GstBuffer* tampon = gst_buffer_new_memdup(photo.Octets.constData(), static_cast<gsize>(photo.Octets.size()));
    GST_BUFFER_PTS(tampon) = static_cast<GstClockTime>(instant - Premier(instant)) * GST_MSECOND;
    GST_BUFFER_DTS(tampon) = GST_BUFFER_PTS(tampon);
    GST_BUFFER_DURATION(tampon) = static_cast<GstClockTime>(duree) * GST_MSECOND;
    if (gst_app_src_push_buffer(GST_APP_SRC(Source_.get()), tampon) != GST_FLOW_OK) Ecoute(kRegard);
    // Not by a source that blocks: one whose muxer has failed would block for ever.
    while (!EstArrete() && gst_app_src_get_current_level_bytes(GST_APP_SRC(Source_.get())) > kEnFile) Ecoute(kRegard);
  }
  qint64 Premier(qint64 instant) {
    if (Premier_ < 0) Premier_ = instant;
    return Premier_;
  }

  QByteArray Description() const {
    if (Voulu_.Format == FormatFilm::kMatroska) return "appsrc name=source ! matroskamux ! filesink name=fichier";
    // Colours at half the resolution need even sides.
    const QByteArray paire = "video/x-raw,format=I420,width=" + QByteArray::number(Taille_.width() & ~1) +
                             ",height=" + QByteArray::number(Taille_.height() & ~1);
    return "appsrc name=source ! jpegdec ! videoconvert ! videoscale ! " + paire + " ! " + TrouveEncodeur() +
           " ! h264parse ! mp4mux ! filesink name=fichier";
  }

  bool Monte(const QSize& taille) {
    Taille_ = taille;
    Tuyau_.reset(gst_parse_launch(Description().constData(), nullptr));
    if (!Tuyau_) return Echoue("GStreamer");
    Source_.reset(gst_bin_get_by_name(GST_BIN(Tuyau_.get()), "source"));
    const Objet<GstElement> fichier(gst_bin_get_by_name(GST_BIN(Tuyau_.get()), "fichier"));
    g_object_set(fichier.get(), "location", Brouillon_.constData(), nullptr);
    GstCaps* caps = gst_caps_new_simple(kTypePhoto, "width", G_TYPE_INT, taille.width(), "height", G_TYPE_INT,
                                        taille.height(), "framerate", GST_TYPE_FRACTION,
                                        Voulu_.Format == FormatFilm::kMatroska ? 0 : 30, 1, nullptr);
    g_object_set(Source_.get(), "caps", caps, "format", GST_FORMAT_TIME, "max-bytes", guint64{0}, nullptr);
    gst_caps_unref(caps);
    Bus_.reset(gst_element_get_bus(Tuyau_.get()));
    if (gst_element_set_state(Tuyau_.get(), GST_STATE_PLAYING) != GST_STATE_CHANGE_FAILURE) return true;
    Ecoute(kRegard);
    return Echoue("GStreamer");
  }

  bool Echoue(const char* mots) {
    if (!Arrete_) Bilan_ = {.Etat = EtatFilm::kSansMoyens, .Mots = QString::fromUtf8(mots)};
    Arrete_ = true;
    return false;
  }

  /// True when the end was heard of.
  bool Ecoute(GstClockTime delai) {
    constexpr auto kMessages = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR);
    GstMessage* message = gst_bus_timed_pop_filtered(Bus_.get(), delai, kMessages);
    if (message == nullptr) return false;
    const bool fin = GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS;
    if (!fin) NoteErreur(message);
    gst_message_unref(message);
    return fin;
  }

  void NoteErreur(GstMessage* message) {
    GError* erreur = nullptr;
    gst_message_parse_error(message, &erreur, nullptr);
    const bool plein = g_error_matches(erreur, GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_NO_SPACE_LEFT) != FALSE;
    const bool disque = erreur->domain == GST_RESOURCE_ERROR;
    Bilan_ = {.Etat = disque ? EtatFilm::kDisque : EtatFilm::kSansMoyens,
              .Erreur = plein ? ENOSPC : (disque ? EIO : 0),
              .Mots = QString::fromUtf8(erreur->message)};
    g_error_free(erreur);
    Arrete_ = true;
  }

  void Acheve() {
    gst_app_src_end_of_stream(GST_APP_SRC(Source_.get()));
    while (!EstArrete() && !Ecoute(kRegard)) {
    }
    Arrete();
    if (EstArrete()) return;
    const int fichier = ::open(Brouillon_.constData(), O_RDONLY | O_CLOEXEC);
    int erreur = fichier < 0 || ::fsync(fichier) != 0 ? errno : 0;
    if (fichier >= 0) ::close(fichier);
    if (erreur == 0 && ::rename(Brouillon_.constData(), QFile::encodeName(Voulu_.Sortie).constData()) != 0)
      erreur = errno;
    if (erreur == 0) Brouillon_.clear();
    Bilan_.Etat = erreur == 0 ? EtatFilm::kFait : EtatFilm::kDisque;
    Bilan_.Erreur = erreur;
  }

  void Arrete() {
    if (Tuyau_) gst_element_set_state(Tuyau_.get(), GST_STATE_NULL);
  }

  const FilmVoulu& Voulu_;
  const std::atomic<bool>& Abandon_;
  QByteArray Brouillon_;  // empty once it is the film
  QSize Taille_;
  qint64 Premier_ = -1;
  Objet<GstElement> Tuyau_;
  Objet<GstElement> Source_;
  Objet<GstBus> Bus_;
  bool Arrete_ = false;
  FilmFait Bilan_;
};

}  // namespace

bool SaitFilm(FormatFilm format) {
  if (!Prepare() || !Existe("appsrc") || !Existe("filesink")) return false;
  if (format == FormatFilm::kMatroska) return Existe("matroskamux");
  return Existe("mp4mux") && Existe("h264parse") && Existe("jpegdec") && TrouveEncodeur() != nullptr;
}

FilmFait FaitFilm(const FilmVoulu& film, const std::atomic<bool>& abandon, const std::function<void(int)>& avance) {
  if (!SaitFilm(film.Format)) return {.Etat = EtatFilm::kSansMoyens, .Mots = QStringLiteral("GStreamer")};
  return Film(film, abandon).Fait(avance);
}

}  // namespace vaktor
