// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that picks where the pictures come from and sets the camera's own controls.
#pragma once

#include <QDialog>
#include <memory>

#include "platform/capture/choice/capture_reason.h"
#include "texts/language.h"

class QLineEdit;
class QListWidget;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace vaktor {

class AccesPeripheriques;
class BandeauMessage;
class CommandesPilote;
class MemoireCapture;
class PanneauReglages;

/// Lives as long as it is shown; the references outlive it.
class DialogueSource : public QDialog {
  Q_OBJECT

 public:
  DialogueSource(QWidget* parent, Langue langue, CommandesPilote& pilote, MemoireCapture& memoire,
                 AccesPeripheriques& acces);

  /// No source is at work: `description` was asked for and gives nothing. The user may choose another, which ends the
  /// dialog, or close it.
  void DemandeAutreSource(const QString& description, const Raison& raison);
  /// While a source is being tried the trial ends first, and what was at work before goes on.
  void done(int resultat) override;

 private:
  void ConstruitSource(QVBoxLayout& colonne);
  void ConstruitAdresse(QVBoxLayout& colonne);
  void ConstruitReglages(QVBoxLayout& colonne);
  void ConstruitPied(QVBoxLayout& colonne);
  QPushButton* FaitBouton(int texte, const char* nom);
  void RemplitSources();
  void AjouteSource(const QString& nom, const QString& texte, const QString& source, bool enService);
  /// A line that tells something and cannot be picked.
  void AjouteRemarque(const QString& texte);
  void MontreReglages();
  QString TexteSansReglages() const;
  void SuitChoix();
  void Parcourt();
  /// What was typed as the driver wants it: whole paths, a device by its stable name.
  QString CompleteSaisie(const QString& saisie) const;
  /// What the user picked; empty, with a message shown, where nothing can be done with it.
  QString SourceChoisie();
  void Utilise();
  bool Essaie(const QString& source);
  void DitRefus(const QString& nom);
  void SuitBranchements();
  void RemetDefauts();
  void ChangeEntree(quint32 numero, qint32 valeur);

  const Langue Langue_;
  CommandesPilote& Pilote_;
  MemoireCapture& Memoire_;
  AccesPeripheriques& Acces_;
  QListWidget* Sources_ = nullptr;
  QLineEdit* Adresse_ = nullptr;
  QPushButton* Parcourir_ = nullptr;
  QPushButton* Utiliser_ = nullptr;
  QPushButton* Defauts_ = nullptr;
  QScrollArea* Cadre_ = nullptr;
  PanneauReglages* Panneau_ = nullptr;  ///< owned by Cadre_; null where the source has no controls
  BandeauMessage* Etat_ = nullptr;
  std::unique_ptr<QObject> Branchements_;
  bool EnConnexion_ = false;  ///< nothing is at work
  bool EnEssai_ = false;      ///< a source is being tried
  bool Fermee_ = false;       ///< closed meanwhile
  bool Remplit_ = false;      ///< the devices are being asked, and events come in
};

}  // namespace vaktor
