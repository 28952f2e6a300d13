// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/accounts/key_file.h"

#include <algorithm>

#include "platform/accounts/foreign_file.h"

namespace vaktor {
namespace {

QByteArray SansEchappements(const QByteArray& brut) {
  QByteArray texte;
  for (qsizetype i = 0; i < brut.size(); ++i) {
    if (brut[i] != '\\' || i + 1 == brut.size()) {
      texte += brut[i];
      continue;
    }
    const char c = brut[++i];
    if (c == 's') {
      texte += ' ';
    } else if (c == 'n') {
      texte += '\n';
    } else if (c == 't') {
      texte += '\t';
    } else if (c == 'r') {
      texte += '\r';
    } else {
      if (c != '\\') texte += '\\';  // no escape of theirs: as it stands
      texte += c;
    }
  }
  return texte;
}

}  // namespace

FichierCles::FichierCles(QByteArrayView octets) {
  for (qsizetype debut = 0; debut < octets.size();) {
    qsizetype fin = debut;
    while (fin < octets.size() && octets[fin] != '\n' && octets[fin] != '\r') ++fin;
    const QByteArrayView ligne = octets.sliced(debut, fin - debut).trimmed();
    debut = fin + 1;
    if (ligne.isEmpty() || ligne[0] == '#' || ligne[0] == ';') continue;
    if (ligne[0] == '[') {
      if (ligne.back() == ']') Groupes_.append({RendUtf8(ligne.sliced(1, ligne.size() - 2)), {}});
      continue;
    }
    const qsizetype egal = ligne.indexOf('=');
    if (egal <= 0 || Groupes_.isEmpty()) continue;
    Groupes_.last().Lignes.append({RendUtf8(ligne.first(egal).trimmed()), RendUtf8(ligne.sliced(egal + 1).trimmed())});
  }
}

bool FichierCles::AGroupe(QByteArrayView groupe) const {
  return std::ranges::any_of(Groupes_, [&](const GroupeCles& g) { return g.Nom == groupe; });
}

QByteArray FichierCles::Valeur(QByteArrayView groupe, QByteArrayView cle) const {
  QByteArray valeur;
  for (const GroupeCles& g : Groupes_) {
    if (g.Nom != groupe) continue;
    for (const auto& [nom, texte] : g.Lignes) {
      if (nom == cle) valeur = texte;
    }
  }
  return valeur;
}

QByteArray FichierCles::ValeurGlib(QByteArrayView groupe, QByteArrayView cle) const {
  return SansEchappements(Valeur(groupe, cle));
}

QByteArray ValeurDe(const GroupeCles& groupe, QByteArrayView cle) {
  QByteArray valeur;
  for (const auto& [nom, texte] : groupe.Lignes) {
    if (nom == cle) valeur = texte;
  }
  return valeur;
}

}  // namespace vaktor
