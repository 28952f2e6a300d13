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
constexpr std::chrono::seconds kRepos{30};           // without a new try after a device refused
constexpr std::chrono::milliseconds kPatience{500};  // at the end of the program
constexpr GstClockTime kRegard = 20 * GST_MSECOND;   // how soon a new sound cuts the one that plays
constexpr auto kMessages = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR | GST_MESSAGE_WARNING);

}  // namespace

/// The thread. It plays the newest sound asked for; one that was asked for and not yet begun is forgotten. Shared with
/// it: a sound system that hangs keeps its thread and not the program.
class LecteurGStreamer::Fil {
 public:
  static std::shared_ptr<Fil> Lance(const QByteArray& sortie, const std::function<bool()>& present) {
    std::shared_ptr<Fil> fil(new Fil(sortie, present));
    std::thread([fil] { fil->Tourne(); }).detach();
    return fil;
  }
  Fil(const Fil&) = delete;
  Fil& operator=(const Fil&) = delete;

  void Termine() {
    std::unique_lock verrou(Verrou_);
    Fini_ = true;
    Reveil_.notify_all();
    Reveil_.wait_for(verrou, kPatience, [this] { return Parti_; });
  }

  void Demande(const QByteArray& fichier) {
    {
      const std::lock_guard verrou(Verrou_);
      Demande_ = fichier;
    }
    Reveil_.notify_all();
  }

 private:
  Fil(QByteArray sortie, std::function<bool()> present) : Sortie_(std::move(sortie)), Present_(std::move(present)) {}

  void Tourne() {
    while (const std::optional<QByteArray> fichier = Attend()) {
      try {
        if (std::chrono::steady_clock::now() >= Reprise_ && Present_()) Joue(*fichier);
      } catch (const std::exception&) {
        // Want of memory: a sound that is not heard, as without a device. Out of the thread it would end the program.
        Reprise_ = std::chrono::steady_clock::now() + kRepos;
      }
    }
    const std::lock_guard verrou(Verrou_);
    Parti_ = true;
    Reveil_.notify_all();
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
  std::mutex Verrou_;  // Demande_, Fini_ and Parti_
  std::condition_variable Reveil_;
  std::optional<QByteArray> Demande_;
  bool Fini_ = false;
  bool Parti_ = false;  // the thread
  Instant Reprise_{};   // of the thread alone
};

LecteurGStreamer::LecteurGStreamer()
    : LecteurGStreamer(QStringLiteral("autoaudiosink"), [] { return PeutSortirSon(TrouveLieuxSon()); }) {}

LecteurGStreamer::LecteurGStreamer(const QString& sortie, std::function<bool()> present)
    : Sortie_(sortie), Present_(std::move(present)) {}

LecteurGStreamer::~LecteurGStreamer() {
  if (Fil_) Fil_->Termine();
}

void LecteurGStreamer::Joue(const QString& chemin) {
  if (!Fil_) Fil_ = Fil::Lance(Sortie_.toUtf8(), Present_);
  Fil_->Demande(QFile::encodeName(CheminNatif(chemin)));
}

}  // namespace vaktor
