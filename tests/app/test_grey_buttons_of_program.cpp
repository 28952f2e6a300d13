// SPDX-License-Identifier: GPL-3.0-or-later
// Each grey button of the pages does what it is there for, in the whole program. Those of the mail settings and of the
// trial of the live page have tests of their own.
#include "app/program_fixture.h"

namespace vaktor {
namespace {

using BoutonsGris = essai::ProgrammeSurFaux;

TEST_F(BoutonsGris, PhotosOpenTheGallery) {
  DemarreJusquALaFenetre();
  EXPECT_FALSE(Visible("FormVisuPhoto"));
  Clique("BoutonGris(0)");
  EXPECT_TRUE(Visible("FormVisuPhoto"));
}

TEST_F(BoutonsGris, HelpOpensTheManualAndUpdateAsksForTheVersion) {
  DemarreJusquALaFenetre();
  Clique("BoutonGris(7)");
  ASSERT_EQ(Systeme.Navigateur.Adresses.size(), 1);
  EXPECT_TRUE(Systeme.Navigateur.Adresses.last().endsWith(QLatin1String("/ENGLISH/VaktorNotice.html")));
  Clique("BoutonGris(1)");
  ASSERT_EQ(Systeme.Navigateur.Adresses.size(), 2);
  EXPECT_TRUE(Systeme.Navigateur.Adresses.last().contains(QLatin1String("/ENGLISH/versiontest.")));
}

TEST_F(BoutonsGris, OfTheLivePageCreateItAndOpenIt) {
  DemarreJusquALaFenetre();
  const QStringList avant = Systeme.Messages.Textes;
  Clique("BoutonGris(2)");
  EXPECT_EQ(Systeme.Messages.Textes.size(), avant.size() + 1) << "the camera is off, which is said";
  Trouve<QLineEdit>("TxtHtml")->setText(QStringLiteral("http://me.example.org/"));
  Clique("BoutonGris(3)");
  EXPECT_EQ(Systeme.Navigateur.Adresses, QStringList(QStringLiteral("http://me.example.org/live.html")));
}

TEST_F(BoutonsGris, SoundOpensItsForm) {
  int ouvertures = 0;
  PortsSysteme ports = Systeme.Ports();
  ports.CreeFormSound = [&ouvertures](auto&&...) -> std::unique_ptr<FormSound> {
    ++ouvertures;
    return nullptr;
  };
  Programme = std::make_unique<Vaktor>(ports, QString());
  Programme->Demarre(QStringLiteral("1.4.9"));
  Clique("BoutonGris(6)");
  EXPECT_EQ(ouvertures, 1);
}

}  // namespace
}  // namespace vaktor
