// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "platform/widgets/qt_message_boxes.h"

namespace vaktor {
namespace {

class MessageBoxes : public testing::Test {
 protected:
  /// Shows a box and works on it once it is up.
  static ReponseBoite Montre(BoutonsBoite boutons, const std::function<void(QMessageBox*)>& travail,
                             const QString& texte = QStringLiteral("Espace disque < 500 Mo. "),
                             Langue langue = Langue::kFrancais) {
    bool vue = false;
    QTimer::singleShot(0, qApp, [&] {
      auto* boite = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      vue = boite != nullptr && boite->objectName() == QStringLiteral("BoiteMessage");
      if (vue) travail(boite);
    });
    BoitesMessageQt boites;
    boites.SuitLangue([langue] { return langue; });
    const ReponseBoite reponse = boites.MontreMessage(texte, QStringLiteral("Attention"), boutons);
    EXPECT_TRUE(vue);
    return reponse;
  }
  static std::function<void(QMessageBox*)> Clique(QMessageBox::StandardButton bouton) {
    return [bouton](QMessageBox* boite) { QTest::mouseClick(boite->button(bouton), Qt::LeftButton); };
  }
  static void Echappe(QMessageBox* boite) { QTest::keyClick(boite, Qt::Key_Escape); }
  static void Ferme(QMessageBox* boite) { boite->close(); }
  static void Entre(QMessageBox* boite) { QTest::keyClick(boite, Qt::Key_Return); }
};

TEST_F(MessageBoxes, ShowsTheWordsAsTheyStandWithTheInformationIcon) {
  Montre(BoutonsBoite::kOk, [](QMessageBox* boite) {
    EXPECT_EQ(boite->text(), QStringLiteral("Espace disque < 500 Mo. "));
    EXPECT_EQ(boite->textFormat(), Qt::PlainText);
    EXPECT_EQ(boite->windowTitle(), QStringLiteral("Attention"));
    EXPECT_EQ(boite->icon(), QMessageBox::Information);
    EXPECT_EQ(boite->buttons().size(), 1);
    boite->close();
  });
}

TEST_F(MessageBoxes, ButtonsSpeakTheLanguageOfTheProgram) {
  const auto mot = [](QMessageBox::StandardButton bouton, const QString& attendu) {
    return [=](QMessageBox* boite) {
      EXPECT_EQ(boite->button(bouton)->text().remove(u'&'), attendu);
      boite->close();
    };
  };
  const QString texte = QStringLiteral("?");
  Montre(BoutonsBoite::kOuiNon, mot(QMessageBox::Yes, QStringLiteral("Oui")), texte, Langue::kFrancais);
  Montre(BoutonsBoite::kOuiNon, mot(QMessageBox::No, QStringLiteral("Non")), texte, Langue::kFrancais);
  Montre(BoutonsBoite::kOkAnnuler, mot(QMessageBox::Cancel, QStringLiteral("Annuler")), texte, Langue::kFrancais);
  Montre(BoutonsBoite::kOuiNon, mot(QMessageBox::Yes, QStringLiteral("Yes")), texte, Langue::kAnglais);
  Montre(BoutonsBoite::kOuiNon, mot(QMessageBox::No, QStringLiteral("No")), texte, Langue::kAnglais);
  Montre(BoutonsBoite::kOkAnnuler, mot(QMessageBox::Cancel, QStringLiteral("Cancel")), texte, Langue::kAnglais);
}

TEST_F(MessageBoxes, AnswersWithTheButtonPressed) {
  EXPECT_EQ(Montre(BoutonsBoite::kOk, Clique(QMessageBox::Ok)), ReponseBoite::kOk);
  EXPECT_EQ(Montre(BoutonsBoite::kOkAnnuler, Clique(QMessageBox::Ok)), ReponseBoite::kOk);
  EXPECT_EQ(Montre(BoutonsBoite::kOkAnnuler, Clique(QMessageBox::Cancel)), ReponseBoite::kAnnuler);
  EXPECT_EQ(Montre(BoutonsBoite::kOuiNon, Clique(QMessageBox::Yes)), ReponseBoite::kOui);
  EXPECT_EQ(Montre(BoutonsBoite::kOuiNon, Clique(QMessageBox::No)), ReponseBoite::kNon);
}

TEST_F(MessageBoxes, ClosingWithoutAnAnswerIsNoAnswer) {
  EXPECT_EQ(Montre(BoutonsBoite::kOk, Ferme), ReponseBoite::kOk);
  EXPECT_EQ(Montre(BoutonsBoite::kOkAnnuler, Ferme), ReponseBoite::kAnnuler);
  EXPECT_EQ(Montre(BoutonsBoite::kOuiNon, Ferme), ReponseBoite::kAnnuler);
  EXPECT_EQ(Montre(BoutonsBoite::kOk, Echappe), ReponseBoite::kOk);
  EXPECT_EQ(Montre(BoutonsBoite::kOkAnnuler, Echappe), ReponseBoite::kAnnuler);
  EXPECT_EQ(Montre(BoutonsBoite::kOuiNon, Echappe), ReponseBoite::kAnnuler);
}

TEST_F(MessageBoxes, TheFirstButtonIsTheDefault) {
  EXPECT_EQ(Montre(BoutonsBoite::kOkAnnuler, Entre), ReponseBoite::kOk);
  EXPECT_EQ(Montre(BoutonsBoite::kOuiNon, Entre), ReponseBoite::kOui);
}

TEST_F(MessageBoxes, TimersGoOnWhileABoxIsOpen) {
  int tics = 0;
  QTimer minuterie;
  QObject::connect(&minuterie, &QTimer::timeout, &minuterie, [&tics] {
    if (++tics == 3) QApplication::activeModalWidget()->close();
  });
  minuterie.start(1);
  Montre(BoutonsBoite::kOk, [](QMessageBox*) {});
  EXPECT_GE(tics, 3);
}

}  // namespace
}  // namespace vaktor
