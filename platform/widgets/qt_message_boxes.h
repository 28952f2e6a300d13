// Message boxes of the program, on QMessageBox.
#pragma once

#include "base/ports/message_boxes.h"

namespace vaktor {

/// User-interface thread, with a QApplication. The box is modal over the active window and named "BoiteMessage"; its
/// first button is the default one, and Escape and the close button give the answer of a box without one.
class BoitesMessageQt : public BoitesMessage {
 public:
  ReponseBoite MontreMessage(const QString& texte, const QString& titre, BoutonsBoite boutons) override;
};

}  // namespace vaktor
