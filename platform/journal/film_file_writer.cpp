// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/journal/film_file_writer.h"

#include <chrono>
#include <utility>

#include "platform/journal/film_pipeline.h"

namespace vaktor {

// A film takes as long as it takes: its bar shows whether it goes on, and it can be given up.
EcrivainFilmSysteme::EcrivainFilmSysteme()
    : Question_(std::chrono::hours(24), {.Etat = EtatFilm::kSansMoyens}, {.Etat = EtatFilm::kSansMoyens}) {}

bool EcrivainFilmSysteme::Sait(FormatFilm format) { return SaitFilm(format); }

void EcrivainFilmSysteme::Ecrit(const FilmVoulu& film, Avance avance, Fini fini) {
  const quint64 numero = ++Numero_;
  SurAvance_ = std::move(avance);
  SurFini_ = std::move(fini);
  const auto dit = [this, relais = Relais_, numero](int photos) {
    // Run only while the relay, and so this object, is there.
    relais->Poste([this, numero, photos] { NoteAvance(numero, photos); });
  };
  Question_.Pose(
      [film, dit](const std::atomic<bool>& abandon) {
        int derniere = 0;
        return FaitFilm(film, abandon, [&](int photos) {
          // A hundred times in all: the window has other things to do.
          const int part = static_cast<int>(photos * 100LL / film.Chemins.size());
          if (std::exchange(derniere, part) != part) dit(photos);
        });
      },
      [this](const FilmFait& fait) {
        SurAvance_ = nullptr;
        const Fini suite = std::exchange(SurFini_, nullptr);
        if (suite) suite(fait);
      });
}

void EcrivainFilmSysteme::Annule() {
  if (!SurFini_) return;
  ++Numero_;
  Question_.Oublie();
  SurAvance_ = nullptr;
  Relais_->Poste([suite = std::exchange(SurFini_, nullptr)] { suite({.Etat = EtatFilm::kAnnule}); });
}

void EcrivainFilmSysteme::NoteAvance(quint64 numero, int photos) {
  if (numero == Numero_ && SurAvance_) SurAvance_(photos);
}

}  // namespace vaktor
