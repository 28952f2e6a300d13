// SPDX-License-Identifier: GPL-3.0-or-later
// The source dialog over two fake cameras, for the tests of its two halves.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

#include "platform/capture/choice/named_source.h"
#include "platform/capture/dialogs/driver_dialog_fixture.h"
#include "platform/capture/dialogs/source_dialog.h"

namespace vaktor {

class SourceTest : public DialoguePiloteTest<DialogueSource> {
 protected:
  SourceTest() {
    Acces_.Peripheriques_ = {{"/dev/video0", "Camera A", "stable-a"}, {"/dev/video2", "Camera B", "stable-b"}};
  }
  void CliqueSource(int rang) const { CliqueLigne("ListeSources", rang); }
  QStringList Lignes() const { return LitLignes("ListeSources"); }
  QString Etat() const { return Controle<QLabel>("LblEtatSource")->text(); }
  QString ToutTexte() const {
    QString texte = Lignes().join("\n");
    for (const auto* etiquette : Dialogue_->findChildren<QLabel*>()) texte += etiquette->text();
    for (const auto* champ : Dialogue_->findChildren<QLineEdit*>()) texte += champ->text();
    return texte;
  }
};

}  // namespace vaktor
