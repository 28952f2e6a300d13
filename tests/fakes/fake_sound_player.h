// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include "base/ports/file_dialog.h"
#include "base/ports/opener.h"
#include "ui/sound/ports/sound_player.h"

namespace vaktor::faux {

/// Notes the files that were to be played.
class LecteurFaux : public LecteurSon {
 public:
  void Joue(const QString& chemin) override { Joues.append(chemin); }
  QStringList Joues;
};

/// Answers with a file and notes the filter.
class DialogueFaux : public DialogueFichier {
 public:
  QString ChoisitFichier(const QString& filtre) override {
    Filtre = filtre;
    return Reponse;
  }
  QString Reponse, Filtre;
};

/// Notes the addresses that were to be opened.
class OuvreurFaux : public Ouvreur {
 public:
  void OuvreAdresse(const QString& adresse) override { Adresses.append(adresse); }
  void OuvreDossier(const QString&) override {}
  QStringList Adresses;
};

}  // namespace vaktor::faux
