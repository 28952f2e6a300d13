// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QLocale>
#include <QThread>
#include <limits>

#include "platform/base/system_clock.h"

namespace vaktor {
namespace {

TEST(SystemClock, TheCounterTurnsNegativeAfter2Pow31Milliseconds) {
  EXPECT_EQ(HorlogeSysteme::TicsDepuis(0), 0);
  EXPECT_EQ(HorlogeSysteme::TicsDepuis(2'147'483'647), std::numeric_limits<qint32>::max());
  EXPECT_EQ(HorlogeSysteme::TicsDepuis(2'147'483'648), std::numeric_limits<qint32>::min());
  EXPECT_EQ(HorlogeSysteme::TicsDepuis(4'294'967'295), -1);
  EXPECT_EQ(HorlogeSysteme::TicsDepuis(4'294'967'296), 0);
}

TEST(SystemClock, TheCounterStartsWithTheClockAndGoesOn) {
  const HorlogeSysteme horloge;
  const qint32 debut = horloge.CompteTics();
  EXPECT_GE(debut, 0);
  const QDeadlineTimer fin(10'000);
  while (horloge.CompteTics() == debut && !fin.hasExpired()) QThread::msleep(1);
  EXPECT_GT(horloge.CompteTics(), debut);
  const HorlogeSysteme seconde;
  EXPECT_LE(seconde.CompteTics(), horloge.CompteTics());
}

TEST(SystemClock, DateAndTimeAreTheSystems) {
  const HorlogeSysteme horloge;
  const QDateTime avant = QDateTime::currentDateTime();
  const QDateTime lu(horloge.DonneDate(), horloge.DonneHeure());
  const QDateTime apres = QDateTime::currentDateTime();
  // Date and time are two questions: at midnight they may belong to two days, and then nothing can be said.
  if (avant.date() != apres.date()) GTEST_SKIP() << "midnight passed";
  EXPECT_LE(avant, lu);
  EXPECT_LE(lu, apres);
}

TEST(SystemClock, TheLongFormatLosesItsZone) {
  const auto sans = [](const char* format) { return HorlogeSysteme::RetireFuseau(QString::fromUtf8(format)); };
  EXPECT_EQ(sans("HH:mm:ss t"), QStringLiteral("HH:mm:ss"));
  EXPECT_EQ(sans("h:mm:ss AP t"), QStringLiteral("h:mm:ss AP"));
  EXPECT_EQ(sans("H:mm:ss (tttt)"), QStringLiteral("H:mm:ss"));
  EXPECT_EQ(sans("HH:mm:ss [t]"), QStringLiteral("HH:mm:ss"));
  EXPECT_EQ(sans("t HH:mm:ss"), QStringLiteral("HH:mm:ss"));
  EXPECT_EQ(sans("HH 'heures et' mm 'minutes' ss 's' t"), QStringLiteral("HH 'heures et' mm 'minutes' ss 's'"));
}

TEST(SystemClock, NineInTheMorningHasColonsInEveryLocale) {
  const QTime neuf(9, 5, 3);
  EXPECT_EQ(HorlogeSysteme::TexteHeure(neuf, QLocale(QStringLiteral("fr_FR"))), QStringLiteral("09:05:03"));
  EXPECT_EQ(HorlogeSysteme::TexteHeure(neuf, QLocale(QStringLiteral("en_US"))), QStringLiteral("9:05:03 AM"));
  EXPECT_EQ(HorlogeSysteme::TexteHeure(neuf, QLocale(QStringLiteral("es_ES"))), QStringLiteral("9:05:03"));
  for (const char* sans : {"fr_CA", "fi_FI"}) {
    EXPECT_EQ(HorlogeSysteme::TexteHeure(neuf, QLocale(QLatin1String(sans))), QStringLiteral("09:05:03")) << sans;
  }
}

TEST(SystemClock, TheTimeAsTextIsReadBackInTheSystemsFormat) {
  const QString texte = HorlogeSysteme().DonneHeureTexte();
  const QLocale langue = QLocale::system();
  const QString format = HorlogeSysteme::RetireFuseau(langue.timeFormat(QLocale::LongFormat));
  EXPECT_TRUE(format.contains(QStringLiteral("ss"))) << qPrintable(format);
  EXPECT_TRUE(langue.toTime(texte, format).isValid()) << qPrintable(texte);
}

}  // namespace
}  // namespace vaktor
