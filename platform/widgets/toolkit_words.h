// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit's own words: the file dialog, the menu of a text field.
#pragma once

#include <QTranslator>

#include "texts/language.h"

namespace vaktor {

/// Qt's words speak the language of the program and not that of the session, so that a window never speaks two. Where
/// Qt's translations are not installed they stay English. User-interface thread; with the object the words go.
class MotsOutils {
 public:
  MotsOutils() = default;
  ~MotsOutils();
  MotsOutils(const MotsOutils&) = delete;
  MotsOutils& operator=(const MotsOutils&) = delete;

  void Parle(Langue langue);

 private:
  QTranslator Mots_;
};

}  // namespace vaktor
