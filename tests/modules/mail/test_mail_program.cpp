// SPDX-License-Identifier: GPL-3.0-or-later
// The whole companion as a program, with the main program's side of the channel and a real server on loopback.
#include <sys/stat.h>

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QThread>

#include "companions/contract/intrusion_slate.h"
#include "modules/mail/mail_program_bench.h"
#include "modules/mail/mime_message.h"
#include "modules/mail/outbox.h"

namespace vaktor::essai {
namespace {

TEST_F(ProgrammeMail, AnIntrusionBecomesAMailWithItsPhotos) {
  Lance();
  Photo("2026-11-15  14-05-09 Photo 00003.jpg");
  for (int i = 0; i < 50; ++i) Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return Serveur.NombreRecus() == 1; }));
  const QJsonObject lu = LitCourriel(Serveur.Message());
  EXPECT_EQ(lu["subject"].toString(), QString::fromUtf8("Intrusion détectée"));
  EXPECT_EQ(lu["body"].toString(), QString::fromUtf8("Là\nmaintenant"));
  EXPECT_EQ(lu["names"].toArray(), QJsonArray{"2026-11-15  14-05-09 Photo 00003.jpg"});
  EXPECT_TRUE(AttendQue([this] { return EnAttente().isEmpty(); }));
  EXPECT_TRUE(LitEtat("VAKTORmail.json").contains("\"ok\""));
  Envois.EnvoiMail(Commande::kQuitte);
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitCode(), 0);
  EXPECT_EQ(Serveur.NombreRecus(), 1) << "fifty reports, one mail";
}

TEST_F(ProgrammeMail, TheFirstPictureIsThatOfTheMostMovementWhichTheSlateOfTheMainProgramNames) {
  Regle("nombrephoto", "3");
  Magasin.Vide();
  Lance();
  QList<PhotoArdoise> photos;
  for (int i = 1; i <= 5; ++i) {
    Photo(QStringLiteral("2026-11-15  14-05-09 Photo 0000%1.jpg").arg(i));
    photos.append({QStringLiteral("2026-11-15  14-05-09 Photo 0000%1.jpg").arg(i), i == 2 ? 900 : 100 + i,
                   QRect(400, 300, 90, 90)});
  }
  const QDateTime maintenant = QDateTime::currentDateTime();
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("etat/" + kFichierArdoise),
                          EcritArdoise({maintenant.addSecs(-1), maintenant, QSize(640, 480), photos})));
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return Serveur.NombreRecus() == 1; }));
  const QJsonObject lu = LitCourriel(Serveur.Message());
  EXPECT_EQ(lu["names"].toArray().size(), 3) << "as many as are set";
  EXPECT_EQ(lu["names"].toArray().first().toString(), "2026-11-15  14-05-09 Photo 00002.jpg");
  const QString corps = lu["body"].toString();
  EXPECT_TRUE(corps.startsWith(QString::fromUtf8("Là\nmaintenant\n\nL'intrusion a commencé le ")))
      << corps.toStdString();
  EXPECT_TRUE(corps.contains(maintenant.addSecs(-1).toString("HH:mm:ss"))) << corps.toStdString();
  EXPECT_TRUE(corps.contains(QString::fromUtf8("regardez en bas à droite."))) << corps.toStdString();
  EXPECT_TRUE(corps.endsWith(Temporaire.filePath("photos"))) << corps.toStdString();
}

TEST_F(ProgrammeMail, ASignalEndsItTidily) {
  Lance();
  Programme.terminate();
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(Programme.exitCode(), 0);
}

TEST_F(ProgrammeMail, AServerThatHangsHoldsUpNeitherCommandsNorTheEnd) {
  QTcpServer muet;
  ASSERT_TRUE(muet.listen(QHostAddress::LocalHost));
  Regle("smtpport", QString::number(muet.serverPort()));
  Magasin.Vide();
  Lance();
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([&] { return muet.hasPendingConnections(); }));
  Envois.EnvoiMail(Commande::kOptions);
  Envois.EnvoiMail(Commande::kQuitte);
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitCode(), 0);
  EXPECT_EQ(EnAttente().size(), 1) << "the mail stays for the next start";
}

TEST_F(ProgrammeMail, AMailOutlivesItsServerAndTheNextSettingsSendIt) {
  Serveur.Arrete();
  Lance();
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return LitEtat("VAKTORmail.json").contains("mail-connection"); }));
  Tue();
  ASSERT_EQ(EnAttente().size(), 1);
  ASSERT_TRUE(Serveur.Demarre());
  Lance();
  ASSERT_TRUE(AttendQue([this] { return Serveur.NombreRecus() == 1; }));
}

TEST_F(ProgrammeMail, APasswordIsNowhereOnDiskOrInTheProcessList) {
  Serveur.Arrete();
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", "autre"}));
  Regle("smtpneedlogin", "True");
  Magasin.Vide();
  Lance();
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return LitEtat("VAKTORmail.json").contains("535"); }));
  const QByteArray tout = LitEtat("VAKTORmail.json") + LitEtat("VAKTORmail.log") +
                          LitOctets(Courrier() + '/' + EnAttente().value(0)) +
                          LitOctets(QStringLiteral("/proc/%1/cmdline").arg(Programme.processId())) +
                          LitOctets(QStringLiteral("/proc/%1/environ").arg(Programme.processId()));
  EXPECT_TRUE(tout.contains("VAKTORmail"));
  EXPECT_FALSE(tout.contains(kPass));
  EXPECT_FALSE(tout.contains(QByteArray(kPass).toBase64()));
}

TEST_F(ProgrammeMail, ABadPortIsToldAndItsCorrectionSendsTheMail) {
  Regle("smtpport", "abc");
  Magasin.Vide();
  Lance();
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return LitEtat("VAKTORmail.json").contains("mail-port"); }));
  Regle("smtpport", QString::number(Serveur.Port()));
  Magasin.Vide();
  Envois.EnvoiMail(Commande::kOptions);
  EXPECT_TRUE(AttendQue([this] { return Serveur.NombreRecus() == 1; }));
}

TEST_F(ProgrammeMail, TheRehearsalTellsEachStepAndSavesNothing) {
  const auto repete = [&](const QByteArray& demande) {
    PrepareMilieu({{kVariableDossier, Temporaire.filePath("ailleurs")}});
    Programme.start(VAKTOR_MAIL, {"--try"});
    Programme.write(demande);
    Programme.closeWriteChannel();
    Programme.waitForFinished();
    return QString::fromUtf8(Programme.readAll());
  };
  const QByteArray port = QByteArray::number(Serveur.Port());
  const QByteArray debut =
      R"({"destination":"anna@exemple.fr","smtpserveur":"127.0.0.1","smtpfrom":"a@b.fr","smtpport":)";
  const QString bon = repete(debut + port + R"(,"smtpneedlogin":false,"langue":1})");
  EXPECT_EQ(Programme.exitCode(), 0) << bon.toStdString();
  EXPECT_TRUE(bon.contains("MAIL: 250") && bon.contains("DATA: 250 2.0.0 taken")) << bon.toStdString();
  EXPECT_TRUE(bon.endsWith("The mail was accepted. The connection was not encrypted.\n")) << bon.toStdString();
  EXPECT_EQ(Serveur.NombreRecus(), 1);
  const QString faux = repete(QByteArray(debut).replace("anna@exemple.fr", "anna@exemple.fr, anna.exemple.fr") + port +
                              R"(,"smtpneedlogin":false,"langue":1})");
  EXPECT_EQ(Programme.exitCode(), 0) << "the other address gets it";
  EXPECT_TRUE(faux.endsWith("This is no eMail address: anna.exemple.fr\n")) << faux.toStdString();
  Serveur.Arrete();
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", "autre"}));
  const QString refuse = repete(debut + port + R"(,"smtpuser":"anna","pass":"s3cret&mot"})");
  EXPECT_EQ(Programme.exitCode(), 1);
  EXPECT_EQ(refuse.count("535"), 1) << "told once, as the step:\n" << refuse.toStdString();
  EXPECT_TRUE(refuse.trimmed().split('\n').last().contains(QString::fromUtf8("Vérifiez")));
  EXPECT_FALSE(refuse.contains(kPass));
  const QString admis = repete(debut + port + R"(,"smtpuser":"anna","pass":"autre"})");
  EXPECT_EQ(Programme.exitCode(), 0) << admis.toStdString();
  repete("non");
  EXPECT_EQ(Programme.exitCode(), 2);
  EXPECT_FALSE(QFile::exists(Temporaire.filePath("ailleurs")));
}

// A provider within the house has an authority of its own.
TEST_F(ProgrammeMail, TheAuthoritiesOfTheVariableCountAsTheyDoForThePage) {
  const Certificats certificats(QStringLiteral("127.0.0.1"));
  Serveur.Arrete();
  ASSERT_TRUE(Serveur.Demarre(QStringList("--starttls") + certificats.Paire()));
  const auto repete = [&](const QString& autorite) {
    PrepareMilieu({{kVariableDossier, Temporaire.filePath("ailleurs")}, {"SSL_CERT_FILE", autorite}});
    Programme.start(VAKTOR_MAIL, {"--try"});
    Programme.write(R"({"destination":"anna@exemple.fr","smtpserveur":"127.0.0.1","smtpfrom":"a@b.fr","smtpport":)" +
                    QByteArray::number(Serveur.Port()) + R"(,"smtpneedlogin":false,"langue":1})");
    Programme.closeWriteChannel();
    Programme.waitForFinished();
    return QString::fromUtf8(Programme.readAll());
  };
  const QString bon = repete(certificats.Autorite());
  EXPECT_EQ(Programme.exitCode(), 0) << bon.toStdString();
  EXPECT_TRUE(bon.endsWith("The connection was encrypted.\n")) << bon.toStdString();
  repete(QString());
  EXPECT_EQ(Programme.exitCode(), 1) << "nobody vouches for it";
}

QString Entete(const QByteArray& message, const QString& nom) {
  return QString::fromLatin1(message).section("\r\n" + nom + ": ", 1).section('\r', 0, 0);
}

/// Kills the sending companion again and again while it empties a full outbox into a real server.
struct Morts : ProgrammeMail {
  static constexpr int kCourriels = 60;
  /// VAKTOR_KILLS: how many, for whoever wants to see more of them.
  const int MortsMax = qEnvironmentVariableIntValue("VAKTOR_KILLS") > 0 ? qEnvironmentVariableIntValue("VAKTOR_KILLS")
                                                                        : 60;
  QMap<QString, int> Fenetres;  // by mail: kills between the server's acceptance and our note of it

  void RemplitSac() const {
    SacPostal sac(Courrier());
    for (int i = 0; i < kCourriels; ++i) {
      CourrielEnAttente c;
      c.Nom = QStringLiteral("%1").arg(i, 3, 10, QChar('0'));
      c.Expediteur = "cam@exemple.fr";
      c.Destinataires = QStringList{"anna@exemple.fr"};
      c.FaitA = QDateTime::currentMSecsSinceEpoch();
      const QByteArray message = ComposeMessage({.Expediteur = c.Expediteur,
                                                 .Destinataires = c.Destinataires,
                                                 .Sujet = c.Nom,
                                                 .Corps = "x",
                                                 .Date = QDateTime::currentDateTime(),
                                                 .Identifiant = c.Nom,
                                                 .Pieces = {{"a.jpg", QByteArray(100'000, 'x')}}});
      ASSERT_EQ(sac.PoseBrouillon(c, message), 0);
      ASSERT_TRUE(sac.Publie(c.Nom));
    }
  }
  /// By subject, all that the server has accepted.
  QMap<QString, QByteArrayList> Recus() const {
    QMap<QString, QByteArrayList> recus;
    for (qsizetype i = 0; i < Serveur.NombreRecus(); ++i) {
      const QByteArray message = Serveur.Message(i);
      recus[Entete(message, "Subject")] << message;
    }
    return recus;
  }
  /// Whether the server still works on a connection of somebody.
  bool ServeurOccupe() const {
    const QByteArray port = QByteArray::number(Serveur.Port(), 16).toUpper().rightJustified(4, '0');
    for (const QByteArray& ligne : LitOctets("/proc/net/tcp").split('\n')) {
      const QByteArrayList mots = ligne.simplified().split(' ');
      const bool vivante = mots.value(3) == "01" || mots.value(3) == "08";  // established, or not closed by the server
      if (vivante && mots.value(1).endsWith(':' + port)) return true;
    }
    return false;
  }
  /// One kill at any moment, the next as soon as the server has taken a mail: that is where it hurts.
  void TueUnJour(bool surAcceptation) {
    const qsizetype avant = Serveur.NombreRecus();
    QElapsedTimer chrono;
    chrono.start();
    while (surAcceptation && Serveur.NombreRecus() == avant && !chrono.hasExpired(200)) {
    }
    if (!surAcceptation) QThread::msleep(QRandomGenerator::global()->bounded(1U, 40U));
    Tue();
  }
  /// After a kill: the mails that the server has and the outbox does not know of. At most one can be new.
  int CompteFenetres() {
    EXPECT_TRUE(AttendQue([this] { return !ServeurOccupe(); }));
    const QMap<QString, QByteArrayList> recus = Recus();
    int nouvelles = 0;
    for (const QString& fichier : EnAttente()) {
      const QString nom = fichier.section('.', 0, 0);
      const int encore = static_cast<int>(recus.value(nom).size()) - Fenetres.value(nom);
      EXPECT_LE(encore, 1) << nom.toStdString();
      if (encore == 1) ++Fenetres[nom], ++nouvelles;
    }
    return nouvelles;
  }
};

TEST_F(Morts, KilledAtAnyMomentItLosesNoMailAndRepeatsOnlyTheOneUnderWay) {
  RemplitSac();
  int morts = 0;
  int fenetres = 0;
  for (; morts < MortsMax && !EnAttente().isEmpty(); ++morts) {
    Lance();
    TueUnJour(morts % 2 == 1);
    const int nouvelles = CompteFenetres();
    ASSERT_LE(nouvelles, 1) << "only the mail under way can be in doubt";
    fenetres += nouvelles;
  }
  if (!EnAttente().isEmpty()) Lance();
  ASSERT_TRUE(AttendQue([this] { return EnAttente().isEmpty(); }));
  const QMap<QString, QByteArrayList> recus = Recus();
  EXPECT_EQ(recus.size(), kCourriels) << "none is lost";
  QSet<QString> identifiants;
  int doubles = 0;
  for (auto courriel = recus.begin(); courriel != recus.end(); ++courriel) {
    doubles += static_cast<int>(courriel->size()) - 1;
    // A kill between the server's answer and our note of it sends that one mail again: no sender can close that window.
    EXPECT_EQ(courriel->size(), 1 + Fenetres.value(courriel.key())) << courriel.key().toStdString();
    // But whoever gets it twice can tell: it is the same mail, byte for byte.
    for (const QByteArray& message : *courriel) EXPECT_EQ(message, courriel->first());
    identifiants << Entete(courriel->first(), "Message-ID");
  }
  EXPECT_EQ(identifiants.size(), kCourriels) << "and no two mails share their Message-ID";
  RecordProperty("kills", morts);
  RecordProperty("in_the_window", fenetres);
  RecordProperty("twice", doubles);
  std::cout << kCourriels << " mails, " << morts << " kills, " << fenetres << " of them between the acceptance and the "
            << "note of it, " << doubles << " received twice, " << kCourriels - recus.size() << " lost\n";
}

/// Kills the companion while it makes the mails of a row.
TEST_F(ProgrammeMail, KilledWhileItMakesThemEachMailMadeIsSent) {
  Regle("nombremail", "1");
  Magasin.Vide();
  constexpr int kMorts = 25;
  Serveur.Arrete();
  QSet<QString> faits;
  for (int i = 0; i < kMorts; ++i) {
    Lance();
    Photo(QStringLiteral("%1.jpg").arg(i));
    Envois.EnvoiMail(Commande::kIntrusion);
    QThread::msleep(QRandomGenerator::global()->bounded(1U, 300U));
    Tue();
    for (const QString& nom : EnAttente()) faits << nom.section('.', 0, 0);
  }
  ASSERT_TRUE(Serveur.Demarre());
  Lance();
  ASSERT_TRUE(AttendQue([this] { return EnAttente().isEmpty(); }));
  std::cout << kMorts << " kills, " << faits.size() << " mails on disk, " << Serveur.NombreRecus() << " received\n";
  EXPECT_EQ(Serveur.NombreRecus(), faits.size());
  EXPECT_GT(faits.size(), 0);
}

}  // namespace
}  // namespace vaktor::essai
