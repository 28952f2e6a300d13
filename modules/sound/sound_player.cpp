// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/sound/sound_player.h"

#include <gst/gst.h>

#include <QFile>
#include <QSocketNotifier>
#include <atomic>
#include <optional>

namespace vaktor {

/// One pipeline, for one sound.
class JoueurGStreamer::Chaine {
 public:
  Chaine(FilSon& fil, const QString& sortie, const QString& fichier, std::function<void(FinSon, const QString&)> fini)
      : Fil_(fil), Fini_(std::move(fini)) {
    if (!Monte(sortie)) return;
    GstElement* source = gst_bin_get_by_name(GST_BIN(Tuyau_), "source");
    g_object_set(source, "location", QFile::encodeName(fichier).constData(), nullptr);
    gst_object_unref(source);
    Ecoute();
    CompteMorceaux();
    gst_object_ref(Tuyau_);
    Fil_.Pose([tuyau = Tuyau_] {
      gst_element_set_state(tuyau, GST_STATE_PLAYING);
      gst_object_unref(tuyau);
    });
  }
  ~Chaine() {
    Guetteur_.reset();
    if (Tuyau_ == nullptr) return;
    Fil_.Pose([tuyau = Tuyau_, bus = Bus_] {
      gst_element_set_state(tuyau, GST_STATE_NULL);
      if (bus != nullptr) gst_object_unref(bus);
      gst_object_unref(tuyau);
    });
  }
  Chaine(const Chaine&) = delete;
  Chaine& operator=(const Chaine&) = delete;

  bool EstMontee() const { return Bus_ != nullptr; }
  const QString& Mots() const { return Mots_; }
  quint64 Progres() const { return Morceaux_->load(); }

 private:
  /// Each buffer on its way to the device is counted: a device that takes none holds the next one up.
  void CompteMorceaux() {
    GstElement* dernier = gst_bin_get_by_name(GST_BIN(Tuyau_), "dernier");
    GstPad* sortie = gst_element_get_static_pad(dernier, "src");
    const auto compte = [](GstPad*, GstPadProbeInfo*, gpointer morceaux) {
      static_cast<std::shared_ptr<std::atomic<quint64>>*>(morceaux)->get()->fetch_add(1);
      return GST_PAD_PROBE_OK;
    };
    // The pipeline may outlive this object, in a device that hangs.
    gst_pad_add_probe(sortie, GST_PAD_PROBE_TYPE_BUFFER, compte, new std::shared_ptr<std::atomic<quint64>>(Morceaux_),
                      [](gpointer morceaux) { delete static_cast<std::shared_ptr<std::atomic<quint64>>*>(morceaux); });
    gst_object_unref(sortie);
    gst_object_unref(dernier);
  }

  /// False, with the words in Mots_, when a part of GStreamer is not installed.
  bool Monte(const QString& sortie) {
    GError* erreur = nullptr;
    Tuyau_ = gst_parse_launch_full("filesrc name=source ! decodebin ! audioconvert ! audioresample name=dernier",
                                   nullptr, GST_PARSE_FLAG_FATAL_ERRORS, &erreur);
    if (erreur == nullptr)
      Sortie_ = gst_parse_bin_from_description_full(sortie.toUtf8().constData(), TRUE, nullptr,
                                                    GST_PARSE_FLAG_FATAL_ERRORS, &erreur);
    if (erreur != nullptr) Mots_ = QString::fromUtf8(erreur->message);
    g_clear_error(&erreur);
    if (Sortie_ == nullptr) return false;
    gst_bin_add(GST_BIN(Tuyau_), Sortie_);  // the pipeline owns it from here on
    GstElement* dernier = gst_bin_get_by_name(GST_BIN(Tuyau_), "dernier");
    const bool lie = gst_element_link(dernier, Sortie_) != FALSE;
    gst_object_unref(dernier);
    return lie;
  }

  /// The pipeline talks from threads of its own; its bus has a descriptor that brings it all to our event loop.
  void Ecoute() {
    Bus_ = gst_element_get_bus(Tuyau_);
    GPollFD descripteur{};
    gst_bus_get_pollfd(Bus_, &descripteur);
    Guetteur_ = std::make_unique<QSocketNotifier>(descripteur.fd, QSocketNotifier::Read);
    QObject::connect(Guetteur_.get(), &QSocketNotifier::activated, [this] { LitBus(); });
  }

  void LitBus() {
    while (GstMessage* message = gst_bus_pop(Bus_)) {
      const std::optional<FinSon> fin = Juge(message);
      gst_message_unref(message);
      if (!fin) continue;
      Guetteur_->setEnabled(false);
      const auto fini = Fini_;
      fini(*fin, Mots_);  // may start the next sound, which destroys this one
      return;
    }
  }

  std::optional<FinSon> Juge(GstMessage* message) {
    const bool erreur = GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR;
    const bool averti = GST_MESSAGE_TYPE(message) == GST_MESSAGE_WARNING;
    if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS) return FinSon::kJoue;
    if (!erreur && !averti) return std::nullopt;
    const bool deLaSortie = gst_object_has_as_ancestor(GST_MESSAGE_SRC(message), GST_OBJECT(Sortie_)) != FALSE;
    NoteMots(message, erreur);
    // Without a device the automatic output only complains, and plays into nothing: at once, not when a long sound that
    // nobody hears is over. What a device itself complains of is heard.
    if (!erreur && !(deLaSortie && GST_IS_BIN(GST_MESSAGE_SRC(message)))) return std::nullopt;
    return deLaSortie ? FinSon::kSansAppareil : FinSon::kFichierMauvais;
  }

  void NoteMots(GstMessage* message, bool erreur) {
    GError* quoi = nullptr;
    if (erreur)
      gst_message_parse_error(message, &quoi, nullptr);
    else
      gst_message_parse_warning(message, &quoi, nullptr);
    if (quoi != nullptr) Mots_ = QString::fromUtf8(quoi->message);
    g_clear_error(&quoi);
  }

  FilSon& Fil_;
  std::function<void(FinSon, const QString&)> Fini_;
  std::shared_ptr<std::atomic<quint64>> Morceaux_ = std::make_shared<std::atomic<quint64>>(0);
  GstElement* Tuyau_ = nullptr;
  GstElement* Sortie_ = nullptr;
  GstBus* Bus_ = nullptr;
  std::unique_ptr<QSocketNotifier> Guetteur_;
  QString Mots_;
};

JoueurGStreamer::JoueurGStreamer(const QString& sortie) : Sortie_(sortie) {
  if (gst_is_initialized() == FALSE) gst_init(nullptr, nullptr);
}

JoueurGStreamer::~JoueurGStreamer() = default;

void JoueurGStreamer::Joue(const QString& fichier, std::function<void(FinSon fin, const QString& mots)> fini) {
  EnCours_ = true;
  Chaine_.reset();  // its device is closed before the next one is opened
  // Behind a device that hangs the next would gather, each with its descriptors.
  if (Fil_.EstBloque()) {
    Echoue(std::move(fini), QString());
    return;
  }
  Chaine_ = std::make_unique<Chaine>(Fil_, Sortie_, fichier, [this, fini](FinSon fin, const QString& mots) {
    EnCours_ = false;
    fini(fin, mots);
  });
  if (!Chaine_->EstMontee()) Echoue(std::move(fini), Chaine_->Mots());  // a part of GStreamer is missing
}

// Told from the event loop, as every end is.
void JoueurGStreamer::Echoue(std::function<void(FinSon fin, const QString& mots)> fini, const QString& mots) {
  QMetaObject::invokeMethod(
      &Contexte_,
      [this, fini = std::move(fini), mots] {
        if (!EnCours_) return;
        EnCours_ = false;
        fini(FinSon::kSansAppareil, mots);
      },
      Qt::QueuedConnection);
}

void JoueurGStreamer::Arrete() {
  EnCours_ = false;
  Chaine_.reset();
}

bool JoueurGStreamer::EnCours() const { return EnCours_; }

quint64 JoueurGStreamer::Progres() const { return Chaine_ ? Chaine_->Progres() : 0; }

}  // namespace vaktor
