// SPDX-License-Identifier: GPL-3.0-or-later
// The live switch with its asymmetries, one frame, the page and its test.
#include <gtest/gtest.h>

#include "base/failure.h"
#include "companions/companion_fakes.h"

namespace vaktor::essai {
namespace {

class HorlogeFigee : public Horloge {
 public:
  qint32 CompteTics() const override { return Tics; }
  QDate DonneDate() const override { return {}; }
  QTime DonneHeure() const override { return {}; }
  QString DonneHeureTexte() const override { return Heure; }
  QString Heure = QStringLiteral("09:05:03");
  qint32 Tics = 0;
};

struct Live : testing::Test, EcrivainLive, TimbreHeure, Ouvreur {
  // EcrivainLive
  void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) override {
    ++Essais;
    if (EchecEcriture) throw Echec(kAppelIncorrect, QStringLiteral("disque"));
    Journal << QStringLiteral("jpeg %1 %2").arg(fichier).arg(qualite);
    Ecrite = image;
  }
  // TimbreHeure
  QImage DessineTimbre(const QString& texte) override {
    Journal << QStringLiteral("timbre ") + texte;
    QImage timbre(kLargeur, kHauteur, QImage::Format_RGB32);
    timbre.fill(0xff00ff00);
    return timbre;
  }
  void OuvreAdresse(const QString& adresse) override { Journal << QStringLiteral("ouvre ") + adresse; }
  void OuvreDossier(const QString&) override {}

  QString Fait(void (PublicationLive::*operation)()) {
    Journal.clear();
    (Regles.*operation)();
    return Journal.join(u'|');
  }
  QString Publie() {
    Journal.clear();
    Regles.PublieLive(Surface);
    return Journal.join(u'|');
  }

  QStringList Journal;
  bool EchecEcriture = false;
  int Essais = 0;
  QImage Surface{100, 50, QImage::Format_RGB32};
  QImage Ecrite;
  Parametres Reglages;
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/data")};
  HorlogeFigee Temps;
  CommandesFaux Commandes{Journal};
  FenetreFausse Fenetre{Journal};
  EtatLiaison Etat;
  ChampsSite Champs{.TxtPass = "p", .TxtUserName = "u", .TxtHtml = "http://x/", .TxtFtp = "ftp.x"};
  PublicationLive Regles{PortsLive{Reglages, Dossiers, *this, *this, Temps, Commandes, Fenetre, Fenetre, *this, Etat,
                                   [this] { return Champs; }}};
};

TEST_F(Live, TurningOnConnects) {
  EXPECT_EQ(Fait(&PublicationLive::Allume), "live LEDREDON|statut 69|FTP Conne");
  EXPECT_TRUE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Regles.LiveActif());
}

TEST_F(Live, EachUseOfTheSwitchTakesBackThatAnErrorHadSwitchedIt) {
  for (void (PublicationLive::*operation)() : {&PublicationLive::Allume, &PublicationLive::AllumeSansPersonne,
                                               &PublicationLive::Eteint, &PublicationLive::OublieLive}) {
    Etat.PageCoupee = Libelle::kAccesIncorrect;
    Fait(operation);
    EXPECT_FALSE(Etat.PageCoupee);
  }
}

TEST_F(Live, TurningOffTellsTheCompanionOnceTheSwitchIsOff) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EXPECT_TRUE(Regles.EstAllume());
  EXPECT_EQ(Fait(&PublicationLive::Eteint), "live LEDRED");
  EXPECT_FALSE(Regles.EstAllume());
  EXPECT_FALSE(Regles.LiveActif());
  EXPECT_EQ(Fait(&PublicationLive::Deconnecte), "statut 34|FTP Decon");
}

TEST_F(Live, MissingParametersAreAskedFor_AndNothingIsSent) {
  const ChampsSite bons = Champs;
  const auto essaie = [&](QString ChampsSite::*champ, const QString& texte) {
    Champs = bons;
    Champs.*champ = texte;
    Etat = {};
    return Fait(&PublicationLive::Allume);
  };
  const QString bloque = QStringLiteral("boite 9|page 2");
  EXPECT_EQ(essaie(&ChampsSite::TxtPass, ""), bloque);
  EXPECT_EQ(essaie(&ChampsSite::TxtUserName, "http://"), bloque);
  EXPECT_EQ(essaie(&ChampsSite::TxtHtml, ""), bloque);
  EXPECT_EQ(essaie(&ChampsSite::TxtFtp, "ftp."), bloque);
  EXPECT_EQ(essaie(&ChampsSite::TxtFtp, ""), bloque);
  EXPECT_FALSE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
}

TEST_F(Live, TheUserNameAndNotTheWebAddressIsComparedWithItsStartValue) {
  Champs.TxtHtml = "http://";  // passes, and so does an empty user name
  Champs.TxtUserName.clear();
  EXPECT_TRUE(Fait(&PublicationLive::Allume).endsWith("FTP Conne"));
}

TEST_F(Live, CancelLeavesThePageWhereItIs) {
  Champs.TxtPass.clear();
  Fenetre.ReponseOk = false;
  EXPECT_EQ(Fait(&PublicationLive::Allume), "boite 9");
  EXPECT_FALSE(Etat.SurveillanceEnCours);
}

TEST_F(Live, WithNobodyThereTheStatusLineAloneSaysThatParametersAreMissing) {
  EXPECT_EQ(Fait(&PublicationLive::AllumeSansPersonne), "live LEDREDON|statut 69|FTP Conne");
  Fait(&PublicationLive::Eteint);
  Champs.TxtPass.clear();
  EXPECT_EQ(Fait(&PublicationLive::AllumeSansPersonne), "statut Il manque des paramètres FTP");
  EXPECT_FALSE(Etat.SurveillanceEnCours);
}

TEST_F(Live, AfterAnErrorTheNextClickConnectsAgain) {
  Fait(&PublicationLive::Allume);
  Etat.SurveillanceEnCours = Etat.LiveActif = false;  // what "ErrCo" does
  EXPECT_EQ(Fait(&PublicationLive::Allume), "live LEDREDON|statut 69|FTP Conne");
}

TEST_F(Live, TheEndOfACameraRunForgetsTheLinkAndTellsNobody) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EXPECT_EQ(Fait(&PublicationLive::OublieLive), "");
  EXPECT_FALSE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
}

TEST_F(Live, ShutdownStopsTheFramesAlone) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EXPECT_EQ(Fait(&PublicationLive::CoupeLive), "");
  EXPECT_TRUE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
}

TEST_F(Live, AFrameIsStampedWrittenAndTold) {
  Etat.LiveActif = true;
  Reglages.QualiteJpeg = 50;
  Surface.fill(0xffff0000);
  EXPECT_EQ(Publie(), "timbre 09h05m03|jpeg /data/Temp/Live.jpg 50|FTP Surve");
  EXPECT_TRUE(Etat.LiveActif);
}

TEST_F(Live, TheStampCoversSixtySixByEighteenPixelsAndNoMore) {
  Surface.fill(0xffff0000);
  Publie();
  for (int y = 0; y < Ecrite.height(); ++y)
    for (int x = 0; x < Ecrite.width(); ++x) {
      const bool dedans = x >= 3 && x < 69 && y >= 3 && y < 21;
      ASSERT_EQ(Ecrite.pixel(x, y), dedans ? 0xff00ff00 : 0xffff0000) << x << "," << y;
    }
  EXPECT_EQ(Surface.pixel(10, 10), 0xffff0000) << "the frame that everybody shares is not drawn on";
}

TEST_F(Live, TheStampIsCutAtTheEdgesOfASmallFrame) {
  for (const QSize taille : {QSize(1, 1), QSize(3, 3), QSize(4, 40), QSize(40, 4), QSize(68, 20)}) {
    Surface = QImage(taille, QImage::Format_RGB32);
    Surface.fill(0xffff0000);
    Publie();
    EXPECT_EQ(Ecrite.size(), taille);
    if (taille.width() > 3 && taille.height() > 3) {
      EXPECT_EQ(Ecrite.pixel(3, 3), 0xff00ff00);
    }
  }
}

TEST_F(Live, WithTheLinkDownTheFrameIsWrittenAndNobodyTold) { EXPECT_FALSE(Publie().contains("Surve")); }

TEST_F(Live, AFrameThatCannotBeWrittenIsNotAnnounced) {
  Etat.LiveActif = true;
  EchecEcriture = true;
  Journal.clear();
  EXPECT_THROW(Regles.PublieLive(Surface), Echec);
  EXPECT_EQ(Journal.join(u'|'), "timbre 09h05m03");
  EXPECT_TRUE(Etat.LiveActif);
}

// Out of the analysis of a frame, which it would end: with a slow camera that of each frame, and for ever.
TEST_F(Live, AnImageThatCannotBeWrittenForASecondIsTriedOnceASecondAndFailsInSilence) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EchecEcriture = true;
  Temps.Tics = 5000;
  EXPECT_THROW(Regles.PublieLive(Surface), Echec);
  Temps.Tics = 5900;
  EXPECT_THROW(Regles.PublieLive(Surface), Echec);
  Temps.Tics = 6000;
  EXPECT_NO_THROW(Regles.PublieLive(Surface));
  Essais = 0;
  Journal.clear();
  for (Temps.Tics = 6100; Temps.Tics <= 16'000; Temps.Tics += 100) EXPECT_NO_THROW(Regles.PublieLive(Surface));
  EXPECT_EQ(Essais, 10);
  EXPECT_TRUE(Journal.filter(QStringLiteral("FTP")).isEmpty()) << "nothing is announced";
  EchecEcriture = false;
  Temps.Tics = 17'000;
  EXPECT_TRUE(Publie().endsWith(QStringLiteral("FTP Surve")));
  EchecEcriture = true;
  Temps.Tics = 17'500;
  EXPECT_THROW(Regles.PublieLive(Surface), Echec) << "another failure has its second again";
}

TEST_F(Live, AFailureDoesNotOutliveTheSwitch) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EchecEcriture = true;
  EXPECT_THROW(Regles.PublieLive(Surface), Echec);
  Regles.OublieLive();
  Temps.Tics = 3'600'000;
  EXPECT_THROW(Regles.PublieLive(Surface), Echec);
}

TEST_F(Live, APageThatWaitsForItsCompanionWantsThePhotosOfTheAlarm) {
  EXPECT_FALSE(Regles.VeutPhotos());
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EXPECT_TRUE(Regles.VeutPhotos());
  Regles.PerdCompagnon();
  EXPECT_FALSE(Regles.LiveActif());
  EXPECT_TRUE(Regles.VeutPhotos());
  Regles.OublieLive();
  EXPECT_FALSE(Regles.VeutPhotos());
}

TEST_F(Live, StampTexts) {
  EXPECT_EQ(PublicationLive::FormateTimbre("23:59:58"), "23h59m58");
  EXPECT_EQ(PublicationLive::FormateTimbre("9:05:03"), "09h05m03") << "one digit gets its zero";
  EXPECT_EQ(PublicationLive::FormateTimbre("9:05:03 PM"), "09h05m03") << "a 12-hour format is cut at eight";
  EXPECT_EQ(PublicationLive::FormateTimbre("11:05:03 PM"), "11h05m03");
  EXPECT_EQ(PublicationLive::FormateTimbre(":05:03"), "0:h5:m03") << "the zero comes even before the first mark";
  EXPECT_EQ(PublicationLive::FormateTimbre("21.05.33"), "21h05m33") << "no mark, no zero";
  EXPECT_EQ(PublicationLive::FormateTimbre(""), "hm");
}

TEST_F(Live, ThePageIsMadeOnlyWhileConnected) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EXPECT_EQ(Fait(&PublicationLive::DemandePage), "statut 42|FTP UploM");
  EXPECT_FALSE(Etat.LiveActif) << "no frame until the companion has finished";
  EXPECT_TRUE(Etat.SurveillanceEnCours);
  EXPECT_EQ(Fait(&PublicationLive::DemandePage), "statut 67");
}

TEST_F(Live, TheTestOpensThePageWhateverTheState) {
  Reglages.AdresseHtml = "http://exemple.org/cam/";
  EXPECT_EQ(Fait(&PublicationLive::TestPageLive), "ouvre http://exemple.org/cam/live.html");
}

TEST_F(Live, WithoutItsCompanionThePageWaitsAndIsTakenUpByTheNext) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EXPECT_EQ(Fait(&PublicationLive::PerdCompagnon), "live LEDREDON|statut 69");
  EXPECT_FALSE(Etat.LiveActif) << "nobody takes a frame";
  EXPECT_TRUE(Etat.SurveillanceEnCours) << "the user's switch stays";
  EXPECT_TRUE(Etat.PageInterrompue);
  EXPECT_EQ(Fait(&PublicationLive::RetrouveCompagnon), "live LEDREDON|statut 69|FTP Conne");
  EXPECT_FALSE(Etat.LiveActif) << "not before it is connected";
}

TEST_F(Live, ACompanionThatGoesTwiceDoesNotMakeThePageForgotten) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  Regles.PerdCompagnon();
  Regles.PerdCompagnon();
  EXPECT_TRUE(Etat.PageInterrompue);
}

TEST_F(Live, WithTheSwitchOffACompanionComesAndGoesUnseen) {
  EXPECT_EQ(Fait(&PublicationLive::PerdCompagnon), "");
  EXPECT_EQ(Fait(&PublicationLive::RetrouveCompagnon), "");
  EXPECT_FALSE(Etat.PageInterrompue);
}

TEST_F(Live, APageThatNobodyAnsweredForIsAskedForAgain) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  Regles.DemandePage();
  Regles.PerdCompagnon();
  EXPECT_TRUE(Etat.PageInterrompue) << "the frames were only held back";
  EXPECT_EQ(Fait(&PublicationLive::RetrouveCompagnon), "live LEDREDON|statut 69|FTP Conne|FTP UploM");
}

TEST_F(Live, TheSwitchGoesOffForAPageThatWaitsToo) {
  Etat.SurveillanceEnCours = Etat.LiveActif = Etat.PageAttendue = true;
  Regles.PerdCompagnon();
  Regles.Eteint();
  EXPECT_FALSE(Etat.PageInterrompue);
  EXPECT_FALSE(Etat.PageAttendue);
  EXPECT_EQ(Fait(&PublicationLive::RetrouveCompagnon), "");
}

}  // namespace
}  // namespace vaktor::essai
