// SPDX-License-Identifier: GPL-3.0-or-later
// The load of the settings: order, special rules, what it does about saves, and what ends a start-up.
#include <gtest/gtest.h>

#include "base/failure.h"
#include "settings/settings_bench_of_fakes.h"

namespace vaktor {
namespace {

QString EchecDuChargement(BancReglages& banc, qint32 numero) {
  try {
    banc.Charge();
  } catch (const Echec& echec) {
    EXPECT_EQ(echec.Numero(), numero);
    return echec.Description();
  }
  ADD_FAILURE() << "the load went through";
  return {};
}

QStringList NomsLus() {
  QStringList noms;
  for (const LigneReglage& ligne : TableReglages()) {
    if (EstLue(ligne)) noms += NomReglage(ligne);
  }
  return noms;
}

TEST(Chargement, ReadsEveryRowOnceInTheOrderOfTheTable) {
  BancReglages banc;
  banc.Charge();
  EXPECT_EQ(banc.Magasin.Lus, NomsLus());
}

TEST(Chargement, GivesEachRowAsItIsReadAndNothingBehindTheLast) {
  BancReglages banc;
  QStringList rendus;
  while (const LigneReglage* ligne = banc.Reglages.LitSuivant()) {
    rendus += NomReglage(*ligne);
    EXPECT_EQ(banc.Magasin.Lus, rendus) << "the next one is not read before this one could be shown";
  }
  EXPECT_EQ(rendus, NomsLus());
  EXPECT_EQ(banc.Reglages.LitSuivant(), nullptr);
}

TEST(Chargement, StopsWhereItIsAskedToAndGoesOnFromThere) {
  BancReglages banc;
  banc.Reglages.LitJusqua(&Parametres::LangueCourante);
  EXPECT_EQ(banc.Magasin.Lus, QStringList({"general/retard", "general/langue"}));
  const LigneReglage* ligne = banc.Reglages.LitSuivant();
  ASSERT_NE(ligne, nullptr);
  EXPECT_EQ(NomReglage(*ligne), QStringLiteral("general/seuilauto"));
  banc.Reglages.LitJusqua(&Parametres::Retard);
  EXPECT_EQ(banc.Magasin.Lus, NomsLus()) << "one that is past never comes again";
}

TEST(Chargement, ReadsWhatIsLeftBeforeTheControlsThatWaitAreFilled) {
  BancReglages banc;
  banc.Reglages.LitJusqua(&Parametres::LangueCourante);
  QStringList lus;
  banc.Reglages.TermineChargement([&] {
    lus = banc.Magasin.Lus;
    EXPECT_FALSE(banc.Reglages.EstCharge());
  });
  EXPECT_EQ(lus, NomsLus());
  EXPECT_TRUE(banc.Reglages.EstCharge());
}

TEST(Chargement, DerivesTheJpegQuality) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("FTP/qualitephoto")] = QStringLiteral("1");
  banc.Charge();
  EXPECT_EQ(banc.Valeurs.IndexQualite, 1);
  EXPECT_EQ(banc.Valeurs.QualiteJpeg, 50);
}

TEST(Chargement, OfAnEmptyStoreGivesTheDefaultsAndFillsTheStore) {
  BancReglages banc;
  banc.Charge();
  EXPECT_EQ(banc.Magasin.Disque.size(), std::ssize(TableReglages()));
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/pass", "missing"), QString());
  EXPECT_EQ(banc.Magasin.Disque.value("MAIL/pass", "missing"), QString());
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/width"), QStringLiteral("320"));
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/height"), QStringLiteral("240"));
  EXPECT_EQ(banc.Magasin.Disque.value("PHOTO/repertoire"), QStringLiteral("/prog\\intrus"));
  for (const LigneReglage& ligne : TableReglages()) {
    if (!EstLue(ligne) || ligne.EstDossierPhotos || ligne.Forme == FormeStockee::Booleen) continue;
    EXPECT_EQ(banc.Magasin.Disque.value(NomReglage(ligne)), QString::fromLatin1(ligne.Defaut));
  }
  EXPECT_EQ(banc.Valeurs.Retard, 10);
  EXPECT_TRUE(banc.Valeurs.SmtpActif);
}

TEST(Chargement, SavesNothingThatNobodyHasAskedFor) {
  BancReglages banc;
  banc.Disque.AjouteDossier(QStringLiteral("/prog/intrus"));
  banc.Reglages.TermineChargement();
  EXPECT_TRUE(banc.Magasin.Ecrits.isEmpty());
}

TEST(Chargement, ContinuesBehindASaveInItsTailWithoutLosingAnything) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("FTP/pass")] = QStringLiteral("098100102");
  banc.Magasin.Valeurs[QStringLiteral("FTP/rapportnombrephoto")] = QStringLiteral("7");
  bool sauve = false;
  banc.Reglages.TermineChargement([&] {
    banc.Reglages.SauveParametres();
    sauve = banc.Magasin.Disque.size() == std::ssize(TableReglages());
  });
  EXPECT_TRUE(sauve) << "at once and whole";
  EXPECT_EQ(banc.Magasin.Ecrits.count(QStringLiteral("FTP/refresh")), 1);
  EXPECT_EQ(banc.Valeurs.MotDePasseFtp, QStringLiteral("abc"));
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/pass"), QStringLiteral("098100102"));
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/rapportnombrephoto"), QStringLiteral("7"));
}

TEST(Chargement, ReplacesAVanishedPhotoFolderInTheStoreAtOnce) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/gone");
  banc.Reglages.LitJusqua(&Parametres::RepertoirePhoto);
  EXPECT_EQ(banc.Magasin.Disque.value("PHOTO/repertoire"), QStringLiteral("/prog\\intrus"));
  EXPECT_EQ(banc.Magasin.Ecrits, QStringList({"PHOTO/repertoire", "*"})) << "this one key, before any save";
  EXPECT_TRUE(banc.Modules.Envois.isEmpty());
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/prog\\intrus"));
  EXPECT_EQ(banc.Disque.DossiersDemandes, QStringList{QStringLiteral("/prog\\intrus")});
  EXPECT_EQ(banc.Sante.Details.value(Condition::kDossierRemplace), QStringLiteral("/gone -> /prog\\intrus"));
}

TEST(Chargement, TellsOfNoFolderWhereNoneWasReplaced) {
  for (const char* stocke : {"/prog\\intrus", ""}) {
    BancReglages banc;
    banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QString::fromLatin1(stocke);
    banc.Charge();
    EXPECT_TRUE(banc.Sante.Details.isEmpty()) << stocke;
  }
  BancReglages premiere;
  premiere.Charge();
  EXPECT_TRUE(premiere.Sante.Details.isEmpty()) << "a first run";
}

TEST(Chargement, OfADamagedStoreTellsWhichSettingsItLacksAndWhereItIsKept) {
  BancReglages banc;
  for (const LigneReglage& ligne : TableReglages()) {
    if (EstLue(ligne) && NomReglage(ligne) != QStringLiteral("general/seuil") &&
        NomReglage(ligne) != QStringLiteral("MAIL/destination"))
      banc.Magasin.Valeurs[NomReglage(ligne)] = DefautReglage(ligne, QStringLiteral("/prog\\intrus"));
  }
  banc.Magasin.Valeurs[QStringLiteral("general/langue")] = QStringLiteral("1");
  banc.Magasin.Abime = {.Lignes = 2, .Coupees = {QStringLiteral("FTP/racine")}};
  banc.Charge();
  EXPECT_EQ(banc.Sante.Details.value(Condition::kReglagesAbimes),
            QStringLiteral("FTP/racine, general/seuil, MAIL/destination; copy of the file: "
                           "/home/u/settings.ini.damaged"));
}

TEST(Chargement, TellsOfDamagedLinesThoughNoSettingIsMissing) {
  BancReglages banc;
  banc.Charge();
  EXPECT_FALSE(banc.Sante.Dure(Condition::kReglagesAbimes)) << "an empty store is a first run, and no damaged one";
  BancReglages autre;
  autre.Magasin.Valeurs = banc.Magasin.Disque;
  autre.Magasin.Abime = {.Lignes = 2};
  autre.Charge();
  EXPECT_EQ(autre.Sante.Details.value(Condition::kReglagesAbimes),
            QString::fromUtf8("lignes incompréhensibles : 2 ; copie du fichier : /home/u/settings.ini.damaged"));
}

TEST(Chargement, OfAStoreThatIsAllDamagedNamesSomeAndCountsTheOthers) {
  BancReglages banc;
  banc.Magasin.Abime = {.Lignes = 40};
  banc.Charge();
  const QString dit = banc.Sante.Details.value(Condition::kReglagesAbimes);
  const qsizetype autres = NomsLus().size() - 8;
  EXPECT_TRUE(
      dit.startsWith(NomsLus().first(8).join(QStringLiteral(", ")) + QStringLiteral(" et %1 autres ; ").arg(autres)))
      << dit.toStdString();
}

TEST(Chargement, MakesNoFolderWhereTheOneOfTheProgramIsThere) {
  BancReglages banc;
  banc.Disque.AjouteDossier(QStringLiteral("/prog/intrus"));
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/gone");
  banc.Charge();
  EXPECT_TRUE(banc.Disque.DossiersDemandes.isEmpty());
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/prog\\intrus"));
}

TEST(Chargement, KeepsAPhotoFolderThatIsThere) {
  BancReglages banc;
  banc.Disque.AjouteDossier(QStringLiteral("/photos"));
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/photos");
  banc.Charge();
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/photos"));
  EXPECT_TRUE(banc.Disque.DossiersDemandes.isEmpty());
  EXPECT_EQ(banc.Magasin.Ecrits.first(), QStringLiteral("general/retard")) << "nothing is written before the save";
}

// A server that comes up later than this machine: the setting is not lost for that.
TEST(Chargement, KeepsAPhotoFolderOfWhichNothingCanBeSaid) {
  BancReglages banc;
  banc.Disque.Muets.insert(QStringLiteral("/net/photos"));
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/net/photos");
  banc.Charge();
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/net/photos"));
  EXPECT_EQ(banc.Magasin.Disque.value("PHOTO/repertoire"), QStringLiteral("/net/photos"));
  EXPECT_TRUE(banc.Disque.DossiersDemandes.isEmpty());
}

TEST(Chargement, AFileIsNoPhotoFolder) {
  BancReglages banc;
  banc.Disque.AjouteFichier(QStringLiteral("/photos"));
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/photos");
  banc.Charge();
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/prog\\intrus"));
  EXPECT_EQ(banc.Disque.DossiersDemandes, QStringList{QStringLiteral("/prog\\intrus")});
}

TEST(Chargement, AFileWhereTheProgramsOwnFolderShouldBeEndsTheStart) {
  BancReglages banc;
  banc.Disque.AjouteFichier(QStringLiteral("/prog/intrus"));
  EXPECT_TRUE(EchecDuChargement(banc, kFichierIntrouvable).contains(QStringLiteral("/prog\\intrus")));
}

TEST(Chargement, MakesNoFolderOnADiskThatDoesNotAnswer) {
  BancReglages banc;
  banc.Disque.Muets.insert(QStringLiteral("/prog/intrus"));
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/gone");
  banc.Charge();
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/prog\\intrus"));
  EXPECT_TRUE(banc.Disque.DossiersDemandes.isEmpty());
}

TEST(Chargement, EndsTheStartWhenNoPhotoFolderCanBeMade) {
  BancReglages banc;
  banc.Disque.RefuseCreation = true;
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/gone");
  banc.Magasin.Valeurs[QStringLiteral("general/langue")] = QStringLiteral("1");
  EXPECT_EQ(EchecDuChargement(banc, kFichierIntrouvable).toStdString(),
            "The photo folder \"/gone\" (setting PHOTO/repertoire) does not exist, and \"/prog\\intrus\" could not be "
            "made.");
}

TEST(Chargement, TakesBackTheSoundFileThatHasNoName) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("SON/index")] = QStringLiteral("3");
  banc.Charge();
  EXPECT_EQ(banc.Valeurs.IndexSon, 0);
  EXPECT_EQ(banc.Magasin.Disque.value("SON/index"), QStringLiteral("0"));
}

TEST(Chargement, KeepsTheSoundFileThatHasAName) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("SON/index")] = QStringLiteral("3");
  banc.Magasin.Valeurs[QStringLiteral("SON/Repertoire")] = QStringLiteral("/s/a.wav");
  banc.Charge();
  EXPECT_EQ(banc.Valeurs.IndexSon, 3);
}

TEST(Chargement, KeepsABuiltInSoundWithoutAFile) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("SON/index")] = QStringLiteral("2");
  banc.Charge();
  EXPECT_EQ(banc.Valeurs.IndexSon, 2) << "only the choice of the file needs one";
}

TEST(Chargement, ReadsSmtpactifFromTheDefaultOneAndFromTheStoredWord) {
  BancReglages banc;
  banc.Charge();
  EXPECT_TRUE(banc.Valeurs.SmtpActif);
  EXPECT_EQ(banc.Magasin.Disque.value("MAIL/smtpactif"), QStringLiteral("True"));
  banc.Valeurs.SmtpActif = false;
  banc.Reglages.SauveParametres();
  BancReglages second;
  second.Magasin.Valeurs = banc.Magasin.Disque;
  second.Charge();
  EXPECT_FALSE(second.Valeurs.SmtpActif);
}

TEST(Chargement, TellsKeyAndValueInTheLanguageOfTheUser) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("general/langue")] = QStringLiteral("1");
  banc.Magasin.Valeurs[QStringLiteral("general/retard")] = QStringLiteral("ten");
  EXPECT_EQ(EchecDuChargement(banc, kTypeIncompatible).toStdString(),
            "The setting general/retard holds \"ten\", which is not possible. Correct or remove this line in "
            "/home/u/settings.ini, then start Vaktor again.");
  EXPECT_TRUE(banc.Magasin.Ecrits.isEmpty()) << "nothing of the damaged store is overwritten";
  banc.Magasin.Valeurs[QStringLiteral("general/langue")] = QStringLiteral("0");
  EXPECT_TRUE(EchecDuChargement(banc, kTypeIncompatible).startsWith(QString::fromUtf8("Le paramètre general/retard")));
}

TEST(Chargement, TellsInFrenchWhereTheLanguageIsDamagedOrUnknown) {
  for (const char* langue : {"?", "2", ""}) {
    BancReglages banc;
    banc.Magasin.Valeurs[QStringLiteral("general/langue")] = QString::fromLatin1(langue);
    banc.Magasin.Valeurs[QStringLiteral("FTP/qualitephoto")] = QStringLiteral("4");
    const qint32 numero = langue[0] == '2' ? kIndiceHorsPlage : kTypeIncompatible;
    const QString message = EchecDuChargement(banc, numero);
    EXPECT_TRUE(message.contains(QString::fromUtf8("Le paramètre "))) << message.toStdString();
    EXPECT_FALSE(message.contains(QStringLiteral("The setting "))) << message.toStdString();
  }
}

TEST(Chargement, ShortensAHugeDamagedValueInTheMessage) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("general/skin")] = QString(500'000, u'\n');
  EXPECT_LT(EchecDuChargement(banc, kTypeIncompatible).size(), 300);
}

TEST(Chargement, EndsTheStartWhenTheStoreCannotBeWritten) {
  BancReglages banc;
  banc.Magasin.RefuseEcriture = true;
  EXPECT_EQ(EchecDuChargement(banc, kAccesFichier).toStdString(),
            std::string("Les paramètres n'ont pas pu être enregistrés (disk full)."));
}

// With the start values of what is not read yet a save would replace the user's server, passwords and folder.
TEST(Chargement, SavesNothingBeforeTheLastValueIsRead) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("MAIL/smtpserveur")] = QStringLiteral("mail.example.org");
  banc.Disque.AjouteDossier(QStringLiteral("/prog/intrus"));
  banc.Reglages.LitJusqua(&Parametres::IndexSkin);
  banc.Valeurs.ParametresModifies = true;
  banc.Reglages.SauveParametres();  // whatever runs in a pump of the load
  EXPECT_TRUE(banc.Magasin.Ecrits.isEmpty()) << banc.Magasin.Ecrits.join(u' ').toStdString();
  EXPECT_TRUE(banc.Valeurs.ParametresModifies) << "what was to be saved is not forgotten";
  EXPECT_FALSE(banc.Reglages.EstCharge());
  banc.Reglages.TermineChargement();
  EXPECT_EQ(banc.Magasin.Disque.value("MAIL/smtpserveur"), QStringLiteral("mail.example.org"));
  EXPECT_TRUE(banc.Reglages.EstCharge());
}

TEST(Chargement, MakesUpForASaveThatCameTooEarly) {
  BancReglages banc;
  banc.Reglages.LitJusqua(&Parametres::IndexSkin);
  banc.Reglages.SauveParametres();
  banc.Reglages.TermineChargement();
  EXPECT_EQ(banc.Magasin.Ecrits.count(QStringLiteral("FTP/refresh")), 1);
  EXPECT_EQ(banc.Modules.Envois.count(QStringLiteral("FTP:Optio")), 1);
}

TEST(Chargement, MakesUpForNoSaveThatAControlHasMadeSince) {
  BancReglages banc;
  banc.Reglages.LitJusqua(&Parametres::IndexSkin);
  banc.Reglages.SauveParametres();
  banc.Charge();
  EXPECT_EQ(banc.Modules.Envois.count(QStringLiteral("FTP:Optio")), 1);
}

TEST(Chargement, ThatFailedLetsNothingBeSavedAfterwards) {
  BancReglages banc;
  banc.Disque.AjouteDossier(QStringLiteral("/prog/intrus"));
  banc.Magasin.Valeurs[QStringLiteral("general/skin")] = QStringLiteral("7");
  EchecDuChargement(banc, kIndiceHorsPlage);
  banc.Valeurs.ParametresModifies = true;
  banc.Reglages.SauveParametres();
  EXPECT_TRUE(banc.Magasin.Ecrits.isEmpty());
  EXPECT_TRUE(banc.Modules.Envois.isEmpty());
  EXPECT_FALSE(banc.Reglages.EstCharge());
}

TEST(Chargement, ThatFailedInItsTailLetsNothingBeSavedEither) {
  BancReglages banc;
  banc.Disque.AjouteDossier(QStringLiteral("/prog/intrus"));
  banc.Magasin.RefuseEcriture = true;
  EchecDuChargement(banc, kAccesFichier);
  EXPECT_EQ(banc.Magasin.Lus, NomsLus()) << "it is the save in the tail that failed";
  banc.Magasin.RefuseEcriture = false;
  banc.Magasin.Ecrits.clear();
  banc.Reglages.SauveParametres();
  EXPECT_TRUE(banc.Magasin.Ecrits.isEmpty());
}

TEST(Chargement, AcceptsAnyLanguageAndAnyColour) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("general/langue")] = QStringLiteral("2");
  banc.Magasin.Valeurs[QStringLiteral("FTP/couleur")] = QStringLiteral("99");
  banc.Charge();
  EXPECT_EQ(banc.Valeurs.LangueCourante, 2);
  EXPECT_EQ(banc.Valeurs.IndexCouleurPage, 99);
}

}  // namespace
}  // namespace vaktor
