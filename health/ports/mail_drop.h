// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the place beside the store where a mail about the watch itself is laid down for the mail companion to take.
#pragma once

#include <QDateTime>
#include <QImage>
#include <QString>
#include <functional>

#include "health/ports/health_report.h"
#include "texts/phrase.h"

namespace vaktor {

/// One mail, in every language: the companion knows which one it writes in.
struct CourrielVeille {
  bool Fin = false;  ///< it tells the end of what an earlier one told
  QString Mot;       ///< the condition's stable word ("signal-lost")
  QDateTime Depuis;  ///< local time
  QDateTime Jusqua;  ///< local time; of an end only
  QDate Jour = {};   ///< where it is valid, ChercheDernierJour tells it once the mail lies there
  PhraseDite Sujet;
  PhraseDite Texte;
};

/// User-interface thread.
class DepotCourriels {
 public:
  using Fini = std::function<void(bool ecrit)>;
  virtual ~DepotCourriels() = default;
  /// Lays the mail down whole, with the picture unless it is null, and returns before the disk has it. Calls `fini`
  /// from the event loop, later: true when the companion may take it; never when the disk does not answer.
  virtual void Depose(const CourrielVeille& courriel, const QImage& image, Fini fini) = 0;
  /// The newest CourrielVeille::Jour of the mails of this word, also of earlier runs, a null date for none. From the
  /// event loop, later; never when the disk does not answer: who needs it asks again, and while an answer is under way
  /// a question does nothing.
  virtual void ChercheDernierJour(const QString& mot, std::function<void(const QDate& jour)> recoit) = 0;
};

}  // namespace vaktor
