// SPDX-License-Identifier: GPL-3.0-or-later
// From names to photos of intrusions: those that the journal knows, and those from before it.
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "base/photo_name.h"
#include "journal/chronicle_parts.h"
#include "journal/watch_journal.h"

namespace vaktor {
namespace {

constexpr int kJourS = 86'400;
constexpr int kReposS = static_cast<int>(JournalVeille::kReposMs / 1000);
/// Numbers that a camera uses up while nothing is written for ten seconds, with some to spare.
constexpr qint32 kNumerosRepos = 1200;

struct PhotoVue {
  NomPhoto Lu;
  int Seconde = 0;  // of the day
  const QString* Nom = nullptr;
  bool Prise = false;
};
using Photos = std::vector<PhotoVue>;

Photos LitPhotos(const QStringList& noms) {
  Photos photos;
  photos.reserve(static_cast<std::size_t>(noms.size()));
  for (const QString& nom : noms) {
    const auto lu = LitNomPhoto(nom);
    if (lu) photos.push_back({*lu, QTime(0, 0).secsTo(lu->Heure), &nom});
  }
  std::stable_sort(photos.begin(), photos.end(), [](const PhotoVue& a, const PhotoVue& b) {
    return a.Lu.Jour != b.Lu.Jour ? a.Lu.Jour < b.Lu.Jour : a.Lu.Numero < b.Lu.Numero;
  });
  return photos;
}

/// Seconds from one time of day to the next moment that has the other.
int Jusqua(int de, int a) { return (a - de + kJourS) % kJourS; }

bool EstAvant(const PhotoVue& photo, const NomPhoto& nom) {
  return photo.Lu.Jour != nom.Jour ? photo.Lu.Jour < nom.Jour : photo.Lu.Numero < nom.Numero;
}

// Numbers begin anew with each run, and several runs of one day have the same day in their names: the time of day
// tells them apart.
void PrendPhotos(const IntrusionNotee& notee, Photos& photos, IntrusionVue& vue) {
  const auto premiere = LitNomPhoto(notee.Bilan.Premiere);
  if (!premiere) return;
  const auto derniere = LitNomPhoto(notee.Bilan.Derniere);
  const int debut = QTime(0, 0).secsTo(premiere->Heure);
  const int duree = derniere && !notee.Ouverte ? Jusqua(debut, QTime(0, 0).secsTo(derniere->Heure)) : kJourS;
  int fin = debut;
  for (auto photo = std::lower_bound(photos.begin(), photos.end(), *premiere, EstAvant); photo != photos.end();
       ++photo) {
    if (photo->Lu.Jour != premiere->Jour) break;
    if (derniere && !notee.Ouverte && photo->Lu.Numero > derniere->Numero) break;
    const int depuis = Jusqua(debut, photo->Seconde);
    if (photo->Prise || depuis > duree) continue;
    if (notee.Ouverte && Jusqua(fin, photo->Seconde) > kReposS) continue;  // where it ended nobody wrote down
    photo->Prise = true;
    fin = photo->Seconde;
    vue.Photos.append(*photo->Nom);
  }
  if (notee.Ouverte) vue.DureeMs = 1000LL * Jusqua(debut, fin);
}

IntrusionVue MontreNotee(const IntrusionNotee& notee, QHash<QString, Photos>& photos) {
  const EntreeJournal& bilan = notee.Bilan;
  IntrusionVue vue{.Debut = notee.Debut,
                   .DureeMs = bilan.DureeMs,
                   .Points = bilan.Points,
                   .Dossier = bilan.Dossier,
                   .Cadres = bilan.Cadres,
                   .Ecrites = bilan.Photos,
                   .EnCours = notee.EnCours};
  if (const auto siennes = photos.find(bilan.Dossier); siennes != photos.end()) PrendPhotos(notee, *siennes, vue);
  if (!bilan.Meilleure.isEmpty() && vue.Photos.contains(bilan.Meilleure)) {
    vue.Parlante = bilan.Meilleure;
    vue.Cadre = bilan.Cadre;
  } else if (!vue.Photos.isEmpty()) {
    vue.Parlante = vue.Photos.at(vue.Photos.size() / 2);
    vue.Cadre = CadreDe(vue, vue.Parlante);
  }
  return vue;
}

// The name has the day on which the program started. The file knows better, if it is the one that was written then: a
// copy may be of any day, and then has another time of day too, as a rule.
QDateTime DateDe(const PhotoVue& photo, const QDateTime& ecrite) {
  QDateTime nommee(photo.Lu.Jour, photo.Lu.Heure);
  if (!ecrite.isValid()) return nommee;
  constexpr int kEcartS = 120;
  constexpr qint64 kJoursMax = 400;
  for (const int jours : {-1, 0, 1}) {
    QDateTime voisine(ecrite.date().addDays(jours), photo.Lu.Heure);
    const qint64 apres = photo.Lu.Jour.daysTo(voisine.date());
    if (std::llabs(voisine.secsTo(ecrite)) <= kEcartS && apres >= 0 && apres <= kJoursMax) return voisine;
  }
  return nommee;
}

class Groupes {
 public:
  Groupes(const SourcesChronique& sources, QString dossier, Chronique& chronique)
      : Sources_(sources), Dossier_(std::move(dossier)), Chronique_(chronique) {}

  // First by the time of day, which parts runs; then each such heap by number, which parts its days.
  void Forme(std::vector<const PhotoVue*> photos) {
    std::stable_sort(photos.begin(), photos.end(), [](const PhotoVue* a, const PhotoVue* b) {
      return a->Lu.Jour != b->Lu.Jour ? a->Lu.Jour < b->Lu.Jour : a->Seconde < b->Seconde;
    });
    for (std::size_t debut = 0, i = 1; i <= photos.size(); ++i) {
      if (i < photos.size() && photos[i]->Lu.Jour == photos[i - 1]->Lu.Jour &&
          photos[i]->Seconde - photos[i - 1]->Seconde <= kReposS)
        continue;
      Partage({photos.begin() + static_cast<std::ptrdiff_t>(debut), photos.begin() + static_cast<std::ptrdiff_t>(i)});
      debut = i;
    }
  }

 private:
  void Partage(std::vector<const PhotoVue*> tas) {
    std::stable_sort(tas.begin(), tas.end(),
                     [](const PhotoVue* a, const PhotoVue* b) { return a->Lu.Numero < b->Lu.Numero; });
    for (std::size_t debut = 0, i = 1; i <= tas.size(); ++i) {
      if (i < tas.size()) {
        const int pause = tas[i]->Seconde - tas[i - 1]->Seconde;
        const qint64 saut = qint64{tas[i]->Lu.Numero} - tas[i - 1]->Lu.Numero;
        if (pause >= 0 && pause <= kReposS && saut <= kNumerosRepos) continue;
      }
      Ajoute(tas, debut, i);
      debut = i;
    }
  }

  void Ajoute(const std::vector<const PhotoVue*>& tas, std::size_t debut, std::size_t fin) {
    IntrusionVue vue{.Dossier = Dossier_};
    for (std::size_t i = debut; i < fin; ++i) vue.Photos.append(*tas[i]->Nom);
    vue.Debut = DateDe(*tas[debut], Sources_.DonneDate ? Sources_.DonneDate(Dossier_, *tas[debut]->Nom) : QDateTime());
    vue.DureeMs = 1000LL * (tas[fin - 1]->Seconde - tas[debut]->Seconde);
    vue.Parlante = vue.Photos.at(vue.Photos.size() / 2);
    Chronique_.Intrusions.append(std::move(vue));
  }

  const SourcesChronique& Sources_;
  const QString Dossier_;
  Chronique& Chronique_;
};

}  // namespace

void ComposeIntrusions(const SourcesChronique& sources, const QList<IntrusionNotee>& notees, Chronique& chronique) {
  QHash<QString, Photos> photos;
  for (auto noms = sources.Noms.begin(); noms != sources.Noms.end(); ++noms)
    photos.insert(noms.key(), LitPhotos(*noms));
  for (const IntrusionNotee& notee : notees) chronique.Intrusions.append(MontreNotee(notee, photos));
  for (auto siennes = photos.begin(); siennes != photos.end(); ++siennes) {
    std::vector<const PhotoVue*> restes;
    for (const PhotoVue& photo : *siennes)
      if (!photo.Prise) restes.push_back(&photo);
    Groupes(sources, siennes.key(), chronique).Forme(std::move(restes));
  }
}

QRect CadreDe(const IntrusionVue& intrusion, const QString& photo) {
  const auto lu = LitNomPhoto(photo);
  if (!lu) return {};
  const auto cadre = std::find_if(intrusion.Cadres.begin(), intrusion.Cadres.end(),
                                  [&](const CadrePhoto& c) { return c.Numero == lu->Numero; });
  return cadre == intrusion.Cadres.end() ? QRect() : cadre->Cadre;
}

}  // namespace vaktor
