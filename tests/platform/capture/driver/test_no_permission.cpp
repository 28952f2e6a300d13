// SPDX-License-Identifier: GPL-3.0-or-later
// A camera and a film that their user may not open: the system really refuses them here, also where root runs the
// tests.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFileInfo>
#include <cerrno>

#include "platform/capture/devices/device_access.h"
#include "support/capture_clips.h"
#include "support/driver_fixture.h"
#include "support/open_watch.h"
#include "support/ordinary_user.h"

namespace vaktor {
namespace {

constexpr gid_t kGroupeQuelconque = 1;

class SansPermission : public PiloteSurSource {
 protected:
  void SetUp() override {
    PrepareGStreamer();  // its list of plugins may lie where only root reads
    Noeud_ = Fichier("video7");
    QFile noeud(Noeud_);
    ASSERT_TRUE(noeud.open(QIODevice::WriteOnly));
    // Root's own group is never named; nobody but root can give a file to another.
    if (::geteuid() == 0) {
      ASSERT_EQ(::chown(qPrintable(Noeud_), 0, kGroupeQuelconque), 0);
    }
    ASSERT_EQ(::chmod(qPrintable(Dossier_.path()), 0755), 0);
  }
  static void Permet(const QString& fichier, bool permis) {
    ASSERT_EQ(::chmod(qPrintable(fichier), permis ? 0666 : 0), 0);
  }
  // Found, and yet refused: anything else would be another test.
  static void AssureRefus(const QString& fichier) {
    ASSERT_TRUE(QFileInfo::exists(fichier));
    errno = 0;
    ASSERT_EQ(::open(qPrintable(fichier), O_RDWR | O_NONBLOCK | O_CLOEXEC), -1);
    ASSERT_EQ(errno, EACCES);
  }
  QList<PeripheriqueVideo> Liste() const {
    QuestionsV4L2 questions;
    questions.Noeuds = [this] { return QStringList{Noeud_}; };
    const AccesV4L2 acces(questions, {});
    QList<PeripheriqueVideo> liste = acces.Peripheriques();
    EXPECT_TRUE(acces.Muets().isEmpty()) << "refused is not silent";
    return liste;
  }
  // What is below /dev is a device to the driver.
  bool ConnecteNoeud() { return Connecte(QStringLiteral("/dev/..") + Noeud_); }

  QString Noeud_;
};

TEST_F(SansPermission, ARefusedNodeIsNoCameraOfTheList) {
  GuetOuvertures guet(Noeud_);
  ASSERT_TRUE(guet.Veille());
  ASSERT_NO_FATAL_FAILURE(Permet(Noeud_, false));
  {
    const UtilisateurOrdinaire ordinaire;
    if (!ordinaire.Reussi()) GTEST_SKIP() << "root cannot become anybody else here, and nothing is refused to root";
    ASSERT_NO_FATAL_FAILURE(AssureRefus(Noeud_));
    EXPECT_TRUE(Liste().isEmpty());
    EXPECT_TRUE(ListeFormats(Noeud_).isEmpty());
    EXPECT_TRUE(ListeReglages(Noeud_).isEmpty());
    EXPECT_FALSE(AppliqueReglage(Noeud_, 0x00980900, 1));
  }
  EXPECT_FALSE(guet.Ouvert()) << "it was not refused";
  ASSERT_NO_FATAL_FAILURE(Permet(Noeud_, true));
  Liste();
  EXPECT_TRUE(guet.Ouvert()) << "it was not even asked for before";
}

TEST_F(SansPermission, ARefusedNodeGivesNoConnection) {
  GuetOuvertures guet(Noeud_);
  ASSERT_TRUE(guet.Veille());
  ASSERT_NO_FATAL_FAILURE(Permet(Noeud_, false));
  {
    const UtilisateurOrdinaire ordinaire;
    if (!ordinaire.Reussi()) GTEST_SKIP() << "root cannot become anybody else here, and nothing is refused to root";
    ASSERT_NO_FATAL_FAILURE(AssureRefus(Noeud_));
    EXPECT_FALSE(ConnecteNoeud());
    EXPECT_EQ(Pilote_->Pourquoi(), (Raison{Motif::kSansPermission, QFileInfo(Noeud_).group()})) << "whom to ask for";
    EXPECT_FALSE(SaisitProchaine(*Pilote_));
    EXPECT_TRUE(Pilote_->ChangeSource(QStringLiteral("test"))) << "and another camera can be taken";
    EXPECT_TRUE(SaisitProchaine(*Pilote_));
    Pilote_.reset();
  }
  EXPECT_FALSE(guet.Ouvert()) << "it was not refused";
  ASSERT_NO_FATAL_FAILURE(Permet(Noeud_, true));
  EXPECT_FALSE(ConnecteNoeud()) << "an ordinary file";
  EXPECT_TRUE(guet.Ouvert()) << "it was not even asked for before";
}

// As the system makes it, before its rules have come to it.
TEST_F(SansPermission, ANodeThatIsStillRootsSendsNobodyIntoRootsGroup) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can give a node to root";
  EXPECT_EQ(NomGroupe(Noeud_), QFileInfo(Noeud_).group());
  ASSERT_EQ(::chown(qPrintable(Noeud_), 0, 0), 0);
  EXPECT_EQ(NomGroupe(Noeud_), "video");
}

TEST_F(SansPermission, AFilmIsRefusedUntilItsUserMayReadIt) {
  const QString film = Fichier("film.avi");
  ASSERT_TRUE(FabriqueFilm(film, QStringLiteral("width=160,height=120,framerate=25/1"), 50,
                           QStringLiteral("jpegenc ! avimux")));
  ASSERT_NO_FATAL_FAILURE(Permet(film, false));
  {
    const UtilisateurOrdinaire ordinaire;
    if (!ordinaire.Reussi()) GTEST_SKIP() << "root cannot become anybody else here, and nothing is refused to root";
    ASSERT_NO_FATAL_FAILURE(AssureRefus(film));
    EXPECT_FALSE(Connecte(film));
    EXPECT_EQ(Pilote_->Pourquoi(), (Raison{Motif::kSansPermission, {}}));
    EXPECT_FALSE(SaisitProchaine(*Pilote_));
    Pilote_.reset();
  }
  ASSERT_NO_FATAL_FAILURE(Permet(film, true));
  EXPECT_TRUE(Connecte(film));
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
}

}  // namespace
}  // namespace vaktor
