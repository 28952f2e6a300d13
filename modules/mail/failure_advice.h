// What a failed mail means, in one sentence, and what to do about it, in the user's language.
#pragma once

#include <QString>

#include "smtp_sender.h"

namespace vaktor {

struct Conseil {
  QString Constat;  ///< what happened
  QString Remede;   ///< what to change
};

/// `langue` 1 English, anything else French. Never holds the password.
Conseil DonneConseil(const ResultatEnvoi& resultat, const ReglagesEnvoi& reglages, qint32 langue);

}  // namespace vaktor
