// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/status_words.h"

namespace vaktor {

namespace {

const QList<LigneMot>& DonneTable() {
  using S = SuiteMot;
  using C = ChampLiaison;
  static const QList<LigneMot> table = {
      {.Mot = QLatin1String("*OKO*"), .Suite = S::kPret},
      {.Mot = QLatin1String("Surve"),
       .SurveillanceSeule = true,
       .Statut = Libelle::kSurveillanceActive,
       .Led = Lampe::kVerte},
      {.Mot = QLatin1String("Conne"), .Statut = Libelle::kEnConnexion},
      {.Mot = QLatin1String("Decon"), .Statut = Libelle::kSurveillanceInactive},
      {.Mot = QLatin1String("Uploa"), .Statut = Libelle::kEnUpload},
      {.Mot = QLatin1String("Netdc"), .Statut = Libelle::kInternetImpossible, .Suite = S::kReconnexion},
      {.Mot = QLatin1String("SerTR"), .Litteral = Phrase{"Serveur trouvé", "Serveur trouvé"}},
      {.Mot = QLatin1String("SerER"),
       .Statut = Libelle::kServeurIntrouvable,
       .Led = Lampe::kRouge,
       .Rouges = {C::kTxtFtp},
       .Suite = S::kFin,
       .Panne = true},
      {.Mot = QLatin1String("RepER"),
       .Statut = Libelle::kRepertoireInexistant,
       .Led = Lampe::kRouge,
       .Rouges = {C::kTxtFTPracine},
       .Suite = S::kFin},
      {.Mot = QLatin1String("Paswo"), .Litteral = Phrase{"Identification", "Identification"}},
      {.Mot = QLatin1String("UplOK"),
       .SurveillanceSeule = true,
       .Statut = Libelle::kUploadTermine,
       .Led = Lampe::kVerte,
       .Suite = S::kLive},
      {.Mot = QLatin1String("ConOK"),
       .SurveillanceSeule = true,
       .Statut = Libelle::kFtpConnecte,
       .Led = Lampe::kVerte,
       .Suite = S::kLive},
      {.Mot = QLatin1String("LogEr"),
       .Statut = Libelle::kAccesIncorrect,
       .Led = Lampe::kRouge,
       .Rouges = {C::kTxtUserName, C::kTxtPass},
       .Suite = S::kFin},
      {.Mot = QLatin1String("ErrCo"),
       .Statut = Libelle::kEchecFtp,
       .Led = Lampe::kRouge,
       .Suite = S::kFin,
       .Panne = true},
      // Unlike the other errors this one leaves the lamp as it is.
      {.Mot = QLatin1String("Upnot"), .Statut = Libelle::kInfosManquent, .Suite = S::kFin},
  };
  return table;
}

}  // namespace

const LigneMot* TrouveLigneMot(const QString& mot) {
  for (const LigneMot& ligne : DonneTable())
    if (ligne.Mot == mot) return &ligne;
  return nullptr;
}

}  // namespace vaktor
