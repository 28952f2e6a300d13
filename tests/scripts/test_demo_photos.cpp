// SPDX-License-Identifier: GPL-3.0-or-later
// What ./run --demo tells while it works.
#include "scripts/script_of_run.h"

namespace vaktor {
namespace {

using PhotosAnnoncees = ScriptDeRun;

// Thirty come within a second. One that is only begun is not told yet.
TEST_F(PhotosAnnoncees, EachIsToldAsItIsWritten) {
  const QString commandes = QStringLiteral(R"bash(
    dossier=$racine debut_demo=$EPOCHREALTIME
    mkdir "$dossier/intrus"
    : > "$dossier/dites"
    annonce_photos >> "$dossier/dites" &
    : > "$dossier/intrus/begun.jpg"
    for i in 1 2 3 4 5; do echo x > "$dossier/intrus/$i.jpg"; done
    for ((tour = 0; tour < 400; tour++)); do
      [ "$(wc -l < "$dossier/dites")" -lt 5 ] || break
      sleep 0.05
    done
    echo x > "$dossier/intrus/last.jpg"
    touch "$dossier/fini"
    wait
    sed 's/.* s  //' "$dossier/dites")bash");
  EXPECT_EQ(Dit("demo.sh", commandes),
            "photo 1.jpg\nphoto 2.jpg\nphoto 3.jpg\nphoto 4.jpg\nphoto 5.jpg\nphoto last.jpg\n");
}

TEST_F(PhotosAnnoncees, TheTimeIsThatFromOneReadingToAnother) {
  EXPECT_EQ(Dit("demo.sh", "depuis 1763700000.900000 1763700012.350000; depuis 5,000000 5.099999"), "11.40.0");
}

}  // namespace
}  // namespace vaktor
