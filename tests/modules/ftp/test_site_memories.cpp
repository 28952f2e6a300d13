// SPDX-License-Identifier: GPL-3.0-or-later
// Memories that cannot be read at the moment or are damaged, and a clock that is set back: nothing is forgotten for it,
// nothing goes in clear, and the photos of now reach the site.
#include <QDir>
#include <optional>

#include "modules/ftp/ftp_module_bench.h"
#include "modules/ftp/site_memory.h"
#include "modules/ftp/site_space.h"
#include "support/without_descriptors.h"

namespace vaktor::essai {
namespace {

struct Memoires : testing::Test {
  QTemporaryDir Dossier;
  QString Fichier = MemoireSites::Fichier(Dossier.path());
  AccesFtp Chiffre{"a.org", 21, "anna", "x", "/www"};
  AccesFtp Ssh{"b.org", 22, "anna", "x", "/", ProtocoleFtp::kSftp};
  AccesFtp Neuf{"c.org", 21, "anna", "x", "/"};

  void Retiens() const {
    MemoireSites sites(Fichier);
    sites.Note(Chiffre, {.Chiffre = true});
    sites.Note(Ssh, {.CleHote = "SHA256:1"});
    sites.NoteEtabli(Chiffre);
  }
};

TEST_F(Memoires, OneThatCannotBeReadIsNoFirstVisitAndNotWrittenOver) {
  Retiens();
  const QByteArray avant = LitOctets(Fichier);
  std::optional<SansDescripteur> sans(std::in_place);
  MemoireSites sites(Fichier);
  for (AccesFtp acces : {Chiffre, Ssh, Neuf}) {
    sites.Applique(acces);
    EXPECT_TRUE(acces.TlsExige) << acces.Hote.toStdString();
    EXPECT_TRUE(acces.SansMemoire.startsWith(Fichier + ": ")) << acces.SansMemoire.toStdString();
    EXPECT_TRUE(sites.EstEtabli(acces)) << "a guess that turns nothing off";
  }
  sites.Note(Neuf, {.Chiffre = true});
  sites.NoteEtabli(Neuf);
  const std::optional<TroubleMemoire> trouble = sites.PrendTrouble();
  ASSERT_TRUE(trouble);
  EXPECT_EQ(trouble->Fichier, Fichier);
  EXPECT_FALSE(trouble->Abimee);
  EXPECT_FALSE(sites.PrendTrouble()) << "told once";
  sans.reset();
  EXPECT_EQ(LitOctets(Fichier), avant);
  sites.Relit();
  AccesFtp acces = Ssh;
  sites.Applique(acces);
  EXPECT_EQ(acces.CleHote, "SHA256:1");
  EXPECT_EQ(acces.SansMemoire, "");
  EXPECT_FALSE(acces.TlsExige);
  const MemoireSites relue(Fichier);
  for (AccesFtp chiffre : {Chiffre, Neuf}) {
    relue.Applique(chiffre);
    EXPECT_TRUE(chiffre.TlsExige) << "what was seen meanwhile is known too: " << chiffre.Hote.toStdString();
  }
  EXPECT_TRUE(relue.EstEtabli(Chiffre));
  EXPECT_FALSE(relue.EstEtabli(Neuf));
}

TEST_F(Memoires, ADamagedOneIsKeptBesideAndTold) {
  ASSERT_TRUE(EcritOctets(Fichier, "{\"servers\": {"));
  MemoireSites sites(Fichier);
  EXPECT_EQ(LitOctets(Fichier + ".bad"), "{\"servers\": {");
  const std::optional<TroubleMemoire> trouble = sites.PrendTrouble();
  ASSERT_TRUE(trouble);
  EXPECT_TRUE(trouble->Abimee);
  EXPECT_EQ(trouble->Fichier, Fichier + ".bad");
  sites.NoteEtabli(Chiffre);
  EXPECT_TRUE(MemoireSites(Fichier).EstEtabli(Chiffre));
}

TEST_F(Memoires, WhatIsNoFileIsKeptBesideToo) {
  ASSERT_TRUE(QDir().mkpath(Fichier + "/x"));
  MemoireSites sites(Fichier);
  EXPECT_TRUE(QFile::exists(Fichier + ".bad/x"));
  sites.NoteEtabli(Chiffre);
  EXPECT_TRUE(MemoireSites(Fichier).EstEtabli(Chiffre));
}

TEST_F(Memoires, ADamagedOneThatCannotBeKeptBesideIsNotWrittenOver) {
  ASSERT_TRUE(QDir().mkpath(Fichier + ".bad/x"));
  ASSERT_TRUE(EcritOctets(Fichier, "[]"));
  MemoireSites sites(Fichier);
  sites.Note(Neuf, {.Chiffre = true});
  EXPECT_EQ(LitOctets(Fichier), "[]");
  AccesFtp acces = Neuf;
  sites.Applique(acces);
  EXPECT_NE(acces.SansMemoire, "");
}

TEST_F(Memoires, PhotosOnTheSiteThatCannotBeReadAreNotForgotten) {
  const QString fichier = Dossier.filePath("place.txt");
  {
    PlaceSite place(fichier);
    place.ChoisitSite("a");
    place.Note("1.jpg", 5, 10);
    place.Note("2.jpg", 5, 20);
  }
  for (const char* site : {"a", "b"}) {
    std::optional<SansDescripteur> sans(std::in_place);
    PlaceSite place(fichier);
    place.ChoisitSite(site);
    place.Note("3.jpg", 5, 30);
    EXPECT_EQ(place.Nombre(), 1);
    sans.reset();
    EXPECT_EQ(PlaceSite(fichier).Nombre(), 2) << site;
    place.Oublie("2.jpg");
    place.Relit();
    EXPECT_EQ(place.Nombre(), site[0] == 'a' ? 3 : 1) << site;
    EXPECT_EQ(PlaceSite(fichier).Nombre(), place.Nombre()) << site;
    if (site[0] == 'a') PlaceSite(fichier).Oublie("3.jpg");
  }
}

TEST_F(Memoires, ToWhatCannotBeReadNothingIsAdded) {
  const QString fichier = Dossier.filePath("place.txt");
  const QString ailleurs = Dossier.filePath("else.txt");
  ASSERT_TRUE(EcritOctets(ailleurs, "somebody's"));
  ASSERT_TRUE(QFile::link(ailleurs, fichier));
  ASSERT_TRUE(QDir().mkpath(fichier + ".bad/x"));
  PlaceSite place(fichier);
  place.ChoisitSite("a");
  place.Note("1.jpg", 5, 10);
  EXPECT_EQ(place.Nombre(), 1);
  EXPECT_EQ(LitOctets(ailleurs), "somebody's");
}

TEST_F(Memoires, ThePageOfPhotosThatCannotBeReadIsNotForgotten) {
  const QString fichier = Dossier.filePath("photos.json");
  const QDateTime prise(QDate(2026, 11, 15), QTime(14, 5, 9));
  {
    PhotosPubliees photos(fichier);
    photos.ChoisitSite("a");
    photos.Ajoute({"1.jpg", prise});
    photos.NotePage();
  }
  std::optional<SansDescripteur> sans(std::in_place);
  PhotosPubliees photos(fichier);
  photos.ChoisitSite("a");
  photos.Ajoute({"2.jpg", prise.addSecs(9)});
  EXPECT_FALSE(photos.APage());
  EXPECT_TRUE(photos.PrendTrouble());
  sans.reset();
  photos.Relit();
  EXPECT_TRUE(photos.APage());
  ASSERT_EQ(photos.Liste().size(), 2);
  EXPECT_EQ(photos.Liste().first().Nom, "2.jpg");
  EXPECT_EQ(PhotosPubliees(fichier).Liste(), photos.Liste());
  ASSERT_TRUE(EcritOctets(fichier, "rubbish"));
  EXPECT_TRUE(PhotosPubliees(fichier).PrendTrouble());
  EXPECT_EQ(LitOctets(fichier + ".bad"), "rubbish");
}

TEST_F(Ftp, WithoutItsMemoryOfTheSitesItConnectsWithTlsOrNotAndGoesOnTrying) {
  if (SansDescripteur::kTroubleLesVerifications) GTEST_SKIP() << "the sanitizer wants a descriptor";
  {
    const SansDescripteur sans;
    CreeModule();
    Dit("Conne");
  }
  EXPECT_TRUE(Ouvrier->Travail.Acces.TlsExige);
  EXPECT_NE(Ouvrier->Travail.Acces.SansMemoire, "");
  Mots.clear();
  std::exchange(Ouvrier->Fin, nullptr)({IssueFtp::kPasDeConnexion, "sites: no", PrecisionFtp::kMemoire});
  EXPECT_EQ(Dits(), "Netdc") << "the switch stays on";
  EXPECT_EQ(EtatLu()["subject"].toString(), "ftp-memory");
  EXPECT_EQ(EtatLu()["server"].toString(), "sites: no");
  Temps.Avance(ModuleFtp::kReprises.front());
  EXPECT_FALSE(Ouvrier->Travail.Acces.TlsExige);
  EXPECT_EQ(Ouvrier->Travail.Acces.SansMemoire, "");
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "ErrCo") << "this site has never worked: now it is known";
}

TEST_F(Ftp, ADamagedMemoryIsToldAtTheConnection) {
  ASSERT_TRUE(EcritOctets(MemoireSites::Fichier(Temporaire.path()), "rubbish"));
  CreeModule();
  Dit("Conne");
  EXPECT_EQ(EtatLu()["subject"].toString(), "ftp-damaged");
  ASSERT_FALSE(Avis.isEmpty());
  EXPECT_TRUE(Avis.last().contains("VAKTORftp-sites.json.bad")) << Avis.last().toStdString();
}

struct HorlogeReculee : Ftp {
  /// By a day: the times of the files follow, and so does the program's clock.
  void Recule() {
    Horloge.Date = Horloge.Date.addDays(-1);
    Hier = 86'400;
  }
  void Pose(const QString& nom, int age = 0) { PosePhoto(nom, Hier + age); }
  void PublieTout() {
    Temps.Avance(ModuleFtp::kRegard);
    while (Ouvrier->EnCours()) {
      if (Ouvrier->Travail.Genre == GenreTravail::kNettoie) Effaces << Ouvrier->Travail.Noms;
      if (Ouvrier->Travail.Genre == GenreTravail::kFichier) Publies << Ouvrier->Travail.Nom;
      Finit(IssueFtp::kReussi);
    }
  }
  int Hier = 0;
  QStringList Publies, Effaces;
};

TEST_F(HorlogeReculee, AFullSiteGetsTheNewPhotosAndLosesItsOldest) {
  Reglages.Valeurs.PlaceFichiers = 2;
  Reglages.Valeurs.NbrPhotosPage = 2;
  Module->PrendReglages(Reglages);
  Connecte();
  for (const char* nom : {"1.jpg", "2.jpg"}) {
    Temps.Avance(10'000);
    Pose(nom);
    PublieTout();
  }
  Recule();
  for (const char* nom : {"3.jpg", "4.jpg"}) {
    Temps.Avance(10'000);
    Pose(nom);
    PublieTout();
    EXPECT_TRUE(LitTexte(Journal.Chemin()).contains("the clock was set back by"));
    CreeModule();  // so it is after a restart too
    Connecte();
  }
  EXPECT_EQ(Publies.join(' '), "1.jpg 2.jpg 3.jpg 4.jpg");
  EXPECT_EQ(Effaces.join(' '), "1.jpg 2.jpg");
}

TEST_F(HorlogeReculee, ThePageShowsTheNewPhotosFirst) {
  Reglages.Valeurs.NbrPhotosPage = 2;
  Module->PrendReglages(Reglages);
  Connecte();
  for (const char* nom : {"1.jpg", "2.jpg", "3.jpg"}) {
    if (nom[0] == '3') Recule();
    Temps.Avance(10'000);
    Pose(nom);
    PublieTout();
  }
  Dit("UploM");
  const QByteArray page = Ouvrier->Travail.Contenu;
  EXPECT_GT(page.indexOf("3.jpg"), 0);
  EXPECT_LT(page.indexOf("3.jpg"), page.indexOf("2.jpg"));
  EXPECT_FALSE(page.contains("1.jpg"));
}

// The hour that the clock goes through twice has its photos twice.
TEST_F(HorlogeReculee, APhotoOfTheSameTimeOfADayThatCountsTwiceIsAnother) {
  Connecte();
  Pose("1.jpg", 86'400);
  Pose("2.jpg");
  PublieTout();
  Recule();
  Temps.Avance(100);
  Pose("3.jpg");
  PublieTout();
  EXPECT_EQ(Publies.join(' '), "2.jpg 1.jpg 3.jpg");
}

TEST_F(HorlogeReculee, OfThoseThatWaitedItIsStillOneASecond) {
  for (int i = 0; i < 30; ++i) {
    Pose(QStringLiteral("%1.jpg").arg(i, 2, 10, QLatin1Char('0')));
    Horloge.Millisecondes += 100;
  }
  Recule();
  Connecte();
  while (Ouvrier->EnCours()) {
    Publies << Ouvrier->Travail.Nom;
    Finit(IssueFtp::kReussi);
    Temps.Avance(ModuleFtp::kRegard);
  }
  EXPECT_EQ(Publies.join(' '), "29.jpg 20.jpg 11.jpg 02.jpg");
  Dit("UploM");
  const QByteArray page = Ouvrier->Travail.Contenu;
  EXPECT_LT(page.indexOf("29.jpg"), page.indexOf("20.jpg")) << "in their order";
  EXPECT_LT(page.indexOf("20.jpg"), page.indexOf("02.jpg"));
}

TEST_F(HorlogeReculee, ADiskWhoseClockIsAheadByHalfAMinuteIsNoSuchThing) {
  Connecte();
  Pose("1.jpg", -30);
  PublieTout();
  EXPECT_EQ(Publies.join(' '), "1.jpg");
  EXPECT_FALSE(LitTexte(Journal.Chemin()).contains("set back"));
}

}  // namespace
}  // namespace vaktor::essai
