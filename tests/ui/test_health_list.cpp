// SPDX-License-Identifier: GPL-3.0-or-later
// The list of what is wrong with the watch, as it is told.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDateTime>
#include <algorithm>

#include "ui/window/health_form.h"

namespace vaktor {
namespace {

QStringList DeHautEnBas(const FrmSante& forme) {
  QList<LigneSante*> lignes = forme.findChildren<LigneSante*>();
  std::sort(lignes.begin(), lignes.end(), [](const QWidget* a, const QWidget* b) { return a->y() < b->y(); });
  QStringList noms;
  for (const LigneSante* ligne : lignes) noms.append(ligne->objectName().mid(11).chopped(1));
  return noms;
}

TEST(HealthList, StandsInTheOrderThatItIsToldAlsoWhereEntriesChangeTheirPlaces) {
  const QDateTime quand(QDate(2020, 1, 2), QTime(9, 5));
  const ConditionEnCours photos{Condition::kPhotosImpossibles, quand, {}, 0};
  const ConditionEnCours limite{Condition::kLimitePhotos, quand, {}, 0};
  const ConditionEnCours place{Condition::kPeuDePlace, quand, {}, 0};
  FrmSante forme;
  forme.Ouvre();
  for (const QList<ConditionEnCours>& liste : {QList{photos, limite, place}, QList{limite, place, photos},
                                               QList{place, photos}, QList{photos, limite, place}}) {
    forme.MontreListe(liste, Langue::kAnglais);
    QCoreApplication::processEvents();
    QStringList voulus;
    for (const ConditionEnCours& condition : liste) voulus.append(MotCondition(condition.Quoi));
    EXPECT_EQ(DeHautEnBas(forme), voulus) << voulus.join(u' ').toStdString();
  }
}

}  // namespace
}  // namespace vaktor
