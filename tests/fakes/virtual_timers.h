// SPDX-License-Identifier: GPL-3.0-or-later
// Timers in virtual time: a test moves the clock, and the ticks that fall due on the way are called in their order.
#pragma once

#include <QStringList>
#include <algorithm>
#include <utility>
#include <vector>

#include "engine/ports/timers.h"
#include "fakes/virtual_clock.h"

namespace vaktor::faux {

class MinuterieVirtuelle;

/// Moves the clock of the test. Of two ticks that fall due in the same millisecond the timer made first comes first.
/// A tick never overlaps another, also when a tick moves the clock by hand.
class TempsVirtuel : public FabriqueMinuteries {
 public:
  explicit TempsVirtuel(HorlogeVirtuelle& horloge) : Horloge_(horloge) {}

  std::unique_ptr<Minuterie> CreeMinuterie(const QString& nom, qint32 millisecondes,
                                           std::function<void()> tic) override;

  /// Lets so much time pass and calls every tick that falls due.
  void Avance(qint64 millisecondes);
  /// Calls one timer's tick now, besides those that fall due; nothing when it is disabled or unknown.
  void Declenche(const QString& nom);
  /// The timer of that name, null when none is alive.
  MinuterieVirtuelle* Trouve(const QString& nom) const;
  qint64 Maintenant() const { return Horloge_.Millisecondes; }

  qint32 PeriodeMinimale = 1;  ///< ms; 10 as with the real ones, set before a timer is switched on

 private:
  friend class MinuterieVirtuelle;
  MinuterieVirtuelle* ProchaineEcheance(qint64 jusqua) const;
  void Retire(MinuterieVirtuelle* minuterie) { std::erase(Minuteries_, minuterie); }

  HorlogeVirtuelle& Horloge_;
  std::vector<MinuterieVirtuelle*> Minuteries_;
  bool EnTic_ = false;
};

class MinuterieVirtuelle : public Minuterie {
 public:
  MinuterieVirtuelle(TempsVirtuel& temps, QString nom, qint32 millisecondes, std::function<void()> tic)
      : Temps_(temps), Nom_(std::move(nom)), Intervalle_(millisecondes), Tic_(std::move(tic)) {}
  ~MinuterieVirtuelle() override { Temps_.Retire(this); }
  MinuterieVirtuelle(const MinuterieVirtuelle&) = delete;
  MinuterieVirtuelle& operator=(const MinuterieVirtuelle&) = delete;

  void ChangeIntervalle(qint32 millisecondes) override {
    Intervalle_ = millisecondes;
    Echeance_ = Temps_.Maintenant() + Periode();
  }
  qint32 Intervalle() const override { return Intervalle_; }
  void Active() override {
    if (Active_) return Reveille();
    Active_ = true;
    Endormie_ = false;
    Echeance_ = Temps_.Maintenant() + Periode();
  }
  void Desactive() override { Active_ = false; }
  bool EstActive() const override { return Active_; }
  void Endors() override { Endormie_ = true; }
  void Reveille() override {
    if (!std::exchange(Endormie_, false)) return;
    Echeance_ = Temps_.Maintenant() + Periode();
  }
  bool Dort() const { return Active_ && Endormie_; }

  const QString& Nom() const { return Nom_; }
  qint32 NombreTics() const { return NombreTics_; }

 private:
  friend class TempsVirtuel;
  qint64 Periode() const { return std::max(Intervalle_, Temps_.PeriodeMinimale); }
  void Sonne() {
    Echeance_ += Periode();
    AppelleTic();
  }
  void AppelleTic() {
    ++NombreTics_;
    Tic_();
  }

  TempsVirtuel& Temps_;
  QString Nom_;
  qint32 Intervalle_;
  std::function<void()> Tic_;
  bool Active_ = false;
  bool Endormie_ = false;
  qint64 Echeance_ = 0;
  qint32 NombreTics_ = 0;
};

inline std::unique_ptr<Minuterie> TempsVirtuel::CreeMinuterie(const QString& nom, qint32 millisecondes,
                                                              std::function<void()> tic) {
  auto minuterie = std::make_unique<MinuterieVirtuelle>(*this, nom, millisecondes, std::move(tic));
  Minuteries_.push_back(minuterie.get());
  return minuterie;
}

inline MinuterieVirtuelle* TempsVirtuel::ProchaineEcheance(qint64 jusqua) const {
  MinuterieVirtuelle* prochaine = nullptr;
  for (MinuterieVirtuelle* minuterie : Minuteries_) {
    if (!minuterie->Active_ || minuterie->Endormie_ || minuterie->Echeance_ > jusqua) continue;
    if (prochaine == nullptr || minuterie->Echeance_ < prochaine->Echeance_) prochaine = minuterie;
  }
  return prochaine;
}

inline void TempsVirtuel::Avance(qint64 millisecondes) {
  const qint64 fin = Horloge_.Millisecondes + millisecondes;
  while (!EnTic_) {
    MinuterieVirtuelle* minuterie = ProchaineEcheance(fin);
    if (minuterie == nullptr) break;
    Horloge_.Millisecondes = std::max(Horloge_.Millisecondes, minuterie->Echeance_);
    EnTic_ = true;
    struct Fin {
      bool& EnTic;
      ~Fin() { EnTic = false; }
    } const fini{EnTic_};
    minuterie->Sonne();
  }
  Horloge_.Millisecondes = std::max(Horloge_.Millisecondes, fin);
}

inline MinuterieVirtuelle* TempsVirtuel::Trouve(const QString& nom) const {
  const auto trouve = std::find_if(Minuteries_.begin(), Minuteries_.end(),
                                   [&](const MinuterieVirtuelle* m) { return m->Nom() == nom; });
  return trouve == Minuteries_.end() ? nullptr : *trouve;
}

inline void TempsVirtuel::Declenche(const QString& nom) {
  MinuterieVirtuelle* minuterie = Trouve(nom);
  if (minuterie != nullptr && minuterie->EstActive()) minuterie->AppelleTic();
}

}  // namespace vaktor::faux
