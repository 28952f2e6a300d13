// SPDX-License-Identifier: GPL-3.0-or-later
// From an intrusion to its mail. While photos still come only the recipe lies on disk, a few hundred bytes that survive
// a kill; photos are read and the message is composed once, when the mail is published.
#pragma once

#include "modules/mail/outbox.h"
#include "modules/mail/photo_source.h"
#include "texts/language.h"

namespace vaktor {

/// What a mail is made of, but for its envelope and its photos.
struct RecetteCourriel {
  QString Sujet = {};
  QString Corps = {};
  QString DossierPhotos = {};  ///< native path
  int NombrePhoto = 0;         ///< at the most
  QStringList Sauf = {};       ///< names of photos that other mails of the row have
  QString Ardoise = {};        ///< the file of the slate, asked when the mail is published; empty: none is
  bool GardePhotos = false;    ///< DossierPhotos is named to who reads the mail
  Langue Parlee = Langue::kFrancais;
};

/// Puts the recipe on disk as the draft `courriel.Nom`. Gives the system's error number, 0 when it is there.
int PoseRecette(SacPostal& sac, const CourrielEnAttente& courriel, const RecetteCourriel& recette);

/// The text of a mail that has no photos: the user's own, and what the slate says of the intrusion of `faitA`.
QString ComposeCorpsSansPhoto(const RecetteCourriel& recette, qint64 faitA);

/// What came of a publication; system's error numbers, 0 for none.
struct Publication {
  int Erreur = 0;           ///< of the mail: its draft stays as it is
  int ErreurPhotos = 0;     ///< there was no room for the photos: the mail goes without them
  QStringList Photos = {};  ///< names of those that were chosen
  bool Muet = false;        ///< the photos' disk does not answer: the mail goes without them
};

/// The draft `nom` may be sent from now on. One that is a recipe becomes a whole message first: photos nearest
/// `FaitA`, as many as fit, none where the outbox is full already.
Publication PublieBrouillon(SacPostal& sac, LecteurPhotos& photos, const QString& nom);

/// All drafts but those with `saufMarque` in their name, which belong to the living. Gives the first error: those that
/// could not leave are still there.
int PublieBrouillons(SacPostal& sac, LecteurPhotos& photos, const QString& saufMarque);

/// After the start, by the one program that sends: drafts become mails, and what a kill left half-written or already
/// sent goes. As PublieBrouillons.
int RecupereSac(SacPostal& sac, LecteurPhotos& photos, const QString& saufMarque = {});

}  // namespace vaktor
