// SPDX-License-Identifier: GPL-3.0-or-later
// A start that fails harms nothing: behind its message nothing watches, nothing is saved, no window comes up.
#include <gtest/gtest.h>

#include <QTest>

#include "app/program_fixture.h"
#include "settings/settings_table.h"

namespace vaktor::essai {
namespace {

const QStringList kPoignees = {QStringLiteral("FTP/HWNDVK"), QStringLiteral("MAIL/HWNDVK"),
                               QStringLiteral("SON/HWNDVK")};

class DepartManque : public ProgrammeSurFaux {
 protected:
  DepartManque() {
    // What a user has to lose, all of it other than the start values.
    Systeme.Disque.Existants.append(QStringLiteral("/home/u/photos"));
    for (const auto& [cle, valeur] :
         std::initializer_list<std::pair<const char*, const char*>>{{"general/langue", "1"},
                                                                    {"PHOTO/repertoire", "/home/u/photos"},
                                                                    {"MAIL/smtpserveur", "mail.example.org"},
                                                                    {"MAIL/smtpuser", "u"},
                                                                    {"MAIL/pass", "098100102"},
                                                                    {"MAIL/destination", "a@example.org"},
                                                                    {"FTP/ftp", "ftp.example.org"},
                                                                    {"FTP/user", "u"},
                                                                    {"FTP/html", "http://www.example.org/"},
                                                                    {"FTP/pass", "098100102"},
                                                                    {"FTP/refresh", "7"}}) {
      Systeme.Valeurs.insert(QLatin1String(cle), QLatin1String(valeur));
    }
    // Somebody is away while the message stands, and everything that can go on by itself has its time.
    Systeme.Messages.PendantMessage = [this] {
      PendantMessage = true;
      Systeme.Temps.Avance(60'000);
      FenetresVues |= Visible("Form1") || Visible("FormMonitor");
    };
  }
  static QMap<QString, QString> SansPoignees(QMap<QString, QString> valeurs) {
    for (const QString& cle : kPoignees) valeurs.remove(cle);
    return valeurs;
  }
  void DansChaquePompe(const std::function<void()>& quoi) {
    Systeme.Pompe.EnAttente = [this, quoi] {
      DansChaquePompe(quoi);
      quoi();
    };
  }
  qsizetype Compte(const char* ligne) const { return Systeme.Notes.Lignes().count(QLatin1String(ligne)); }

  bool PendantMessage = false;
  bool FenetresVues = false;
};

// The camera used to open behind the message, its first frame had another size, and that saved start values over all
// that had not been read yet.
TEST_F(DepartManque, OfASkinThatIsNotThereLeavesEveryOtherValueAlone) {
  Systeme.Valeurs.insert(QStringLiteral("general/skin"), QStringLiteral("7"));
  const QMap<QString, QString> avant = Systeme.Valeurs;
  const QString dit = DemarreEtEchoue(QStringLiteral("/alarm /surve"));
  EXPECT_TRUE(dit.contains(QStringLiteral("general/skin"))) << dit.toStdString();
  EXPECT_TRUE(PendantMessage);
  EXPECT_EQ(SansPoignees(Systeme.Valeurs), avant);
  EXPECT_EQ(Compte("ConnecteSansAttendre"), 0);
  EXPECT_FALSE(FenetresVues);
  EXPECT_EQ(Systeme.Messages.Textes.size(), 1) << Systeme.Messages.Textes.join(u'\n').toStdString();
}

TEST_F(DepartManque, OfAnyDamagedValueIsToldWithItsKeyAndLeavesTheOthersAlone) {
  const QMap<QString, QString> bonnes = Systeme.Valeurs;
  int essais = 0;
  for (const LigneReglage& ligne : TableReglages()) {
    const bool texte = ligne.Forme == FormeStockee::Texte || ligne.Forme == FormeStockee::Brouille ||
                       ligne.Forme == FormeStockee::Secret;
    if (!EstLue(ligne) || texte) continue;
    ++essais;
    Systeme.Valeurs = bonnes;
    Systeme.Valeurs.insert(NomReglage(ligne), QStringLiteral("much"));
    const QMap<QString, QString> avant = Systeme.Valeurs;
    Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
    const QString dit = DemarreEtEchoue(QStringLiteral("/alarm"));
    EXPECT_TRUE(dit.contains(NomReglage(ligne))) << dit.toStdString();
    EXPECT_EQ(SansPoignees(Systeme.Valeurs), SansPoignees(avant)) << NomReglage(ligne).toStdString();
    // Its windows go with it before the next one comes up.
    Programme.reset();
  }
  EXPECT_GT(essais, 10);
  EXPECT_EQ(Compte("ConnecteSansAttendre"), 0);
  EXPECT_FALSE(FenetresVues);
}

TEST_F(DepartManque, AnEndThatTheSystemAsksForBehindTheMessageSavesNothingEither) {
  Systeme.Valeurs.insert(QStringLiteral("FTP/qualitephoto"), QStringLiteral("4"));
  const QMap<QString, QString> avant = Systeme.Valeurs;
  Systeme.Messages.PendantMessage = [this] {
    PendantMessage = true;
    Programme->Ferme();
  };
  DemarreEtEchoue(QStringLiteral("/alarm"));
  EXPECT_TRUE(PendantMessage);
  EXPECT_EQ(SansPoignees(Systeme.Valeurs), avant);
}

TEST_F(DepartManque, OfAStoreThatCannotBeWrittenOpensNoCameraBehindItsMessage) {
  // Full once the inboxes are written: it is the tail of the load that fails, with every value read.
  DansChaquePompe([this] { Systeme.MagasinPlein = true; });
  EXPECT_FALSE(DemarreEtEchoue(QStringLiteral("/alarm")).isEmpty());
  EXPECT_TRUE(PendantMessage);
  EXPECT_EQ(Compte("ConnecteSansAttendre"), 0);
}

// The splash's two seconds run from before the companions are launched.
TEST_F(DepartManque, OfAMissingCompanionBringsUpNoWindowAndNoCameraBehindItsMessage) {
  Systeme.Programmes.Absents = {QStringLiteral("/opt/v/VAKTORmail")};
  EXPECT_TRUE(DemarreEtEchoue(QStringLiteral("/alarm /surve")).contains(QStringLiteral("VAKTORmail")));
  EXPECT_TRUE(PendantMessage);
  EXPECT_FALSE(FenetresVues);
  EXPECT_EQ(Compte("ConnecteSansAttendre"), 0);
}

// On a machine that was slow until then the start arguments have acted before the launch.
TEST_F(DepartManque, OfAMissingCompanionLetsACameraGoThatTheStartArgumentsHaveOpened) {
  Systeme.Programmes.Absents = {QStringLiteral("/opt/v/VAKTORftp")};
  Systeme.Messages.PendantMessage = [this] {
    PendantMessage = true;
    EXPECT_EQ(Compte("Deconnecte"), 1);
    EXPECT_GT(Systeme.Machine.Demandes, 0);
    EXPECT_FALSE(Systeme.Machine.Tenue) << "the machine may sleep again";
    const qsizetype images = Compte("SaisitImage");
    Systeme.Temps.Avance(60'000);
    EXPECT_EQ(Compte("SaisitImage"), images);
    FenetresVues = Visible("Form1") || Visible("FormMonitor");
  };
  DansChaquePompe([this] { Systeme.Temps.Avance(1000); });
  Programme = std::make_unique<Vaktor>(Systeme.Ports(), QStringLiteral("/alarm"));
  QString dit;
  try {
    Programme->Demarre(QStringLiteral("1.4.9"));
  } catch (const Echec& echec) {
    dit = echec.Description();
  }
  Systeme.Pompe.EnAttente = nullptr;
  ASSERT_EQ(Compte("ConnecteSansAttendre"), 1) << "the start arguments have acted in a pump after the load";
  Programme->AnnonceDemarrageImpossible(dit);
  EXPECT_TRUE(PendantMessage);
  EXPECT_FALSE(FenetresVues);
}

TEST_F(DepartManque, IsTheEndOfTheJournalToo) {
  Systeme.Programmes.Absents = {QStringLiteral("/opt/v/VAKTORmail")};
  EXPECT_FALSE(DemarreEtEchoue(QStringLiteral("/alarm")).isEmpty());
  const QList<EntreeJournal> lignes = Systeme.LignesJournal.Entrees();
  ASSERT_FALSE(lignes.isEmpty());
  EXPECT_EQ(lignes.last().Quoi, Fait::kFini) << "a minute behind the message";
}

// A slow machine: the load itself takes longer than the start arguments wait.
TEST_F(DepartManque, NoTimerActsBeforeTheLastSettingIsRead) {
  bool passe = false;
  QStringList pendant;
  DansChaquePompe([&] {
    // The skin is put on in the middle of the load: the start arguments run, most settings are still to come.
    if (passe || Systeme.Notes.Lignes().contains(QStringLiteral("store: read PHOTO/nombrephoto"))) return;
    if (!Systeme.Notes.Lignes().contains(QStringLiteral("timer TimerAutoStar: on"))) return;
    passe = true;
    Systeme.Notes.Vide();
    Systeme.Temps.Avance(10'000);
    pendant = Systeme.Notes.Lignes();
  });
  Demarre(QStringLiteral("/alarm"));
  ASSERT_TRUE(passe);
  EXPECT_TRUE(pendant.isEmpty()) << pendant.join(u'\n').toStdString();
  EXPECT_EQ(Compte("ConnecteSansAttendre"), 0);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Compte("ConnecteSansAttendre"), 1) << "the start arguments are not lost, only late";
}

// With both arguments: the camera is waited for, and the program is closed before it comes.
class FermeturePendantAttente : public DepartManque {
 protected:
  void FermePendantLAttente(const std::function<void()>& ferme) {
    faux::PiloteFaux& pilote = *Systeme.Pilote;
    Systeme.Messages.PendantMessage = nullptr;
    pilote.Presente = false;
    Demarre(QStringLiteral("/alarm /surve"));
    Systeme.Temps.Avance(1000);
    EXPECT_EQ(Compte("ConnecteSansAttendre"), 1);
    Systeme.Notes.Vide();
    ferme();
    EXPECT_TRUE(Programme->EstFinie());
    pilote.Presente = true;
    Systeme.Temps.Avance(60'000);
    const QStringList vus = Systeme.Notes.Lignes();
    EXPECT_EQ(vus.indexOf(QStringLiteral("Deconnecte")), 0) << vus.join(u'\n').toStdString();
    EXPECT_EQ(Compte("ConnecteSansAttendre") + Compte("Connecte"), 0);
    EXPECT_TRUE(Systeme.Messages.Textes.isEmpty()) << Systeme.Messages.Textes.join(u'\n').toStdString();
    EXPECT_FALSE(vus.contains(QStringLiteral("timer Timer3: on"))) << "nothing is armed";
    EXPECT_FALSE(vus.contains(QStringLiteral("timer Timer1: on")));
    EXPECT_FALSE(Visible("Form1"));
  }
};

TEST_F(FermeturePendantAttente, BySignalEndsThere) {
  FermePendantLAttente([this] { Programme->Ferme(); });
}

TEST_F(FermeturePendantAttente, ByItsWindowEndsThere) {
  FermePendantLAttente([this] {
    QTest::mouseClick(Fenetre("frmSplash"), Qt::LeftButton);
    ASSERT_TRUE(Visible("Form1"));
    Systeme.Notes.Vide();
    Fenetre("Form1")->close();
  });
}

}  // namespace
}  // namespace vaktor::essai
