// SPDX-License-Identifier: GPL-3.0-or-later
// An alarm that fires in the whole program: what each frame does, what the boxes and the start arguments change in it.
#include "app/alarm_fixture.h"
#include "ui/controls/lamp.h"
#include "ui/fields/field_events.h"

namespace vaktor::essai {
namespace {

class AlarmeDuProgramme : public AlarmeSurFaux {
 protected:
  static constexpr int kTrame = 30;  ///< milliseconds from frame to frame

  /// What leaves the program with the next frame.
  QStringList TrameSuivante() {
    Systeme.Notes.Vide();
    Systeme.Temps.Avance(kTrame);
    QStringList sorties;
    for (const QString& ligne : Systeme.DepuisVide()) {
      if (ligne.startsWith("jpeg: ")) sorties += ligne.contains("intrus") ? "photo" : ligne.mid(6).section('/', 4);
      if (ligne.startsWith("channel: post ")) sorties += ligne.mid(14);
    }
    return sorties;
  }
  /// The photo's own name is of no interest.
  static QString SansNom(const QString& sortie) {
    return sortie.startsWith("Temp/FTP/") ? QStringLiteral("Temp/FTP") : sortie;
  }
  static QString SansNoms(const QStringList& sorties) {
    QStringList courtes;
    for (const QString& sortie : sorties) courtes += SansNom(sortie);
    return courtes.join(", ");
  }
  static Lampe LampeAlarme() { return Trouve<LampeWidget>("ImageLedAlarme")->Etat(); }
  static Lampe LampeLive() { return Trouve<LampeWidget>("ImageLedSurveill")->Etat(); }
  static QString Texte(const char* etiquette) { return Trouve<QLabel>(etiquette)->text(); }
  void DitPret() { Systeme.Recoit(1001, "*OKO*"); }
};

TEST_F(AlarmeDuProgramme, FrameByFrameAPhotoThenACopyForThePageThenMailThenSound) {
  DonneSite();
  Systeme.Valeurs.insert("FTP/refresh", "1000");
  ArmeEtBouge("/alarm /surve");
  EXPECT_EQ(SansNoms(TrameSuivante()), "photo, 66 to 72, 66 to 73") << "not connected yet: no copy for the page";
  OuvreLaPage();
  TrameSuivante();  // the first live image
  for (int i = 0; i < 3; ++i) EXPECT_EQ(SansNoms(TrameSuivante()), "photo, Temp/FTP, 66 to 72, 66 to 73") << i;
}

// Asked for and not there yet is no reason to keep photos for a site.
TEST_F(AlarmeDuProgramme, ThePageThatOnlyConnectsTakesNoPhotos) {
  DonneSite();
  ArmeEtBouge("/alarm /surve", false);
  Systeme.Recoit(1001, "HWND:71");
  EXPECT_EQ(LampeLive(), Lampe::kRougeAllumee);
  EXPECT_EQ(SansNoms(TrameSuivante()), "66 to 72, 66 to 73");
}

TEST_F(AlarmeDuProgramme, TheLivePageGetsAFrameEachIntervalArmedOrNot) {
  DonneSite();
  Systeme.Valeurs.insert("FTP/refresh", "1");
  Demarre("/surve");
  Systeme.Temps.Avance(2000);
  OuvreLaPage();
  Systeme.Temps.Avance(10'000);
  const QStringList vus = Systeme.DepuisVide();
  EXPECT_GE(vus.count("jpeg: /home/u/v/Temp/Live.jpg"), 9);
  EXPECT_LE(vus.count("jpeg: /home/u/v/Temp/Live.jpg"), 11);
  EXPECT_EQ(vus.count("channel: post 69 to 71"), vus.count("jpeg: /home/u/v/Temp/Live.jpg"));
}

// Armed, each box is switched off and on again, and counts from the next frame on.
TEST_F(AlarmeDuProgramme, TheBoxesTakeEffectOnTheNextFrameBothWays) {
  Systeme.Valeurs.insert(QMap<QString, QString>{
      {"MAIL/smtpserveur", "smtp.a.org"}, {"MAIL/smtpfrom", "me@a.org"}, {"MAIL/destination", "a@example.org"}});
  Systeme.Disque.Libre = 1'000'000'000;
  ArmeEtBouge();
  const struct {
    const char* Boite;
    const char* SansElle;
  } boites[] = {
      {"CheckPPhot", "66 to 72, 66 to 73"}, {"CheckMail", "photo, 66 to 73"}, {"CheckSon", "photo, 66 to 72"}};
  for (const auto& [boite, sansElle] : boites) {
    Clique(boite);
    EXPECT_EQ(SansNoms(TrameSuivante()), sansElle) << boite << " off";
    Clique(boite);
    EXPECT_EQ(SansNoms(TrameSuivante()), "photo, 66 to 72, 66 to 73") << boite << " on";
  }
  for (const auto& [boite, sansElle] : boites) Clique(boite);
  EXPECT_EQ(SansNoms(TrameSuivante()), "") << "green, red, and nothing follows";
  EXPECT_EQ(LampeAlarme(), Lampe::kVerte);
  EXPECT_EQ(Texte("LblDebugAlarm"), "Intrusion");
  EXPECT_TRUE(Systeme.Messages.Textes.isEmpty());
}

TEST_F(AlarmeDuProgramme, DisarmedNothingFollowsAMovement) {
  ArmeEtBouge();
  Clique("Bouton(1)");
  EXPECT_EQ(SansNoms(TrameSuivante()), "");
  EXPECT_EQ(Texte("LblDebugAlarm"), "Intrusion");
}

// --- The lamp, the delay and its field

TEST_F(AlarmeDuProgramme, TheLampIsSeenToBeOffCountingAndArmed) {
  Systeme.Valeurs.insert("general/retard", "3");
  DemarreJusquALaFenetre();
  const auto vue = [] { return Trouve("ImageLedAlarme")->grab().toImage(); };
  const QImage eteinte = vue();
  Clique("Bouton(1)");
  const QImage compte = vue();
  Systeme.Temps.Avance(3000);
  const QImage armee = vue();
  EXPECT_NE(compte, eteinte);
  EXPECT_NE(armee, compte);
  const QColor milieu = armee.pixelColor(armee.rect().center());
  EXPECT_GT(milieu.green(), milieu.red()) << "only the last one is green";
  EXPECT_GT(compte.pixelColor(4, 4).red(), compte.pixelColor(4, 4).green());
}

TEST_F(AlarmeDuProgramme, CountingDownCancelledAndDisarmedWriteTheDelayBackIntoItsField) {
  DemarreJusquALaFenetre();
  auto* champ = Trouve<QLineEdit>("Text1");
  champ->setText("007");
  Clique("Bouton(1)");
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Texte("LblDebugAlarm"), "Start in 6 sec");
  Clique("Bouton(1)");
  EXPECT_EQ(champ->text(), "7");
  EXPECT_EQ(LampeAlarme(), Lampe::kRouge);
  champ->setText("003");
  Clique("Bouton(1)");
  Systeme.Temps.Avance(2000);
  EXPECT_EQ(Texte("LblDebugAlarm"), "Start in 1 sec") << "from the start again";
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(LampeAlarme(), Lampe::kVerte);
  Clique("Bouton(1)");
  EXPECT_EQ(champ->text(), "3");
  EXPECT_EQ(LampeAlarme(), Lampe::kRouge);
}

// --- The start arguments, and the word that the companion of the page is ready

TEST_F(AlarmeDuProgramme, ReadyBeforeTheStartArgumentsHaveActedThrowsNoSwitchTwice) {
  DonneSite();
  Systeme.Valeurs.insert("general/retard", "3");
  Demarre("/surve /alarm");
  Systeme.Recoit(1001, "HWND:71");
  Systeme.Temps.Avance(500);
  DitPret();
  Systeme.Temps.Avance(499);
  EXPECT_EQ(LampeLive(), Lampe::kRouge);
  Systeme.Temps.Avance(1);
  EXPECT_EQ(LampeLive(), Lampe::kRougeAllumee);
  EXPECT_EQ(LampeAlarme(), Lampe::kRougeAllumee);
  Systeme.Temps.Avance(20'000);
  EXPECT_EQ(LampeLive(), Lampe::kRougeAllumee);
  EXPECT_EQ(LampeAlarme(), Lampe::kVerte);
}

// A message would hold up the alarm for as long as nobody comes.
TEST_F(AlarmeDuProgramme, StartArgumentsAskNobodyForTheParametersOfTheSite) {
  Systeme.Valeurs.insert("general/retard", "3");
  Demarre("/surve /alarm");
  Systeme.Notes.Vide();
  Systeme.Temps.Avance(5000);
  EXPECT_TRUE(Systeme.DepuisVide().filter("box: ").isEmpty()) << Systeme.DepuisVide().join('|').toStdString();
  EXPECT_EQ(LampeAlarme(), Lampe::kVerte);
  EXPECT_EQ(LampeLive(), Lampe::kRouge);
  EXPECT_TRUE(Texte("LblDebugftp").contains("FTP")) << Texte("LblDebugftp").toStdString();
}

// They act once: thrown while the camera is waited for, the switch of the alarm would be lost.
TEST_F(AlarmeDuProgramme, StartArgumentsWaitUntilTheCameraIsConnected) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  Demarre("/alarm");
  pilote.PendantConnexion = [this] { Systeme.Temps.Avance(3000); };
  Clique("Bouton(0)");
  EXPECT_EQ(LampeAlarme(), Lampe::kRouge);
  pilote.PendantConnexion = {};
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(LampeAlarme(), Lampe::kRougeAllumee);
}

TEST_F(AlarmeDuProgramme, ReadyLateThrowsBothSwitchesAgainAndOnceMoreAfterTheNextWord) {
  DonneSite();
  Systeme.Valeurs.insert("FTP/refresh", "1");
  ArmeEtBouge("/surve /alarm", false);
  OuvreLaPage();
  ASSERT_EQ(LampeLive(), Lampe::kVerte);
  ASSERT_EQ(LampeAlarme(), Lampe::kVerte);
  DitPret();
  EXPECT_EQ(LampeLive(), Lampe::kVerte) << "not at once";
  Systeme.Temps.Avance(1000);
  EXPECT_TRUE(Systeme.DepuisVide().contains("channel: post 66 to 71")) << "the page is told to disconnect";
  EXPECT_EQ(LampeLive(), Lampe::kRouge);
  // The page that is switched off disarms; the alarm's own switch then counts down again.
  EXPECT_EQ(LampeAlarme(), Lampe::kRougeAllumee);
  const Actes pendant = Pendant(900);
  EXPECT_EQ(pendant.Photos + pendant.Sons, 0) << "neither live nor armed";
  Systeme.Temps.Avance(100);
  EXPECT_EQ(LampeAlarme(), Lampe::kVerte);
  EXPECT_GT(Pendant(300).Sons, 0);
  DitPret();
  Systeme.Temps.Avance(1000);
  EXPECT_TRUE(Systeme.DepuisVide().contains("channel: post 65 to 71")) << "the page connects again";
  EXPECT_EQ(LampeLive(), Lampe::kRougeAllumee);
  EXPECT_EQ(LampeAlarme(), Lampe::kRouge) << "and the alarm is disarmed";
  EXPECT_EQ(Pendant(1000).Sons, 0);
  Systeme.Recoit(1001, "ConOK");
  EXPECT_GT(Pendant(2000).Photos, 0) << "live images";
}

TEST_F(AlarmeDuProgramme, ReadyThrowsOnlyTheSwitchThatWasAskedFor) {
  DonneSite();
  ArmeEtBouge("/alarm");
  OuvreLaPage();
  DitPret();
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(LampeAlarme(), Lampe::kRouge);
  EXPECT_EQ(LampeLive(), Lampe::kRouge);
  EXPECT_FALSE(Systeme.DepuisVide().contains("channel: post 65 to 71"));
}

TEST_F(AlarmeDuProgramme, ReadyWithoutStartArgumentsChangesNothing) {
  DonneSite();
  DemarreJusquALaFenetre();
  OuvreLaPage();
  DitPret();
  Systeme.Temps.Avance(5000);
  EXPECT_EQ(LampeAlarme(), Lampe::kRouge);
  EXPECT_EQ(LampeLive(), Lampe::kRouge);
  EXPECT_FALSE(Systeme.DepuisVide().contains("Connecte"));
}

// --- A companion's errors end the page, and never the watch

TEST_F(AlarmeDuProgramme, AnErrorOfThePageEndsItShowsWhereToLookAndLeavesTheAlarmArmed) {
  const struct {
    const char* Mot;
    const char* Rouges;
  } erreurs[] = {{"SerER", "TxtFtp"}, {"RepER", "TxtFTPracine"}, {"LogEr", "TxtPass TxtUserName"}, {"ErrCo", ""}};
  DonneSite();
  ArmeEtBouge("/surve /alarm", false);
  for (const auto& [mot, rouges] : erreurs) {
    for (auto* champ : Fenetre("Form1")->findChildren<QLineEdit*>()) RougitChamp(*champ, false);
    Clique("Bouton(3)");
    if (LampeLive() == Lampe::kRouge) Clique("Bouton(2)");
    OuvreLaPage();
    ASSERT_EQ(LampeLive(), Lampe::kVerte) << mot;
    Systeme.Recoit(1001, mot);
    EXPECT_EQ(LampeLive(), Lampe::kRouge) << mot;
    QStringList vus;
    for (auto* champ : Fenetre("Form1")->findChildren<QLineEdit*>())
      if (EstRouge(*champ)) vus += champ->objectName();
    vus.sort();
    EXPECT_EQ(vus.join(' '), rouges) << mot;
    EXPECT_EQ(static_cast<Form1*>(Fenetre("Form1"))->PageDevant(), 2) << mot;
    EXPECT_EQ(LampeAlarme(), Lampe::kVerte) << mot;
    EXPECT_EQ(SansNoms(TrameSuivante()), "66 to 72, 66 to 73") << mot << ": no copy, no live image, and no word";
  }
}

}  // namespace
}  // namespace vaktor::essai
