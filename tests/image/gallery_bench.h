// SPDX-License-Identifier: GPL-3.0-or-later
// A gallery over files in memory: the rules with everything around them as fakes.
#pragma once

#include "base/failure.h"
#include "fakes/fake_files.h"
#include "fakes/fake_message_boxes.h"
#include "fakes/fake_photo_eraser.h"
#include "fakes/fake_photo_names.h"
#include "fakes/fake_photo_reader.h"
#include "fakes/fake_saving.h"
#include "image/photo_gallery.h"

namespace vaktor::faux {

class OuvreurNote : public Ouvreur {
 public:
  void OuvreAdresse(const QString& adresse) override { Ouverts += adresse; }
  void OuvreDossier(const QString& chemin) override { Ouverts += chemin; }
  QStringList Ouverts;
};

/// "/d" is the program's folder. Photos lie in "/p", which is RepertoirePhoto; "/d\intrus" is there and empty.
struct BancGalerie {
  explicit BancGalerie(qint32 langue = 1) {
    Journal.Ecoute();
    Disque.AjouteDossier(QStringLiteral("/p"));
    Disque.AjouteDossier(QStringLiteral("/d"));
    Disque.AjouteDossier(QStringLiteral("/d/intrus"));
    Reglages.RepertoirePhoto = QStringLiteral("/p");
    Reglages.LangueCourante = langue;
    Textes.Remplit(LitLangue(langue));
    Boites.Reponse = ReponseBoite::kOui;
  }
  BancGalerie(const BancGalerie&) = delete;
  BancGalerie& operator=(const BancGalerie&) = delete;
  /// Photos "a.jpg", "b.jpg" and so on.
  void AjoutePhotos(const QStringList& noms, const QString& dossier = QStringLiteral("/p")) {
    for (const QString& nom : noms) Disque.AjouteFichier(dossier + u'/' + nom);
  }

  faux::Journal Journal;
  Parametres Reglages;
  DossiersProgramme Dossiers{QStringLiteral("/e"), QStringLiteral("/d")};
  EtatApplication Etat;
  TablesTextes Textes;
  SauvegardeFausse Sauvegarde{Journal, Reglages};
  FauxFichiers Disque;
  LecteurNomsFaux Noms{Disque};
  LecteurPhotosFaux Lecteur;
  BoitesFausses Boites;
  HorlogeVirtuelle Temps;
  EffaceurFaux Effaceur{Disque, Temps};
  OuvreurNote Bureau;
  GaleriePhotos Galerie{
      PortsGalerie{Reglages, Dossiers, Etat, Sauvegarde, Textes, Noms, Lecteur, Effaceur, Boites, Bureau}};
};

}  // namespace vaktor::faux
