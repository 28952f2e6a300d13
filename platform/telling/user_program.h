// SPDX-License-Identifier: GPL-3.0-or-later
// The program of the user's own: "alarme" in the folder of the settings.
#pragma once

#include <memory>

#include "health/ports/user_program.h"
#include "platform/folders/bounded_work.h"

namespace vaktor {

/// How long a run may take, milliseconds.
struct DelaisProgramme {
  int Delai = 60'000;  ///< then it is asked to end (TERM), with all it has started
  int Grace = 5'000;   ///< and so long later ended by force
};

/// Each run has a thread of its own, which waits for the disk the program lies on, for its end and for its output: no
/// shell, no input, the folder of the settings as its working folder, none of our open files. Two runs may overlap.
/// What it prints goes into the log "alarme.log" of the state folder, kSortieMax bytes of each run. It is asked to end
/// when this process ends, in whatever way.
///
/// A file that anybody but its owner could have written, or that belongs to another user, is not started: with it a
/// stranger would run what he likes in the user's name.
class ProgrammePersonnelSysteme : public ProgrammePersonnel {
 public:
  static constexpr qint64 kSortieMax = 16LL * 1024;

  ProgrammePersonnelSysteme(const QString& programme, const QString& dossierEtat, DelaisProgramme delais = {});

  void Lance(const QStringList& arguments) override;

 private:
  struct Lieu;
  std::shared_ptr<Lieu> Lieu_;  // runs outlive their owner
  TravauxBornes Travaux_;
};

}  // namespace vaktor
