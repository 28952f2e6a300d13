// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that picks a format of the camera, out of those it really offers.
#pragma once

#include <QDialog>
#include <QList>
#include <optional>

#include "platform/capture/choice/camera_format.h"
#include "texts/language.h"

class QComboBox;
class QLabel;
class QListWidget;
class QVBoxLayout;

namespace vaktor {

class AccesPeripheriques;
class BandeauMessage;
class CommandesPilote;
class MemoireCapture;

/// Lives as long as it is shown; the four references outlive it.
class DialogueFormat : public QDialog {
  Q_OBJECT

 public:
  DialogueFormat(QWidget* parent, Langue langue, CommandesPilote& pilote, MemoireCapture& memoire,
                 const AccesPeripheriques& acces);

 private:
  void ConstruitChoix(QVBoxLayout& colonne);
  void ConstruitExplication(QVBoxLayout& colonne);
  void ConstruitBoutons(QVBoxLayout& colonne, bool avecChoix);
  void MontreFormatCourant();
  void RemplitCodages();
  void RemplitTailles();
  void RemplitCadences();
  void MontreRemarque();
  void ChoisitDansListes(const FormatCamera& format);
  std::optional<FormatCamera> FormatChoisi() const;
  bool Applique();
  void Valide();

  const Langue Langue_;
  CommandesPilote& Pilote_;
  MemoireCapture& Memoire_;
  const AccesPeripheriques& Acces_;
  QList<FormatCamera> Formats_;
  std::optional<FormatCamera> EnService_;  ///< the entry of Formats_ that is at work; empty: none of them
  QLabel* Courant_ = nullptr;
  QComboBox* Codages_ = nullptr;
  QListWidget* Tailles_ = nullptr;
  QComboBox* Cadences_ = nullptr;
  QLabel* Remarque_ = nullptr;
  BandeauMessage* Etat_ = nullptr;
};

}  // namespace vaktor
