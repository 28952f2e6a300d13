// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of the rehearsal, with a server that is a list of answers.
#include <gtest/gtest.h>

#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>

#include "base/jpeg_end.h"
#include "modules/ftp/rehearsal.h"

namespace vaktor::essai {
namespace {

struct Repetition : testing::Test {
  /// What one job of the server says and how it ends.
  struct Reponse {
    ResultatFtp Resultat;
    QList<std::pair<QByteArray, QByteArray>> Repliques = {};
  };

  FinRepetition Joue(const QJsonObject& demande) { return JoueOctets(QJsonDocument(demande).toJson()); }
  FinRepetition JoueOctets(const QByteArray& demande) {
    Lignes.clear();
    Travaux.clear();
    Restes.clear();
    PortsRepetition ports;
    ports.Execute = [this](const TravailFtp& travail) {
      Travaux.append(travail);
      const Reponse reponse = Serveur ? Serveur(travail) : DonneBonne(travail);
      for (const auto& [verbe, ligne] : reponse.Repliques) Essai->Entend(verbe, ligne);
      return reponse.Resultat;
    };
    ports.Ecrit = [this](const QString& ligne) { Lignes.append(ligne); };
    ports.SurFichier = [this](bool la) { Restes.append(la); };
    ports.EstInterrompue = [this] { return Interrompue; };
    ports.Marque = "k7";
    Essai = std::make_unique<RepetitionFtp>(ports);
    return Essai->Joue(demande);
  }
  static Reponse DonneBonne(const TravailFtp& travail) {
    switch (travail.Genre) {
      case GenreTravail::kConnexion:
        return {{},
                {{"", "220-Welcome"},
                 {"", "220 ready"},
                 {"AUTH", "502 no"},
                 {"AUTH", "502 no"},
                 {"USER", "331 password"},
                 {"PASS", "230 in"},
                 {"PWD", "257 \"/\""},
                 {"CWD", "250 there"}}};
      case GenreTravail::kPage:
        return {{},
                {{"EPSV", "229 (|||5000|)"},
                 {"TYPE", "200 binary"},
                 {"STOR", "150 go"},
                 {"STOR", "226 done"},
                 {"RNFR", "350 to what"},
                 {"RNTO", "250 renamed"}}};
      case GenreTravail::kTaille:
        return {{}, {{"SIZE", "213 32768"}}};
      case GenreTravail::kEfface:
        return {{}, {{"DELE", "250 gone"}}};
      default:
        return {};
    }
  }
  /// All goes well but the jobs of this kind.
  void Echoue(GenreTravail genre, const Reponse& reponse) {
    Serveur = [=](const TravailFtp& travail) { return travail.Genre == genre ? reponse : DonneBonne(travail); };
  }
  QStringList Effaces() const {
    QStringList noms;
    for (const TravailFtp& travail : Travaux)
      if (travail.Genre == GenreTravail::kEfface) noms.append(travail.Nom);
    return noms;
  }
  /// The sentence for a connection that ends like this, in English.
  QString PhraseDe(const Reponse& reponse) {
    Echoue(GenreTravail::kConnexion, reponse);
    EXPECT_EQ(Joue(Champs), FinRepetition::kRefuse);
    EXPECT_TRUE(Effaces().isEmpty()) << "nothing was sent";
    return Lignes.last();
  }

  const QJsonObject Champs{
      {"ftp", "ftp.a.org:2121"}, {"user", "anna"}, {"pass", "sesame"}, {"racine", "/www"}, {"langue", 1}};
  std::function<Reponse(const TravailFtp&)> Serveur;
  bool Interrompue = false;
  QStringList Lignes;
  QList<TravailFtp> Travaux;
  QList<bool> Restes;
  std::unique_ptr<RepetitionFtp> Essai;
};

TEST_F(Repetition, GoesTheWayOfALiveImageTwiceAndTidiesUp) {
  const QString fini =
      QStringLiteral("The live page can be published: the server took a trial file, replaced it and deleted it.");
  EXPECT_EQ(Joue(Champs), FinRepetition::kAccepte);
  EXPECT_EQ(Lignes, QStringList({"ftp.a.org:2121", "220 ready", "AUTH: 502 no", "USER: 331 password", "PASS: 230 in",
                                 "CWD: 250 there", "EPSV: 229 (|||5000|)", "STOR: 150 go", "STOR: 226 done",
                                 "RNFR: 350 to what", "RNTO: 250 renamed", "EPSV: 229 (|||5000|)", "STOR: 150 go",
                                 "STOR: 226 done", "RNFR: 350 to what", "RNTO: 250 renamed", "SIZE: 213 32768",
                                 "DELE: 250 gone", fini}));
  ASSERT_EQ(Travaux.size(), 5);
  EXPECT_EQ(Travaux[0].Acces, (AccesFtp{"ftp.a.org", 2121, "anna", "sesame", "/www"}));
  EXPECT_EQ(Effaces(), QStringList("vaktor-try-k7.jpg"));
  EXPECT_EQ(Restes, QList<bool>({true, false})) << "between the two an end has to wait for the deletion";
}

TEST_F(Repetition, TouchesNoNameOfTheLivePage) {
  Joue(Champs);
  ASSERT_FALSE(Travaux.isEmpty());
  for (const TravailFtp& travail : Travaux) {
    EXPECT_TRUE(travail.Nom.isEmpty() || travail.Nom.startsWith("vaktor-try-")) << travail.Nom.toStdString();
    EXPECT_EQ(travail.Provisoire, "vaktor-try-k7.part") << "and never the default, which a live page may be using";
  }
}

TEST_F(Repetition, ItsFileIsAWholePictureOfItsSize) {
  const QByteArray image = CreeImageEssai();
  EXPECT_EQ(image.size(), RepetitionFtp::kTailleImage);
  EXPECT_TRUE(EstJpegEntier(image));
  EXPECT_EQ(QImage::fromData(image, "JPG").size(), QSize(1, 1));
  EXPECT_TRUE(image.contains("may be deleted"));
}

TEST_F(Repetition, WhatIsMissingIsToldBeforeAnybodyIsAsked) {
  const auto sans = [&](const char* cle, const QString& valeur) {
    QJsonObject champs = Champs;
    champs[QLatin1String(cle)] = valeur;
    EXPECT_EQ(Joue(champs), FinRepetition::kRefuse);
    EXPECT_TRUE(Travaux.isEmpty()) << cle;
    EXPECT_EQ(Lignes.size(), 1) << Lignes.join('|').toStdString();
    return Lignes.last();
  };
  EXPECT_TRUE(sans("ftp", "ftp.").contains("address of the FTP server is missing"));
  EXPECT_TRUE(sans("ftp", "a:x").contains("address is none"));
  EXPECT_TRUE(sans("user", "").contains("user name of the FTP account is missing"));
  EXPECT_TRUE(sans("pass", "").contains("password of the FTP account is missing"));
  for (const char* cle : {"user", "pass", "racine"})
    EXPECT_TRUE(sans(cle, "/www\r\nDELE x").contains("invisible sign")) << cle;
}

TEST_F(Repetition, WhatIsNoRequestIsSaid) {
  for (const char* demande : {"", "no", "[1]"}) {
    EXPECT_EQ(JoueOctets(demande), FinRepetition::kDemandeIllisible) << demande;
    EXPECT_EQ(Lignes, QStringList("JSON ?"));
  }
}

TEST_F(Repetition, EachWayToFailHasItsSentence) {
  using I = IssueFtp;
  using P = PrecisionFtp;
  EXPECT_TRUE(PhraseDe({{I::kSansReseau, "x"}}).contains("no Internet connection"));
  EXPECT_TRUE(PhraseDe({{I::kServeurInconnu, "x"}}).contains("ftp.a.org cannot be found"));
  EXPECT_TRUE(PhraseDe({{I::kPasDeConnexion, "x", P::kPersonne}}).contains("no connection on port 2121"));
  EXPECT_TRUE(PhraseDe({{I::kPasDeConnexion, "x", P::kDelai}}).contains("does not answer on port 2121"));
  EXPECT_TRUE(PhraseDe({{I::kPasDeConnexion, "x", P::kDelai}, {{"", "220 hi"}}}).contains("stopped answering"));
  EXPECT_TRUE(
      PhraseDe({{I::kPasDeConnexion, "SSH-2.0", P::kPasFtp}}).contains("If it is SFTP, Vaktor speaks it on port 22 ("));
  EXPECT_TRUE(
      PhraseDe({{I::kPasDeConnexion, "550 banned"}, {{"", "550 banned"}}}).contains("turns the connection away"));
  EXPECT_TRUE(PhraseDe({{I::kPasDeConnexion, "421 full", P::kComplet}}).contains("switch it off"));
  EXPECT_TRUE(PhraseDe({{I::kPasDeConnexion, "x", P::kCertificat}}).contains("certificate of the server ftp.a.org"));
  EXPECT_TRUE(PhraseDe({{I::kPasDeConnexion, "x", P::kTls}}).contains("encrypted connection"));
  EXPECT_TRUE(PhraseDe({{I::kPasDeConnexion, "x", P::kMemoire}}).contains("has shown before cannot be read"));
  EXPECT_TRUE(PhraseDe({{I::kAccesRefuse, "530 no"}}).contains("refuses the user name or the password"));
  EXPECT_TRUE(PhraseDe({{I::kDossierAbsent, "550 no"}}).contains("folder \"/www\" does not exist"));
  EXPECT_TRUE(PhraseDe({{I::kPasDeConnexion, "x"}, {{"", "220 hi"}}}).contains("broke"));
}

TEST_F(Repetition, WhatTheServerSaidIsToldOnceAndWhatTheSystemSaidToo) {
  PhraseDe({{IssueFtp::kAccesRefuse, "530 no"}, {{"", "220 hi"}, {"PASS", "530 no"}}});
  EXPECT_EQ(Lignes.filter("530"), QStringList("PASS: 530 no"));
  PhraseDe({{IssueFtp::kPasDeConnexion, "Connection refused", PrecisionFtp::kPersonne}});
  EXPECT_EQ(Lignes.size(), 3);
  EXPECT_EQ(Lignes[1], "Connection refused");
}

TEST_F(Repetition, ThePasswordIsBlottedOutWhereverItStands) {
  PhraseDe({{IssueFtp::kAccesRefuse, "530 sesame"}, {{"PASS", "530 anna:sesame is wrong"}}});
  EXPECT_TRUE(Lignes.contains("PASS: 530 anna:*** is wrong")) << Lignes.join('\n').toStdString();
  QJsonObject champs = Champs;
  champs["racine"] = "/sesame%1";
  Echoue(GenreTravail::kConnexion, {{IssueFtp::kDossierAbsent, "550 no"}, {}});
  Joue(champs);
  EXPECT_TRUE(Lignes.last().contains("\"/***%1\"")) << Lignes.last().toStdString();
  // A word of ours is no password, though it be the same word.
  champs["pass"] = "server";
  Joue(champs);
  EXPECT_TRUE(Lignes.last().contains("on the server")) << Lignes.last().toStdString();
  EXPECT_FALSE(Lignes.join('\n').contains("sesame") && Lignes.join('\n').contains("\"pass\""));
}

TEST_F(Repetition, BothLanguagesHaveEverySentence) {
  for (int i = 0; i <= static_cast<int>(CauseEssai::kInterrompu); ++i) {
    const auto cause = static_cast<CauseEssai>(i);
    const DetailsEssai details{{"h", 21, "u", "p", "/d"}, {"f"}};
    const QString francais = ComposePhraseEssai(cause, Langue::kFrancais, details);
    const QString anglais = ComposePhraseEssai(cause, Langue::kAnglais, details);
    EXPECT_GT(francais.size(), 70) << i;
    EXPECT_GT(anglais.size(), 65) << i;
    EXPECT_NE(francais, anglais);
    EXPECT_EQ(ComposePhraseEssai(cause, LangueParlee(7), details), francais);
    EXPECT_FALSE((francais + anglais).contains('%')) << i;
  }
}

// --- After something was sent

TEST_F(Repetition, ARefusedFileLeavesNothingToDelete) {
  Echoue(GenreTravail::kPage, {{IssueFtp::kRefus, "550 no uploads"}, {{"STOR", "550 no uploads"}}});
  EXPECT_EQ(Joue(Champs), FinRepetition::kRefuse);
  EXPECT_TRUE(Effaces().isEmpty());
  EXPECT_TRUE(Lignes.last().contains("lets nothing be written")) << Lignes.last().toStdString();
}

TEST_F(Repetition, AFileThatWasBegunIsDeletedAndThatIsToldOnlyWhenItWorks) {
  Reponse plein{{IssueFtp::kRefus, "552 quota", PrecisionFtp::kPlace}, {{"STOR", "150 go"}, {"STOR", "552 quota"}}};
  Echoue(GenreTravail::kPage, plein);
  EXPECT_EQ(Joue(Champs), FinRepetition::kRefuse);
  EXPECT_EQ(Effaces(), QStringList("vaktor-try-k7.part"));
  EXPECT_EQ(Lignes[Lignes.size() - 2], "DELE: 250 gone");
  EXPECT_EQ(Lignes.last(),
            "The server has no space left: delete files there, old photos for example, or ask for more "
            "space.");
  // What the server has thrown away itself cannot be deleted, and need not be told.
  Serveur = [&](const TravailFtp& travail) -> Reponse {
    if (travail.Genre == GenreTravail::kPage) return plein;
    if (travail.Genre == GenreTravail::kEfface)
      return {{IssueFtp::kPasDeConnexion, "x"}, {{"DELE", "550 no such file"}}};
    return DonneBonne(travail);
  };
  Joue(Champs);
  EXPECT_FALSE(Lignes.join('\n').contains("no such file"));
  EXPECT_FALSE(Lignes.last().contains("may have stayed"));
}

TEST_F(Repetition, AFileThatMayHaveStayedIsNamed) {
  Serveur = [&](const TravailFtp& travail) -> Reponse {
    if (travail.Genre == GenreTravail::kPage)
      return {{IssueFtp::kPasDeConnexion, "cut", PrecisionFtp::kCoupure}, {{"STOR", "150 go"}}};
    if (travail.Genre == GenreTravail::kEfface) return {{IssueFtp::kPasDeConnexion, "cut"}, {}};
    return DonneBonne(travail);
  };
  EXPECT_EQ(Joue(Champs), FinRepetition::kRefuse);
  EXPECT_TRUE(Lignes.last().endsWith("The trial file vaktor-try-k7.part may have stayed on the server."))
      << Lignes.last().toStdString();
}

TEST_F(Repetition, ARefusedReplacementIsNoSuccessAndBothFilesGo) {
  int envois = 0;
  Serveur = [&](const TravailFtp& travail) -> Reponse {
    if (travail.Genre != GenreTravail::kPage || ++envois == 1) return DonneBonne(travail);
    return {{IssueFtp::kRefus, "550 exists"},
            {{"STOR", "150 go"},
             {"STOR", "226 done"},
             {"RNFR", "350 to what"},
             {"RNTO", "550 exists"},
             {"DELE", "550 no"},
             {"RNFR", "350 to what"},
             {"RNTO", "550 exists"}}};
  };
  EXPECT_EQ(Joue(Champs), FinRepetition::kRefuse);
  EXPECT_TRUE(Lignes.last().contains("does not let it be renamed or replaced")) << Lignes.last().toStdString();
  EXPECT_EQ(Effaces(), QStringList({"vaktor-try-k7.part", "vaktor-try-k7.jpg"}));
}

TEST_F(Repetition, AServerThatDeletesNothingPublishesAllTheSame) {
  Echoue(GenreTravail::kEfface, {{IssueFtp::kPasDeConnexion, "x"}, {{"DELE", "550 not you"}}});
  EXPECT_EQ(Joue(Champs), FinRepetition::kAccepte);
  EXPECT_TRUE(Lignes.last().contains("delete it yourself") && Lignes.last().contains("vaktor-try-k7.jpg"))
      << Lignes.last().toStdString();
}

TEST_F(Repetition, ASizeThatIsLessIsAFailureAndNoSizeIsNone) {
  Echoue(GenreTravail::kTaille, {{}, {{"SIZE", "213 16384"}}});
  EXPECT_EQ(Joue(Champs), FinRepetition::kRefuse);
  EXPECT_TRUE(Lignes.last().contains("did not keep all of it"));
  EXPECT_EQ(Effaces(), QStringList("vaktor-try-k7.jpg"));
  Echoue(GenreTravail::kTaille, {{IssueFtp::kRefus, "502 what?"}, {{"SIZE", "502 what?"}}});
  EXPECT_EQ(Joue(Champs), FinRepetition::kAccepte);
}

TEST_F(Repetition, AnInterruptionTidiesUp) {
  Serveur = [&](const TravailFtp& travail) -> Reponse {
    if (travail.Genre != GenreTravail::kPage) return DonneBonne(travail);
    Interrompue = true;
    return {{IssueFtp::kPasDeConnexion, "Callback aborted"}, {{"STOR", "150 go"}}};
  };
  EXPECT_EQ(Joue(Champs), FinRepetition::kRefuse);
  EXPECT_EQ(Effaces(), QStringList("vaktor-try-k7.part"));
  EXPECT_EQ(Lignes.last(), "The trial was interrupted.");
  EXPECT_EQ(Restes, QList<bool>({true, false}));
}

}  // namespace
}  // namespace vaktor::essai
