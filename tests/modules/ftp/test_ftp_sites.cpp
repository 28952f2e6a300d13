// SPDX-License-Identifier: GPL-3.0-or-later
// What is remembered of the servers and of what lies there, and what follows from it.
#include <QFile>

#include "modules/ftp/ftp_access.h"
#include "modules/ftp/ftp_module_bench.h"
#include "modules/ftp/server_address.h"
#include "modules/ftp/site_memory.h"
#include "modules/ftp/site_space.h"

namespace vaktor::essai {
namespace {

TEST(ProtocoleDuServeur, FollowsPortAndScheme) {
  const struct {
    const char* Texte;
    quint16 Port;
    ProtocoleFtp Protocole;
  } cas[] = {{"a.org", 21, ProtocoleFtp::kFtp},
             {"ftps://a.org", 21, ProtocoleFtp::kFtp},
             {"a.org:990", 990, ProtocoleFtp::kFtpImplicite},
             {"ftps://a.org:990", 990, ProtocoleFtp::kFtpImplicite},
             {"a.org:22", 22, ProtocoleFtp::kSftp},
             {"sftp://a.org", 22, ProtocoleFtp::kSftp},
             {"SFTP://u@a.org:2222/www", 2222, ProtocoleFtp::kSftp}};
  for (const auto& c : cas) {
    const AdresseServeur adresse = LitAdresseServeur(c.Texte);
    EXPECT_EQ(adresse.Hote, "a.org") << c.Texte;
    EXPECT_EQ(adresse.Port, c.Port) << c.Texte;
    EXPECT_EQ(adresse.Protocole, c.Protocole) << c.Texte;
    EXPECT_TRUE(adresse.Valable && !adresse.Web) << c.Texte;
  }
}

TEST(ProtocoleDuServeur, OfTheWebIsToldAsSuch) {
  for (const char* web : {"https://a.org/dav", "http://a.org", "a.org:443", "a.org:80"}) {
    Parametres valeurs;
    valeurs.AdresseFtp = web;
    EXPECT_EQ(LitAcces(valeurs).Manque, ManqueAcces::kWeb) << web;
  }
}

TEST(AccesDuServeur, ANoBreakSpaceOfThePasswordIsASignLikeAnother) {
  Parametres valeurs;
  valeurs.AdresseFtp = "a.org";
  valeurs.UtilisateurFtp = "anna";
  valeurs.MotDePasseFtp = QStringLiteral("\u00a0p w\u00a0");
  EXPECT_EQ(LitAcces(valeurs).Manque, ManqueAcces::kRien);
  EXPECT_EQ(LitAcces(valeurs).Acces.MotDePasse, valeurs.MotDePasseFtp);
}

TEST(MemoireDesSites, RequiresWhatAServerHasShownOnceAlsoInTheNextRun) {
  QTemporaryDir dossier;
  const QString fichier = MemoireSites::Fichier(dossier.path());
  AccesFtp acces{"A.org", 21, "anna", "x", "/www"};
  {
    MemoireSites sites(fichier);
    sites.Applique(acces);
    EXPECT_FALSE(acces.TlsExige);
    EXPECT_FALSE(sites.Note(acces, {.Chiffre = true}));
    EXPECT_TRUE(sites.Note({"b.org", 22, "", "", ""}, {.CleHote = "SHA256:1"})) << "a first visit is told";
    EXPECT_FALSE(sites.Note({"b.org", 22, "", "", ""}, {.CleHote = "SHA256:2"})) << "and no other key takes its place";
  }
  const MemoireSites sites(fichier);
  AccesFtp autre{"a.org", 21, "berta", "y", "/"};
  sites.Applique(autre);
  EXPECT_TRUE(autre.TlsExige) << "the server counts, whoever logs in";
  AccesFtp port{"a.org", 2121, "", "", ""};
  sites.Applique(port);
  EXPECT_FALSE(port.TlsExige);
  AccesFtp ssh{"b.org", 22, "", "", ""};
  sites.Applique(ssh);
  EXPECT_EQ(ssh.CleHote, "SHA256:1");
  EXPECT_EQ(QFile(fichier).permissions() & 0x77, 0);
}

TEST(MemoireDesSites, KnowsWhichSitesHaveWorked) {
  QTemporaryDir dossier;
  const AccesFtp acces{"a.org", 21, "anna", "x", "/www"};
  MemoireSites(MemoireSites::Fichier(dossier.path())).NoteEtabli(acces);
  const MemoireSites sites(MemoireSites::Fichier(dossier.path()));
  EXPECT_TRUE(sites.EstEtabli(acces));
  AccesFtp autre = acces;
  autre.Dossier = "/w";
  EXPECT_FALSE(sites.EstEtabli(autre));
  autre = acces;
  autre.Utilisateur = "berta";
  EXPECT_FALSE(sites.EstEtabli(autre));
}

struct Place : testing::Test {
  QTemporaryDir Dossier;
  QString Fichier = Dossier.filePath("place.txt");
  PlaceSite Site{Fichier};
  Place() { Site.ChoisitSite("a"); }
};

TEST_F(Place, NamesTheOldestPhotosBeyondTheNumber) {
  Site.RegleBornes(2, 0);
  Site.Note("c.jpg", 1, 3);
  Site.Note("a 1.jpg", 1, 1);
  EXPECT_TRUE(Site.EnTrop().isEmpty());
  Site.Note("b.jpg", 1, 2);
  EXPECT_EQ(Site.EnTrop(), QStringList("a 1.jpg")) << "by the time of the photo, not of its publication";
  Site.Oublie("a 1.jpg");
  EXPECT_TRUE(Site.EnTrop().isEmpty());
  Site.RegleBornes(0, 0);
  for (int i = 0; i < 10; ++i) Site.Note(QString::number(i), 1, 10 + i);
  EXPECT_TRUE(Site.EnTrop().isEmpty()) << "no bound";
}

TEST_F(Place, NamesTheOldestPhotosBeyondTheSize) {
  Site.RegleBornes(0, 100);
  Site.Note("a", 40, 1);
  Site.Note("b", 30, 2);
  Site.Note("c", 30, 3);
  EXPECT_TRUE(Site.EnTrop().isEmpty());
  Site.Note("d", 31, 4);
  EXPECT_EQ(Site.EnTrop(), QStringList("a"));
  Site.Note("d", 0, 4);
  EXPECT_TRUE(Site.EnTrop().isEmpty()) << "a name that is published again counts once";
}

TEST_F(Place, GivesATenthForAServerWithoutRoom) {
  for (int i = 0; i < 30; ++i) Site.Note(QString::number(i), 1, i);
  EXPECT_EQ(Site.PlusAnciens(), (QStringList{"0", "1", "2"}));
  Site.ChoisitSite("b");
  Site.Note("x", 1, 1);
  EXPECT_EQ(Site.PlusAnciens(), QStringList("x"));
}

TEST_F(Place, KnowsWhichPhotoWouldBeTheFirstToGoAgain) {
  Site.RegleBornes(2, 0);
  Site.Note("b", 1, 20);
  EXPECT_FALSE(Site.SeraitDeTrop(1)) << "there is room";
  Site.Note("c", 1, 30);
  EXPECT_TRUE(Site.SeraitDeTrop(19));
  EXPECT_FALSE(Site.SeraitDeTrop(20));
}

TEST_F(Place, IsRememberedOverARestartAndNotForAnotherSite) {
  for (int i = 0; i < 2000; ++i) {
    Site.Note(QStringLiteral("p %1.jpg").arg(i), 10, i);
    if (i >= 3) Site.Oublie(QStringLiteral("p %1.jpg").arg(i - 3));
  }
  EXPECT_LT(QFile(Fichier).size(), 60'000) << "what is gone does not grow the file for ever";
  PlaceSite lue(Fichier);
  lue.ChoisitSite("a");
  EXPECT_EQ(lue.Nombre(), 3);
  lue.RegleBornes(0, 20);
  EXPECT_EQ(lue.EnTrop(), QStringList("p 1997.jpg"));
  lue.ChoisitSite("b");
  EXPECT_TRUE(PlaceSite(Fichier).EstVide());
  EXPECT_EQ(QFile(Fichier).permissions() & 0x77, 0);
}

TEST_F(Place, StandsAFileThatIsDamaged) {
  Site.Note("a", 1, 1);
  ASSERT_TRUE(EcritOctets(Fichier, LitOctets(Fichier) + "rubbish\n+ x y z\n+ 5 7 b\n+ 6 7"));
  PlaceSite lue(Fichier);
  EXPECT_EQ(lue.Nombre(), 2);
  lue.Note("c", 1, 1);
  EXPECT_EQ(PlaceSite(Fichier).Nombre(), 3) << "not behind the half line";
}

TEST_F(Ftp, APageThatHasWorkedIsNotTurnedOffByAFirstConnectionThatFails) {
  Publie();
  CreeModule();  // the next start
  EXPECT_EQ(Dit("Conne"), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  Temps.Avance(ModuleFtp::kReprises.front());
  EXPECT_EQ(Finit(IssueFtp::kServeurInconnu), "Netdc") << "a router without its names";
  Temps.Avance(ModuleFtp::kReprises[1]);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, APageThatHasNotWorkedInThisFolderIs) {
  Publie();
  Reglages.Valeurs.RepertoireFtp = "/autre";
  CreeModule();
  Dit("Conne");
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "ErrCo");
}

TEST_F(Ftp, ASiteThatHasEncryptedHasToDoSoEverAfter) {
  Dit("Conne");
  EXPECT_FALSE(Ouvrier->Travail.Acces.TlsExige);
  std::exchange(Ouvrier->Fin, nullptr)({.Chiffre = true});
  Dit("Surve");
  EXPECT_TRUE(Ouvrier->Travail.Acces.TlsExige) << "also when this connection has to be opened again";
  CreeModule();
  Dit("Conne");
  EXPECT_TRUE(Ouvrier->Travail.Acces.TlsExige);
  Mots.clear();
  std::exchange(Ouvrier->Fin, nullptr)({IssueFtp::kPasDeConnexion, "x", PrecisionFtp::kTlsPerdu});
  EXPECT_EQ(EtatLu()["subject"].toString(), "ftp-clear");
  EXPECT_TRUE(Avis.last().contains("used to encrypt")) << Avis.last().toStdString();
}

TEST_F(Ftp, AKeyIsNotedAtTheFirstVisitAndAnotherOneTold) {
  Reglages.Valeurs.AdresseFtp = "sftp://a.org";
  Module->PrendReglages(Reglages);
  Dit("Conne");
  EXPECT_EQ(Ouvrier->Travail.Acces.Protocole, ProtocoleFtp::kSftp);
  EXPECT_EQ(Ouvrier->Travail.Acces.CleHote, "");
  std::exchange(Ouvrier->Fin, nullptr)({.CleHote = "SHA256:abc"});
  EXPECT_TRUE(LitTexte(Journal.Chemin()).contains("first visit, the key of a.org is SHA256:abc"));
  Dit("Conne");
  EXPECT_EQ(Ouvrier->Travail.Acces.CleHote, "SHA256:abc");
  std::exchange(Ouvrier->Fin, nullptr)({IssueFtp::kPasDeConnexion, "SHA256:xyz", PrecisionFtp::kCleHote});
  EXPECT_EQ(EtatLu()["subject"].toString(), "ftp-key");
}

TEST_F(Ftp, AboutOnePhotoASecondIsPublishedTheNewestFirst) {
  for (int i = 0; i < 30; ++i) {
    PosePhoto(QStringLiteral("%1.jpg").arg(i, 2, 10, QLatin1Char('0')));
    Horloge.Millisecondes += 100;
  }
  Connecte();
  QStringList publiees;
  while (Ouvrier->EnCours()) {
    publiees << Ouvrier->Travail.Nom;
    Finit(IssueFtp::kReussi);
  }
  EXPECT_EQ(publiees.join(' '), "29.jpg 20.jpg 11.jpg 02.jpg") << "the newest, and nine tenths of a second apart";
  EXPECT_TRUE(PhotosLocales().isEmpty()) << "the others are in the user's own folder";
}

TEST_F(Ftp, APhotoBetweenTwoThatAreThereIsComparedWithBoth) {
  PosePhoto("a.jpg", 20);
  PosePhoto("b.jpg", 10);
  Connecte();
  Finit(IssueFtp::kReussi);
  Finit(IssueFtp::kReussi);
  Horloge.Millisecondes += 500;
  PosePhoto("c.jpg", 20);  // half a second behind the one, and in front of the other
  Horloge.Millisecondes -= 1000;
  PosePhoto("d.jpg", 10);
  PosePhoto("e.jpg", 15);
  Horloge.Millisecondes += 500;
  Temps.Avance(ModuleFtp::kRegard);
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Nom, "e.jpg");
  EXPECT_EQ(PhotosLocales(), QStringList("e.jpg"));
}

TEST_F(Ftp, ThePageKeepsTheOrderOfTheirTimesWhateverCameFirst) {
  PosePhoto("a.jpg", 20);
  PosePhoto("b.jpg", 10);
  Connecte();
  EXPECT_EQ(Ouvrier->Travail.Nom, "b.jpg");
  Finit(IssueFtp::kReussi);
  Finit(IssueFtp::kReussi);
  Dit("UploM");
  const QByteArray page = Ouvrier->Travail.Contenu;
  EXPECT_GT(page.indexOf("a.jpg"), page.indexOf("b.jpg"));
  EXPECT_GT(page.indexOf("b.jpg"), 0);
}

TEST_F(Ftp, APhotoThatIsRefusedGoesToTheBackAndAfterThreeThereIsAPause) {
  Publie();
  for (int i = 0; i < 5; ++i) PosePhoto(QStringLiteral("%1.jpg").arg(i), 50 - 10 * i);
  Temps.Avance(ModuleFtp::kRegard);
  EXPECT_EQ(Ouvrier->Travail.Nom, "4.jpg");
  Finit(IssueFtp::kRefus, "553 No.");
  EXPECT_EQ(Ouvrier->Travail.Nom, "3.jpg");
  Finit(IssueFtp::kReussi);
  EXPECT_EQ(Ouvrier->Travail.Nom, "2.jpg");
  Finit(IssueFtp::kRefus, "553 No.");
  Finit(IssueFtp::kRefus, "553 No.");
  EXPECT_EQ(Ouvrier->Travail.Nom, "0.jpg");
  Finit(IssueFtp::kRefus, "553 No.");
  EXPECT_FALSE(Ouvrier->EnCours()) << "three in a row";
  Temps.Avance(ModuleFtp::kPausePhotos + 1);
  while (Ouvrier->EnCours() && Ouvrier->Travail.Genre != GenreTravail::kFichier) Finit(IssueFtp::kReussi);
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Nom, "4.jpg") << "from the front again";
}

TEST_F(Ftp, APhotoAtTheBackHasItsTurnAgainWhenTheOthersHaveArrived) {
  Publie();
  PosePhoto("a.jpg", 20);
  PosePhoto("b.jpg", 10);
  Temps.Avance(ModuleFtp::kRegard);
  ASSERT_EQ(Ouvrier->Travail.Nom, "b.jpg");
  Finit(IssueFtp::kRefus, "450 Busy.");
  ASSERT_EQ(Ouvrier->Travail.Nom, "a.jpg");
  Finit(IssueFtp::kReussi);
  EXPECT_FALSE(Ouvrier->EnCours());
  Temps.Avance(ModuleFtp::kPausePhotos + 1);
  while (Ouvrier->EnCours() && Ouvrier->Travail.Nom != "b.jpg") Finit(IssueFtp::kReussi);
  ASSERT_TRUE(Ouvrier->EnCours());
  Finit(IssueFtp::kReussi);
  EXPECT_TRUE(PhotosLocales().isEmpty());
}

TEST_F(Ftp, APhotoUnderWhichTheConnectionBreaksEachTimeHoldsUpNoOther) {
  Publie();
  PosePhoto("a.jpg", 20);
  PosePhoto("b.jpg", 10);
  Temps.Avance(ModuleFtp::kRegard);
  const auto coupe = [this] {
    ASSERT_EQ(Ouvrier->Travail.Nom, "b.jpg");
    Finit(IssueFtp::kPasDeConnexion, "cut");
    EXPECT_FALSE(Ouvrier->EnCours());
    Temps.Avance(ModuleFtp::kReprises.back());
    ASSERT_EQ(Ouvrier->Travail.Genre, GenreTravail::kConnexion);
    Finit(IssueFtp::kReussi);
  };
  coupe();
  coupe();  // once it may be the network
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Nom, "a.jpg");
  Finit(IssueFtp::kReussi);
  EXPECT_EQ(PhotosLocales(), QStringList("b.jpg")) << "it stays, and has its turn again later";
}

TEST_F(Ftp, WhatIsTooMuchOnTheSiteIsDeletedTheOldestFirstAndLeavesThePage) {
  Reglages.Valeurs.PlaceFichiers = 2;
  Module->PrendReglages(Reglages);
  Connecte();
  Dit("UploM");
  Finit(IssueFtp::kReussi);
  for (int i = 0; i < 3; ++i) {
    Temps.Avance(10'000);
    PosePhoto(QStringLiteral("%1.jpg").arg(i));
    Temps.Avance(ModuleFtp::kRegard);
    while (Ouvrier->EnCours() && Ouvrier->Travail.Genre != GenreTravail::kNettoie) Finit(IssueFtp::kReussi);
  }
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Noms, QStringList("0.jpg"));
  Finit(IssueFtp::kReussi);
  Dit("UploM");
  while (!EnPage()) Finit(IssueFtp::kReussi);
  EXPECT_FALSE(Ouvrier->Travail.Contenu.contains("0.jpg"));
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("1.jpg"));
  Finit(IssueFtp::kReussi);
  PosePhoto("old.jpg", 3600);
  Temps.Avance(ModuleFtp::kRegard);
  EXPECT_FALSE(Ouvrier->EnCours() && Ouvrier->Travail.Genre == GenreTravail::kFichier)
      << "it would be the next to go: it is not even sent";
  EXPECT_TRUE(LitTexte(Journal.Chemin()).contains("not published, photos: 1")) << "which is not done in silence";
  EXPECT_TRUE(PhotosLocales().isEmpty());
}

TEST_F(Ftp, AServerWithoutRoomLosesItsOldestPhotosAtOnceAndGetsTheNewOne) {
  Publie();
  for (const char* nom : {"a.jpg", "b.jpg"}) {
    Temps.Avance(10'000);
    PosePhoto(nom);
    Temps.Avance(ModuleFtp::kRegard);
    while (Ouvrier->EnCours()) Finit(IssueFtp::kReussi);
  }
  Temps.Avance(10'000);
  PosePhoto("c.jpg");
  Temps.Avance(ModuleFtp::kRegard);
  ASSERT_EQ(Ouvrier->Travail.Nom, "c.jpg");
  std::exchange(Ouvrier->Fin, nullptr)({IssueFtp::kRefus, "552 Full.", PrecisionFtp::kPlace});
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Genre, GenreTravail::kNettoie);
  EXPECT_EQ(Ouvrier->Travail.Noms, QStringList("a.jpg"));
  Finit(IssueFtp::kReussi);
  EXPECT_EQ(Ouvrier->Travail.Nom, "c.jpg");
  Finit(IssueFtp::kReussi);
  Dit("Surve");
  Mots.clear();
  std::exchange(Ouvrier->Fin, nullptr)({IssueFtp::kRefus, "452 Full.", PrecisionFtp::kPlace});
  EXPECT_EQ(Dits(), "ConOK") << "the live image too";
  EXPECT_EQ(Ouvrier->Travail.Noms, QStringList("b.jpg"));
}

}  // namespace
}  // namespace vaktor::essai
