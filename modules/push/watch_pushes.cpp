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
    : Dossier_(dossier), Sac_(std::move(sac)), Journal_(journal) {}

void PushVeille::Note(const QString& nom, const QString& quoi) const {
  Journal_.Note(QStringLiteral("message of the watch %1: %2").arg(nom, quoi));
}

PrisePush PushVeille::Prend(Langue parlee, const QString& titre, qint64 maintenant) {
  PrisePush prise;
  int erreur = 0;
  const bool vide = Dossier_.Liste(&erreur).isEmpty();
  prise.Reste = erreur != 0;
  if (vide || erreur != 0) return prise;
  try {
    // Of two companions, one that ends and one that begins, both would make a push of the same message.
    const VerrouDossier verrou(Dossier_.Dossier());
    const QStringList noms = Dossier_.Liste();
    for (const QString& nom : noms)
      if (!Passes_.contains(nom)) PrendUn(nom, parlee, titre, prise);
    prise.Reste = prise.Reste || noms.size() >= DossierVeille::kMessagesMax;
    Dossier_.RetireOrphelins(maintenant);
  } catch (const Echec&) {
    prise.Reste = true;
  }
  return prise;
}

void PushVeille::PrendUn(const QString& nom, Langue parlee, const QString& titre, PrisePush& prise) {
  const bool encore = Essayes_.contains(nom);
  Essayes_.insert(nom);
  QString raison;
  const std::optional<MessageVeille> message = Dossier_.Lit(nom, SacPush::kImageMax, raison);
  if (!message) {
    prise.Illisible = prise.Illisible || !raison.isEmpty();
    prise.Reste = prise.Reste || raison.isEmpty();
    if (raison.isEmpty()) return;
    Note(nom, QStringLiteral("put aside, ") + raison);
    if (!Dossier_.MetDeCote(nom)) Passes_.insert(nom);
    return;
  }
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
  if (!Dossier_.Efface(nom)) Passes_.insert(nom);
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
  if (erreur == 0) Note(message.Nom, QStringLiteral("push made, ") + message.Condition);
  return erreur;
}

}  // namespace vaktor
