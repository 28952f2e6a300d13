// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/wave_player.h"

#include <gst/gst.h>

#include <QFile>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/base/system_files.h"
#include "platform/sound/sound_output.h"

namespace vaktor {

namespace {
using Instant = std::chrono::steady_clock::time_point;
constexpr std::chrono::seconds kRepos{30};          // without a new try after a device refused
constexpr GstClockTime kRegard = 20 * GST_MSECOND;  // how soon a new sound cuts the one that plays
constexpr auto kMessages = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR | GST_MESSAGE_WARNING);

}  // namespace

/// The thread. It plays the newest sound asked for; one that was asked for and not yet begun is forgotten.
class LecteurGStreamer::Fil {
 public:
  Fil(QByteArray sortie, std::function<bool()> present)
      : Sortie_(std::move(sortie)), Present_(std::move(present)), Thread_([this] { Tourne(); }) {}
  ~Fil() {
    {
      const std::lock_guard verrou(Verrou_);
      Fini_ = true;
    }
    Reveil_.notify_one();
    Thread_.join();
  }
  Fil(const Fil&) = delete;
  Fil& operator=(const Fil&) = delete;

  void Demande(const QByteArray& fichier) {
    {
      const std::lock_guard verrou(Verrou_);
      Demande_ = fichier;
    }
    Reveil_.notify_one();
  }

 private:
  void Tourne() {
    while (const std::optional<QByteArray> fichier = Attend()) {
      try {
        if (std::chrono::steady_clock::now() >= Reprise_ && Present_()) Joue(*fichier);
      } catch (const std::exception&) {
        // Want of memory: a sound that is not heard, as without a device. Out of the thread it would end the program.
        Reprise_ = std::chrono::steady_clock::now() + kRepos;
      }
    }
  }

  /// The next sound; nothing at the end.
  std::optional<QByteArray> Attend() {
    std::unique_lock verrou(Verrou_);
    Reveil_.wait(verrou, [this] { return Fini_ || Demande_; });
    if (Fini_) return std::nullopt;
    return std::exchange(Demande_, std::nullopt);
  }

  bool EstCoupe() {
    const std::lock_guard verrou(Verrou_);
    return Fini_ || Demande_;
  }

  void Joue(const QByteArray& fichier) {
    GstElement* tuyau = Monte(fichier);
    if (tuyau == nullptr) {
      Reprise_ = std::chrono::steady_clock::now() + kRepos;
      return;
    }
    GstBus* bus = gst_element_get_bus(tuyau);
    gst_element_set_state(tuyau, GST_STATE_PLAYING);
    bool joue = true;
    while (joue && !EstCoupe()) joue = Suit(tuyau, bus);
    gst_element_set_state(tuyau, GST_STATE_NULL);
    gst_object_unref(bus);
    gst_object_unref(tuyau);
  }

  /// Null when a part of GStreamer is missing.
  GstElement* Monte(const QByteArray& fichier) const {
    if (gst_init_check(nullptr, nullptr, nullptr) == FALSE) return nullptr;
    const QByteArray description =
        "filesrc name=source ! wavparse ! audioconvert ! audioresample ! " + Sortie_ + " name=sortie";
    GstElement* tuyau = gst_parse_launch_full(description.constData(), nullptr, GST_PARSE_FLAG_FATAL_ERRORS, nullptr);
    if (tuyau == nullptr) return nullptr;
    GstElement* source = gst_bin_get_by_name(GST_BIN(tuyau), "source");
    g_object_set(source, "location", fichier.constData(), nullptr);
    gst_object_unref(source);
    return tuyau;
  }

  /// False when the sound is over, for whatever reason.
  bool Suit(GstElement* tuyau, GstBus* bus) {
    GstMessage* message = gst_bus_timed_pop_filtered(bus, kRegard, kMessages);
    if (message == nullptr) return true;
    const bool fini = GST_MESSAGE_TYPE(message) != GST_MESSAGE_WARNING;
    // Without a device the automatic output warns, and would play into nothing.
    const bool refuse = GST_MESSAGE_TYPE(message) != GST_MESSAGE_EOS && VientDeLaSortie(tuyau, message);
    gst_message_unref(message);
    if (refuse) Reprise_ = std::chrono::steady_clock::now() + kRepos;
    return !fini && !refuse;
  }

  static bool VientDeLaSortie(GstElement* tuyau, GstMessage* message) {
    GstElement* sortie = gst_bin_get_by_name(GST_BIN(tuyau), "sortie");
    const bool vient = gst_object_has_as_ancestor(GST_MESSAGE_SRC(message), GST_OBJECT(sortie)) != FALSE;
    gst_object_unref(sortie);
    return vient;
  }

  const QByteArray Sortie_;
  const std::function<bool()> Present_;
  std::mutex Verrou_;  // Demande_ and Fini_
  std::condition_variable Reveil_;
  std::optional<QByteArray> Demande_;
  bool Fini_ = false;
  Instant Reprise_{};   // of the thread alone
  std::thread Thread_;  // last: it uses all of the above
};

LecteurGStreamer::LecteurGStreamer()
    : LecteurGStreamer(QStringLiteral("autoaudiosink"), [] { return PeutSortirSon(TrouveLieuxSon()); }) {}

LecteurGStreamer::LecteurGStreamer(const QString& sortie, std::function<bool()> present)
    : Sortie_(sortie), Present_(std::move(present)) {}

LecteurGStreamer::~LecteurGStreamer() = default;

void LecteurGStreamer::Joue(const QString& chemin) {
  if (!Fil_) Fil_ = std::make_unique<Fil>(Sortie_.toUtf8(), Present_);
  Fil_->Demande(QFile::encodeName(CheminNatif(chemin)));
}

}  // namespace vaktor
