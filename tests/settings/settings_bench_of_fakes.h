// SPDX-License-Identifier: GPL-3.0-or-later
// A ReglagesPersistants among fakes: store, files and companions.
#pragma once

#include <functional>

#include "fakes/fake_files.h"
#include "fakes/fake_health_report.h"
#include "fakes/fake_store.h"
#include "settings/persistent_settings.h"

namespace vaktor {

class FauxModules : public CommandesModules {
 public:
  QStringList Envois;                         ///< "FTP:Optio" and so on
  std::function<void()> AuPremierEnvoi = {};  ///< what a companion sees when it is told

  void EnvoiFTP(Commande commande) override { Note(QStringLiteral("FTP:") + DonneMot(commande)); }
  void EnvoiMail(Commande commande) override { Note(QStringLiteral("MAIL:") + DonneMot(commande)); }
  void EnvoiSon(Commande commande) override { Note(QStringLiteral("SON:") + DonneMot(commande)); }

 private:
  void Note(const QString& envoi) {
    if (Envois.isEmpty() && AuPremierEnvoi) AuPremierEnvoi();
    Envois += envoi;
  }
};

struct BancReglages {
  Parametres Valeurs;
  FauxMagasin Magasin;
  FauxFichiers Disque;
  FauxModules Modules;
  faux::SanteFausse Sante;
  QSize Taille{320, 240};
  ReglagesPersistants Reglages{{.Valeurs = Valeurs,
                                .Magasin = Magasin,
                                .Disque = Disque,
                                .Modules = Modules,
                                .DossierPhotos = QStringLiteral("/prog\\intrus"),
                                .TailleImage = [this] { return Taille; },
                                .Sante = Sante}};

  BancReglages() { Disque.AjouteDossier(QStringLiteral("/prog")); }
  /// The whole load. As the window's fields do, one saves when every value is read.
  void Charge() {
    Reglages.TermineChargement([this] { Reglages.SauveParametres(); });
  }
};

/// Its load is over, of a store that was empty, and forgotten.
struct BancCharge : BancReglages {
  BancCharge() {
    Charge();
    Valeurs = Parametres{};
    Magasin.Valeurs.clear();
    Magasin.Disque.clear();
    Magasin.Lus.clear();
    Magasin.Ecrits.clear();
    Modules.Envois.clear();
  }
};

}  // namespace vaktor
