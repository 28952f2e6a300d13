// SPDX-License-Identifier: GPL-3.0-or-later
// VAKTORsound: plays the alarm sound.
#include "modules/common/module_program.h"
#include "modules/sound/sound_module.h"

int main(int argc, char** argv) {
  using namespace vaktor;
  const DescriptionModule description{Compagnon::kSon, QStringLiteral(VAKTOR_VERSION),
                                      QString::fromUtf8("Joue le son de l'alarme de Vaktor."),
                                      QStringLiteral("Plays the alarm sound of Vaktor.")};
  return ExecuteModule(argc, argv, description, [](const ContexteModule& contexte) {
    return std::make_unique<ModuleSon>(contexte, std::make_unique<JoueurGStreamer>());
  });
}
