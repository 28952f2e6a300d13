// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/intrusion_words.h"

#include <QLocale>
#include <algorithm>
#include <array>

#include "texts/phrase.h"

namespace vaktor {
namespace {

constexpr Phrase kDebut{"L'intrusion a commencé le %1 à %2.", "The intrusion began on %1 at %2."};
constexpr Phrase kJour{"dddd d MMMM yyyy", "dddd d MMMM yyyy"};
constexpr Phrase kTete{"La première photo est celle du plus grand mouvement jusqu'ici.",
                       "The first picture is that of the most movement so far."};
constexpr Phrase kTeteOu{"La première photo est celle du plus grand mouvement jusqu'ici : regardez %1.",
                         "The first picture is that of the most movement so far: look %1."};
constexpr Phrase kFrise{"La suite est dans la Frise de Vaktor (touche F4), sur l'ordinateur qui veille.",
                        "What followed is in Vaktor's Timeline (key F4), on the computer that watches."};
constexpr Phrase kDossier{"Les photos y sont dans %1", "Its pictures are there in %1"};
constexpr Phrase kSansPhoto{"Jusqu'ici il n'y en a pas de photo : la fenêtre de Vaktor dit ce qui l'empêche.",
                            "So far there is no picture of it: Vaktor's window says what prevents it."};

/// From the left to the right, from the top to the bottom.
constexpr std::array<std::array<Phrase, 3>, 3> kEndroits{
    {{{{"en haut à gauche", "at the top left"}, {"en haut", "at the top"}, {"en haut à droite", "at the top right"}}},
     {{{"à gauche", "on the left"}, {"au milieu", "in the middle"}, {"à droite", "on the right"}}},
     {{{"en bas à gauche", "at the bottom left"},
       {"en bas", "at the bottom"},
       {"en bas à droite", "at the bottom right"}}}}};
constexpr Phrase kPartout{"partout", "all over it"};

std::size_t DonneTiers(int milieu, int cote) { return static_cast<std::size_t>(std::clamp(3 * milieu / cote, 0, 2)); }

QString DitTete(const ArdoiseIntrusion& ardoise, const QString& tete, Langue langue) {
  const auto photo =
      std::find_if(ardoise.Photos.begin(), ardoise.Photos.end(), [&](const PhotoArdoise& p) { return p.Nom == tete; });
  const QString ou = photo == ardoise.Photos.end() ? QString() : DitEndroit(photo->Cadre, ardoise.Taille, langue);
  return ou.isEmpty() ? kTete.Dit(langue) : kTeteOu.Dit(langue, ou);
}

}  // namespace

// A box of most of both sides has no place of its own.
QString DitEndroit(const QRect& cadre, const QSize& taille, Langue langue) {
  if (cadre.isEmpty() || taille.isEmpty()) return {};
  if (cadre.width() >= taille.width() / 3 * 2 && cadre.height() >= taille.height() / 3 * 2) return kPartout.Dit(langue);
  const QPoint milieu = cadre.center();
  return kEndroits.at(DonneTiers(milieu.y(), taille.height())).at(DonneTiers(milieu.x(), taille.width())).Dit(langue);
}

QString DitIntrusionDuCourriel(const ArdoiseIntrusion& ardoise, const QString& tete, const QString& dossier,
                               Langue langue) {
  // The clock of the machine that watches, as on its photos.
  const QDateTime debut = ardoise.Depuis.toOffsetFromUtc(ardoise.Depuis.offsetFromUtc());
  QStringList lignes{kDebut.Dit(langue, DonneLocale(langue).toString(debut.date(), kJour.Dit(langue)),
                                debut.time().toString(QStringLiteral("HH:mm:ss")))};
  if (!tete.isEmpty()) lignes.append(DitTete(ardoise, tete, langue));
  lignes.append(kFrise.Dit(langue));
  // Without a full stop behind it: readers make links of paths, and would take it along.
  if (!dossier.isEmpty())
    lignes.append(ardoise.Photos.isEmpty() ? kSansPhoto.Dit(langue) : kDossier.Dit(langue, dossier));
  return lignes.join(u'\n');
}

}  // namespace vaktor
