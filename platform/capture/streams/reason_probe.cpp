// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/streams/reason_probe.h"

#include <fcntl.h>
#include <gio/gio.h>
#include <unistd.h>

#include <QFile>
#include <QUrl>
#include <cerrno>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/capture/devices/device_access.h"
#include "platform/capture/streams/stream_size.h"

namespace vaktor {
namespace {

struct RendGio {
  void operator()(gpointer objet) const { g_object_unref(objet); }
};
using ErreurGlib = std::unique_ptr<GError, decltype(&g_error_free)>;

Raison RaisonDuStatut(guint statut) {
  switch (statut) {
    case 401:
      return {Motif::kMotDePasse, {}};
    case 403:
      return {Motif::kInterdit, {}};
    case 404:
      return {Motif::kPasTrouve, {}};
    default:
      return {Motif::kErreurServeur, QString::number(statut)};
  }
}

// Of what a server answers both elements tell the number, in fields of their own.
guint Statut(GstMessage* erreur) {
  const GstStructure* suite = nullptr;
  gst_message_parse_error_details(erreur, &suite);
  guint statut = 0;
  for (const char* champ : {"rtsp-status-code", "http-status-code"}) {
    if (suite != nullptr && gst_structure_get_uint(suite, champ, &statut) != FALSE) break;
  }
  return statut;
}

Motif MotifDe(const GError& erreur) {
  struct Cas {
    GQuark Domaine;
    int Code;
    Motif Quoi;
  };
  const Cas connus[] = {
      {GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_BUSY, Motif::kOccupee},
      {GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_NOT_AUTHORIZED, Motif::kMotDePasse},
      {GST_STREAM_ERROR, GST_STREAM_ERROR_CODEC_NOT_FOUND, Motif::kSansDecodeur},
      {GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_NO_SPACE_LEFT, Motif::kTropGrande},
      // Our own decoder's, of a kind that it has no name for.
      {GST_STREAM_ERROR, GST_STREAM_ERROR_FORMAT, Motif::kSansDecodeur},
      {GST_STREAM_ERROR, GST_STREAM_ERROR_TYPE_NOT_FOUND, Motif::kPasUneImage},
      {GST_STREAM_ERROR, GST_STREAM_ERROR_WRONG_TYPE, Motif::kPasUneImage},
      {G_RESOLVER_ERROR, G_RESOLVER_ERROR_NOT_FOUND, Motif::kHoteInconnu},
      // No name server answers: it is the network that is away, not the name that is wrong.
      {G_RESOLVER_ERROR, G_RESOLVER_ERROR_TEMPORARY_FAILURE, Motif::kSansRoute},
      {G_IO_ERROR, G_IO_ERROR_HOST_UNREACHABLE, Motif::kSansRoute},
      {G_IO_ERROR, G_IO_ERROR_NETWORK_UNREACHABLE, Motif::kSansRoute},
      {G_IO_ERROR, G_IO_ERROR_CONNECTION_REFUSED, Motif::kPorteFermee},
      {G_IO_ERROR, G_IO_ERROR_TIMED_OUT, Motif::kSansReponse},
      {G_IO_ERROR, G_IO_ERROR_CANCELLED, Motif::kSansReponse},
      {G_TLS_ERROR, G_TLS_ERROR_BAD_CERTIFICATE, Motif::kCertificat},
  };
  for (const Cas& cas : connus)
    if (erreur.domain == cas.Domaine && erreur.code == cas.Code) return cas.Quoi;
  return Motif::kInconnu;
}

// The end of a wait of GIO's, by time or because nobody wants the answer any more. A wait for a name ends in no other
// way.
class Borne {
 public:
  Borne(const std::stop_token& arret, std::chrono::milliseconds limite)
      : Annulation_(g_cancellable_new()), Fil_([this, arret, limite](const std::stop_token& fini) {
          const std::stop_callback reveille(arret, [this] { g_cancellable_cancel(Annulation_.get()); });
          std::unique_lock verrou(Verrou_);
          Reveil_.wait_for(verrou, fini, limite, [] { return false; });
          if (!fini.stop_requested()) g_cancellable_cancel(Annulation_.get());
        }) {}
  GCancellable* Annulation() const { return Annulation_.get(); }

 private:
  const std::unique_ptr<GCancellable, RendGio> Annulation_;
  std::mutex Verrou_;
  std::condition_variable_any Reveil_;
  std::jthread Fil_;  // last: it uses the others
};

}  // namespace

Raison LitRaison(GstMessage* erreur) {
  if (const guint statut = Statut(erreur); statut >= 400) return RaisonDuStatut(statut);
  GError* lue = nullptr;
  gst_message_parse_error(erreur, &lue, nullptr);
  const ErreurGlib rendue(lue, g_error_free);
  return {MotifDe(*lue), {}};
}

Raison LitManque(GstMessage* message) {
  if (gst_message_has_name(message, "missing-plugin") == FALSE) return {};
  if (ANoteTropDePixels(GST_MESSAGE_SRC(message))) return {Motif::kTropGrande, {}};
  const GstStructure* structure = gst_message_get_structure(message);
  const GValue* detail = gst_structure_get_value(structure, "detail");
  if (detail == nullptr || !GST_VALUE_HOLDS_CAPS(detail)) return {Motif::kSansDecodeur, {}};
  const char* nom = gst_structure_get_name(gst_caps_get_structure(gst_value_get_caps(detail), 0));
  // The pages of a camera are what is found at an address without a path.
  return {g_str_has_prefix(nom, "text/") != FALSE ? Motif::kPasUneImage : Motif::kSansDecodeur, {}};
}

Raison SondeOuverture(const QString& chemin, bool peripherique) {
  const int acces = (peripherique ? O_RDWR : O_RDONLY) | O_NONBLOCK | O_CLOEXEC;
  const int descripteur = ::open(QFile::encodeName(chemin).constData(), acces);
  if (descripteur >= 0) {
    ::close(descripteur);
    return {};
  }
  switch (errno) {
    case EACCES:
    case EPERM:
      return {Motif::kSansPermission, peripherique ? NomGroupe(chemin) : QString()};
    case ENOENT:
    case ENODEV:
    case ENXIO:
      return {peripherique ? Motif::kAbsente : Motif::kFichierAbsent, {}};
    case EBUSY:
      return {Motif::kOccupee, {}};
    default:
      return {};
  }
}

Raison SondeReseau(const SourceCapture& source, const std::stop_token& arret, std::chrono::milliseconds limite) {
  const QUrl adresse(source.Lieu);
  if (adresse.host().isEmpty()) return {Motif::kHoteInconnu, {}};
  const bool chiffre = adresse.scheme() == QLatin1String("https") || adresse.scheme() == QLatin1String("rtsps");
  const bool rtsp = adresse.scheme().startsWith(QLatin1String("rtsp"));
  const int porte = adresse.port(rtsp ? (chiffre ? 322 : 554) : (chiffre ? 443 : 80));
  const std::unique_ptr<GSocketClient, RendGio> client(g_socket_client_new());
  g_socket_client_set_enable_proxy(client.get(), FALSE);
  g_socket_client_set_tls(client.get(), chiffre ? TRUE : FALSE);
  GError* lue = nullptr;
  const Borne borne(arret, limite);
  GSocketConnection* connexion = g_socket_client_connect_to_host(client.get(), adresse.host().toUtf8().constData(),
                                                                 static_cast<guint16>(porte), borne.Annulation(), &lue);
  if (connexion != nullptr) {
    g_object_unref(connexion);
    return {};
  }
  const ErreurGlib rendue(lue, g_error_free);
  return {MotifDe(*lue), {}};
}

}  // namespace vaktor
