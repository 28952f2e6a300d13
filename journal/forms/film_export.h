// SPDX-License-Identifier: GPL-3.0-or-later
// "Save": asks where to, shows how far it is, tells what became of it.
#pragma once

#include <QPointer>
#include <QProgressDialog>
#include <QWidget>

#include "base/ports/message_boxes.h"
#include "base/ports/save_dialog.h"
#include "journal/chronicle.h"
#include "journal/ports/film_writer.h"
#include "texts/language.h"

namespace vaktor {

/// One film at a time. User-interface thread.
class SauvegardeFilm : public QObject {
  Q_OBJECT

 public:
  SauvegardeFilm(EcrivainFilm& films, DialogueSauvegarde& dialogue, BoitesMessage& boites)
      : Films_(films), Dialogue_(dialogue), Boites_(boites) {}
  /// A film under way is given up.
  ~SauvegardeFilm() override;
  SauvegardeFilm(const SauvegardeFilm&) = delete;
  SauvegardeFilm& operator=(const SauvegardeFilm&) = delete;

  bool EstEnCours() const { return EnCours_; }
  /// Without effect for an intrusion without photos, and while a film is being saved.
  void Enregistre(QWidget* fenetre, const IntrusionVue& vue, Langue langue);

 Q_SIGNALS:
  void Change();  ///< a film begins, or is over

 private:
  void Lance(QWidget* fenetre, const FilmVoulu& film, Langue langue);
  void Acheve(const FilmFait& fait, const QString& sortie, Langue langue);

  EcrivainFilm& Films_;
  DialogueSauvegarde& Dialogue_;
  BoitesMessage& Boites_;
  QPointer<QProgressDialog> Progres_;
  bool EnCours_ = false;
};

/// The film of an intrusion for this path: its ending tells the format, and one that tells none becomes Matroska's.
FilmVoulu ComposeFilm(const IntrusionVue& vue, const QString& sortie, bool saitMp4);

}  // namespace vaktor
