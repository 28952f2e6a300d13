// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of cameras behind the kernel's own test driver: two equal ones beside nodes that are no cameras. Runs
// inside the virtual machine.
#include <gtest/gtest.h>

#include <QDir>
#include <algorithm>

#include "support/camera_list.h"
#include "vm/guest.h"

namespace vaktor {
namespace {

constexpr quint32 kLuminosite = 0x00980900;
constexpr quint32 kGainAuto = 0x00980912;
constexpr quint32 kGain = 0x00980913;

const ReglageCamera* Cherche(const QList<ReglageCamera>& reglages, const QString& nom) {
  const auto it = std::find_if(reglages.begin(), reglages.end(), [&](const auto& r) { return r.Nom == nom; });
  return it == reglages.end() ? nullptr : &*it;
}

TEST(VividPeripherique, OutputsAndMetadataAreNoCameras) {
  // Two cameras, each with an output, metadata in and metadata out.
  EXPECT_GE(QDir("/dev").entryList({"video*"}, QDir::System).size(), 8);
  QStringList noms;
  for (const PeripheriqueVideo& p : ListePeripheriques()) noms.append(p.Nom);
  EXPECT_EQ(noms, (QStringList{"vivid", "vivid"}));
}

TEST(VividPeripherique, TwoEqualCamerasAreToldApartByTheirBus) {
  const QList<PeripheriqueVideo> liste = ListePeripheriques();
  ASSERT_EQ(liste.size(), 2);
  EXPECT_EQ(liste[0].NomStable, "vivid|vivid|platform:vivid-000");
  EXPECT_EQ(liste[1].NomStable.section('#', 0, 0), "vivid|vivid|platform:vivid-001");
  for (const PeripheriqueVideo& p : liste) EXPECT_EQ(RetrouvePeripherique(p.NomStable)->Noeud, p.Noeud);
}

TEST(VividPeripherique, FormatsUpToOnesThatTheDetectionCannotHold) {
  const QString noeud = ListePeripheriques().first().Noeud;
  const QList<FormatCamera> formats = ListeFormats(noeud);
  EXPECT_TRUE(formats.contains({"YUYV", 640, 480, 25, 1}));
  const auto grand = std::find_if(formats.begin(), formats.end(), [](const auto& f) { return f.Largeur == 3840; });
  ASSERT_NE(grand, formats.end());
  EXPECT_TRUE(FormatTropGrand(*grand));
  EXPECT_EQ(ChoisitPremierFormat(formats), (FormatCamera{"YUYV", 640, 480, 25, 1})) << "its fastest at this size";
  for (const FormatCamera& f : formats) {
    EXPECT_GE(f.Codage.size(), 3);
    EXPECT_GT(f.Largeur, 0);
    EXPECT_GT(f.CadenceNum, 0);
  }
}

TEST(VividPeripherique, ControlsOfEveryKindWithTheirRanges) {
  const QList<ReglageCamera> reglages = ListeReglages(ListePeripheriques().first().Noeud);
  const ReglageCamera* luminosite = Cherche(reglages, "Brightness");
  ASSERT_NE(luminosite, nullptr);
  EXPECT_EQ(luminosite->Numero, kLuminosite);
  EXPECT_EQ(luminosite->Genre, ReglageCamera::Sorte::kEntier);
  EXPECT_EQ(luminosite->Minimum, 0);
  EXPECT_EQ(luminosite->Maximum, 255);
  EXPECT_EQ(luminosite->Defaut, 128);
  EXPECT_EQ(luminosite->Valeur, 128);
  EXPECT_TRUE(luminosite->Actif);

  const ReglageCamera* booleen = Cherche(reglages, "Boolean");
  ASSERT_NE(booleen, nullptr);
  EXPECT_EQ(booleen->Genre, ReglageCamera::Sorte::kBooleen);
  EXPECT_EQ(booleen->Valeur, 1);

  // A menu with gaps: values 1 to 4, of which the driver masks 0 and 1 out.
  const ReglageCamera* menu = Cherche(reglages, "Menu");
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->Genre, ReglageCamera::Sorte::kMenu);
  EXPECT_EQ(menu->Choix.size(), menu->Maximum + 1);
  EXPECT_TRUE(menu->Choix.first().isEmpty());
  EXPECT_FALSE(menu->Choix.at(menu->Valeur).isEmpty());

  const ReglageCamera* nombres = Cherche(reglages, "Integer Menu");
  ASSERT_NE(nombres, nullptr);
  bool estNombre = false;
  nombres->Choix.at(nombres->Valeur).toLongLong(&estNombre);
  EXPECT_TRUE(estNombre);

  for (const char* autre : {"Button", "String", "Bitmask", "U32 1 Element Array", "Integer 64 Bits"})
    EXPECT_EQ(Cherche(reglages, autre), nullptr) << autre << " cannot be set with a slider, a box or a menu";
}

TEST(VividPeripherique, AControlThatAnAutomaticRulesIsNotActive) {
  const QString noeud = ListePeripheriques().first().Noeud;
  ASSERT_TRUE(AppliqueReglage(noeud, kGainAuto, 1));
  EXPECT_FALSE(Cherche(ListeReglages(noeud), "Gain")->Actif);
  ASSERT_TRUE(AppliqueReglage(noeud, kGainAuto, 0));
  EXPECT_TRUE(Cherche(ListeReglages(noeud), "Gain")->Actif);
  EXPECT_EQ(Cherche(ListeReglages(noeud), "Gain")->Numero, kGain);
}

TEST(VividPeripherique, AControlIsChangedAndOnlyOnItsOwnCamera) {
  const QList<PeripheriqueVideo> liste = ListePeripheriques();
  ASSERT_EQ(liste.size(), 2);
  ASSERT_TRUE(AppliqueReglage(liste[0].Noeud, kLuminosite, 200));
  EXPECT_EQ(Cherche(ListeReglages(liste[0].Noeud), "Brightness")->Valeur, 200);
  EXPECT_EQ(Cherche(ListeReglages(liste[1].Noeud), "Brightness")->Valeur, 128);
  ASSERT_TRUE(AppliqueReglage(liste[0].Noeud, kLuminosite, 128));
  EXPECT_FALSE(AppliqueReglage(liste[0].Noeud, 0x0098ffff, 1)) << "a control that the device does not have";
}

}  // namespace
}  // namespace vaktor
