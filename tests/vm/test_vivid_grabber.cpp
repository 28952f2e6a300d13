// SPDX-License-Identifier: GPL-3.0-or-later
// An analog grabber of the kernel's own test driver: a webcam, a television and an S-Video input behind one node. Runs
// inside the virtual machine.
#include "support/camera_list.h"
#include "vm/guest_driver.h"

namespace vaktor {
namespace {

class VividNumeriseur : public PiloteReelTest {
 protected:
  static ReglageCamera Reglage(const QString& noeud, quint32 numero) {
    for (const ReglageCamera& reglage : ListeReglages(noeud))
      if (reglage.Numero == numero) return reglage;
    return {};
  }
  static QString Noeud() { return ListePeripheriques().first().Noeud; }
};

TEST_F(VividNumeriseur, TellsItsInputsAndTheStandardsOfTheOneThatIsSet) {
  const QString noeud = Noeud();
  ASSERT_TRUE(AppliqueReglage(noeud, kReglageEntree, 0));
  EXPECT_EQ(Reglage(noeud, kReglageEntree).Choix.size(), 3);
  EXPECT_EQ(Reglage(noeud, kReglageEntree).Valeur, 0);
  EXPECT_TRUE(Reglage(noeud, kReglageNorme).Choix.isEmpty()) << "a webcam has none";
  ASSERT_TRUE(AppliqueReglage(noeud, kReglageEntree, 2));
  EXPECT_TRUE(Reglage(noeud, kReglageEntree).Choix.value(2).startsWith(QStringLiteral("S-Video")));
  EXPECT_EQ(Reglage(noeud, kReglageEntree).Valeur, 2);
  const ReglageCamera norme = Reglage(noeud, kReglageNorme);
  const qsizetype ntsc = norme.Choix.indexOf(QStringLiteral("NTSC-M"));
  ASSERT_GE(ntsc, 0) << qUtf8Printable(norme.Choix.join(QLatin1Char(' ')));
  ASSERT_TRUE(AppliqueReglage(noeud, kReglageNorme, static_cast<qint32>(ntsc)));
  EXPECT_FALSE(AppliqueReglage(noeud, kReglageNorme, 1000));
  EXPECT_FALSE(AppliqueReglage(noeud, kReglageEntree, 7));
}

// The driver itself sets what is remembered, each time before it opens.
TEST_F(VividNumeriseur, ListensToWhatIsRemembered) {
  const QString noeud = Noeud();
  const QString nom = ListePeripheriques().first().NomStable;
  ASSERT_TRUE(AppliqueReglage(noeud, kReglageEntree, 2));
  const QStringList normes = Reglage(noeud, kReglageNorme).Choix;
  const auto pal = static_cast<qint32>(normes.indexOf(QStringLiteral("PAL")));
  const auto ntsc = static_cast<qint32>(normes.indexOf(QStringLiteral("NTSC-M")));
  ASSERT_GE(std::min(pal, ntsc), 0) << qUtf8Printable(normes.join(QLatin1Char(' ')));
  for (const auto& [norme, hauteur] : {std::pair{pal, 576}, std::pair{ntsc, 480}}) {
    ASSERT_TRUE(AppliqueReglage(noeud, kReglageEntree, 0));
    ASSERT_TRUE(Memoire_.RetientEntree(nom, {2, norme}));
    const auto pilote = Pilote();
    ASSERT_TRUE(Connecte(*pilote));
    ASSERT_TRUE(AttendImages(*pilote, 2));
    EXPECT_EQ(Reglage(noeud, kReglageEntree).Valeur, 2);
    EXPECT_LE(pilote->FormatCourant().Hauteur, hauteur);
    EXPECT_GE(pilote->FormatCourant().Largeur, 320);
  }
}

}  // namespace
}  // namespace vaktor
