// SPDX-License-Identifier: GPL-3.0-or-later
// What stands in the store stands in the window after a start, each value in its own control.
#include <gtest/gtest.h>

#include "app/program_fixture.h"
#include "app/seen_controls.h"

namespace vaktor::essai {
namespace {

/// A setting other than that of a first run, and what its control then shows: a text, the number of an entry, on or
/// off.
struct ReglageMontre {
  const char* Cle;
  const char* Stocke;
  const char* Controle;
  const char* Montre;
};

constexpr ReglageMontre kMontres[] = {{"general/retard", "25", "Text1", "25"},
                                      {"general/seuilauto", "0", "ChkSeuilAuto", "off"},
                                      {"general/skin", "2", "CombSkin", "2"},
                                      {"PHOTO/actif", "1", "CheckPPhot", "on"},
                                      {"SON/actif", "0", "CheckSon", "off"},
                                      {"MAIL/actif", "1", "CheckMail", "on"},
                                      {"MAIL/destination", "a@example.org", "TextEMail", "a@example.org"},
                                      {"MAIL/sujet", "Somebody", "TextSujet", "Somebody"},
                                      {"MAIL/corp", "one\ntwo", "TextTexte", "one\ntwo"},
                                      {"MAIL/nombrephoto", "3", "TxtNbrPhoto", "3"},
                                      {"MAIL/nombremail", "4", "TextNbrMail", "4"},
                                      {"FTP/html", "http://www.example.org/", "TxtHtml", "http://www.example.org/"},
                                      {"FTP/ftp", "ftp.example.org", "TxtFtp", "ftp.example.org"},
                                      {"FTP/user", "u", "TxtUserName", "u"},
                                      {"FTP/racine", "/www", "TxtFTPracine", "/www"},
                                      {"FTP/refresh", "0,5", "TxtRefresh", "0,5"},
                                      {"FTP/pass", "098100102", "TxtPass", "abc"},
                                      {"FTP/qualitephoto", "1", "CombQualit", "1"},
                                      {"FTP/couleur", "5", "CombCouleur", "5"},
                                      {"FTP/rapportnombrephoto", "9", "TextNbrPhotoFTP", "9"}};

class ReglagesDansLaFenetre : public ProgrammeSurFaux {
 protected:
  ControlesVus DemarreAvec(const QMap<QString, QString>& valeurs) {
    Programme.reset();  // its windows go with it before the next one comes up
    Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
    Systeme.Valeurs = valeurs;
    Systeme.Notes.Vide();
    Demarre();
    return RegardeControles(*Fenetre("Form1"));
  }
  qsizetype Sauvegardes() const { return Systeme.Notes.Lignes().count(QStringLiteral("store: write FTP/refresh")); }
};

TEST_F(ReglagesDansLaFenetre, EachIsShownByItsOwnControlAndByNoOther) {
  const ControlesVus neufs = DemarreAvec({});
  for (const ReglageMontre& reglage : kMontres) {
    ControlesVus attendus = neufs;
    attendus[QLatin1String(reglage.Controle)] = QLatin1String(reglage.Montre);
    // The same would say nothing, also where a control that shows nothing of the store stands like that.
    EXPECT_TRUE(attendus != neufs) << reglage.Cle << " shows what a first run shows";
    const ControlesVus vus = DemarreAvec({{QLatin1String(reglage.Cle), QLatin1String(reglage.Stocke)}});
    for (const QString& controle : vus.keys()) {
      EXPECT_EQ(vus[controle].toStdString(), attendus.value(controle).toStdString())
          << reglage.Cle << " in " << controle.toStdString();
    }
  }
}

// A field that is put on a page and shows nothing of the store would come up with its design text, and the first save
// would not know of it.
TEST_F(ReglagesDansLaFenetre, NoControlForInputIsLeftOut) {
  // The enlarged view is never kept, and the start at the login lies with the desktop.
  QStringList connus = {QStringLiteral("CheckPEcran"), QStringLiteral("ChkSession")};
  for (const ReglageMontre& reglage : kMontres) connus += QLatin1String(reglage.Controle);
  connus.sort();
  EXPECT_EQ(DemarreAvec({}).keys().join(u' ').toStdString(), connus.join(u' ').toStdString());
}

TEST_F(ReglagesDansLaFenetre, TheIntervalAndTheDelaySaveAsTheyAreFilled) {
  DemarreAvec({});
  EXPECT_EQ(Sauvegardes(), 2);
  EXPECT_EQ(Systeme.Valeurs.value(QStringLiteral("FTP/rapportnombrephoto")), QStringLiteral("50"));
}

// The delay's field shows 0 anyway, so that only the interval saves; what the field behind it has cleaned then waits
// for the next save.
TEST_F(ReglagesDansLaFenetre, WithADelayOfZeroTheNumberOfPhotosThatWasCleanedIsSavedByTheStop) {
  const QString photos = QStringLiteral("FTP/rapportnombrephoto");
  const ControlesVus vus =
      DemarreAvec({{QStringLiteral("general/retard"), QStringLiteral("0")}, {photos, QStringLiteral("0")}});
  EXPECT_EQ(vus[QStringLiteral("TextNbrPhotoFTP")], QStringLiteral("1"));
  EXPECT_EQ(Sauvegardes(), 1);
  EXPECT_EQ(Systeme.Valeurs[photos], QStringLiteral("0"));
  Programme->Ferme();
  EXPECT_EQ(Sauvegardes(), 2);
  EXPECT_EQ(Systeme.Valeurs[photos], QStringLiteral("1"));
}

TEST_F(ReglagesDansLaFenetre, AnEmptyIntervalIsMendedSinceWithoutOneNoFrameIsCompared) {
  DemarreAvec({{QStringLiteral("general/retard"), QStringLiteral("0")}, {QStringLiteral("FTP/refresh"), QString()}});
  EXPECT_EQ(Trouve<QLineEdit>("TxtRefresh")->text(), QStringLiteral("5"));
  EXPECT_EQ(Systeme.Valeurs.value(QStringLiteral("FTP/refresh")), QStringLiteral("5"));
}

TEST_F(ReglagesDansLaFenetre, TheToolkitSpeaksTheLanguageThatIsStoredAndTheOneThatIsChosen) {
  DemarreAvec({{QStringLiteral("general/langue"), QStringLiteral("1")}});
  ASSERT_FALSE(Systeme.LanguesOutils.isEmpty());
  EXPECT_EQ(Systeme.LanguesOutils.last(), Langue::kAnglais);
  Clique("Image4(0)");
  EXPECT_EQ(Systeme.LanguesOutils.last(), Langue::kFrancais);
}

TEST_F(ReglagesDansLaFenetre, PhotosOfAFirstRunLieWhereTheInstallationPutsThem) {
  const QString cle = QStringLiteral("PHOTO/repertoire");
  DemarreAvec({});
  EXPECT_EQ(Systeme.Valeurs.value(cle), QStringLiteral("/home/u/v\\intrus"));
  Systeme.Images = QStringLiteral("/home/u/Images");
  DemarreAvec({});
  EXPECT_EQ(Systeme.Valeurs.value(cle), QStringLiteral("/home/u/Images\\Vaktor"));
}

class DernierChangement : public ReglagesDansLaFenetre {
 protected:
  void DemarreEtOublie() {
    DemarreAvec({});
    Systeme.Temps.Avance(2000);
    Clique("Bouton(4)");  // the page of the options
    Systeme.Notes.Vide();
  }
  QString Stocke(const char* cle) const { return Systeme.Valeurs.value(QLatin1String(cle)); }
};

// Neither is saved at once, and both are there at the next start, when nothing else was changed.
TEST_F(DernierChangement, TheSkinIsSavedAsTheProgramEnds) {
  DemarreEtOublie();
  QTest::keyClick(Trouve<QComboBox>("CombSkin"), Qt::Key_Down);
  EXPECT_EQ(Sauvegardes(), 0);
  EXPECT_EQ(Stocke("general/skin"), QStringLiteral("0"));
  Programme->Ferme();
  EXPECT_EQ(Stocke("general/skin"), QStringLiteral("1"));
  EXPECT_EQ(DemarreAvec(Systeme.Valeurs)[QStringLiteral("CombSkin")], QStringLiteral("1"));
}

TEST_F(DernierChangement, TheLanguageIsSavedAsTheProgramEnds) {
  DemarreEtOublie();
  Clique("Image4(1)");
  EXPECT_EQ(Sauvegardes(), 0);
  EXPECT_EQ(Stocke("general/langue"), QStringLiteral("0"));
  Programme->Ferme();
  EXPECT_EQ(Stocke("general/langue"), QStringLiteral("1"));
}

TEST_F(DernierChangement, AStartThatChangesNothingLeavesTheEndNothingToSave) {
  DemarreEtOublie();
  Programme->Ferme();
  EXPECT_EQ(Sauvegardes(), 0);
}

TEST_F(ReglagesDansLaFenetre, TheMailTextComesThroughAStartAndItsSavesAsItStands) {
  const QString texte = QString::fromUtf8("Alerte\u00A0!\r\nVenez\u00A0vite.\r\n");
  DemarreAvec({{QStringLiteral("MAIL/corp"), texte}});
  ASSERT_EQ(Sauvegardes(), 2);
  EXPECT_EQ(Systeme.Valeurs.value(QStringLiteral("MAIL/corp")).toUtf8().toPercentEncoding(),
            texte.toUtf8().toPercentEncoding());
}

}  // namespace
}  // namespace vaktor::essai
