// SPDX-License-Identifier: GPL-3.0-or-later
// The companions as programs against servers that people run, as Debian ships them, with their own defaults for TLS.
#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

#include "modules/ftp/ftp_test_server.h"
#include "modules/mail/mail_bench.h"
#include "settings/password_scrambling.h"
#include "support/companion_program.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {
namespace {

constexpr const char* kPass = "s3cret&mot";

/// One of them, started by real_server.py.
class ServeurReel {
 public:
  ~ServeurReel() { Arrete(); }

  /// An empty text, or why it cannot be had here.
  QString Demarre(const QString& genre, const Certificats& certificats) {
    Programme_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    Programme_.start(
        "/usr/bin/python3",
        QStringList{VAKTOR_REAL_SERVER, genre, VAKTOR_SERVER_PACKAGES, Dossier_.path()} + certificats.Paire());
    while (!Programme_.canReadLine() && Programme_.waitForReadyRead(240'000)) {
    }
    const QString ligne = QString::fromUtf8(Programme_.readLine()).trimmed();
    Port = ligne.toUShort();
    EXPECT_TRUE(Port != 0 || ligne.startsWith("skip: ")) << "it did not start: " << ligne.toStdString();
    return Port != 0 ? QString() : ligne;
  }
  void Arrete() {
    Programme_.closeWriteChannel();
    Programme_.waitForFinished();
  }
  QString Site() const { return Dossier_.filePath("site"); }
  QByteArray LitSite(const QString& nom) const { return LitOctets(Site() + '/' + nom); }
  QByteArray LitFichier(const QString& nom) const { return LitOctets(Dossier_.filePath(nom)); }
  QStringList Mails() const { return QDir(Dossier_.filePath("mail")).entryList(QDir::Files); }

  quint16 Port = 0;

 private:
  QTemporaryDir Dossier_;
  QProcess Programme_;
};

struct Reel : ProgrammeCompagnon {
  Certificats Identite{QStringLiteral("localhost")};
  ServeurReel Serveur;

  void Prepare() { PrepareMilieu({{"SSL_CERT_FILE", Identite.Autorite()}, {"PATH", "/pas/la"}}); }
  /// The lines of a rehearsal; the last is the sentence.
  QStringList Repete(const QString& programme, const QJsonObject& demande) const {
    QProcess essai;
    QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
    milieu.insert("SSL_CERT_FILE", Identite.Autorite());
    milieu.insert(kVariableDossier, Temporaire.filePath("essai"));
    essai.setProcessEnvironment(milieu);
    essai.start(programme, {"--try"});
    essai.write(QJsonDocument(demande).toJson());
    essai.closeWriteChannel();
    EXPECT_TRUE(essai.waitForFinished(90'000));
    return QString::fromUtf8(essai.readAll()).split('\n', Qt::SkipEmptyParts);
  }
  static std::string Tout(const QStringList& lignes) { return lignes.join('\n').toStdString(); }
};

/// The parameter is the server's name.
struct SiteReel : Reel, testing::WithParamInterface<const char*> {
  static constexpr int kPhotos = 12;

  void SetUp() override {
    const QString raison = Serveur.Demarre(GetParam(), Identite);
    if (!raison.isEmpty()) GTEST_SKIP() << raison.toStdString();
  }
  QString Utilisateur() const { return QLatin1String(GetParam()) == "vsftpd" ? "anonymous" : "anna"; }
  QString Adresse() const { return QStringLiteral("localhost:%1").arg(Serveur.Port); }
  QStringList RepeteSite(const QString& dossier) const {
    return Repete(VAKTOR_FTP,
                  {{"ftp", Adresse()}, {"user", Utilisateur()}, {"pass", kPass}, {"racine", dossier}, {"langue", 1}});
  }
  void Lance() {
    QDir(Temporaire.path()).mkpath("Temp/FTP");
    const std::pair<const char*, QString> reglages[] = {
        {"ftp", Adresse()}, {"user", Utilisateur()}, {"pass", CryptePass(kPass)}, {"racine", Serveur.Site()}};
    for (const auto& [cle, valeur] : reglages) Magasin.EcritReglage("FTP", cle, valeur);
    Magasin.EcritReglage("general", "langue", "1");
    Magasin.Vide();
    Prepare();
    Demarre(VAKTOR_FTP);
    ASSERT_TRUE(AttendQue([this] { return Etat.FtpModulePret || Journal.contains("statut 34"); }))
        << Programme.readAll().toStdString();
    Etat.SurveillanceEnCours = true;
  }
  static QString NomPhoto(int i) {
    return QStringLiteral("2026-11-15  14-05-09 Photo %1.jpg").arg(i, 5, 10, QLatin1Char('0'));
  }
  /// One photo of each second, the last of them now.
  void PosePhotos() const {
    const QDateTime maintenant = QDateTime::currentDateTime();
    for (int i = 0; i < kPhotos; ++i) {
      const QString chemin = Temporaire.filePath("Temp/FTP/" + NomPhoto(i));
      ASSERT_TRUE(EcritOctets(chemin, CreeJpeg(i)));
      QFile photo(chemin);
      ASSERT_TRUE(photo.open(QIODevice::ReadWrite));
      photo.setFileTime(maintenant.addSecs(i - kPhotos), QFileDevice::FileModificationTime);
    }
  }
};

TEST_P(SiteReel, ARehearsalReplacesItsFileAsTheLivePageDoes) {
  const QStringList lignes = RepeteSite(Serveur.Site());
  EXPECT_EQ(lignes.filter("AUTH: 234").size(), 1) << Tout(lignes);
  EXPECT_GE(lignes.filter("STOR: 226").size(), 2) << Tout(lignes);
  EXPECT_TRUE(lignes.last().startsWith("The live page can be published")) << Tout(lignes);
  EXPECT_TRUE(QDir(Serveur.Site()).isEmpty());
}

TEST_P(SiteReel, AFolderThatTakesNothingIsNotToldAsAFirewall) {
  const QStringList lignes = RepeteSite("/usr");
  EXPECT_EQ(lignes.filter("STOR: 55").size(), 1) << Tout(lignes);
  EXPECT_TRUE(lignes.last().contains("lets nothing be written in this folder")) << Tout(lignes);
}

TEST_P(SiteReel, EveryPhotoAndLiveImageArrives) {
  Lance();
  PosePhotos();
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("Temp/Live.jpg"), CreeJpeg(100)));
  Envois.EnvoiFTP(Commande::kConnexion);
  ASSERT_TRUE(AttendQue([this] { return Etat.LiveActif; })) << Journal.join(" | ").toStdString();
  Envois.EnvoiFTP(Commande::kSurveillance);
  ASSERT_TRUE(AttendQue([this] { return Serveur.LitSite("live.jpg") == CreeJpeg(100); }));
  const QDir ici(Temporaire.filePath("Temp/FTP"));
  ASSERT_TRUE(AttendQue([&] { return ici.isEmpty(); })) << ici.entryList(QDir::Files).join(' ').toStdString();
  for (int i = 0; i < kPhotos; ++i) EXPECT_EQ(Serveur.LitSite(NomPhoto(i)), CreeJpeg(i)) << i;
  Envois.EnvoiFTP(Commande::kPage);
  EXPECT_TRUE(AttendQue([this] { return Serveur.LitSite("live.html").contains("Photo%2000011.jpg"); }));
  EXPECT_TRUE(LitOctets(Temporaire.filePath("etat/VAKTORftp.json")).contains("\"ok\""));
}

INSTANTIATE_TEST_SUITE_P(Serveurs, SiteReel, testing::Values("vsftpd", "proftpd"),
                         [](const auto& serveur) { return std::string(serveur.param); });

struct CourrierReel : Reel {
  void SetUp() override {
    const QString raison = Serveur.Demarre("exim", Identite);
    if (!raison.isEmpty()) GTEST_SKIP() << raison.toStdString();
  }
  void Regle(const QString& cle, const QString& valeur, const QString& section = "MAIL") {
    Magasin.EcritReglage(section, cle, valeur);
  }
  void Lance(const QString& motDePasse) {
    QDir(Temporaire.path()).mkdir("photos");
    Regle("destination", "anna@example.org");
    Regle("sujet", "Intrusion");
    Regle("smtpserveur", "localhost");
    Regle("smtpfrom", "cam@example.org");
    Regle("smtpport", QString::number(Serveur.Port));
    Regle("smtpuser", "anna");
    Regle("pass", CryptePass(motDePasse));
    Regle("smtpactif", "True");
    Regle("smtpneedlogin", "True");
    Regle("repertoire", Temporaire.filePath("photos"), "PHOTO");
    Regle("actif", "1", "PHOTO");
    Magasin.Vide();
    Prepare();
    Demarre(VAKTOR_MAIL);
    ASSERT_TRUE(AttendQue([this] { return Etat.HandleMail != 0; })) << Programme.readAll().toStdString();
  }
  QStringList RepeteMail(const QString& motDePasse) const {
    return Repete(VAKTOR_MAIL, {{"destination", "anna@example.org"},
                                {"sujet", "s"},
                                {"corp", "c"},
                                {"smtpserveur", "localhost"},
                                {"smtpport", Serveur.Port},
                                {"smtpfrom", "cam@example.org"},
                                {"smtpuser", "anna"},
                                {"pass", motDePasse},
                                {"smtpactif", true},
                                {"smtpneedlogin", true},
                                {"langue", 1}});
  }
  QByteArray EtatEcrit() const { return LitOctets(Temporaire.filePath("etat/VAKTORmail.json")); }
};

TEST_F(CourrierReel, AMailArrivesWithItsPhotoAfterALoginOverTls) {
  Lance(kPass);
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("photos/1.jpg"), PetitJpeg(" image ")));
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return Serveur.LitFichier("mainlog").contains("Completed"); }))
      << Serveur.LitFichier("mainlog").toStdString();
  ASSERT_EQ(Serveur.Mails().size(), 1);
  const QByteArray mail = Serveur.LitFichier("mail/" + Serveur.Mails()[0]);
  EXPECT_TRUE(mail.contains("Envelope-to: anna@example.org")) << mail.toStdString();
  EXPECT_TRUE(mail.contains("filename=\"1.jpg\"")) << mail.toStdString();
  EXPECT_TRUE(mail.contains(PetitJpeg(" image ").toBase64())) << mail.toStdString();
  EXPECT_TRUE(Serveur.LitFichier("mainlog").contains("P=esmtpsa")) << "encrypted, and logged in";
  EXPECT_TRUE(AttendQue([this] { return EtatEcrit().contains("\"ok\""); }));
}

TEST_F(CourrierReel, AWrongPasswordIsToldAndItsCorrectionSendsTheMail) {
  Lance("faux");
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return EtatEcrit().contains("535"); })) << EtatEcrit().toStdString();
  EXPECT_TRUE(Serveur.Mails().isEmpty());
  Regle("pass", CryptePass(kPass));
  Magasin.Vide();
  Envois.EnvoiMail(Commande::kOptions);
  EXPECT_TRUE(AttendQue([this] { return Serveur.Mails().size() == 1; }));
}

TEST_F(CourrierReel, ARehearsalSaysThatItWasEncryptedAndWhatIsWrong) {
  QStringList lignes = RepeteMail(kPass);
  EXPECT_EQ(lignes.last(), "The mail was accepted. The connection was encrypted.") << Tout(lignes);
  lignes = RepeteMail("faux");
  EXPECT_TRUE(lignes.last().contains("refused the user name or the password")) << Tout(lignes);
}

}  // namespace
}  // namespace vaktor::essai
