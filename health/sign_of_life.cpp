// SPDX-License-Identifier: GPL-3.0-or-later
#include "health/sign_of_life.h"

#include <utility>

#include "health/conditions.h"
#include "texts/phrase.h"

namespace vaktor {

namespace {
constexpr QLatin1String kMot("sign-of-life");
}

SigneDeVie::SigneDeVie(PortsSigneDeVie ports)
    : Ports_(std::move(ports)),
      Timer_(Ports_.Minuteries.CreeMinuterie(QStringLiteral("SigneDeVie"), kRegardMs, [this] { Regarde(); })) {}

void SigneDeVie::Regarde() {
  const QDateTime maintenant(Ports_.Temps.DonneDate(), Ports_.Temps.DonneHeure());
  if (!Ports_.Armee()) {
    ArmeeDepuis_.reset();
    return;
  }
  if (!ArmeeDepuis_) ArmeeDepuis_ = maintenant;
  if (!Ports_.Reglages.MailActif || maintenant.time().hour() != Ports_.Reglages.HeureSigneDeVie) return;
  if (!SaitDernierJour() || Dit_ == maintenant.date()) return;
  Dit_ = maintenant.date();
  Envoie();
}

bool SigneDeVie::SaitDernierJour() {
  if (Su_) return true;
  const std::weak_ptr<bool> vie = Vie_;
  Ports_.Depot.ChercheDernierJour(kMot, [this, vie](const QDate& jour) {
    if (vie.expired()) return;
    Dit_ = jour;
    Su_ = true;
  });
  return Su_;
}

CourrielVeille SigneDeVie::Compose(const QImage& image) const {
  const std::optional<qint64> libre = Ports_.Disque.EspaceLibre(Ports_.Reglages.RepertoirePhoto);
  CourrielVeille courriel;
  courriel.Mot = kMot;
  courriel.Depuis = *ArmeeDepuis_;
  courriel.Jour = Dit_;
  courriel.Sujet = Phrase{"Vaktor : signe de vie", "Vaktor: sign of life"};
  courriel.Texte = PhraseDite::Compose([&](Langue langue) {
    const QLocale nombres = DonneLocale(langue);
    const QString place = libre ? nombres.formattedDataSize(*libre, 1, QLocale::DataSizeSIFormat)
                                : Phrase{"inconnue", "not known"}.Dit(langue);
    const QString derniere =
        image.isNull() ? Phrase{"aucune", "none"}.Dit(langue) : Phrase{"jointe à ce mail", "attached"}.Dit(langue);
    const Phrase depuis = DitIci_ ? Phrase{"le dernier signe de vie", "the last sign of life"}
                                  : Phrase{"le démarrage de Vaktor", "Vaktor was started"};
    return Phrase{
        "Vaktor veille depuis : %1\nAlarmes depuis %6 : %2\nPhotos : %3\n"
        "Place libre pour les photos : %4\nDernière image : %5\n",
        "Vaktor watches since: %1\nAlarms since %6: %2\nPhotos: %3\n"
        "Free space for photos: %4\nLast picture: %5\n"}
        .Dit(langue, DitMoment(*ArmeeDepuis_, langue), nombres.toString(Alarmes_), nombres.toString(Photos_), place,
             derniere, depuis.Dit(langue));
  });
  return courriel;
}

void SigneDeVie::Envoie() {
  const QImage image = Ports_.Image();
  const std::weak_ptr<bool> vie = Vie_;
  Ports_.Depot.Depose(Compose(image), image, [this, vie, alarmes = Alarmes_, photos = Photos_](bool ecrit) {
    if (vie.expired()) return;
    if (!ecrit) {
      Dit_ = QDate();
      return;
    }
    DitIci_ = true;
    // What came since it was written counts for the next.
    Alarmes_ -= alarmes;
    Photos_ -= photos;
    Ports_.Modules.EnvoiMail(Commande::kVeille);
  });
}

}  // namespace vaktor
