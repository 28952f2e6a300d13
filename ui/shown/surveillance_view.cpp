// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/shown/surveillance_view.h"

#include "texts/phrase.h"
#include "ui/controls/control_factory.h"
#include "ui/shown/own_words.h"

namespace vaktor {

namespace {
constexpr QRgb kRougeIntrusion = qRgb(255, 0, 0);
constexpr Phrase kIntrusion{"Intrusion", "Intrusion"};
constexpr Phrase kSecondes{" sec", " sec"};
}  // namespace

void VueSurveillance::MontreLibelleAlarme(LibelleAlarme libelle) {
  QLabel& etiquette = *Bandeau().LblDebugAlarm;
  switch (libelle) {
    case LibelleAlarme::kIntrusion:
      ColoreAlarme(kRougeIntrusion);
      etiquette.setText(kIntrusion.Dit(Textes_.Parlee()));
      return;
    case LibelleAlarme::kActive:
      etiquette.setText(Textes_.Dit(Libelle::kAlarmeActive));
      break;
    case LibelleAlarme::kInactive:
      etiquette.setText(Textes_.Dit(Libelle::kAlarmeInactive));
      break;
  }
  GriseLibelleAlarme();
}

void VueSurveillance::NommeAlarmeInactive() { Bandeau().LblDebugAlarm->setText(Textes_.Dit(Libelle::kAlarmeInactive)); }

void VueSurveillance::GriseLibelleAlarme() { ColoreAlarme(kGrisTexte); }

// Told at each frame. To ask the label for its colour costs more than all other labels of a frame: a palette depends on
// whether the window is active.
void VueSurveillance::ColoreAlarme(QRgb couleur) {
  if (CouleurAlarme_ == couleur) return;
  ColoreEtiquette(*Bandeau().LblDebugAlarm, couleur);
  CouleurAlarme_ = couleur;
}

void VueSurveillance::MontreCompteARebours(qint32 secondes) {
  Bandeau().LblDebugAlarm->setText(Textes_.Dit(Libelle::kDepartDans) + QString::number(secondes) +
                                   kSecondes.Dit(Textes_.Parlee()));
}

void VueSurveillance::MontreCompteurs(qint32 millisecondes, qint32 points) {
  Page().MontreCompteurs(millisecondes, points);
}

void VueSurveillance::MontreBarre(qint32 valeur) { Liees().Moniteur().MontreBarre(valeur); }

void VueSurveillance::RafraichitVue() {
  if (Liees().Moteur.Detection().ModeZoom) {
    Page().Picture2->Noircit();
  } else {
    MontreVuePixel();
  }
}

void VueSurveillance::MontreVuePixel() { Page().Picture2->MontreImage(Liees().Moteur.VuePixel()); }

void VueSurveillance::MontreZoom(const QRect& source) { Page().Picture2->MontreZoom(Liees().Moteur.Surface(), source); }

void VueSurveillance::CopiePleinEcran() { Liees().PleinEcran.Copie(Liees().Moteur.Surface()); }

void VueSurveillance::RafraichitPleinEcran() { Liees().PleinEcran.Rafraichit(); }

void VueSurveillance::MontreMoniteur() { Liees().Moniteur().show(); }

void VueSurveillance::MontreAvis(AvisMoniteur avis) {
  Liees().Moniteur().MontreAvis(MotAvis(LangueParlee(Liees().Reglages.LangueCourante), avis));
}

void VueSurveillance::ActiveBouton(qint32 index, bool actif) {
  Bandeau().Bouton.at(static_cast<std::size_t>(index))->setEnabled(actif);
  AnnonceEtats();
}

// The camera starts and stops with calls of these three, so the state of every switch is told here.
void VueSurveillance::AnnonceEtats() {
  if (Liees().Fenetre.Face() != nullptr) Liees().Fenetre.Face()->AnnonceEtats();
}

void VueSurveillance::MontreLampeAlarme(Lampe lampe) {
  Bandeau().ImageLedAlarme->Montre(lampe);
  AnnonceEtats();
}

void VueSurveillance::MontreLampeSurveillance(Lampe lampe) {
  Bandeau().ImageLedSurveill->Montre(lampe);
  AnnonceEtats();
}

void VueSurveillance::MontreSurveillanceInactive() {
  Bandeau().LblDebugftp->setText(Textes_.Dit(Libelle::kSurveillanceInactive));
}

void VueSurveillance::EcritRetard(qint32 secondes) { Page().Text1->setText(QString::number(secondes)); }

void VueSurveillance::DessineJauge(qint32 valeur, bool haute) { Bandeau().PictSeuil->Dessine(valeur, haute); }

void VueSurveillance::AnnonceCameraIntrouvable(const QString& explication) {
  QString message = Textes_.Dit(Message::kCameraIntrouvable);
  if (!explication.isEmpty()) message += QStringLiteral("\n\n") + explication;
  Boites_.MontreMessage(message, Textes_.Dit(Message::kTitre), BoutonsBoite::kOk);
}

void VueSurveillance::AnnonceCameraInactive() {
  Boites_.MontreMessage(Textes_.Dit(Message::kCameraInactive), Textes_.Dit(Message::kTitre), BoutonsBoite::kOk);
}

}  // namespace vaktor
