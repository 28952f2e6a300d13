// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever throws on the way out, the process ends, everything behind it is still done, and the status says so.
#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>
#include <stdexcept>

#include "app/program_fixture.h"
#include "app/way_out.h"

namespace vaktor::essai {
namespace {

class Sortie : public ProgrammeSurFaux {
 protected:
  static constexpr int kJamaisFini = 99;

  /// The event loop as launch.cpp runs it, with a close of the window in it; the status that it ends with.
  int FermeLaFenetre() {
    QTimer::singleShot(0, qApp, [] { Fenetre("Form1")->close(); });
    QTimer::singleShot(20'000, qApp, [] { QCoreApplication::exit(kJamaisFini); });
    return QApplication::exec();
  }
  bool Vu(const char* ligne) const { return Systeme.Notes.Lignes().contains(QLatin1String(ligne)); }
  void ExigeToutLeReste() const {
    EXPECT_TRUE(Vu("channel: post 68 to 71")) << "the companions are told";
    EXPECT_TRUE(Vu("timer Timer1: off"));
    EXPECT_TRUE(Vu("store: flush")) << "what was changed is saved";
    EXPECT_FALSE(Visible("Form1"));
  }
  void PrepareAvecCamera() {
    DemarreJusquALaFenetre();
    Systeme.Recoit(1001, QStringLiteral("HWND:71"));
    Clique("Bouton(0)");
    Systeme.Temps.Avance(30);  // the start of the camera has moved the gauge: there is something to save
    Systeme.Notes.Vide();
  }
};

TEST_F(Sortie, InOrderHasTheStatusZero) {
  PrepareAvecCamera();
  EXPECT_EQ(FermeLaFenetre(), 0);
  ExigeToutLeReste();
}

// What the start arguments ask for comes a second after the window: closed before that, the end must not open the
// camera.
TEST_F(Sortie, NoTimerActsInThePumpsOfTheEnd) {
  Demarre(QStringLiteral("/alarm"));
  Systeme.Notes.Vide();
  Systeme.Pompe.EnAttente = [this] { Systeme.Temps.Avance(5000); };
  EXPECT_EQ(FermeLaFenetre(), 0);
  EXPECT_FALSE(Vu("Connecte"));
  EXPECT_FALSE(Visible("Form1"));
}

TEST_F(Sortie, OfADriverThatThrowsIsAWholeStop) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  PrepareAvecCamera();
  int fois = 0;
  pilote.PendantDeconnexion = [&] {
    ++fois;
    throw std::runtime_error("the driver is mute");
  };
  EXPECT_EQ(FermeLaFenetre(), kStatutEchec);
  EXPECT_EQ(fois, 1);
  ExigeToutLeReste();
  EXPECT_TRUE(Systeme.Casiers.empty());
  EXPECT_EQ(Systeme.Messages.Textes, QStringList{QStringLiteral("the driver is mute")});
}

TEST_F(Sortie, OfSomethingThatIsNoExceptionIsAWholeStopToo) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  PrepareAvecCamera();
  pilote.PendantDeconnexion = [] { throw 7; };
  EXPECT_EQ(FermeLaFenetre(), kStatutEchec);
  EXPECT_EQ(Systeme.Messages.Textes, QStringList{QStringLiteral("unknown failure")});
  ExigeToutLeReste();
}

TEST_F(Sortie, OfSettingsThatCannotBeSavedHasAStatus) {
  PrepareAvecCamera();
  Systeme.MagasinPlein = true;
  EXPECT_EQ(FermeLaFenetre(), kStatutEchec);
}

TEST_F(Sortie, OfAMessageThatCannotBeShownIsAWholeStop) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  PrepareAvecCamera();
  pilote.PendantDeconnexion = [] { throw std::bad_alloc(); };
  Systeme.Messages.PendantMessage = [] { throw std::bad_alloc(); };
  EXPECT_EQ(FermeLaFenetre(), kStatutEchec);
  ExigeToutLeReste();
}

TEST(EssaiePas, ATellingThatThrowsWhatIsNoExceptionIsNoneEither) {
  EXPECT_FALSE(EssaiePas([] { throw std::bad_alloc(); }, [](const char*) { throw 7; }));
}

TEST_F(Sortie, OfAPumpThatThrowsIsAWholeStop) {
  PrepareAvecCamera();
  Systeme.Pompe.EnAttente = [] { throw std::runtime_error("in a pump"); };
  EXPECT_EQ(FermeLaFenetre(), kStatutEchec);
  ExigeToutLeReste();
}

// The inboxes close in a destructor, out of which nothing may come.
TEST_F(Sortie, OfAnInboxThatDoesNotCloseIsAWholeStop) {
  PrepareAvecCamera();
  Systeme.CanalBloque = true;
  EXPECT_EQ(FermeLaFenetre(), 0);
  ExigeToutLeReste();
  Programme.reset();
  Systeme.CanalBloque = false;
}

TEST_F(Sortie, OfAWatchOverTheCompanionsThatThrowsIsAWholeStop) {
  PrepareAvecCamera();
  Systeme.CasiersPublies.Bloque = true;
  EXPECT_EQ(FermeLaFenetre(), kStatutEchec);
  ExigeToutLeReste();
  EXPECT_TRUE(Vu("processes: ask to end /opt/v/VAKTORmail")) << "one that cannot hear the word is asked all the same";
  EXPECT_TRUE(Systeme.Casiers.empty());
}

// So does the look at what the companions have written.
TEST_F(Sortie, OfAStatusReaderThatThrowsIsAWholeStop) {
  PrepareAvecCamera();
  Systeme.Etats.Bloque = true;
  EXPECT_EQ(FermeLaFenetre(), 0);
  ExigeToutLeReste();
  EXPECT_EQ(Systeme.Etats.Oublis, 1);
  EXPECT_TRUE(Systeme.Casiers.empty());
}

struct Bombe {
  explicit Bombe(bool amorcee) : Amorcee(amorcee) {}
  ~Bombe() noexcept { Eclate(); }
  void Eclate() const {
    if (Amorcee) throw std::runtime_error("in a destructor");
  }
  bool Amorcee;
};

TEST(SortieDeathTest, OfADestructorThatThrowsEndsWithTheStatusAndALine) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  EXPECT_EXIT(
      {
        PrepareSortie();
        const Bombe bombe(true);
      },
      testing::ExitedWithCode(kStatutEchec), "while the program was ending");
}

}  // namespace
}  // namespace vaktor::essai
