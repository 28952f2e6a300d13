// The capture driver's own dialogs: format and source. Modal; in the language that is handed in (0 French, 1 English).
#pragma once

#include <QtGlobal>

#include "texts/language.h"

class QWidget;

namespace vaktor {

class AccesPeripheriques;
class CommandesPilote;
class MemoireCapture;

void MontreDialogueFormatCapture(QWidget* parent, Langue langue, CommandesPilote& pilote, MemoireCapture& memoire,
                                 AccesPeripheriques& acces);
void MontreDialogueSourceCapture(QWidget* parent, Langue langue, CommandesPilote& pilote, MemoireCapture& memoire,
                                 AccesPeripheriques& acces);

}  // namespace vaktor
