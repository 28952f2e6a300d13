// SPDX-License-Identifier: GPL-3.0-or-later
// Port: reads the journal and the names of the photos, and composes both, without holding up the window.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "journal/chronicle.h"

namespace vaktor {

/// User-interface thread.
class LecteurChronique {
 public:
  /// Null: the disk has not answered for some seconds, and the answer may still come; or this machine has no means.
  using Recoit = std::function<void(std::shared_ptr<const Chronique>)>;

  virtual ~LecteurChronique() = default;
  /// `dossier`: that photos go to now, stored form. `course`: the run that asks. Calls `recoit` from the event loop,
  /// later: once, or with null and then once more. A reading that is under way is forgotten.
  virtual void LitChronique(const QString& dossier, const QString& course, Recoit recoit) = 0;
  virtual void Oublie() = 0;
};

}  // namespace vaktor
