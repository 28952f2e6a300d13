// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/health_form_words.h"

#include "texts/phrase.h"

namespace vaktor {

QString TitreSante(Langue langue) { return Phrase{"Santé de la surveillance", "Health of the watch"}.Dit(langue); }

QString MotFermerSante(Langue langue) { return Phrase{"Fermer", "Close"}.Dit(langue); }

QString MotRienASignaler(Langue langue) { return Phrase{"Rien à signaler.", "Nothing to report."}.Dit(langue); }

QString MotDepuis(Langue langue, const QString& moment) {
  return Phrase{"Depuis le %1", "Since %1"}.Dit(langue, moment);
}

}  // namespace vaktor
