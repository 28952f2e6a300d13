#include "image/photo_recorder.h"

#include "base/numbers.h"
#include "image/free_space.h"

namespace vaktor {
namespace {

/// Quality of the user's copies. No setting changes it.
constexpr quint8 kQualitePhoto = 50;

/// As many digits as the limit has at this moment; a number with more is written in full.
QString NumeroPhoto(qint32 compteur, qint32 limite) {
  return QString::number(compteur).rightJustified(QString::number(limite).length(), u'0');
}

/// The part of a photo folder that names its drive: up to and including the first "\".
QString DisqueDe(const QString& repertoire) { return repertoire.left(repertoire.indexOf(u'\\') + 1); }

}  // namespace

EnregistreurPhotos::EnregistreurPhotos(const PortsPhotos& ports) : Ports_(ports) {}

void EnregistreurPhotos::FixeDateJour() { DateJour_ = Ports_.Temps.DonneDate().toString(QStringLiteral("yyyy-MM-dd")); }

void EnregistreurPhotos::EnregistrePhoto() {
  const Parametres& reglages = Ports_.Reglages;
  // Each call uses up a number, whether or not a file follows: the limit counts calls of this run, not files.
  CompteurPhotos_ = AjouteVerifie(CompteurPhotos_, 1);
  const QString numero = NumeroPhoto(CompteurPhotos_, reglages.NombrePhotoMax);
  const QString heure = Ports_.Temps.DonneHeure().toString(QStringLiteral("hh-mm-ss"));
  // Two blanks after the date. The date is that of the start even past midnight, the time is now: photos of several
  // days of one run carry one date, and so sort as one run.
  const QString nom =
      DateJour_ + QStringLiteral("  ") + heure + QStringLiteral(" Photo ") + numero + QStringLiteral(".jpg");

  // Strictly below: a run saves one photo less than its limit, and with a limit of 1 none.
  if (CompteurPhotos_ < reglages.NombrePhotoMax && reglages.PhotoActif) {
    Ports_.Ecrivain.EnregistreJPEG(Ports_.Surface.Image(), reglages.RepertoirePhoto + u'/' + nom, kQualitePhoto);
  }
  // Not reached when the first copy fails. Depends neither on the limit nor on PhotoActif.
  if (Ports_.LiveActif()) {
    Ports_.Ecrivain.EnregistreJPEG(Ports_.Surface.Image(), Ports_.Dossiers.Donnees + QStringLiteral("/Temp/FTP/") + nom,
                                   reglages.QualiteJpeg);
  }
}

bool EnregistreurPhotos::VerifieEspaceDisque() {
  const QString& repertoire = Ports_.Reglages.RepertoirePhoto;
  if (repertoire.isEmpty()) return false;
  // A folder with no "\" names no drive that way. It is the usual case where folders are joined by "/" alone, and an
  // empty text would ask about no disk at all: the warning would be wrong on every machine. So the folder itself is
  // asked about. A folder such as "/home/anna/Vaktor\intrus" is asked about up to its "\", which is the same disk.
  const QString disque = DisqueDe(repertoire);
  const std::optional<qint64> libres = Ports_.Disque.EspaceLibre(disque.isEmpty() ? repertoire : disque);
  if (libres) OctetsLibres_ = *libres;
  return OctetsLibres_ < kOctetsAvertissement;
}

}  // namespace vaktor
