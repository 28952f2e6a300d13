// SPDX-License-Identifier: GPL-3.0-or-later
// The outbox on a disk that loses what was not flushed, and the small things of the system that keep a mail whole and
// private.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <thread>

#include "fakes/virtual_clock.h"
#include "modules/mail/drafts.h"
#include "modules/mail/outbox.h"
#include "modules/mail/watch_folder.h"
#include "modules/mail/watch_mails.h"
#include "modules/mail/watch_message.h"
#include "platform/store/private_file.h"
#include "support/event_wait.h"
#include "support/file_bytes.h"
#include "support/inherited_files.h"
#include "support/volatile_disk_bench.h"

namespace vaktor::essai {
namespace {

CourrielEnAttente Nomme(const QString& nom) {
  CourrielEnAttente c;
  c.Nom = nom;
  c.Destinataires = QStringList{"anna@exemple.fr"};
  c.FaitA = 1'700'000'000'000;
  return c;
}

struct CourantCoupe : SurDisqueVolatil {
  QStringList Fichiers() const { return QDir(Chemin()).entryList(QDir::Files, QDir::Name); }
};

TEST_F(CourantCoupe, AMailInTheMakingIsThereAfterwards) {
  SacPostal sac(Chemin());
  ASSERT_EQ(sac.PoseBrouillon(Nomme("a"), "message"), 0);
  ASSERT_TRUE(Disque->CoupeCourant());
  EXPECT_EQ(Fichiers(), QStringList{"a.draft"});
  LecteurPhotos photos;
  RecupereSac(sac, photos);
  ASSERT_EQ(sac.Liste().size(), 1);
  EXPECT_EQ(sac.LitMessage("a"), "message");
}

TEST_F(CourantCoupe, AnOutboxThatHasJustBeenMadeIsThereAfterwards) {
  SacPostal sac(Chemin("/etat/courrier"));
  ASSERT_EQ(sac.PoseBrouillon(Nomme("a"), "message"), 0);
  ASSERT_TRUE(Disque->CoupeCourant());
  EXPECT_TRUE(QFile::exists(Chemin("/etat/courrier/a.draft")));
}

TEST_F(CourantCoupe, AMailThatMayLeaveMayLeaveAfterwards) {
  SacPostal sac(Chemin());
  ASSERT_EQ(sac.PoseBrouillon(Nomme("a"), "message"), 0);
  ASSERT_TRUE(sac.Publie("a"));
  ASSERT_TRUE(Disque->CoupeCourant());
  EXPECT_EQ(Fichiers(), QStringList{"a.mail"});
}

TEST_F(CourantCoupe, AMailThatWasTakenDoesNotGoAgain) {
  SacPostal sac(Chemin());
  ASSERT_EQ(sac.PoseBrouillon(Nomme("a"), "message"), 0);
  ASSERT_TRUE(sac.Publie("a"));
  sac.Acheve("a");
  ASSERT_TRUE(Disque->CoupeCourant());
  EXPECT_TRUE(sac.Liste().isEmpty());
}

TEST_F(CourantCoupe, WhatTheDiskCannotFlushIsNoMail) {
  SacPostal sac(Chemin());
  ASSERT_TRUE(Disque->RefuseDeVider());
  EXPECT_EQ(sac.PoseBrouillon(Nomme("a"), "message"), EIO);
  EXPECT_TRUE(Fichiers().isEmpty());
}

TEST_F(CourantCoupe, AMessageOfTheWatchWhoseMailIsMadeDoesNotComeBack) {
  const QString message = Chemin("/1700000000000-1.json");
  ASSERT_TRUE(EcritOctets(message, "{}"));
  EcritDossierSurDisque(message);
  ASSERT_TRUE(Disque->CoupeCourant());
  const DossierVeille veille(Chemin());
  ASSERT_EQ(veille.Liste().size(), 1) << "it was there";
  ASSERT_TRUE(veille.Efface(veille.Liste().first()));
  ASSERT_TRUE(Disque->CoupeCourant());
  EXPECT_TRUE(veille.Liste().isEmpty());
}

// Such a message was told once, and the mail of it has left the outbox since: nothing there tells any more that it was.
TEST_F(CourantCoupe, AMessageOfTheWatchThatNobodyCanDeleteBecomesOneMail) {
  const qint64 faitA = 1'700'000'000'000;
  const QString veille = Chemin("/veille");
  const QString boite = Ailleurs() + "/courrier";
  PoseMessage(veille, QStringLiteral("%1-1").arg(faitA));
  const faux::HorlogeVirtuelle horloge;
  JournalBorne journal(Ailleurs(), "essai", horloge);
  SacPostal sac(boite);
  LecteurPhotos photos;
  BrouillonsEnRetard retard(sac, photos);
  CourriersVeille courriers(veille, sac, retard, "essai", journal);
  ReglagesCourriel reglages;
  reglages.Adresses.Destinataires = QStringList{"anna@exemple.fr"};
  ASSERT_TRUE(Disque->GardeTout());
  EXPECT_EQ(courriers.Prend(reglages, faitA).Pris, 1);
  EXPECT_EQ(DossierVeille(veille).Liste().size(), 1) << "it is still there";
  std::optional<qint64> attend;
  EXPECT_EQ(courriers.LitPlusAncien(attend), 0);
  EXPECT_FALSE(attend) << "and waits for nothing";
  ASSERT_EQ(sac.Liste().size(), 1);
  sac.Acheve(sac.Liste().first().Nom);
  EXPECT_EQ(courriers.Prend(reglages, faitA).Pris, 0);
  EXPECT_TRUE(sac.Liste().isEmpty());
}

struct Brouillon : testing::Test {
  QTemporaryDir Temporaire;
  SacPostal Sac{Temporaire.path()};
  QByteArray Partiel = QFile::encodeName(Temporaire.filePath("a.draft.part"));
};

TEST_F(Brouillon, ALinkInItsPlaceIsNotFollowed) {
  const QString autre = Temporaire.filePath("autre");
  ASSERT_TRUE(EcritOctets(autre, "somebody's"));
  ASSERT_EQ(::symlink(QFile::encodeName(autre).constData(), Partiel.constData()), 0);
  EXPECT_EQ(Sac.PoseBrouillon(Nomme("a"), "message"), ELOOP);
  EXPECT_EQ(LitOctets(autre), "somebody's");
}

TEST_F(Brouillon, WhatAKillLeftInItsPlaceIsNoPartOfIt) {
  ASSERT_TRUE(EcritOctets(QFile::decodeName(Partiel), QByteArray(5000, 'x')));
  ASSERT_EQ(Sac.PoseBrouillon(Nomme("a"), "message"), 0);
  ASSERT_TRUE(Sac.Publie("a"));
  EXPECT_EQ(Sac.LitMessage("a"), "message");
}

// Whatever is started meanwhile, the system's mail program before all, has no business with it. A pipe in the place of
// the file holds the writing up for as long as the test likes.
TEST_F(Brouillon, AProgramThatIsStartedMeanwhileDoesNotInheritIt) {
  std::signal(SIGPIPE, SIG_IGN);
  ASSERT_EQ(::mkfifo(Partiel.constData(), 0600), 0);
  const int lecture = ::open(Partiel.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(lecture, 0);
  std::thread ecrit([this] { Sac.PoseBrouillon(Nomme("a"), QByteArray(4'000'000, 'x')); });
  char octet = 0;
  EXPECT_TRUE(AttendQue([&] { return ::read(lecture, &octet, 1) == 1; })) << "it is open";
  const QByteArray ouverts = LitHerites();
  ::close(lecture);  // now the writing fails, and ends
  ecrit.join();
  EXPECT_TRUE(ouverts.contains("->")) << ouverts.constData();
  EXPECT_FALSE(ouverts.contains("a.draft.part")) << ouverts.constData();
}

}  // namespace
}  // namespace vaktor::essai
