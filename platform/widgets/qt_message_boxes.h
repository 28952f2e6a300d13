// SPDX-License-Identifier: GPL-3.0-or-later
// Message boxes of the program, on QMessageBox.
#pragma once

#include <QtGlobal>
#include <functional>
#include <utility>

#include "base/ports/message_boxes.h"
#include "texts/language.h"

namespace vaktor {

/// User-interface thread, with a QApplication. The box is modal over the active window and named "BoiteMessage"; its
/// first button is the default one, and Escape and the close button give the answer of a box without one. The words on
/// the buttons are in the program's own language, French as long as that is not known.
class BoitesMessageQt : public BoitesMessage {
 public:
  /// What gives the language of the moment; asked at each box.
  void SuitLangue(std::function<Langue()> langue) { Langue_ = std::move(langue); }
  ReponseBoite MontreMessage(const QString& texte, const QString& titre, BoutonsBoite boutons) override;

 private:
  std::function<Langue()> Langue_;
};

}  // namespace vaktor
