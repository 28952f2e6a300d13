// SPDX-License-Identifier: GPL-3.0-or-later
// Dir1: the folders below one place, as a tree that is read only where it is opened.
#pragma once

#include <QCollator>
#include <QIcon>
#include <QSet>
#include <QTreeWidget>

#include "image/ports/folder_tree.h"

namespace vaktor {

/// The current line is the chosen folder. Nothing is read before a folder is opened, and then in the background: a
/// folder whose disk does not answer stays closed and holds up nothing. User-interface thread.
class VueDossiers : public QTreeWidget {
  Q_OBJECT

 public:
  VueDossiers(ArbreDossiers& arbre, QWidget* parent);

  /// Shows the tree of `racine` opened down to `chemin`, which is `racine` itself or lies below it, and reads those
  /// folders again. Emits nothing.
  void MontreChemin(const QString& racine, const QString& chemin);
  /// The chosen folder; empty before the first MontreChemin.
  QString Chemin() const;

 Q_SIGNALS:
  void DossierChange(const QString& chemin);  ///< the user chose another folder

 protected:
  void resizeEvent(QResizeEvent* evenement) override;

 private:
  void LitEnfants(QTreeWidgetItem* dossier);
  void RecoitEnfants(const QString& chemin, const ArbreDossiers::Contenu& contenu);
  static void DitIllisible(QTreeWidgetItem* dossier, EtatDossier etat);
  QTreeWidgetItem* TrouveDossier(const QString& chemin) const;
  QTreeWidgetItem* CreeLigne(const QString& nom, const QString& chemin) const;
  QTreeWidgetItem* AssureEnfant(QTreeWidgetItem* dossier, const QString& nom) const;
  bool PrecedeParNom(const QString& a, const QString& b) const;
  void TrieParNom(QStringList& noms) const;
  void RetireAbsents(QTreeWidgetItem* dossier, const QStringList& noms);
  void AjouteNouveaux(QTreeWidgetItem* dossier, const QStringList& noms);

  ArbreDossiers& Arbre_;
  const QIcon Icone_;  // made once: a style takes milliseconds to find it
  QCollator Ordre_;
  QSet<QString> EnLecture_;  // folders that are being read
};

}  // namespace vaktor
