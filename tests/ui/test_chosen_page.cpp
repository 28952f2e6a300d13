// SPDX-License-Identifier: GPL-3.0-or-later
// The page in front: the focus it takes, buttons that are off, the mark on its tab.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QWindow>
#include <cmath>

#include "base/failure.h"
#include "ui/controls/tab_mark.h"
#include "ui/fields/field_events.h"
#include "ui/hands_bench.h"
#include "ui/sound/sounds.h"

namespace vaktor {
namespace {

// --- Covered pages

TEST_F(Mains, PageThatComesByItselfTakesTheKeysFromTheFieldItCovers) {
  Banc.Fenetre.AmenePage(0);
  auto* corps = Banc.Trouve<QPlainTextEdit>("TextTexte");
  corps->setPlainText(QString());
  corps->setFocus();
  QTest::keyClicks(Banc.Fenetre.focusWidget(), QStringLiteral("he"));
  Banc.Sauvegarde.Sauvegardes = 0;
  Banc.Fenetre.AmenePage(2);  // an error word of a companion
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1) << "the field was left";
  ASSERT_TRUE(Focus("PictPage(2)"));
  QTest::keyClicks(Banc.Fenetre.focusWidget(), QStringLiteral("llo"));
  EXPECT_EQ(corps->toPlainText(), QStringLiteral("he"));
  EXPECT_EQ(Banc.Trouve<QLineEdit>("TxtFtp")->text(), QStringLiteral("ftp.")) << "nor into a field that came up";
  QTest::keyClick(Banc.Fenetre.focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(Focus("TxtFtp"));
}

TEST_F(Mains, FocusInTheBandStaysWhereItIs) {
  Banc.Trouve("Bouton(5)")->setFocus();
  Banc.Fenetre.AmenePage(0);
  EXPECT_TRUE(Focus("Bouton(5)"));
  Banc.Trouve("TextSujet")->setFocus();
  Banc.Fenetre.AmenePage(0);
  EXPECT_TRUE(Focus("TextSujet")) << "its page is in front already";
}

TEST_F(Mains, PageWithoutAControlThatHasTheFocusHandsItOnToo) {
  Banc.Trouve("Text1")->setFocus();
  Banc.Fenetre.AmenePage(2);
  Banc.Fenetre.AmenePage(3);
  EXPECT_TRUE(Focus("PictPage(3)"));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(Banc.Trouve("PictPage(3)"))->text(QAccessible::Name),
            QStringLiteral("Options"))
      << "called by its tab";
}

TEST_F(Mains, PromptForTheAddressHasTheFocusAndTheFirstKeyIsTyped) {
  Banc.RemplitMail();
  Banc.Trouve<QLineEdit>("TextEMail")->clear();
  QTest::mouseClick(Banc.Fenetre.windowHandle(), Qt::LeftButton, {}, Dans("CheckMail"));
  ASSERT_TRUE(Focus("TextEMail"));
  EXPECT_EQ(Banc.Trouve<QLineEdit>("TextEMail")->text(), QStringLiteral("Destination eMail"));
  EXPECT_TRUE(EstRouge(*Banc.Trouve<QLineEdit>("TextEMail")));
  QTest::keyClicks(Banc.Fenetre.focusWidget(), QStringLiteral("a@b"));
  EXPECT_EQ(Banc.Reglages.MailDestination, QStringLiteral("a@b"));
}

TEST_F(Mains, SaveThatFailsAtAChoiceOfPageIsToldAndThePageComesAllTheSame) {
  for (const auto& [nom, page] : {std::pair("Bouton(4)", 3), {"Bouton(5)", 0}, {"Bouton(6)", 2}, {"Bouton(3)", 1}}) {
    Banc.Reglages.ParametresModifies = true;
    Banc.Sauvegarde.Echoue = true;
    auto* bouton = Banc.Trouve<QAbstractButton>(nom);
    EXPECT_THROW(bouton->click(), Echec) << "to whoever tells failures";
    EXPECT_EQ(Banc.Fenetre.PageDevant(), page) << nom;
    EXPECT_TRUE(Banc.Reglages.ParametresModifies);
  }
}

// --- Buttons that are off

class Inactif : public Mains {
 protected:
  QString Dit(const char* nom) {
    return QAccessible::queryAccessibleInterface(Banc.Trouve(nom))->text(QAccessible::Description);
  }
  Qt::CursorShape Curseur() const { return Banc.Fenetre.cursor().shape(); }
};

TEST_F(Inactif, ReasonStandsBehindTheGivenTipWhileTheyAre) {
  auto* alarme = Banc.Trouve("Bouton(1)");
  auto* live = Banc.Trouve("Bouton(2)");
  for (const int langue : {0, 1}) {
    Banc.Clique(langue == 0 ? "Image4(0)" : "Image4(1)");
    const QString donnee = Banc.Textes.Dit(Aide::kAlarme);
    const QString raison =
        QString::fromUtf8(langue == 0 ? "Indisponible tant que la caméra ne tourne pas : cliquez sur [Caméra on]."
                                      : "Not available until the camera runs: click on [Camera on].");
    EXPECT_EQ(alarme->toolTip(), donnee);
    EXPECT_EQ(live->toolTip(), QString());
    Banc.Vue.ActiveBouton(1, false);
    Banc.Vue.ActiveBouton(2, false);
    EXPECT_EQ(alarme->toolTip(), donnee + u'\n' + raison);
    EXPECT_EQ(live->toolTip(), raison) << "no tip is given for it";
    EXPECT_EQ(Dit("Bouton(1)"), alarme->toolTip());
    EXPECT_EQ(Dit("Bouton(2)"), raison);
    Banc.Vue.ActiveBouton(1, true);
    Banc.Vue.ActiveBouton(2, true);
    EXPECT_EQ(alarme->toolTip(), donnee);
    EXPECT_EQ(live->toolTip(), QString());
  }
}

TEST_F(Inactif, ReasonChangesItsLanguageWhileTheyAre) {
  Banc.Vue.ActiveBouton(2, false);
  Banc.Clique("Image4(0)");
  EXPECT_TRUE(Banc.Trouve("Bouton(2)")->toolTip().startsWith(QStringLiteral("Indisponible")));
}

TEST_F(Inactif, CameraThatIsNotThereLeavesTheLiveButtonOffWithItsReason) {
  Banc.Pilote.Presente = false;
  Banc.Clique("Bouton(1)");
  EXPECT_FALSE(Banc.Trouve("Bouton(2)")->isEnabled());
  EXPECT_TRUE(Dit("Bouton(2)").startsWith(QStringLiteral("Not available")));
  Banc.Pilote.Presente = true;
  Banc.Clique("Bouton(0)");
  EXPECT_EQ(Dit("Bouton(2)"), QString());
}

TEST_F(Inactif, CursorSaysNoOverThem) {
  Banc.Vue.ActiveBouton(2, false);
  Bouge(SurPage);
  EXPECT_EQ(Curseur(), Qt::ArrowCursor);
  Bouge(Dans("Bouton(2)"));
  EXPECT_EQ(Curseur(), Qt::ForbiddenCursor);
  Bouge(Dans("Bouton(1)"));
  EXPECT_EQ(Curseur(), Qt::ArrowCursor);
  Bouge(Dans("Bouton(2)"));
  Banc.Vue.ActiveBouton(2, true);
  EXPECT_EQ(Curseur(), Qt::ArrowCursor) << "on again under the pointer";
  Banc.Vue.ActiveBouton(2, false);
  EXPECT_EQ(Curseur(), Qt::ForbiddenCursor) << "and off again";
  Bouge(SurPage);
  EXPECT_EQ(Curseur(), Qt::ArrowCursor);
  Banc.Vue.ActiveBouton(1, false);
  EXPECT_EQ(Curseur(), Qt::ArrowCursor) << "the pointer is elsewhere";
}

// --- The mark on the chosen tab

double Clarte(QRgb couleur) {
  const auto lineaire = [](int canal) {
    const double c = canal / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * lineaire(qRed(couleur)) + 0.7152 * lineaire(qGreen(couleur)) + 0.0722 * lineaire(qBlue(couleur));
}

double Contraste(QRgb a, QRgb b) {
  const double clair = std::max(Clarte(a), Clarte(b));
  return (clair + 0.05) / (std::min(Clarte(a), Clarte(b)) + 0.05);
}

class Marque : public Mains {
 protected:
  QRect Onglet(int i) { return Banc.Trouve(qPrintable(QStringLiteral("Bouton(%1)").arg(i)))->geometry(); }
  QImage Photo() { return Banc.Fenetre.grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

TEST_F(Marque, StandsAroundTheChosenTabAloneAndLeavesEveryFaceAlone) {
  const std::pair<int, int> onglets[] = {{3, 1}, {4, 3}, {5, 0}, {6, 2}};
  Banc.Fenetre.AmenePage(1);
  QImage avant = Photo();
  int devant = 3;
  for (const auto& [onglet, page] : onglets) {
    Banc.Fenetre.AmenePage(page);
    const QImage apres = Photo();
    if (onglet != devant) {
      for (int y = 0; y < PageVaktor::kPlace.top(); ++y) {
        for (int x = 0; x < apres.width(); ++x) {
          const bool permis = PlaceMarque(Onglet(onglet)).contains(x, y) || PlaceMarque(Onglet(devant)).contains(x, y);
          ASSERT_TRUE(permis || apres.pixel(x, y) == avant.pixel(x, y)) << x << "," << y;
        }
      }
      EXPECT_NE(apres.copy(PlaceMarque(Onglet(onglet))), avant.copy(PlaceMarque(Onglet(onglet))));
      EXPECT_EQ(apres.copy(Onglet(onglet)), avant.copy(Onglet(onglet))) << "its face is as it is given";
    }
    avant = apres;
    devant = onglet;
  }
}

// What is painted anew of a window.
class Peintures : public QObject {
 public:
  explicit Peintures(QWidget& fenetre) { fenetre.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* evenement) override {
    if (evenement->type() == QEvent::Paint) Peint += static_cast<QPaintEvent*>(evenement)->region();
    return false;
  }
  QRegion Peint;
};

TEST_F(Marque, GoesFromTabToTabOnTheScreen) {
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&Banc.Fenetre));
  QCoreApplication::processEvents();
  Peintures peintures(Banc.Fenetre);
  Banc.Fenetre.AmenePage(0);
  QCoreApplication::processEvents();
  for (const int onglet : {3, 5}) {
    const QRect coiffe = PlaceMarque(Onglet(onglet)).adjusted(0, 0, 0, -Onglet(onglet).height() - 1);
    EXPECT_TRUE((QRegion(coiffe) - peintures.Peint).isEmpty()) << onglet;
  }
}

TEST_F(Marque, IsSeenOnEverySkin) {
  for (int skin = 0; skin < 3; ++skin) {
    Banc.Fenetre.Options().CombSkin->setCurrentIndex(skin);
    Banc.Fenetre.AmenePage(3);
    const QImage image = Photo();
    const QRect onglet = Onglet(4);
    const QRect autre = Onglet(6);
    // The middle of the cap, and the same place above a tab that is not chosen.
    EXPECT_GE(
        Contraste(image.pixel(onglet.center().x(), onglet.top() - 1), image.pixel(autre.center().x(), autre.top() - 1)),
        3.0)
        << skin;
    EXPECT_NE(image.pixel(onglet.center().x(), onglet.bottom() + 1),
              image.pixel(autre.center().x(), autre.bottom() + 1));
  }
}

TEST_F(Marque, TouchesNoGivenControl) {
  for (int i = 3; i <= 6; ++i) {
    for (const char* nom : {"PictSeuil", "LblDebugftp", "SigneSante", "PictPage(1)"}) {
      EXPECT_FALSE(PlaceMarque(Onglet(i)).intersects(Banc.Trouve(nom)->geometry())) << nom;
    }
    for (int autre = 0; autre <= 6; ++autre) {
      EXPECT_TRUE(autre == i || !PlaceMarque(Onglet(i)).intersects(Onglet(autre))) << autre;
    }
  }
}

}  // namespace
}  // namespace vaktor
