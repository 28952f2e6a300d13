// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "health/ports/desktop_notifier.h"

namespace vaktor::faux {

/// Records what it is told to show.
class NotifieurFaux : public NotifieurBureau {
 public:
  struct Avis {
    QString Titre;
    QString Texte;
    bool Pressant = false;
  };
  void Notifie(const QString& titre, const QString& texte, bool pressant) override {
    Montres.append({titre, texte, pressant});
  }
  QList<Avis> Montres;
};

}  // namespace vaktor::faux
