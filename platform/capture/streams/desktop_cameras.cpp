// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/streams/desktop_cameras.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QByteArray>
#include <array>
#include <cstring>
#include <memory>
#include <mutex>

#include "platform/capture/choice/named_source.h"
#include "platform/capture/streams/gst_setup.h"

namespace vaktor {
namespace {

// The two are asked by their names, and not through GStreamer's monitor of all of them: that would ask for sound too,
// and open each node that is asked here already.
struct Chemin {
  QLatin1String Prefixe;  // of SourceCapture::Lieu
  const char* Fournisseur;
  const char* Element;
  const char* Cible;   // the element's property that names the camera
  const char* Paquet;  // where both of them are
};
constexpr std::array kChemins = {
    Chemin{kParPipeWire, "pipewiredeviceprovider", "pipewiresrc", "target-object", "gstreamer1.0-pipewire"},
    Chemin{kParLibcamera, "libcameraprovider", "libcamerasrc", "camera-name", "gstreamer1.0-libcamera"}};

const Chemin* CheminDe(const QString& lieu) {
  for (const Chemin& chemin : kChemins) {
    if (lieu.startsWith(chemin.Prefixe)) return &chemin;
  }
  return nullptr;
}

struct RendBureau {
  void operator()(GstDeviceProvider* objet) const { gst_object_unref(objet); }
  void operator()(GstStructure* structure) const { gst_structure_free(structure); }
};
template <typename T>
using PtrBureau = std::unique_ptr<T, RendBureau>;

QString Texte(const GstStructure* structure, const char* champ) {
  return structure == nullptr ? QString() : QString::fromUtf8(gst_structure_get_string(structure, champ));
}

// libcamera has one name for a camera; PipeWire one that stays and one for people.
CameraBureau Decrit(GstDevice& appareil, const Chemin& chemin) {
  const std::unique_ptr<gchar, decltype(&g_free)> nom(gst_device_get_display_name(&appareil), g_free);
  const PtrBureau<GstStructure> details(gst_device_get_properties(&appareil));
  const QString stable = Texte(details.get(), "node.name");
  const QString pourGens = QString::fromUtf8(nom.get());
  return {pourGens, chemin.Prefixe + (stable.isEmpty() ? pourGens : stable)};
}

bool AUnNoeud(GstDevice& appareil) {
  const PtrBureau<GstStructure> details(gst_device_get_properties(&appareil));
  return Texte(details.get(), "device.api") == QLatin1String("v4l2") ||
         !Texte(details.get(), "api.v4l2.path").isEmpty();
}

void AjouteCeuxDe(const Chemin& chemin, QList<CameraBureau>& cameras) {
  const PtrBureau<GstDeviceProvider> fournisseur(gst_device_provider_factory_get_by_name(chemin.Fournisseur));
  if (!fournisseur) return;
  GList* appareils = gst_device_provider_get_devices(fournisseur.get());
  for (const GList* lien = appareils; lien != nullptr; lien = lien->next) {
    auto* appareil = static_cast<GstDevice*>(lien->data);
    if (gst_device_has_classes(appareil, "Video/Source") != FALSE && !AUnNoeud(*appareil))
      cameras.append(Decrit(*appareil, chemin));
  }
  g_list_free_full(appareils, gst_object_unref);
}

QByteArray Variable(const char* nom, const char* sinon) {
  return qEnvironmentVariableIsEmpty(nom) ? QByteArray(sinon) : qgetenv(nom);
}

// Where PipeWire listens: by the names that its own library goes by.
QByteArray PriseDePipeWire() {
  const QByteArray nom = Variable("PIPEWIRE_REMOTE", "pipewire-0");
  if (nom.startsWith('/')) return nom;
  const QByteArray session = Variable("XDG_RUNTIME_DIR", "/run/pipewire");
  return Variable("PIPEWIRE_RUNTIME_DIR", session.constData()) + '/' + nom;
}

// A connection of the element's own. Without one the plugin shares a single connection among all that use it here, and
// its list of cameras leaves there, when it is done, something that is gone by then: the next question beside a camera
// at work never ended, or the program did.
int RelieAPipeWire() {
  const QByteArray chemin = PriseDePipeWire();
  sockaddr_un adresse = {};
  adresse.sun_family = AF_UNIX;
  if (static_cast<std::size_t>(chemin.size()) >= sizeof adresse.sun_path) return -1;
  std::memcpy(adresse.sun_path, chemin.constData(), static_cast<std::size_t>(chemin.size()));
  const int prise = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (prise < 0) return -1;
  if (::connect(prise, reinterpret_cast<const sockaddr*>(&adresse), sizeof adresse) == 0) return prise;
  ::close(prise);
  return -1;
}

}  // namespace

// One after the other: the plugins' lists are made by one object each, and that by one thread.
QList<CameraBureau> ListeCamerasBureau() {
  static std::mutex verrou;
  QList<CameraBureau> cameras;
  if (!PrepareGStreamer()) return cameras;
  const std::lock_guard seul(verrou);
  for (const Chemin& chemin : kChemins) AjouteCeuxDe(chemin, cameras);
  return cameras;
}

Raison PourquoiPasDuBureau(const QString& lieu) {
  const Chemin* chemin = CheminDe(lieu);
  if (chemin == nullptr || !PrepareGStreamer()) return {};
  GstElementFactory* fabrique = gst_element_factory_find(chemin->Element);
  if (fabrique == nullptr) return {Motif::kSansGreffon, QLatin1String(chemin->Paquet)};
  gst_object_unref(fabrique);
  return {Motif::kPasDuBureau, {}};
}

ElementBureau FabriqueCameraBureau(const QString& lieu) {
  const Chemin* chemin = CheminDe(lieu);
  if (chemin == nullptr) return {};
  const bool parPipeWire = chemin->Prefixe == kParPipeWire;
  const int prise = parPipeWire ? RelieAPipeWire() : -1;
  if (parPipeWire && prise < 0) return {};
  GstElement* element = gst_element_factory_make(chemin->Element, nullptr);
  if (element == nullptr) {
    if (prise >= 0) ::close(prise);
    return {};
  }
  g_object_set(element, chemin->Cible, lieu.mid(chemin->Prefixe.size()).toUtf8().constData(), nullptr);
  if (!parPipeWire) return {element, -1};
  // Else whoever manages the session gives another camera in the place of one that goes, and nobody would be told that
  // it is another place that is watched.
  GstStructure* fidele = gst_structure_new("props", "node.dont-reconnect", G_TYPE_STRING, "true", nullptr);
  g_object_set(element, "fd", prise, "stream-properties", fidele, nullptr);
  gst_structure_free(fidele);
  return {element, prise};
}

GstCaps* CapsDuBureau() {
  GstCaps* caps = gst_caps_new_empty_simple("video/x-raw");
  gst_caps_append(caps, gst_caps_new_empty_simple("image/jpeg"));
  return caps;
}

}  // namespace vaktor
