// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <new>

#include "health/ports/mail_drop.h"

namespace vaktor::faux {

/// Records the mails, and answers when the test wants.
class DepotFaux : public DepotCourriels {
 public:
  struct Depose_ {
    CourrielVeille Courriel;
    QImage Image;
  };
  void Depose(const CourrielVeille& courriel, const QImage& image, Fini fini) override {
    if (SansMemoire) throw std::bad_alloc();
    Deposes.append({courriel, image});
    Attendent.append(std::move(fini));
  }
  void ChercheDernierJour(const QString& mot, std::function<void(const QDate&)> recoit) override {
    Questions.append(mot);
    if (!Muet) recoit(DernierJour);
  }
  /// Answers the one that has waited longest.
  void Repond(bool ecrit) {
    const Fini fini = Attendent.takeFirst();
    fini(ecrit);
  }
  QList<Depose_> Deposes;
  QList<Fini> Attendent;
  QStringList Questions;
  QDate DernierJour;  ///< of an earlier run
  bool Muet = false;  ///< the disk does not say
  bool SansMemoire = false;
};

}  // namespace vaktor::faux
