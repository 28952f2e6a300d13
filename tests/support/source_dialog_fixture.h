// The source dialog over two fake cameras, for the tests of its two halves.
#pragma once

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "fakes/fake_driver_commands.h"
#include "platform/capture/choice/address_mask.h"
#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/dialogs/source_dialog.h"

namespace vaktor {

class SourceTest : public testing::Test {
 protected:
  SourceTest() {
    Acces_.Peripheriques_ = {{"/dev/video0", "Camera A", "stable-a"}, {"/dev/video2", "Camera B", "stable-b"}};
  }
  void Ouvre(qint32 langue = 1) {
    Dialogue_ = std::make_unique<DialogueSource>(nullptr, langue, Pilote_, Memoire_, Acces_);
    Dialogue_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Dialogue_.get()));
  }
  template <class T>
  T* Controle(const QString& nom) const {
    return Dialogue_->findChild<T*>(nom);
  }
  void Clique(const QString& nom) const { QTest::mouseClick(Controle<QPushButton>(nom), Qt::LeftButton); }
  void CliqueSource(int rang) const {
    auto* liste = Controle<QListWidget>("ListeSources");
    QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, liste->visualItemRect(liste->item(rang)).center());
  }
  QStringList Lignes() const {
    QStringList textes;
    auto* liste = Controle<QListWidget>("ListeSources");
    for (int i = 0; i < liste->count(); ++i) textes.append(liste->item(i)->text());
    return textes;
  }
  QString Etat() const { return Controle<QLabel>("LblEtatSource")->text(); }
  QString ToutTexte() const {
    QString texte = Lignes().join("\n");
    for (const auto* etiquette : Dialogue_->findChildren<QLabel*>()) texte += etiquette->text();
    for (const auto* champ : Dialogue_->findChildren<QLineEdit*>()) texte += champ->text();
    return texte;
  }

  QTemporaryDir Dossier_;
  FauxPilote Pilote_;
  FauxPeripheriques Acces_;
  MemoireCapture Memoire_{Dossier_.filePath("capture.ini")};
  std::unique_ptr<DialogueSource> Dialogue_;
};

}  // namespace vaktor
