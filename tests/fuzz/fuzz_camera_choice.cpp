// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the command line, as the address of a camera, and as the file in which the capture driver remembers what
// was chosen.
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "app/start_arguments.h"
#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/choice/common_addresses.h"
#include "platform/capture/choice/named_source.h"

namespace vaktor {
namespace {

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

// Shorter ones, and those that stand in the text twice, may be part of a host or a path; so may one whose signs are
// encoded in one place and plain in another.
constexpr qsizetype kMotDePasseLong = 8;

bool EstSeul(const QString& secret, const QString& texte) {
  return secret.size() >= kMotDePasseLong && !texte.contains(u'%') && texte.count(secret, Qt::CaseInsensitive) == 1;
}

void EssaieAdresse(const QString& texte) {
  const SourceCapture source = ComprendSource(texte);
  const QString& secret = source.MotDePasse;
  if (EstSeul(secret, texte)) {
    Exige(!source.Description.contains(secret));
    Exige(!source.Lieu.contains(secret));
    Exige(!MasqueAdresse(texte).contains(secret));
  }
  const QList<SourceCapture> possibles = AdressesPossibles(source);
  Exige(!possibles.isEmpty());
  for (const SourceCapture& possible : possibles) {
    Exige(possible.Utilisateur == source.Utilisateur && possible.MotDePasse == secret);
    // What is remembered of an address that answered leads to it again.
    if (possible.Genre == GenreSource::kReseau && possibles.size() > 1) {
      const SourceCapture encore = ComprendSource(AdresseComplete(possible));
      Exige(encore.Lieu == possible.Lieu && encore.MotDePasse == secret);
    }
  }
}

void EssaieLigneCommande(const QStringList& arguments) {
  const ArgumentsDepart lus = LitArgumentsDepart(arguments);
  const QStringList inconnus = TrouveInconnus(arguments);
  Exige(std::ranges::all_of(inconnus, [&](const QString& inconnu) { return arguments.contains(inconnu); }));
  // Nothing is armed, and nothing sent, that no argument names, nor by a camera or a folder that is called so.
  const auto nomme = [&arguments](QLatin1StringView nom) {
    return std::ranges::any_of(arguments, [nom](const QString& argument) {
      return argument.contains(nom, Qt::CaseInsensitive) && LitArgumentsDepart({argument}).LigneCommande == argument;
    });
  };
  const ArgumentsAuto automatiques = LitArgumentsAuto(lus.LigneCommande);
  Exige(automatiques.Alarme == nomme(QLatin1StringView("/alarm")));
  Exige(automatiques.Live == nomme(QLatin1StringView("/surve")));
  EssaieAdresse(lus.Camera);
}

void EssaieMemoire(const QByteArray& octets) {
  // In memory where there is such a place: a disk that takes its time is given up, which is another matter.
  static const QTemporaryDir kDossier(QDir(QStringLiteral("/dev/shm")).exists()
                                          ? QStringLiteral("/dev/shm/vaktor-XXXXXX")
                                          : QDir::tempPath() + "/vaktor-XXXXXX");
  Exige(kDossier.isValid());
  const QString fichier = kDossier.filePath(QStringLiteral("capture.ini"));
  {
    QFile f(fichier);
    Exige(f.open(QIODevice::WriteOnly) && f.write(octets) == octets.size());
  }
  // Nor is it a fault when this machine was too busy for the thread that reads and writes.
  QElapsedTimer depuis;
  depuis.start();
  const auto exige = [&depuis](bool vrai) { Exige(vrai || depuis.hasExpired(TravauxEnFile::kPatience.count())); };
  MemoireCapture memoire(fichier);
  const QString source = memoire.Source();
  const QString nom = QString::fromUtf8(octets.left(40)) + QLatin1Char('x');
  const FormatCamera format{
      .Codage = QStringLiteral("MJPG"), .Largeur = 640, .Hauteur = 480, .CadenceNum = 30, .CadenceDen = 1};
  // Whatever stood there: what is remembered from now on is read again, and so is the source that was understood.
  exige(memoire.RetientFormat(nom, format));
  exige(memoire.Format(nom) == format);
  exige(memoire.Source() == source);
  exige(memoire.Empechement().isEmpty());
  exige(memoire.RetientSource(QString::fromUtf8(octets)));
  exige(memoire.Empechement().isEmpty());
  exige(memoire.Format(nom) == format);
  EssaieAdresse(source);
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const QByteArray octets(reinterpret_cast<const char*>(donnees), static_cast<qsizetype>(taille));
  const QString texte = QString::fromUtf8(octets);
  // A mark of the byte order goes with each reading, wherever it stands.
  if (octets.contains("\xEF\xBB\xBF") || octets.toUpper().contains("%EF%BB%BF")) return 0;
  vaktor::EssaieAdresse(texte);
  vaktor::EssaieLigneCommande(texte.split(u'\n'));
  vaktor::EssaieMemoire(octets);
  return 0;
}
