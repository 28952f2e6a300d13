#include "platform/gstreamer/gst_plugins.h"

#include <dlfcn.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <optional>
#include <string>

namespace vaktor {
namespace {

struct Origine {
  const char* Fabrique;
  const char* Greffon;
};

// Cameras of the machine, and the common kinds of films. Everything else asks for a search among all.
constexpr std::array kOrigines = {
    Origine{"filesrc", "coreelements"},
    Origine{"capsfilter", "coreelements"},
    Origine{"appsink", "app"},
    Origine{"v4l2src", "video4linux2"},
    Origine{"avidemux", "avi"},
    Origine{"qtdemux", "isomp4"},
    Origine{"matroskademux", "matroska"},
    Origine{"videoconvert", "videoconvertscale"},
};

// Where GStreamer itself looks for them: beside its own library.
std::string DossierDesGreffons() {
  Dl_info ou{};
  if (dladdr(reinterpret_cast<const void*>(&gst_init), &ou) == 0 || ou.dli_fname == nullptr) return {};
  const std::string bibliotheque = ou.dli_fname;
  return bibliotheque.substr(0, bibliotheque.rfind('/') + 1) + "gstreamer-1.0/";
}

void Charge(const char* nom) {
  GstPlugin* greffon = gst_plugin_load_file((DossierDesGreffons() + "libgst" + nom + ".so").c_str(), nullptr);
  if (greffon != nullptr) gst_object_unref(greffon);
}

/// A variable of the environment that has another value for as long as this lives.
class Variable {
 public:
  Variable(const char* nom, const char* valeur) : Nom_(nom) {
    if (const char* avant = std::getenv(nom)) Avant_ = avant;
    setenv(nom, valeur, 1);
  }
  ~Variable() {
    if (Avant_) {
      setenv(Nom_, Avant_->c_str(), 1);
    } else {
      unsetenv(Nom_);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* Nom_;
  std::optional<std::string> Avant_;
};

bool ChoisitLUtilisateur() {
  for (const char* nom : {"GST_REGISTRY", "GST_REGISTRY_1_0", "GST_REGISTRY_DISABLE", "GST_PLUGIN_PATH",
                          "GST_PLUGIN_PATH_1_0", "GST_PLUGIN_SYSTEM_PATH", "GST_PLUGIN_SYSTEM_PATH_1_0"}) {
    if (std::getenv(nom) != nullptr) return true;
  }
  return false;
}

// One at a time: a search replaces what was loaded while it ran.
std::mutex& VerrouDesGreffons() {
  static std::mutex kVerrou;
  return kVerrou;
}

GstElement* Essaie(const char* fabrique) {
  GstElementFactory* qui = gst_element_factory_find(fabrique);
  if (qui == nullptr) return nullptr;
  // The reference is kept for good: the elements' class holds its factory without one, and a later search may put
  // another in its place.
  return gst_element_factory_create(qui, nullptr);
}

}  // namespace

// A list that is not there and may not be made, of plugins that lie nowhere.
void LanceGStreamerSansListe() {
  if (gst_is_initialized() != FALSE || ChoisitLUtilisateur()) return;
  const Variable dossier("GST_PLUGIN_SYSTEM_PATH_1_0", "");
  const Variable liste("GST_REGISTRY_1_0", "");
  const Variable miseAJour("GST_REGISTRY_UPDATE", "no");
  if (gst_init_check(nullptr, nullptr, nullptr) != FALSE) Charge("coreelements");
}

bool LanceGStreamer() { return gst_init_check(nullptr, nullptr, nullptr) != FALSE; }

void ChargeGreffons(std::initializer_list<const char*> noms) {
  const std::lock_guard verrou(VerrouDesGreffons());
  for (const char* nom : noms) Charge(nom);
}

void ConnaisTousLesGreffons() {
  static std::once_flag kUneFois;
  std::call_once(kUneFois, [] {
    const std::lock_guard verrou(VerrouDesGreffons());
    gst_update_registry();
  });
}

GstElement* FabriqueElement(const char* fabrique) {
  if (GstElement* element = Essaie(fabrique)) return element;
  for (const Origine& origine : kOrigines) {
    if (std::strcmp(origine.Fabrique, fabrique) != 0) continue;
    ChargeGreffons({origine.Greffon});
    if (GstElement* element = Essaie(fabrique)) return element;
  }
  ConnaisTousLesGreffons();
  return Essaie(fabrique);
}

}  // namespace vaktor
