// SPDX-License-Identifier: GPL-3.0-or-later
// The refresh interval of the live page, a text of the user's, as the number that the analysis needs at each frame.
#pragma once

#include <QString>

namespace vaktor {

class IntervalleLive {
 public:
  /// Seconds, in single precision: the text with a decimal comma or point. Throws Echec(kTypeIncompatible) for a text
  /// that is no number (engine/limits.h). The last text is remembered, so an unchanged one costs a comparison.
  float LitSecondes(const QString& texte);

 private:
  QString Texte_;
  float Secondes_ = 0.0F;
  bool Lisible_ = false;
};

}  // namespace vaktor
