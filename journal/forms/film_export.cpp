// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/forms/film_export.h"

#include "journal/film_pace.h"
#include "journal/timeline_words.h"

namespace vaktor {

FilmVoulu ComposeFilm(const IntrusionVue& vue, const QString& sortie, bool saitMp4) {
  FilmVoulu film{.Chemins = {}, .Instants = PlaceFilm(vue.Photos), .Sortie = sortie};
  for (const QString& photo : vue.Photos) film.Chemins.append(vue.Dossier + u'\\' + photo);
  const bool mp4 = sortie.endsWith(QStringLiteral(".mp4"), Qt::CaseInsensitive);
  if (mp4 && saitMp4)
    film.Format = FormatFilm::kMp4;
  else if (!sortie.endsWith(QStringLiteral(".mkv"), Qt::CaseInsensitive))
    film.Sortie += QStringLiteral(".mkv");
  return film;
}

SauvegardeFilm::~SauvegardeFilm() {
  disconnect();  // who listens may be going too
  if (EnCours_) Films_.Annule();
  delete Progres_.data();
}

void SauvegardeFilm::Enregistre(QWidget* fenetre, const IntrusionVue& vue, Langue langue) {
  if (EnCours_ || vue.Photos.isEmpty()) return;
  const bool mp4 = Films_.Sait(FormatFilm::kMp4);
  QStringList filtres{FiltreFilm(FormatFilm::kMatroska, langue)};
  if (mp4) filtres += FiltreFilm(FormatFilm::kMp4, langue);
  const QString sortie = Dialogue_.ChoisitDestination(NomFilm(vue) + QStringLiteral(".mkv"), filtres);
  if (!sortie.isEmpty()) Lance(fenetre, ComposeFilm(vue, sortie, mp4), langue);
}

void SauvegardeFilm::Lance(QWidget* fenetre, const FilmVoulu& film, Langue langue) {
  EnCours_ = true;
  Q_EMIT Change();
  Progres_ = new QProgressDialog(MotFilmEnCours(langue), MotAnnuler(langue), 0, static_cast<int>(film.Chemins.size()),
                                 fenetre);
  Progres_->setObjectName(QStringLiteral("FrmFilm"));
  Progres_->setWindowTitle(MotFilmEnCours(langue));
  Progres_->setWindowModality(Qt::WindowModal);
  Progres_->setMinimumDuration(0);
  Progres_->setAutoClose(false);
  Progres_->setAutoReset(false);
  Progres_->setValue(0);
  connect(Progres_, &QProgressDialog::canceled, this, [this] { Films_.Annule(); });
  // The end of a film that is given up comes from the event loop, when this object may be gone.
  const QPointer<SauvegardeFilm> ici = this;
  Films_.Ecrit(
      film,
      [ici](int photos) {
        if (ici && ici->Progres_) ici->Progres_->setValue(photos);
      },
      [ici, sortie = film.Sortie, langue](const FilmFait& fait) {
        if (ici) ici->Acheve(fait, sortie, langue);
      });
}

void SauvegardeFilm::Acheve(const FilmFait& fait, const QString& sortie, Langue langue) {
  EnCours_ = false;
  if (Progres_) {
    Progres_->disconnect(this);
    Progres_->deleteLater();
  }
  Q_EMIT Change();
  const QString dit = DitFilm(fait, sortie, langue);
  if (!dit.isEmpty()) Boites_.MontreMessage(dit, TitreFrise(langue), BoutonsBoite::kOk);
}

}  // namespace vaktor
