// SPDX-License-Identifier: GPL-3.0-or-later
// What the mouse does in the whole program: gauge, zone of the monitor, dragging the window, flags, clicks of fields.
#include <QScreen>
#include <QWindow>

#include "app/alarm_fixture.h"
#include "ui/controls/flag_button.h"
#include "ui/controls/gauge.h"
#include "ui/fields/field_events.h"
#include "ui/window/window_placement.h"

namespace {
int Deplacements = 0;
}

// The last step of the drag is a request to the window system, and the one that tests run on has none. This definition
// stands before the toolkit's own in this program, and counts what arrives there.
bool QWindow::startSystemMove() {
  ++Deplacements;
  return true;
}

namespace vaktor::essai {
namespace {

class SourisDuProgramme : public AlarmeSurFaux {
 protected:
  static void Bouge(QWidget* controle, QPoint place, Qt::MouseButtons boutons = Qt::NoButton) {
    QMouseEvent bouge(QEvent::MouseMove, place, controle->mapToGlobal(place), Qt::NoButton, boutons, Qt::NoModifier);
    QCoreApplication::sendEvent(controle, &bouge);
  }
  /// A move as the window system tells it: to the window, which finds the control.
  static void BougeDansLaFenetre(const QWidget* controle, QPoint place) {
    QTest::mouseMove(Fenetre("Form1")->windowHandle(), controle->mapTo(Fenetre("Form1"), place));
    QCoreApplication::processEvents();
  }
  static QWidget* Picture1() { return Fenetre("FormMonitor")->findChild<QWidget*>("Picture1"); }
  static qint32 Tolerance() { return Trouve<JaugeWidget>("PictSeuil")->Valeur(); }
  /// The camera runs over a picture that nobody moves in, with a detail in every corner.
  void DemarreSurImageFixe(const QString& arguments) {
    Systeme.Valeurs.insert(QMap<QString, QString>{{"general/retard", "1"},
                                                  {"general/seuilauto", "0"},
                                                  {"general/seuil", "1000"},
                                                  {"general/langue", "1"},
                                                  {"SON/actif", "1"}});
    Systeme.Pilote->Image = Motif();
    PiloteDuProgramme = Systeme.Pilote.get();
    Demarre(arguments);
    Systeme.Temps.Avance(2000);
    InscritCompagnons();
    Systeme.Temps.Avance(10'000);
    Systeme.Notes.Vide();
  }
  static QImage Motif() {
    QImage motif(287, 241, QImage::Format_RGB32);
    for (int y = 0; y < motif.height(); ++y)
      for (int x = 0; x < motif.width(); ++x) motif.setPixel(x, y, qRgb(x * 7 % 256, y * 11 % 256, x * y % 256));
    return motif;
  }
  /// Something stands in the picture in every second frame, here.
  void FaitBougerDans(const QRect& place) {
    QImage avec = Motif();
    for (int y = place.top(); y <= place.bottom(); ++y)
      for (int x = place.left(); x <= place.right(); ++x) avec.setPixel(x, y, ~avec.pixel(x, y));
    PiloteDuProgramme->Suivante = [this, avec] { return (Paire_ = !Paire_) ? avec : Motif(); };
  }
  void Encadre(QPoint debut, QPoint fin) {
    QTest::mousePress(Picture1(), Qt::LeftButton, {}, debut);
    Bouge(Picture1(), fin, Qt::LeftButton);
    QTest::mouseRelease(Picture1(), Qt::LeftButton, {}, fin);
  }
  static constexpr int kTrame = 30;

  faux::PiloteFaux* PiloteDuProgramme = nullptr;

 private:
  bool Paire_ = false;
};

// --- The gauge

// The box is looked at by each tick: no jump to the top of the scale, and the step stays what it was.
TEST_F(SourisDuProgramme, TheAutomaticToleranceTickedInTheFineSearchGoesOnFromWhereItIsInSmallSteps) {
  Systeme.Valeurs.insert("general/seuilauto", "1");
  FaitBouger();
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  DemarreJusquALaFenetre();
  Clique("Bouton(0)");
  Systeme.Temps.Avance(4000);  // the first movement ends the coarse search
  Clique("ChkSeuilAuto");
  pilote.Suivante = nullptr;
  Systeme.Temps.Avance(200);
  QTest::mouseClick(Trouve("PictSeuil"), Qt::LeftButton, {}, QPoint(180, 3));
  const qint32 main = Tolerance();
  ASSERT_EQ(main, 3'500'000);
  Systeme.Temps.Avance(100);
  ASSERT_EQ(Tolerance(), main) << "by hand";
  Clique("ChkSeuilAuto");
  Systeme.Temps.Avance(1);
  EXPECT_EQ(Tolerance(), main - 1000);
  Systeme.Temps.Avance(3);
  EXPECT_EQ(Tolerance(), main - 4000);
  Clique("ChkSeuilAuto");
  Systeme.Temps.Avance(100);
  EXPECT_EQ(Tolerance(), main - 4000) << "off again";
  QTest::mouseDClick(Trouve("PictSeuil"), Qt::RightButton, {}, QPoint(180, 3));
  Clique("ChkSeuilAuto");
  Systeme.Temps.Avance(1);
  EXPECT_EQ(Tolerance(), main - 5000) << "the right button searches nothing";
  Clique("ChkSeuilAuto");
  QTest::mouseDClick(Trouve("PictSeuil"), Qt::LeftButton, {}, QPoint(180, 3));
  const qint32 apres = Tolerance();
  Clique("ChkSeuilAuto");
  Systeme.Temps.Avance(2);
  EXPECT_EQ(Tolerance(), apres - 20'000) << "a double click searches coarsely again";
}

TEST_F(SourisDuProgramme, TheToleranceThatWasDraggedIsStoredAndShownAtTheNextStart) {
  Systeme.Valeurs.insert("general/seuilauto", "0");
  DemarreJusquALaFenetre();
  QTest::mousePress(Trouve("PictSeuil"), Qt::LeftButton, {}, QPoint(10, 3));
  Bouge(Trouve("PictSeuil"), QPoint(90, 3), Qt::LeftButton);
  QTest::mouseRelease(Trouve("PictSeuil"), Qt::LeftButton, {}, QPoint(90, 3));
  QTest::mouseClick(Trouve("PictSeuil"), Qt::RightButton, {}, QPoint(200, 3));
  EXPECT_EQ(Tolerance(), 1'750'000);
  EXPECT_FALSE(Systeme.Notes.Lignes().contains("store: flush"));
  Clique("Bouton(4)");
  EXPECT_EQ(Systeme.Valeurs.value("general/seuil"), "1750000");
  Programme.reset();
  Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
  Systeme.Pilote->Image = Motif();
  DemarreJusquALaFenetre();
  Clique("Bouton(0)");
  EXPECT_EQ(Tolerance(), 1'750'000);
}

// --- The zone of the monitor

TEST_F(SourisDuProgramme, AZoneThatIsDrawnActsOnTheFramesOfTheDragAndOnTheFirstOneAfterItsRelease) {
  DemarreSurImageFixe("/alarm");
  ASSERT_EQ(Pendant(300).Sons, 0) << "armed, and nobody moves";
  QTest::mousePress(Picture1(), Qt::LeftButton, {}, QPoint(20, 30));
  Bouge(Picture1(), QPoint(200, 150), Qt::LeftButton);
  EXPECT_EQ(Pendant(kTrame).Sons, 1) << "the frame of the drag";
  EXPECT_EQ(Pendant(kTrame).Sons, 0) << "a zone that stands still is compared with itself";
  Bouge(Picture1(), QPoint(210, 160), Qt::LeftButton);
  QTest::mouseRelease(Picture1(), Qt::LeftButton, {}, QPoint(215, 165));
  EXPECT_EQ(Pendant(kTrame).Sons, 1) << "the first frame after the release";
  EXPECT_EQ(Pendant(300).Sons, 0);
}

TEST_F(SourisDuProgramme, OnlyTheZoneIsWatchedAndOnlyTheLeftButtonDrawsOne) {
  DemarreSurImageFixe("/alarm");
  Encadre(QPoint(20, 20), QPoint(100, 90));
  FaitBougerDans(QRect(150, 120, 100, 100));
  Systeme.Temps.Avance(300);
  Systeme.Notes.Vide();
  ASSERT_EQ(Pendant(300).Sons, 0) << "outside";
  for (const Qt::MouseButtons boutons : {Qt::MouseButtons(Qt::RightButton), Qt::MouseButtons(Qt::MiddleButton),
                                         Qt::LeftButton | Qt::RightButton, Qt::MouseButtons()}) {
    Bouge(Picture1(), QPoint(280, 235), boutons);
    EXPECT_EQ(Pendant(300).Sons, 0) << int(boutons);
  }
  QTest::mouseRelease(Picture1(), Qt::RightButton, {}, QPoint(280, 235));
  QTest::mouseClick(Picture1(), Qt::MiddleButton, {}, QPoint(140, 110));
  EXPECT_EQ(Pendant(300).Sons, 0);
  FaitBougerDans(QRect(30, 30, 50, 50));
  Systeme.Temps.Avance(300);
  Systeme.Notes.Vide();
  EXPECT_GT(Pendant(300).Sons, 5) << "inside";
}

TEST_F(SourisDuProgramme, AClickGivesTheWholePictureBack) {
  DemarreSurImageFixe("/alarm");
  Encadre(QPoint(20, 20), QPoint(100, 90));
  QTest::mouseClick(Picture1(), Qt::LeftButton, {}, QPoint(40, 50));
  FaitBougerDans(QRect(150, 120, 100, 100));
  Systeme.Temps.Avance(300);
  Systeme.Notes.Vide();
  EXPECT_GT(Pendant(300).Sons, 5);
}

// --- The window

TEST_F(SourisDuProgramme, TheWindowComesUpInTheMiddleOfItsScreenWithItsFrame) {
  DemarreJusquALaFenetre();
  QCoreApplication::processEvents();
  const QWidget* fenetre = Fenetre("Form1");
  ASSERT_NE(fenetre->frameGeometry().size(), fenetre->size());
  EXPECT_EQ(fenetre->pos(), PlaceCentree(fenetre->screen()->availableGeometry(), fenetre->frameGeometry().size()));
}

TEST_F(SourisDuProgramme, TheWindowFollowsTheLeftButtonOnItsFreeSurfacesAndOnNothingElse) {
  DemarreJusquALaFenetre();
  for (const char* surface :
       {"PictPage(0)", "PictPage(1)", "PictPage(2)", "PictPage(3)", "LabelMaildest", "LabelMailSujet", "LabelMailTexte",
        "LabelNbrMail", "LabelSeuil", "LabelVague", "LblDebugAlarm", "LblDebugftp"}) {
    Deplacements = 0;
    Bouge(Trouve(surface), QPoint(2, 2), Qt::LeftButton);
    EXPECT_EQ(Deplacements, 1) << surface;
  }
  Bouge(Fenetre("Form1"), QPoint(2, 2), Qt::LeftButton);
  EXPECT_EQ(Deplacements, 2) << "the window itself";
  for (const char* autre : {"Bouton(0)", "Label4", "TxtFtp", "Picture2", "PictSeuil"})
    Bouge(Trouve(autre), QPoint(2, 2), Qt::LeftButton);
  Bouge(Trouve("PictPage(1)"), QPoint(2, 2), Qt::RightButton);
  Bouge(Trouve("PictPage(1)"), QPoint(2, 2));
  EXPECT_EQ(Deplacements, 2);
}

// As the window system tells moves: without a button, to the window, and from a control on to what lies behind it.
TEST_F(SourisDuProgramme, AMoveOverAControlIsTheControlsAndNotThePagesBehindIt) {
  DemarreJusquALaFenetre();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(Fenetre("Form1")));
  const auto survols = [this] { return Systeme.DepuisVide().filter("SurvolSon").join(' '); };
  BougeDansLaFenetre(Trouve("CheckSon"), QPoint(5, 5));
  EXPECT_EQ(survols(), "SurvolSon 6");
  BougeDansLaFenetre(Trouve("Picture2"), QPoint(5, 5));
  BougeDansLaFenetre(Trouve("Label4"), QPoint(5, 5));
  EXPECT_EQ(survols(), "") << "neither has a number, and the page is not reached through them";
  BougeDansLaFenetre(Trouve("PictPage(1)"), QPoint(200, 110));
  EXPECT_EQ(survols(), "SurvolSon 5555");
  BougeDansLaFenetre(Trouve("Text1"), QPoint(5, 5));
  EXPECT_EQ(survols(), "SurvolSon 17");
  BougeDansLaFenetre(Trouve("PictSeuil"), QPoint(5, 1));
  EXPECT_EQ(survols(), "") << "nor is the window";
}

TEST_F(SourisDuProgramme, AButtonThatThePointerHasLeftIsAtRestAgain) {
  DemarreJusquALaFenetre();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(Fenetre("Form1")));
  const auto* bouton = Trouve<BoutonImage>("Bouton(3)");
  const FaceBouton& face = static_cast<Form1*>(Fenetre("Form1"))->Face()->Faces().FacesBouton(3);
  BougeDansLaFenetre(Trouve("Bouton(3)"), QPoint(30, 8));
  EXPECT_EQ(bouton->Face(), face.FaceSurvol);
  BougeDansLaFenetre(Trouve("PictPage(1)"), QPoint(200, 110));
  EXPECT_EQ(bouton->Face(), face.FaceRepos);
}

TEST_F(SourisDuProgramme, TheFrameOfAFlagGoesAndComesOnTheScreen) {
  DemarreJusquALaFenetre();
  Clique("Bouton(4)");
  ASSERT_TRUE(QTest::qWaitForWindowExposed(Fenetre("Form1")));
  const auto bord = [] { return Trouve("Image4(1)")->grab().toImage().pixelColor(0, 0); };
  const QColor cadre(64, 64, 64);
  EXPECT_EQ(bord(), cadre);
  Bouge(Trouve("Image4(1)"), QPoint(5, 5));
  EXPECT_NE(bord(), cadre);
  Bouge(Trouve("Image4(0)"), QPoint(5, 5));
  EXPECT_EQ(bord(), cadre);
}

// --- Clicks of fields

TEST_F(SourisDuProgramme, OnlyALeftClickWithinTheFieldTakesItsRedAway) {
  DemarreJusquALaFenetre();
  Clique("Bouton(6)");
  auto* champ = Trouve<QLineEdit>("TxtFtp");
  RougitChamp(*champ, true);
  QTest::mouseRelease(champ, Qt::RightButton, {}, QPoint(5, 5));
  EXPECT_TRUE(EstRouge(*champ)) << "the right button";
  QTest::mouseRelease(champ, Qt::LeftButton, {}, QPoint(-5, 5));
  EXPECT_TRUE(EstRouge(*champ)) << "let go beside it";
  QTest::mouseClick(champ, Qt::LeftButton);
  EXPECT_FALSE(EstRouge(*champ));
}

}  // namespace
}  // namespace vaktor::essai
