// SPDX-License-Identifier: GPL-3.0-or-later
// The machine kept awake over real buses, of the test's own, with a login manager and a portal that only remember.
#include <gtest/gtest.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <QThread>
#include <memory>
#include <optional>

#include "platform/wakefulness/dbus_wakefulness.h"
#include "platform/wakefulness/machine_clocks.h"
#include "support/private_bus.h"

namespace vaktor {
namespace {

using essai::AttendQue;
using essai::BusPrive;
using essai::BusSourd;

const QString kLogin1 = QStringLiteral("org.freedesktop.login1");
const QString kPortail = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kObjetPortail = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kRequete = QStringLiteral("/org/freedesktop/portal/desktop/request/1");
const QString kNullePart = QStringLiteral("unix:path=/nowhere/bus");

class EveilReel : public testing::Test {
 protected:
  void Relie(const AdressesBus& adresses) { Machine = std::make_unique<EveilDBus>(adresses); }
  ReponseEveil Demande() {
    Recu.reset();
    Machine->Demande([this](ReponseEveil reponse, const QString& mots) {
      Recu = reponse;
      Mots = mots;
    });
    EXPECT_FALSE(Recu.has_value()) << "never from inside the call";
    EXPECT_TRUE(AttendQue([this] { return Recu.has_value(); }));
    return Recu.value_or(ReponseEveil::kAccordee);
  }
  static bool Libre(const BusPrive& bus) {
    return AttendQue([&] { return bus.Empechements().isEmpty(); });
  }

  std::unique_ptr<EveilDBus> Machine;
  std::optional<ReponseEveil> Recu;
  QString Mots;
};

TEST_F(EveilReel, TheLoginManagerHoldsTheRequestUntilItIsGivenBack) {
  BusPrive bus;
  bus.LanceLogin1();
  Relie({bus.Adresse(), QString()});
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  EXPECT_EQ(bus.Empechements(), QStringList{QStringLiteral("sleep:idle Vaktor block")});
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  EXPECT_EQ(bus.Empechements().size(), 1) << "what is held is not asked for again";
  Machine->Rend();
  EXPECT_TRUE(Libre(bus)) << "the descriptor is still open";
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  EXPECT_EQ(bus.Empechements().size(), 1);
}

TEST_F(EveilReel, TheEndOfTheObjectGivesBack) {
  BusPrive bus;
  bus.LanceLogin1();
  Relie({bus.Adresse(), QString()});
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  Machine.reset();
  EXPECT_TRUE(Libre(bus));
}

// A companion that is started while the camera runs would go on holding it.
TEST_F(EveilReel, AProgramThatIsStartedMeanwhileDoesNotHoldIt) {
  BusPrive bus;
  bus.LanceLogin1();
  Relie({bus.Adresse(), QString()});
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  essai::ProcessusDeTest enfant;
  enfant.Processus.start(QStringLiteral("/bin/sleep"), {QStringLiteral("1000")});
  ASSERT_TRUE(enfant.Processus.waitForStarted());
  Machine->Rend();
  EXPECT_TRUE(Libre(bus));
}

TEST_F(EveilReel, ARequestThatIsGivenBackBeforeItsAnswerIsNeitherHeldNorAnswered) {
  BusPrive bus;
  bus.LanceLogin1();
  Relie({bus.Adresse(), QString()});
  bool repondu = false;
  Machine->Demande([&](ReponseEveil, const QString&) { repondu = true; });
  Machine->Rend();
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);  // behind the two on the thread
  EXPECT_EQ(bus.Empechements().size(), 1);
  EXPECT_FALSE(repondu);
}

TEST_F(EveilReel, ARefusalComesWithTheWordsOfTheLoginManager) {
  BusPrive bus;
  bus.LanceLogin1();
  bus.Remplace(kLogin1, QStringLiteral("/org/freedesktop/login1"), QStringLiteral("org.freedesktop.login1.Manager"),
               QStringLiteral("Inhibit"), QStringLiteral("ssss"), QStringLiteral("h"),
               QStringLiteral("raise dbus.exceptions.DBusException('Permission denied', "
                              "name='org.freedesktop.DBus.Error.AccessDenied')"));
  Relie({bus.Adresse(), kNullePart});
  EXPECT_EQ(Demande(), ReponseEveil::kRefusee);
  EXPECT_EQ(Mots, QStringLiteral("Permission denied"));
}

// Without the event loop, so that the first answer still lies there when the second request is made.
TEST_F(EveilReel, TheAnswerToWhatWasGivenBackIsNotTakenForThatOfTheNextRequest) {
  BusPrive bus;
  bus.LanceLogin1();
  Relie({bus.Adresse(), kNullePart});
  Machine->Demande([](ReponseEveil, const QString&) {});
  for (int i = 0; i < 500 && bus.Empechements().isEmpty(); ++i) QThread::msleep(20);
  ASSERT_FALSE(bus.Empechements().isEmpty());
  Machine->Rend();
  bus.Remplace(kLogin1, QStringLiteral("/org/freedesktop/login1"), QStringLiteral("org.freedesktop.login1.Manager"),
               QStringLiteral("Inhibit"), QStringLiteral("ssss"), QStringLiteral("h"),
               QStringLiteral("raise dbus.exceptions.DBusException('Permission denied', "
                              "name='org.freedesktop.DBus.Error.AccessDenied')"));
  EXPECT_EQ(Demande(), ReponseEveil::kRefusee);
}

// The library's own patience is 25 seconds.
TEST_F(EveilReel, ALoginManagerThatHangsIsWaitedForFiveSecondsAndGivenUp) {
  BusPrive bus;
  bus.LanceLogin1();
  bus.Fige();
  Relie({bus.Adresse(), QString()});
  QElapsedTimer temps;
  temps.start();
  EXPECT_NE(Demande(), ReponseEveil::kAccordee);
  EXPECT_LT(temps.elapsed(), 20'000);
}

TEST_F(EveilReel, WithoutABusOrALoginManagerThereIsNobodyToAsk) {
  const BusPrive vide;
  for (const AdressesBus& adresses :
       {AdressesBus{kNullePart, QString()}, AdressesBus{kNullePart, kNullePart}, AdressesBus{QString(), QString()},
        AdressesBus{vide.Adresse(), QString()}, AdressesBus{vide.Adresse(), vide.Adresse()}}) {
    Relie(adresses);
    EXPECT_EQ(Demande(), ReponseEveil::kPersonne) << adresses.Systeme.toStdString() << ": " << Mots.toStdString();
  }
}

// The other end of the pipe is closed: nothing keeps the machine awake any more, and the next look finds out.
TEST_F(EveilReel, ALoginManagerThatHasGoneIsNoticedAndAskedAgainWhenItIsBack) {
  BusPrive bus;
  bus.LanceLogin1();
  Relie({bus.Adresse(), QString()});
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  bus.TueService();
  EXPECT_EQ(Demande(), ReponseEveil::kPersonne);
  bus.LanceLogin1();
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  EXPECT_EQ(bus.Empechements().size(), 1);
}

class EveilParPortail : public EveilReel {
 protected:
  void LancePortail(BusPrive& bus, const QString& code) {
    bus.LanceService(kPortail, {QStringLiteral("--session"), kPortail, kObjetPortail,
                                QStringLiteral("org.freedesktop.portal.Inhibit")});
    bus.Remplace(kPortail, kObjetPortail, QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"),
                 QStringLiteral("sua{sv}"), QStringLiteral("o"), code);
  }
  static void AjouteRequete(BusPrive& bus) {
    // An object that knows one method and remembers its calls.
    bus.Remplace(kPortail, kObjetPortail, QStringLiteral("org.example.Test"), QStringLiteral("Ajoute"), QString(),
                 QString(),
                 QStringLiteral("self.AddObject('%1', 'org.freedesktop.portal.Request', {}, [('Close', '', '', '')])")
                     .arg(kRequete));
    bus.Bus().call(QDBusMessage::createMethodCall(kPortail, kObjetPortail, QStringLiteral("org.example.Test"),
                                                  QStringLiteral("Ajoute")));
  }
};

TEST_F(EveilParPortail, IsAskedForWhereThereIsNoLoginManagerAndGivenBack) {
  BusPrive session;
  LancePortail(session, QStringLiteral("ret = dbus.ObjectPath('%1') if args[1] == 12 else None").arg(kRequete));
  AjouteRequete(session);
  Relie({kNullePart, session.Adresse()});
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee) << Mots.toStdString();
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  EXPECT_EQ(session.Appels(kPortail, kObjetPortail).count(QStringLiteral("Inhibit")), 1);
  EXPECT_FALSE(session.Appels(kPortail, kRequete).contains(QStringLiteral("Close")));
  Machine->Rend();
  EXPECT_TRUE(AttendQue([&] { return session.Appels(kPortail, kRequete).contains(QStringLiteral("Close")); }));
}

TEST_F(EveilParPortail, IsNotAskedWhereTheLoginManagerHasGranted) {
  BusPrive bus;
  bus.LanceLogin1();
  BusPrive session;
  LancePortail(session, QStringLiteral("ret = dbus.ObjectPath('%1')").arg(kRequete));
  Relie({bus.Adresse(), session.Adresse()});
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  EXPECT_EQ(bus.Empechements().size(), 1);
  EXPECT_FALSE(session.Appels(kPortail, kObjetPortail).contains(QStringLiteral("Inhibit")));
}

TEST_F(EveilParPortail, ThatRefusesIsARefusal) {
  BusPrive session;
  LancePortail(session, QStringLiteral("raise dbus.exceptions.DBusException('not you', "
                                       "name='org.freedesktop.portal.Error.NotAllowed')"));
  Relie({kNullePart, session.Adresse()});
  EXPECT_EQ(Demande(), ReponseEveil::kRefusee);
  EXPECT_EQ(Mots, QStringLiteral("not you"));
}

// The portal takes a request back when its bus ends.
TEST_F(EveilParPortail, WhoseBusHasGoneIsNoticed) {
  auto session = std::make_unique<BusPrive>();
  LancePortail(*session, QStringLiteral("ret = dbus.ObjectPath('%1')").arg(kRequete));
  Relie({kNullePart, session->Adresse()});
  EXPECT_EQ(Demande(), ReponseEveil::kAccordee);
  session.reset();
  ASSERT_TRUE(AttendQue([this] { return Demande() != ReponseEveil::kAccordee; }));
  EXPECT_EQ(*Recu, ReponseEveil::kPersonne);
}

// The thread of the windows waits for nobody. The end of the process is looked at in a test of the whole program.
TEST_F(EveilReel, ABusThatSaysNothingHoldsNeitherTheWindowsNorTheEnd) {
  const BusSourd sourd;
  Relie({sourd.Adresse(), QString()});
  QElapsedTimer temps;
  temps.start();
  bool repondu = false;
  Machine->Demande([&](ReponseEveil, const QString&) { repondu = true; });
  Machine->Rend();
  EXPECT_LT(temps.elapsed(), 2000);
  QThread::msleep(500);  // it hangs in the bus by now
  QCoreApplication::processEvents();
  EXPECT_FALSE(repondu);
  Machine.reset();
  EXPECT_LT(temps.elapsed(), 12'000);
}

TEST(AdressesDesBus, ComeFromTheEnvironmentOrLieByCustom) {
  const QByteArray systeme = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
  const QByteArray session = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  const QByteArray execution = qgetenv("XDG_RUNTIME_DIR");
  qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/a");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/b");
  EXPECT_EQ(TrouveAdressesBus().Systeme, QStringLiteral("unix:path=/a"));
  EXPECT_EQ(TrouveAdressesBus().Session, QStringLiteral("unix:path=/b"));
  qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  qputenv("XDG_RUNTIME_DIR", "/run/user/7");
  EXPECT_EQ(TrouveAdressesBus().Systeme, QStringLiteral("unix:path=/run/dbus/system_bus_socket"));
  EXPECT_EQ(TrouveAdressesBus().Session, QStringLiteral("unix:path=/run/user/7/bus"));
  qunsetenv("XDG_RUNTIME_DIR");
  EXPECT_TRUE(TrouveAdressesBus().Session.isEmpty());
  if (!systeme.isEmpty()) qputenv("DBUS_SYSTEM_BUS_ADDRESS", systeme);
  if (!session.isEmpty()) qputenv("DBUS_SESSION_BUS_ADDRESS", session);
  if (!execution.isEmpty()) qputenv("XDG_RUNTIME_DIR", execution);
}

TEST(HorlogesMachine, GoOnTogetherAndTheWallIsThatOfTheSystem) {
  const InstantsMachine avant = LitHorlogesMachine();
  QThread::msleep(20);
  const InstantsMachine apres = LitHorlogesMachine();
  EXPECT_GE(apres.EveilleMs - avant.EveilleMs, 20);
  EXPECT_GE(apres.ToutMs, apres.EveilleMs) << "sleep is only counted here";
  EXPECT_NEAR(static_cast<double>(apres.ToutMs - avant.ToutMs), static_cast<double>(apres.EveilleMs - avant.EveilleMs),
              2.0);
  EXPECT_LT(qAbs(apres.MuralMs - QDateTime::currentMSecsSinceEpoch()), 60'000);
}

}  // namespace
}  // namespace vaktor
