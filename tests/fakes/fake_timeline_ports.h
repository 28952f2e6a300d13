// SPDX-License-Identifier: GPL-3.0-or-later
// What the timeline asks of the outside: it comes when a test lets it come.
#pragma once

#include <utility>

#include "base/ports/save_dialog.h"
#include "journal/ports/chronicle_reader.h"
#include "journal/ports/film_writer.h"
#include "journal/ports/thumbnail_reader.h"

namespace vaktor::faux {

class LecteurChroniqueFaux : public LecteurChronique {
 public:
  void LitChronique(const QString& dossier, const QString& course, Recoit recoit) override {
    Dossier = dossier;
    Course = course;
    ++Lectures;
    Recoit_ = std::move(recoit);
  }
  void Oublie() override { Recoit_ = nullptr; }
  bool Attend() const { return Recoit_ != nullptr; }
  void Livre(const Chronique& chronique) {
    const Recoit recoit = std::exchange(Recoit_, nullptr);
    if (recoit) recoit(std::make_shared<Chronique>(chronique));
  }
  void Tarde() {
    const Recoit recoit = Recoit_;
    if (recoit) recoit(nullptr);
  }
  QString Dossier, Course;
  int Lectures = 0;

 private:
  Recoit Recoit_;
};

class LecteurVignettesFaux : public LecteurVignettes {
 public:
  void LitVignette(const QString& chemin, const QSize& taille, Recoit recoit) override {
    Demandees.append(chemin);
    Taille = taille;
    Recoit_ = std::move(recoit);
  }
  void Oublie() override { Recoit_ = nullptr; }
  bool Attend() const { return Recoit_ != nullptr; }
  void Livre(const Vignette& vignette) {
    const Recoit recoit = std::exchange(Recoit_, nullptr);
    if (recoit) recoit(vignette);
  }
  QStringList Demandees;
  QSize Taille;

 private:
  Recoit Recoit_;
};

class EcrivainFilmFaux : public EcrivainFilm {
 public:
  bool Sait(FormatFilm format) override { return format == FormatFilm::kMatroska || SaitMp4; }
  void Ecrit(const FilmVoulu& film, Avance avance, Fini fini) override {
    Films.append(film);
    Avance_ = std::move(avance);
    Fini_ = std::move(fini);
  }
  void Annule() override {
    ++Annulations;
    Finit({.Etat = EtatFilm::kAnnule});
  }
  bool EnCours() const { return Fini_ != nullptr; }
  void Avancement(int photos) {
    if (Avance_) Avance_(photos);
  }
  void Finit(const FilmFait& fait) {
    Avance_ = nullptr;
    const Fini fini = std::exchange(Fini_, nullptr);
    if (fini) fini(fait);
  }
  QList<FilmVoulu> Films;
  bool SaitMp4 = false;
  int Annulations = 0;

 private:
  Avance Avance_;
  Fini Fini_;
};

class DialogueSauvegardeFaux : public DialogueSauvegarde {
 public:
  QString ChoisitDestination(const QString& nom, const QStringList& filtres) override {
    Noms.append(nom);
    Filtres = filtres;
    return Reponse;
  }
  QStringList Noms, Filtres;
  QString Reponse;
};

}  // namespace vaktor::faux
