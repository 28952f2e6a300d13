// SPDX-License-Identifier: GPL-3.0-or-later
// When ./run adds the built-in picture: what the program says of its camera decides.
#include "scripts/script_of_run.h"

namespace vaktor {
namespace {

class CameraDeLancement : public ScriptDeRun {
 protected:
  /// A program that says this, and ends with this status.
  void Programme(const QByteArray& dit, int statut) {
    Ecrit("/programme", "#!/bin/sh\necho '" + dit + "'\nprintf '%s\\n' \"$@\" > '" + Dans("/recus").toUtf8() +
                            "'\nexit " + QByteArray::number(statut) + '\n');
    ASSERT_EQ(::chmod(qPrintable(Dans("/programme")), 0755), 0);
  }
  /// What ./run says, and its arguments afterwards, each in a line of its own.
  struct Decision {
    QString Dit;
    QStringList Arguments;
  };
  Decision Choisit(const QStringList& arguments = {}, const QString& memoire = QStringLiteral("oui")) {
    const QString commandes = QStringLiteral(
                                  "arguments=(\"$@\"); choisit_camera '%1' %2 \"${arguments[@]}\"; printf '\\n>%s' "
                                  "\"${arguments[@]}\"")
                                  .arg(Dans("/programme"), memoire);
    QStringList lignes = Dit("camera.sh", commandes, arguments).split(QStringLiteral("\n>"));
    Decision decision{lignes.takeFirst(), lignes};
    decision.Arguments.removeAll(QString());
    return decision;
  }
  QStringList Recus() const {
    QFile fichier(Dans("/recus"));
    return fichier.open(QIODevice::ReadOnly) ? QString::fromUtf8(fichier.readAll()).split('\n', Qt::SkipEmptyParts)
                                             : QStringList();
  }
};

TEST_F(CameraDeLancement, WhereThereIsOneNothingIsAdded) {
  Programme("Camera: /dev/video2, Second.", 0);
  const Decision decision = Choisit({"/alarm", "/camera:a b"});
  EXPECT_EQ(decision.Dit, "Camera: /dev/video2, Second.\n");
  EXPECT_EQ(decision.Arguments, (QStringList{"/alarm", "/camera:a b"}));
  EXPECT_EQ(Recus(), (QStringList{"--cameras", "/alarm", "/camera:a b"})) << "the program is asked with all of them";
}

TEST_F(CameraDeLancement, WhereThereIsNoneTheBuiltInPictureIsAdded) {
  Programme("Camera: none is connected.", 3);
  const Decision decision = Choisit({"/alarm"});
  EXPECT_EQ(decision.Arguments, (QStringList{"/alarm", "/camera:test"}));
  EXPECT_TRUE(decision.Dit.startsWith("Camera: none is connected.\nAdding /camera:test")) << qPrintable(decision.Dit);
}

TEST_F(CameraDeLancement, AProgramThatCannotSayIsLeftToItsOwnChoice) {
  Programme("", 139);
  const Decision decision = Choisit({"/alarm"});
  EXPECT_EQ(decision.Arguments, QStringList{"/alarm"});
  EXPECT_TRUE(decision.Dit.contains("could not say"));
}

TEST_F(CameraDeLancement, ADemonstrationRemembersNothing) {
  Programme("Camera: none is connected.", 3);
  Choisit({"/dossier:/somewhere"}, "non");
  EXPECT_EQ(Recus().last(), "/dossier:/dev/null") << "of several the last counts";
}

}  // namespace
}  // namespace vaktor
