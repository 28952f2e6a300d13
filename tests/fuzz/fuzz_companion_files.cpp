// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as each file that the companions keep for their next run or find from the main program, as what an FTP
// server says, and as the request of a rehearsal.
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "base/jpeg_end.h"
#include "fakes/virtual_clock.h"
#include "modules/common/failure_notice.h"
#include "modules/ftp/ftp_failure.h"
#include "modules/ftp/published_photos.h"
#include "modules/ftp/rehearsal.h"
#include "modules/ftp/site_memory.h"
#include "modules/ftp/site_space.h"
#include "modules/mail/mail_maker.h"
#include "modules/mail/rehearsal.h"
#include "modules/mail/watch_folder.h"
#include "modules/push/push_outbox.h"
#include "modules/push/push_rehearsal.h"

namespace vaktor {
namespace {

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

/// In memory where that is to be had: each run writes some files, and flushes some of them.
const QTemporaryDir& Dossier() {
  static const QTemporaryDir dossier(QDir("/dev/shm").exists() ? QStringLiteral("/dev/shm/vaktor-fuzz-XXXXXX")
                                                               : QDir::tempPath() + "/vaktor-fuzz-XXXXXX");
  return dossier;
}

QString Pose(const QString& nom, const QByteArray& octets) {
  QString chemin = Dossier().filePath(nom);
  QFile fichier(chemin);
  Exige(fichier.open(QIODevice::WriteOnly) && fichier.write(octets) == octets.size());
  return chemin;
}

void EssaiePush(const QByteArray& octets) {
  QDir(Dossier().path()).mkdir("push");
  const QString nom = QStringLiteral("000001700000000-x.push");
  Pose("push/" + nom, octets);
  SacPush sac(Dossier().filePath("push"));
  const std::optional<MessagePush> lu = sac.Lit(nom);
  if (lu) {
    Exige(lu->Image.isEmpty() || EstJpegEntier(lu->Image));
    for (const QByteArray& entete : {CodeEntete(lu->Titre), CodeEntete(lu->Texte), CodeEntete(lu->NomImage)})
      Exige(std::ranges::all_of(entete, [](char c) { return c >= ' ' && c < 127; }));
    sac.RetireImage(nom);
    const std::optional<MessagePush> leger = sac.Lit(nom);
    Exige(leger && leger->Image.isEmpty() && leger->Titre == lu->Titre && leger->Texte == lu->Texte);
  }
  Exige(sac.Elague(1'700'000'000'000, {nom}).size() == 1 && sac.Liste().isEmpty());
}

void EssaiePlace(const QByteArray& octets) {
  const QString chemin = Pose("place.txt", octets);
  PlaceSite place(chemin);
  place.RegleBornes(3, 1000);
  for (const QStringList& noms : {place.EnTrop(), place.PlusAnciens()}) {
    Exige(noms.size() <= PlaceSite::kParFois && noms.size() <= place.Nombre());
    Exige(std::ranges::none_of(noms, [](const QString& nom) { return nom.isEmpty() || nom.contains(u'\n'); }));
  }
  place.SeraitDeTrop(0);
  place.Note("n.jpg", 5, 7);
  for (const QString& nom : place.PlusAnciens()) place.Oublie(nom);
  const qsizetype nombre = place.Nombre();
  Exige(PlaceSite(chemin).Nombre() == nombre);
}

void EssaieSites(const QByteArray& octets) {
  const QString chemin = Pose("sites.json", octets);
  MemoireSites sites(chemin);
  AccesFtp acces{"a.org", 21, "u", "p", "/www"};
  sites.Applique(acces);
  ResultatFtp resultat;
  resultat.Chiffre = true;
  resultat.CleHote = "SHA256:k";
  sites.Note(acces, resultat);
  sites.NoteEtabli(acces);
  const MemoireSites relu(chemin);
  relu.Applique(acces);
  Exige(acces.TlsExige && relu.EstEtabli(acces));
}

void EssaiePhotos(const QByteArray& octets) {
  PhotosPubliees photos(Pose("photos.json", octets));
  photos.Ajoute({"n.jpg", QDateTime(QDate(2026, 11, 22), QTime(12, 0))});
  Exige(photos.Liste().size() <= PhotosPubliees::kMax && photos.EstProche(photos.Dernier()));
  Exige(std::ranges::is_sorted(photos.Liste(),
                               [](const PhotoPubliee& a, const PhotoPubliee& b) { return a.Prise > b.Prise; }));
}

void EssaieVeille(const QByteArray& octets) {
  QDir(Dossier().path()).mkdir("veille");
  Pose("veille/1700000000000-1.json", octets);
  const DossierVeille veille(Dossier().filePath("veille"));
  Exige(veille.Liste().size() == 1);
  QString raison;
  const std::optional<MessageVeille> lu = veille.Lit(veille.Liste()[0], 1000, raison);
  Exige(lu.has_value() != !raison.isEmpty());
}

void EssaieEtat(const QByteArray& octets) {
  Pose("VAKTORx.json", octets);
  faux::HorlogeVirtuelle horloge;
  EtatModule etat(Dossier().path(), "VAKTORx", horloge, {});
  etat.Demarre(7, 1'700'000'000'000);
  QFile fichier(etat.Chemin());
  Exige(fichier.open(QIODevice::ReadOnly));
  Exige(QJsonDocument::fromJson(fichier.readAll()).object()["handle"].toInt() == 7);
}

// Lines of the server, and between them the commands that libcurl would send.
void EssaieServeur(const QByteArray& octets) {
  static constexpr const char* kCommandes[] = {"USER u\r\n", "PASS p\r\n", "EPSV\r\n",  "STOR x\r\n",
                                               "PASV\r\n",   "RNFR x\r\n", "RNTO y\r\n"};
  const OuvrierFtp::SurEtape etape = [](EtapeFtp) {};
  const SurReplique replique = [](const QByteArray&, const QByteArray& ligne) { Exige(ligne.size() <= 300); };
  DialogueFtp dialogue(etape, replique);
  std::size_t commande = 0;
  for (const QByteArray& ligne : octets.split('\n')) {
    dialogue.NoteReponse(ligne);
    if (!ligne.contains('-') && commande < std::size(kCommandes)) dialogue.NoteCommande(kCommandes[commande++]);
  }
  Exige(dialogue.Refus().size() <= 300 && (dialogue.Refus().isEmpty() || dialogue.CodeRefus() >= 400));
  for (int code = 0; code < 100; ++code) PreciseEchec(code, dialogue);
}

void EssaieDemandes(const QByteArray& octets) {
  int envois = 0;
  PortsRepetition ports{
      .Execute =
          [&envois](const TravailFtp& travail) {
            Exige(!travail.Acces.Utilisateur.contains(u'\n') && !travail.Acces.Dossier.contains(u'\n'));
            return ++envois % 3 == 0 ? ResultatFtp{IssueFtp::kRefus, "550 no"} : ResultatFtp{};
          },
      .Ecrit = [](const QString& ligne) { Exige(!ligne.contains(u'\n')); },
      .SurFichier = [](bool) {},
      .EstInterrompue = [] { return false; },
      .Marque = "m"};
  RepetitionFtp(ports).Joue(octets);
  const QJsonObject demande = QJsonDocument::fromJson(octets).object();
  Exige(EstDemandePush(octets) == demande.contains("pushadresse"));
  Parametres valeurs = LitDemandeCourriel(demande);
  valeurs.PushAdresse = demande["pushadresse"].toString();
  valeurs.PushEntete = demande["pushentete"].toString();
  TraduitReglages(valeurs, {}, {});
  const PushLu lu = LitPush(valeurs, {});
  Exige(lu.Reglages.Adresse.isEmpty() || lu.Reglages.Adresse.startsWith("http"));
  Exige(std::ranges::none_of(lu.Reglages.Entete + lu.Reglages.Adresse, [](char c) { return c == '\r' || c == '\n'; }));
  DonneSecretsPush(lu.Reglages);
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const QByteArray octets(reinterpret_cast<const char*>(donnees), static_cast<qsizetype>(taille));
  vaktor::EssaiePush(octets);
  vaktor::EssaiePlace(octets);
  vaktor::EssaieSites(octets);
  vaktor::EssaiePhotos(octets);
  vaktor::EssaieVeille(octets);
  vaktor::EssaieEtat(octets);
  vaktor::EssaieServeur(octets);
  vaktor::EssaieDemandes(octets);
  return 0;
}
