// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/watch_journal.h"

#include <algorithm>
#include <utility>

#include "base/photo_name.h"
#include "engine/ports/moment.h"

namespace vaktor {

JournalVeille::JournalVeille(const PortsJournal& ports)
    : Ports_(ports),
      TimerJournal_(ports.Minuteries.CreeMinuterie(QStringLiteral("TimerJournal"), kTicMs, [this] { SuitSeconde(); })),
      DernierTic_(ports.Temps.CompteTics()) {}

// Out of here nothing comes: the frame that is told has its photo, its mail and its sound before it.
template <typename Travail>
void JournalVeille::Garde(Travail&& travail) noexcept {
  try {
    travail();
  } catch (...) {
  }
}

void JournalVeille::AvanceTemps() {
  const qint32 tics = Ports_.Temps.CompteTics();
  MaintenantMs_ += static_cast<quint32>(tics) - static_cast<quint32>(DernierTic_);
  DernierTic_ = tics;
}

void JournalVeille::Lance() noexcept {
  Garde([this] {
    Lance_ = true;
    AvanceTemps();
    Ecrit({.Quoi = Fait::kDemarre});
    DernierMoment_ = Maintenant();
    TimerJournal_->Active();
  });
}

void JournalVeille::Arrete() noexcept {
  Garde([this] {
    if (!Lance_) return;
    TimerJournal_->Desactive();
    AvanceTemps();
    FinitIntrusion();
    if (std::exchange(Armee_, false)) Ecrit({.Quoi = Fait::kDesarmee});
    Ecrit({.Quoi = Fait::kFini});
    Lance_ = false;
  });
}

void JournalVeille::SuitSeconde() {
  Garde([this] {
    AvanceTemps();
    SuitTrou();
    SuitIntrusion();
    SuitArmement();
    DernierMoment_ = Maintenant();
  });
}

// What the machine did meanwhile another room finds out and tells; it knows the words. Here it is only since when.
void JournalVeille::SuitTrou() {
  const QDateTime maintenant = Maintenant();
  if (DernierMoment_.isValid() && DernierMoment_.msecsTo(maintenant) > kTrouMs)
    Trou_ = Trou{DernierMoment_, MaintenantMs_};
}

void JournalVeille::SuitArmement() {
  const bool armee = Ports_.AlarmeArmee();
  if (armee != Armee_) {
    if (!armee) FinitIntrusion();
    Armee_ = armee;
    DerniereVieMs_ = MaintenantMs_;
    Ecrit({.Quoi = armee ? Fait::kArmee : Fait::kDesarmee});
  } else if (armee && MaintenantMs_ - DerniereVieMs_ >= kVieMs) {
    DerniereVieMs_ = MaintenantMs_;
    Ecrit({.Quoi = Fait::kVie});
  }
}

void JournalVeille::SuitIntrusion() {
  if (!Intrusion_) return;
  if (!Intrusion_->Ecrite) {
    Intrusion_->Ecrite = true;
    // Armed it was, or nothing would have acted: told first, also when the ticks come behind the movement.
    if (!Armee_ && Ports_.AlarmeArmee()) SuitArmement();
    const EntreeJournal& bilan = Intrusion_->Bilan;
    Ecrit({.Quoi = Fait::kDebutIntrusion,
           .Depuis = Intrusion_->Depuis,
           .Dossier = bilan.Dossier,
           .Premiere = bilan.Premiere});
  }
  if (MaintenantMs_ - Intrusion_->DerniereMs >= kReposMs) FinitIntrusion();
}

void JournalVeille::FinitIntrusion() {
  if (!Intrusion_) return;
  Intrusion finie = *std::exchange(Intrusion_, std::nullopt);
  finie.Bilan.Quoi = Fait::kFinIntrusion;
  finie.Bilan.Depuis = finie.Depuis;
  finie.Bilan.DureeMs = finie.DerniereMs - finie.DebutMs;
  Ecrit(std::move(finie.Bilan));
}

void JournalVeille::NoteImage(qint32 points, const QRect& cadre, const QSize& taille) noexcept {
  Garde([&] {
    if (!Lance_) return;
    AvanceTemps();
    // Ticks may have been held up: what lies so far back is another intrusion.
    if (Intrusion_ && MaintenantMs_ - Intrusion_->DerniereMs >= kReposMs) SuitIntrusion();
    if (!Intrusion_) Intrusion_.emplace(Maintenant(), MaintenantMs_);
    Intrusion& courante = *Intrusion_;
    courante.DerniereMs = MaintenantMs_;
    courante.Bilan.Images = std::min(courante.Bilan.Images, std::numeric_limits<qint32>::max() - 1) + 1;
    Points_ = points;
    Cadre_ = cadre;
    Meilleure_ = points > courante.Bilan.Points;
    if (Meilleure_) {
      courante.Bilan.Points = points;
      courante.Bilan.Cadre = cadre;
    }
    courante.Ardoise.NoteImage(Maintenant(), MaintenantMs_, points, cadre, taille);
    MontreArdoise();
  });
}

// At once: a mail of the first second is made of it.
void JournalVeille::MontreArdoise() {
  if (const auto texte = Intrusion_->Ardoise.PrendTexte()) Ports_.Fichier.MontreArdoise(*texte);
}

void JournalVeille::NoteCopie(const QString& nom) noexcept {
  Garde([&] {
    if (!Lance_ || !Intrusion_) return;
    Intrusion_->Ardoise.NotePhoto(nom);
    MontreArdoise();
  });
}

// The photo of the most changed samples may not be that frame's: the run's limit, or a disk, may have kept it away.
// Then no photo is the best one, and the box is shown with none.
void JournalVeille::NotePhoto(const QString& dossier, const QString& nom) noexcept {
  Garde([&] {
    if (!Lance_ || !Intrusion_) return;
    NoteCopie(nom);
    EntreeJournal& bilan = Intrusion_->Bilan;
    if (bilan.Photos++ == 0) {
      bilan.Dossier = dossier;
      bilan.Premiere = nom;
    } else if (bilan.Dossier != dossier) {
      return;  // another folder was chosen in the middle: its photos are found by their times
    }
    bilan.Derniere = nom;
    if (Meilleure_) bilan.Meilleure = nom;
    GardeCadre(nom);
  });
}

// A long intrusion keeps the box of every second photo, then of every fourth: the line stays short.
void JournalVeille::GardeCadre(const QString& nom) {
  const auto photo = LitNomPhoto(nom);
  if (!photo) return;
  QList<CadrePhoto>& cadres = Intrusion_->Bilan.Cadres;
  if ((Intrusion_->Bilan.Photos - 1) % Intrusion_->PasCadres != 0) return;
  cadres.append({photo->Numero, Cadre_});
  if (cadres.size() < kCadresMax) return;
  QList<CadrePhoto> moitie;
  for (qsizetype i = 0; i < cadres.size(); i += 2) moitie.append(cadres[i]);
  cadres = std::move(moitie);
  Intrusion_->PasCadres *= 2;
}

void JournalVeille::NoteCourriel() noexcept {
  Garde([this] {
    if (!Lance_) return;
    AvanceTemps();
    Ecrit({.Quoi = Fait::kCourriel});
  });
}

void JournalVeille::Commence(const ConditionEnCours& condition) {
  Garde([&] {
    if (!Lance_) return;
    AvanceTemps();
    EntreeJournal entree{.Quoi = Fait::kDebutCondition,
                         .Depuis = condition.Depuis,
                         .Mot = MotCondition(condition.Quoi),
                         .Detail = condition.Detail,
                         .Evenement = EstEvenement(condition.Quoi)};
    // It is told when the machine is awake again; it began where this journal last looked at the clock.
    constexpr qint64 kTrouRecentMs = 120'000;
    if (entree.Evenement && Trou_ && MaintenantMs_ - Trou_->VuMs <= kTrouRecentMs) entree.Depuis = Trou_->De;
    Ecrit(std::move(entree));
  });
}

void JournalVeille::Finit(const ConditionEnCours& condition, const QDateTime&) {
  Garde([&] {
    if (!Lance_ || EstEvenement(condition.Quoi)) return;  // an event ends when somebody looks at it
    AvanceTemps();
    Ecrit({.Quoi = Fait::kFinCondition, .Mot = MotCondition(condition.Quoi)});
    // It also ends when the page is switched off, which refreshes nothing.
    if (condition.Quoi == Condition::kPageAncienne && Ports_.PageEnCours()) Ecrit({.Quoi = Fait::kPageRetablie});
  });
}

void JournalVeille::Ecrit(EntreeJournal entree) {
  entree.Quand = Maintenant();
  entree.Course = Ports_.Course;
  entree.DepuisDepart = MaintenantMs_;
  Ports_.Fichier.Ajoute(EcritLigne(entree));
  if (Change_) Change_();
}

}  // namespace vaktor
