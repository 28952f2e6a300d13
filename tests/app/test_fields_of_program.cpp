// SPDX-License-Identifier: GPL-3.0-or-later
// Every control into which a user puts something, in the whole program: what a change shows, stores and sends, when it
// is saved, and what stands there at the next start.
#include "app/program_fixture.h"
#include "app/seen_controls.h"

namespace vaktor::essai {
namespace {

/// When a change reaches the store by itself. All of them are saved by the next save of any kind and by the stop.
enum class Sauve {
  kAussitot,   ///< at each key, click or choice
  kEnQuittant  ///< when the control is left
};

struct Reglage {
  const char* Onglet;  ///< the tab of its page
  const char* Controle;
  const char* Cle;     ///< in the store
  const char* Donne;   ///< typed; the number of an entry of a list; of a box nothing but a click
  const char* Stocke;  ///< afterwards
  Sauve Quand;
  const char* EnFin = nullptr;  ///< stored when the program ends in the middle of the typing; null: the same
};

constexpr Reglage kReglages[] = {
    {"Bouton(3)", "Text1", "general/retard", "25", "25", Sauve::kAussitot},
    {"Bouton(3)", "CheckPPhot", "PHOTO/actif", "", "1", Sauve::kAussitot},
    {"Bouton(3)", "CheckSon", "SON/actif", "", "0", Sauve::kAussitot},
    {"Bouton(3)", "CheckMail", "MAIL/actif", "", "1", Sauve::kAussitot},
    {"Bouton(5)", "TxtNbrPhoto", "MAIL/nombrephoto", "7", "7", Sauve::kEnQuittant},
    {"Bouton(5)", "TextNbrMail", "MAIL/nombremail", "4", "4", Sauve::kEnQuittant},
    {"Bouton(5)", "TextEMail", "MAIL/destination", "b@example.org", "b@example.org", Sauve::kEnQuittant},
    {"Bouton(5)", "TextSujet", "MAIL/sujet", "Somebody", "Somebody", Sauve::kEnQuittant},
    {"Bouton(5)", "TextTexte", "MAIL/corp", "Look there", "Look there", Sauve::kEnQuittant},
    {"Bouton(6)", "TxtFtp", "FTP/ftp", "ftp.b.org", "ftp.b.org", Sauve::kEnQuittant},
    {"Bouton(6)", "TxtHtml", "FTP/html", "http://b.org", "http://b.org/", Sauve::kEnQuittant, "http://b.org"},
    {"Bouton(6)", "TxtFTPracine", "FTP/racine", "/www/b", "/www/b", Sauve::kEnQuittant},
    {"Bouton(6)", "TxtUserName", "FTP/user", "bob", "bob", Sauve::kEnQuittant},
    {"Bouton(6)", "TxtPass", "FTP/pass", "abc", "098100102", Sauve::kEnQuittant},
    {"Bouton(6)", "TxtRefresh", "FTP/refresh", "7,5", "7,5", Sauve::kAussitot},
    {"Bouton(6)", "TextNbrPhotoFTP", "FTP/rapportnombrephoto", "9", "9", Sauve::kEnQuittant},
    {"Bouton(6)", "CombQualit", "FTP/qualitephoto", "1", "1", Sauve::kAussitot},
    {"Bouton(6)", "CombCouleur", "FTP/couleur", "5", "5", Sauve::kAussitot}};

class ReglageDuProgramme : public ProgrammeSurFaux {
 protected:
  /// A program that has saved all its settings once, on the page of the control.
  void DemarreSur(const Reglage& reglage) {
    Programme.reset();
    Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
    Systeme.Valeurs = QMap<QString, QString>{{"MAIL/smtpserveur", "smtp.a.org"},
                                             {"MAIL/smtpfrom", "me@a.org"},
                                             {"MAIL/destination", "a@example.org"},
                                             {"FTP/html", "http://a.org/"},
                                             {"FTP/ftp", "ftp.a.org"},
                                             {"FTP/user", "anna"},
                                             {"FTP/pass", "110112"}};
    DemarreJusquALaFenetre();
    InscritCompagnons();
    Fenetre("Form1")->activateWindow();
    Clique(reglage.Onglet);
    QCoreApplication::processEvents();
    Systeme.Notes.Vide();
  }
  /// What a user does who sees the page.
  static void Change(const Reglage& reglage) {
    auto* controle = Trouve(reglage.Controle);
    if (qobject_cast<QCheckBox*>(controle) != nullptr) return QTest::mouseClick(controle, Qt::LeftButton);
    controle->setFocus();
    if (auto* liste = qobject_cast<QComboBox*>(controle)) {
      QTest::keyClick(liste, Qt::Key_Home);
      for (int i = 0; i < QString(reglage.Donne).toInt(); ++i) QTest::keyClick(liste, Qt::Key_Down);
      return;
    }
    QTest::keyClick(controle, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(controle, reglage.Donne);
  }
  qsizetype Sauvegardes() const { return Systeme.Notes.Lignes().count("store: flush"); }
  static QMap<QString, QString> Avec(QMap<QString, QString> valeurs, const Reglage& reglage, const char* stocke) {
    valeurs[reglage.Cle] = QString::fromUtf8(stocke);
    return valeurs;
  }
  static std::string Ecarts(const QMap<QString, QString>& vus, const QMap<QString, QString>& attendus) {
    QStringList ecarts;
    for (const QString& cle : vus.keys() + attendus.keys()) {
      if (vus.value(cle) != attendus.value(cle))
        ecarts += cle + " is " + vus.value(cle) + ", not " + attendus.value(cle);
    }
    ecarts.removeDuplicates();
    return ecarts.join("; ").toStdString();
  }
};

TEST_F(ReglageDuProgramme, IsStoredUnderItsKeyAndUnderNoOtherAndTheCompanionsAreTold) {
  for (const Reglage& reglage : kReglages) {
    DemarreSur(reglage);
    const auto avant = Systeme.Valeurs;
    EXPECT_NE(avant.value(reglage.Cle), QLatin1String(reglage.Stocke)) << reglage.Cle << " says nothing";
    Change(reglage);
    if (reglage.Quand == Sauve::kEnQuittant) {
      EXPECT_EQ(Sauvegardes(), 0) << reglage.Controle << " saves at a key";
      QTest::keyClick(Trouve(reglage.Controle), Qt::Key_Tab);
    }
    EXPECT_GE(Sauvegardes(), 1) << reglage.Controle;
    EXPECT_EQ(Ecarts(Systeme.Valeurs, Avec(avant, reglage, reglage.Stocke)), "") << reglage.Controle;
    const QStringList envoyes = Systeme.Notes.Lignes().filter("channel: post");
    EXPECT_EQ(envoyes.mid(envoyes.size() - 3),
              QStringList({"channel: post 67 to 71", "channel: post 65 to 72", "channel: post 65 to 73"}))
        << reglage.Controle;
    EXPECT_EQ(envoyes.size(), 3 * Sauvegardes()) << reglage.Controle << " sends something else";
  }
}

TEST_F(ReglageDuProgramme, ChangesNoOtherControlAndStandsThereAtTheNextStart) {
  for (const Reglage& reglage : kReglages) {
    DemarreSur(reglage);
    ControlesVus attendus = RegardeControles(*Fenetre("Form1"));
    Change(reglage);
    QTest::keyClick(Trouve(reglage.Controle), Qt::Key_Tab);
    const ControlesVus vus = RegardeControles(*Fenetre("Form1"));
    EXPECT_NE(vus[reglage.Controle], attendus[reglage.Controle]) << reglage.Controle;
    attendus[reglage.Controle] = vus[reglage.Controle];
    EXPECT_EQ(Ecarts(vus, attendus), "") << reglage.Controle;
    Programme->Ferme();
    Programme.reset();
    Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
    Demarre();
    EXPECT_EQ(Ecarts(RegardeControles(*Fenetre("Form1")), vus), "") << reglage.Controle << " at the next start";
  }
}

// Whoever closes the window with the cursor still in a field has left it nowhere.
TEST_F(ReglageDuProgramme, TypedAndTheProgramEndedAtOnceIsSavedAllTheSame) {
  for (const Reglage& reglage : kReglages) {
    DemarreSur(reglage);
    const auto avant = Systeme.Valeurs;
    Change(reglage);
    Programme->Ferme();
    const char* enFin = reglage.EnFin != nullptr ? reglage.EnFin : reglage.Stocke;
    EXPECT_EQ(Ecarts(Systeme.Valeurs, Avec(avant, reglage, enFin)), "") << reglage.Controle;
  }
}

TEST_F(ReglageDuProgramme, IsSavedByATabOfTheWindow) {
  for (const Reglage& reglage : kReglages) {
    if (reglage.Quand == Sauve::kAussitot) continue;
    DemarreSur(reglage);
    Change(reglage);
    Trouve<QAbstractButton>("Bouton(4)")->click();  // by those who have no mouse: the focus stays where it was
    EXPECT_GE(Sauvegardes(), 1) << reglage.Controle;
  }
}

// No event watches this box: the next save of any kind takes it.
TEST_F(ReglageDuProgramme, OfTheAutomaticToleranceGoesIntoTheNextSave) {
  const Reglage automatique{"Bouton(4)", "ChkSeuilAuto", "general/seuilauto", "", "0", Sauve::kAussitot};
  DemarreSur(automatique);
  Change(automatique);
  EXPECT_EQ(Sauvegardes(), 0);
  EXPECT_EQ(Systeme.Valeurs.value(automatique.Cle), "1");
  Clique("Bouton(3)");
  EXPECT_EQ(Sauvegardes(), 0) << "nor does it mark the settings";
  Clique("CheckPPhot");
  EXPECT_EQ(Systeme.Valeurs.value(automatique.Cle), "0");
}

// The quality of the list is that of the photos and of the live page.
TEST_F(ReglageDuProgramme, OfTheQualityIsTakenByTheNextPhoto) {
  static constexpr int kQualites[] = {100, 50, 20, 10};
  for (int i = 0; i < 4; ++i) {
    const Reglage qualite{"Bouton(6)", "CombQualit", "", "", "", Sauve::kAussitot};
    DemarreSur(qualite);
    QTest::keyClick(Trouve("CombQualit"), i == 0 ? Qt::Key_End : Qt::Key_Home);  // off the entry that is tried
    QTest::keyClick(Trouve("CombQualit"), Qt::Key_Home);
    for (int k = 0; k < i; ++k) QTest::keyClick(Trouve("CombQualit"), Qt::Key_Down);
    Clique("Bouton(2)");
    Systeme.Recoit(1001, "ConOK");
    Systeme.Temps.Avance(15'000);
    EXPECT_EQ(Systeme.Ecrivain.Qualites.value("/home/u/v/Temp/Live.jpg"), kQualites[i]);
  }
}

TEST_F(ReglageDuProgramme, OfAFieldThatNeedsNoCleaningCanBeUndone) {
  for (const Reglage& reglage : kReglages) {
    DemarreSur(reglage);
    auto* champ = Trouve<QLineEdit>(reglage.Controle);
    if (champ == nullptr) continue;
    Change(reglage);
    EXPECT_TRUE(champ->isUndoAvailable()) << reglage.Controle;
  }
}

TEST_F(ReglageDuProgramme, OfAnAddressIsNotTakenAwayByAClick) {
  const Reglage adresse{"Bouton(5)", "TextEMail", "MAIL/destination", "", "", Sauve::kEnQuittant};
  DemarreSur(adresse);
  Clique("TextEMail");
  QTest::keyClick(Trouve("TextEMail"), Qt::Key_End);
  EXPECT_EQ(Trouve<QLineEdit>("TextEMail")->text(), "a@example.org");
}

}  // namespace
}  // namespace vaktor::essai
