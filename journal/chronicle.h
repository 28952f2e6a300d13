// SPDX-License-Identifier: GPL-3.0-or-later
// What the journal and the photos tell together: intrusions with their photos, when the alarm was armed, what was
// wrong.
#pragma once

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "health/ports/health_report.h"
#include "journal/journal_entry.h"

namespace vaktor {

/// One intrusion with the photos of it that are still there.
struct IntrusionVue {
  QDateTime Debut = {};
  qint64 DureeMs = 0;
  qint32 Points = 0;              ///< most changed samples of a frame; 0: not known
  QString Dossier = {};           ///< of the photos, stored form
  QStringList Photos = {};        ///< names, in the order in which they were taken
  QString Parlante = {};          ///< the most telling one of Photos; empty where there is none
  QRect Cadre = {};               ///< of the movement in Parlante, pixels; empty: not known
  QList<CadrePhoto> Cadres = {};  ///< of the photos
  qint32 Ecrites = 0;             ///< photos that were written, as the journal says; 0: not known
  bool EnCours = false;

  QDateTime Fin() const { return Debut.addMSecs(DureeMs); }
};

/// From a moment to a later one, or to the same.
struct BandeTemps {
  QDateTime De, A;
  bool EnCours = false;  ///< it goes on; A is then the moment of the reading
};

struct BandeCondition : BandeTemps {
  Condition Quoi = Condition::kSignalPerdu;
  QString Detail;
};

struct MarqueTemps {
  QDateTime Quand;
  Fait Quoi = Fait::kCourriel;  ///< kCourriel, kPageRetablie, kDemarre or kFini
};

/// Everything sorted by its beginning.
struct Chronique {
  QList<IntrusionVue> Intrusions;
  QList<BandeTemps> Armees;
  QList<BandeCondition> Conditions;
  QList<MarqueTemps> Marques;
  qint64 Illisibles = 0;  ///< lines of the journal that could not be read

  /// Milliseconds between two moments in which the alarm was armed and the watch saw: without what made it blind.
  qint64 DureeVeille(const QDateTime& de, const QDateTime& a) const;
};

struct SourcesChronique {
  JournalLu Journal;
  QHash<QString, QStringList> Noms = {};  ///< of the photos, by folder
  QString Course = {};                    ///< the run that reads, whose open ends go on
  QDateTime Maintenant = {};
  /// When a photo was written last, local time; an invalid moment where that cannot be told. May be empty.
  std::function<QDateTime(const QString& dossier, const QString& nom)> DonneDate = {};
};

/// The folders that photos of the journal lie in, `courant` first, then the newest; at most kDossiersMax.
QStringList DossiersCites(const JournalLu& journal, const QString& courant);
inline constexpr qsizetype kDossiersMax = 8;

/// Any journal: ends without a beginning are left out, beginnings without an end last as long as their run is known to
/// have lived. Of two moments of one run that the clock puts in the wrong order, or more than kSautMaxMs too far apart,
/// the later one counts, and how far the earlier one lies back is taken from the run's own count. Photos that no
/// intrusion of the journal claims are grouped by their times: a pause of ten seconds parts them.
Chronique ComposeChronique(const SourcesChronique& sources);
inline constexpr qint64 kSautMaxMs = 30LL * 86'400'000;

/// The box of a photo, empty where none is near enough: of a long intrusion only some photos have theirs.
QRect CadreDe(const IntrusionVue& intrusion, const QString& photo);

}  // namespace vaktor
