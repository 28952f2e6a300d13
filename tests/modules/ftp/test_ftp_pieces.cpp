// SPDX-License-Identifier: GPL-3.0-or-later
// The small rules of the FTP companion: addresses, whole pictures, the queue, the memory, the page.
#include <gtest/gtest.h>

#include <QColor>
#include <QProcess>
#include <QRegularExpression>
#include <cmath>

#include "modules/ftp/ftp_client.h"
#include "modules/ftp/ftp_dialogue.h"
#include "modules/ftp/ftp_failure.h"
#include "modules/ftp/ftp_test_server.h"
#include "modules/ftp/live_page.h"
#include "modules/ftp/photo_queue.h"
#include "modules/ftp/published_photos.h"
#include "modules/ftp/server_address.h"

namespace vaktor::essai {
namespace {

TEST(ServerAddress, IsReadAsPeopleWriteIt) {
  struct Cas {
    const char* Texte;
    const char* Hote;
    quint16 Port;
  };
  for (const Cas& cas : std::initializer_list<Cas>{{"ftp.exemple.fr", "ftp.exemple.fr", 21},
                                                   {"  ftp.exemple.fr ", "ftp.exemple.fr", 21},
                                                   {"ftp.exemple.fr:2121", "ftp.exemple.fr", 2121},
                                                   {"ftp.exemple.fr:", "ftp.exemple.fr", 21},
                                                   {"FTP://ftp.exemple.fr/www/", "ftp.exemple.fr", 21},
                                                   {"ftps://ftp.exemple.fr", "ftp.exemple.fr", 21},
                                                   {"ftp://anna:x@y@ftp.exemple.fr:990/", "ftp.exemple.fr", 990},
                                                   {"[::1]:2121", "::1", 2121},
                                                   {"[::1]", "::1", 21},
                                                   {"fe80::1", "fe80::1", 21},
                                                   {"192.168.1.5:21", "192.168.1.5", 21}}) {
    const AdresseServeur adresse = LitAdresseServeur(cas.Texte);
    EXPECT_EQ(adresse.Hote, cas.Hote) << cas.Texte;
    EXPECT_EQ(adresse.Port, cas.Port) << cas.Texte;
    EXPECT_TRUE(adresse.Valable) << cas.Texte;
  }
  for (const char* rien : {"", "ftp.", "ftp://", "ftp:///www"}) EXPECT_EQ(LitAdresseServeur(rien).Hote, "") << rien;
  for (const char* faux : {"a:0", "a:65536", "a:x", "a:-1", "a b", "a\nb", "a?b"})
    EXPECT_FALSE(LitAdresseServeur(faux).Valable) << faux;
}

TEST(ServerAddress, DigitsAndThisMachineNeedNoLookUp) {
  for (const char* hote : {"127.0.0.1", "10.0.0.1", "::1", "fe80::1%eth0", "localhost", "LocalHost"})
    EXPECT_TRUE(EstSansRecherche(hote)) << hote;
  for (const char* hote : {"ftp.exemple.fr", "localhost.exemple.fr", "1.2.3.4.exemple", ""})
    EXPECT_FALSE(EstSansRecherche(hote)) << hote;
}

TEST(FtpUrl, EncodesEverything) {
  AccesFtp acces{"h", 21, "u", "p", "/"};
  EXPECT_EQ(CreeUrlFtp(acces, "live.jpg"), "ftp://h:21/%2Flive.jpg");
  EXPECT_EQ(CreeUrlFtp(acces, ""), "ftp://h:21/%2F");
  acces.Dossier = "/www/ma photo#1;type=a/";
  EXPECT_EQ(CreeUrlFtp(acces, "a b.jpg"), "ftp://h:21/%2Fwww/ma%20photo%231%3Btype%3Da/a%20b.jpg");
  acces.Dossier = "www\\x";
  EXPECT_EQ(CreeUrlFtp(acces, ""), "ftp://h:21/www/x/");
  acces = {"::1", 2121, "u", "p", ""};
  EXPECT_EQ(CreeUrlFtp(acces, "x"), "ftp://[::1]:2121/x");
}

TEST(FtpFailure, OneGuestTooManyIsNoWrongPassword) {
  const auto precise = [](const char* reponse) {
    const OuvrierFtp::SurEtape etape;
    const SurReplique replique;
    DialogueFtp dialogue(etape, replique);
    dialogue.NoteReponse("220 ready\r\n");
    dialogue.NoteCommande("PASS sesame\r\n");
    dialogue.NoteReponse(reponse);
    return PreciseEchec(0, dialogue);
  };
  EXPECT_EQ(precise("530 Sorry, the maximum number of clients (5) is connected.\r\n"), PrecisionFtp::kComplet);
  EXPECT_EQ(precise("530 Too many users.\r\n"), PrecisionFtp::kComplet);
  EXPECT_EQ(precise("530 Login incorrect.\r\n"), PrecisionFtp::kAucune);
}

TEST(FtpDialogue, KeepsTheServersWordsAndNotOurs) {
  QStringList etapes;
  const OuvrierFtp::SurEtape etape = [&](EtapeFtp e) { etapes << QString::number(static_cast<int>(e)); };
  QByteArrayList repliques;
  const SurReplique replique = [&](const QByteArray& verbe, const QByteArray& ligne) {
    repliques << verbe + '|' + ligne;
  };
  DialogueFtp dialogue(etape, replique);
  dialogue.NoteReponse("220-Hello\r\n220 ready\r\n");
  dialogue.NoteCommande("AUTH TLS\r\n");
  dialogue.NoteReponse("502 no TLS here\r\n");
  dialogue.NoteCommande("USER anna\r\n");
  dialogue.NoteReponse("331 password please\r\n");
  dialogue.NoteCommande("EPSV\r\n");
  dialogue.NoteReponse("500 what?\r\n");
  EXPECT_EQ(dialogue.Refus(), "") << "refusing what is optional is no failure";
  EXPECT_EQ(etapes, QStringList({"0", "1"}));
  EXPECT_EQ(repliques, QByteArrayList({"|220-Hello", "|220 ready", "AUTH|502 no TLS here", "USER|331 password please",
                                       "EPSV|500 what?"}));
  dialogue.NoteCommande("PASS sesame\r\n");
  dialogue.NoteReponse("530 " + QByteArray(1000, 'x') + "\r\n");
  EXPECT_FALSE(dialogue.EstEtranger());
  EXPECT_EQ(dialogue.CodeRefus(), 530);
  EXPECT_EQ(dialogue.Refus().size(), 300);
}

TEST(FtpDialogue, TheRefusalOfAnUploadIsOneAlsoWhereTheLibraryAskedForAnotherConnectionBefore) {
  QByteArrayList repliques;
  const OuvrierFtp::SurEtape etape;
  const SurReplique replique = [&](const QByteArray& verbe, const QByteArray& ligne) {
    repliques << verbe + '|' + ligne;
  };
  DialogueFtp dialogue(etape, replique);
  dialogue.NoteReponse("220 ready\r\n");
  dialogue.NoteCommande("EPSV\r\n");
  dialogue.NoteReponse("229 Entering Extended Passive Mode (|||16437|)\r\n");
  dialogue.NoteCommande("STOR a.part\r\n");
  dialogue.NoteCommande("PASV\r\n");
  EXPECT_FALSE(dialogue.EnvoiRefuseEnCroisant());
  dialogue.NoteReponse("550 a.part: Permission denied\r\n");
  EXPECT_TRUE(dialogue.EnvoiRefuseEnCroisant());
  EXPECT_EQ(repliques.last(), "STOR|550 a.part: Permission denied");
  DialogueFtp autre(etape, replique);
  autre.NoteCommande("EPSV\r\n");
  autre.NoteCommande("PASV\r\n");
  autre.NoteReponse("425 no\r\n");
  EXPECT_FALSE(autre.EnvoiRefuseEnCroisant());
  autre.NoteCommande("STOR a.part\r\n");
  autre.NoteReponse("150 go on\r\n");
  autre.NoteCommande("PASV\r\n");
  autre.NoteReponse("500 what?\r\n");
  EXPECT_FALSE(autre.EnvoiRefuseEnCroisant()) << "the upload was answered";
}

struct File : testing::Test {
  QTemporaryDir Temporaire;
  void Pose(const QString& nom, int octets, int age) {
    QFile photo(Temporaire.filePath(nom));
    ASSERT_TRUE(photo.open(QIODevice::WriteOnly));
    photo.write(QByteArray(octets, 'x'));
    photo.flush();
    photo.setFileTime(QDateTime::currentDateTime().addSecs(-age), QFileDevice::FileModificationTime);
  }
  QStringList Noms() const { return QDir(Temporaire.path()).entryList(QDir::Files, QDir::Name); }
};

TEST_F(File, TheOldestGoWhenTooManyWait) {
  for (int i = 0; i < 6; ++i) Pose(QStringLiteral("%1.jpg").arg(i), 10, i * 10);
  FilePhotos file(Temporaire.path(), {.Octets = 1000, .Nombre = 4});
  EXPECT_EQ(file.Elague(), 2);
  EXPECT_EQ(file.Liste(), QStringList({"3.jpg", "2.jpg", "1.jpg", "0.jpg"}));
  EXPECT_EQ(file.Elague(), 0);
}

TEST_F(File, TheOldestGoWhenTheyTakeTooMuchRoom) {
  for (int i = 0; i < 6; ++i) Pose(QStringLiteral("%1.jpg").arg(i), 100, i * 10);
  Pose("autre.txt", 5000, 1000);
  FilePhotos file(Temporaire.path(), {.Octets = 399, .Nombre = 100});
  EXPECT_EQ(file.Elague(), 3);
  EXPECT_EQ(Noms(), QStringList({"0.jpg", "1.jpg", "2.jpg", "autre.txt"}));
}

TEST_F(File, AClockThatIsSetBackPutsNoNewPhotoBeforeThoseThatWait) {
  FilePhotos file(Temporaire.path(), {.Octets = 1000, .Nombre = 3});
  Pose("1.jpg", 10, 10);
  Pose("2.jpg", 10, 0);
  EXPECT_EQ(file.Liste(), QStringList({"1.jpg", "2.jpg"}));
  Pose("4.jpg", 10, 3600);
  Pose("3.jpg", 10, 3610);
  EXPECT_EQ(file.Liste(), QStringList({"1.jpg", "2.jpg", "3.jpg", "4.jpg"}));
  EXPECT_EQ(file.Elague(), 1);
  EXPECT_EQ(Noms(), QStringList({"2.jpg", "3.jpg", "4.jpg"}));
  file.Retire("2.jpg");
  Pose("2.jpg", 10, 7200);
  EXPECT_EQ(file.Liste(), QStringList({"2.jpg", "3.jpg", "4.jpg"})) << "gone and back between two looks: as it was";
  file.Retire("2.jpg");
  EXPECT_EQ(file.Liste().size(), 2);
  Pose("2.jpg", 10, 7200);
  EXPECT_EQ(file.Liste(), QStringList({"3.jpg", "4.jpg", "2.jpg"})) << "a new photo of that name";
}

TEST_F(File, NamesThatAreCommandsAreLeftAlone) {
  Pose("a\r\nDELE b.jpg", 1, 0);
  Pose("b.jpg", 1, 0);
  QFile::link("/etc/hostname", Temporaire.filePath("lien.jpg"));
  FilePhotos file(Temporaire.path());
  EXPECT_EQ(file.Liste(), QStringList("b.jpg"));
}

TEST_F(File, AMissingFolderIsEmpty) {
  FilePhotos file(Temporaire.filePath("pas/la"));
  EXPECT_TRUE(file.Liste().isEmpty());
  EXPECT_EQ(file.Elague(), 0);
}

TEST(PublishedPhotos, AreABoundedNumber) {
  const QTemporaryDir dossier;
  QByteArray liste;
  for (qsizetype i = PhotosPubliees::kMax; i > 0; --i)
    liste += "{\"name\":\"" + QByteArray::number(i) + ".jpg\",\"taken\":\"2026-11-15T14:05:09\"},";
  liste.chop(1);
  ASSERT_TRUE(EcritOctets(dossier.filePath("photos.json"), R"({"site":"a","page":true,"photos":[)" + liste + "]}"));
  PhotosPubliees photos(dossier.filePath("photos.json"));
  ASSERT_EQ(photos.Liste().size(), PhotosPubliees::kMax);
  photos.Ajoute({"new.jpg", QDateTime(QDate(2026, 11, 16), QTime(3, 4, 5))});
  EXPECT_EQ(photos.Liste().size(), PhotosPubliees::kMax);
  EXPECT_EQ(photos.Liste().first().Nom, "new.jpg");
  EXPECT_EQ(photos.Liste().last().Nom, "2.jpg") << "the oldest is forgotten";
}

TEST(PublishedPhotos, SurviveARestartAndADamagedFile) {
  const QTemporaryDir temporaire;
  const QString fichier = temporaire.filePath("photos.json");
  const QDateTime prise(QDate(2026, 11, 15), QTime(14, 5, 9));
  {
    PhotosPubliees photos(fichier);
    photos.ChoisitSite("h/u//");
    for (const char* nom : {"a.jpg", "b.jpg", "a.jpg"}) photos.Ajoute({nom, prise});
    photos.NotePage();
  }
  PhotosPubliees photos(fichier);
  photos.ChoisitSite("h/u//");
  EXPECT_EQ(photos.Liste(), QList<PhotoPubliee>({{"a.jpg", prise}, {"b.jpg", prise}}));
  EXPECT_TRUE(photos.APage());
  EXPECT_EQ(QFile::permissions(fichier) & (QFile::ReadGroup | QFile::ReadOther), 0);
  photos.ChoisitSite("autre");
  EXPECT_TRUE(photos.Liste().isEmpty());
  EXPECT_FALSE(photos.APage());
  for (const char* octets :
       {"", "{", "[]", "{\"photos\":3}", "{\"photos\":[1,{\"name\":\"\"},{\"name\":\"x\"}]}", "\xff\xfe"}) {
    EcritOctets(fichier, octets);
    EXPECT_TRUE(PhotosPubliees(fichier).Liste().isEmpty()) << octets;
  }
}

TEST(LivePage, TheIntervalTakesACommaOrAPoint) {
  EXPECT_EQ(LitIntervalle("10"), 10000);
  EXPECT_EQ(LitIntervalle("0,5"), 500);
  EXPECT_EQ(LitIntervalle("1.5"), 1500);
  EXPECT_EQ(LitIntervalle("0,01"), 500) << "no visitor's browser need load more";
  for (const char* rien : {"", "x", "0", "-3", "nan"}) EXPECT_EQ(LitIntervalle(rien), 10000) << rien;
  EXPECT_EQ(LitIntervalle("1e30"), 3600000);
  EXPECT_EQ(LitIntervalle("inf"), 3600000);
}

ContenuPage CreeContenu(Langue langue, qint32 couleur, int photos) {
  ContenuPage contenu;
  contenu.Parlee = langue;
  contenu.Couleur = couleur;
  for (int i = 0; i < photos; ++i)
    contenu.Photos << PhotoPubliee{
        QStringLiteral("2026-11-15  14-05-%1 Photo %1 <\"&'#%>.jpg").arg(i, 2, 10, QChar('0')),
        QDateTime(QDate(2026, 11, 15), QTime(14, 5, i % 60))};
  return contenu;
}

TEST(LivePage, SpeaksTheLanguageOfTheProgram) {
  EXPECT_TRUE(CreePageLive(CreeContenu(Langue::kFrancais, 0, 1)).contains("<html lang=\"fr\">"));
  EXPECT_TRUE(CreePageLive(CreeContenu(Langue::kFrancais, 0, 1)).contains("15/11/2026 14:05:00"));
  EXPECT_TRUE(CreePageLive(CreeContenu(Langue::kAnglais, 0, 1)).contains("<html lang=\"en\">"));
  EXPECT_TRUE(CreePageLive(CreeContenu(Langue::kAnglais, 0, 1)).contains("2026-11-15 14:05:00"));
  EXPECT_TRUE(CreePageLive(CreeContenu(LangueParlee(7), 0, 0)).contains("<html lang=\"fr\">"));
}

TEST(LivePage, NamesCannotLeaveTheirPlace) {
  ContenuPage contenu = CreeContenu(Langue::kFrancais, 0, 0);
  contenu.Photos << PhotoPubliee{"a\"><script>x</script>@live@ %1%2&.jpg", QDateTime(QDate(2026, 1, 2), QTime(3, 4))};
  const QByteArray page = CreePageLive(contenu);
  EXPECT_FALSE(page.contains("<script>x"));
  EXPECT_TRUE(page.contains("href=\"a%22%3E%3Cscript%3Ex%3C%2Fscript%3E%40live%40%20%251%252%26.jpg\""));
}

TEST(LivePage, NothingComesFromElsewhereAndNoMarkIsLeft) {
  const QByteArray page = CreePageLive(CreeContenu(Langue::kFrancais, 3, 3));
  EXPECT_FALSE(page.contains("http:") || page.contains("https:") || page.contains("//"));
  static const QRegularExpression marque("@[a-z]+@");
  EXPECT_FALSE(QString::fromUtf8(page).contains(marque));
  EXPECT_TRUE(page.contains("data-intervalle=\"10000\"") && page.contains("content=\"10\""));
}

/// Relative luminance and contrast as the Web Content Accessibility Guidelines 2.1 define them.
double Luminance(const QColor& couleur) {
  const auto canal = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * canal(couleur.redF()) + 0.7152 * canal(couleur.greenF()) + 0.0722 * canal(couleur.blueF());
}
double Contraste(const QString& a, const QString& b) {
  const auto [bas, haut] = std::minmax({Luminance(QColor(a)), Luminance(QColor(b))});
  return (haut + 0.05) / (bas + 0.05);
}

TEST(LivePage, EveryColourCanBeReadOnLightAndDarkScreens) {
  static const QRegularExpression teintes("--fond: (#\\w+); --accent: (#\\w+); --encre: (#\\w+);");
  QSet<QString> fonds;
  double pire = 100;
  for (qint32 couleur = 0; couleur < 7; ++couleur) {
    auto trouve = teintes.globalMatch(QString::fromUtf8(CreePageLive(CreeContenu(Langue::kFrancais, couleur, 0))));
    int nombre = 0;
    for (; trouve.hasNext(); ++nombre) {
      const QRegularExpressionMatch t = trouve.next();
      EXPECT_GE(Contraste(t.captured(1), t.captured(2)), 4.5) << couleur;
      EXPECT_GE(Contraste(t.captured(1), t.captured(3)), 7) << couleur;
      pire = std::min(pire, Contraste(t.captured(1), t.captured(2)));
      fonds << t.captured(1);
    }
    EXPECT_EQ(nombre, 2);
  }
  EXPECT_EQ(fonds.size(), 14) << "each colour is another";
  std::printf("lowest contrast of the accent: %.2f\n", pire);
  const QByteArray gris = CreePageLive(CreeContenu(Langue::kFrancais, 3, 0));
  EXPECT_EQ(CreePageLive(CreeContenu(Langue::kFrancais, 7, 0)), gris);
  EXPECT_EQ(CreePageLive(CreeContenu(Langue::kFrancais, -1, 0)), gris);
}

TEST(LivePage, IsValidHtml) {
  for (const int photos : {0, 1, 50}) {
    QProcess lecteur;
    lecteur.start("/usr/bin/python3", {VAKTOR_HTML_CHECK});
    ASSERT_TRUE(lecteur.waitForStarted());
    lecteur.write(CreePageLive(CreeContenu(LangueParlee(photos % 2), 1, photos)));
    lecteur.closeWriteChannel();
    ASSERT_TRUE(lecteur.waitForFinished());
    EXPECT_EQ(lecteur.exitCode(), 0) << lecteur.readAllStandardError().toStdString();
    EXPECT_EQ(lecteur.readAllStandardOutput().trimmed().toInt(), photos + 1) << "pictures found";
  }
}

}  // namespace
}  // namespace vaktor::essai
