// A camera's own controls: brightness, gain, exposure and what else its driver knows.
#include <linux/videodev2.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "platform/capture/devices/v4l2_device.h"
#include "platform/capture/devices/v4l2_node.h"

namespace vaktor {
namespace {

constexpr int kReglagesMax = 512;
constexpr qint64 kChoixMax = 256;

qint32 Borne(qint64 valeur) {
  return static_cast<qint32>(
      std::clamp<qint64>(valeur, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()));
}

/// The control after `numero`, in the extended form; asked of drivers of both generations.
bool DemandeSuivant(const NoeudV4L2& noeud, quint32 numero, v4l2_query_ext_ctrl& reponse) {
  reponse = {};
  reponse.id = numero | V4L2_CTRL_FLAG_NEXT_CTRL;
  if (noeud.Demande(VIDIOC_QUERY_EXT_CTRL, &reponse)) return true;
  v4l2_queryctrl ancienne = {};
  ancienne.id = numero | V4L2_CTRL_FLAG_NEXT_CTRL;
  if (!noeud.Demande(VIDIOC_QUERYCTRL, &ancienne)) return false;
  reponse = {};
  reponse.id = ancienne.id;
  reponse.type = ancienne.type;
  std::copy_n(ancienne.name, std::min(sizeof ancienne.name, sizeof reponse.name), reponse.name);
  reponse.minimum = ancienne.minimum;
  reponse.maximum = ancienne.maximum;
  reponse.step = static_cast<quint64>(std::max(ancienne.step, 1));
  reponse.default_value = ancienne.default_value;
  reponse.flags = ancienne.flags;
  reponse.elems = 1;
  return true;
}

bool LitValeur(const NoeudV4L2& noeud, quint32 numero, qint32& valeur) {
  v4l2_control reglage = {};
  reglage.id = numero;
  if (!noeud.Demande(VIDIOC_G_CTRL, &reglage)) return false;
  valeur = reglage.value;
  return true;
}

QStringList LitChoix(const NoeudV4L2& noeud, const v4l2_query_ext_ctrl& reglage) {
  QStringList choix;
  for (qint64 i = 0; i <= std::min<qint64>(reglage.maximum, kChoixMax); ++i) {
    v4l2_querymenu menu = {};
    menu.id = reglage.id;
    menu.index = static_cast<quint32>(i);
    // A value that the device does not have keeps its place, so that places are values.
    if (i < reglage.minimum || !noeud.Demande(VIDIOC_QUERYMENU, &menu))
      choix.append(QString());
    else if (reglage.type == V4L2_CTRL_TYPE_INTEGER_MENU)
      choix.append(QString::number(menu.value));
    else
      choix.append(TexteNoyau(menu.name, sizeof menu.name));
  }
  return choix;
}

/// Only what a person can set with a slider, a box or a menu: no buttons, texts, masks, arrays, nothing read-only.
std::optional<ReglageCamera::Sorte> Sorte(const v4l2_query_ext_ctrl& reglage) {
  if ((reglage.flags & (V4L2_CTRL_FLAG_DISABLED | V4L2_CTRL_FLAG_READ_ONLY | V4L2_CTRL_FLAG_WRITE_ONLY)) != 0)
    return {};
  if ((reglage.flags & V4L2_CTRL_FLAG_HAS_PAYLOAD) != 0 || reglage.elems > 1) return {};
  switch (reglage.type) {
    case V4L2_CTRL_TYPE_INTEGER:
      return ReglageCamera::Sorte::kEntier;
    case V4L2_CTRL_TYPE_BOOLEAN:
      return ReglageCamera::Sorte::kBooleen;
    case V4L2_CTRL_TYPE_MENU:
    case V4L2_CTRL_TYPE_INTEGER_MENU:
      return ReglageCamera::Sorte::kMenu;
    default:
      return {};
  }
}

std::optional<ReglageCamera> LitReglage(const NoeudV4L2& noeud, const v4l2_query_ext_ctrl& reponse) {
  const std::optional<ReglageCamera::Sorte> sorte = Sorte(reponse);
  ReglageCamera reglage;
  if (!sorte || !LitValeur(noeud, reponse.id, reglage.Valeur)) return std::nullopt;
  reglage.Numero = reponse.id;
  reglage.Nom = QString::fromUtf8(reponse.name, static_cast<qsizetype>(strnlen(reponse.name, sizeof reponse.name)));
  reglage.Genre = *sorte;
  reglage.Minimum = Borne(reponse.minimum);
  reglage.Maximum = Borne(reponse.maximum);
  reglage.Pas = std::max(1, Borne(static_cast<qint64>(std::min<quint64>(reponse.step, INT32_MAX))));
  reglage.Defaut = Borne(reponse.default_value);
  // Inactive: an automatic rules it. Grabbed: not to be changed while frames run.
  reglage.Actif = (reponse.flags & (V4L2_CTRL_FLAG_INACTIVE | V4L2_CTRL_FLAG_GRABBED)) == 0;
  if (reglage.Genre == ReglageCamera::Sorte::kMenu) reglage.Choix = LitChoix(noeud, reponse);
  return reglage;
}

}  // namespace

QList<ReglageCamera> ListeReglages(const QString& chemin) {
  const NoeudV4L2 noeud(chemin);
  QList<ReglageCamera> reglages;
  v4l2_query_ext_ctrl reponse = {};
  quint32 dernier = 0;
  for (int i = 0; i < kReglagesMax && DemandeSuivant(noeud, dernier, reponse); ++i) {
    if (reponse.id <= dernier) break;  // a driver that runs in circles
    dernier = reponse.id;
    if (const std::optional<ReglageCamera> reglage = LitReglage(noeud, reponse)) reglages.append(*reglage);
  }
  return reglages;
}

bool AppliqueReglage(const QString& chemin, quint32 numero, qint32 valeur) {
  const NoeudV4L2 noeud(chemin);
  v4l2_control reglage = {};
  reglage.id = numero;
  reglage.value = valeur;
  return noeud.Demande(VIDIOC_S_CTRL, &reglage);
}

}  // namespace vaktor
