// SPDX-License-Identifier: GPL-3.0-or-later
// Repertoire: the small window in which the folder of the photos is picked or made.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <memory>

#include "image/folder_choice.h"
#include "image/forms/folder_tree_view.h"

namespace vaktor {

/// Drive1: the places, read anew each time the list is opened, so that a volume plugged in meanwhile is there.
class ListeLieuxDisque : public QComboBox {
  Q_OBJECT

 public:
  ListeLieuxDisque(const ChoixDossier& choix, QWidget* parent);
  /// Reads the places and shows the one that the rules stand on.
  void Relit();
  void showPopup() override;

 private:
  const ChoixDossier& Choix_;
};

/// Loaded at each showing, unloaded at each closing. Not modal. All its words stay French. User-interface thread.
class Repertoire : public QWidget {
  Q_OBJECT

 public:
  /// Runs the load step of `choix`, which outlives the form.
  Repertoire(ChoixDossier& choix, ArbreDossiers& arbre);
  /// Shows in Drive1 and Dir1 what the rules stand on.
  void SuitChoix();

 Q_SIGNALS:
  void Ferme();  ///< it is to be unloaded

 protected:
  void closeEvent(QCloseEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;

 private:
  void CreeControles(ArbreDossiers& arbre);
  void PlaceControles();
  void BrancheControles();

  ChoixDossier& Choix_;
  ListeLieuxDisque* Drive1_ = nullptr;
  VueDossiers* Dir1_ = nullptr;
  QLineEdit* TxtPathPhot_ = nullptr;
  QPushButton* Command2_ = nullptr;
  QPushButton* Command1_ = nullptr;
};

/// Owner of the form. User-interface thread.
class VueRepertoire {
 public:
  VueRepertoire(ChoixDossier& choix, ArbreDossiers& arbre) : Choix_(choix), Arbre_(arbre) {}
  ~VueRepertoire();
  VueRepertoire(const VueRepertoire&) = delete;
  VueRepertoire& operator=(const VueRepertoire&) = delete;

  /// Loads the form and shows it; brings it to the front where it is shown already.
  void Montre();
  void Decharge();                                    ///< end of the program: nothing loads it again
  Repertoire* Forme() const { return Forme_.get(); }  ///< null while it is not loaded

 private:
  void Oublie();

  struct Differe {
    void operator()(Repertoire* forme) const;
  };
  ChoixDossier& Choix_;
  ArbreDossiers& Arbre_;
  std::unique_ptr<Repertoire, Differe> Forme_;
  bool Dechargee_ = false;
};

}  // namespace vaktor
