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
    : Dossier_(dossier), Sac_(std::move(sac)), Retard_(retard), Marque_(std::move(marque)), Journal_(journal) {
  EffaceLesFaits();
}

void CourriersVeille::Note(const QString& nom, const QString& quoi) const {
  Journal_.Note(QStringLiteral("message of the watch %1: %2").arg(nom, quoi));
}

QStringList CourriersVeille::DonneAttente(int* erreur) const {
  QStringList noms = Dossier_.Liste(erreur);
  noms.removeIf([this](const QString& nom) { return Passes_.contains(nom); });
  return noms;
}

bool CourriersVeille::Tient(const QString& courriel) const {
  const QStringList noms = DonneAttente();
  return std::any_of(noms.begin(), noms.end(),
                     [&](const QString& n) { return courriel.contains(Empreinte(n) + u'-'); });
}

int CourriersVeille::LitPlusAncien(std::optional<qint64>& faitA) const {
  faitA.reset();
  int erreur = 0;
  const QStringList noms = DonneAttente(&erreur);
  if (!noms.isEmpty()) faitA = DossierVeille::DonneInstant(noms.first());
  return erreur;
}

bool CourriersVeille::EffaceLesFaits() {
  const QStringList attente = DonneAttente();
  if (attente.isEmpty()) return true;
  const std::optional<QStringList> faits = Sac_.DonneNoms();
  if (!faits) return false;
  for (const QString& nom : attente) {
    const QString empreinte = Empreinte(nom) + u'-';
    if (std::none_of(faits->begin(), faits->end(), [&](const QString& fait) { return fait.contains(empreinte); }))
      continue;
    Note(nom, QStringLiteral("its mail is made already"));
    if (!Dossier_.Efface(nom)) Passes_.insert(nom);
  }
  return true;
}

void CourriersVeille::NoteParti(const QString& courriel) {
  const QStringList attente = DonneAttente();
  for (const QString& nom : attente)
    if (courriel.contains(Empreinte(nom) + u'-') && !Dossier_.Efface(nom)) Passes_.insert(nom);
}

PriseVeille CourriersVeille::Prend(const ReglagesCourriel& reglages, qint64 maintenant) {
  PriseVeille prise;
  int erreur = 0;
  const bool vide = DonneAttente(&erreur).isEmpty();
  prise.Reste = erreur != 0;
  if (vide || erreur != 0) return prise;
  try {
    // Of two companions, one that ends and one that begins, both would make a mail of the same message.
    const VerrouDossier verrou(Dossier_.Dossier());
    // A message whose mail may be made already makes no second one.
    prise.Reste = !EffaceLesFaits();
    if (prise.Reste) return prise;
    const QStringList noms = DonneAttente();
    for (const QString& nom : noms) PrendUn(nom, reglages, maintenant, prise);
    prise.Reste = prise.Reste || noms.size() >= DossierVeille::kMessagesMax;
    Dossier_.RetireOrphelins(maintenant);
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
    Note(nom, QStringLiteral("too old, given up"));
    if (!Dossier_.Efface(nom)) Passes_.insert(nom);
    return;
  }
  QString raison;
  const std::optional<MessageVeille> message = Dossier_.Lit(nom, kOctetsPhotosMax, raison);
  if (!message) {
    prise.Illisible = prise.Illisible || !raison.isEmpty();
    prise.Reste = prise.Reste || raison.isEmpty();
    if (raison.isEmpty()) return;
    Note(nom, QStringLiteral("put aside, ") + raison);
    if (!Dossier_.MetDeCote(nom)) Passes_.insert(nom);
    return;
  }
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
  if (!Dossier_.Efface(message.Nom)) Passes_.insert(message.Nom);
  Note(message.Nom, QStringLiteral("mail %1 made, %2").arg(mail.Nom, message.Condition));
  return Retard_.Publie(mail.Nom, mail.FaitA).Erreur;
}

}  // namespace vaktor
