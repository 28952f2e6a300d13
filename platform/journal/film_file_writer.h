// SPDX-License-Identifier: GPL-3.0-or-later
// Films on the real machine, made on a thread.
#pragma once

#include <memory>

#include "journal/ports/film_writer.h"
#include "platform/folders/event_loop_relay.h"
#include "platform/folders/patient_question.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class EcrivainFilmSysteme : public EcrivainFilm {
 public:
  EcrivainFilmSysteme();
  ~EcrivainFilmSysteme() override { Relais_->Coupe(); }
  EcrivainFilmSysteme(const EcrivainFilmSysteme&) = delete;
  EcrivainFilmSysteme& operator=(const EcrivainFilmSysteme&) = delete;

  bool Sait(FormatFilm format) override;
  void Ecrit(const FilmVoulu& film, Avance avance, Fini fini) override;
  void Annule() override;

 private:
  void NoteAvance(quint64 numero, int photos);

  QuestionPatiente<FilmFait> Question_;
  std::shared_ptr<RelaisBoucle> Relais_ = std::make_shared<RelaisBoucle>();
  quint64 Numero_ = 0;  // of the film under way
  Avance SurAvance_;
  Fini SurFini_;
};

}  // namespace vaktor
