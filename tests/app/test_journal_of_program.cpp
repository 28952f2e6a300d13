// SPDX-License-Identifier: GPL-3.0-or-later
// What the whole program writes into its journal, and that nothing it does depends on that.
#include <algorithm>

#include "app/alarm_fixture.h"

namespace vaktor::essai {
namespace {

class JournalDuProgramme : public AlarmeSurFaux {
 protected:
  QList<Fait> Faits() const {
    QList<Fait> faits;
    for (const EntreeJournal& entree : Systeme.LignesJournal.Entrees())
      if (entree.Mot.isEmpty()) faits.append(entree.Quoi);  // nobody is there for the mails of these programs
    return faits;
  }
  EntreeJournal Derniere(Fait quoi) const {
    const QList<EntreeJournal> entrees = Systeme.LignesJournal.Entrees();
    const auto trouvee =
        std::find_if(entrees.rbegin(), entrees.rend(), [&](const EntreeJournal& e) { return e.Quoi == quoi; });
    return trouvee == entrees.rend() ? EntreeJournal{} : *trouvee;
  }
};

TEST_F(JournalDuProgramme, AnAlarmWithItsPhotosFromTheStartToTheEnd) {
  ArmeEtBouge();
  EXPECT_EQ(Faits(), (QList<Fait>{Fait::kDemarre, Fait::kArmee, Fait::kDebutIntrusion}));
  EXPECT_EQ(Derniere(Fait::kDemarre).Course, QStringLiteral("run"));
  const QStringList photos = [this] {
    Systeme.Temps.Avance(1000);
    return Systeme.DepuisVide().filter(QStringLiteral("jpeg: "));
  }();
  Programme->Ferme();
  EXPECT_EQ(Faits().mid(3), (QList<Fait>{Fait::kFinIntrusion, Fait::kDesarmee, Fait::kFini}));
  const EntreeJournal fin = Derniere(Fait::kFinIntrusion);
  EXPECT_GT(fin.Images, 200);
  EXPECT_EQ(fin.Photos, fin.Images) << "one photo a frame: photo, mail and sound of a frame are one frame";
  EXPECT_EQ(fin.Points, 96 * 80) << "all samples of a picture of 287 by 241, but for the last row";
  EXPECT_EQ(fin.Dossier, QStringLiteral("/home/u/v\\intrus"));
  ASSERT_FALSE(photos.isEmpty());
  EXPECT_EQ(photos.constLast(), QStringLiteral("jpeg: ") + fin.Dossier + u'/' + fin.Derniere);
  EXPECT_FALSE(fin.Premiere.isEmpty());
  EXPECT_FALSE(fin.Meilleure.isEmpty());
  EXPECT_EQ(fin.Cadre.bottomRight(), QPoint(286, 238));
}

TEST_F(JournalDuProgramme, WithPhotosOffMailAndSoundAreAnIntrusionToo) {
  ArmeEtBouge(QStringLiteral("/alarm"), false);
  Programme->Ferme();
  EXPECT_GT(Derniere(Fait::kFinIntrusion).Images, 200);
  EXPECT_EQ(Derniere(Fait::kFinIntrusion).Photos, 0);
}

TEST_F(JournalDuProgramme, APhotoThatFailsIsNoneOfItsPhotos) {
  ArmeEtBouge();
  const auto images = [this] {
    Programme->Ferme();
    return Derniere(Fait::kFinIntrusion);
  };
  Systeme.Ecrivain.Erreur = ENOSPC;
  Systeme.Temps.Avance(5000);
  const EntreeJournal fin = images();
  EXPECT_LT(fin.Photos + 100, fin.Images);
  EXPECT_GT(fin.Photos, 200);
}

TEST_F(JournalDuProgramme, ConditionsOfTheWatchAreInIt) {
  Demarre();
  Programme->Sante().Signale(Condition::kReglagesNonSauves, QStringLiteral("no room"));
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Derniere(Fait::kDebutCondition).Mot, QStringLiteral("settings-not-saved"));
  EXPECT_EQ(Derniere(Fait::kDebutCondition).Detail, QStringLiteral("no room"));
  Programme->Sante().Leve(Condition::kReglagesNonSauves);
  Systeme.Temps.Avance(1000);
  EXPECT_EQ(Derniere(Fait::kFinCondition).Mot, QStringLiteral("settings-not-saved"));
}

TEST_F(JournalDuProgramme, AMailThatTheServerHasTakenIsInItOnce) {
  ArmeEtBouge();
  Systeme.Etats.Etats.Mail = {.Poignee = 72, .Attente = {}, .Publie = {}, .Accepte = QStringLiteral("yesterday")};
  Systeme.Temps.Avance(SuiviEnvois::kRegard);
  EXPECT_EQ(Faits().count(Fait::kCourriel), 0) << "of an earlier run";
  Systeme.Etats.Etats.Mail.Accepte = QStringLiteral("now");
  Systeme.Temps.Avance(3 * SuiviEnvois::kRegard);
  EXPECT_EQ(Faits().count(Fait::kCourriel), 1);
}

}  // namespace
}  // namespace vaktor::essai
