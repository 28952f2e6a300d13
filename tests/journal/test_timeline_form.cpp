// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the timeline and its player, worked by hand.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QCoreApplication>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <cerrno>
#include <cmath>

#include "journal/timeline_bench.h"

namespace vaktor::essai {
namespace {

class Frise : public BancFrise {};

TEST_F(Frise, ReadsTheJournalWhenItOpensAndShowsTheNewestIntrusionFirst) {
  Fenetre.Ouvre();
  EXPECT_EQ(Chroniques.Dossier, QStringLiteral("/p"));
  EXPECT_EQ(Chroniques.Course, QStringLiteral("r1"));
  EXPECT_EQ(Cartes().Avis(), QStringLiteral("Reading the journal..."));
  Chroniques.Livre(Nuit);
  EXPECT_EQ(Fenetre.Jour(), kJour);
  ASSERT_EQ(Cartes().Modele().rowCount(), 3);
  EXPECT_EQ(Cartes().Modele().Intrusion(0).Debut.time(), QTime(5, 12, 5));
  EXPECT_EQ(Trouve<QLabel>("LblJour").text(), QStringLiteral("Sunday 22 November 2026"));
  EXPECT_EQ(Trouve<QLabel>("LblJournee").text(), QString::fromUtf8("3 intrusions  \xc2\xb7  watched for 7 h 30 min"));
  EXPECT_EQ(Cartes().Modele().index(0).data(Qt::AccessibleTextRole).toString(),
            QStringLiteral("Intrusion at 05:12:05, 4 s, 4 pictures, 500 points at most"));
  EXPECT_TRUE(Bande().accessibleDescription().contains(QStringLiteral("The camera gives no new pictures")));
}

TEST_F(Frise, RowsOfCardsStandInTheMiddleAtAnyWidth) {
  Ouvre();
  for (const int largeur : {812, 900, 640}) {
    Fenetre.resize(largeur, 712);
    QCoreApplication::processEvents();
    const QRect premiere = Cartes().visualRect(Cartes().Modele().index(0));
    QRect derniere = premiere;
    for (int i = 1; i < 3; ++i) {
      const QRect carte = Cartes().visualRect(Cartes().Modele().index(i));
      if (carte.top() == premiere.top()) derniere = carte;
    }
    const QPoint coin = Cartes().viewport()->mapTo(&Cartes(), QPoint());
    const int barre = Cartes().verticalScrollBar()->sizeHint().width();
    const int gauche = coin.x() + premiere.left();
    const int droite = Cartes().width() - barre - 1 - (coin.x() + derniere.right());
    EXPECT_NEAR(gauche, droite, 2) << largeur;
  }
}

TEST_F(Frise, ThumbnailsAreAskedForOneByOneTheNewestFirstAndKept) {
  Ouvre();
  ASSERT_EQ(Vignettes.Demandees.size(), 1);
  EXPECT_EQ(Vignettes.Demandees[0], QStringLiteral("/p\\") + Nuit.Intrusions[3].Parlante);
  QImage image(40, 30, QImage::Format_RGB32);
  image.fill(Qt::red);
  for (int i = 0; i < 6 && Vignettes.Attend(); ++i) {
    Vignettes.Livre({EtatPhoto::kLue, image, QSize(400, 300)});
    QCoreApplication::processEvents();
  }
  ASSERT_EQ(Vignettes.Demandees.size(), 3);
  EXPECT_EQ(Vignettes.Demandees[2], QStringLiteral("/p\\") + Nuit.Intrusions[1].Parlante);
  const QImage vue = Cartes().viewport()->grab().toImage();
  const QRect carte = Cartes().visualRect(Cartes().Modele().index(0));
  EXPECT_EQ(vue.pixelColor((carte.topLeft() + QPoint(20, 120)) * vue.devicePixelRatio()), QColor(Qt::red));
  Cartes().viewport()->update();
  QCoreApplication::processEvents();
  EXPECT_EQ(Vignettes.Demandees.size(), 3) << "none is decoded twice";
}

TEST_F(Frise, TheCacheIsBoundedAndForgetsWhatWasNotLookedAtForLongest) {
  int arrivees = 0;
  CacheVignettes cache(
      Vignettes, [&](const QString&) { ++arrivees; }, qint64{3} * 40 * 30 * 4);
  cache.ChoisitTaille({40, 30});
  const QImage image(40, 30, QImage::Format_RGB32);
  for (const char* nom : {"a", "b", "c", "d"}) {
    cache.Veut({QString::fromLatin1(nom)});
    Vignettes.Livre({EtatPhoto::kLue, image, image.size()});
    cache.Donne(QStringLiteral("a"));
  }
  EXPECT_EQ(arrivees, 4);
  EXPECT_LE(cache.Octets(), 3 * 40 * 30 * 4);
  EXPECT_NE(cache.Donne(QStringLiteral("a")), nullptr);
  EXPECT_EQ(cache.Donne(QStringLiteral("b")), nullptr);
  cache.Veut({QStringLiteral("x"), QStringLiteral("y")});
  Vignettes.Livre({EtatPhoto::kAbsente, {}, {}});
  ASSERT_NE(cache.Donne(QStringLiteral("x")), nullptr);
  EXPECT_EQ(Vignettes.Demandees.last(), QStringLiteral("y"));
  cache.OublieEchecs();
  EXPECT_EQ(cache.Donne(QStringLiteral("x")), nullptr);
}

TEST_F(Frise, OneClickToTheDayBeforeAndAfter) {
  Ouvre();
  EXPECT_FALSE(Trouve<QAbstractButton>("CmdApres").isEnabled()) << "nothing is known of tomorrow";
  EXPECT_EQ(Trouve<QAbstractButton>("CmdAvant").toolTip(), QStringLiteral("Day before: 1 intrusion"));
  Clique("CmdAvant");
  EXPECT_EQ(Fenetre.Jour(), kJour.addDays(-1));
  EXPECT_EQ(Cartes().Modele().rowCount(), 1);
  Clique("CmdAvant");
  EXPECT_EQ(Cartes().Avis(), QStringLiteral("No intrusion: the alarm was not armed on this day."));
  Clique("CmdAujourdhui");
  EXPECT_EQ(Fenetre.Jour(), kJour);
  QTest::keyClick(&Cartes(), Qt::Key_PageUp);
  EXPECT_EQ(Fenetre.Jour(), kJour.addDays(-1));
  QTest::keyClick(&Cartes(), Qt::Key_PageDown);
  EXPECT_EQ(Fenetre.Jour(), kJour);
  QTest::keyClick(&Cartes(), Qt::Key_PageDown);
  EXPECT_EQ(Fenetre.Jour(), kJour);
}

TEST_F(Frise, ANightWithoutAnythingSaysSoWithHowLongItWatched) {
  Nuit.Intrusions.clear();
  Ouvre();
  EXPECT_EQ(Cartes().Avis(), QStringLiteral("Nothing moved. The alarm watched for 7 h 30 min."));
  EXPECT_EQ(Cartes().accessibleDescription(), Cartes().Avis());
  Reglages.LangueCourante = 0;
  Fenetre.Habille();
  EXPECT_EQ(Cartes().Avis(), QString::fromUtf8("Rien n'a bougé. L'alarme a veillé pendant 7 h 30."));
}

TEST_F(Frise, TheStripTellsWhatStandsWhere) {
  Ouvre();
  EXPECT_EQ(Bande().DitA(PlaceDe(4.25)),
            QStringLiteral("The camera gives no new pictures.\nfrom 04:00:00 to 04:30:00\n"
                           "Alarm armed from 21 November 2026, 22:00:00 to 22 November 2026, 08:00:00"));
  EXPECT_TRUE(Bande().DitA(PlaceDe(3.205)).startsWith(QStringLiteral("Intrusion at 03:12:05")));
  EXPECT_TRUE(Bande().DitA(PlaceDe(6)).startsWith(QStringLiteral("06:00:00: the server has taken a mail")));
  EXPECT_EQ(Bande().DitA(PlaceDe(12)), QString());
}

TEST_F(Frise, AClickOnABarChoosesItsCardAndTheOtherWayRound) {
  Ouvre();
  QTest::mouseClick(&Bande(), Qt::LeftButton, {}, PlaceDe(3.205));
  EXPECT_EQ(Cartes().Choix(), 2);
  QTest::keyClick(&Bande(), Qt::Key_Right);
  EXPECT_EQ(Cartes().Choix(), 3);
  QTest::keyClick(&Bande(), Qt::Key_Right);
  EXPECT_EQ(Cartes().Choix(), 3);
  QTest::keyClick(&Bande(), Qt::Key_Left);
  QTest::keyClick(&Bande(), Qt::Key_Left);
  EXPECT_EQ(Cartes().Choix(), 1);
}

TEST_F(Frise, TheStripZoomsAndMovesAndComesBack) {
  Ouvre();
  const auto tout = Bande().Vue();
  const QPoint ici = PlaceDe(3);
  QWheelEvent roue(ici, Bande().mapToGlobal(ici), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&Bande(), &roue);
  const auto pres = Bande().Vue();
  EXPECT_LT(pres.A - pres.De, tout.A - tout.De);
  const qint64 dessous = pres.De + (pres.A - pres.De) * ici.x() / Bande().width();
  EXPECT_NEAR(static_cast<double>(dessous), 3.0 * 3'600'000, 300'000) << "what is under the pointer stays there";
  QTest::keyClick(&Bande(), Qt::Key_Plus);
  EXPECT_LT(Bande().Vue().A - Bande().Vue().De, pres.A - pres.De);
  const auto avant = Bande().Vue();
  QTest::mousePress(&Bande(), Qt::LeftButton, {}, {400, 40});
  QTest::mouseMove(&Bande(), {300, 40});
  QTest::mouseRelease(&Bande(), Qt::LeftButton, {}, {300, 40});
  EXPECT_GT(Bande().Vue().De, avant.De) << "the day follows the hand";
  QTest::keyClick(&Bande(), Qt::Key_Minus);
  QTest::keyClick(&Bande(), Qt::Key_Home);
  EXPECT_EQ(Bande().Vue(), tout);
}

TEST_F(Frise, ANewLineIsReadSoonAndTheChosenCardStaysChosen) {
  Ouvre();
  Cartes().MontreChoix(2);
  Fenetre.NoteChangement();
  EXPECT_TRUE(QTest::qWaitFor([this] { return Chroniques.Attend(); }, 10'000));
  Nuit.Intrusions.prepend(Intrusion(QDateTime(kJour, QTime(0, 30)), 1, 10));
  Chroniques.Livre(Nuit);
  EXPECT_EQ(Cartes().Choix(), 3) << "the same intrusion has another number";
  Fenetre.close();
  const int lectures = Chroniques.Lectures;
  Fenetre.NoteChangement();
  QTest::qWait(1700);
  EXPECT_EQ(Chroniques.Lectures, lectures) << "closed it reads nothing";
}

TEST_F(Frise, ADiskThatDoesNotAnswerIsSaidAndItsAnswerStillTaken) {
  Fenetre.Ouvre();
  Chroniques.Tarde();
  EXPECT_EQ(Cartes().Avis(), QStringLiteral("The disk of the journal or of the pictures does not answer yet."));
  Chroniques.Livre(Nuit);
  EXPECT_EQ(Cartes().Modele().rowCount(), 3);
  EXPECT_TRUE(Trouve<QLabel>("LblEtat").text().isEmpty());
}

TEST_F(Frise, AJournalThatCannotBeWrittenIsSaid) {
  Erreur = ENOSPC;
  Ouvre();
  EXPECT_EQ(Trouve<QLabel>("LblEtat").text(),
            QStringLiteral("The journal cannot be written: No space left on device. The watch goes on."));
}

TEST_F(Frise, ErasingAsksOnceForThePhotosOfThatIntrusionAndReadsAnew) {
  Ouvre();
  EXPECT_FALSE(Trouve<QAbstractButton>("CmdSupprimer").isEnabled());
  Cartes().MontreChoix(2);
  QTest::keyClick(&Cartes(), Qt::Key_Delete);
  EXPECT_EQ(Supprimes, QStringList{QStringLiteral("/p")} + Nuit.Intrusions[2].Photos);
  EXPECT_EQ(Question, QStringLiteral("The 4 pictures of this intrusion (Sunday 22 November 2026, 03:12:05) will be "
                                     "erased. Are you sure?"));
  Supprimes.clear();
  Clique("CmdSupprimer");
  EXPECT_TRUE(Supprimes.isEmpty()) << "one at a time";
  const int lectures = Chroniques.Lectures;
  FinSuppression();
  EXPECT_EQ(Chroniques.Lectures, lectures + 1);
}

TEST_F(Frise, ACardOpensThePlayerWhichPlaysAtItsPace) {
  Ouvre();
  Cartes().setFocus();
  Cartes().MontreChoix(2);
  QTest::keyClick(&Cartes(), Qt::Key_Return);
  ASSERT_NE(Fenetre.Lecteur(), nullptr);
  FrmLecture& lecteur = *Fenetre.Lecteur();
  EXPECT_TRUE(lecteur.isVisible());
  EXPECT_TRUE(lecteur.Film().Joue());
  EXPECT_EQ(lecteur.Film().Nombre(), 4);
  EXPECT_EQ(Photos.Lues, QStringList{QStringLiteral("/p\\") + Nuit.Intrusions[2].Photos[0]});
  EXPECT_TRUE(QTest::qWaitFor([&] { return lecteur.Film().Index() == 1; }, 10'000));
  QTest::keyClick(lecteur.findChild<QWidget*>(QStringLiteral("CmdFermerLecture")), Qt::Key_Space);
  EXPECT_FALSE(lecteur.Film().Joue()) << "space stops it wherever the focus is";
  EXPECT_TRUE(lecteur.isVisible());
  QTest::keyClick(lecteur.findChild<QWidget*>(QStringLiteral("Position")), Qt::Key_Right);
  EXPECT_EQ(lecteur.Film().Index(), 2);
  QTest::keyClick(&lecteur, Qt::Key_End);
  EXPECT_EQ(lecteur.findChild<QLabel*>(QStringLiteral("LblPosition"))->text(),
            QString::fromUtf8("03:12:08  \xc2\xb7  Picture 4 of 4"));
  EXPECT_EQ(Photos.Lues.last(), QStringLiteral("/p\\") + Nuit.Intrusions[2].Photos[3]);
  auto* ecran = static_cast<EcranLecture*>(lecteur.findChild<QWidget*>(QStringLiteral("EcranLecture")));
  EXPECT_EQ(ecran->Cadre(), QRect(3, 3, 10, 10)) << "the box of that photo";
  QTest::mouseClick(lecteur.findChild<QWidget*>(QStringLiteral("ChkCadre")), Qt::LeftButton, {}, {8, 8});
  EXPECT_TRUE(ecran->Cadre().isEmpty());
  QTest::mouseClick(lecteur.findChild<QWidget*>(QStringLiteral("CmdVitesse(2)")), Qt::LeftButton);
  EXPECT_EQ(lecteur.Film().Vitesse(), 2);
  lecteur.findChild<QSlider*>(QStringLiteral("Position"))->setValue(1);
  EXPECT_EQ(lecteur.Film().Index(), 1);
  QTest::keyClick(&lecteur, Qt::Key_Escape);
  EXPECT_FALSE(lecteur.isVisible());
}

TEST_F(Frise, AButtonThatIsOffSaysWhyAndTheStripIsAPicture) {
  Ouvre();
  Cartes().MontreChoix(-1);
  Reglages.LangueCourante = 0;
  Fenetre.Habille();
  const char* const boutons[] = {"CmdRegarder", "CmdEnregistrer", "CmdSupprimer"};
  for (const char* nom : boutons) {
    EXPECT_FALSE(Trouve<QAbstractButton>(nom).isEnabled()) << nom;
    EXPECT_EQ(Trouve<QAbstractButton>(nom).toolTip(),
              QStringLiteral("Choisissez d'abord une intrusion qui a des photos."));
  }
  EXPECT_EQ(Trouve<QAbstractButton>("CmdAujourdhui").toolTip(), QStringLiteral("C'est le jour affiché."));
  Reglages.LangueCourante = 1;
  Fenetre.Habille();
  for (const char* nom : boutons)
    EXPECT_EQ(Trouve<QAbstractButton>(nom).toolTip(), QStringLiteral("First choose an intrusion that has pictures."));
  EXPECT_EQ(Trouve<QAbstractButton>("CmdAujourdhui").toolTip(), QStringLiteral("This is the day that is shown."));
  Cartes().MontreChoix(1);
  Clique("CmdAvant");
  EXPECT_EQ(Trouve<QAbstractButton>("CmdAujourdhui").toolTip(), QString());
  Clique("CmdAujourdhui");
  QTest::keyClick(&Cartes(), Qt::Key_Home);
  for (const char* nom : boutons) {
    EXPECT_TRUE(Trouve<QAbstractButton>(nom).isEnabled()) << nom;
    EXPECT_EQ(Trouve<QAbstractButton>(nom).toolTip(), QString()) << nom;
  }
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&Bande())->role(), QAccessible::Graphic);
}

TEST_F(Frise, APhotoThatIsGoneIsSaidInThePlayerAndTheNextOneShown) {
  Ouvre();
  Photos.Etats[QStringLiteral("/p\\") + Nuit.Intrusions[2].Photos[0]] = EtatPhoto::kAbsente;
  Cartes().MontreChoix(2);
  Clique("CmdRegarder");
  FrmLecture& lecteur = *Fenetre.Lecteur();
  auto* ecran = static_cast<EcranLecture*>(lecteur.findChild<QWidget*>(QStringLiteral("EcranLecture")));
  EXPECT_TRUE(ecran->Image().isNull());
  EXPECT_TRUE(ecran->accessibleDescription().startsWith(QStringLiteral("This picture cannot be shown")));
  QTest::keyClick(&lecteur, Qt::Key_Right);
  EXPECT_FALSE(ecran->Image().isNull());
}

TEST_F(Frise, SavingAsksWhereToShowsHowFarItIsAndTellsWhatIsMissing) {
  Ouvre();
  Cartes().MontreChoix(2);
  Clique("CmdEnregistrer");
  EXPECT_EQ(Dialogue.Noms, QStringList{QStringLiteral("Vaktor 2026-11-22 03-12-05.mkv")});
  EXPECT_EQ(Dialogue.Filtres.size(), 1) << "no encoder, no MP4";
  EXPECT_TRUE(Films.Films.isEmpty()) << "cancelled";
  Dialogue.Reponse = QStringLiteral("/home/u/night");
  Clique("CmdEnregistrer");
  ASSERT_EQ(Films.Films.size(), 1);
  EXPECT_EQ(Films.Films[0].Sortie, QStringLiteral("/home/u/night.mkv"));
  EXPECT_EQ(Films.Films[0].Chemins.size(), 4);
  EXPECT_EQ(Films.Films[0].Instants, (QList<qint64>{0, 1000, 2000, 3000}));
  auto* progres = Fenetre.findChild<QProgressDialog*>(QStringLiteral("FrmFilm"));
  ASSERT_NE(progres, nullptr);
  Films.Avancement(3);
  EXPECT_EQ(progres->value(), 3);
  Films.Finit({.Etat = EtatFilm::kFait, .Manquantes = 1});
  ASSERT_EQ(Boites.Textes.size(), 1);
  EXPECT_EQ(Boites.Textes[0], QStringLiteral("The film is saved, without 1 picture(s) that are gone, damaged or of "
                                             "another size:\n/home/u/night.mkv"));
}

TEST_F(Frise, AFilmIsGivenUpByItsButtonAndWithTheWindow) {
  Ouvre();
  Films.SaitMp4 = true;
  Dialogue.Reponse = QStringLiteral("/home/u/night.mp4");
  Cartes().MontreChoix(2);
  Clique("CmdEnregistrer");
  EXPECT_EQ(Dialogue.Filtres.size(), 2);
  EXPECT_EQ(Films.Films[0].Format, FormatFilm::kMp4);
  QTest::mouseClick(Fenetre.findChild<QProgressDialog*>(QStringLiteral("FrmFilm"))->findChild<QPushButton*>(),
                    Qt::LeftButton);
  EXPECT_EQ(Films.Annulations, 1);
  EXPECT_TRUE(Boites.Textes.isEmpty()) << "who gave it up knows";
}

TEST_F(Frise, AFullDiskIsTold) {
  Ouvre();
  Dialogue.Reponse = QStringLiteral("/home/u/night.mkv");
  Cartes().MontreChoix(2);
  Clique("CmdEnregistrer");
  Films.Finit({.Etat = EtatFilm::kDisque, .Erreur = ENOSPC});
  EXPECT_EQ(Boites.Textes, QStringList{QStringLiteral("The film is not saved, and nothing of it is left: No space left "
                                                      "on device.\n/home/u/night.mkv")});
}

TEST_F(Frise, TheTickOfThePlayerCanBeSeenInEachSkin) {
  for (const int skin : {0, 1, 2}) {
    Reglages.IndexSkin = skin;
    Fenetre.close();
    Ouvre();
    Cartes().setCurrentIndex(Cartes().Modele().index(0));
    Clique("CmdRegarder");
    const auto* coche = Fenetre.Lecteur()->findChild<QCheckBox*>(QStringLiteral("ChkCadre"));
    coche->ensurePolished();
    const QPalette palette = coche->palette();
    EXPECT_GT(qGray(palette.color(QPalette::Base).rgb()) - qGray(palette.color(QPalette::Text).rgb()), 120) << skin;
    EXPECT_EQ(palette.color(QPalette::WindowText), ChoisitAllure(skin, 1).EncreTete) << skin;
  }
}

TEST_F(Frise, TheThreeSkinsHaveMaterialAndInksThatCanBeRead) {
  const auto eclat = [](const QColor& c) {
    const auto part = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * part(c.redF()) + 0.7152 * part(c.greenF()) + 0.0722 * part(c.blueF());
  };
  const auto contraste = [&](const QColor& a, const QColor& b) {
    const double clair = std::max(eclat(a), eclat(b)), sombre = std::min(eclat(a), eclat(b));
    return (clair + 0.05) / (sombre + 0.05);
  };
  for (int skin = 0; skin < 3; ++skin) {
    const AllureFrise allure = ChoisitAllure(skin, 1);
    ASSERT_FALSE(allure.Matiere.isNull());
    QImage tete(400, 300, QImage::Format_RGB32);
    QPainter peintre(&tete);
    DessineTete(peintre, tete.rect(), allure);
    peintre.end();
    double pire = 99;
    for (int y = 0; y < tete.height(); y += 5)
      for (int x = 0; x < tete.width(); x += 5)
        pire = std::min(pire, contraste(tete.pixelColor(x, y), allure.EncreTete));
    EXPECT_GE(pire, 4.5) << skin;
    EXPECT_GE(contraste(allure.Carte, allure.Encre), 4.5) << skin;
    EXPECT_GE(contraste(allure.Carte, allure.EncreDouce), 4.5) << skin;
    EXPECT_GE(contraste(allure.Carte, allure.Rouge), 4.5) << skin;
  }
}

}  // namespace
}  // namespace vaktor::essai
