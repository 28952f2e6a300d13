// SPDX-License-Identifier: GPL-3.0-or-later
// The folder of the mails about the watch itself, on a real disk.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>
#include <optional>

#include "platform/image/turbo_jpeg_encoder.h"
#include "platform/telling/mail_drop.h"
#include "support/volatile_disk_bench.h"

namespace vaktor {
namespace {

class Depot : public testing::Test {
 protected:
  QString Dossier() const { return Parent_.filePath(QStringLiteral("veille")); }
  std::optional<bool> Depose(const CourrielVeille& courriel, const QImage& image) {
    const auto reponse = std::make_shared<std::optional<bool>>();
    Depot_.Depose(courriel, image, [reponse](bool ecrit) { *reponse = ecrit; });
    EXPECT_FALSE(reponse->has_value()) << "answered from the event loop, later";
    EXPECT_TRUE(QTest::qWaitFor([&] { return reponse->has_value(); }, 20000));
    return *reponse;
  }
  QStringList Noms() const { return QDir(Dossier()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
  QStringList Entiers() const { return QDir(Dossier()).entryList({QStringLiteral("*.json")}, QDir::Files); }
  static int Mode(const QString& chemin) {
    struct stat etat {};
    return ::stat(QFile::encodeName(chemin).constData(), &etat) == 0 ? static_cast<int>(etat.st_mode & 07777) : -1;
  }
  QJsonObject Lit(const QString& nom) const {
    QFile fichier(Dossier() + u'/' + nom);
    return fichier.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(fichier.readAll()).object() : QJsonObject();
  }
  static CourrielVeille Courriel() {
    CourrielVeille courriel;
    courriel.Mot = QStringLiteral("signal-lost");
    courriel.Depuis = QDateTime(QDate(2020, 1, 2), QTime(9, 5, 3));
    courriel.Sujet = Phrase{"sujet é", "subject"};
    courriel.Texte = Phrase{"texte\n", "text\n"};
    return courriel;
  }
  static QImage Image() {
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(qRgb(200, 40, 40));
    return image;
  }

  QTemporaryDir Parent_;
  EncodeurTurboJpeg Encodeur_;
  DepotCourrielsFichiers Depot_{Parent_.filePath(QStringLiteral("veille")), Encodeur_};
};

TEST_F(Depot, OneMailIsOneFileWithItsPictureBesideItAndBothAreTheOwnersAlone) {
  EXPECT_EQ(Depose(Courriel(), Image()), true);
  const QStringList noms = Noms();
  ASSERT_EQ(noms.size(), 2) << noms.join(u' ').toStdString();
  const QString souche = noms[0].section(u'.', 0, 0);
  EXPECT_EQ(noms, QStringList({souche + QStringLiteral(".jpg"), souche + QStringLiteral(".json")}));
  bool nombre = false;
  const qint64 instant = souche.section(u'-', 0, 0).toLongLong(&nombre);
  EXPECT_TRUE(nombre);
  EXPECT_LT(std::abs(instant - QDateTime::currentMSecsSinceEpoch()), 120'000);
  souche.section(u'-', 1).toLongLong(&nombre);
  EXPECT_TRUE(nombre) << souche.toStdString();
  EXPECT_EQ(Mode(Dossier()), 0700);
  for (const QString& nom : noms) EXPECT_EQ(Mode(Dossier() + u'/' + nom), 0600) << nom.toStdString();
  const QJsonObject objet = Lit(noms[1]);
  EXPECT_EQ(objet["version"].toInt(), 1);
  EXPECT_EQ(objet["kind"].toString(), "begin");
  EXPECT_EQ(objet["condition"].toString(), "signal-lost");
  EXPECT_EQ(objet["since"].toString(), "2020-01-02T09:05:03");
  EXPECT_FALSE(objet.contains("until"));
  EXPECT_EQ(objet["subject_fr"].toString(), QString::fromUtf8("sujet é"));
  EXPECT_EQ(objet["subject_en"].toString(), "subject");
  EXPECT_EQ(objet["fr"].toString(), "texte\n");
  EXPECT_EQ(objet["en"].toString(), "text\n");
  const QImage lue(Dossier() + u'/' + noms[0]);
  ASSERT_EQ(lue.size(), QSize(64, 48));
  EXPECT_NEAR(qRed(lue.pixel(30, 20)), 200, 6);
}

TEST_F(Depot, WhatAKillLeftHalfWrittenGoesAfterADayAndNothingElseDoes) {
  ASSERT_TRUE(QDir().mkpath(Dossier()));
  const auto pose = [&](const char* nom, qint64 heures) {
    QFile fichier(Dossier() + u'/' + QLatin1String(nom));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    const QDateTime quand = QDateTime::currentDateTimeUtc().addSecs(-heures * 3600);
    ASSERT_TRUE(fichier.setFileTime(quand, QFileDevice::FileModificationTime));
  };
  pose(".1000-1.json.part", 25);
  pose(".1000-1.jpg.part", 25);
  pose(".2000-1.json.part", 23);
  pose("1000-2.json", 25);
  pose(".notes", 25);
  EXPECT_EQ(Depose(Courriel(), QImage()), true);
  QStringList noms = Noms();
  EXPECT_EQ(noms.size(), 4) << noms.join(u' ').toStdString();
  for (const char* reste : {".2000-1.json.part", "1000-2.json", ".notes"})
    EXPECT_TRUE(noms.contains(QLatin1String(reste))) << reste;
}

TEST_F(Depot, AnEndTellsUntilWhen) {
  CourrielVeille courriel = Courriel();
  courriel.Fin = true;
  courriel.Jusqua = courriel.Depuis.addSecs(90);
  EXPECT_EQ(Depose(courriel, {}), true);
  ASSERT_EQ(Noms().size(), 1) << "no picture, no file of one";
  const QJsonObject objet = Lit(Noms()[0]);
  EXPECT_EQ(objet["kind"].toString(), "end");
  EXPECT_EQ(objet["until"].toString(), "2020-01-02T09:06:33");
}

TEST_F(Depot, TwoInTheSameMillisecondAreTwo) {
  for (int i = 0; i < 3; ++i) Depot_.Depose(Courriel(), {}, [](bool) {});
  EXPECT_EQ(Depose(Courriel(), {}), true);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Entiers().size() == 4; }, 20000)) << Entiers().size();
}

TEST_F(Depot, AFolderThatOthersMayEnterIsClosedToThem) {
  ASSERT_TRUE(QDir().mkdir(Dossier()));
  ASSERT_EQ(::chmod(QFile::encodeName(Dossier()).constData(), 0755), 0);
  EXPECT_EQ(Depose(Courriel(), {}), true);
  EXPECT_EQ(Mode(Dossier()), 0700);
}

TEST_F(Depot, WhatCannotBeWrittenIsSaidAndLeavesNothingBehind) {
  ASSERT_TRUE(Parent_.remove());
  EXPECT_EQ(Depose(Courriel(), Image()), false);
  ASSERT_TRUE(QDir().mkpath(Parent_.path()));
  QFile obstacle(Dossier());
  ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
  obstacle.close();
  EXPECT_EQ(Depose(Courriel(), Image()), false);
  EXPECT_EQ(QDir(Parent_.path()).entryList(QDir::Files | QDir::Hidden), QStringList(QStringLiteral("veille")));
}

TEST_F(Depot, AnAnswerAfterTheDepotHasGoneIsNotGiven) {
  bool repondu = false;
  {
    DepotCourrielsFichiers depot(Dossier(), Encodeur_);
    depot.Depose(Courriel(), {}, [&repondu](bool) { repondu = true; });
  }
  EXPECT_TRUE(QTest::qWaitFor([this] { return Entiers().size() == 1; }, 20000)) << "it is written all the same";
  QTest::qWait(100);
  EXPECT_FALSE(repondu);
}

TEST_F(Depot, ADiskWithoutRoomForThePictureTakesTheWords) {
  const PetitDisque disque(64 * 1024);
  if (!disque.EstMonte()) GTEST_SKIP() << disque.Raison();
  DepotCourrielsFichiers depot(disque.Chemin() + QStringLiteral("/veille"), Encodeur_);
  QImage bruit(1024, 768, QImage::Format_RGB32);
  quint32 n = 1;
  for (int y = 0; y < bruit.height(); ++y)
    for (int x = 0; x < bruit.width(); ++x) bruit.setPixel(x, y, (n = n * 1664525U + 1013904223U) | 0xFF000000U);
  std::optional<bool> ecrit;
  depot.Depose(Courriel(), bruit, [&ecrit](bool oui) { ecrit = oui; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return ecrit.has_value(); }, 20000));
  EXPECT_EQ(ecrit, true);
  const QStringList noms = QDir(disque.Chemin() + QStringLiteral("/veille")).entryList(QDir::Files);
  ASSERT_EQ(noms.size(), 1);
  EXPECT_TRUE(noms.first().endsWith(QLatin1String(".json")));
}

class JourDuDepot : public Depot {
 protected:
  std::optional<QDate> Cherche(const QString& mot) {
    std::optional<QDate> jour;
    DepotCourrielsFichiers suivant(Dossier(), Encodeur_);  // as the next run does
    suivant.ChercheDernierJour(mot, [&jour](const QDate& lu) { jour = lu; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return jour.has_value(); }, 20000));
    return jour;
  }
};

TEST_F(JourDuDepot, IsThatOfTheNewestMailThatWantedItNoted) {
  EXPECT_EQ(Cherche("sign-of-life"), QDate()) << "no folder, no day";
  CourrielVeille courriel = Courriel();
  EXPECT_EQ(Depose(courriel, Image()), true);
  EXPECT_EQ(Cherche("signal-lost"), QDate()) << "not wanted";
  courriel.Mot = "sign-of-life";
  for (const int jour : {21, 22}) {
    courriel.Jour = QDate(2026, 11, jour);
    EXPECT_EQ(Depose(courriel, Image()), true);
  }
  EXPECT_EQ(Cherche("sign-of-life"), QDate(2026, 11, 22));
  EXPECT_EQ(Cherche("signal-lost"), QDate());
  EXPECT_EQ(Mode(Dossier() + "/.sign-of-life"), 0600);
  EXPECT_EQ(Entiers().size(), 3) << "a companion sees the mails alone";
}

TEST_F(JourDuDepot, OfADamagedNoteIsNone) {
  ASSERT_TRUE(QDir(Parent_.path()).mkdir("veille"));
  QFile note(Dossier() + "/.sign-of-life");
  ASSERT_TRUE(note.open(QIODevice::WriteOnly));
  note.write("2026-13-45 rubbish");
  note.close();
  EXPECT_EQ(Cherche("sign-of-life"), QDate());
}

class DepotSurDisqueVolatil : public SurDisqueVolatil {};

TEST_F(DepotSurDisqueVolatil, AMailThatWasToldAsWrittenIsThereAfterAPowerCut) {
  const QString dossier = Chemin("/veille");
  EncodeurTurboJpeg encodeur;
  DepotCourrielsFichiers depot(dossier, encodeur);
  ASSERT_TRUE(QDir().mkdir(dossier));
  // The folder itself lies there since long.
  const int parent = ::open(QFile::encodeName(Chemin()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  ASSERT_EQ(::fsync(parent), 0);
  ::close(parent);
  CourrielVeille courriel;
  courriel.Mot = QStringLiteral("signal-lost");
  courriel.Sujet = Phrase{"sujet", "subject"};
  courriel.Texte = Phrase{"texte", "text"};
  std::optional<bool> ecrit;
  depot.Depose(courriel, QImage(), [&ecrit](bool oui) { ecrit = oui; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return ecrit.has_value(); }, 20000));
  ASSERT_EQ(ecrit, true);
  ASSERT_TRUE(Disque->CoupeCourant());
  const QStringList noms = QDir(dossier).entryList({QStringLiteral("*.json")}, QDir::Files);
  ASSERT_EQ(noms.size(), 1);
  QFile fichier(dossier + u'/' + noms.first());
  ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
  EXPECT_TRUE(QJsonDocument::fromJson(fichier.readAll()).isObject());
}

}  // namespace
}  // namespace vaktor
