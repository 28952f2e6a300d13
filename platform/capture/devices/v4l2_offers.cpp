// SPDX-License-Identifier: GPL-3.0-or-later
// What a camera offers: codings, sizes and rates; and its own controls, brightness, gain, exposure and what else its
// driver knows.
#include <linux/videodev2.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <tuple>

#include "platform/capture/devices/v4l2_device.h"
#include "platform/capture/devices/v4l2_node.h"

namespace vaktor {
namespace {

constexpr quint32 kEnumerationMax = 256;  // a driver that never says "no more" must not hold us for ever
constexpr std::array<quint32, 9> kCadencesCourantes = {60, 50, 30, 25, 20, 15, 10, 5, 1};
constexpr quint32 kGrosBoutiste = 1U << 31;  // V4L2_PIX_FMT_FLAG_BE is not in every header

struct Taille {
  quint32 Largeur;
  quint32 Hauteur;
};

QString TexteCodage(quint32 code) {
  QString texte;
  for (const int decalage : {0, 8, 16, 24}) {
    const auto octet = static_cast<uchar>(((code & ~kGrosBoutiste) >> decalage) & 0xFFU);
    texte += octet >= 0x20 && octet < 0x7F ? QLatin1Char(static_cast<char>(octet)) : QLatin1Char('?');
  }
  texte = texte.trimmed();
  if ((code & kGrosBoutiste) != 0) texte += QLatin1String("-BE");
  return texte;
}

bool EstDansPas(quint32 valeur, quint32 minimum, quint32 maximum, quint32 pas) {
  return valeur >= minimum && valeur <= maximum && (pas <= 1 || (valeur - minimum) % pas == 0);
}

/// The common sizes that lie in a range, and its largest one, which may be none of them.
QList<Taille> DeplieTailles(const v4l2_frmsize_stepwise& etendue) {
  QList<Taille> tailles;
  for (const TailleCourante& t : TaillesCourantes()) {
    const Taille taille = {static_cast<quint32>(t.Largeur), static_cast<quint32>(t.Hauteur)};
    if (EstDansPas(taille.Largeur, etendue.min_width, etendue.max_width, etendue.step_width) &&
        EstDansPas(taille.Hauteur, etendue.min_height, etendue.max_height, etendue.step_height))
      tailles.append(taille);
  }
  tailles.append({etendue.max_width, etendue.max_height});
  return tailles;
}

QList<Taille> ListeTailles(const NoeudV4L2& noeud, quint32 type, quint32 code) {
  QList<Taille> tailles;
  for (quint32 i = 0; i < kEnumerationMax; ++i) {
    v4l2_frmsizeenum demande = {};
    demande.index = i;
    demande.pixel_format = code;
    if (!noeud.Demande(VIDIOC_ENUM_FRAMESIZES, &demande)) break;
    // Stepwise or continuous: told once, as a range (of step 1 when continuous).
    if (demande.type != V4L2_FRMSIZE_TYPE_DISCRETE) return DeplieTailles(demande.stepwise);
    tailles.append({demande.discrete.width, demande.discrete.height});
  }
  if (!tailles.isEmpty()) return tailles;
  // A driver without a list has one size, the one it stands at.
  v4l2_format courant = {};
  courant.type = type;
  if (!noeud.Demande(VIDIOC_G_FMT, &courant)) return {};
  if (type == V4L2_BUF_TYPE_VIDEO_CAPTURE) return {{courant.fmt.pix.width, courant.fmt.pix.height}};
  return {{courant.fmt.pix_mp.width, courant.fmt.pix_mp.height}};
}

/// Rates come as the time between two frames, so they are turned over here.
FormatCamera MetCadence(FormatCamera format, quint32 images, quint32 secondes) {
  constexpr quint32 kMax = 999'999'999;
  if (images == 0 || secondes == 0 || images > kMax || secondes > kMax) return format;
  format.CadenceNum = static_cast<int>(images);
  format.CadenceDen = static_cast<int>(secondes);
  return format;
}

/// The common rates that lie in a range of intervals; its fast end too, so that a range between them is not lost.
QList<FormatCamera> DeplieCadences(const FormatCamera& format, const v4l2_frmival_stepwise& etendue) {
  QList<FormatCamera> formats;
  const auto rend = [](const v4l2_fract& f) { return f.denominator == 0 ? 0.0 : double(f.numerator) / f.denominator; };
  formats.append(MetCadence(format, etendue.min.denominator, etendue.min.numerator));
  for (const quint32 cadence : kCadencesCourantes)
    if (1.0 / cadence > rend(etendue.min) && 1.0 / cadence < rend(etendue.max))
      formats.append(MetCadence(format, cadence, 1));
  return formats;
}

QList<FormatCamera> ListeCadences(const NoeudV4L2& noeud, quint32 code, const FormatCamera& format) {
  QList<FormatCamera> formats;
  for (quint32 i = 0; i < kEnumerationMax; ++i) {
    v4l2_frmivalenum demande = {};
    demande.index = i;
    demande.pixel_format = code;
    demande.width = static_cast<quint32>(format.Largeur);
    demande.height = static_cast<quint32>(format.Hauteur);
    if (!noeud.Demande(VIDIOC_ENUM_FRAMEINTERVALS, &demande)) break;
    if (demande.type != V4L2_FRMIVAL_TYPE_DISCRETE) return DeplieCadences(format, demande.stepwise);
    formats.append(MetCadence(format, demande.discrete.denominator, demande.discrete.numerator));
  }
  return formats.isEmpty() ? QList<FormatCamera>{format} : formats;
}

void AjouteCodage(const NoeudV4L2& noeud, quint32 type, quint32 code, QList<FormatCamera>& formats) {
  QList<FormatCamera> duCodage;
  for (const Taille& taille : ListeTailles(noeud, type, code)) {
    constexpr quint32 kCoteMax = 32'768;
    if (taille.Largeur == 0 || taille.Hauteur == 0 || taille.Largeur > kCoteMax || taille.Hauteur > kCoteMax) continue;
    FormatCamera format;
    format.Codage = TexteCodage(code);
    format.Largeur = static_cast<int>(taille.Largeur);
    format.Hauteur = static_cast<int>(taille.Hauteur);
    for (const FormatCamera& avecCadence : ListeCadences(noeud, code, format))
      if (!duCodage.contains(avecCadence)) duCodage.append(avecCadence);
  }
  std::stable_sort(duCodage.begin(), duCodage.end(), [](const FormatCamera& a, const FormatCamera& b) {
    const auto cle = [](const FormatCamera& f) {
      return std::make_tuple(qint64{f.Largeur} * f.Hauteur, f.Largeur, f.ImagesParSeconde());
    };
    return cle(a) > cle(b);
  });
  formats += duCodage;
}

}  // namespace

QList<FormatCamera> ListeFormats(const QString& chemin) {
  const NoeudV4L2 noeud(chemin);
  const quint32 type = noeud.TypeTampon();
  QList<FormatCamera> formats;
  if (type == 0) return formats;
  for (quint32 i = 0; i < kEnumerationMax; ++i) {
    v4l2_fmtdesc description = {};
    description.index = i;
    description.type = type;
    if (!noeud.Demande(VIDIOC_ENUM_FMT, &description)) break;
    AjouteCodage(noeud, type, description.pixelformat, formats);
  }
  return formats;
}

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

ReglageCamera Menu(quint32 numero, const char* nom, const QStringList& choix, qsizetype valeur) {
  ReglageCamera menu;
  menu.Numero = numero;
  menu.Nom = QLatin1String(nom);
  menu.Genre = ReglageCamera::Sorte::kMenu;
  menu.Maximum = static_cast<qint32>(choix.size()) - 1;
  menu.Valeur = menu.Defaut = static_cast<qint32>(valeur);  // no device says which one it would be born with
  menu.Choix = choix;
  return menu;
}

void AjouteEntrees(const NoeudV4L2& noeud, QList<ReglageCamera>& reglages) {
  QStringList noms;
  v4l2_input entree = {};
  for (; entree.index < kEnumerationMax && noeud.Demande(VIDIOC_ENUMINPUT, &entree); ++entree.index)
    noms.append(TexteNoyau(entree.name, sizeof entree.name));
  int courante = 0;
  if (noms.size() < 2 || !noeud.Demande(VIDIOC_G_INPUT, &courante)) return;
  reglages.append(Menu(kReglageEntree, "Input", noms, courante));
}

// An input without an analog signal, a camera's for one, has none.
QList<v4l2_standard> ListeNormes(const NoeudV4L2& noeud) {
  QList<v4l2_standard> normes;
  v4l2_standard norme = {};
  for (; norme.index < kEnumerationMax && noeud.Demande(VIDIOC_ENUMSTD, &norme); ++norme.index) normes.append(norme);
  return normes;
}

// A driver may stand at several at once ("PAL"), and list them together and one by one: the first that is all of it.
void AjouteNormes(const NoeudV4L2& noeud, QList<ReglageCamera>& reglages) {
  const QList<v4l2_standard> normes = ListeNormes(noeud);
  v4l2_std_id courante = 0;
  if (normes.isEmpty() || !noeud.Demande(VIDIOC_G_STD, &courante)) return;
  QStringList noms;
  qsizetype valeur = -1;
  for (const v4l2_standard& norme : normes) {
    if (valeur < 0 && (norme.id & courante) == courante) valeur = noms.size();
    noms.append(TexteNoyau(norme.name, sizeof norme.name));
  }
  reglages.append(Menu(kReglageNorme, "Standard", noms, std::max<qsizetype>(valeur, 0)));
}

bool AppliqueNorme(const NoeudV4L2& noeud, qint32 valeur) {
  const QList<v4l2_standard> normes = ListeNormes(noeud);
  if (valeur < 0 || valeur >= normes.size()) return false;
  v4l2_std_id norme = normes.at(valeur).id;
  return noeud.Demande(VIDIOC_S_STD, &norme);
}

}  // namespace

QList<ReglageCamera> ListeReglages(const QString& chemin) {
  const NoeudV4L2 noeud(chemin);
  QList<ReglageCamera> reglages;
  AjouteEntrees(noeud, reglages);
  AjouteNormes(noeud, reglages);
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
  if (numero == kReglageEntree) return noeud.Demande(VIDIOC_S_INPUT, &valeur);
  if (numero == kReglageNorme) return AppliqueNorme(noeud, valeur);
  v4l2_control reglage = {};
  reglage.id = numero;
  reglage.value = valeur;
  return noeud.Demande(VIDIOC_S_CTRL, &reglage);
}

}  // namespace vaktor
