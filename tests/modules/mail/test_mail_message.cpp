// SPDX-License-Identifier: GPL-3.0-or-later
// The mail as text, read back by another mail library; the photos it takes; the addresses it lets pass.
#include <QCryptographicHash>
#include <QDateTime>
#include <QTimeZone>

#include "modules/mail/failure_advice.h"
#include "modules/mail/intrusion_words.h"
#include "modules/mail/mail_bench.h"
#include "modules/mail/mail_maker.h"
#include "modules/mail/photo_source.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {
namespace {

Courriel Modele() {
  return {.Expediteur = "cam@exemple.fr",
          .Destinataires = {"anna@exemple.fr", "bob@exemple.fr"},
          .Sujet = "Intrusion",
          .Corps = "Bonjour",
          .Date = QDateTime(QDate(2026, 11, 15), QTime(14, 5, 9), QTimeZone(3600)),
          .Identifiant = "20261115-abc-1",
          .Pieces = {}};
}

TEST(Message, AnotherLibraryReadsItAsItWasMeant) {
  Courriel c = Modele();
  c.Sujet = QString::fromUtf8("Intrusion détectée à l'entrée 🎥 — très longue ligne pour plusieurs mots codés, n° 12");
  c.Corps = QString::fromUtf8("Première ligne\nœuvre €\r\n.\r\n--_vaktor_\rfin");
  c.Pieces = {{"2026-11-15  14-05-09 Photo 00003.jpg", "\xff\xd8 un \xff\xd9"},
              {QString::fromUtf8("été \"x\\y\".jpg"), QByteArray(100000, '\0')}};
  const QByteArray message = ComposeMessage(c);
  const QJsonObject lu = LitCourriel(message);
  EXPECT_EQ(lu["subject"].toString(), c.Sujet);
  EXPECT_EQ(lu["body"].toString(), QString::fromUtf8("Première ligne\nœuvre €\n.\n--_vaktor_\nfin"));
  EXPECT_EQ(lu["from"].toString(), "cam@exemple.fr");
  EXPECT_EQ(lu["to"].toString(), "anna@exemple.fr, bob@exemple.fr");
  EXPECT_EQ(lu["date"].toString(), "2026-11-15T14:05:09+01:00");
  EXPECT_EQ(lu["id"].toString(), "<20261115-abc-1@exemple.fr>");
  EXPECT_TRUE(lu["defects"].toArray().isEmpty());
  EXPECT_EQ(lu["names"].toArray().at(0).toString(), c.Pieces.at(0).Nom) << "the two blanks are part of the name";
  EXPECT_EQ(lu["types"].toArray(), QJsonArray({"image/jpeg", "image/jpeg"}));
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(lu["sums"].toArray().at(i).toString().toLatin1(),
              QCryptographicHash::hash(c.Pieces.at(i).Contenu, QCryptographicHash::Sha256).toHex());
  EXPECT_LE(lu["longest"].toInt(), 200);
  EXPECT_EQ(lu["bare"].toInt(), 0) << "every line ends in CR LF";
}

// RFC 3834: no holiday note answers it, and no mailing list takes it for a person's.
TEST(Message, SaysThatAProgramSentIt) {
  EXPECT_TRUE(ComposeMessage(Modele()).contains("\r\nAuto-Submitted: auto-generated\r\n"));
}

TEST(Message, LinesWithEncodedWordsAreShort) {
  Courriel c = Modele();
  c.Sujet = QString(300, QChar(0xe9));
  int codees = 0;
  for (const QByteArray& ligne : ComposeMessage(c).split('\n')) {
    if (!ligne.contains("=?")) continue;
    ++codees;
    EXPECT_LE(ligne.trimmed().size(), 76) << ligne.toStdString();
  }
  EXPECT_GT(codees, 1);
  EXPECT_EQ(LitCourriel(ComposeMessage(c))["subject"].toString(), c.Sujet);
}

TEST(Message, SubjectsThatLookLikeCodeStayThemselves) {
  for (const char* sujet : {"", "=?UTF-8?B?YWJj?=", "a: b", "  deux  blancs"}) {
    Courriel c = Modele();
    c.Sujet = QString::fromUtf8(sujet);
    EXPECT_EQ(LitCourriel(ComposeMessage(c))["subject"].toString().trimmed(), c.Sujet.trimmed()) << sujet;
  }
}

TEST(Message, LineBreaksAddNoHeader) {
  const QJsonArray attendus = LitCourriel(ComposeMessage(Modele()))["headers"].toArray();
  for (const char* fin : {"\r\n", "\n", "\r", "\r\n ", "\xe2\x80\xa8", "\v", "\f", "\xc2\x85"}) {
    const QString mal = QString::fromUtf8(fin) + "Bcc: evil@exemple.fr" + QString::fromUtf8(fin) + "X: y";
    Courriel c = Modele();
    c.Sujet += mal;
    c.Corps += mal;
    c.Expediteur += mal;
    c.Destinataires.first() += mal;
    c.Pieces = {{"a.jpg" + mal, "x"}};
    const QByteArray message = ComposeMessage(c);
    EXPECT_EQ(LitCourriel(message)["headers"].toArray(), attendus) << fin;
    EXPECT_FALSE(message.contains("\nBcc:") || message.contains("\rBcc:"));
  }
}

TEST(Settings, AnAddressThatIsNoneIsToldAndTheOthersGetTheMail) {
  Parametres p;
  p.MailDestination = "\"Martin, Anna\" <anna@b.fr>; anna.b.fr, c@d.fr";
  p.SmtpFrom = "cam";
  ReglagesCourriel r = TraduitReglages(p, {}, {});
  EXPECT_EQ(r.Adresses.Destinataires, QStringList({"anna@b.fr", "c@d.fr"}));
  EXPECT_EQ(r.Adresses.Expediteur, "");
  EXPECT_EQ(r.AdressesFausses, QStringList({"cam", "anna.b.fr"}));
  EXPECT_EQ(r.Envoi.Presente, r.Adresses);
  p.SmtpActif = false;
  r = TraduitReglages(p, {}, {});
  EXPECT_EQ(r.Adresses.Expediteur, "cam") << "a user of this machine";
  EXPECT_TRUE(r.AdressesFausses.isEmpty());
}

TEST(Lighter, HasTheTextAndWhyThePhotosAreMissing) {
  Courriel courriel = Modele();
  courriel.Corps = QString::fromUtf8("Là\r\nmaintenant");
  courriel.Pieces = {{"a.jpg", QByteArray(100'000, 'x')}};
  const QByteArray leger = RetirePieces(ComposeMessage(courriel), QString::fromUtf8("Trop gros."));
  const QJsonObject lu = LitCourriel(leger);
  EXPECT_EQ(lu["body"].toString(), QString::fromUtf8("Là\nmaintenant\n\nTrop gros."));
  EXPECT_TRUE(lu["names"].toArray().isEmpty());
  EXPECT_EQ(lu["subject"].toString(), LitCourriel(ComposeMessage(courriel))["subject"].toString());
  EXPECT_LT(leger.size(), 2000);
  courriel.Pieces.clear();
  EXPECT_TRUE(RetirePieces(ComposeMessage(courriel), "x").isEmpty()) << "it has none";
  EXPECT_TRUE(RetirePieces("no message", "x").isEmpty());
}

TEST(Lighter, TheSenderIsThatOfNow) {
  Courriel courriel = Modele();
  courriel.Expediteur.clear();
  const QByteArray sans = ComposeMessage(courriel);
  EXPECT_EQ(MetExpediteur(sans, ""), sans);
  EXPECT_TRUE(MetExpediteur(sans, "moi@b.fr").contains("From: <moi@b.fr>\r\n"));
  courriel.Expediteur = "avant@b.fr";
  const QByteArray autre = MetExpediteur(ComposeMessage(courriel), "moi@b.fr");
  EXPECT_EQ(autre.count("\r\nFrom: "), 1);
  EXPECT_TRUE(autre.contains("\r\nFrom: <moi@b.fr>\r\nTo: "));
}

struct Photos : testing::Test {
  QTemporaryDir Dossier;
  const qint64 Intrusion = QDateTime::currentMSecsSinceEpoch() - 60'000;

  void Pose(const QString& nom, qint64 ecart, const QByteArray& octets = PetitJpeg(" image ")) const {
    QFile f(Dossier.filePath(nom));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
    f.flush();
    f.setFileTime(QDateTime::fromMSecsSinceEpoch(Intrusion + ecart), QFileDevice::FileModificationTime);
  }
  QString Prend(int nombre, qint64 octets = kOctetsPhotosMax, const QStringList& sauf = {},
                const QStringList& enTete = {}) {
    const ChoixPhotos choix = PrendPhotos(Dossier.path(), Intrusion, nombre, octets, sauf, enTete);
    QStringList noms;
    for (const PieceJointe& p : choix.Pieces) noms << p.Nom;
    Tete = choix.Tete;
    return noms.join(u'|');
  }
  QString Tete;
};

TEST_F(Photos, TheNearestComeFirstAndNoMoreThanWanted) {
  Pose("a.jpg", -4000);
  Pose("b.JPG", 1000);
  Pose("c.jpg", -2000);
  Pose("d.jpg", 30);
  Pose("e.png", 0);
  EXPECT_EQ(Prend(10), "d.jpg|b.JPG|c.jpg|a.jpg");
  EXPECT_EQ(Prend(2), "d.jpg|b.JPG");
  EXPECT_EQ(Prend(0), "");
  EXPECT_EQ(Prend(-1), "");
}

// As on a network disk whose clock nobody sets.
TEST_F(Photos, ByTheirNamesWhereTheDisksClockTellsAnotherTime) {
  const auto nom = [this](qint64 ecart, int numero) {
    const QDateTime prise = QDateTime::fromMSecsSinceEpoch(Intrusion + ecart);
    return prise.toString(QStringLiteral("yyyy-MM-dd  HH-mm-ss")) + QStringLiteral(" Photo 0000%1.jpg").arg(numero);
  };
  constexpr qint64 kQuartMs = 900'000;
  Pose(nom(-3000, 1), -3000 - kQuartMs);
  Pose(nom(-8000, 2), -8000 + kQuartMs);
  Pose(nom(20'000, 3), 20'000 - kQuartMs);
  EXPECT_EQ(Prend(10), QStringList({nom(-3000, 1), nom(-8000, 2), nom(20'000, 3)}).join(u'|'));
}

TEST_F(Photos, ByTheirNamesAlsoAcrossMidnight) {
  const QDateTime avant(QDate(2026, 11, 14), QTime(23, 55));
  const QDateTime apres(QDate(2026, 11, 15), QTime(0, 5));
  Pose("2026-11-10  23-55-00 Photo 00001.jpg", apres.toMSecsSinceEpoch() - Intrusion);
  EXPECT_EQ(ListePhotos(Dossier.path(), avant.toMSecsSinceEpoch()).first().Instant, avant.toMSecsSinceEpoch());
  ASSERT_TRUE(QDir(Dossier.path()).remove("2026-11-10  23-55-00 Photo 00001.jpg"));
  Pose("2026-11-10  00-05-00 Photo 00001.jpg", avant.toMSecsSinceEpoch() - Intrusion);
  EXPECT_EQ(ListePhotos(Dossier.path(), apres.toMSecsSinceEpoch()).first().Instant, apres.toMSecsSinceEpoch());
}

TEST_F(Photos, ByTheirDisksClockWhereTheNameIsOfTheSameTime) {
  const QDateTime nommee = QDateTime::fromMSecsSinceEpoch(Intrusion);
  Pose(nommee.toString(QStringLiteral("yyyy-MM-dd  HH-mm-ss")) + QStringLiteral(" Photo 00001.jpg"), 7000);
  EXPECT_EQ(ListePhotos(Dossier.path(), Intrusion).first().Instant, Intrusion + 7000)
      << "it took so long to be written";
}

// As on a journey: the program keeps the time zone of its start, its mail companion was started in another.
TEST_F(Photos, ByTheirDisksClockWhereTheNameIsFarOff) {
  Pose("2026-11-15  " + QDateTime::fromMSecsSinceEpoch(Intrusion - 3'600'000).toString("HH-mm-ss") + " Photo 00001.jpg",
       0);
  EXPECT_FALSE(Prend(1).isEmpty());
}

TEST_F(Photos, OfTwoAsNearTheLaterComesFirst) {
  Pose("a.jpg", -500);
  Pose("b.jpg", 500);
  EXPECT_EQ(Prend(2), "b.jpg|a.jpg");
}

TEST_F(Photos, TheOneOfTheMostMovementComesFirstInThePlaceOfTheFarthest) {
  Pose("a.jpg", -4000);
  Pose("b.jpg", 1000);
  Pose("d.jpg", 30);
  EXPECT_EQ(Prend(2), "d.jpg|b.jpg");
  EXPECT_EQ(Tete, "");
  EXPECT_EQ(Prend(2, kOctetsPhotosMax, {}, {"a.jpg", "b.jpg"}), "a.jpg|d.jpg");
  EXPECT_EQ(Tete, "a.jpg");
  EXPECT_EQ(Prend(3, kOctetsPhotosMax, {}, {"b.jpg"}), "b.jpg|d.jpg|a.jpg") << "once";
  EXPECT_EQ(Prend(1, kOctetsPhotosMax, {}, {"a.jpg"}), "a.jpg");
  EXPECT_EQ(Prend(0, kOctetsPhotosMax, {}, {"a.jpg"}), "");
  EXPECT_EQ(Tete, "");
}

TEST_F(Photos, TheMostMovementOfALongIntrusionMayLieFarBack) {
  Pose("loin.jpg", -kFenetrePhotosMs - 60'000);
  Pose("d.jpg", 30);
  EXPECT_EQ(Prend(5, kOctetsPhotosMax, {}, {"loin.jpg"}), "loin.jpg|d.jpg");
}

TEST_F(Photos, WhereTheOneOfTheMostMovementCannotBeHadTheNextOneIsFirst) {
  Pose("a.jpg", -4000);
  Pose("b.jpg", 1000, PetitJpeg(" image ").chopped(2));
  Pose("c.jpg", 2000);
  Pose("d.jpg", 30);
  EXPECT_EQ(Prend(3, kOctetsPhotosMax, {"a.jpg"}, {"a.jpg", "gone.jpg", "b.jpg", "c.jpg"}), "c.jpg|d.jpg");
  EXPECT_EQ(Tete, "c.jpg");
  EXPECT_EQ(Prend(3, kOctetsPhotosMax, {}, {"gone.jpg"}), "d.jpg|c.jpg|a.jpg") << "as it was";
  EXPECT_EQ(Tete, "");
}

TEST_F(Photos, OneThatIsStillBeingWrittenIsNotAttached) {
  Pose("entier.jpg", 2000);
  Pose("debut.jpg", 0, PetitJpeg(" image ").chopped(2));
  Pose("vide.jpg", 0, "");
  Pose("texte.jpg", 0, "non");
  Pose("marques.jpg", 0, "\xff\xd8 first and last mark, and no picture \xff\xd9");
  EXPECT_EQ(Prend(2), "entier.jpg") << "the next one takes its place";
}

TEST_F(Photos, TheSizeIsBounded) {
  const QByteArray gros = PetitJpeg(QByteArray(1000, 'x'));
  Pose("a.jpg", 0, gros);
  Pose("b.jpg", 100, gros);
  Pose("c.jpg", 200);
  EXPECT_EQ(Prend(9, 1100), "a.jpg|c.jpg");
}

TEST_F(Photos, AFullMailKeepsItsBound) {
  Courriel c = Modele();
  c.Pieces = {{"a.jpg", QByteArray(static_cast<int>(kOctetsPhotosMax), 'x')}};
  EXPECT_LT(ComposeMessage(c).size(), kOctetsCourrielMax);
}

TEST_F(Photos, AnotherEventsPhotosAreLeftOut) {
  Pose("vieux.jpg", -kFenetrePhotosMs - 1);
  Pose("limite.jpg", -kFenetrePhotosMs);
  EXPECT_EQ(Prend(9), "limite.jpg");
}

TEST_F(Photos, AFolderThatIsNotThereGivesNone) {
  EXPECT_TRUE(PrendPhotos("/pas/la", Intrusion, 5, 1000).Pieces.isEmpty());
}

TEST(IntrusionWords, TellWhenItBeganWhatIsFirstAndWhereToLook) {
  const ArdoiseIntrusion ardoise{
      .Depuis = QDateTime(QDate(2026, 11, 22), QTime(3, 4, 5), Qt::OffsetFromUTC, 3600),
      .Jusqua = {},
      .Taille = QSize(640, 480),
      .Photos = {{"a.jpg", 900, QRect(500, 10, 100, 100)}, {"b.jpg", 80, QRect(0, 200, 40, 100)}}};
  EXPECT_EQ(DitIntrusionDuCourriel(ardoise, "a.jpg", "/home/anna/intrus", Langue::kAnglais),
            "The intrusion began on Sunday 22 November 2026 at 03:04:05.\n"
            "The first picture is that of the most movement so far: look at the top right.\n"
            "What followed is in Vaktor's Timeline (key F4), on the computer that watches.\n"
            "Its pictures are there in /home/anna/intrus");
  EXPECT_EQ(DitIntrusionDuCourriel(ardoise, "b.jpg", "", Langue::kFrancais),
            QString::fromUtf8("L'intrusion a commencé le dimanche 22 novembre 2026 à 03:04:05.\n"
                              "La première photo est celle du plus grand mouvement jusqu'ici : regardez à gauche.\n"
                              "La suite est dans la Frise de Vaktor (touche F4), sur l'ordinateur qui veille."));
  EXPECT_FALSE(DitIntrusionDuCourriel(ardoise, "", "", Langue::kAnglais).contains("first picture"));
  ArdoiseIntrusion vide = ardoise;
  vide.Photos.clear();
  const QString sans = DitIntrusionDuCourriel(vide, "", "/home/anna/intrus", Langue::kAnglais);
  EXPECT_TRUE(sans.endsWith("So far there is no picture of it: Vaktor's window says what prevents it."))
      << sans.toStdString();
  EXPECT_FALSE(sans.contains("intrus\n") || sans.contains("/home")) << "nobody finds them where there are none";
  EXPECT_FALSE(DitIntrusionDuCourriel(vide, "", "", Langue::kAnglais).contains("prevents")) << "none are wanted";
}

TEST(IntrusionWords, EachNinthOfAPictureHasItsPlace) {
  QStringList lieux;
  for (const int y : {10, 200, 430})
    for (const int x : {10, 300, 590}) lieux << DitEndroit(QRect(x, y, 20, 20), QSize(640, 480), Langue::kAnglais);
  EXPECT_EQ(lieux.join(u'|'),
            "at the top left|at the top|at the top right|on the left|in the middle|on the right|at the bottom left|"
            "at the bottom|at the bottom right");
  EXPECT_EQ(DitEndroit(QRect(20, 20, 500, 400), QSize(640, 480), Langue::kFrancais), "partout");
  EXPECT_EQ(DitEndroit(QRect(900, 20, 10, 10), QSize(640, 480), Langue::kAnglais), "at the top right");
  EXPECT_EQ(DitEndroit({}, QSize(640, 480), Langue::kAnglais), "");
  EXPECT_EQ(DitEndroit(QRect(1, 1, 1, 1), {}, Langue::kAnglais), "");
}

TEST(Settings, AreTakenAsStored) {
  Parametres p;
  p.SmtpPort = " 465 ";
  p.MailNombrePhoto = "3";
  p.MailNombreMail = "x";
  p.RepertoirePhoto = "/home/anna\\intrus";
  DossiersModule dossiers;
  dossiers.Programme.Donnees = "/data";
  ReglagesCourriel r = TraduitReglages(p, dossiers, {});
  EXPECT_EQ(r.Envoi.Port, 465);
  EXPECT_TRUE(r.Envoi.TlsDesLeDebut);
  EXPECT_EQ(r.NombrePhoto, 3);
  EXPECT_EQ(r.NombreMail, 1) << "no number: as at a first run";
  EXPECT_EQ(r.DossierPhotos, "/data/Temp/FTP") << "photos are off: the live copies";
  p.PhotoActif = true;
  for (const char* port : {"", "abc", "0", "-1", "65536", "25x", "99999999999"}) {
    p.SmtpPort = QString::fromUtf8(port);
    r = TraduitReglages(p, dossiers, {});
    EXPECT_EQ(r.Envoi.Port, 0) << port;
  }
  EXPECT_EQ(r.DossierPhotos, "/home/anna/intrus");
}

TEST(Settings, APasswordTravelsEncryptedUnlessItStaysHereOrTheUserDoesWithout) {
  Parametres p;
  const auto exige = [&p](const char* serveur) {
    p.SmtpServeur = QString::fromUtf8(serveur);
    return TraduitReglages(p, {}, {}).Envoi.TlsExige;
  };
  for (const char* loin : {"smtp.exemple.fr", "192.168.1.7", "localhost.exemple.fr", "127.exemple.fr", "::2"})
    EXPECT_TRUE(exige(loin)) << loin;
  for (const char* ici : {"localhost", "LocalHost ", "127.0.0.1", "127.1.2.3", "::1"}) EXPECT_FALSE(exige(ici)) << ici;
  p.SmtpSansChiffrement = true;
  EXPECT_FALSE(exige("smtp.exemple.fr")) << "the user's choice";
  p.SmtpSansChiffrement = false;
  p.SmtpNeedLogin = false;
  EXPECT_FALSE(exige("smtp.exemple.fr")) << "no password";
  p.SmtpNeedLogin = true;
  p.SmtpActif = false;
  EXPECT_FALSE(exige("smtp.exemple.fr")) << "the system's own program";
}

TEST(Encryption, ARehearsalSaysWhetherItsWayWasEncrypted) {
  ReglagesEnvoi reglages;
  reglages.AvecConnexion = true;
  ResultatEnvoi resultat{.Accepte = true, .Chiffre = true};
  EXPECT_EQ(DitChiffrement(resultat, reglages).Dit(Langue::kAnglais), " The connection was encrypted.");
  resultat.Chiffre = false;
  EXPECT_TRUE(DitChiffrement(resultat, reglages).Dit(Langue::kAnglais).contains("465 or 587"));
  reglages.Serveur = "localhost";
  EXPECT_EQ(DitChiffrement(resultat, reglages).Dit(Langue::kAnglais), " The connection was not encrypted.");
  reglages.Serveur = "smtp.exemple.fr";
  reglages.AvecConnexion = false;
  EXPECT_EQ(DitChiffrement(resultat, reglages).Dit(Langue::kAnglais), " The connection was not encrypted.");
  reglages.ParSmtp = false;
  EXPECT_EQ(DitChiffrement(resultat, reglages).Dit(Langue::kAnglais), "");
}

TEST(Settings, ALoginIsThatOfItsFieldsAndOnlyWhereItsBoxIsTicked) {
  Parametres p;
  p.SmtpServeur = " smtp.exemple.fr ";
  p.SmtpPort = "587";
  p.SmtpUser = "anna";
  p.SmtpPass = "sesame";
  p.SmtpNeedLogin = false;
  ReglagesEnvoi r = TraduitReglages(p, {}, "ca.pem").Envoi;
  EXPECT_EQ(r.Serveur, "smtp.exemple.fr");
  EXPECT_FALSE(r.TlsDesLeDebut);
  EXPECT_FALSE(r.AvecConnexion);
  EXPECT_EQ(r.Utilisateur, "anna");
  EXPECT_EQ(r.MotDePasse, "sesame");
  EXPECT_EQ(r.FichierAutorites, "ca.pem");
  p.SmtpNeedLogin = true;
  EXPECT_TRUE(TraduitReglages(p, {}, {}).Envoi.AvecConnexion);
}

// RFC 4616 and what is called AUTH LOGIN: servers like to quote what they refuse.
TEST(Settings, ThePasswordIsASecretInEachFormInWhichItTravels) {
  ReglagesEnvoi r;
  EXPECT_TRUE(DonneSecrets(r).isEmpty()) << "without one, nothing is to be blotted out";
  r.Utilisateur = "anna";
  r.MotDePasse = "sesame";
  const QStringList secrets = DonneSecrets(r);
  for (const char* forme : {"sesame", "c2VzYW1l", "AGFubmEAc2VzYW1l"})
    EXPECT_TRUE(secrets.contains(QString::fromUtf8(forme))) << forme;
}

}  // namespace
}  // namespace vaktor::essai
