// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/mail_accounts.h"

#include <algorithm>

namespace vaktor {

namespace {

constexpr qint32 kPortSansIndication = 25;

void RetientCompte(ComptesMail& comptes, const CompteMail& compte) {
  comptes.Cases.at(static_cast<std::size_t>(comptes.NbrComptes)) = compte;
  ++comptes.NbrComptes;
}

}  // namespace

void LitComptesMail(LecteurComptes& lecteur, PompeEvenements& pompe, ComptesMail& comptes,
                    const std::function<void(const CompteMail&)>& ajoute) {
  comptes.NbrComptes = 0;
  const QList<CompteMail> lus = lecteur.LitComptes().mid(0, ComptesMail::kComptesLus);
  for (qsizetype i = 0; i < lus.size(); ++i) {
    const CompteMail& compte = lus.at(i);
    // The position among all of them: an unusable account before the default one makes it point at another slot. When
    // none is the default, the value of an earlier reading stays.
    if (compte.ParDefaut) comptes.IndexCompteDefaut = static_cast<qint32>(i);
    if (EstUtilisable(compte)) {  // the others are left out, and later ones move up
      RetientCompte(comptes, compte);
      ajoute(compte);
    }
    pompe.PompeMessages();
  }
}

void ReprendCompte(const ComptesMail& comptes, qint32 index, Parametres& reglages) {
  const std::optional<CompteMail>& place = comptes.Cases.at(static_cast<std::size_t>(index));
  const CompteMail compte = place.value_or(CompteMail{});
  reglages.SmtpServeur = compte.Serveur;
  reglages.SmtpFrom = compte.Adresse;
  reglages.SmtpNeedLogin = !compte.Utilisateur.isEmpty();
  reglages.SmtpUser = compte.Utilisateur;
  reglages.SmtpPort = place ? QString::number(compte.Port == 0 ? kPortSansIndication : compte.Port) : QString();
}

bool SontDUnCompteOAuth2(const Parametres& reglages, const ComptesMail& comptes) {
  const auto fin = comptes.Cases.begin() + comptes.NbrComptes;
  return std::any_of(comptes.Cases.begin(), fin, [&reglages](const std::optional<CompteMail>& compte) {
    return compte->OAuth2 && compte->Serveur == reglages.SmtpServeur && compte->Utilisateur == reglages.SmtpUser;
  });
}

}  // namespace vaktor
