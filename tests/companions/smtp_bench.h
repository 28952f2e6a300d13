// SPDX-License-Identifier: GPL-3.0-or-later
// The real form of the mail settings over fakes, worked with mouse and keys.
#pragma once

#include <gtest/gtest.h>

#include <QPointer>
#include <QTest>

#include "companions/forms/frm_smtp.h"
#include "fakes/fake_event_pump.h"
#include "fakes/fake_foreign_accounts.h"
#include "fakes/fake_message_boxes.h"
#include "fakes/fake_rehearsal.h"
#include "fakes/fake_saving.h"

namespace vaktor::essai {

struct BancSmtp : testing::Test {
  BancSmtp() {
    Reglages.SmtpServeur = QStringLiteral("smtp.b.org");
    Reglages.SmtpFrom = QStringLiteral("me@b.org");
    Reglages.SmtpPort = QStringLiteral("587");
    Reglages.SmtpUser = QStringLiteral("anna");
    Reglages.SmtpPass = QStringLiteral("s3cret");
    Reglages.MailDestination = QStringLiteral("you@c.org");
    Reglages.LangueCourante = 1;
  }
  /// As the program opens it. Exceptions go through.
  void Ouvre() {
    Textes.Remplit(LitLangue(Reglages.LangueCourante));
    Forme =
        std::make_unique<FrmSmtp>(PortsFrmSmtp{Reglages, Sauvegarde, Textes, Etat, Boites, Pompe, Comptes, Lus, Essai});
    QObject::connect(Forme.get(), &FrmSmtp::Dechargee, Forme.get(), [this] { ++Dechargements; });
    Forme->Charge();
    Forme->EcritMots();
    Forme->Montre();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Forme.get()));
  }
  template <typename T = QWidget>
  T* Trouve(const char* nom) {
    return Forme->findChild<T*>(QLatin1String(nom));
  }
  QString Lit(const char* nom) { return Trouve<QLineEdit>(nom)->text(); }
  /// Types over what stands in the field.
  void Tape(const char* nom, const QString& texte) {
    auto* champ = Trouve<QLineEdit>(nom);
    champ->setFocus();
    QTest::keyClick(champ, Qt::Key_A, Qt::ControlModifier);
    if (texte.isEmpty()) {
      QTest::keyClick(champ, Qt::Key_Delete);
    } else {
      QTest::keyClicks(champ, texte);
    }
  }
  void Clique(const char* nom) {
    auto* controle = Trouve(nom);
    QTest::mouseClick(controle, Qt::LeftButton, Qt::NoModifier, QPoint(controle->height() / 2, controle->height() / 2));
  }
  bool Coche(const char* nom) { return Trouve<QCheckBox>(nom)->isChecked(); }
  QColor Fond(const char* nom) { return Trouve(nom)->palette().color(QPalette::Base); }
  /// True when the form went.
  bool Ferme() {
    Forme->close();
    return !Forme->isVisible();
  }

  faux::Journal Journal;
  Parametres Reglages;
  faux::SauvegardeFausse Sauvegarde{Journal, Reglages};
  TablesTextes Textes;
  EtatApplication Etat;
  faux::BoitesFausses Boites;
  faux::PompeFausse Pompe{Journal};
  faux::LecteurComptesFaux Comptes;
  ComptesMail Lus;
  faux::EssaiFaux Essai;
  qint32 Dechargements = 0;
  std::unique_ptr<FrmSmtp> Forme;
};

}  // namespace vaktor::essai
