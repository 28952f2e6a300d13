// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/shown/health_view.h"

#include "texts/language.h"
#include "ui/controls/health_sign.h"
#include "ui/shown/own_words.h"

namespace vaktor {

VueSante::VueSante(PortsVueSante ports) : Ports_(std::move(ports)) {
  QObject::connect(Ports_.Fenetre.Bandeau().Signe, &QAbstractButton::clicked, &Ports_.Fenetre, [this] { Ouvre(); });
}

void VueSante::Actualise() {
  const QList<ConditionEnCours> liste = Ports_.Sante.Comptees();
  const Langue langue = LangueParlee(Ports_.Reglages.LangueCourante);
  if (Liste_) Liste_->MontreListe(liste, langue);
  SigneSante& signe = *Ports_.Fenetre.Bandeau().Signe;
  if (liste.isEmpty()) {
    signe.Cache();
    return;
  }
  const ConditionEnCours& pire = liste.first();
  const Gravite gravite = DonneGravite(pire.Quoi);
  const QString quoi = PhraseQuoi(pire.Quoi, pire.Detail, langue);
  signe.Montre(pire.Quoi, {PhraseGravite(gravite, langue) + QStringLiteral(". ") + quoi, AideSigneSante(langue), quoi});
}

void VueSante::Ouvre() {
  if (Ports_.EnFermeture()) return;
  if (!Liste_) {
    Liste_ = std::make_unique<FrmSante>();
    // What has happened and is over goes once it has been seen, which is when the list is closed again.
    QObject::connect(Liste_.get(), &FrmSante::Fermee, &Ports_.Fenetre, [this] { Ports_.Sante.OublieEvenements(); });
  }
  const bool nouvelle = !Liste_->isVisible();
  Actualise();
  Liste_->Ouvre();
  if (nouvelle) Liste_->move(Ports_.Place(Liste_->frameGeometry().size()));
}

void VueSante::Ferme() {
  if (Liste_) Liste_->close();
}

}  // namespace vaktor
