// SPDX-License-Identifier: GPL-3.0-or-later
// Every button of the main window and both menus in the whole program: which window comes, what leaves the ports.
#include <QMenu>

#include "app/alarm_fixture.h"
#include "ui/controls/lamp.h"

namespace vaktor::essai {
namespace {

struct Clic {
  const char* Bouton;
  const char* Fenetres;  ///< on the screen afterwards
  int Page;              ///< in front
  const char* Sorties;   ///< what left, in its order
};

// The camera is off, and nothing is to be saved.
constexpr Clic kSansCamera[] = {
    {"Bouton(0)", "Form1 FormMonitor", 1, "Connecte"},
    {"Bouton(1)", "Form1 FormMonitor", 1, "Connecte"},
    {"Bouton(2)", "Form1 FormMonitor", 1, "Connecte, channel: post 65 to 71"},
    {"Bouton(3)", "Form1", 1, "JoueSon 4"},
    {"Bouton(4)", "Form1", 3, "JoueSon 4"},
    {"Bouton(5)", "Form1", 0, "JoueSon 4"},
    {"Bouton(6)", "Form1", 2, "JoueSon 4"},
    {"BoutonGris(0)", "Form1 FormVisuPhoto", 1, "JoueSon 4"},
    {"BoutonGris(1)", "Form1", 1,
     "JoueSon 4, JoueSon 4, open: https://www.example.org/ENGLISH/versiontest.php?logiciel=Vaktor&version=1.4.9"},
    {"BoutonGris(2)", "Form1", 1, "JoueSon 4, box: Be careful"},
    {"BoutonGris(3)", "Form1", 1, "JoueSon 4, open: http://a.org/live.html"},
    {"BoutonGris(4)", "Form1", 1, "JoueSon 4, box: Be careful"},
    {"BoutonGris(5)", "Form1", 1, "JoueSon 4, box: Be careful"},
    {"BoutonGris(6)", "Form1 FormSound", 1, "JoueSon 4, sound form: make"},
    {"BoutonGris(7)", "Form1", 1, "JoueSon 4, JoueSon 4, open: https://www.example.org/ENGLISH/VaktorNotice.html"},
    {"BoutonGris(8)", "Form1 FrmSmtp", 1, "JoueSon 4"},
    {"BoutonEssaiFtp", "Form1 FrmEssaiFtp", 1, "JoueSon 4"}};

// It runs, armed, and the page is connected.
constexpr Clic kAvecTout[] = {
    {"Bouton(0)", "Form1 FormMonitor", 1, "Deconnecte"},
    {"Bouton(1)", "Form1 FormMonitor", 1, ""},
    {"Bouton(2)", "Form1 FormMonitor", 1, "channel: post 66 to 71"},
    {"BoutonGris(1)", "Form1 FormMonitor", 1,
     "JoueSon 4, JoueSon 4, open: https://www.example.org/ENGLISH/versiontest.php?logiciel=Vaktor&version=1.4.9"},
    {"BoutonGris(2)", "Form1 FormMonitor", 1,
     "JoueSon 4, store: flush, channel: post 67 to 71, channel: post 65 to 72, channel: post 65 to 73, "
     "channel: post 71 to 71"},  // the start of the camera has moved the gauge, and what the page is made with is saved
    {"BoutonGris(3)", "Form1 FormMonitor", 1, "JoueSon 4, open: http://a.org/live.html"},
    {"BoutonGris(4)", "Form1 FormMonitor", 1, "JoueSon 4, DialogueFormat"},
    {"BoutonGris(5)", "Form1 FormMonitor", 1, "JoueSon 4, DialogueSource"},
    {"BoutonGris(7)", "Form1 FormMonitor", 1,
     "JoueSon 4, JoueSon 4, open: https://www.example.org/ENGLISH/VaktorNotice.html"}};

class BoutonDuProgramme : public AlarmeSurFaux {
 protected:
  void DemarreAvecSite() {
    Programme.reset();
    Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
    Systeme.Pilote->Image = QImage(287, 241, QImage::Format_RGB32);
    Systeme.Pilote->Image.fill(Qt::black);
    Systeme.Messages.Textes.clear();
    Systeme.Valeurs = QMap<QString, QString>{
        {"FTP/html", "http://a.org/"}, {"FTP/ftp", "ftp.a.org"},   {"FTP/user", "anna"},
        {"FTP/pass", "110112"},        {"FTP/refresh", "1000"},    {"MAIL/smtpserveur", "smtp.a.org"},
        {"MAIL/smtpfrom", "me@a.org"}, {"general/seuilauto", "0"}, {"general/retard", "1"}};
    DemarreJusquALaFenetre();
    InscritCompagnons();
  }
  void DemarreAvecTout() {
    DemarreAvecSite();
    Clique("Bouton(1)");
    Clique("Bouton(2)");
    OuvreLaPage();
    Systeme.Temps.Avance(3000);
    ASSERT_EQ(Trouve<LampeWidget>("ImageLedAlarme")->Etat(), Lampe::kVerte);
    ASSERT_EQ(Trouve<LampeWidget>("ImageLedSurveill")->Etat(), Lampe::kVerte);
    Systeme.Notes.Vide();
  }
  static QString Fenetres() {
    QStringList noms;
    for (const QWidget* fenetre : QApplication::topLevelWidgets())
      if (fenetre->isVisible()) noms += fenetre->objectName();
    noms.sort();
    return noms.join(' ');
  }
  QString Sorties() {
    static const QStringList kSortes = {"channel: post", "Connecte", "Deconnecte", "Dialogue",    "open",
                                        "sound form",    "box:",     "JoueSon",    "store: flush"};
    QStringList sorties;
    for (const QString& ligne : Systeme.DepuisVide()) {
      for (const QString& sorte : kSortes)
        if (ligne.startsWith(sorte)) sorties += ligne;
    }
    return sorties.join(", ");
  }
  void VerifieClic(const Clic& clic) {
    Clique(clic.Bouton);
    EXPECT_EQ(Fenetres(), clic.Fenetres) << clic.Bouton;
    EXPECT_EQ(static_cast<Form1*>(Fenetre("Form1"))->PageDevant(), clic.Page) << clic.Bouton;
    EXPECT_EQ(Sorties().toStdString(), clic.Sorties) << clic.Bouton;
  }
};

TEST_F(BoutonDuProgramme, WithTheCameraOffDoesItsOwnAndNothingElse) {
  for (const Clic& clic : kSansCamera) {
    DemarreAvecSite();
    VerifieClic(clic);
  }
}

TEST_F(BoutonDuProgramme, WithEverythingOnDoesItsOwnAndNothingElse) {
  for (const Clic& clic : kAvecTout) {
    DemarreAvecTout();
    VerifieClic(clic);
    const bool arme = QString(clic.Bouton).startsWith("BoutonGris");
    EXPECT_EQ(Trouve<LampeWidget>("ImageLedAlarme")->Etat() == Lampe::kVerte, arme) << clic.Bouton;
  }
}

TEST_F(BoutonDuProgramme, NoneIsLeftOut) {
  DemarreAvecSite();
  for (const auto* bouton : Fenetre("Form1")->findChildren<BoutonImage*>()) {
    const auto* vu = std::find_if(std::begin(kSansCamera), std::end(kSansCamera),
                                  [&](const Clic& clic) { return bouton->objectName() == QLatin1String(clic.Bouton); });
    EXPECT_NE(vu, std::end(kSansCamera)) << bouton->objectName().toStdString();
  }
}

// The page that was asked for while it was made: no frame flows until the companion has answered.
TEST_F(BoutonDuProgramme, OfTheLivePageStopsTheFramesUntilThePageIsMade) {
  DemarreAvecTout();
  Trouve<QLineEdit>("TxtRefresh")->setText("1");
  Clique("BoutonGris(2)");
  EXPECT_EQ(Trouve<QLabel>("LblDebugftp")->text(), "Processing");
  Systeme.Notes.Vide();
  Systeme.Temps.Avance(3000);
  EXPECT_FALSE(Systeme.DepuisVide().contains("channel: post 69 to 71"));
  Clique("BoutonGris(2)");
  EXPECT_EQ(Trouve<QLabel>("LblDebugftp")->text(), "Vaktor is not connected");
  Systeme.Recoit(1001, "UplOK");
  Systeme.Temps.Avance(3000);
  EXPECT_TRUE(Systeme.DepuisVide().contains("channel: post 69 to 71"));
}

// --- The settings that the live switch asks for

TEST_F(BoutonDuProgramme, OfTheLivePageAsksForWhatIsMissingInEachOfItsFields) {
  const struct {
    const char* Champ;
    const char* Texte;
    bool Demande;
  } champs[] = {{"TxtPass", "", true},      {"TxtPass", "http://", false}, {"TxtUserName", "http://", true},
                {"TxtUserName", "", false}, {"TxtHtml", "", true},         {"TxtHtml", "http://", false},
                {"TxtHtml", "ftp.", false}, {"TxtFtp", "ftp.", true},      {"TxtFtp", "", true}};
  for (const auto& [champ, texte, demande] : champs) {
    DemarreAvecSite();
    Trouve<QLineEdit>(champ)->setText(texte);
    Systeme.Notes.Vide();
    Clique("Bouton(2)");
    EXPECT_EQ(Systeme.Messages.Textes.size(), demande ? 1 : 0) << champ << " \"" << texte << '"';
    EXPECT_EQ(Systeme.Notes.Lignes().contains("channel: post 65 to 71"), !demande) << champ << " \"" << texte << '"';
    EXPECT_EQ(static_cast<Form1*>(Fenetre("Form1"))->PageDevant(), demande ? 2 : 1) << champ;
  }
}

TEST_F(BoutonDuProgramme, OfTheLivePageStaysOnItsPageWhenTheQuestionIsCancelled) {
  DemarreAvecSite();
  Trouve<QLineEdit>("TxtPass")->clear();
  Systeme.Messages.Reponse = ReponseBoite::kAnnuler;
  Clique("Bouton(2)");
  EXPECT_EQ(Systeme.Messages.Textes, QStringList("Please complete your parameters."));
  EXPECT_EQ(Systeme.Messages.Boutons, BoutonsBoite::kOkAnnuler);
  EXPECT_EQ(static_cast<Form1*>(Fenetre("Form1"))->PageDevant(), 1);
}

TEST_F(BoutonDuProgramme, OfACameraThatIsAwaySaysWhyAsTheDriverPutsIt) {
  Systeme.Messages.Textes.clear();
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  DemarreJusquALaFenetre();
  pilote.Presente = false;
  pilote.Refus = "/dev/video0: another program has it.";
  Clique("Bouton(0)");
  EXPECT_EQ(Systeme.Messages.Textes, QStringList("Camera not found.\n\n/dev/video0: another program has it."));
  pilote.Refus.clear();
  Clique("Bouton(0)");
  EXPECT_EQ(Systeme.Messages.Textes.last(), "Camera not found.");
}

// --- Boxes

TEST_F(BoutonDuProgramme, OfABoxIsItsWholeAreaAndOnlyTheSpaceKeyWorksIt) {
  DemarreAvecSite();
  Systeme.Disque.Libre = 1'000'000'000;
  auto* boite = Trouve<QCheckBox>("CheckPPhot");
  QTest::mouseClick(boite, Qt::LeftButton, {}, boite->rect().bottomRight());
  EXPECT_EQ(Systeme.Valeurs.value("PHOTO/actif"), "1");
  Systeme.Notes.Vide();
  QTest::keyClick(boite, Qt::Key_X);
  QTest::keyClick(boite, Qt::Key_Down);
  EXPECT_EQ(Sorties(), "");
}

TEST_F(BoutonDuProgramme, OfThePhotosWarnsOfAFullDiskAndOfNoOther) {
  DemarreAvecSite();
  Systeme.Disque.Existants.append("/home/u/v\\intrus");
  Systeme.Disque.Libre = 499'999'999;
  Clique("CheckPPhot");
  EXPECT_EQ(Systeme.Messages.Textes, QStringList("Disk space <500 Mo."));
  EXPECT_TRUE(Trouve<QCheckBox>("CheckPPhot")->isChecked());
  Systeme.Disque.Libre = 500'000'000;
  Clique("CheckPPhot");
  Clique("CheckPPhot");
  EXPECT_EQ(Systeme.Messages.Textes.size(), 1);
}

// --- Menus

TEST_F(BoutonDuProgramme, RightOnTheSmallViewOpensItsMenuWhichChoosesTheView) {
  QImage vide(287, 241, QImage::Format_RGB32);
  vide.fill(Qt::red);
  QImage avec = vide;
  for (int y = 60; y < 120; ++y)
    for (int x = 60; x < 120; ++x) avec.setPixelColor(x, y, Qt::blue);
  bool paire = false;
  const auto bouge = [&] { return (paire = !paire) ? vide : avec; };
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  pilote.Suivante = bouge;
  DemarreJusquALaFenetre();
  Clique("Bouton(0)");
  Systeme.Temps.Avance(300);
  auto* vue = Trouve("Picture2");
  // Stretched, the movement fills the view; in pixels it is a spot on black.
  const auto noir = [vue] {
    const QImage vu = vue->grab().toImage();
    qsizetype points = 0;
    for (int y = 0; y < vu.height(); ++y)
      for (int x = 0; x < vu.width(); ++x) points += vu.pixelColor(x, y) == QColor(Qt::black) ? 1 : 0;
    return points;
  };
  EXPECT_LT(noir(), 1000);
  QTest::mousePress(vue, Qt::RightButton, {}, QPoint(30, 20));
  auto* menu = Trouve<QMenu>("MnuDisplay");
  ASSERT_TRUE(menu->isVisible());
  EXPECT_EQ(menu->pos(), vue->mapToGlobal(QPoint(30, 20)));
  const auto coche = [] {
    return QStringLiteral("%1%2")
        .arg(Trouve<QAction>("MnuPixelView")->isChecked())
        .arg(Trouve<QAction>("MnuZoomView")->isChecked());
  };
  EXPECT_EQ(coche(), "01");
  menu->close();
  const qsizetype tout = qsizetype(vue->width()) * vue->height();
  for (const bool pixels : {true, true, false, false}) {
    Trouve<QAction>(pixels ? "MnuPixelView" : "MnuZoomView")->trigger();
    EXPECT_EQ(coche(), pixels ? "10" : "01");
    Systeme.Temps.Avance(60);
    EXPECT_EQ(noir() > 1000, pixels);
    EXPECT_LT(noir(), tout);
  }
  for (const bool pixels : {false, true}) {
    Trouve<QAction>(pixels ? "MnuPixelView" : "MnuZoomView")->trigger();
    Systeme.Temps.Avance(60);
    pilote.Suivante = [vide] { return vide; };
    Systeme.Temps.Avance(90);
    EXPECT_EQ(noir(), tout) << "nobody moves any more";
    pilote.Suivante = bouge;
  }
}

TEST_F(BoutonDuProgramme, RightOnTheMonitorOpensItsMenuWhichOpensTheEnlargedView) {
  DemarreAvecTout();
  auto* vue = Fenetre("FormMonitor")->findChild<QWidget*>("Picture1");
  QTest::mousePress(vue, Qt::RightButton, {}, QPoint(30, 20));
  auto* menu = Fenetre("FormMonitor")->findChild<QMenu*>("MnuScreen");
  ASSERT_TRUE(menu->isVisible());
  EXPECT_EQ(menu->pos(), vue->mapToGlobal(QPoint(30, 20)));
  ASSERT_EQ(menu->actions().size(), 1);
  EXPECT_EQ(menu->actions().first()->text(), "Full screen");
  menu->close();
  EXPECT_FALSE(Visible("WebcamPecran"));
  menu->actions().first()->trigger();
  EXPECT_TRUE(Visible("WebcamPecran"));
  EXPECT_FALSE(Trouve<QCheckBox>("CheckPEcran")->isChecked());
}

// --- Faces

TEST_F(BoutonDuProgramme, ShowsTheFacesOfItsOwnRowAndOfItsFamily) {
  DemarreAvecSite();
  const FacesBoutons& faces = static_cast<Form1*>(Fenetre("Form1"))->Face()->Faces();
  for (int i = 0; i < 7; ++i) {
    const auto* bouton = Trouve<BoutonImage>(qPrintable(QStringLiteral("Bouton(%1)").arg(i)));
    EXPECT_EQ(bouton->Face(), faces.FacesBouton(i).FaceRepos) << i;
    const QImage vue = Trouve(qPrintable(bouton->objectName()))->grab().toImage();
    EXPECT_EQ(vue.convertToFormat(bouton->Face().format()), bouton->Face()) << i;
  }
  for (int i = 0; i < 9; ++i) {
    const auto* bouton = Trouve<BoutonImage>(qPrintable(QStringLiteral("BoutonGris(%1)").arg(i)));
    EXPECT_EQ(bouton->Face(), faces.FacesBoutonGris(i).FaceRepos) << i;
    const QColor bord = faces.FacesBoutonGris(i).FaceRepos.pixelColor(4, 3);
    EXPECT_EQ(bord.red(), bord.blue()) << i << " is grey";
  }
  EXPECT_EQ(Trouve<BoutonImage>("BoutonEssaiFtp")->Face(), faces.FacesBoutonGris(9).FaceRepos);
  // "Monitor" of the band and "Pitures" of the page, and a caption that is on two buttons is on two alike.
  for (int i = 0; i < 10; ++i)
    for (int k = 0; k < i; ++k)
      EXPECT_NE(faces.FacesBoutonGris(i).FaceRepos, faces.FacesBoutonGris(k).FaceRepos) << i << ' ' << k;
  const FaceBouton& face = faces.FacesBouton(4);
  EXPECT_NE(face.FaceRepos, face.FaceEnfoncee);
  EXPECT_GT(face.FaceEnfoncee.pixelColor(4, 3).blue(), face.FaceSurvol.pixelColor(4, 3).blue()) << "a press is lighter";
}

TEST_F(BoutonDuProgramme, OfThePhotosStaysAsItIsWhenTheCameraRuns) {
  DemarreAvecTout();
  const FacesBoutons& faces = static_cast<Form1*>(Fenetre("Form1"))->Face()->Faces();
  auto* photos = Trouve<BoutonImage>("BoutonGris(0)");
  QMouseEvent bouge(QEvent::MouseMove, QPointF(5, 5), photos->mapToGlobal(QPointF(5, 5)), Qt::NoButton, Qt::NoButton,
                    Qt::NoModifier);
  QCoreApplication::sendEvent(photos, &bouge);
  EXPECT_EQ(photos->Face(), faces.FacesBoutonGris(0).FaceSurvol);
}

}  // namespace
}  // namespace vaktor::essai
