// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/streams/desktop_cameras.h"

#include <sys/prctl.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <array>
#include <csignal>
#include <memory>
#include <mutex>

#include "platform/base/inherited_files.h"
#include "platform/capture/choice/named_source.h"
#include "platform/capture/streams/gst_setup.h"

namespace vaktor {
namespace {

struct Chemin {
  QLatin1String Prefixe;  // of SourceCapture::Lieu
  const char* Element;
  const char* Cible;   // the element's property that names the camera
  const char* Paquet;  // where it is
};
constexpr std::array kChemins = {Chemin{kParPipeWire, "pipewiresrc", "target-object", "gstreamer1.0-pipewire"},
                                 Chemin{kParLibcamera, "libcamerasrc", "camera-name", "gstreamer1.0-libcamera"}};

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

bool EstInstalle(const char* element) {
  GstElementFactory* fabrique = gst_element_factory_find(element);
  if (fabrique == nullptr) return false;
  gst_object_unref(fabrique);
  return true;
}

// A PipeWire that answers nobody is not waited for for ever, at the desk that asks it.
constexpr int kFinListePipeWireMs = 3000;

// What PipeWire hands out, as its own program tells it (JSON), in a process of its own: the list of GStreamer's plugin
// for it, in Debian 12, now and then took down the program that asked. Empty where it cannot be had.
QByteArray InventaireDePipeWire() {
  QProcess inventaire;
  inventaire.setStandardInputFile(QProcess::nullDevice());
  inventaire.setStandardErrorFile(QProcess::nullDevice());
  // It ends with who asked: one that hangs must not be left behind.
  inventaire.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
  GardeFichiersOuverts();
  inventaire.start(QStringLiteral("pw-dump"), {}, QIODevice::ReadOnly);
  if (inventaire.waitForFinished(kFinListePipeWireMs)) return inventaire.readAllStandardOutput();
  inventaire.kill();
  inventaire.waitForFinished();
  return {};
}

// It has one name that stays and one for people. Cameras that have a node are found there.
void AjouteCeuxDePipeWire(QList<CameraBureau>& cameras) {
  if (!EstInstalle(CheminDe(kParPipeWire)->Element)) return;
  for (const QJsonValue objet : QJsonDocument::fromJson(InventaireDePipeWire()).array()) {
    const QJsonValue details = objet[QLatin1String("info")][QLatin1String("props")];
    const auto texte = [&details](const char* champ) { return details[QLatin1String(champ)].toString(); };
    const QString nom = texte("node.name");
    const bool aUnNoeud = texte("device.api") == QLatin1String("v4l2") || !texte("api.v4l2.path").isEmpty();
    if (!texte("media.class").startsWith(QLatin1String("Video/Source")) || nom.isEmpty() || aUnNoeud) continue;
    const QString pourGens = texte("node.description");
    cameras.append({pourGens.isEmpty() ? nom : pourGens, kParPipeWire + nom});
  }
}

bool AUnNoeud(GstDevice& appareil) {
  const PtrBureau<GstStructure> details(gst_device_get_properties(&appareil));
  return details && gst_structure_has_field(details.get(), "api.v4l2.path") != FALSE;
}

// Asked by name, and not through GStreamer's monitor of all: that would ask for sound too, and open each node that is
// asked already. libcamera has one name for a camera.
void AjouteCeuxDeLibcamera(QList<CameraBureau>& cameras) {
  const PtrBureau<GstDeviceProvider> fournisseur(gst_device_provider_factory_get_by_name("libcameraprovider"));
  if (!fournisseur) return;
  GList* appareils = gst_device_provider_get_devices(fournisseur.get());
  for (const GList* lien = appareils; lien != nullptr; lien = lien->next) {
    auto* appareil = static_cast<GstDevice*>(lien->data);
    if (gst_device_has_classes(appareil, "Video/Source") == FALSE || AUnNoeud(*appareil)) continue;
    const std::unique_ptr<gchar, decltype(&g_free)> nom(gst_device_get_display_name(appareil), g_free);
    cameras.append({QString::fromUtf8(nom.get()), kParLibcamera + QString::fromUtf8(nom.get())});
  }
  g_list_free_full(appareils, gst_object_unref);
}

}  // namespace

// One after the other: libcamera's list is made by one object, and that by one thread.
QList<CameraBureau> ListeCamerasBureau() {
  static std::mutex verrou;
  QList<CameraBureau> cameras;
  if (!PrepareGStreamer()) return cameras;
  const std::lock_guard seul(verrou);
  AjouteCeuxDePipeWire(cameras);
  AjouteCeuxDeLibcamera(cameras);
  return cameras;
}

Raison PourquoiPasDuBureau(const QString& lieu) {
  const Chemin* chemin = CheminDe(lieu);
  if (chemin == nullptr || !PrepareGStreamer()) return {};
  if (!EstInstalle(chemin->Element)) return {Motif::kSansGreffon, QLatin1String(chemin->Paquet)};
  return {Motif::kPasDuBureau, {}};
}

GstElement* FabriqueCameraBureau(const QString& lieu) {
  const Chemin* chemin = CheminDe(lieu);
  GstElement* element = chemin == nullptr ? nullptr : gst_element_factory_make(chemin->Element, nullptr);
  if (element == nullptr) return nullptr;
  g_object_set(element, chemin->Cible, lieu.mid(chemin->Prefixe.size()).toUtf8().constData(), nullptr);
  if (chemin->Prefixe != kParPipeWire) return element;
  // Else whoever manages the session gives another camera in the place of one that goes, and nobody would be told that
  // it is another place that is watched.
  GstStructure* fidele = gst_structure_new("props", "node.dont-reconnect", G_TYPE_STRING, "true", nullptr);
  g_object_set(element, "stream-properties", fidele, nullptr);
  gst_structure_free(fidele);
  return element;
}

GstCaps* CapsDuBureau() {
  GstCaps* caps = gst_caps_new_empty_simple("video/x-raw");
  gst_caps_append(caps, gst_caps_new_empty_simple("image/jpeg"));
  return caps;
}

}  // namespace vaktor
