// ChargeParametres: order, special rules, the save in its tail, and what ends a start-up.
#include <gtest/gtest.h>

#include "base/failure.h"
#include "settings/settings_bench_of_fakes.h"

namespace vaktor {
namespace {

using C = ControleParametre;

QString EchecDuChargement(BancReglages& banc, qint32 numero) {
  try {
    banc.Reglages.ChargeParametres();
  } catch (const Echec& echec) {
    EXPECT_EQ(echec.Numero(), numero);
    return echec.Description();
  }
  ADD_FAILURE() << "the load went through";
  return {};
}

TEST(ChargeParametres, ReadsEveryRowOnceInTheOrderOfTheTable) {
  BancReglages banc;
  banc.Reglages.ChargeParametres();
  QStringList attendus;
  for (const LigneReglage& ligne : TableReglages().first(kNombreReglages)) attendus += NomReglage(ligne);
  EXPECT_EQ(banc.Magasin.Lus, attendus);
}

TEST(ChargeParametres, MakesTheMainFormAfterTheLanguageAndBeforeSeuilauto) {
  BancReglages banc;
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.LusAvantForme, QStringList({"general/retard", "general/langue"}));
}

TEST(ChargeParametres, FillsTheControlsInTheirOrder) {
  BancReglages banc;
  banc.Reglages.ChargeParametres();
  const QList<C> attendus = {C::ChkSeuilAuto, C::CombSkin,        C::CheckPPhot,   C::CheckSon,     C::TextEMail,
                             C::TextSujet,    C::TextTexte,       C::TxtNbrPhoto,  C::TextNbrMail,  C::CheckMail,
                             C::TxtHtml,      C::TxtFtp,          C::TxtUserName,  C::TxtFTPracine, C::TxtRefresh,
                             C::TxtPass,      C::TextNbrPhotoFTP, C::TxtFTPracine, C::Text1,        C::CombQualit};
  EXPECT_EQ(banc.Affichage.Montres, attendus);
}

TEST(ChargeParametres, ReadsTheMailBlockWholeBeforeCheckMailAndEverythingBeforeTheFtpFields) {
  BancReglages banc;
  QMap<C, QString> luAvant;
  banc.Affichage.AuMoment = [&](C controle) { luAvant[controle] = banc.Magasin.Lus.last(); };
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(luAvant.value(C::CombSkin), QStringLiteral("general/skin"));
  EXPECT_EQ(luAvant.value(C::CheckMail), QStringLiteral("MAIL/pass"));
  EXPECT_EQ(luAvant.value(C::TxtHtml), QStringLiteral("FTP/pass"));
}

TEST(ChargeParametres, DerivesTheJpegQuality) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("FTP/qualitephoto")] = QStringLiteral("1");
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Valeurs.IndexQualite, 1);
  EXPECT_EQ(banc.Valeurs.QualiteJpeg, 50);
}

TEST(ChargeParametres, OfAnEmptyStoreGivesTheDefaultsAndFillsTheStore) {
  BancReglages banc;
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Magasin.Disque.size(), kNombreCles);
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/pass", "missing"), QString());
  EXPECT_EQ(banc.Magasin.Disque.value("MAIL/pass", "missing"), QString());
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/width"), QStringLiteral("320"));
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/height"), QStringLiteral("240"));
  EXPECT_EQ(banc.Magasin.Disque.value("PHOTO/repertoire"), QStringLiteral("/prog\\intrus"));
  for (const LigneReglage& ligne : TableReglages().first(kNombreReglages)) {
    if (ligne.SousDossier || ligne.Forme == FormeStockee::Booleen) continue;
    EXPECT_EQ(banc.Magasin.Disque.value(NomReglage(ligne)), QString::fromLatin1(ligne.Defaut));
  }
  EXPECT_EQ(banc.Valeurs.Retard, 10);
  EXPECT_TRUE(banc.Valeurs.SmtpActif);
}

TEST(ChargeParametres, SavesInItsTailEachTimeBecauseTxtRefreshStartsEmpty) {
  BancReglages banc;
  banc.Reglages.ChargeParametres();
  const QStringList ecrits = banc.Magasin.Ecrits;
  // Photo folder at once, then two whole saves: TxtRefresh, and Text1 whose "0" became "10".
  EXPECT_EQ(ecrits.count(QStringLiteral("*")), 3);
  EXPECT_EQ(ecrits.mid(0, 2), QStringList({"PHOTO/repertoire", "*"}));
  EXPECT_EQ(ecrits.count(QStringLiteral("FTP/refresh")), 2);
  EXPECT_EQ(banc.Modules.Envois.size(), 6);
}

TEST(ChargeParametres, SavesOnceInItsTailWhenRetardIsTheZeroThatText1ShowsAnyway) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("general/retard")] = QStringLiteral("0");
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Magasin.Ecrits.count(QStringLiteral("FTP/refresh")), 1);
}

TEST(ChargeParametres, ContinuesBehindTheReentrantSaveWithoutLosingAnything) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("FTP/pass")] = QStringLiteral("098100102");
  banc.Magasin.Valeurs[QStringLiteral("FTP/rapportnombrephoto")] = QStringLiteral("7");
  bool sauve = false;
  banc.Affichage.AuMoment = [&](C controle) {
    if (controle == C::TxtPass) sauve = banc.Magasin.Disque.size() == kNombreCles;
  };
  banc.Reglages.ChargeParametres();
  EXPECT_TRUE(sauve) << "the save runs to its end before TxtPass is filled";
  EXPECT_EQ(banc.Valeurs.MotDePasseFtp, QStringLiteral("abc"));
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/pass"), QStringLiteral("098100102"));
  EXPECT_EQ(banc.Magasin.Disque.value("FTP/rapportnombrephoto"), QStringLiteral("7"));
}

TEST(ChargeParametres, FillsTheStoreAlsoForADisplayWhoseFieldsDoNotSave) {
  BancReglages banc;
  banc.Affichage.Sauve = nullptr;
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Magasin.Disque.size(), kNombreCles);
  EXPECT_EQ(banc.Magasin.Ecrits.count(QStringLiteral("FTP/refresh")), 1);
}

TEST(ChargeParametres, DoesNotSaveForAnIntervalThatStaysEmpty) {
  BancReglages banc;
  banc.Affichage.Sauve = nullptr;
  banc.Magasin.Valeurs[QStringLiteral("FTP/refresh")] = QString();
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Magasin.Ecrits, QStringList({"PHOTO/repertoire", "*"}));
}

TEST(ChargeParametres, ReplacesAVanishedPhotoFolderInTheStoreAtOnce) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/gone");
  bool rempli = false;
  banc.Affichage.AuMoment = [&](C controle) {
    if (controle != C::CheckPPhot) return;
    rempli = true;
    EXPECT_EQ(banc.Magasin.Disque.value("PHOTO/repertoire"), QStringLiteral("/prog\\intrus"));
    EXPECT_EQ(banc.Magasin.Ecrits, QStringList({"PHOTO/repertoire", "*"})) << "this one key, before any save";
    EXPECT_TRUE(banc.Modules.Envois.isEmpty());
  };
  banc.Reglages.ChargeParametres();
  EXPECT_TRUE(rempli);
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/prog\\intrus"));
  EXPECT_EQ(banc.Disque.DossiersDemandes, QStringList{QStringLiteral("/prog\\intrus")});
}

TEST(ChargeParametres, MakesNoFolderWhereTheOneOfTheProgramIsThere) {
  BancReglages banc;
  banc.Disque.AjouteDossier(QStringLiteral("/prog/intrus"));
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/gone");
  banc.Reglages.ChargeParametres();
  EXPECT_TRUE(banc.Disque.DossiersDemandes.isEmpty());
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/prog\\intrus"));
}

TEST(ChargeParametres, KeepsAPhotoFolderThatIsThere) {
  BancReglages banc;
  banc.Disque.AjouteDossier(QStringLiteral("/photos"));
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/photos");
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/photos"));
  EXPECT_TRUE(banc.Disque.DossiersDemandes.isEmpty());
  EXPECT_EQ(banc.Magasin.Ecrits.first(), QStringLiteral("general/retard")) << "nothing is written before the save";
}

// A server that comes up later than this machine: the setting is not lost for that.
TEST(ChargeParametres, KeepsAPhotoFolderOfWhichNothingCanBeSaid) {
  BancReglages banc;
  banc.Disque.Muets.insert(QStringLiteral("/net/photos"));
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/net/photos");
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/net/photos"));
  EXPECT_EQ(banc.Magasin.Disque.value("PHOTO/repertoire"), QStringLiteral("/net/photos"));
  EXPECT_TRUE(banc.Disque.DossiersDemandes.isEmpty());
}

TEST(ChargeParametres, MakesNoFolderOnADiskThatDoesNotAnswer) {
  BancReglages banc;
  banc.Disque.Muets.insert(QStringLiteral("/prog/intrus"));
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/gone");
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Valeurs.RepertoirePhoto, QStringLiteral("/prog\\intrus"));
  EXPECT_TRUE(banc.Disque.DossiersDemandes.isEmpty());
}

TEST(ChargeParametres, EndsTheStartWhenNoPhotoFolderCanBeMade) {
  BancReglages banc;
  banc.Disque.RefuseCreation = true;
  banc.Magasin.Valeurs[QStringLiteral("PHOTO/repertoire")] = QStringLiteral("/gone");
  banc.Magasin.Valeurs[QStringLiteral("general/langue")] = QStringLiteral("1");
  EXPECT_EQ(EchecDuChargement(banc, kFichierIntrouvable).toStdString(),
            "The photo folder \"/gone\" (setting PHOTO/repertoire) does not exist, and \"/prog\\intrus\" could not be "
            "made.");
}

TEST(ChargeParametres, TakesBackTheSoundFileThatHasNoName) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("SON/index")] = QStringLiteral("3");
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Valeurs.IndexSon, 0);
  EXPECT_EQ(banc.Magasin.Disque.value("SON/index"), QStringLiteral("0"));
}

TEST(ChargeParametres, KeepsTheSoundFileThatHasAName) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("SON/index")] = QStringLiteral("3");
  banc.Magasin.Valeurs[QStringLiteral("SON/Repertoire")] = QStringLiteral("/s/a.wav");
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Valeurs.IndexSon, 3);
  banc.Magasin.Valeurs[QStringLiteral("SON/Repertoire")] = QString();
  banc.Magasin.Valeurs[QStringLiteral("SON/index")] = QStringLiteral("2");
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Valeurs.IndexSon, 2) << "only the choice of the file needs one";
}

TEST(ChargeParametres, ReadsSmtpactifFromTheDefaultOneAndFromTheStoredWord) {
  BancReglages banc;
  banc.Reglages.ChargeParametres();
  EXPECT_TRUE(banc.Valeurs.SmtpActif);
  EXPECT_EQ(banc.Magasin.Disque.value("MAIL/smtpactif"), QStringLiteral("True"));
  banc.Valeurs.SmtpActif = false;
  banc.Reglages.SauveParametres();
  banc.Valeurs.SmtpActif = true;
  banc.Reglages.ChargeParametres();
  EXPECT_FALSE(banc.Valeurs.SmtpActif);
}

TEST(ChargeParametres, TellsKeyAndValueInTheLanguageOfTheUser) {
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

TEST(ChargeParametres, TellsInFrenchWhereTheLanguageIsDamagedOrUnknown) {
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

TEST(ChargeParametres, ShortensAHugeDamagedValueInTheMessage) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("general/skin")] = QString(500'000, u'\n');
  EXPECT_LT(EchecDuChargement(banc, kTypeIncompatible).size(), 300);
}

TEST(ChargeParametres, EndsTheStartWhenTheStoreCannotBeWritten) {
  BancReglages banc;
  banc.Magasin.RefuseEcriture = true;
  EXPECT_EQ(EchecDuChargement(banc, kAccesFichier).toStdString(),
            std::string("Les paramètres n'ont pas pu être enregistrés (disk full)."));
}

// With the start values of what is not read yet a save would replace the user's server, passwords and folder.
TEST(ChargeParametres, SavesNothingBeforeTheLastValueIsRead) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("MAIL/smtpserveur")] = QStringLiteral("mail.example.org");
  banc.Disque.AjouteDossier(QStringLiteral("/prog/intrus"));
  QStringList ecritsPendantLaLecture;
  banc.Affichage.AuMoment = [&](C controle) {
    if (controle != C::CombSkin) return;
    banc.Valeurs.ParametresModifies = true;
    banc.Reglages.SauveParametres();  // whatever runs in a pump of the load
    ecritsPendantLaLecture = banc.Magasin.Ecrits;
    EXPECT_TRUE(banc.Valeurs.ParametresModifies) << "what was to be saved is not forgotten";
    EXPECT_FALSE(banc.Reglages.EstCharge());
  };
  banc.Reglages.ChargeParametres();
  EXPECT_TRUE(ecritsPendantLaLecture.isEmpty()) << ecritsPendantLaLecture.join(u' ').toStdString();
  EXPECT_EQ(banc.Magasin.Disque.value("MAIL/smtpserveur"), QStringLiteral("mail.example.org"));
  EXPECT_TRUE(banc.Reglages.EstCharge());
}

TEST(ChargeParametres, MakesUpForASaveThatCameTooEarly) {
  BancReglages banc;
  banc.Affichage.Sauve = nullptr;  // the tail itself does not save
  banc.Magasin.Valeurs[QStringLiteral("FTP/refresh")] = QString();
  banc.Affichage.AuMoment = [&](C controle) {
    if (controle == C::CombSkin) banc.Reglages.SauveParametres();
  };
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Magasin.Ecrits.count(QStringLiteral("FTP/refresh")), 1);
  EXPECT_EQ(banc.Modules.Envois.count(QStringLiteral("FTP:Optio")), 1);
}

TEST(ChargeParametres, ThatFailedLetsNothingBeSavedAfterwards) {
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

TEST(ChargeParametres, ThatFailedInItsTailLetsNothingBeSavedEither) {
  BancReglages banc;
  banc.Magasin.RefuseEcriture = true;
  EchecDuChargement(banc, kAccesFichier);
  banc.Magasin.RefuseEcriture = false;
  banc.Magasin.Ecrits.clear();
  banc.Reglages.SauveParametres();
  EXPECT_TRUE(banc.Magasin.Ecrits.isEmpty());
}

TEST(ChargeParametres, AcceptsAnyLanguageAndAnyColour) {
  BancReglages banc;
  banc.Magasin.Valeurs[QStringLiteral("general/langue")] = QStringLiteral("2");
  banc.Magasin.Valeurs[QStringLiteral("FTP/couleur")] = QStringLiteral("99");
  banc.Reglages.ChargeParametres();
  EXPECT_EQ(banc.Valeurs.LangueCourante, 2);
  EXPECT_EQ(banc.Valeurs.IndexCouleurPage, 99);
}

}  // namespace
}  // namespace vaktor
