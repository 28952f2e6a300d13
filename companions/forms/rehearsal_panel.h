// SPDX-License-Identifier: GPL-3.0-or-later
// The rehearsal of settings in a form: a button, the steps as they happen, and in one sentence how it ended.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <functional>

#include "companions/ports/rehearsal.h"
#include "companions/rehearsal_words.h"

namespace vaktor {

/// Owner: FrmSmtp, FrmEssaiFtp. User-interface thread; never waits.
class PanneauEssai : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kEtapesMax = 200;        ///< lines of the list; the oldest go
  static constexpr qsizetype kLigneMax = 1000;  ///< characters of a line

  /// `demande` gives the request at the moment of the click.
  PanneauEssai(QWidget* parent, EssaiReglages& essai, std::function<QByteArray()> demande);
  ~PanneauEssai() override;

  /// `autre`: of what EssaieAutre tries.
  void EcritMots(const MotsEssai& mots, const MotsEssai& autre, const QString& invite);
  /// What the next one will do. A rehearsal that runs, and how the last one ended, stay shown.
  void MontreInvite(const QString& invite);
  /// Starts one, as the button does; one that runs goes on.
  void Essaie();
  /// Tries something that has no button here; what runs is given up for it.
  void EssaieAutre(const QByteArray& demande);
  /// Ends a running rehearsal without a word.
  void Arrete();
  bool EnCours() const { return EnCours_; }

 private:
  void Bascule();
  void Lance(const QByteArray& demande);
  const MotsEssai& MotsDites() const { return Autre_ ? MotsAutre_ : Mots_; }
  void AjouteEtape(const QString& ligne);
  void Acheve(FinEssai fin);
  void MontreFin(const QString& phrase, bool reussi);
  void MontreEchec(QString MotsEssai::*mot);
  void RafraichitBouton();

  EssaiReglages& Essai_;
  std::function<QByteArray()> Demande_;
  MotsEssai Mots_, MotsAutre_;
  bool Autre_ = false;  // the last one was EssaieAutre's
  bool EnCours_ = false;
  bool FinMontree_ = false;
  QString MotsEssai::*MotFin_ = nullptr;  // the end that is shown, where it is in our words and not in the companion's
  QString Derniere_;                      // the newest line as it came: at the end it is the verdict
  QPushButton* CmdEssai_;
  QLabel* LblEssai_;
  QPlainTextEdit* TxtEssai_;
};

}  // namespace vaktor
