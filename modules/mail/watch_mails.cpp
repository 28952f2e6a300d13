// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/watch_mails.h"

#include <QDateTime>
#include <algorithm>

#include "base/failure.h"
#include "base/photo_format.h"
#include "platform/store/private_file.h"

namespace vaktor {
namespace {

/// Part of a mail's name in the outbox by which its message is known again.
QString Empreinte(const QString& nom) { return QStringLiteral("-veille-") + nom; }

QString ComposeIdentifiant(const MessageVeille& message) {
  return QDateTime::fromMSecsSinceEpoch(message.FaitA, Qt::UTC).toString(QStringLiteral("yyyyMMddHHmmsszzz")) +
         Empreinte(message.Nom);
}

}  // namespace

CourriersVeille::CourriersVeille(const QString& dossier, SacPostal sac, BrouillonsEnRetard& retard, QString marque,
                                 JournalBorne& journal)
    : Lecteur_(dossier, journal), Sac_(std::move(sac)), Retard_(retard), Marque_(std::move(marque)), Journal_(journal) {
  EffaceLesFaits();
}

bool CourriersVeille::Tient(const QString& courriel) const {
  const QStringList noms = Lecteur_.Liste();
  return std::any_of(noms.begin(), noms.end(),
                     [&](const QString& n) { return courriel.contains(Empreinte(n) + u'-'); });
}

int CourriersVeille::LitPlusAncien(std::optional<qint64>& faitA) const {
  faitA.reset();
  int erreur = 0;
  const QStringList noms = Lecteur_.Liste(&erreur);
  if (!noms.isEmpty()) faitA = DossierVeille::DonneInstant(noms.first());
  return erreur;
}

bool CourriersVeille::EffaceLesFaits() {
  const QStringList attente = Lecteur_.Liste();
  if (attente.isEmpty()) return true;
  const std::optional<QStringList> faits = Sac_.DonneNoms();
  if (!faits) return false;
  for (const QString& nom : attente) {
    const QString empreinte = Empreinte(nom) + u'-';
    if (std::none_of(faits->begin(), faits->end(), [&](const QString& fait) { return fait.contains(empreinte); }))
      continue;
    Lecteur_.Note(nom, QStringLiteral("its mail is made already"));
    Lecteur_.Efface(nom);
  }
  return true;
}

void CourriersVeille::NoteParti(const QString& courriel) {
  const QStringList attente = Lecteur_.Liste();
  for (const QString& nom : attente)
    if (courriel.contains(Empreinte(nom) + u'-')) Lecteur_.Efface(nom);
}

PriseVeille CourriersVeille::Prend(const ReglagesCourriel& reglages, qint64 maintenant) {
  PriseVeille prise;
  int erreur = 0;
  const bool vide = Lecteur_.Liste(&erreur).isEmpty();
  prise.Reste = erreur != 0;
  if (vide || erreur != 0) return prise;
  try {
    // Of two companions, one that ends and one that begins, both would make a mail of the same message.
    const VerrouDossier verrou(Lecteur_.Dossier().Dossier());
    // A message whose mail may be made already makes no second one.
    prise.Reste = !EffaceLesFaits();
    if (prise.Reste) return prise;
    const QStringList noms = Lecteur_.Liste();
    for (const QString& nom : noms) PrendUn(nom, reglages, maintenant, prise);
    prise.Reste = prise.Reste || noms.size() >= DossierVeille::kMessagesMax;
    Lecteur_.Dossier().RetireOrphelins(maintenant);
  } catch (const Echec&) {
    prise.Reste = true;
  }
  if (prise.SansAdresse && !SansAdresse_) Journal_.Note(QStringLiteral("messages of the watch wait: no destination"));
  SansAdresse_ = prise.SansAdresse;
  return prise;
}

void CourriersVeille::PrendUn(const QString& nom, const ReglagesCourriel& reglages, qint64 maintenant,
                              PriseVeille& prise) {
  const bool encore = Essayes_.contains(nom);
  Essayes_.insert(nom);
  if (encore && maintenant - DossierVeille::DonneInstant(nom) > SacPostal::kAgeMaxMs) {
    prise.Abandonne = true;
    Lecteur_.Note(nom, QStringLiteral("too old, given up"));
    Lecteur_.Efface(nom);
    return;
  }
  const auto [message, illisible] = Lecteur_.Lit(nom, kOctetsPhotosMax);
  prise.Illisible = prise.Illisible || illisible;
  prise.Reste = prise.Reste || (!message && !illisible);
  if (!message) return;
  if (!reglages.PeutEcrire()) {
    prise.SansAdresse = true;
    return;
  }
  if (message->PhotoPlusTard && !encore) {
    prise.Reste = true;
    return;
  }
  prise.Erreur = Depose(*message, reglages, prise);
  prise.Reste = prise.Reste || prise.Erreur != 0;
  if (prise.Erreur == 0) ++prise.Pris;
}

int CourriersVeille::Depose(const MessageVeille& message, const ReglagesCourriel& reglages, PriseVeille& prise) {
  const QString identifiant = ComposeIdentifiant(message);
  Courriel courriel{.Expediteur = reglages.Adresses.Expediteur,
                    .Destinataires = reglages.Adresses.Destinataires,
                    .Sujet = message.Sujet.Dit(reglages.Parlee),
                    .Corps = message.Texte.Dit(reglages.Parlee),
                    .Date = QDateTime::fromMSecsSinceEpoch(message.FaitA),
                    .Identifiant = identifiant,
                    .Pieces = {}};
  if (!message.Photo.isEmpty() && Sac_.DonneOctets() <= SacPostal::kOctetsMax)
    courriel.Pieces.append({courriel.Date.toString(QStringLiteral("yyyy-MM-dd  HH-mm-ss")) + kFinPhoto, message.Photo});
  CourrielEnAttente mail;
  // With the mark of this process the sending thread leaves the draft alone until the message is deleted. The
  // Message-ID is without it: whoever gets a mail twice can tell.
  mail.Nom = identifiant + u'-' + Marque_;
  mail.Expediteur = courriel.Expediteur;
  mail.Destinataires = courriel.Destinataires;
  mail.FaitA = message.FaitA;
  mail.Prioritaire = true;
  int erreur = Sac_.PoseBrouillon(mail, ComposeMessage(courriel));
  if (erreur != 0 && !courriel.Pieces.isEmpty()) {
    courriel.Pieces.clear();  // the words matter more
    erreur = Sac_.PoseBrouillon(mail, ComposeMessage(courriel));
  }
  if (erreur != 0) {
    prise.DeMemoire.append({mail, ComposeMessage(courriel)});
    return erreur;
  }
  Lecteur_.Efface(message.Nom);
  Lecteur_.Note(message.Nom, QStringLiteral("mail %1 made, %2").arg(mail.Nom, message.Condition));
  return Retard_.Publie(mail.Nom, mail.FaitA).Erreur;
}

}  // namespace vaktor
