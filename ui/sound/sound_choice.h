// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of the alarm sound: what picking, browsing and listening do, and the words of the form.
#pragma once

#include <QString>
#include <array>

#include "base/ports/file_dialog.h"
#include "settings/parameters.h"
#include "settings/saving.h"
#include "texts/language.h"
#include "ui/sound/sounds.h"

namespace vaktor {

/// All words of FormSound.
struct MotsFormSound {
  QString Titre;
  QString Selection;               ///< LabelSelectSon
  QString Ecoute;                  ///< LabelPlaySon
  QString Parcourir;               ///< CmdChoixSonRep, for those who hear the form
  QString FichierInterdit;         ///< why CmdChoixSonRep is off
  std::array<QString, 4> Entrees;  ///< of CombSound
  QString Montre;                  ///< shown in the closed list until an entry is picked
};
MotsFormSound DonneMotsFormSound(Langue langue, qint32 indexSon);

/// Owner: FormSound. User-interface thread.
class ChoixSon {
 public:
  static constexpr qint32 kSonDuFichier = 3;

  /// All of it outlives the object.
  ChoixSon(Parametres& reglages, SauvegardeParametres& sauvegarde, Sons& sons, DialogueFichier& dialogue)
      : Reglages_(reglages), Sauvegarde_(sauvegarde), Sons_(sons), Dialogue_(dialogue) {}

  /// The list entry becomes the alarm sound; saved at once, so that the sound companion hears of it.
  void Choisit(qint32 index);
  /// Asks for the user's file. A cancelled dialog leaves no file, and the first sound. Nothing is marked as changed:
  /// the path reaches the store with the next save of any kind.
  void ParcourtFichiers();
  /// Plays the chosen sound here.
  void Ecoute();
  /// The form closes.
  void Ferme();
  /// CmdChoixSonRep can be used.
  bool FichierPermis() const { return Reglages_.IndexSon == kSonDuFichier; }
  MotsFormSound DonneMots() const {
    return DonneMotsFormSound(LangueParlee(Reglages_.LangueCourante), Reglages_.IndexSon);
  }

 private:
  Parametres& Reglages_;
  SauvegardeParametres& Sauvegarde_;
  Sons& Sons_;
  DialogueFichier& Dialogue_;
};

}  // namespace vaktor
