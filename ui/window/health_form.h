// SPDX-License-Identifier: GPL-3.0-or-later
// FrmSante: the list of what is wrong with the watch.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "health/watch_health.h"
#include "texts/language.h"

namespace vaktor {

/// One condition: its sign, how bad, what, since when, what to do. Tab comes to it, and it is read out as a whole.
class LigneSante : public QFrame {
  Q_OBJECT

 public:
  LigneSante(QWidget* parent, Condition quoi);
  void Ecrit(const ConditionEnCours& condition, Langue langue);

 protected:
  void paintEvent(QPaintEvent* evenement) override;

 private:
  QLabel* Image_;
  QLabel* Titre_;
  QLabel* Quoi_;
  QLabel* Depuis_;
  QLabel* Faire_;
};

/// A small window of its own beside the main one. Follows what it is told at once, opened or not. Owner: VueSante, from
/// its first opening on. User-interface thread.
class FrmSante : public QWidget {
  Q_OBJECT

 public:
  FrmSante();
  /// The worst first; empty says that there is nothing.
  void MontreListe(const QList<ConditionEnCours>& liste, Langue langue);
  /// Comes to the front, as high as its list needs and the screen has room; when it is open already it only comes. A
  /// list that grows while it is open makes it higher, none makes it lower.
  void Ouvre();

 Q_SIGNALS:
  void Fermee();

 protected:
  void closeEvent(QCloseEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;

 private:
  int HauteurVoulue() const;
  void Grandit();
  void RetireLignes(const QList<ConditionEnCours>& liste);

  QScrollArea* Defilement_;
  QWidget* Contenu_;
  QVBoxLayout* Colonne_;
  QLabel* LblRien_;
  QPushButton* CmdFermer_;
  QMap<Condition, LigneSante*> Lignes_;
};

}  // namespace vaktor
