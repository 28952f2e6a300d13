// SPDX-License-Identifier: GPL-3.0-or-later
// Log, status file, folders and parameters of the companions.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "fakes/fake_store.h"
#include "fakes/virtual_clock.h"
#include "modules/common/failure_notice.h"
#include "modules/common/module_folders.h"
#include "modules/common/module_settings.h"
#include "platform/base/bounded_log.h"
#include "settings/password_scrambling.h"
#include "settings/settings_table.h"
#include "settings/settings_text.h"
#include "support/event_wait.h"
#include "support/file_bytes.h"

namespace vaktor::essai {
namespace {

mode_t Mode(const QString& chemin) {
  struct stat etat {};
  return ::stat(QFile::encodeName(chemin).constData(), &etat) == 0 ? etat.st_mode & 0777 : 0;
}

struct Commun : testing::Test {
  QTemporaryDir Temporaire;
  faux::HorlogeVirtuelle Horloge;
};

struct Journaux : Commun {
  JournalBorne Journal{Temporaire.path(), QStringLiteral("essai"), Horloge, 2000};
};

TEST_F(Journaux, ALineHasDateTimeAndText) {
  Journal.Note("bonjour");
  EXPECT_EQ(LitTexte(Journal.Chemin()), "2020-01-02 09:05:03 bonjour\n");
  EXPECT_EQ(Mode(Journal.Chemin()), 0600U);
}

TEST_F(Journaux, TheSizeIsBoundedAndTheNewestLinesStay) {
  for (int i = 0; i < 1000; ++i) Journal.Note(QStringLiteral("ligne %1").arg(i));
  EXPECT_LE(QFileInfo(Journal.Chemin()).size(), 2000);
  EXPECT_LE(QFileInfo(Journal.Chemin() + ".1").size(), 2000);
  EXPECT_EQ(QDir(Temporaire.path()).entryList(QDir::Files).size(), 2);
  EXPECT_TRUE(LitTexte(Journal.Chemin()).endsWith("ligne 999\n"));
  EXPECT_EQ(Mode(Journal.Chemin()), 0600U);
}

TEST_F(Journaux, AServerCannotForgeALine) {
  Journal.Note(QString::fromUtf8("a\r\n2020-01-02 09:05:03 faux\u2028b\x1b[31m"));
  EXPECT_EQ(LitTexte(Journal.Chemin()).count('\n'), 1);
  EXPECT_FALSE(LitTexte(Journal.Chemin()).contains(QChar(0x1b)));
}

TEST_F(Journaux, SecretsNeverAppear) {
  Journal.CacheSecret("geheim");
  Journal.CacheSecret("geheimnis");
  Journal.CacheSecret("ab");
  Journal.Note("PASS geheimnis, geheim, abc");
  EXPECT_EQ(LitTexte(Journal.Chemin()), "2020-01-02 09:05:03 PASS ***, ***, abc\n");
}

// In the steps of a rehearsal as well: what a server says of a password of two letters must not tell which.
TEST(Lignes, AShortSecretIsNotLookedForAndALongOneGoesBeforeTheOneInside) {
  EXPECT_EQ(NettoieLigne("RCPT: ab is no address", {"ab"}), "RCPT: ab is no address");
  EXPECT_EQ(NettoieLigne("PASS geheimnis", {"geheim", "geheimnis"}), "PASS ***");
  EXPECT_EQ(NettoieLigne("nothing", {""}), "nothing");
}

TEST_F(Journaux, ALongLineIsCut) {
  Journal.Note(QString(100000, u'x'));
  EXPECT_LT(QFileInfo(Journal.Chemin()).size(), 1100);
}

TEST_F(Journaux, ALogThatCannotBeWrittenIsLostInSilence) {
  JournalBorne ailleurs(Temporaire.filePath("pas/la"), "essai", Horloge);
  ailleurs.Note("x");
  EXPECT_FALSE(QFile::exists(ailleurs.Chemin()));
}

struct Etats : Commun {
  QStringList Avis;
  EtatModule Etat{Temporaire.path(), QStringLiteral("VAKTORessai"), Horloge,
                  [this](const QString& titre, const QString& texte) { Avis << titre + ": " + texte; }};
  const AvisEchec Login{"login", "535 wrong", Phrase{"Mot de passe refusé.", "Login refused."}};
  QJsonObject Fichier() const { return QJsonDocument::fromJson(LitTexte(Etat.Chemin()).toUtf8()).object(); }
};

TEST_F(Etats, AFailureIsWrittenInBothLanguagesWithTheServersWords) {
  Etat.Signale(Login);
  EXPECT_EQ(Fichier()["program"], "VAKTORessai");
  EXPECT_EQ(Fichier()["state"], "failure");
  EXPECT_EQ(Fichier()["subject"], "login");
  EXPECT_EQ(Fichier()["server"], "535 wrong");
  EXPECT_EQ(Fichier()["fr"], "Mot de passe refusé.");
  EXPECT_EQ(Fichier()["en"], "Login refused.");
  EXPECT_EQ(Fichier()["since"], "2020-01-02 09:05:03");
  EXPECT_EQ(Mode(Etat.Chemin()), 0600U);
}

TEST_F(Etats, TheUserIsToldOnceAFailure_InTheirLanguage) {
  Etat.Signale(Login);
  Etat.Signale(Login);
  AvisEchec autreMot = Login;
  autreMot.MotsServeur = "535 still wrong";
  Etat.Signale(autreMot);
  EXPECT_EQ(Avis, QStringList("VAKTORessai: Mot de passe refusé. 535 wrong"));
  EXPECT_EQ(Fichier()["server"], "535 still wrong") << "the file has the newest words all the same";
  Etat.ChangeLangue(Langue::kAnglais);
  Etat.Signale({"autre", "", Phrase{"b", "Other."}});
  EXPECT_EQ(Avis.last(), "VAKTORessai: Other.");
}

TEST_F(Etats, AfterASuccessTheSameFailureIsNew) {
  Etat.Signale(Login);
  Etat.Efface();
  EXPECT_EQ(Fichier()["state"], "ok");
  Etat.Signale(Login);
  EXPECT_EQ(Avis.size(), 2);
  EXPECT_EQ(Fichier()["state"], "failure");
}

TEST_F(Etats, TheVerySameStateIsWrittenOnce) {
  Etat.Efface();
  ASSERT_TRUE(QFile::remove(Etat.Chemin()));
  Etat.Efface();
  EXPECT_FALSE(QFile::exists(Etat.Chemin()));
  Etat.Signale(Login);
  ASSERT_TRUE(QFile::remove(Etat.Chemin()));
  Etat.Signale(Login);
  EXPECT_FALSE(QFile::exists(Etat.Chemin()));
}

TEST_F(Etats, FromTheStartItTellsWhoseItIs) {
  Etat.Demarre(4711, 1'763'211'909'000);
  EXPECT_EQ(Fichier()["handle"], 4711);
  EXPECT_EQ(Fichier()["started"], "2025-11-15T13:05:09Z");
  EXPECT_EQ(Fichier()["state"], "ok");
  EXPECT_EQ(Fichier()["program"], "VAKTORessai");
  Etat.Signale(Login);
  EXPECT_EQ(Fichier()["handle"], 4711);
  EXPECT_EQ(Fichier()["state"], "failure");
}

TEST_F(Etats, ASignOfLifeIsWrittenAtOnceWithWhatHadToWait) {
  Etat.Demarre(4711, 1'763'211'909'000);
  EXPECT_EQ(Fichier()["alive"], "2025-11-15T13:05:09Z");
  Etat.Signale(Login);
  Etat.NoteChamp("live_published", "a");
  Etat.NoteChamp("live_published", "b");
  EXPECT_EQ(Fichier()["live_published"], "a");
  Etat.Bat(1'763'211'969'000);
  EXPECT_EQ(Fichier()["alive"], "2025-11-15T13:06:09Z");
  EXPECT_EQ(Fichier()["live_published"], "b");
  EXPECT_EQ(Fichier()["state"], "failure");
  EXPECT_EQ(Fichier()["handle"], 4711);
}

TEST_F(Etats, WhatFailedBeforeARestartStillStandsButNotAnEarlierCompanionsOwnFields) {
  Etat.Demarre(4711, 0);
  Etat.Signale(Login);
  Etat.NoteChamp("live_since", "x");
  EtatModule suivant(Temporaire.path(), "VAKTORessai", Horloge, {});
  suivant.Demarre(4712, 0);
  EXPECT_EQ(Fichier()["handle"], 4712);
  EXPECT_EQ(Fichier()["state"], "failure");
  EXPECT_EQ(Fichier()["since"], "2020-01-02 09:05:03");
  EXPECT_EQ(Fichier()["server"], "535 wrong");
  EXPECT_FALSE(Fichier().contains("live_since"));
  suivant.Efface();
  EXPECT_EQ(Fichier()["state"], "ok");
}

TEST_F(Etats, ADamagedFileOfAnEarlierRunIsReplaced) {
  for (const QByteArray& reste : {QByteArray("{\"state\": 3}"), QByteArray("{\"state"), QByteArray(200'000, '[')}) {
    ASSERT_TRUE(EcritOctets(Etat.Chemin(), reste));
    EtatModule suivant(Temporaire.path(), "VAKTORessai", Horloge, {});
    suivant.Demarre(4712, 0);
    EXPECT_EQ(Fichier()["state"], "ok");
    EXPECT_EQ(Fichier()["handle"], 4712);
  }
}

TEST_F(Etats, AFieldThatComesOrGoesIsWrittenAtOnceANewValueSeldom) {
  Etat.Demarre(4711, 0);
  Etat.NoteChamp("live_published", "1");
  EXPECT_EQ(Fichier()["live_published"], "1");
  EXPECT_EQ(Mode(Etat.Chemin()), 0600U);
  int ecritures = 0;
  for (int i = 2; i <= 100; ++i) {  // an image each half second
    Horloge.Millisecondes += 500;
    const QByteArray avant = LitTexte(Etat.Chemin()).toUtf8();
    Etat.NoteChamp("live_published", QString::number(i));
    ecritures += LitTexte(Etat.Chemin()).toUtf8() == avant ? 0 : 1;
    EXPECT_GE(Fichier()["live_published"].toString().toInt(), i - 10) << "no further behind than five seconds";
  }
  EXPECT_EQ(ecritures, 9);
  Etat.NoteChamp("live_published", {});
  EXPECT_FALSE(Fichier().contains("live_published"));
  ASSERT_TRUE(QFile::remove(Etat.Chemin()));
  Etat.NoteChamp("live_published", {});
  EXPECT_FALSE(QFile::exists(Etat.Chemin())) << "nothing new";
}

TEST_F(Etats, AValueThatHadToWaitIsWrittenThoughItIsTheSame) {
  Etat.NoteChamp("waiting_since", "1");
  Etat.NoteChamp("waiting_since", "2");
  EXPECT_EQ(Fichier()["waiting_since"], "1");
  Horloge.Millisecondes += EtatModule::kRythme;
  Etat.NoteChamp("waiting_since", "2");
  EXPECT_EQ(Fichier()["waiting_since"], "2");
}

TEST_F(Etats, AValueThatHadToWaitIsWrittenByTheNextCallThoughThatHasNothingToSay) {
  Etat.NoteChamp("accepted", "a");
  Etat.NoteChamp("accepted", "b");
  EXPECT_EQ(Fichier()["accepted"], "a");
  Horloge.Millisecondes += EtatModule::kRythme;
  Etat.NoteChamp("waiting_since", {});
  EXPECT_EQ(Fichier()["accepted"], "b");
}

TEST_F(Etats, NoSecretInFileOrNotification) {
  Etat.CacheSecret("geheim");
  Etat.Signale({"x", "no user geheim", Phrase{"geheim", "geheim"}});
  EXPECT_FALSE(LitTexte(Etat.Chemin()).contains("geheim"));
  EXPECT_FALSE(Avis.first().contains("geheim"));
}

/// An environment variable for the time of a test.
class Variable {
 public:
  Variable(const char* nom, const QByteArray& valeur)
      : Nom_(nom), Avant_(qgetenv(nom)), Etait_(qEnvironmentVariableIsSet(nom)) {
    qputenv(nom, valeur);
  }
  ~Variable() {
    if (Etait_)
      qputenv(Nom_, Avant_);
    else
      qunsetenv(Nom_);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* Nom_;
  QByteArray Avant_;
  bool Etait_;
};

struct Notification : Commun {
  const Variable Path{"PATH", QFile::encodeName(Temporaire.path()) + ":" + qgetenv("PATH")};
  const QByteArray Dossier = QFile::encodeName(Temporaire.path());

  /// A desktop's program of the test's own: what `ecrit` writes is in the file "dit" when it is whole.
  void PoseProgramme(const QByteArray& ecrit) const {
    QFile faux(Temporaire.filePath("notify-send"));
    ASSERT_TRUE(faux.open(QIODevice::WriteOnly));
    faux.write("#!/bin/sh\n" + ecrit + " > '" + Dossier + "/x'\nmv '" + Dossier + "/x' '" + Dossier + "/dit'\n");
    faux.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  }
  QString AttendDit() const {
    EXPECT_TRUE(AttendQue([this] { return QFile::exists(Temporaire.filePath("dit")); }));
    return LitTexte(Temporaire.filePath("dit"));
  }
};

TEST_F(Notification, GoesToTheDesktopsProgramWithoutAShell) {
  PoseProgramme("for a in \"$@\"; do echo \"$a\"; done");
  NotifieBureau("-titre", "$(touch mal) <b>gras</b> & \"x\"");
  const QStringList dits = AttendDit().split('\n');
  ASSERT_GE(dits.size(), 5);
  EXPECT_EQ(dits.at(2), "--") << "a title that looks like an option is none";
  EXPECT_EQ(dits.at(3), "-titre");
  EXPECT_EQ(dits.at(4), "$(touch mal) &lt;b&gt;gras&lt;/b&gt; &amp; &quot;x&quot;");
}

// A library may have opened something without saying so, and a desktop's program may stay: the sound device of a
// companion that has ended would be in use.
TEST_F(Notification, TheDesktopsProgramGetsNoneOfOurFiles) {
  PoseProgramme("ls -l /proc/$$/fd");
  const int ouvert = ::open(QFile::encodeName(Temporaire.filePath("a-nous")).constData(), O_CREAT | O_RDWR, 0600);
  ASSERT_GE(ouvert, 3);
  NotifieBureau("titre", "texte");
  const QString herites = AttendDit();
  ::close(ouvert);
  EXPECT_TRUE(herites.contains("->")) << herites.toStdString();
  EXPECT_FALSE(herites.contains("a-nous")) << herites.toStdString();
}

TEST_F(Commun, WithoutADesktopANotificationIsNothing) {
  const Variable path("PATH", QFile::encodeName(Temporaire.path()));
  EXPECT_NO_THROW(NotifieBureau("titre", "texte"));
}

TEST_F(Commun, APrivateFolderHoldsEverything) {
  const Variable prive("VAKTOR_DOSSIER", QFile::encodeName(Temporaire.path()));
  const DossiersModule dossiers = TrouveDossiersModule();
  EXPECT_EQ(dossiers.FichierReglages, Temporaire.path() + "/vaktor.ini");
  EXPECT_EQ(dossiers.Programme.Donnees, Temporaire.path());
  EXPECT_EQ(dossiers.Etat, Temporaire.path() + "/etat");
  EXPECT_EQ(Mode(dossiers.Etat), 0700U);
}

TEST_F(Commun, WithoutOneTheUsersFoldersAre) {
  const Variable prive("VAKTOR_DOSSIER", "");
  const Variable config("XDG_CONFIG_HOME", QFile::encodeName(Temporaire.filePath("c")));
  const Variable etat("XDG_STATE_HOME", QFile::encodeName(Temporaire.filePath("s")));
  const DossiersModule dossiers = TrouveDossiersModule();
  EXPECT_EQ(dossiers.FichierReglages, Temporaire.path() + "/c/vaktor/vaktor.ini");
  EXPECT_EQ(dossiers.Etat, Temporaire.path() + "/s/vaktor");
}

TEST_F(Commun, TheStateFolderHasItsUsualPlace) {
  const Variable prive("VAKTOR_DOSSIER", "");
  const Variable maison("HOME", QFile::encodeName(Temporaire.path()));
  const Variable etat("XDG_STATE_HOME", "relatif");
  EXPECT_EQ(TrouveDossiersModule().Etat, Temporaire.path() + "/.local/state/vaktor");
}

TEST(Parametres, TheWholeTableComesOutOfTheStore) {
  FauxMagasin magasin;
  magasin.Valeurs = {{"MAIL/destination", "a@b"},
                     {"MAIL/pass", CryptePass("abc")},
                     {"MAIL/smtpactif", "False"},
                     {"FTP/refresh", "0,5"},
                     {"FTP/width", "640"},
                     {"FTP/height", "480"},
                     {"FTP/pass", CryptePass("def")},
                     {"SON/index", "3"},
                     {"SON/Repertoire", "/x.wav"},
                     {"general/langue", "1"}};
  const ReglagesModule reglages = LitReglagesModule(magasin, "/p\\intrus");
  EXPECT_EQ(reglages.Valeurs.MailDestination, "a@b");
  EXPECT_EQ(reglages.Valeurs.SmtpPass, "abc");
  EXPECT_FALSE(reglages.Valeurs.SmtpActif);
  EXPECT_EQ(reglages.Valeurs.IntervalleFtp, "0,5");
  EXPECT_EQ(reglages.Valeurs.MotDePasseFtp, "def");
  EXPECT_EQ(reglages.Valeurs.IndexSon, 3);
  EXPECT_EQ(reglages.Valeurs.FichierSon, "/x.wav");
  EXPECT_EQ(reglages.Valeurs.LangueCourante, 1);
  EXPECT_EQ(reglages.Largeur, "640");
  EXPECT_EQ(reglages.Hauteur, "480");
  EXPECT_TRUE(magasin.Ecrits.isEmpty()) << "a companion never writes";
}

// Through the file as the main program writes it: scrambled, and in clear where a sign has no code.
TEST(Parametres, ANoBreakSpaceOfAPasswordComesOutOfTheStoreAsItWentIn) {
  for (const char16_t* passe : {u"\u00a0", u"\u00a0p\u00a0w\u00a0", u"\u00a0p\u6f22w\u00a0"}) {
    Parametres tapes;
    tapes.SmtpPass = tapes.MotDePasseFtp = QString::fromUtf16(passe);
    ValeursReglages ecrites;
    for (const LigneReglage& ligne : TableReglages()) ecrites.insert(NomReglage(ligne), TexteValeur(ligne, tapes));
    FauxMagasin magasin;
    magasin.Valeurs = LitTexteReglages(EcritTexteReglages(ecrites)).Valeurs;
    const Parametres lus = LitReglagesModule(magasin, "/p\\intrus").Valeurs;
    EXPECT_EQ(lus.SmtpPass, tapes.SmtpPass);
    EXPECT_EQ(lus.MotDePasseFtp, tapes.MotDePasseFtp);
  }
}

TEST(Parametres, AnEmptyOrDamagedStoreGivesTheValuesOfAFirstRun) {
  FauxMagasin magasin;
  const Parametres neufs = LitReglagesModule(magasin, "/p\\intrus").Valeurs;
  EXPECT_EQ(neufs.SmtpPort, "25");
  EXPECT_EQ(neufs.IndexQualite, 2);
  EXPECT_EQ(neufs.QualiteJpeg, 20);
  EXPECT_EQ(neufs.RepertoirePhoto, "/p\\intrus");
  magasin.Valeurs = {{"SON/index", "abc"}, {"FTP/qualitephoto", "77"}, {"MAIL/smtpneedlogin", "peut-etre"}};
  const Parametres sales = LitReglagesModule(magasin, "/p\\intrus").Valeurs;
  EXPECT_EQ(sales.IndexSon, 0);
  EXPECT_EQ(sales.IndexQualite, 2);
  EXPECT_TRUE(sales.SmtpNeedLogin);
}

TEST(Parametres, AHandleThatIsNoNumberIsNone) {
  FauxMagasin magasin;
  EXPECT_EQ(LitHwndvk(magasin, "SON"), 0);
  magasin.Valeurs = {{"SON/HWNDVK", "70000"}, {"FTP/HWNDVK", "x"}};
  EXPECT_EQ(LitHwndvk(magasin, "SON"), 70000);
  EXPECT_EQ(LitHwndvk(magasin, "FTP"), 0);
}

}  // namespace
}  // namespace vaktor::essai
