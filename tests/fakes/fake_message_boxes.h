// SPDX-License-Identifier: GPL-3.0-or-later
// Message boxes that answer by themselves and keep what they were asked.
#pragma once

#include <QStringList>
#include <functional>
#include <utility>

#include "base/ports/message_boxes.h"

namespace vaktor::faux {

class BoitesFausses : public BoitesMessage {
 public:
  ReponseBoite MontreMessage(const QString& texte, const QString& titre, BoutonsBoite boutons) override {
    Textes.append(texte);
    Titres.append(titre);
    Boutons = boutons;
    if (const auto pendant = std::exchange(Pendant, nullptr)) pendant();
    return Reponse;
  }

  QStringList Textes, Titres;
  BoutonsBoite Boutons = BoutonsBoite::kOk;
  ReponseBoite Reponse = ReponseBoite::kOk;
  std::function<void()> Pendant;  ///< events that run under the next box, once
};

}  // namespace vaktor::faux
