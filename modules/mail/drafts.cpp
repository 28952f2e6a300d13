// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/drafts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cerrno>
#include <optional>
#include <utility>

#include "companions/contract/intrusion_slate.h"
#include "modules/mail/intrusion_words.h"
#include "modules/mail/mail_maker.h"
#include "platform/store/bounded_file.h"

namespace vaktor {
namespace {

const QLatin1String kSujet("subject");
const QLatin1String kCorps("body");
const QLatin1String kDossier("photos");
const QLatin1String kNombre("count");
const QLatin1String kSauf("not");
const QLatin1String kArdoise("slate");
const QLatin1String kGarde("told");
const QLatin1String kLangue("language");

RecetteCourriel LitRecette(const QJsonObject& objet) {
  return {.Sujet = objet.value(kSujet).toString(),
          .Corps = objet.value(kCorps).toString(),
          .DossierPhotos = objet.value(kDossier).toString(),
          .NombrePhoto = objet.value(kNombre).toInt(),
          .Sauf = objet.value(kSauf).toVariant().toStringList(),
          .Ardoise = objet.value(kArdoise).toString(),
          .GardePhotos = objet.value(kGarde).toBool(),
          .Parlee = LangueParlee(objet.value(kLangue).toInt())};
}

// The slate is the newest there is. One that is missing, torn, or of another intrusion costs the mail its order and its
// words, and nothing else.
std::optional<ArdoiseIntrusion> LitArdoiseDe(const RecetteCourriel& recette, qint64 faitA) {
  QByteArray octets;
  if (recette.Ardoise.isEmpty() || LitFichierBorne(recette.Ardoise, kOctetsArdoise, octets) != 0) return std::nullopt;
  std::optional<ArdoiseIntrusion> ardoise = LitArdoise(octets);
  if (ardoise && !EstDeCetteIntrusion(*ardoise, faitA)) ardoise.reset();
  return ardoise;
}

QString ComposeCorps(const RecetteCourriel& recette, const std::optional<ArdoiseIntrusion>& ardoise,
                     const QString& tete) {
  if (!ardoise) return recette.Corps;
  const QString suite =
      DitIntrusionDuCourriel(*ardoise, tete, recette.GardePhotos ? recette.DossierPhotos : QString(), recette.Parlee);
  return recette.Corps.isEmpty() ? suite : recette.Corps + QStringLiteral("\n\n") + suite;
}

/// A mail with its photos, and what it is without them.
struct CourrielCompose {
  Courriel Message;
  QString CorpsSansPhoto;
  bool Muet = false;  ///< the photos' disk does not answer
};

CourrielCompose Prepare(const SacPostal& sac, LecteurPhotos& photos, const CourrielEnAttente& tete,
                        const RecetteCourriel& recette) {
  const std::optional<ArdoiseIntrusion> ardoise = LitArdoiseDe(recette, tete.FaitA);
  QStringList enTete;
  if (ardoise)
    for (const PhotoArdoise& photo : ardoise->Photos) enTete.append(photo.Nom);
  std::optional<ChoixPhotos> lu = ChoixPhotos();
  if (sac.DonneOctets() <= SacPostal::kOctetsMax)
    lu = photos.Prend(recette.DossierPhotos, tete.FaitA, recette.NombrePhoto, kOctetsPhotosMax, recette.Sauf, enTete);
  const bool muet = !lu;
  ChoixPhotos choix = std::move(lu).value_or(ChoixPhotos());
  return {{.Expediteur = tete.Expediteur,
           .Destinataires = tete.Destinataires,
           .Sujet = recette.Sujet,
           .Corps = ComposeCorps(recette, ardoise, choix.Tete),
           .Date = QDateTime::fromMSecsSinceEpoch(tete.FaitA),
           .Identifiant = tete.Nom,
           .Pieces = std::move(choix.Pieces)},
          ComposeCorps(recette, ardoise, {}),
          muet};
}

Publication ComposeBrouillon(SacPostal& sac, LecteurPhotos& photos, const CourrielEnAttente& tete,
                             const RecetteCourriel& recette) {
  Publication suite;
  auto [courriel, corpsSansPhoto, muet] = Prepare(sac, photos, tete, recette);
  suite.Muet = muet;
  for (const PieceJointe& piece : courriel.Pieces) suite.Photos.append(piece.Nom);
  suite.Erreur = sac.PoseBrouillon(tete, ComposeMessage(courriel));
  if (suite.Erreur == 0 || courriel.Pieces.isEmpty()) return suite;
  // A disk that has no room for photos may have some for the words: an alarm without a picture is still an alarm.
  courriel.Pieces.clear();
  courriel.Corps = corpsSansPhoto;
  suite.ErreurPhotos = suite.Erreur;
  suite.Erreur = sac.PoseBrouillon(tete, ComposeMessage(courriel));
  return suite;
}

}  // namespace

QString ComposeCorpsSansPhoto(const RecetteCourriel& recette, qint64 faitA) {
  return ComposeCorps(recette, LitArdoiseDe(recette, faitA), {});
}

int PoseRecette(SacPostal& sac, const CourrielEnAttente& courriel, const RecetteCourriel& recette) {
  QJsonObject objet{{kSujet, recette.Sujet},
                    {kCorps, recette.Corps},
                    {kDossier, recette.DossierPhotos},
                    {kNombre, recette.NombrePhoto},
                    {kArdoise, recette.Ardoise},
                    {kGarde, recette.GardePhotos},
                    {kLangue, static_cast<int>(recette.Parlee)}};
  if (!recette.Sauf.isEmpty()) objet.insert(kSauf, QJsonArray::fromStringList(recette.Sauf));
  return sac.PoseRecette(courriel, QJsonDocument(objet).toJson(QJsonDocument::Compact));
}

// The whole message takes the recipe's place under the same name before it gets another one: at no moment does the mail
// stand on disk twice, of which a kill would make two.
Publication PublieBrouillon(SacPostal& sac, LecteurPhotos& photos, const QString& nom) {
  CourrielEnAttente tete;
  Publication suite;
  std::optional<QByteArray> recette;
  suite.Erreur = sac.LitBrouillon(nom, tete, recette);
  if (suite.Erreur == 0 && recette) {
    const QJsonDocument document = QJsonDocument::fromJson(*recette);
    if (document.isObject()) suite = ComposeBrouillon(sac, photos, tete, LitRecette(document.object()));
  }
  if (suite.Erreur != 0) return suite;
  if (!sac.Publie(nom)) suite.Erreur = errno;
  return suite;
}

int PublieBrouillons(SacPostal& sac, LecteurPhotos& photos, const QString& saufMarque) {
  QStringList noms;
  int premiere = sac.ListeBrouillons(saufMarque, noms);
  for (const QString& nom : std::as_const(noms)) {
    const int erreur = PublieBrouillon(sac, photos, nom).Erreur;
    if (premiere == 0 && erreur != ENOENT) premiere = erreur;  // ENOENT: somebody has taken it away
  }
  return premiere;
}

int RecupereSac(SacPostal& sac, LecteurPhotos& photos, const QString& saufMarque) {
  const int erreur = PublieBrouillons(sac, photos, saufMarque);
  sac.RetireRestes(saufMarque);
  return erreur;
}

}  // namespace vaktor
