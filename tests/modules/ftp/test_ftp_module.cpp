// The companion's rules in virtual time, with a worker that is played by hand.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "fakes/virtual_timers.h"
#include "modules/ftp/ftp_module.h"

namespace vaktor::essai {
namespace {

struct OuvrierFaux : OuvrierFtp {
  void Lance(const TravailFtp& travail, SurEtape etape, SurFin fin) override {
    EXPECT_EQ(Fin, nullptr) << "one job at a time";
    Travail = travail;
    Etape = std::move(etape);
    Fin = std::move(fin);
  }
  void Coupe() override {
    ++Coupes;
    Fin = nullptr;
  }
  bool EnCours() const { return Fin != nullptr; }
  TravailFtp Travail;
  SurEtape Etape;
  SurFin Fin;
  int Coupes = 0;
};

struct Ftp : testing::Test {
  QTemporaryDir Temporaire;
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  DossiersModule Dossiers;
  JournalBorne Journal{Temporaire.path(), QStringLiteral("ftp"), Horloge};
  QStringList Avis;
  EtatModule Etat{Temporaire.path(), QStringLiteral("ftp"), Horloge,
                  [this](const QString&, const QString& texte) { Avis << texte; }};
  QStringList Mots;
  OuvrierFaux* Ouvrier = nullptr;
  std::unique_ptr<ModuleFtp> Module;
  ReglagesModule Reglages;

  Ftp() {
    Dossiers.Etat = Dossiers.Programme.Donnees = Temporaire.path();
    QDir(Temporaire.path()).mkpath("Temp/FTP");
    Horloge.Date = QDate::currentDate();  // the files' own times are the system's
    Horloge.Debut = QTime::currentTime();
    Etat.ChangeLangue(1);
    Reglages.Valeurs.AdresseFtp = "ftp.exemple.fr:2121";
    Reglages.Valeurs.UtilisateurFtp = "anna";
    Reglages.Valeurs.MotDePasseFtp = "sesame";
    CreeModule();
  }
  void CreeModule() {
    auto ouvrier = std::make_unique<OuvrierFaux>();
    Ouvrier = ouvrier.get();
    Module = std::make_unique<ModuleFtp>(
        ContexteModule{Dossiers, Journal, Etat, Temps, Horloge, [this](const QString& mot) { Mots << mot; },
                       [this] { Mots << QStringLiteral("quitte"); }},
        std::move(ouvrier));
    Module->PrendReglages(Reglages);
  }
  /// The words said since the last look.
  QString Dits() { return std::exchange(Mots, {}).join(u' '); }
  QString Dit(const QString& commande) {
    Mots.clear();
    Module->ExecuteCommande(commande);
    return Dits();
  }
  QString Finit(IssueFtp issue, const QString& mots = {}) {
    EXPECT_TRUE(Ouvrier->EnCours());
    Mots.clear();
    std::exchange(Ouvrier->Fin, nullptr)({issue, mots});
    return Dits();
  }
  QString Avance(qint64 millisecondes) {
    Mots.clear();
    Temps.Avance(millisecondes);
    return Dits();
  }
  void Connecte() {
    Dit("Conne");
    ASSERT_EQ(Finit(IssueFtp::kReussi), "ConOK");
  }
  /// Connected, and one image has gone through.
  void Publie() {
    Connecte();
    Dit("Surve");
    ASSERT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  }
  void PosePhoto(const QString& nom, int age = 0) {
    QFile photo(Temporaire.filePath("Temp/FTP/" + nom));
    ASSERT_TRUE(photo.open(QIODevice::ReadWrite));
    photo.write("x");
    photo.flush();
    photo.setFileTime(QDateTime::currentDateTime().addSecs(-age), QFileDevice::FileModificationTime);
  }
  QStringList PhotosLocales() const { return QDir(Temporaire.filePath("Temp/FTP")).entryList(QDir::Files); }
  bool EnPage() const { return Ouvrier->EnCours() && Ouvrier->Travail.Nom == kNomPage; }
  QString EtatEcrit() const {
    QFile fichier(Temporaire.filePath("ftp.json"));
    return fichier.open(QIODevice::ReadOnly) ? QString::fromUtf8(fichier.readAll()) : QString();
  }
};

TEST_F(Ftp, SaysThatItIsReadyOnceForEachMainProgram) {
  Module->Enregistre(true);
  EXPECT_EQ(Dits(), "*OKO*");
}

// The main program would take "*OKO*" for a second set of its start arguments.
TEST_F(Ftp, LateItDoesNotTakeBackWhatTheStartArgumentsHaveSwitchedOn) {
  Module->Enregistre(false);
  EXPECT_EQ(Dits(), "Netdc Decon");
  EXPECT_FALSE(Ouvrier->EnCours()) << "nobody has asked for a connection yet";
  // What the main program sends after "Netdc" when its switch is on.
  EXPECT_EQ(Dit("Surve"), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa");
}

TEST_F(Ftp, AMainProgramThatHasJustComeHasItsSwitchOff) {
  Publie();
  Module->Enregistre(true);
  EXPECT_EQ(Dits(), "*OKO*") << "no word about the old connection";
  EXPECT_EQ(Avance(600000), "");
  EXPECT_FALSE(Ouvrier->EnCours());
}

TEST_F(Ftp, ConnectsWordByWord) {
  EXPECT_EQ(Dit("Conne"), "Conne");
  EXPECT_EQ(Ouvrier->Travail.Genre, GenreTravail::kConnexion);
  EXPECT_EQ(Ouvrier->Travail.Acces, (AccesFtp{"ftp.exemple.fr", 2121, "anna", "sesame", "/"}));
  Ouvrier->Etape(EtapeFtp::kServeurTrouve);
  Ouvrier->Etape(EtapeFtp::kIdentification);
  EXPECT_EQ(Dits(), "SerTR Paswo");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, EachFailureOfAFirstConnectionHasItsWordAndStaysOff) {
  for (const auto& [issue, mot] :
       {std::pair(IssueFtp::kServeurInconnu, "SerER"), std::pair(IssueFtp::kAccesRefuse, "LogEr"),
        std::pair(IssueFtp::kDossierAbsent, "RepER"), std::pair(IssueFtp::kPasDeConnexion, "ErrCo")}) {
    Avis.clear();
    Dit("Conne");
    EXPECT_EQ(Finit(issue, "530 Non."), mot);
    EXPECT_EQ(Avis.size(), 1);
    EXPECT_TRUE(EtatEcrit().contains("530 Non."));
    EXPECT_EQ(Avance(600000), "") << mot;
    EXPECT_FALSE(Ouvrier->EnCours());
    EXPECT_EQ(Dit("Surve"), mot) << "one that was on its way gets the same answer";
  }
}

TEST_F(Ftp, IncompleteParametersAreToldWithoutConnecting) {
  const auto manque = [this](auto change) {
    ReglagesModule reglages = Reglages;
    change(reglages.Valeurs);
    Module->PrendReglages(reglages);
    EXPECT_EQ(Dit("Conne"), "Upnot");
    EXPECT_FALSE(Ouvrier->EnCours());
  };
  for (const char* serveur : {"", "ftp.", "ftp://", "  ", "a:b", "a:0", "a b"})
    manque([&](Parametres& p) { p.AdresseFtp = serveur; });
  manque([](Parametres& p) { p.UtilisateurFtp.clear(); });
  manque([](Parametres& p) { p.MotDePasseFtp.clear(); });
  manque([](Parametres& p) { p.UtilisateurFtp = "anna\r\nDELE x"; });
  manque([](Parametres& p) { p.RepertoireFtp = "/a\r\nDELE x"; });
  EXPECT_EQ(Avis.size(), 1);
}

TEST_F(Ftp, WithoutANetworkItTriesAgainByItselfFromTheFirstConnectionOn) {
  Dit("Conne");
  EXPECT_EQ(Finit(IssueFtp::kSansReseau), "Netdc");
  QList<qint64> attentes;
  for (int i = 0; i < 9; ++i) {
    const qint64 debut = Temps.Maintenant();
    while (!Ouvrier->EnCours()) Temps.Avance(100);
    attentes << Temps.Maintenant() - debut;
    EXPECT_EQ(Dits(), "Conne");
    EXPECT_EQ(Finit(IssueFtp::kSansReseau), "Netdc");
  }
  EXPECT_EQ(attentes, QList<qint64>({2000, 5000, 10000, 20000, 40000, 60000, 60000, 60000, 60000}));
  EXPECT_EQ(Avis.size(), 1) << "one outage is one notification";
  Temps.Avance(60000);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
  EXPECT_TRUE(EtatEcrit().contains("\"ok\""));
}

TEST_F(Ftp, ADayWithoutTheServerIsSurvived) {
  Publie();
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  int essais = 0;
  const qint64 fin = Temps.Maintenant() + 86400000;
  while (Temps.Maintenant() < fin) {
    EXPECT_EQ(Dit("Surve"), Ouvrier->EnCours() ? "Conne" : "Netdc");
    Temps.Avance(10000);
    if (!Ouvrier->EnCours()) continue;
    ++essais;
    Finit(essais % 100 != 0 ? IssueFtp::kPasDeConnexion : IssueFtp::kServeurInconnu);
  }
  EXPECT_EQ(Avis.size(), 1) << "one outage is one notification, whatever its faces";
  EXPECT_GT(essais, 1200);
  EXPECT_LT(essais, 1450);
  while (!Ouvrier->EnCours()) Temps.Avance(1000);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa") << "and the newest image follows";
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
}

TEST_F(Ftp, ARefusedLoginThatWorkedBeforeIsGivenAFewTries) {
  Publie();
  Dit("Surve");
  Finit(IssueFtp::kPasDeConnexion);
  for (int i = 1; i < ModuleFtp::kRefusMax; ++i) {
    Temps.Avance(60000);
    EXPECT_EQ(Finit(IssueFtp::kAccesRefuse), "Netdc") << i;
  }
  Temps.Avance(60000);
  EXPECT_EQ(Finit(IssueFtp::kAccesRefuse), "LogEr");
  EXPECT_EQ(Avance(600000), "");
}

TEST_F(Ftp, UploadsThatAlwaysLoseTheConnectionEndInErrCo) {
  Connecte();
  Dit("Surve");
  for (int i = 1; i < ModuleFtp::kCoupuresMax; ++i) {
    EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
    Temps.Avance(60000);
    EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa");
  }
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "ErrCo");
  EXPECT_EQ(Avance(600000), "");
}

TEST_F(Ftp, AnIdleConnectionThatDiesIsNoticed) {
  Connecte();
  Temps.Avance(ModuleFtp::kSigne - 1);
  EXPECT_FALSE(Ouvrier->EnCours());
  Temps.Avance(1);
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Genre, GenreTravail::kSigne);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "");
  Temps.Avance(ModuleFtp::kSigne);
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  EXPECT_EQ(Avance(2000), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, UploadsTheLiveImageAndSaysHowItWent) {
  Connecte();
  EXPECT_EQ(Dit("Surve"), "Uploa");
  EXPECT_EQ(Ouvrier->Travail.Source, Temporaire.filePath("Temp/Live.jpg"));
  EXPECT_EQ(Ouvrier->Travail.Nom, "live.jpg");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  EXPECT_EQ(Avance(ModuleFtp::kCalme), "Surve") << "at rest the window says that monitoring is active";
  EXPECT_EQ(Avance(30000), "") << "once";
}

TEST_F(Ftp, OfManyImagesOnlyTheNewestCounts) {
  Connecte();
  EXPECT_EQ(Dit("Surve"), "Uploa");
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(Dit("Surve"), "");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK Uploa");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  EXPECT_FALSE(Ouvrier->EnCours());
}

TEST_F(Ftp, AnImageThatIsBeingRewrittenIsLeftToTheNext) {
  Connecte();
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kSourceIncomplete), "ConOK");
  EXPECT_TRUE(Avis.isEmpty());
}

TEST_F(Ftp, AServerThatNeverTookAnImageIsAFailure) {
  Connecte();
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kRefus, "550 No."), "ErrCo");
  EXPECT_EQ(Avis.size(), 1);
}

TEST_F(Ftp, AServerThatIsFullForAWhileKeepsTheConnection) {
  Publie();
  for (int i = 0; i < 100; ++i) {
    Dit("Surve");
    EXPECT_EQ(Finit(IssueFtp::kRefus, "552 Full."), "ConOK") << "still connected, which is true";
  }
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().endsWith("552 Full."));
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  EXPECT_TRUE(EtatEcrit().contains("\"ok\""));
}

TEST_F(Ftp, DisconnectsAtOnceAndAnswersLateImages) {
  Publie();
  Dit("Surve");
  EXPECT_EQ(Dit("Decon"), "Decon");
  EXPECT_FALSE(Ouvrier->EnCours());
  EXPECT_EQ(Dit("Surve"), "Decon");
  EXPECT_EQ(Dit("UploM"), "Decon");
  EXPECT_EQ(Avance(600000), "");
}

TEST_F(Ftp, ConnectingWhileConnectedMakesANewConnection) {
  Publie();
  EXPECT_EQ(Dit("Conne"), "Conne") << "the camera's end turns the switch off without a word to us";
  EXPECT_EQ(Ouvrier->Travail.Genre, GenreTravail::kConnexion);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, AnImageForACompanionThatHasJustComeConnects) {
  EXPECT_EQ(Dit("Surve"), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa");
}

TEST_F(Ftp, WhatTheUserIsTypingDoesNotMoveARunningConnection) {
  Publie();
  ReglagesModule reglages = Reglages;
  reglages.Valeurs.AdresseFtp = "a";
  reglages.Valeurs.RepertoireFtp = "/ne";
  Module->PrendReglages(reglages);
  Dit("Surve");
  EXPECT_EQ(Ouvrier->Travail.Acces.Hote, "ftp.exemple.fr");
  EXPECT_EQ(Ouvrier->Travail.Acces.Dossier, "/");
}

TEST_F(Ftp, ThePageGoesIntoTheFolderThatHasJustBeenSaved) {
  Publie();
  Reglages.Valeurs.RepertoireFtp = "/neuf";
  Module->PrendReglages(Reglages);
  EXPECT_EQ(Dit("UploM"), "Uploa");
  EXPECT_EQ(Ouvrier->Travail.Acces.Dossier, "/neuf");
  EXPECT_EQ(Ouvrier->Travail.Nom, "live.html");
  EXPECT_EQ(Finit(IssueFtp::kDossierAbsent, "550"), "RepER");
}

TEST_F(Ftp, ThePageIsMadeAndAnswered) {
  Connecte();
  EXPECT_EQ(Dit("UploM"), "Uploa");
  EXPECT_TRUE(Ouvrier->Travail.Contenu.startsWith("<!DOCTYPE html>"));
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
}

TEST_F(Ftp, APageLostWithTheConnectionIsMadeWhenItIsBack) {
  Publie();
  Dit("UploM");
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  Temps.Avance(2000);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa");
  EXPECT_TRUE(EnPage());
}

TEST_F(Ftp, PhotosArePublishedOldestFirstAndThenRemoved) {
  PosePhoto("b.jpg", 20);
  PosePhoto("a.jpg", 10);
  PosePhoto("notes.txt");
  Connecte();
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Nom, "b.jpg");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "") << "photos say nothing: the window shows the live image";
  EXPECT_EQ(PhotosLocales(), QStringList({"a.jpg", "notes.txt"}));
  EXPECT_EQ(Ouvrier->Travail.Nom, "a.jpg");
  Finit(IssueFtp::kReussi);
  EXPECT_EQ(PhotosLocales(), QStringList("notes.txt"));
}

TEST_F(Ftp, PhotosAndLiveImagesTakeTurns) {
  for (int i = 0; i < 4; ++i) PosePhoto(QStringLiteral("%1.jpg").arg(i), 10 - i);
  Connecte();
  QStringList ordre;
  for (int i = 0; i < 8; ++i) {
    Dit("Surve");
    ordre << Ouvrier->Travail.Nom;
    Finit(IssueFtp::kReussi);
  }
  EXPECT_EQ(ordre.join(u' '), "0.jpg live.jpg 1.jpg live.jpg 2.jpg live.jpg 3.jpg live.jpg");
}

TEST_F(Ftp, PhotosThatAreRefusedWaitAndTheLiveImageGoesOn) {
  Publie();
  PosePhoto("a.jpg");
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kRefus, "552 Full.");
  EXPECT_EQ(PhotosLocales(), QStringList("a.jpg"));
  EXPECT_FALSE(Ouvrier->EnCours());
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  EXPECT_TRUE(EtatEcrit().contains("552 Full.")) << "an image that goes through does not mean that photos do";
  Temps.Avance(ModuleFtp::kPausePhotos);
  if (Ouvrier->Travail.Genre == GenreTravail::kSigne) Finit(IssueFtp::kReussi);
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Nom, "a.jpg");
  Finit(IssueFtp::kReussi);
  EXPECT_TRUE(PhotosLocales().isEmpty());
  EXPECT_TRUE(EtatEcrit().contains("\"ok\""));
}

TEST_F(Ftp, APhotoStillBeingWrittenWaitsAndOneThatNeverWillBeIsGivenUp) {
  PosePhoto("a.jpg");
  Connecte();
  Finit(IssueFtp::kSourceIncomplete);
  EXPECT_EQ(PhotosLocales(), QStringList("a.jpg"));
  PosePhoto("a.jpg", 100000);
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kSourceIncomplete);
  EXPECT_TRUE(PhotosLocales().isEmpty());
}

TEST_F(Ftp, ThePageFollowsThePhotosOnceTheUserHasAskedForOne) {
  Publie();
  PosePhoto("a.jpg");
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kReussi);
  EXPECT_FALSE(Ouvrier->EnCours()) << "no page was ever asked for";
  Dit("UploM");
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("a.jpg"));
  Finit(IssueFtp::kReussi);
  Temps.Avance(ModuleFtp::kRythmePage);
  PosePhoto("b.jpg");
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kReussi);
  ASSERT_TRUE(EnPage());
  const QByteArray page = Ouvrier->Travail.Contenu;
  EXPECT_LT(page.indexOf("b.jpg"), page.indexOf("a.jpg")) << "the newest first";
  EXPECT_EQ(Finit(IssueFtp::kReussi), "") << "nobody asked, nobody is told";
}

TEST_F(Ftp, ThePageIsNotMadeForEachPhotoOfAnAlarm) {
  Connecte();
  Dit("UploM");
  Finit(IssueFtp::kReussi);
  int pages = 0;
  for (int i = 0; i < 60; ++i) {  // a photo a second for a minute
    PosePhoto(QStringLiteral("%1.jpg").arg(i));
    Temps.Avance(1000);
    while (Ouvrier->EnCours()) {
      pages += EnPage() ? 1 : 0;
      Finit(IssueFtp::kReussi);
    }
  }
  EXPECT_GE(pages, 4);
  EXPECT_LE(pages, 7);
}

TEST_F(Ftp, ThePageDoesNotWaitUntilAllPhotosOfAnAlarmAreThere) {
  Connecte();
  Dit("UploM");
  Finit(IssueFtp::kReussi);
  for (int i = 0; i < 10; ++i) PosePhoto(QStringLiteral("%1.jpg").arg(i));
  Temps.Avance(ModuleFtp::kRythmePage);
  Finit(IssueFtp::kReussi);
  ASSERT_TRUE(EnPage()) << "nine photos still wait";
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("0.jpg"));
  Finit(IssueFtp::kReussi);
  EXPECT_TRUE(Ouvrier->EnCours() && !EnPage()) << "and now the next";
}

TEST_F(Ftp, ThePageShowsAsManyPhotosAsTheUserWants) {
  Reglages.Valeurs.NbrPhotosPage = 3;
  Module->PrendReglages(Reglages);
  for (int i = 0; i < 10; ++i) PosePhoto(QStringLiteral("p%1.jpg").arg(i), 60 - i);
  Connecte();
  for (int i = 0; i < 10; ++i) Finit(IssueFtp::kReussi);
  Dit("UploM");
  EXPECT_EQ(Ouvrier->Travail.Contenu.count("<li>"), 3);
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("p9.jpg"));
}

TEST_F(Ftp, WhatIsOnThePageIsRememberedOverARestartButNotForAnotherServer) {
  PosePhoto("a.jpg");
  Connecte();
  Finit(IssueFtp::kReussi);
  CreeModule();
  Connecte();
  Dit("UploM");
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("a.jpg"));
  Reglages.Valeurs.AdresseFtp = "ailleurs.exemple.fr";
  Module->PrendReglages(Reglages);
  Connecte();
  Dit("UploM");
  EXPECT_FALSE(Ouvrier->Travail.Contenu.contains("a.jpg"));
}

TEST_F(Ftp, NothingIsUploadedWhileTheSwitchIsOff) {
  PosePhoto("a.jpg");
  EXPECT_EQ(Avance(600000), "");
  EXPECT_FALSE(Ouvrier->EnCours());
  EXPECT_EQ(PhotosLocales(), QStringList("a.jpg"));
}

TEST_F(Ftp, ThePasswordIsInNoFile) {
  Journal.CacheSecret("sesame");
  Etat.CacheSecret("sesame");
  Dit("Conne");
  Finit(IssueFtp::kAccesRefuse, "530 sesame is wrong");
  QFile journal(Temporaire.filePath("ftp.log"));
  ASSERT_TRUE(journal.open(QIODevice::ReadOnly));
  const QByteArray texte = journal.readAll();
  EXPECT_TRUE(texte.contains("530 *** is wrong"));
  EXPECT_FALSE(texte.contains("sesame") || EtatEcrit().contains("sesame"));
}

TEST_F(Ftp, EndsAtOnce) {
  Publie();
  Module->Termine();
  EXPECT_EQ(Dits(), "quitte");
}

}  // namespace
}  // namespace vaktor::essai
