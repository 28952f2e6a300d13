// SPDX-License-Identifier: GPL-3.0-or-later
// The channel on real sockets, with well and badly behaved peers.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTimer>

#include "base/failure.h"
#include "platform/channel/local_channel.h"
#include "platform/channel/socket_address.h"
#include "support/event_wait.h"
#include "support/without_descriptors.h"

namespace vaktor::essai {
namespace {

/// A peer with a plain socket, as any program in any language has it.
class Pair {
 public:
  explicit Pair(const DossierCanal& dossier) : Dossier_(dossier), Socket_(::socket(AF_UNIX, SOCK_DGRAM, 0)) {}
  ~Pair() { ::close(Socket_); }
  Pair(const Pair&) = delete;
  Pair& operator=(const Pair&) = delete;
  bool Envoie(qint32 poignee, const QByteArray& octets, int drapeaux = 0) const {
    const auto adresse = FormeAdresse(Dossier_.DonneAdresse(poignee));
    return ::sendto(Socket_, octets.constData(), static_cast<std::size_t>(octets.size()), drapeaux, EnGeneral(*adresse),
                    sizeof *adresse) == octets.size();
  }

 private:
  const DossierCanal& Dossier_;
  int Socket_;
};

struct Canal : testing::Test {
  QTemporaryDir Temporaire;
  DossierCanal Dossier{Temporaire.filePath("vaktor")};
  CanalLocal Local{Dossier};
  Pair Autre{Dossier};
  QStringList Recus;
  qint32 OuvreNotant() {
    return Local.OuvreCasier([this](const QString& texte) { Recus << texte; });
  }
};

TEST_F(Canal, TextsArriveWholeAndInOrder) {
  const qint32 casier = OuvreNotant();
  EXPECT_TRUE(Autre.Envoie(casier, "HWND:12345"));
  EXPECT_TRUE(Autre.Envoie(casier, "Conne"));
  EXPECT_TRUE(Autre.Envoie(casier, "ConOK\n"));
  EXPECT_TRUE(Recus.isEmpty()) << "nothing arrives but through the event loop";
  ASSERT_TRUE(AttendQue([this] { return Recus.size() == 3; }));
  EXPECT_EQ(Recus, QStringList({"HWND:12345", "Conne", "ConOK"}));
}

TEST_F(Canal, HandlesAreAllDifferentAndNamedInDecimal) {
  const qint32 a = OuvreNotant();
  const qint32 b = OuvreNotant();
  EXPECT_NE(a, b);
  EXPECT_GT(a, 0);
  EXPECT_EQ(Dossier.Repond(a), true);
  EXPECT_EQ(QDir(Dossier.Chemin()).entryList(QDir::System).contains(QString::number(a)), true);
}

TEST_F(Canal, AClosedBoxAnswersNoMore) {
  const qint32 casier = OuvreNotant();
  Autre.Envoie(casier, "Conne");
  Local.FermeCasier(casier);
  EXPECT_EQ(Dossier.Repond(casier), false);
  EXPECT_FALSE(Autre.Envoie(casier, "Conne"));
  QCoreApplication::processEvents();
  EXPECT_TRUE(Recus.isEmpty());
  Local.FermeCasier(casier);
}

TEST_F(Canal, ABoxMayBeClosedByItsOwnWord) {
  qint32 casier = 0;
  int recus = 0;
  casier = Local.OuvreCasier([&](const QString&) {
    ++recus;
    Local.FermeCasier(casier);
  });
  Autre.Envoie(casier, "Quit*");
  Autre.Envoie(casier, "Quit*");
  ASSERT_TRUE(AttendQue([&] { return recus == 1; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(recus, 1);
}

TEST_F(Canal, PostingToNobodyIsSwallowed) {
  for (const qint32 poignee : {0, -5, 1, 424242}) Local.PosteTouche(poignee, 65, Tenue::kGardee);
  QList<QByteArray> recus;
  const CasierLocal fenetre(Dossier, [&recus](const QByteArray& message) { recus << message; });
  Local.PosteTouche(fenetre.Poignee(), 66, Tenue::kGardee);
  ASSERT_TRUE(AttendQue([&] { return !recus.isEmpty(); }));
  EXPECT_EQ(recus, QList<QByteArray>{"66"}) << "whoever is there still gets his own";
}

TEST_F(Canal, CommandsArriveAsDecimalCodesInOrder) {
  QList<QByteArray> recus;
  const CasierLocal fenetre(Dossier, [&recus](const QByteArray& message) { recus << message; });
  for (qint32 code = 65; code < 72; ++code) Local.PosteTouche(fenetre.Poignee(), code, Tenue::kGardee);
  ASSERT_TRUE(AttendQue([&recus] { return recus.size() == 7; }));
  EXPECT_EQ(recus, QList<QByteArray>({"65", "66", "67", "68", "69", "70", "71"}));
}

TEST_F(Canal, AFullBoxLosesNoWordAndHoldsNobodyUp) {
  QList<QByteArray> recus;
  const CasierLocal fenetre(Dossier, [&recus](const QByteArray& message) { recus << message; });
  EmetteurLocal emetteur(Dossier);
  // Far more than the kernel keeps for a process that does not listen; all of it goes out before the loop runs once.
  for (int i = 0; i < 200; ++i) emetteur.Poste(fenetre.Poignee(), QByteArray::number(i));
  ASSERT_TRUE(AttendQue([&recus] { return recus.size() == 200; }));
  for (int i = 0; i < 200; ++i) EXPECT_EQ(recus.at(i), QByteArray::number(i));
}

TEST_F(Canal, WhatWaitsForAWindowThatNeverListensIsBounded) {
  const CasierLocal fenetre(Dossier, [](const QByteArray&) {});
  EmetteurLocal emetteur(Dossier);
  for (int i = 0; i < 100000; ++i) emetteur.Poste(fenetre.Poignee(), "66");
  EXPECT_EQ(emetteur.EnAttente(fenetre.Poignee()), EmetteurLocal::kMotsMax);
}

TEST_F(Canal, WhatWaitsForAWindowThatGoesIsForgotten) {
  auto fenetre = std::make_unique<CasierLocal>(Dossier, [](const QByteArray&) {});
  const qint32 poignee = fenetre->Poignee();
  EmetteurLocal emetteur(Dossier);
  for (int i = 0; i < 2000; ++i) emetteur.Poste(poignee, "66");
  EXPECT_GT(emetteur.EnAttente(poignee), 0);
  fenetre.reset();
  EXPECT_TRUE(AttendQue([&] { return emetteur.EnAttente(poignee) == 0; }));
}

TEST_F(Canal, OneFullWindowDoesNotHoldUpAnother) {
  const CasierLocal sourde(Dossier, [](const QByteArray&) {});
  for (int i = 0; i < 300; ++i) Local.PosteTouche(sourde.Poignee(), 66, Tenue::kGardee);
  QList<QByteArray> recus;
  const CasierLocal vive(Dossier, [&recus](const QByteArray& message) { recus << message; });
  Local.PosteTouche(vive.Poignee(), 67, Tenue::kGardee);
  EXPECT_TRUE(AttendQue([&recus] { return !recus.isEmpty(); }));
}

TEST_F(Canal, HugeHalfAndBinaryMessagesDoNoHarm) {
  const qint32 casier = OuvreNotant();
  EXPECT_FALSE(Autre.Envoie(casier, QByteArray(100 << 20, 'x'))) << "the system refuses it at the sender's side";
  EXPECT_TRUE(Autre.Envoie(casier, QByteArray(100000, 'x')));
  EXPECT_TRUE(Autre.Envoie(casier, QByteArray(kMessageMax + 1, 'x')));
  EXPECT_TRUE(Autre.Envoie(casier, QByteArray("\xff\x00\xfe\x80\n\x01", 6)));
  EXPECT_TRUE(Autre.Envoie(casier, "Con"));
  EXPECT_TRUE(Autre.Envoie(casier, ""));
  EXPECT_TRUE(Autre.Envoie(casier, QByteArray(kMessageMax, 'y')));
  EXPECT_TRUE(Autre.Envoie(casier, "Decon"));
  ASSERT_TRUE(AttendQue([this] { return Recus.contains("Decon"); }));
  ASSERT_EQ(Recus.size(), 5) << "the two that were too long are gone, everything else came";
  EXPECT_EQ(Recus.at(1), "Con");
  EXPECT_EQ(Recus.at(2), "");
  EXPECT_EQ(Recus.at(3).size(), kMessageMax);
}

TEST_F(Canal, AWordThatFailsLeavesTheOnesBehind) {
  const qint32 casier = Local.OuvreCasier([this](const QString& texte) {
    if (texte == "mauvais") throw Echec(kTypeIncompatible, "mauvais");
    Recus << texte;
  });
  Autre.Envoie(casier, "avant");
  Autre.Envoie(casier, "mauvais");
  Autre.Envoie(casier, "apres");
  int echecs = 0;
  const QDeadlineTimer fin(kPatience);
  while (Recus.size() < 2 && !fin.hasExpired()) {
    try {
      QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    } catch (const Echec&) {
      ++echecs;
    }
  }
  EXPECT_EQ(echecs, 1);
  EXPECT_EQ(Recus, QStringList({"avant", "apres"}));
}

TEST_F(Canal, AWordIsNotHandledInsideAnother) {
  int profondeur = 0;
  int plusProfond = 0;
  const qint32 casier = Local.OuvreCasier([&](const QString& texte) {
    plusProfond = qMax(plusProfond, ++profondeur);
    Local.PosteTouche(1, 65, Tenue::kGardee);
    Recus << texte;
    --profondeur;
  });
  for (int i = 0; i < 6; ++i) Autre.Envoie(casier, "Conne");
  ASSERT_TRUE(AttendQue([this] { return Recus.size() == 6; }));
  EXPECT_EQ(plusProfond, 1);
}

TEST_F(Canal, APeerThatNeverStopsLeavesTheLoopToTheFrames) {
  const qint32 casier = OuvreNotant();
  const pid_t bavard = ::fork();
  ASSERT_GE(bavard, 0);
  if (bavard == 0) {
    const Pair pair(Dossier);
    for (;;) pair.Envoie(casier, "Conne");  // blocks while the box is full, as a hostile peer's writes would
  }
  int images = 0;
  qsizetype motsEntreImages = 0;
  qsizetype avant = 0;
  QTimer tic;
  tic.setTimerType(Qt::PreciseTimer);
  QObject::connect(&tic, &QTimer::timeout, [&] {
    ++images;
    motsEntreImages = qMax(motsEntreImages, Recus.size() - avant);
    avant = Recus.size();
  });
  tic.start(30);
  EXPECT_TRUE(AttendQue([&images] { return images >= 20; }));
  ::kill(bavard, SIGKILL);
  ::waitpid(bavard, nullptr, 0);
  EXPECT_GT(Recus.size(), 20) << "words do flow";
  EXPECT_EQ(Recus.count("Conne"), Recus.size());
}

TEST_F(Canal, ABurstIsTakenInPortions) {
  const qint32 casier = OuvreNotant();
  for (int i = 0; i < 9; ++i) Autre.Envoie(casier, "Conne", MSG_DONTWAIT);
  // A full portion makes the box rest: turns of the loop without waiting bring no more than that portion.
  for (int i = 0; i < 8; ++i) QCoreApplication::processEvents();
  EXPECT_LE(Recus.size(), CasierLocal::kMessagesParRafale);
  EXPECT_TRUE(AttendQue([this] { return Recus.size() == 9; }));
}

TEST_F(Canal, WhatACrashLeftIsSweptAndTheLivingAreLeft) {
  const qint32 vivante = OuvreNotant();
  const auto adresse = FormeAdresse(Dossier.DonneAdresse(777777));
  const int mort = ::socket(AF_UNIX, SOCK_DGRAM, 0);
  ASSERT_EQ(LieSocket(mort, *adresse), 0);
  ::close(mort);  // closed without removing its name, as a crash does
  QFile etranger(Dossier.Chemin() + "/lettre");
  ASSERT_TRUE(etranger.open(QIODevice::WriteOnly));
  EXPECT_EQ(Dossier.Repond(777777), false);
  const CanalLocal second(Dossier);
  EXPECT_FALSE(QFileInfo::exists(QFile::decodeName(Dossier.DonneAdresse(777777))) ||
               QDir(Dossier.Chemin()).entryList(QDir::System).contains("777777"));
  EXPECT_EQ(Dossier.Repond(vivante), true);
  EXPECT_TRUE(etranger.exists());
}

TEST_F(Canal, WithoutADescriptorNobodyCountsAsGone) {
  const qint32 vivante = OuvreNotant();
  {
    const SansDescripteur sans;
    EXPECT_EQ(Dossier.Repond(vivante), std::nullopt);
    Dossier.RetireSiPerimee(vivante);
  }
  EXPECT_EQ(Dossier.Repond(vivante), true);
}

TEST_F(Canal, TwoInstancesShareTheFolder) {
  CanalLocal second(Dossier);
  QStringList autres;
  const qint32 a = OuvreNotant();
  const qint32 b = second.OuvreCasier([&autres](const QString& texte) { autres << texte; });
  Autre.Envoie(a, "pour a");
  Autre.Envoie(b, "pour b");
  ASSERT_TRUE(AttendQue([&] { return !Recus.isEmpty() && !autres.isEmpty(); }));
  EXPECT_EQ(Recus, QStringList("pour a"));
  EXPECT_EQ(autres, QStringList("pour b"));
}

TEST_F(Canal, TheFolderIsForItsUserAlone) {
  struct stat etat {};
  ASSERT_EQ(::stat(QFile::encodeName(Dossier.Chemin()).constData(), &etat), 0);
  EXPECT_EQ(etat.st_mode & 0777, 0700U);
}

TEST_F(Canal, AFolderThatOthersCanEnterIsRefused) {
  const QString ouvert = Temporaire.filePath("ouvert");
  ASSERT_TRUE(QDir().mkdir(ouvert));
  ASSERT_EQ(::chmod(QFile::encodeName(ouvert).constData(), 0755), 0);
  EXPECT_THROW(DossierCanal{ouvert}, Echec);
}

TEST_F(Canal, APlantedLinkIsRefused) {
  const QString lien = Temporaire.filePath("lien");
  ASSERT_TRUE(QFile::link(Dossier.Chemin(), lien));
  EXPECT_THROW(DossierCanal{lien}, Echec);
  EXPECT_THROW(DossierCanal{Temporaire.filePath("pas/la")}, Echec);
}

struct Variable {
  Variable(const char* nom, const QByteArray& valeur)
      : Nom(nom), Avant(qgetenv(nom)), Etait(qEnvironmentVariableIsSet(nom)) {
    valeur.isEmpty() ? qunsetenv(nom) : qputenv(nom, valeur);
  }
  ~Variable() { Etait ? qputenv(Nom, Avant) : qunsetenv(Nom); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  const char* Nom;
  QByteArray Avant;
  bool Etait;
};

// In a shared folder anybody may have made it first.
TEST(ChannelFolder, OneThatIsTakenFallsBackToTheUsersOwn) {
  const QTemporaryDir temporaire;
  const Variable marche("XDG_RUNTIME_DIR", QFile::encodeName(temporaire.path()));
  const Variable etat("XDG_STATE_HOME", QFile::encodeName(temporaire.filePath("state")));
  const Variable canal("VAKTOR_CANAL", {});
  EXPECT_EQ(DossierCanal::TrouveChemin(), temporaire.filePath("vaktor"));
  ASSERT_EQ(::chmod(QFile::encodeName(temporaire.filePath("vaktor")).constData(), 0755), 0);
  EXPECT_EQ(DossierCanal::TrouveChemin(), temporaire.filePath("state/vaktor/canal"));
  EXPECT_EQ(DossierCanal().Chemin(), temporaire.filePath("state/vaktor/canal")) << "and it can be used";
  const Variable nomme("VAKTOR_CANAL", "/somewhere");
  EXPECT_EQ(DossierCanal::TrouveChemin(), "/somewhere") << "what the main program uses counts for its companions";
}

TEST_F(Canal, AWordOfAnotherUserIsDropped) {
  if (::getuid() != 0) GTEST_SKIP() << "only root can speak as somebody else";
  const qint32 casier = OuvreNotant();
  // The folder keeps others out; opened here to see that the second lock holds on its own.
  ASSERT_EQ(::chmod(QFile::encodeName(Temporaire.path()).constData(), 0755), 0);
  ASSERT_EQ(::chmod(QFile::encodeName(Dossier.Chemin()).constData(), 0777), 0);
  ASSERT_EQ(::chmod(Dossier.DonneAdresse(casier).constData(), 0777), 0);
  const pid_t etranger = ::fork();
  ASSERT_GE(etranger, 0);
  if (etranger == 0) {
    if (::setuid(65534) != 0) ::_exit(2);
    const Pair pair(Dossier);
    ::_exit(pair.Envoie(casier, "HWND:1") ? 0 : 1);
  }
  int issue = 0;
  ASSERT_EQ(::waitpid(etranger, &issue, 0), etranger);
  ASSERT_EQ(WEXITSTATUS(issue), 0) << "the stranger's word did reach the box";
  Autre.Envoie(casier, "Conne");
  ASSERT_TRUE(AttendQue([this] { return !Recus.isEmpty(); }));
  EXPECT_EQ(Recus, QStringList("Conne"));
}

}  // namespace
}  // namespace vaktor::essai
