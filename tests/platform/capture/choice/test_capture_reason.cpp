// SPDX-License-Identifier: GPL-3.0-or-later
// Why a camera gives no picture, in words.
#include <gtest/gtest.h>

#include <QSet>

#include "platform/capture/choice/capture_reason.h"

namespace vaktor {
namespace {

TEST(Raison, EachIsASentenceOfItsOwnInEveryLanguage) {
  QSet<QString> vues;
  for (int i = 0; i <= static_cast<int>(Motif::kTropGrande); ++i) {
    for (const Langue langue : kLangues) {
      const QString phrase = DitRaison({static_cast<Motif>(i), QStringLiteral("detail")}, langue);
      EXPECT_TRUE(phrase.endsWith(u'.')) << qUtf8Printable(phrase);
      EXPECT_FALSE(phrase.contains(QStringLiteral("%1"))) << qUtf8Printable(phrase);
      EXPECT_FALSE(vues.contains(phrase)) << qUtf8Printable(phrase);
      vues.insert(phrase);
    }
  }
}

TEST(Raison, ADeviceWithoutPermissionNamesTheGroup) {
  EXPECT_EQ(DitRaison({Motif::kSansPermission, QStringLiteral("video")}, Langue::kAnglais),
            "You may not open the camera: have yourself added to the group video, then log in again.");
  EXPECT_EQ(DitRaison({Motif::kSansPermission, {}}, Langue::kAnglais), "You may not open it.") << "a file";
}

TEST(Raison, AnAnswerOfTheCameraIsToldWithItsNumber) {
  EXPECT_TRUE(DitRaison({Motif::kErreurServeur, QStringLiteral("503")}, Langue::kFrancais).contains("503"));
}

// Each row of words stands at its reason.
TEST(Raison, TheWordsAreThoseOfTheReason) {
  const auto dit = [](Motif motif) { return DitRaison({motif, {}}, Langue::kAnglais); };
  EXPECT_TRUE(dit(Motif::kMotDePasse).contains("password"));
  EXPECT_TRUE(dit(Motif::kInterdit).contains("403"));
  EXPECT_TRUE(dit(Motif::kPasTrouve).contains("404"));
  EXPECT_TRUE(dit(Motif::kHoteInconnu).contains("name"));
  EXPECT_TRUE(dit(Motif::kSansRoute).contains("does not lead"));
  EXPECT_TRUE(dit(Motif::kPorteFermee).contains("port"));
  EXPECT_TRUE(dit(Motif::kSansReponse).contains("Nothing answers at this address"));
  EXPECT_TRUE(dit(Motif::kCertificat).contains("certificate"));
  EXPECT_TRUE(dit(Motif::kMuette).contains("sends nothing"));
  EXPECT_TRUE(dit(Motif::kSansImageEntiere).contains("key frames"));
  EXPECT_TRUE(dit(Motif::kPasUneImage).contains("neither"));
  EXPECT_TRUE(dit(Motif::kSansDecodeur).contains("installed"));
  EXPECT_TRUE(dit(Motif::kOccupee).contains("Another program"));
  EXPECT_TRUE(dit(Motif::kAbsente).contains("plugged"));
  EXPECT_TRUE(dit(Motif::kFichierAbsent).contains("file"));
  EXPECT_TRUE(dit(Motif::kMemoire).contains("chosen"));
  EXPECT_TRUE(dit(Motif::kPasDuBureau).contains("desktop"));
  EXPECT_TRUE(dit(Motif::kSansGreffon).contains("install"));
  EXPECT_TRUE(dit(Motif::kAbimee).contains("damaged"));
  EXPECT_TRUE(dit(Motif::kSansImage).contains("gives no picture"));
  EXPECT_TRUE(dit(Motif::kTropGrande).contains("too large"));
}

}  // namespace
}  // namespace vaktor
