// SPDX-License-Identifier: GPL-3.0-or-later
// FrmEssaiFtp: the small window in which the settings of the live page are tried.
#pragma once

#include <QPushButton>
#include <QWidget>
#include <functional>

#include "companions/forms/rehearsal_panel.h"
#include "texts/language.h"

namespace vaktor {

/// All of it outlives the form.
struct PortsFrmEssaiFtp {
  EssaiReglages& Essai;
  std::function<QByteArray()> Demande;  ///< the request, at the moment of the trial
  std::function<QString()> Serveur;     ///< the address of the server as it stands in its field
};

/// Stands beside the main window, whose fields can be put right meanwhile; saves nothing. Owner: app/, from the first
/// opening on. User-interface thread; never waits.
class FrmEssaiFtp : public QWidget {
  Q_OBJECT

 public:
  explicit FrmEssaiFtp(PortsFrmEssaiFtp ports);

  /// The words of a language.
  void EcritMots(Langue langue);
  /// Comes to the front and starts a rehearsal; one that runs goes on.
  void Essaie();

 protected:
  /// A running rehearsal ends with it.
  void closeEvent(QCloseEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;

 private:
  PortsFrmEssaiFtp Ports_;
  PanneauEssai* Panneau_;
  QPushButton* CmdFermer_;
};

}  // namespace vaktor
