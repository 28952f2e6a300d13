// SPDX-License-Identifier: GPL-3.0-or-later
// The journal of the watch: who tells it what, and the window that shows it.
#include <QScreen>
#include <QShortcut>

#include "app/application.h"
#include "engine/ports/moment.h"
#include "ui/window/window_placement.h"

namespace vaktor {

// It begins with the health, before which nothing acts: the words of a start that fails are told elsewhere.
void Vaktor::CreeJournal() {
  Journal_ = std::make_unique<JournalVeille>(
      PortsJournal{Systeme_.Temps, Minuteries_, Systeme_.Journal, Systeme_.Course,
                   [this] { return Moteur_->Alarme().AlarmeArmee; }, [this] { return Liaison_.SurveillanceEnCours; }});
}

// The photo of a frame, and that it acts, are of one frame.
void Vaktor::NoteImageAgissante() {
  const EtatDetection& detection = Moteur_->Detection();
  if (!Journal_ || ImageNotee_ == detection.Comparees) return;
  ImageNotee_ = detection.Comparees;
  const auto& cadre = detection.Mouv;
  Journal_->NoteImage(detection.NbrPoints, QRect(QPoint(cadre.MinX, cadre.MinY), QPoint(cadre.MaxX, cadre.MaxY)),
                      Moteur_->Surface().Taille());
}

// Behind its frame, whose movement it shows.
void Vaktor::NotePhotoAgissante(const QString& fichier) {
  NoteImageAgissante();
  // The folder in its stored form, as the gallery has it: the path that comes here has it no more.
  if (Journal_) Journal_->NotePhoto(Reglages_.RepertoirePhoto, fichier.mid(fichier.lastIndexOf(u'/') + 1));
}

// What mails are made of where the user keeps no photos.
void Vaktor::NoteCopieAgissante(const QString& fichier) {
  NoteImageAgissante();
  if (Journal_) Journal_->NoteCopie(fichier.mid(fichier.lastIndexOf(u'/') + 1));
}

// The key is the same in the main window and in the gallery, whose button tells it.
void Vaktor::BrancheFrise() {
  FormVisuPhoto_->SurFrise([this] { OuvreFrise(); });
  for (QWidget* fenetre : {static_cast<QWidget*>(Form1_.get()), static_cast<QWidget*>(FormVisuPhoto_.get())}) {
    auto* touche = new QShortcut(QKeySequence(Qt::Key_F4), fenetre);
    QObject::connect(touche, &QShortcut::activated, fenetre, [this] { OuvreFrise(); });
  }
}

void Vaktor::OuvreFrise() {
  if (Etat_.EnFermeture) return;
  if (!Frise_) {
    CreeFrise();
    const QRect ecran = Form1_->screen()->availableGeometry();
    Frise_->resize(Frise_->size().boundedTo(ecran.size()));
    Frise_->move(PlaceCentree(ecran, Frise_->size()));
  }
  Frise_->Ouvre();
}

void Vaktor::CreeFrise() {
  Frise_ = std::make_unique<FrmFrise>(ServicesFrise{
      Systeme_.Chroniques, Systeme_.Vignettes, Systeme_.PhotosDuFilm, Systeme_.Films, Systeme_.ChoixFilm,
      Systeme_.Boites, Reglages_, Systeme_.Course,
      [this](const QString& dossier, const QStringList& noms, const QString& question, std::function<void()> fini) {
        Galerie_->SupprimeDes(dossier, noms, question, std::move(fini));
      },
      [this] { return Systeme_.Journal.Erreur(); }, [this] { return LitMoment(Systeme_.Temps).date(); }});
  Journal_->SurChangement([this] { Frise_->NoteChangement(); });
  // Behind the field, which stores the number first.
  QObject::connect(
      Form1_->Options().CombSkin, &QComboBox::currentIndexChanged, Frise_.get(), [this] { Frise_->Habille(); },
      Qt::QueuedConnection);
}

void Vaktor::DechargeFrise() {
  if (Journal_) Journal_->SurChangement({});
  Frise_.reset();
}

}  // namespace vaktor
