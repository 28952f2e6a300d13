// SPDX-License-Identifier: GPL-3.0-or-later
#include "health/sign_of_life.h"

#include <QScopeGuard>
#include <algorithm>
#include <utility>

#include "engine/ports/moment.h"
#include "health/conditions.h"
#include "texts/phrase.h"

namespace vaktor {

namespace {

constexpr QLatin1String kMot("sign-of-life");
constexpr qint64 kHeureS = 3600;

bool EstAveugle(const QList<ConditionEnCours>& conditions) {
  return std::any_of(conditions.begin(), conditions.end(),
                     [](const ConditionEnCours& c) { return DonneGravite(c.Quoi) == Gravite::kAveugle; });
}

bool ToutVaBien(const QList<ConditionEnCours>& conditions) {
  return std::all_of(conditions.begin(), conditions.end(),
                     [](const ConditionEnCours& c) { return DonneGravite(c.Quoi) == Gravite::kAvis; });
}

Phrase DitVeille(bool bien) {
  return bien ? Phrase{"Vaktor veille depuis : %1\n", "Vaktor watches since: %1\n"}
              : Phrase{"Quelque chose ne va pas. L'alarme est armée depuis : %1\n",
                       "Something is wrong. The alarm is armed since: %1\n"};
}

// Each with the moment from which on it stands: a mail is read hours later.
QString DitConditions(const QList<ConditionEnCours>& conditions, Langue langue) {
  QString texte;
  for (const ConditionEnCours& condition : conditions) {
    texte += Phrase{"- %1\n  Depuis : %2\n", "- %1\n  Since: %2\n"}.Dit(
        langue, PhraseQuoi(condition.Quoi, condition.Detail, langue), DitMoment(condition.Depuis, langue));
  }
  return texte;
}

// A picture from before the watch went blind would look as if it still saw.
QString DitImage(bool aveugle, const QImage& image, Langue langue) {
  if (aveugle) return Phrase{"aucune, Vaktor ne voit rien", "none, Vaktor sees nothing"}.Dit(langue);
  return image.isNull() ? Phrase{"aucune", "none"}.Dit(langue) : Phrase{"jointe à ce mail", "attached"}.Dit(langue);
}

}  // namespace

SigneDeVie::SigneDeVie(PortsSigneDeVie ports)
    : Ports_(std::move(ports)),
      Timer_(Ports_.Minuteries.CreeMinuterie(QStringLiteral("SigneDeVie"), kRegardMs, [this] { Regarde(); })) {}

void SigneDeVie::Regarde() {
  const QDateTime maintenant = LitMoment(Ports_.Temps);
  SuitHeure(maintenant);
  if (!Ports_.Armee()) {
    ArmeeDepuis_.reset();
    return;
  }
  if (!ArmeeDepuis_) ArmeeDepuis_ = maintenant;
  if (!Ports_.Reglages.MailActif || !EstHeure(maintenant)) return;
  if (!SaitDernierJour() || Dit_ == maintenant.date()) return;
  Dit_ = maintenant.date();  // the mail carries it
  auto rend = qScopeGuard([this] { Dit_ = QDate(); });
  Envoie();
  rend.dismiss();  // want of memory: the next look tries again
}

// As the clock on the wall shows it, without a zone: an hour that summer time takes out of its day is one there too.
void SigneDeVie::SuitHeure(const QDateTime& maintenant) {
  const QDateTime mur(maintenant.date(), maintenant.time(), Qt::UTC);
  const std::optional<QDateTime> avant = std::exchange(Avant_, mur);
  const QTime heure(Ports_.Reglages.HeureSigneDeVie, 0);
  if (!avant || !heure.isValid()) return;
  const QDateTime due(mur.date(), heure, Qt::UTC);
  if (*avant < due && due.secsTo(mur) >= kHeureS) Saut_ = mur;
}

bool SigneDeVie::EstHeure(const QDateTime& maintenant) const {
  if (maintenant.time().hour() == Ports_.Reglages.HeureSigneDeVie) return true;
  const QDateTime mur(maintenant.date(), maintenant.time(), Qt::UTC);
  return Saut_ && Saut_->date() == mur.date() && Saut_->secsTo(mur) < kHeureS;
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

CourrielVeille SigneDeVie::Compose(const QList<ConditionEnCours>& conditions, const QImage& image) const {
  const std::optional<qint64> libre = Ports_.Disque.EspaceUtilisable(Ports_.Reglages.RepertoirePhoto);
  CourrielVeille courriel;
  courriel.Mot = kMot;
  courriel.Depuis = *ArmeeDepuis_;
  courriel.Jour = Dit_;
  courriel.Sujet = ToutVaBien(conditions) ? Phrase{"Vaktor : signe de vie", "Vaktor: sign of life"}
                                          : Phrase{"Vaktor : signe de vie, mais quelque chose ne va pas",
                                                   "Vaktor: sign of life, but something is wrong"};
  courriel.Texte = PhraseDite::Compose([&](Langue langue) {
    return DitVeille(ToutVaBien(conditions)).Dit(langue, DitMoment(*ArmeeDepuis_, langue)) +
           DitConditions(conditions, langue) + DitComptes(libre, langue) +
           Phrase{"Dernière image : %1\n", "Last picture: %1\n"}.Dit(langue,
                                                                     DitImage(EstAveugle(conditions), image, langue));
  });
  return courriel;
}

QString SigneDeVie::DitComptes(std::optional<qint64> libre, Langue langue) const {
  const QLocale nombres = DonneLocale(langue);
  const QString place = libre ? nombres.formattedDataSize(*libre, 1, QLocale::DataSizeSIFormat)
                              : Phrase{"inconnue", "not known"}.Dit(langue);
  const Phrase depuis = DitIci_ ? Phrase{"le dernier signe de vie", "the last sign of life"}
                                : Phrase{"le démarrage de Vaktor", "Vaktor was started"};
  return Phrase{"Alarmes depuis %1 : %2\nPhotos : %3\nPlace libre pour les photos : %4\n",
                "Alarms since %1: %2\nPhotos: %3\nFree space for photos: %4\n"}
      .Dit(langue, depuis.Dit(langue), nombres.toString(Alarmes_), nombres.toString(Photos_), place);
}

void SigneDeVie::Envoie() {
  const QList<ConditionEnCours> conditions = Ports_.Conditions();
  const QImage image = EstAveugle(conditions) ? QImage() : Ports_.Image();
  const std::weak_ptr<bool> vie = Vie_;
  Ports_.Depot.Depose(Compose(conditions, image), image, [this, vie, alarmes = Alarmes_, photos = Photos_](bool ecrit) {
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
