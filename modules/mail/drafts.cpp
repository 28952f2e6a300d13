// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/drafts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cerrno>

#include "modules/mail/mail_maker.h"

namespace vaktor {
namespace {

const QLatin1String kSujet("subject");
const QLatin1String kCorps("body");
const QLatin1String kDossier("photos");
const QLatin1String kNombre("count");
const QLatin1String kSauf("not");

RecetteCourriel LitRecette(const QJsonObject& objet) {
  return {.Sujet = objet.value(kSujet).toString(),
          .Corps = objet.value(kCorps).toString(),
          .DossierPhotos = objet.value(kDossier).toString(),
          .NombrePhoto = objet.value(kNombre).toInt(),
          .Sauf = objet.value(kSauf).toVariant().toStringList()};
}

Courriel Prepare(const SacPostal& sac, const CourrielEnAttente& tete, const RecetteCourriel& recette) {
  Courriel courriel{.Expediteur = tete.Expediteur,
                    .Destinataires = tete.Destinataires,
                    .Sujet = recette.Sujet,
                    .Corps = recette.Corps,
                    .Date = QDateTime::fromMSecsSinceEpoch(tete.FaitA),
                    .Identifiant = tete.Nom,
                    .Pieces = {}};
  if (sac.DonneOctets() <= SacPostal::kOctetsMax)
    courriel.Pieces =
        PrendPhotos(recette.DossierPhotos, tete.FaitA, recette.NombrePhoto, kOctetsPhotosMax, recette.Sauf).Pieces;
  return courriel;
}

Publication ComposeBrouillon(SacPostal& sac, const CourrielEnAttente& tete, const RecetteCourriel& recette) {
  Publication suite;
  Courriel courriel = Prepare(sac, tete, recette);
  for (const PieceJointe& piece : courriel.Pieces) suite.Photos.append(piece.Nom);
  suite.Erreur = sac.PoseBrouillon(tete, ComposeMessage(courriel));
  if (suite.Erreur == 0 || courriel.Pieces.isEmpty()) return suite;
  // A disk that has no room for photos may have some for the words: an alarm without a picture is still an alarm.
  courriel.Pieces.clear();
  suite.ErreurPhotos = suite.Erreur;
  suite.Erreur = sac.PoseBrouillon(tete, ComposeMessage(courriel));
  return suite;
}

}  // namespace

int PoseRecette(SacPostal& sac, const CourrielEnAttente& courriel, const RecetteCourriel& recette) {
  QJsonObject objet{{kSujet, recette.Sujet},
                    {kCorps, recette.Corps},
                    {kDossier, recette.DossierPhotos},
                    {kNombre, recette.NombrePhoto}};
  if (!recette.Sauf.isEmpty()) objet.insert(kSauf, QJsonArray::fromStringList(recette.Sauf));
  return sac.PoseRecette(courriel, QJsonDocument(objet).toJson(QJsonDocument::Compact));
}

// The whole message takes the recipe's place under the same name before it gets another one: at no moment does the mail
// stand on disk twice, of which a kill would make two.
Publication PublieBrouillon(SacPostal& sac, const QString& nom) {
  CourrielEnAttente tete;
  Publication suite;
  if (const std::optional<QByteArray> recette = sac.LitRecette(nom, tete)) {
    const QJsonDocument document = QJsonDocument::fromJson(*recette);
    if (document.isObject()) suite = ComposeBrouillon(sac, tete, LitRecette(document.object()));
    if (suite.Erreur != 0) return suite;
  }
  if (!sac.Publie(nom)) suite.Erreur = errno;
  return suite;
}

void RecupereSac(SacPostal& sac, const QString& saufMarque) {
  for (const QString& nom : sac.DonneBrouillons(saufMarque)) PublieBrouillon(sac, nom);
  sac.RetireRestes(saufMarque);
}

}  // namespace vaktor
