// The driver's two dialogs, shown over its devices.
#include "platform/capture/dialogs/driver_dialogs.h"

#include "platform/capture/dialogs/format_dialog.h"
#include "platform/capture/dialogs/source_dialog.h"
#include "texts/language.h"

namespace vaktor {

void MontreDialogueFormatCapture(QWidget* parent, Langue langue, CommandesPilote& pilote, MemoireCapture& memoire,
                                 AccesPeripheriques& acces) {
  DialogueFormat(parent, langue, pilote, memoire, acces).exec();
}

void MontreDialogueSourceCapture(QWidget* parent, Langue langue, CommandesPilote& pilote, MemoireCapture& memoire,
                                 AccesPeripheriques& acces) {
  DialogueSource(parent, langue, pilote, memoire, acces).exec();
}

}  // namespace vaktor
