// SPDX-License-Identifier: GPL-3.0-or-later
// The health of the watch in the whole program: the sign, the list, the desktop, the mails.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "app/program_fixture.h"
#include "ui/controls/health_sign.h"
#include "ui/window/health_form.h"

// What a screen reader is told, in order: the control and its name at that moment.
static QStringList& Alertes() {
  static QStringList liste;
  return liste;
}

// The offscreen platform has no reader, and Qt drops what it would be told before any handler could see it. So the test
// stands in the place of the one function through which all of it goes.
void QAccessible::updateAccessibility(QAccessibleEvent* evenement) {
  const auto* controle = qobject_cast<const QWidget*>(evenement->object());
  if (evenement->type() != QAccessible::Alert || controle == nullptr) return;
  Alertes().append(controle->objectName() + u':' + controle->accessibleName());
}

namespace vaktor::essai {
namespace {

class SanteDuProgramme : public ProgrammeSurFaux {
 protected:
  SanteDuProgramme() { Alertes().clear(); }
  void SetUp() override {
    DemarreJusquALaFenetre();
    InscritCompagnons();
    Fenetre("Form1")->activateWindow();
  }
  RapportSante& Rapport() { return Programme->Sante(); }
  void SignaleTout() {
    for (int i = 0; i < kNombreConditions; ++i) {
      Rapport().Signale(static_cast<Condition>(i),
                        QStringLiteral("/media/a/rather/long/path/to/some/folder of a shop: No space"));
    }
  }
  static SigneSante* Signe() { return Trouve<SigneSante>("SigneSante"); }
  static QWidget* Liste() { return Fenetre("FrmSante"); }
  static QString LitLigne(const char* condition, const char* etiquette) {
    auto* ligne = Liste()->findChild<QWidget*>(QStringLiteral("LigneSante(%1)").arg(QLatin1String(condition)));
    return ligne == nullptr ? QString() : ligne->findChild<QLabel*>(QLatin1String(etiquette))->text();
  }
  /// The conditions of the list from top to bottom.
  static std::string Ordre() {
    QList<LigneSante*> lignes = Liste()->findChildren<LigneSante*>();
    Liste()->ensurePolished();
    QCoreApplication::processEvents();
    std::sort(lignes.begin(), lignes.end(), [](const QWidget* a, const QWidget* b) { return a->y() < b->y(); });
    QStringList mots;
    for (const LigneSante* ligne : lignes) mots.append(ligne->objectName().mid(11).chopped(1));
    return mots.join(u' ').toStdString();
  }
};

TEST_F(SanteDuProgramme, TheSignIsThereOnlyWhileSomethingCounts) {
  ASSERT_NE(Signe(), nullptr);
  EXPECT_FALSE(Signe()->isVisible());
  Rapport().Signale(Condition::kPhotosImpossibles, QStringLiteral("disk full"));
  Systeme.Temps.Avance(1000);
  EXPECT_TRUE(Signe()->isVisible());
  EXPECT_EQ(Signe()->toolTip(), QStringLiteral("Photos cannot be saved (disk full)."));
  EXPECT_EQ(Signe()->accessibleName(),
            QStringLiteral("Vaktor does not do everything. Photos cannot be saved (disk full)."));
  Rapport().Leve(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  EXPECT_FALSE(Signe()->isVisible());
}

TEST_F(SanteDuProgramme, TheListIsAsLargeAsTheDesktopSays) {
  const QFont avant = QApplication::font();
  QFont grande = avant;
  grande.setPointSize(23);
  QApplication::setFont(grande);
  Rapport().Signale(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  auto* ligne = Liste()->findChild<LigneSante*>();
  ASSERT_NE(ligne, nullptr);
  for (const QLabel* etiquette : ligne->findChildren<QLabel*>()) EXPECT_EQ(etiquette->font().pointSize(), 23);
  QApplication::setFont(avant);
}

TEST_F(SanteDuProgramme, TheSignTellsTheWorstAndLooksLikeIt) {
  const auto image = [] { return Signe()->grab().toImage(); };
  Rapport().Signale(Condition::kPeuDePlace);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Signe()->Niveau(), Gravite::kAvis);
  const QImage avis = image();
  Rapport().Signale(Condition::kCompagnonSon);
  Systeme.Temps.Avance(2000);
  EXPECT_EQ(Signe()->Niveau(), Gravite::kBoiteuse);
  const QImage boiteuse = image();
  Rapport().Signale(Condition::kSignalPerdu);
  Systeme.Temps.Avance(6000);
  EXPECT_EQ(Signe()->Niveau(), Gravite::kAveugle);
  EXPECT_EQ(Signe()->toolTip(), QStringLiteral("The camera gives no new pictures."));
  const QImage aveugle = image();
  EXPECT_NE(avis, boiteuse);
  EXPECT_NE(boiteuse, aveugle);
  Rapport().Leve(Condition::kSignalPerdu);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Signe()->Niveau(), Gravite::kBoiteuse);
}

TEST_F(SanteDuProgramme, TheSignIsHeardWhenItAppearsAndWhenItSaysSomethingElse) {
  Rapport().Signale(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(5000);
  EXPECT_EQ(Alertes(),
            QStringList{QStringLiteral("SigneSante:Vaktor does not do everything. Photos cannot be saved.")});
  Rapport().Signale(Condition::kSignalPerdu);
  Systeme.Temps.Avance(6000);
  ASSERT_EQ(Alertes().size(), 2);
  EXPECT_TRUE(Alertes()[1].startsWith(QStringLiteral("SigneSante:Vaktor sees nothing.")));
  Rapport().Leve(Condition::kSignalPerdu);
  Rapport().Leve(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  Rapport().Signale(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Alertes().size(), 3) << "it has appeared again";
}

// A server numbers its answers: each look at what waits brings other words of the same thing.
TEST_F(SanteDuProgramme, WordsThatChangeAreShownAndNotHeardAgain) {
  Rapport().Signale(Condition::kPhotosImpossibles, QStringLiteral("id 1"));
  Systeme.Temps.Avance(1000);
  ASSERT_EQ(Alertes().size(), 1);
  Rapport().Signale(Condition::kPhotosImpossibles, QStringLiteral("id 2"));
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Signe()->toolTip(), QStringLiteral("Photos cannot be saved (id 2)."));
  EXPECT_TRUE(Signe()->accessibleName().contains(QStringLiteral("id 2")));
  EXPECT_EQ(Alertes().size(), 1);
  // As bad, but something else.
  Rapport().Leve(Condition::kPhotosImpossibles);
  Rapport().Signale(Condition::kLimitePhotos);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Alertes().size(), 2);
}

TEST_F(SanteDuProgramme, TheSignCoversNoOtherControlAndMovesNone) {
  const auto places = [] {
    QMap<QString, QRect> liste;
    for (QWidget* controle : Fenetre("Form1")->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (!controle->isHidden() && controle != Signe()) liste.insert(controle->objectName(), controle->geometry());
    }
    return liste;
  };
  const QMap<QString, QRect> avant = places();
  ASSERT_GT(avant.size(), 15);
  Rapport().Signale(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(places(), avant);
  for (auto it = avant.begin(); it != avant.end(); ++it) {
    EXPECT_FALSE(it.value().intersects(Signe()->geometry())) << it.key().toStdString();
  }
  EXPECT_TRUE(Fenetre("Form1")->rect().contains(Signe()->geometry()));
}

TEST(SigneDeLaSante, HasAPictureForEachGravityAtOneAndAtTwoPixelsAPoint) {
  for (const Gravite gravite : {Gravite::kAveugle, Gravite::kBoiteuse, Gravite::kAvis}) {
    for (const int echelle : {1, 2}) {
      const QImage image = DonneSigne(gravite, echelle);
      ASSERT_EQ(image.size(), SigneSante::kPlace.size() * echelle);
      EXPECT_EQ(image.devicePixelRatio(), echelle);
      EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << "the skin shows in its corners";
      EXPECT_EQ(qAlpha(image.pixel(image.width() / 2, image.height() / 2)), 255);
    }
  }
}

TEST_F(SanteDuProgramme, AClickOpensTheListTheWorstFirst) {
  Rapport().Signale(Condition::kPeuDePlace);
  Rapport().Signale(Condition::kPhotosImpossibles, QStringLiteral("disk full"));
  Rapport().Signale(Condition::kSignalPerdu);
  Systeme.Temps.Avance(6000);
  EXPECT_EQ(Liste(), nullptr);
  Clique("SigneSante");
  ASSERT_NE(Liste(), nullptr);
  EXPECT_TRUE(Liste()->isVisible());
  EXPECT_EQ(Liste()->windowTitle(), QStringLiteral("Health of the watch"));
  EXPECT_EQ(Ordre(), "signal-lost photos-not-written little-space");
  EXPECT_EQ(LitLigne("photos-not-written", "LblQuoi"), QStringLiteral("Photos cannot be saved (disk full)."));
  EXPECT_EQ(LitLigne("photos-not-written", "LblDepuis"), QStringLiteral("Since 2 January 2020, 09:05:05"));
  EXPECT_EQ(LitLigne("photos-not-written", "LblFaire"), PhraseFaire(Condition::kPhotosImpossibles, Langue::kAnglais));
  EXPECT_NE(Liste()->pos(), Fenetre("Form1")->pos());
}

TEST_F(SanteDuProgramme, AListThatStandsOpenStaysWhereItWasPut) {
  Rapport().Signale(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  Liste()->move(37, 41);
  Clique("SigneSante");
  EXPECT_EQ(Liste()->pos(), QPoint(37, 41));
}

TEST_F(SanteDuProgramme, TheButtonOfTheListClosesItByMouseAndByKey) {
  Rapport().Signale(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  for (const Qt::Key touche : {Qt::Key_unknown, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    Clique("SigneSante");
    ASSERT_TRUE(Liste()->isVisible());
    auto* ferme = Liste()->findChild<QAbstractButton*>(QStringLiteral("CmdFermer"));
    if (touche == Qt::Key_unknown)
      QTest::mouseClick(ferme, Qt::LeftButton);
    else
      QTest::keyClick(ferme, touche);
    EXPECT_FALSE(Liste()->isVisible()) << touche;
  }
}

TEST_F(SanteDuProgramme, TheOpenListPutsAGraverConditionOnTopGrowsAndGivesTheFocusOfAnEntryThatGoesToItsButton) {
  Rapport().Signale(Condition::kLimitePhotos);
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  const int hauteur = Liste()->height();
  Rapport().Signale(Condition::kPhotosImpossibles);
  Rapport().Signale(Condition::kDetectionArretee);
  Systeme.Temps.Avance(6000);
  EXPECT_EQ(Ordre(), "detection-stopped photo-limit photos-not-written");
  EXPECT_GT(Liste()->height(), hauteur);
  Liste()->activateWindow();
  auto* grave = Liste()->findChild<QWidget*>(QStringLiteral("LigneSante(detection-stopped)"));
  grave->setFocus();
  ASSERT_EQ(Liste()->focusWidget(), grave);
  Rapport().Leve(Condition::kDetectionArretee);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Liste()->focusWidget(), Liste()->findChild<QWidget*>(QStringLiteral("CmdFermer")));
}

TEST_F(SanteDuProgramme, KeysOpenItAndTabComesToTheSignOnlyWhileItIsThere) {
  auto* jauge = Trouve("PictSeuil");  // the last control of the band before it
  jauge->setFocus();
  QTest::keyClick(jauge, Qt::Key_Tab);
  EXPECT_NE(Fenetre("Form1")->focusWidget(), Signe());
  Rapport().Signale(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  jauge->setFocus();
  QTest::keyClick(jauge, Qt::Key_Tab);
  ASSERT_EQ(Fenetre("Form1")->focusWidget(), Signe());
  for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    QTest::keyClick(Signe(), touche);
    ASSERT_NE(Liste(), nullptr);
    EXPECT_TRUE(Liste()->isVisible()) << touche;
    QTest::keyClick(Liste(), Qt::Key_Escape);
    EXPECT_FALSE(Liste()->isVisible()) << touche;
  }
  Rapport().Leve(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  EXPECT_NE(Fenetre("Form1")->focusWidget(), Signe()) << "a sign that goes does not keep the focus";
}

TEST_F(SanteDuProgramme, TheOpenListFollowsWhatHappens) {
  Rapport().Signale(Condition::kPhotosImpossibles, QStringLiteral("disk full"));
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  Rapport().Signale(Condition::kPhotosImpossibles, QStringLiteral("folder gone"));
  Rapport().Signale(Condition::kSignalPerdu);
  Systeme.Temps.Avance(6000);
  EXPECT_EQ(Ordre(), "signal-lost photos-not-written");
  EXPECT_EQ(LitLigne("photos-not-written", "LblQuoi"), QStringLiteral("Photos cannot be saved (folder gone)."));
  Rapport().Leve(Condition::kSignalPerdu);
  Rapport().Leve(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Ordre(), "");
  auto* rien = Liste()->findChild<QLabel*>(QStringLiteral("LblRien"));
  EXPECT_TRUE(rien->isVisible());
  EXPECT_EQ(rien->text(), QStringLiteral("Nothing to report."));
}

TEST_F(SanteDuProgramme, SignAndListFollowTheLanguageAtOnce) {
  Rapport().Signale(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  Clique("Image4(0)");
  EXPECT_EQ(Signe()->toolTip(), QString::fromUtf8("Les photos ne peuvent pas être enregistrées."));
  EXPECT_EQ(Liste()->windowTitle(), QString::fromUtf8("Santé de la surveillance"));
  EXPECT_EQ(LitLigne("photos-not-written", "LblQuoi"), Signe()->toolTip());
  EXPECT_EQ(LitLigne("photos-not-written", "LblDepuis"), QString::fromUtf8("Depuis le 2 janvier 2020 à 09:05:05"));
  EXPECT_EQ(Liste()->findChild<QPushButton*>(QStringLiteral("CmdFermer"))->text(), QStringLiteral("Fermer"));
}

TEST_F(SanteDuProgramme, EveryEntryIsReachedByTabAndReadAsAWhole) {
  Rapport().Signale(Condition::kPhotosImpossibles);
  Rapport().Signale(Condition::kPeuDePlace);
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  QWidget* depart = Liste()->focusWidget();
  ASSERT_NE(depart, nullptr);
  EXPECT_EQ(depart->objectName(), QStringLiteral("CmdFermer"));
  QStringList lus;
  QWidget* ici = depart;
  for (int i = 0; i < 6; ++i) {
    QTest::keyClick(ici, Qt::Key_Tab);
    ici = Liste()->focusWidget();
    if (ici == depart) break;
    lus.append(QAccessible::queryAccessibleInterface(ici)->text(QAccessible::Name));
  }
  ASSERT_EQ(lus.size(), 2);
  EXPECT_EQ(lus[0], PhraseGravite(Gravite::kBoiteuse, Langue::kAnglais) + u'\n' +
                        PhraseQuoi(Condition::kPhotosImpossibles, {}, Langue::kAnglais) +
                        QStringLiteral("\nSince 2 January 2020, 09:05:05\n") +
                        PhraseFaire(Condition::kPhotosImpossibles, Langue::kAnglais));
  EXPECT_TRUE(lus[1].contains(PhraseQuoi(Condition::kPeuDePlace, {}, Langue::kAnglais)));
}

TEST_F(SanteDuProgramme, NoWordIsCutOffInEitherLanguageAndAtTwoWidths) {
  SignaleTout();
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  // In this program nothing is wrong, and each room that looks takes its own away again: it is said until all stand.
  const auto lignes = [] { return Liste()->findChildren<LigneSante*>().size(); };
  for (int i = 0; i < 200 && lignes() < kNombreConditions; ++i) {
    SignaleTout();
    Systeme.Temps.Avance(100);
  }
  ASSERT_EQ(lignes(), kNombreConditions);
  int vus = 0;
  for (const char* drapeau : {"Image4(1)", "Image4(0)"}) {
    Clique(drapeau);
    for (const int largeur : {430, 320}) {
      Liste()->resize(largeur, Liste()->height());
      QCoreApplication::processEvents();
      for (const LigneSante* ligne : Liste()->findChildren<LigneSante*>()) {
        for (const QLabel* texte : ligne->findChildren<QLabel*>()) {
          if (texte->text().isEmpty()) continue;
          ++vus;
          EXPECT_GE(texte->height(), texte->heightForWidth(texte->width())) << texte->text().toStdString();
          EXPECT_LE(texte->geometry().right(), ligne->width()) << texte->text().toStdString();
          for (const QString& mot : texte->text().split(u' ')) {
            EXPECT_LE(texte->fontMetrics().horizontalAdvance(mot), texte->width()) << mot.toStdString();
          }
        }
        EXPECT_LE(ligne->geometry().right(), ligne->parentWidget()->width());
      }
    }
  }
  EXPECT_EQ(vus, 2 * 2 * 4 * kNombreConditions);
}

TEST_F(SanteDuProgramme, AnInterruptionStaysUntilTheListThatShowedItIsClosed) {
  Rapport().Signale(Condition::kInterruption, QStringLiteral("7 min"));
  Systeme.Temps.Avance(60'000);
  EXPECT_TRUE(Signe()->isVisible());
  Clique("SigneSante");
  EXPECT_TRUE(LitLigne("interruption", "LblQuoi").contains(QStringLiteral("7 min")));
  Systeme.Temps.Avance(60'000);
  EXPECT_EQ(Ordre(), "interruption");
  QTest::keyClick(Liste(), Qt::Key_Escape);
  EXPECT_FALSE(Signe()->isVisible());
}

TEST_F(SanteDuProgramme, TheDesktopIsToldOfTheBeginningAndOfTheEnd) {
  Rapport().Signale(Condition::kSignalPerdu);
  Systeme.Temps.Avance(6000);
  ASSERT_EQ(Systeme.Bureau.Montres.size(), 1);
  EXPECT_EQ(Systeme.Bureau.Montres[0].Titre, QStringLiteral("Vaktor sees nothing"));
  Rapport().Leve(Condition::kSignalPerdu);
  Systeme.Temps.Avance(10'000);
  ASSERT_EQ(Systeme.Bureau.Montres.size(), 2);
  EXPECT_EQ(Systeme.Bureau.Montres[1].Titre, QStringLiteral("Vaktor: nothing to report any more"));
}

TEST_F(SanteDuProgramme, SettingsThatCannotBeSavedAreToldAndTriedAgainUntilTheyAre) {
  Systeme.MagasinPlein = true;
  Trouve<QLineEdit>("Text1")->setText(QStringLiteral("12"));  // the field saves by itself
  EXPECT_THROW(QCoreApplication::sendPostedEvents(Trouve("Text1"), QEvent::MetaCall), Echec);
  Systeme.Temps.Avance(1000);
  EXPECT_TRUE(Signe()->isVisible());
  EXPECT_EQ(Signe()->toolTip(), QStringLiteral("The settings cannot be saved (disk full)."));
  Systeme.Messages.Textes.clear();
  Systeme.Notes.Vide();
  Systeme.Temps.Avance(60'000);
  const qsizetype essais = Systeme.Notes.Lignes().count(QStringLiteral("store: write general/langue"));
  EXPECT_TRUE(essais == 1 || essais == 2) << essais << " tries in a minute";
  EXPECT_TRUE(Signe()->isVisible());
  EXPECT_TRUE(Systeme.Messages.Textes.isEmpty()) << "no message with each try";
  Systeme.MagasinPlein = false;
  // On a disk that has fallen silent a save would hold up the windows for as long.
  Systeme.Disque.Muets = {QStringLiteral("/home/u/config")};
  Systeme.Notes.Vide();
  Systeme.Temps.Avance(120'000);
  EXPECT_TRUE(Signe()->isVisible());
  EXPECT_FALSE(Systeme.Notes.Lignes().contains(QStringLiteral("store: flush")));
  Systeme.Disque.Muets.clear();
  Systeme.Temps.Avance(32'000);
  EXPECT_FALSE(Signe()->isVisible());
  EXPECT_EQ(Systeme.Valeurs.value(QStringLiteral("general/retard")), QStringLiteral("12"));
}

TEST_F(SanteDuProgramme, TheStopClosesTheListAndTellsNobodyAnything) {
  Rapport().Signale(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  Systeme.Bureau.Montres.clear();
  Programme->Ferme();
  EXPECT_FALSE(Liste()->isVisible());
  Rapport().Leve(Condition::kPhotosImpossibles);
  Systeme.Temps.Avance(60'000);
  EXPECT_TRUE(Systeme.Bureau.Montres.isEmpty());
  Signe()->click();
  EXPECT_FALSE(Liste()->isVisible());
}

TEST_F(SanteDuProgramme, PicturesForThePersonWhoLooks) {
  const QString dossier = qEnvironmentVariable("VAKTOR_SHOTS");
  if (dossier.isEmpty()) GTEST_SKIP() << "no folder given";
  for (const Condition quoi : {Condition::kInterruption, Condition::kPhotosImpossibles, Condition::kSignalPerdu}) {
    Rapport().Signale(quoi,
                      quoi == Condition::kSignalPerdu ? QString() : QStringLiteral("/media/usb/photos: disk full"));
    Systeme.Temps.Avance(10'000);
    for (int skin = 0; skin < 3; ++skin) {
      Trouve<QComboBox>("CombSkin")->setCurrentIndex(skin);
      EXPECT_TRUE(Fenetre("Form1")->grab().save(
          QStringLiteral("%1/sign%2_s%3.png").arg(dossier).arg(static_cast<int>(DonneGravite(quoi))).arg(skin)));
    }
  }
  Clique("SigneSante");
  for (const int langue : {0, 1}) {
    Clique(langue == 0 ? "Image4(0)" : "Image4(1)");
    QCoreApplication::processEvents();
    EXPECT_TRUE(Liste()->grab().save(QStringLiteral("%1/list_l%2.png").arg(dossier).arg(langue)));
    EXPECT_TRUE(Fenetre("Form1")->grab().save(QStringLiteral("%1/window_l%2.png").arg(dossier).arg(langue)));
  }
}

class CourrielDuProgramme : public ProgrammeSurFaux {
 protected:
  void SetUp() override {
    Camera = Systeme.Pilote.get();
    Systeme.Valeurs.insert(QStringLiteral("MAIL/actif"), QStringLiteral("1"));
    Systeme.Valeurs.insert(QStringLiteral("general/retard"), QStringLiteral("1"));
    DemarreJusquALaFenetre();
    Systeme.Recoit(1002, QStringLiteral("HWND:72"));
    Clique("Bouton(1)");
    Systeme.Temps.Avance(3000);
    Systeme.Notes.Vide();
  }
  /// The camera gives nothing new, and its driver says so.
  void PerdSignal(bool perdu) const { Camera->Muette = Camera->Perdu = perdu; }
  faux::PiloteFaux* Camera = nullptr;
};

TEST_F(CourrielDuProgramme, ABlindWatchThatIsArmedLaysDownAMailWithItsLastPictureAndCallsTheCompanion) {
  PerdSignal(true);
  Systeme.Temps.Avance(62'000);
  ASSERT_EQ(Systeme.Courriels.Deposes.size(), 1);
  EXPECT_EQ(Systeme.Courriels.Deposes[0].Courriel.Mot, QStringLiteral("signal-lost"));
  EXPECT_EQ(Systeme.Courriels.Deposes[0].Image.size(), QSize(287, 241));
  EXPECT_FALSE(Systeme.Notes.Lignes().contains(QStringLiteral("channel: post 68 to 72")));
  Systeme.Courriels.Repond(true);
  EXPECT_TRUE(Systeme.Notes.Lignes().contains(QStringLiteral("channel: post 68 to 72")));
  PerdSignal(false);
  Systeme.Temps.Avance(2000);
  ASSERT_EQ(Systeme.Courriels.Deposes.size(), 2);
  EXPECT_TRUE(Systeme.Courriels.Deposes[1].Courriel.Fin);
}

TEST_F(CourrielDuProgramme, OneThatIsDisarmedDoesNot) {
  Clique("Bouton(1)");
  PerdSignal(true);
  Systeme.Temps.Avance(120'000);
  EXPECT_TRUE(Systeme.Courriels.Deposes.isEmpty());
}

}  // namespace
}  // namespace vaktor::essai
