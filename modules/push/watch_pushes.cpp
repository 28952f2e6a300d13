// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/watch_pushes.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/failure.h"
#include "base/photo_format.h"
#include "platform/store/private_file.h"

namespace vaktor {
namespace {

/// Part of a push's name in the outbox by which its message is known again.
QString Empreinte(const QString& nom) { return QStringLiteral("veille-") + nom; }

}  // namespace

PushVeille::PushVeille(const QString& dossier, SacPush sac, JournalBorne& journal)
    : Lecteur_(dossier, journal), Sac_(std::move(sac)) {}

PrisePush PushVeille::Prend(Langue parlee, const QString& titre, qint64 maintenant) {
  PrisePush prise;
  int erreur = 0;
  const bool vide = Lecteur_.Liste(&erreur).isEmpty();
  prise.Reste = erreur != 0;
  if (vide || erreur != 0) return prise;
  try {
    // Of two companions, one that ends and one that begins, both would make a push of the same message.
    const VerrouDossier verrou(Lecteur_.Dossier().Dossier());
    const QStringList noms = Lecteur_.Liste();
    for (const QString& nom : noms) PrendUn(nom, parlee, titre, prise);
    prise.Reste = prise.Reste || noms.size() >= DossierVeille::kMessagesMax;
    Lecteur_.Dossier().RetireOrphelins(maintenant);
  } catch (const Echec&) {
    prise.Reste = true;
  }
  return prise;
}

void PushVeille::PrendUn(const QString& nom, Langue parlee, const QString& titre, PrisePush& prise) {
  const bool encore = Essayes_.contains(nom);
  Essayes_.insert(nom);
  const auto [message, illisible] = Lecteur_.Lit(nom, SacPush::kImageMax);
  prise.Illisible = prise.Illisible || illisible;
  prise.Reste = prise.Reste || (!message && !illisible);
  if (!message) return;
  if (message->PhotoPlusTard && !encore) {
    prise.Reste = true;
    return;
  }
  if (!EstFait(nom)) {
    if (const int erreur = Depose(*message, parlee, titre); erreur != 0) {
      prise.Erreur = erreur;
      prise.Reste = true;
      return;
    }
    ++prise.Pris;
  }
  Lecteur_.Efface(nom);
}

bool PushVeille::EstFait(const QString& nom) const {
  const QStringList faits = Sac_.Liste();
  return std::ranges::any_of(
      faits, [fin = u'-' + Empreinte(nom) + SacPush::kFin](const QString& fait) { return fait.endsWith(fin); });
}

int PushVeille::Depose(const MessageVeille& message, Langue parlee, const QString& titre) {
  const QString sujet = message.Sujet.Dit(parlee);
  MessagePush push{sujet.isEmpty() ? titre : sujet, message.Texte.Dit(parlee), {}, message.Photo};
  if (!push.Image.isEmpty()) push.NomImage = message.Nom + kFinPhoto;
  const int erreur = Sac_.Ajoute(push, message.FaitA, Empreinte(message.Nom));
  if (erreur == 0) Lecteur_.Note(message.Nom, QStringLiteral("push made, ") + message.Condition);
  return erreur;
}

}  // namespace vaktor
