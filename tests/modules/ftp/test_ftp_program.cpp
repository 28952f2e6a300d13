// SPDX-License-Identifier: GPL-3.0-or-later
// The whole companion against the real main-program side of the channel and a real server: what the window shows.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

#include "modules/ftp/ftp_test_server.h"
#include "settings/password_scrambling.h"
#include "support/companion_program.h"

namespace vaktor::essai {
namespace {

struct ProgrammeFtp : ProgrammeCompagnon {
  ServeurEssai Serveur;

  void SetUp() override {
    Serveur.Demarre();
    QDir(Temporaire.path()).mkpath("Temp/FTP");
    Regle("ftp", QStringLiteral("ftp://127.0.0.1:%1/").arg(Serveur.Port()));
    Regle("user", "anna");
    Regle("pass", CryptePass("sesame"));
    Regle("racine", "/");
    Magasin.EcritReglage("general", "langue", "1");
    Magasin.Vide();
    Lance();
    ASSERT_TRUE(AttendEnregistre()) << Programme.readAll().toStdString();
    EXPECT_NE(Etat.HandleFTP, 0);
    Etat.SurveillanceEnCours = true;
  }
  void Lance(const QStringList& arguments = {}) {
    PrepareMilieu({{"SSL_CERT_FILE", Serveur.Autorite()}});
    Demarre(VAKTOR_FTP, arguments);
  }
  /// Registered: early, with "*OKO*", or on a busy machine late, with other words.
  bool AttendEnregistre() {
    const bool fait = AttendQue([this] { return Etat.FtpModulePret || Journal.contains("statut 34"); });
    Journal.clear();
    return fait;
  }
  void TearDown() override {
    Tue();
    // Whatever happened, the password is in none of its files.
    const QDir etat(Temporaire.filePath("etat"));
    for (const QString& nom : etat.entryList(QDir::Files))
      EXPECT_FALSE(LitOctets(etat.filePath(nom)).contains("sesame")) << nom.toStdString();
  }
  void Regle(const QString& cle, const QString& valeur) { Magasin.EcritReglage("FTP", cle, valeur); }
  void Sauve() {
    Magasin.Vide();
    Envois.EnvoiFTP(Commande::kOptions);
  }
  bool Montre(const QString& quoi) {
    return AttendQue([&] { return Journal.contains(quoi); });
  }
  /// The next status text of that number, and all that came before it is forgotten.
  testing::AssertionResult AttendStatut(int numero) {
    const QString voulu = QStringLiteral("statut %1").arg(numero);
    if (!Montre(voulu)) return testing::AssertionFailure() << "not " << numero << " but: " << Vus().toStdString();
    Journal = Journal.mid(Journal.indexOf(voulu) + 1);
    return testing::AssertionSuccess();
  }
  QString Vus() const { return Journal.join(" | "); }
  void PoseLive(int graine) { EcritOctets(Temporaire.filePath("Temp/Live.jpg"), CreeJpeg(graine)); }
  QString EtatEcrit() { return QString::fromUtf8(LitOctets(Temporaire.filePath("etat/VAKTORftp.json"))); }
  void ConnecteEtPublie() {
    PoseLive(1);
    Envois.EnvoiFTP(Commande::kConnexion);
    ASSERT_TRUE(AttendStatut(36));
    Envois.EnvoiFTP(Commande::kSurveillance);
    ASSERT_TRUE(AttendStatut(37));
    ASSERT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(1));
  }
};

TEST_F(ProgrammeFtp, FromTheSwitchToTheMonitoringThatRuns) {
  PoseLive(1);
  Envois.EnvoiFTP(Commande::kConnexion);
  ASSERT_TRUE(AttendQue([this] { return Etat.LiveActif; }));
  EXPECT_EQ(Vus(),
            QString::fromUtf8("statut 69 | statut Serveur trouvé | statut Identification | statut 36 | live LEDVERT"));
  Journal.clear();
  Envois.EnvoiFTP(Commande::kSurveillance);
  ASSERT_TRUE(Montre("statut 33"));
  EXPECT_EQ(Vus(), "statut 70 | statut 37 | live LEDVERT | statut 33 | live LEDVERT");
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(1));
  EXPECT_TRUE(EtatEcrit().contains("\"ok\""));
  Envois.EnvoiFTP(Commande::kDeconnexion);
  EXPECT_TRUE(AttendStatut(34));
}

TEST_F(ProgrammeFtp, EachMistakeOfTheUserIsShownAndTurnsTheSwitchOff) {
  const auto essaie = [this](const QString& cle, const QString& valeur, int statut, const QString& rouge) {
    const QString avant = Magasin.LitReglage("FTP", cle, QString());
    Regle(cle, valeur);
    Sauve();
    Etat.SurveillanceEnCours = true;
    Journal.clear();
    Envois.EnvoiFTP(Commande::kConnexion);
    EXPECT_TRUE(AttendStatut(statut));
    EXPECT_TRUE(Montre("page 2")) << Vus().toStdString();
    EXPECT_TRUE(rouge.isEmpty() || Journal.contains(rouge)) << Vus().toStdString();
    EXPECT_FALSE(Etat.SurveillanceEnCours);
    Regle(cle, avant);
    Sauve();
  };
  essaie("pass", CryptePass("faux"), 38, "rouge TxtPass");
  EXPECT_TRUE(EtatEcrit().contains("530")) << EtatEcrit().toStdString();
  essaie("racine", "/pas/la", 72, "rouge TxtFTPracine");
  EXPECT_TRUE(EtatEcrit().contains("550"));
  essaie("user", "", 40, "");
  essaie("ftp", "ftp.", 40, "");
  essaie("ftp", "127.0.0.1:1", 39, "");
  Etat.SurveillanceEnCours = true;
  ConnecteEtPublie();
  EXPECT_TRUE(EtatEcrit().contains("\"ok\"")) << "put right, and the file says so";
}

TEST_F(ProgrammeFtp, AServerThatIsRestartedIsFoundAgain) {
  ConnecteEtPublie();
  Serveur.Arrete();
  PoseLive(2);
  Envois.EnvoiFTP(Commande::kSurveillance);
  ASSERT_TRUE(AttendStatut(174));
  EXPECT_TRUE(Etat.SurveillanceEnCours && Etat.LiveActif) << "the user's switch stays on";
  EXPECT_TRUE(EtatEcrit().contains("ftp-lost"));
  Serveur.Demarre();
  ASSERT_TRUE(AttendStatut(69));
  ASSERT_TRUE(AttendStatut(36));
  ASSERT_TRUE(AttendStatut(37)) << "the image that was lost comes without being asked for again";
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(2));
}

TEST_F(ProgrammeFtp, AConnectionCutInMidTransferIsTakenUpAgain) {
  ConnecteEtPublie();
  Serveur.Dit("cut 3000");
  PoseLive(3);
  Envois.EnvoiFTP(Commande::kSurveillance);
  ASSERT_TRUE(AttendStatut(174));
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(1)) << "visitors still have the old one";
  ASSERT_TRUE(AttendStatut(36));
  ASSERT_TRUE(AttendStatut(37));
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(3));
}

TEST_F(ProgrammeFtp, AnImageThatIsThereAlreadyIsNotPublishedUnderANewTime) {
  ConnecteEtPublie();
  ASSERT_TRUE(QFile::remove(Serveur.Chemin("live.jpg")));
  Envois.EnvoiFTP(Commande::kSurveillance);
  ASSERT_TRUE(AttendStatut(36)) << "ready for the next";
  EXPECT_FALSE(QFile::exists(Serveur.Chemin("live.jpg")));
  const QJsonObject etat = QJsonDocument::fromJson(EtatEcrit().toUtf8()).object();
  EXPECT_EQ(etat["handle"].toInt(), Etat.HandleFTP) << "what it has registered with";
  const QDateTime publie = QDateTime::fromString(etat["live_published"].toString(), Qt::ISODate);
  ASSERT_TRUE(publie.isValid()) << EtatEcrit().toStdString();
  EXPECT_LT(publie.secsTo(QDateTime::currentDateTimeUtc()), 60);
}

TEST_F(ProgrammeFtp, AFullServerIsToldAndRecoveredFrom) {
  ConnecteEtPublie();
  Serveur.Dit("full");
  PoseLive(2);
  Envois.EnvoiFTP(Commande::kSurveillance);
  ASSERT_TRUE(AttendStatut(36)) << "connected, which is true, and no upload done";
  ASSERT_TRUE(AttendQue([this] { return EtatEcrit().contains("552 Quota exceeded, *** or not."); }));
  Serveur.Dit("normal");
  PoseLive(4);
  Envois.EnvoiFTP(Commande::kSurveillance);
  ASSERT_TRUE(AttendStatut(37));
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(4));
  EXPECT_TRUE(EtatEcrit().contains("\"ok\""));
}

TEST_F(ProgrammeFtp, PhotosAreOnThePageAndGoneFromHere) {
  const QString ici = Temporaire.filePath("Temp/FTP");
  ConnecteEtPublie();
  EcritOctets(ici + "/2026-11-15  14-05-09 Photo 00001.jpg", CreeJpeg(5));
  EcritOctets(ici + "/moitie.jpg", CreeJpeg(6).left(500));
  ASSERT_TRUE(AttendQue([&] { return QDir(ici).entryList(QDir::Files) == QStringList("moitie.jpg"); }));
  Envois.EnvoiFTP(Commande::kPage);
  ASSERT_TRUE(AttendStatut(37));
  EXPECT_EQ(LitOctets(Serveur.Chemin("2026-11-15  14-05-09 Photo 00001.jpg")), CreeJpeg(5));
  EXPECT_TRUE(LitOctets(Serveur.Chemin("live.html")).contains("2026-11-15%20%2014-05-09%20Photo%2000001.jpg"));
  EXPECT_FALSE(QFile::exists(Serveur.Chemin("moitie.jpg")));
  EcritOctets(ici + "/moitie.jpg", CreeJpeg(6));
  ASSERT_TRUE(AttendQue([&] { return LitOctets(Serveur.Chemin("live.html")).contains("moitie.jpg"); }))
      << "the page follows by itself";
}

TEST_F(ProgrammeFtp, ATrialBesideItDisturbsNothing) {
  ConnecteEtPublie();
  const QByteArray etat = LitOctets(Temporaire.filePath("etat/VAKTORftp.json"));
  Journal.clear();
  QProcess essai;
  essai.setProcessEnvironment(Programme.processEnvironment());
  essai.start(VAKTOR_FTP, {"--try"});
  essai.write(QStringLiteral(R"({"ftp":"127.0.0.1:%1","user":"anna","pass":"sesame","langue":1})")
                  .arg(Serveur.Port())
                  .toUtf8());
  essai.closeWriteChannel();
  // One live image after the other meanwhile.
  int envoyes = 0;
  while (essai.state() != QProcess::NotRunning) {
    PoseLive(10 + envoyes++);
    Envois.EnvoiFTP(Commande::kSurveillance);
    ASSERT_TRUE(AttendStatut(37));
    ASSERT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(9 + envoyes));
  }
  EXPECT_GT(envoyes, 0);
  EXPECT_EQ(essai.exitCode(), 0) << essai.readAll().toStdString();
  EXPECT_EQ(Serveur.Noms(), QStringList("live.jpg"));
  EXPECT_EQ(LitOctets(Temporaire.filePath("etat/VAKTORftp.json")), etat);
  EXPECT_TRUE(Etat.SurveillanceEnCours && Etat.LiveActif);
}

TEST_F(ProgrammeFtp, QuitEndsItEvenInTheMiddleOfATransfer) {
  ConnecteEtPublie();
  Serveur.Dit("silent");
  EcritOctets(Temporaire.filePath("Temp/Live.jpg"), CreeJpeg(7, 2500));
  Envois.EnvoiFTP(Commande::kSurveillance);
  ASSERT_TRUE(AttendStatut(70));
  Envois.EnvoiFTP(Commande::kQuitte);
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(Programme.exitCode(), 0);
}

TEST_F(ProgrammeFtp, AMainProgramThatComesBackFindsItReadyAndNotConnected) {
  ConnecteEtPublie();
  Form.reset();
  Etat = {};
  Journal.clear();
  Form = OuvreForm();
  ASSERT_TRUE(AttendEnregistre());
  EXPECT_FALSE(Etat.LiveActif);
  Etat.SurveillanceEnCours = true;
  ConnecteEtPublie();
}

// The start argument /surve, on a machine so slow that the companion comes after it was carried out.
TEST_F(ProgrammeFtp, OneThatComesLateIsAskedAgainAMinuteLater) {
  Tue();
  PoseLive(1);
  const timespec hier[2] = {{1, 0}, {1, 0}};
  const QByteArray sac = Dossier.DonneAdresse(Magasin.LitReglage("FTP", kCleHwndvk, "0").toInt());
  ASSERT_EQ(::utimensat(AT_FDCWD, sac.constData(), hier, 0), 0);
  Etat = {};
  Etat.SurveillanceEnCours = true;
  Lance();
  ASSERT_TRUE(AttendStatut(174));
  ASSERT_TRUE(AttendStatut(34));
  EXPECT_FALSE(Etat.FtpModulePret) << "\"*OKO*\" would switch the live page off again";
  Minuteries.Avance(FormWinsock::kDelaiReconnexion);
  ASSERT_TRUE(AttendStatut(36));
  EXPECT_TRUE(Etat.LiveActif);
  ASSERT_TRUE(AttendStatut(37));
}

TEST_F(ProgrammeFtp, ItTellsItsVersion) {
  Tue();
  Programme.readAll();
  Lance({"--version"});
  ASSERT_TRUE(Programme.waitForFinished());
  EXPECT_EQ(Programme.readAll(), "VAKTORftp " VAKTOR_VERSION "\n");
  Lance({"--help"});
  ASSERT_TRUE(Programme.waitForFinished());
  const QString aide = QString::fromUtf8(Programme.readAll());
  EXPECT_TRUE(aide.contains("Publie la") && aide.contains("Publishes the camera"));
}

}  // namespace
}  // namespace vaktor::essai
