// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "platform/capture/dialogs/dialog_texts.h"

namespace vaktor {
namespace {

TEST(TexteDialogue, EveryTextIsThereInBothLanguagesWithTheSamePlaces) {
  for (int i = 0; i < static_cast<int>(TexteDialogue::kNombre); ++i) {
    const auto numero = static_cast<TexteDialogue>(i);
    const QString francais = TexteDe(numero, Langue::kFrancais);
    const QString anglais = TexteDe(numero, Langue::kAnglais);
    EXPECT_FALSE(francais.isEmpty()) << i;
    EXPECT_FALSE(anglais.isEmpty()) << i;
    EXPECT_FALSE(francais.contains(QChar::ReplacementCharacter)) << i;
    for (const QString place : {"%1", "%2", "%3", "&"}) EXPECT_EQ(francais.count(place), anglais.count(place)) << i;
  }
}

TEST(TexteDialogue, AnyOtherLanguageIsFrench) {
  EXPECT_EQ(TexteDe(TexteDialogue::kAnnule, Langue::kFrancais), "Annuler");
  EXPECT_EQ(TexteDe(TexteDialogue::kAnnule, Langue::kAnglais), "Cancel");
  EXPECT_EQ(TexteDe(TexteDialogue::kAnnule, LangueParlee(7)), "Annuler");
}

TEST(TexteCadence, NumbersByTheLanguage) {
  EXPECT_EQ(TexteCadence({"", 1, 1, 30, 1}, Langue::kFrancais), "30 images/s");
  EXPECT_EQ(TexteCadence({"", 1, 1, 30, 1}, Langue::kAnglais), "30 frames/s");
  EXPECT_EQ(TexteCadence({"", 1, 1, 15, 2}, Langue::kFrancais), "7,5 images/s");
  EXPECT_EQ(TexteCadence({"", 1, 1, 15, 2}, Langue::kAnglais), "7.5 frames/s");
  EXPECT_EQ(TexteCadence({"", 1, 1, 30000, 1001}, Langue::kAnglais), "29.97 frames/s");
  EXPECT_EQ(TexteCadence({"", 1, 1, 1000, 1}, Langue::kAnglais), "1000 frames/s");
  EXPECT_EQ(TexteCadence({"", 1, 1, 0, 1}, Langue::kAnglais), "chosen by the camera");
}

TEST(TexteFormat, TellsSizeRateAndCodingAsFarAsTheyAreKnown) {
  EXPECT_EQ(TexteFormat({"MJPG", 640, 480, 30, 1}, Langue::kAnglais),
            QString::fromUtf8("640 × 480, 30 frames/s, MJPG"));
  EXPECT_EQ(TexteFormat({"", 640, 480, 0, 1}, Langue::kAnglais), QString::fromUtf8("640 × 480"));
  EXPECT_EQ(TexteFormat({}, Langue::kAnglais), "size not known");
}

TEST(NomReglage, TheCommonControlsSpeakFrenchTheOthersKeepTheirName) {
  EXPECT_EQ(NomReglage(0x00980900, "Brightness", Langue::kFrancais), QString::fromUtf8("Luminosité"));
  EXPECT_EQ(NomReglage(0x00980900, "Brightness", Langue::kAnglais), "Brightness");
  EXPECT_EQ(NomReglage(0x0098f900, "Horizontal Movement", Langue::kFrancais), "Horizontal Movement");
  EXPECT_EQ(NomChoix("Disabled", Langue::kFrancais), QString::fromUtf8("Désactivé"));
  EXPECT_EQ(NomChoix("50 Hz", Langue::kFrancais), "50 Hz");
}

}  // namespace
}  // namespace vaktor
