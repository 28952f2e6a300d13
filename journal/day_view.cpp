// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/day_view.h"

#include <algorithm>
#include <cmath>

namespace vaktor {
namespace {

QDate JourDe(const QDateTime& moment) { return moment.toLocalTime().date(); }

}  // namespace

JourVu ComposeJour(const Chronique& chronique, const QDate& jour) {
  JourVu vu{.Jour = jour, .De = jour.startOfDay(), .A = jour.addDays(1).startOfDay(), .Intrusions = {}};
  for (qsizetype i = 0; i < chronique.Intrusions.size(); ++i) {
    const QDateTime& debut = chronique.Intrusions.at(i).Debut;
    if (debut >= vu.De && debut < vu.A) vu.Intrusions.append(i);
  }
  vu.VeilleMs = chronique.DureeVeille(vu.De, vu.A);
  return vu;
}

qsizetype CompteIntrusions(const Chronique& chronique, const QDate& jour) {
  const QDateTime de = jour.startOfDay();
  const QDateTime a = jour.addDays(1).startOfDay();
  return std::count_if(chronique.Intrusions.begin(), chronique.Intrusions.end(),
                       [&](const IntrusionVue& vue) { return vue.Debut >= de && vue.Debut < a; });
}

QDate ChoisitJour(const Chronique& chronique, const QDate& aujourdhui) {
  QDate dernier;
  const auto note = [&](const QDateTime& moment) {
    const QDate jour = JourDe(moment);
    if (jour <= aujourdhui && (!dernier.isValid() || jour > dernier)) dernier = jour;
  };
  for (const IntrusionVue& vue : chronique.Intrusions) note(vue.Debut);
  for (const BandeTemps& bande : chronique.Armees) note(bande.A);
  return dernier.isValid() ? dernier : aujourdhui;
}

Fenetre Deplace(const Fenetre& fenetre, qint64 de, qint64 jour) {
  const qint64 largeur = std::min(fenetre.A - fenetre.De, jour);
  const qint64 debut = std::clamp<qint64>(de, 0, jour - largeur);
  return {debut, debut + largeur};
}

Fenetre Zoome(const Fenetre& fenetre, double facteur, qint64 autour, qint64 jour) {
  const double largeur = static_cast<double>(fenetre.A - fenetre.De);
  const qint64 neuve = std::clamp<qint64>(std::llround(largeur / facteur), std::min(kFenetreMin, jour), jour);
  const double part = largeur > 0 ? static_cast<double>(autour - fenetre.De) / largeur : 0.5;
  return Deplace({0, neuve}, autour - std::llround(part * static_cast<double>(neuve)), jour);
}

}  // namespace vaktor
