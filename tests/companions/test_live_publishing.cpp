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

struct Live : testing::Test, CameraPourLive, EcrivainLive, TimbreHeure, SauvegardeParametres, PompeEvenements, Ouvreur {
  // CameraPourLive
  bool CameraActive() const override { return Active; }
  bool EstTerminee() const override { return Terminee; }
  void BasculeCamera() override {
    Journal << QStringLiteral("camera");
    Active = CameraPresente;
  }
  void DesarmeAlarme() override { Journal << QStringLiteral("desarme"); }
  QImage ImageSurface() const override { return Surface; }
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
  void SauveParametres() override {
    Journal << QStringLiteral("sauve");
    Reglages.ParametresModifies = false;
  }
  void PompeMessages() override {
    Journal << QStringLiteral("pompe");
    if (PendantPompe) PendantPompe();
  }
  void OuvreAdresse(const QString& adresse) override { Journal << QStringLiteral("ouvre ") + adresse; }
  void OuvreDossier(const QString&) override {}

  QString Fait(void (PublicationLive::*operation)()) {
    Journal.clear();
    (Regles.*operation)();
    return Journal.join(u'|');
  }

  QStringList Journal;
  bool Active = true;
  bool CameraPresente = true;
  bool Terminee = false;
  bool EchecEcriture = false;
  int Essais = 0;
  std::function<void()> PendantPompe;
  QImage Surface{100, 50, QImage::Format_RGB32};
  QImage Ecrite;
  Parametres Reglages;
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/data")};
  HorlogeFigee Temps;
  CommandesFaux Commandes{Journal};
  FenetreFausse Fenetre{Journal};
  EtatLiaison Etat;
  ChampsSite Champs{.TxtPass = "p", .TxtUserName = "u", .TxtHtml = "http://x/", .TxtFtp = "ftp.x"};
  PublicationLive Regles{PortsLive{Reglages, Dossiers, *this, *this, *this, *this, Temps, *this, Commandes, Fenetre,
                                   Fenetre, *this, Etat, [this] { return Champs; }}};
};

TEST_F(Live, TurningOnConnects) {
  EXPECT_EQ(Fait(&PublicationLive::BasculeLive), "live LEDREDON|statut 69|FTP Conne");
  EXPECT_TRUE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Regles.LiveActif());
}

TEST_F(Live, TurningOffDisarmsTheAlarmToo_AndLeavesTheCamera) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  bool pendant = true;
  PendantPompe = [&] { pendant = Etat.SurveillanceEnCours || Etat.LiveActif; };
  EXPECT_EQ(Fait(&PublicationLive::BasculeLive), "live LEDRED|desarme|pompe|statut 34|FTP Decon");
  EXPECT_FALSE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
  EXPECT_FALSE(pendant) << "handlers that run in the pump find the switch off already";
  EXPECT_TRUE(Active);
}

TEST_F(Live, ACameraThatIsOffIsStartedFirst) {
  Active = false;
  EXPECT_EQ(Fait(&PublicationLive::BasculeLive), "Bouton(1) 0|camera|pompe|live LEDREDON|statut 69|FTP Conne");
}

TEST_F(Live, WithoutCameraTheSwitchStaysOff) {
  Active = CameraPresente = false;
  EXPECT_EQ(Fait(&PublicationLive::BasculeLive), "Bouton(1) 0|camera|pompe|boite 8");
  EXPECT_FALSE(Etat.SurveillanceEnCours);
}

TEST_F(Live, WithoutCameraALinkThatWasOnIsForgotten) {
  Active = CameraPresente = false;
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  Fait(&PublicationLive::BasculeLive);
  EXPECT_FALSE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
}

// The window was closed while the camera was being connected: nobody is left to read a message.
TEST_F(Live, AProgramThatEndsDuringTheStartOfTheCameraSaysAndSendsNothing) {
  for (const bool presente : {false, true}) {
    Active = false;
    CameraPresente = presente;
    Etat.SurveillanceEnCours = true;
    PendantPompe = [&] { Terminee = true; };
    EXPECT_EQ(Fait(&PublicationLive::BasculeLive), "Bouton(1) 0|camera|pompe");
    EXPECT_FALSE(Etat.SurveillanceEnCours);
  }
}

TEST_F(Live, MissingParametersAreAskedFor_AndNothingIsSent) {
  const ChampsSite bons = Champs;
  const auto essaie = [&](QString ChampsSite::*champ, const QString& texte) {
    Champs = bons;
    Champs.*champ = texte;
    Etat = {};
    return Fait(&PublicationLive::BasculeLive);
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
  EXPECT_TRUE(Fait(&PublicationLive::BasculeLive).endsWith("FTP Conne"));
}

TEST_F(Live, CancelLeavesThePageWhereItIs) {
  Champs.TxtPass.clear();
  Fenetre.ReponseOk = false;
  EXPECT_EQ(Fait(&PublicationLive::BasculeLive), "boite 9");
  EXPECT_FALSE(Etat.SurveillanceEnCours);
}

TEST_F(Live, AfterAnErrorTheNextClickConnectsAgain) {
  Fait(&PublicationLive::BasculeLive);
  Etat.SurveillanceEnCours = Etat.LiveActif = false;  // what "ErrCo" does
  EXPECT_EQ(Fait(&PublicationLive::BasculeLive), "live LEDREDON|statut 69|FTP Conne");
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
  EXPECT_EQ(Fait(&PublicationLive::PublieLive), "timbre 09h05m03|jpeg /data/Temp/Live.jpg 50|FTP Surve");
  EXPECT_TRUE(Etat.LiveActif);
}

TEST_F(Live, TheStampCoversSixtySixByEighteenPixelsAndNoMore) {
  Surface.fill(0xffff0000);
  Fait(&PublicationLive::PublieLive);
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
    Fait(&PublicationLive::PublieLive);
    EXPECT_EQ(Ecrite.size(), taille);
    if (taille.width() > 3 && taille.height() > 3) {
      EXPECT_EQ(Ecrite.pixel(3, 3), 0xff00ff00);
    }
  }
}

TEST_F(Live, WithTheLinkDownTheFrameIsWrittenAndNobodyTold) {
  EXPECT_FALSE(Fait(&PublicationLive::PublieLive).contains("Surve"));
}

TEST_F(Live, AFrameThatCannotBeWrittenIsNotAnnounced) {
  Etat.LiveActif = true;
  EchecEcriture = true;
  Journal.clear();
  EXPECT_THROW(Regles.PublieLive(), Echec);
  EXPECT_EQ(Journal.join(u'|'), "timbre 09h05m03");
  EXPECT_TRUE(Etat.LiveActif);
}

// Out of the analysis of a frame, which it would end: with a slow camera that of each frame, and for ever.
TEST_F(Live, AnImageThatCannotBeWrittenForASecondIsTriedOnceASecondAndFailsInSilence) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EchecEcriture = true;
  Temps.Tics = 5000;
  EXPECT_THROW(Regles.PublieLive(), Echec);
  Temps.Tics = 5900;
  EXPECT_THROW(Regles.PublieLive(), Echec);
  Temps.Tics = 6000;
  EXPECT_NO_THROW(Regles.PublieLive());
  Essais = 0;
  Journal.clear();
  for (Temps.Tics = 6100; Temps.Tics <= 16'000; Temps.Tics += 100) EXPECT_NO_THROW(Regles.PublieLive());
  EXPECT_EQ(Essais, 10);
  EXPECT_TRUE(Journal.filter(QStringLiteral("FTP")).isEmpty()) << "nothing is announced";
  EchecEcriture = false;
  Temps.Tics = 17'000;
  EXPECT_TRUE(Fait(&PublicationLive::PublieLive).endsWith(QStringLiteral("FTP Surve")));
  EchecEcriture = true;
  Temps.Tics = 17'500;
  EXPECT_THROW(Regles.PublieLive(), Echec) << "another failure has its second again";
}

TEST_F(Live, AFailureDoesNotOutliveTheSwitch) {
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EchecEcriture = true;
  EXPECT_THROW(Regles.PublieLive(), Echec);
  Regles.OublieLive();
  Temps.Tics = 3'600'000;
  EXPECT_THROW(Regles.PublieLive(), Echec);
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
  EXPECT_EQ(Fait(&PublicationLive::CreationPageLive), "pompe|statut 42|FTP UploM");
  EXPECT_FALSE(Etat.LiveActif) << "no frame until the companion has finished";
  EXPECT_TRUE(Etat.SurveillanceEnCours);
  EXPECT_EQ(Fait(&PublicationLive::CreationPageLive), "pompe|statut 67");
}

TEST_F(Live, ThePageSavesWhatIsUnsavedFirst) {
  Etat.LiveActif = true;
  Reglages.ParametresModifies = true;
  EXPECT_EQ(Fait(&PublicationLive::CreationPageLive), "sauve|pompe|statut 42|FTP UploM");
}

TEST_F(Live, ThePageNeedsTheCamera) {
  Active = false;
  Etat.LiveActif = true;
  EXPECT_EQ(Fait(&PublicationLive::CreationPageLive), "pompe|boite 8");
  EXPECT_TRUE(Etat.LiveActif);
}

TEST_F(Live, TheTestOpensThePageWhateverTheState) {
  Active = false;
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
  Regles.CreationPageLive();
  Regles.PerdCompagnon();
  EXPECT_TRUE(Etat.PageInterrompue) << "the frames were only held back";
  EXPECT_EQ(Fait(&PublicationLive::RetrouveCompagnon), "live LEDREDON|statut 69|FTP Conne|FTP UploM");
}

TEST_F(Live, TheSwitchGoesOffForAPageThatWaitsToo) {
  Etat.SurveillanceEnCours = Etat.LiveActif = Etat.PageAttendue = true;
  Regles.PerdCompagnon();
  Regles.BasculeLive();
  EXPECT_FALSE(Etat.PageInterrompue);
  EXPECT_FALSE(Etat.PageAttendue);
  EXPECT_EQ(Fait(&PublicationLive::RetrouveCompagnon), "");
}

}  // namespace
}  // namespace vaktor::essai
