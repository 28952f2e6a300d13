// SPDX-License-Identifier: GPL-3.0-or-later
// One of the capture driver's dialogs on fakes, worked with the mouse.
#pragma once

#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "fakes/fake_driver_commands.h"
#include "platform/capture/choice/capture_memory.h"
#include "texts/language.h"

namespace vaktor {

template <class Dialogue>
class DialoguePiloteTest : public testing::Test {
 protected:
  void Ouvre(Langue langue = Langue::kAnglais) {
    Dialogue_ = std::make_unique<Dialogue>(nullptr, langue, Pilote_, Memoire_, Acces_);
    Dialogue_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Dialogue_.get()));
  }
  template <class T>
  T* Controle(const QString& nom) const {
    return Dialogue_->template findChild<T*>(nom);
  }
  void Clique(const QString& nom) const { QTest::mouseClick(Controle<QPushButton>(nom), Qt::LeftButton); }
  void CliqueLigne(const QString& nomListe, int rang) const {
    auto* liste = Controle<QListWidget>(nomListe);
    QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, liste->visualItemRect(liste->item(rang)).center());
  }
  QStringList LitLignes(const QString& nomListe) const {
    QStringList textes;
    auto* liste = Controle<QListWidget>(nomListe);
    for (int i = 0; i < liste->count(); ++i) textes.append(liste->item(i)->text());
    return textes;
  }

  QTemporaryDir Dossier_;
  FauxPilote Pilote_;
  FauxPeripheriques Acces_;
  MemoireCapture Memoire_{Dossier_.filePath("capture.ini")};
  std::unique_ptr<Dialogue> Dialogue_;
};

}  // namespace vaktor
