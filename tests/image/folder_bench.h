// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of the folder chooser over fakes.
#pragma once

#include <gtest/gtest.h>

#include "base/failure.h"
#include "fakes/fake_event_pump.h"
#include "fakes/fake_files.h"
#include "fakes/fake_folder_tree.h"
#include "fakes/fake_message_boxes.h"
#include "fakes/fake_saving.h"
#include "image/folder_choice.h"

namespace vaktor::faux {

class BancDossier : public testing::Test {
 protected:
  BancDossier() {
    Journal_.Ecoute();
    Textes.Remplit(Langue::kFrancais);
    for (const char* dossier : {"/", "/home", "/home/u", "/home/u/Photos", "/home/u/v", "/home/u/v/intrus", "/media",
                                "/media/u", "/media/u/USB", "/media/u/USB/Nuits"}) {
      Arbre.Ajoute(QLatin1String(dossier));
      Disque.AjouteDossier(QLatin1String(dossier));
    }
    Arbre.Disque = &Disque;
    Reglages.RepertoirePhoto = QStringLiteral("/home/u/Photos");
  }
  void ParleAnglais() {
    Reglages.LangueCourante = 1;
    Textes.Remplit(Langue::kAnglais);
  }
  void Retire(const QString& dossier) {
    Arbre.Regards.remove(dossier);
    Disque.RetireDossier(dossier);
  }

  Journal Journal_;
  Parametres Reglages;
  SauvegardeFausse Sauvegarde{Journal_, Reglages};
  DossiersProgramme Dossiers{QStringLiteral("/opt/v"), QStringLiteral("/home/u/v")};
  FauxFichiers Disque;
  ArbreFaux Arbre;
  PompeFausse Pompe{Journal_};
  BoitesFausses Boites;
  TablesTextes Textes;
  bool GalerieEchoue = false;
  bool GalerieTarde = false;         // FinGalerie is left to the test
  std::function<void()> FinGalerie;  // as the gallery was last given it
  ChoixDossier Choix{{Reglages, Sauvegarde, Dossiers, Arbre, Pompe, Boites, Textes,
                      [this](const QString& dossier, const std::function<void()>& fini) {
                        Journal_.Note([&] { return QStringLiteral("gallery ") + dossier; });
                        FinGalerie = fini;
                        if (!GalerieTarde) fini();
                        if (GalerieEchoue) throw Echec(kFichierIntrouvable, QStringLiteral("first photo damaged"));
                      }}};
};

}  // namespace vaktor::faux
