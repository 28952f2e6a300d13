// SPDX-License-Identifier: GPL-3.0-or-later
// From lines to spans of time: what began and what ended, run by run.
#include <algorithm>

#include "health/conditions.h"
#include "journal/chronicle_parts.h"

namespace vaktor {
namespace {

struct EtatCourse {
  std::optional<EntreeJournal> Armee;
  std::optional<EntreeJournal> Intrusion;
  QHash<QString, EntreeJournal> Conditions;
  EntreeJournal Derniere;
};

// The clock may have been set between the two. The later moment is what it says now.
BandeTemps FaitBande(const EntreeJournal& debut, QDateTime de, const EntreeJournal& fin) {
  const qint64 compte = std::max<qint64>(0, fin.DepuisDepart - debut.DepuisDepart);
  const qint64 mur = debut.Quand.msecsTo(fin.Quand);
  if (mur < 0 || mur > compte + kSautMaxMs) de = fin.Quand.addMSecs(-compte);
  // What began before its line was written: since a moment that the line tells, of the same clock.
  if (de > fin.Quand || de.msecsTo(fin.Quand) > compte + kSautMaxMs) de = fin.Quand.addMSecs(-compte);
  return {de, fin.Quand};
}

std::optional<Condition> TrouveCondition(const QString& mot) {
  for (int i = 0; i < kNombreConditions; ++i)
    if (MotCondition(static_cast<Condition>(i)) == mot) return static_cast<Condition>(i);
  return std::nullopt;
}

class Composition {
 public:
  Composition(const SourcesChronique& sources, Chronique& chronique) : Sources_(sources), Chronique_(chronique) {}

  void Prend(const EntreeJournal& entree) {
    EtatCourse& course = Courses_[entree.Course];
    switch (entree.Quoi) {
      case Fait::kArmee:
        if (!course.Armee) course.Armee = entree;
        break;
      case Fait::kDesarmee:
        FinitArmee(course, entree, false);
        break;
      case Fait::kDebutIntrusion:
        FinitIntrusion(course, false);
        course.Intrusion = entree;
        break;
      case Fait::kFinIntrusion:
        course.Intrusion.reset();
        Intrusions_.append({entree, DebutDe(entree)});
        break;
      case Fait::kDebutCondition:
        Commence(course, entree);
        break;
      case Fait::kFinCondition:
        if (const auto debut = course.Conditions.find(entree.Mot); debut != course.Conditions.end()) {
          AjouteCondition(*debut, entree, false);
          course.Conditions.erase(debut);
        }
        break;
      case Fait::kDemarre:
      case Fait::kFini:
      case Fait::kCourriel:
      case Fait::kPageRetablie:
        Chronique_.Marques.append({entree.Quand, entree.Quoi});
        break;
      case Fait::kVie:
        break;
    }
    course.Derniere = entree;
  }

  // What no line has ended: of this run it goes on, of another one it is known to its last line.
  QList<IntrusionNotee> Termine() {
    for (auto course = Courses_.begin(); course != Courses_.end(); ++course) {
      const bool vivante = !Sources_.Course.isEmpty() && course.key() == Sources_.Course;
      EntreeJournal fin = course->Derniere;
      if (vivante && Sources_.Maintenant.isValid()) {
        fin.DepuisDepart += std::max<qint64>(0, fin.Quand.msecsTo(Sources_.Maintenant));
        fin.Quand = std::max(fin.Quand, Sources_.Maintenant);
      }
      FinitArmee(*course, fin, vivante);
      FinitIntrusion(*course, vivante);
      for (const EntreeJournal& debut : std::as_const(course->Conditions)) AjouteCondition(debut, fin, vivante);
    }
    return Intrusions_;
  }

 private:
  static QDateTime DebutDe(const EntreeJournal& entree) {
    // The line comes ten seconds behind the last frame; its own moment is the surer one when the two contradict.
    QDateTime compte = entree.Quand.addMSecs(-entree.DureeMs);
    if (!entree.Depuis.isValid()) return compte;
    const qint64 ecart = entree.Depuis.msecsTo(compte);
    return ecart < 0 || ecart > 3'600'000 ? compte : entree.Depuis;
  }
  void FinitArmee(EtatCourse& course, const EntreeJournal& fin, bool enCours) {
    if (!course.Armee) return;
    BandeTemps bande = FaitBande(*course.Armee, course.Armee->Quand, fin);
    bande.EnCours = enCours;
    Chronique_.Armees.append(bande);
    course.Armee.reset();
  }
  void FinitIntrusion(EtatCourse& course, bool enCours) {
    if (!course.Intrusion) return;
    const EntreeJournal debut = *course.Intrusion;
    Intrusions_.append({debut, debut.Depuis.isValid() ? DebutDe(debut) : debut.Quand, true, enCours});
    course.Intrusion.reset();
  }
  void Commence(EtatCourse& course, const EntreeJournal& entree) {
    if (entree.Evenement)
      AjouteCondition(entree, entree, false);
    else if (!course.Conditions.contains(entree.Mot))
      course.Conditions.insert(entree.Mot, entree);
  }
  void AjouteCondition(const EntreeJournal& debut, const EntreeJournal& fin, bool enCours) {
    const auto quoi = TrouveCondition(debut.Mot);
    if (!quoi) return;  // of a later program
    BandeCondition bande;
    static_cast<BandeTemps&>(bande) = FaitBande(debut, debut.Depuis.isValid() ? debut.Depuis : debut.Quand, fin);
    bande.EnCours = enCours;
    bande.Quoi = *quoi;
    bande.Detail = debut.Detail;
    Chronique_.Conditions.append(bande);
  }

  const SourcesChronique& Sources_;
  Chronique& Chronique_;
  QHash<QString, EtatCourse> Courses_;
  QList<IntrusionNotee> Intrusions_;
};

}  // namespace

QList<IntrusionNotee> ComposeBandes(const SourcesChronique& sources, Chronique& chronique) {
  Composition composition(sources, chronique);
  for (const EntreeJournal& entree : sources.Journal.Entrees) composition.Prend(entree);
  return composition.Termine();
}

}  // namespace vaktor
