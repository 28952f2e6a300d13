#include "companions/status_words.h"

namespace vaktor {

namespace {

const QList<LigneMot>& DonneTable() {
  using S = SuiteMot;
  using C = ChampLiaison;
  static const QList<LigneMot> table = {
      {.Mot = QLatin1String("*OKO*"), .Suite = S::kPret},
      {.Mot = QLatin1String("Surve"), .SurveillanceSeule = true, .Statut = 33, .Led = Lampe::kVerte},
      {.Mot = QLatin1String("Conne"), .Statut = 69},
      {.Mot = QLatin1String("Decon"), .Statut = 34},
      {.Mot = QLatin1String("Uploa"), .Statut = 70},
      {.Mot = QLatin1String("Netdc"), .Statut = 174, .Suite = S::kReconnexion},
      {.Mot = QLatin1String("SerTR"), .Litteral = u"Serveur trouv\u00e9"},
      {.Mot = QLatin1String("SerER"),
       .Statut = 71,
       .Led = Lampe::kRouge,
       .Rouges = {C::kTxtFtp},
       .Suite = S::kFin,
       .Panne = true},
      {.Mot = QLatin1String("RepER"),
       .Statut = 72,
       .Led = Lampe::kRouge,
       .Rouges = {C::kTxtFTPracine},
       .Suite = S::kFin},
      {.Mot = QLatin1String("Paswo"), .Litteral = u"Identification"},
      {.Mot = QLatin1String("UplOK"), .SurveillanceSeule = true, .Statut = 37, .Led = Lampe::kVerte, .Suite = S::kLive},
      {.Mot = QLatin1String("ConOK"), .SurveillanceSeule = true, .Statut = 36, .Led = Lampe::kVerte, .Suite = S::kLive},
      {.Mot = QLatin1String("LogEr"),
       .Statut = 38,
       .Led = Lampe::kRouge,
       .Rouges = {C::kTxtUserName, C::kTxtPass},
       .Suite = S::kFin},
      {.Mot = QLatin1String("ErrCo"), .Statut = 39, .Led = Lampe::kRouge, .Suite = S::kFin, .Panne = true},
      // Unlike the other errors this one leaves the lamp as it is.
      {.Mot = QLatin1String("Upnot"), .Statut = 40, .Suite = S::kFin},
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
