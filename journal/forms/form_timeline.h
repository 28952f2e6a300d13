// SPDX-License-Identifier: GPL-3.0-or-later
// FrmFrise: the day at a glance.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QWidget>
#include <functional>
#include <memory>

#include "base/ports/message_boxes.h"
#include "base/ports/save_dialog.h"
#include "journal/forms/card_list.h"
#include "journal/forms/day_strip.h"
#include "journal/forms/film_export.h"
#include "journal/forms/form_player.h"
#include "journal/forms/timeline_window.h"
#include "journal/ports/chronicle_reader.h"
#include "journal/ports/film_writer.h"
#include "journal/ports/thumbnail_reader.h"
#include "settings/parameters.h"

namespace vaktor {

/// All references outlive the window.
struct ServicesFrise {
  LecteurChronique& Chroniques;
  LecteurVignettes& Vignettes;
  LecteurPhotos& Photos;  ///< of the player, and of nobody else
  EcrivainFilm& Films;
  DialogueSauvegarde& Dialogue;
  BoitesMessage& Boites;
  const Parametres& Reglages;
  QString Course;  ///< of the run
  /// Deletes the photos of a folder after one question, in the gallery's own way, and calls `fini`; also when the user
  /// says no.
  std::function<void(const QString& dossier, const QStringList& noms, const QString& question,
                     std::function<void()> fini)>
      Supprime;
  std::function<int()> ErreurJournal;  ///< the system's error number while lines are lost; 0: none
  std::function<QDate()> Aujourdhui;
};

/// Owner: app/, from its first opening on; closing hides it. The journal is read anew at each opening, a moment after
/// it has changed, and after a deletion. User-interface thread.
class FrmFrise : public FenetreFrise {
  Q_OBJECT

 public:
  explicit FrmFrise(ServicesFrise services);
  ~FrmFrise() override;
  FrmFrise(const FrmFrise&) = delete;
  FrmFrise& operator=(const FrmFrise&) = delete;

  /// Comes to the front, on the day that was shown last, or on the newest of which anything is known.
  void Ouvre();
  /// The journal has a new line: it is read again soon, if the window is open.
  void NoteChangement();
  /// Another language or another skin.
  void Habille();
  const QDate& Jour() const { return Jour_; }
  FrmLecture* Lecteur() { return Lecteur_.get(); }  ///< null before its first opening

 protected:
  void keyPressEvent(QKeyEvent* evenement) override;
  void Repose() override;

 private:
  QToolButton* CreeFleche(const char* nom, Qt::ArrowType sens);
  void Dispose();
  void Branche();
  void Relit();
  void Recoit(std::shared_ptr<const Chronique> chronique);
  void MontreJour(const QDate& jour);
  void Choisit(qsizetype intrusion);
  static void Permet(QAbstractButton& bouton, const QString& raison);
  void EcritBoutons();
  const IntrusionVue* Choisie() const;
  void Regarde();
  void Enregistre();
  void Supprime();
  Langue DonneLangue() const { return LangueParlee(Services_.Reglages.LangueCourante); }

  ServicesFrise Services_;
  std::shared_ptr<const Chronique> Chronique_;
  QDate Jour_;
  bool Suppression_ = false;
  QTimer Relecture_;
  QLabel* LblJour_;
  QLabel* LblJournee_;
  QToolButton* CmdAvant_;
  QToolButton* CmdApres_;
  QPushButton* CmdAujourdhui_;
  BandeFrise* Bande_;
  ListeCartes* Cartes_;
  QLabel* LblEtat_;
  QPushButton* CmdRegarder_;
  QPushButton* CmdEnregistrer_;
  QPushButton* CmdSupprimer_;
  QPushButton* CmdFermer_;
  std::unique_ptr<SauvegardeFilm> Sauvegarde_;
  std::unique_ptr<FrmLecture> Lecteur_;
};

}  // namespace vaktor
