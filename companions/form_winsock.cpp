// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/form_winsock.h"

#include <cstdio>
#include <exception>

#include "base/numbers.h"
#include "companions/status_words.h"

namespace vaktor {

namespace {

/// "HWND:" is the one word with something behind it. True when `texte` was one.
bool LitPoignee(const QString& texte, qint32& poignee) {
  if (texte.left(kLongueurMot) != kMotHwnd) return false;
  poignee = TexteEnEntier(texte.mid(kLongueurMot));
  return true;
}

}  // namespace

FormWinsock::FormWinsock(const PortsWinsock& ports)
    : Ports_(ports),
      TimerFTPreconnect_(ports.Minuteries.CreeMinuterie(QStringLiteral("TimerFTPreconnect"), kDelaiReconnexion,
                                                        [this] { TicReconnexion(); })) {
  OuvreCasier(Compagnon::kFtp, &FormWinsock::ChangeTxtCmdFTP);
  OuvreCasier(Compagnon::kMail, &FormWinsock::ChangeTxtCmdMail);
  OuvreCasier(Compagnon::kSon, &FormWinsock::ChangeTxtCmdSound);
  // The companions are launched next and read the handles at once: they have to be on disk by then.
  Ports_.Magasin.Vide();
}

void FormWinsock::Republie() {
  for (const Compagnon compagnon : kCompagnons) EcritPoignee(compagnon);
  try {
    Ports_.Magasin.Vide();
  } catch (...) {
    // They must not wait for a later save: another copy may have put its own there by then.
    for (const Compagnon compagnon : kCompagnons) Ports_.Magasin.Reprend(DonneIdentite(compagnon).Section, kCleHwndvk);
    throw;
  }
}

// On the way out: an inbox that does not close must neither keep the others open nor end the program half-way.
FormWinsock::~FormWinsock() {
  for (const qint32 poignee : Poignees_) {
    try {
      Ports_.Canal.FermeCasier(poignee);
    } catch (const std::exception& echec) {
      std::fprintf(stderr, "Vaktor: %s\n", echec.what());
    }
  }
}

void FormWinsock::OuvreCasier(Compagnon compagnon, void (FormWinsock::*recu)(const QString&)) {
  const qint32 poignee = Ports_.Canal.OuvreCasier([this, recu](const QString& texte) { (this->*recu)(texte); });
  Poignees_.at(static_cast<std::size_t>(compagnon)) = poignee;
  EcritPoignee(compagnon);
}

void FormWinsock::EcritPoignee(Compagnon compagnon) {
  const qint32 poignee = Poignees_.at(static_cast<std::size_t>(compagnon));
  Ports_.Magasin.EcritReglage(DonneIdentite(compagnon).Section, kCleHwndvk, QString::number(poignee));
}

bool FormWinsock::PrendPoignee(Compagnon compagnon, const QString& texte, qint32& poignee) {
  if (!LitPoignee(texte, poignee)) return false;
  if (Ports_.SurInscription) Ports_.SurInscription(compagnon);
  return true;
}

void FormWinsock::ChangeTxtCmdMail(const QString& texte) {
  PrendPoignee(Compagnon::kMail, texte, Ports_.Etat.HandleMail);
}

void FormWinsock::ChangeTxtCmdSound(const QString& texte) {
  PrendPoignee(Compagnon::kSon, texte, Ports_.Etat.HandleSon);
}

void FormWinsock::ChangeTxtCmdFTP(const QString& texte) {
  if (PrendPoignee(Compagnon::kFtp, texte, Ports_.Etat.HandleFTP)) return;
  // What one that was killed had still said: a green lamp, and frames for nobody.
  if (Ports_.FtpInscrit && !Ports_.FtpInscrit()) return;
  const LigneMot* ligne = TrouveLigneMot(texte.left(kLongueurMot));
  if (ligne == nullptr || (ligne->SurveillanceSeule && !Ports_.Etat.SurveillanceEnCours)) return;
  // No click takes the red from the folder: the next word that tells of the link does, or paints it anew.
  if (ligne->Statut || ligne->Litteral) Ports_.Liaison.NoircitRacine();
  if (Attend(*ligne)) return;
  if (ligne->Statut) Ports_.Liaison.MontreStatut(*ligne->Statut);
  if (ligne->Litteral) Ports_.Liaison.MontreStatutLitteral(*ligne->Litteral);
  if (ligne->Led) Ports_.Affichage.MontreLampeSurveillance(*ligne->Led);
  for (const ChampLiaison champ : ligne->Rouges) Ports_.Liaison.RougitChamp(champ);
  NoteCoupure(*ligne);
  AgitSelon(ligne->Suite);
}

// The page ran, so what it is set to is right. The companion that went would have waited for its server; the one in its
// place has never been connected and gives up, so it is told again.
bool FormWinsock::Attend(const LigneMot& ligne) {
  if (!ligne.Panne || !Ports_.Etat.PageInterrompue) return false;
  if (ligne.Statut) Ports_.Liaison.MontreStatut(*ligne.Statut);
  Ports_.Affichage.MontreLampeSurveillance(Lampe::kRougeAllumee);
  TimerFTPreconnect_->Active();
  return true;
}

// Whoever has just clicked sees the status line. A page that ran goes off while nobody looks, and being off it would
// not even be an old one any more.
void FormWinsock::NoteCoupure(const LigneMot& ligne) {
  const EtatLiaison& etat = Ports_.Etat;
  const bool marchait = etat.LiveActif || etat.PageInterrompue || etat.PageAttendue;
  if (ligne.Suite == SuiteMot::kFin && marchait) Ports_.Etat.PageCoupee = ligne.Statut;
}

void FormWinsock::AgitSelon(SuiteMot suite) {
  switch (suite) {
    case SuiteMot::kRien:
      break;
    case SuiteMot::kPret:
      Ports_.Etat.FtpModulePret = true;
      // Also when that timer has fired before: the switches then toggle once more. The link behaves so.
      // But not for a companion that was started again meanwhile: nobody has pressed anything, and the watch would be
      // taken back behind the user's back.
      if (!Ports_.FtpRelance || !Ports_.FtpRelance()) Ports_.RelanceDemarrageAuto();
      break;
    case SuiteMot::kReconnexion:
      TimerFTPreconnect_->Active();
      break;
    case SuiteMot::kLive:
      Ports_.Etat.CoupeFrames();
      Ports_.Etat.LiveActif = true;
      break;
    case SuiteMot::kFin:
      // The companion counts as disconnected from here on: no command goes out, and the camera stays as it is.
      Ports_.Liaison.MontrePageFtp();
      Ports_.Etat.CoupeFrames();
      Ports_.Etat.SurveillanceEnCours = false;
      break;
  }
}

void FormWinsock::TicReconnexion() {
  if (Ports_.Etat.PageInterrompue) {
    Ports_.Commandes.EnvoiFTP(Commande::kConnexion);
    if (Ports_.Etat.PageAttendue) Ports_.Commandes.EnvoiFTP(Commande::kPage);
  } else if (Ports_.Etat.SurveillanceEnCours) {
    Ports_.Commandes.EnvoiFTP(Commande::kSurveillance);
  }
  TimerFTPreconnect_->Desactive();
}

}  // namespace vaktor
