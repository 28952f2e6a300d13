// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/window_mouse.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <algorithm>

#include "texts/language.h"

namespace vaktor {

namespace {
constexpr qint32 kSurvolDrapeaux = 11;  // of Image4(0)
}  // namespace

SourisFenetre::SourisFenetre(QWidget& fenetre, const BandeauHaut& bandeau, const PagesFenetre& pages,
                             SonsInterface& sons)
    : Fenetre_(fenetre), Pages_(pages), Sons_(sons) {
  InscritFonds();
  InscritNumeros();
  InscritPoignees(bandeau);
}

void SourisFenetre::InscritFonds() {
  Fonds_.insert(&Fenetre_);
  for (PageVaktor* page : Pages_.Toutes()) Fonds_.insert(page);
  for (QObject* fond : std::as_const(Fonds_)) {
    EcouteControle(static_cast<QWidget*>(fond));
    // A move over a control is no move over the page below it, also where the control does nothing with it.
    for (auto* controle : fond->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      controle->setAttribute(Qt::WA_NoMousePropagation);
    }
  }
}

// Buttons tell their own numbers. CheckMail has that of the fifth button of both families, and so it stays.
void SourisFenetre::InscritNumeros() {
  const PageMoniteur& moniteur = Pages_.Moniteur;
  const PageOptions& options = Pages_.Options;
  Numeros_ = {{moniteur.CheckMail, 5},    {moniteur.CheckSon, 6},     {moniteur.CheckPPhot, 7},
              {options.ChkSeuilAuto, 15}, {options.LblSeuilAuto, 15}, {moniteur.Text1, 17}};
  for (const Langue langue : kLangues) {
    Numeros_.insert(options.Image4.at(RangLangue(langue)), kSurvolDrapeaux + static_cast<qint32>(RangLangue(langue)));
  }
  for (auto numero = Numeros_.keyBegin(); numero != Numeros_.keyEnd(); ++numero) {
    EcouteControle(static_cast<QWidget*>(*numero));
  }
}

// These labels drag the window besides the free surfaces; the other labels do not.
void SourisFenetre::InscritPoignees(const BandeauHaut& bandeau) {
  const PageMail& mail = Pages_.Mail;
  Poignees_ = Fonds_;
  for (QWidget* etiquette : {mail.LabelMaildest, mail.LabelMailSujet, mail.LabelMailTexte, mail.LabelNbrMail,
                             bandeau.LabelSeuil, mail.LabelVague, bandeau.LblDebugAlarm, bandeau.LblDebugftp}) {
    Poignees_.insert(etiquette);
    EcouteControle(etiquette);
  }
}

void SourisFenetre::EcouteControle(QWidget* controle) {
  controle->setMouseTracking(true);
  controle->installEventFilter(this);
}

bool SourisFenetre::eventFilter(QObject* objet, QEvent* evenement) {
  const QEvent::Type type = evenement->type();
  if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease) Demandeur_ = nullptr;
  if (type != QEvent::MouseMove) return false;
  const auto numero = Numeros_.constFind(objet);
  if (numero != Numeros_.constEnd()) Sons_.SurvolSon(*numero);
  if (Fonds_.contains(objet)) Sons_.SurvolSon(SonsInterface::kAucunSurvol);
  SuitDrapeaux(objet);
  SuitGlisse(objet, static_cast<QMouseEvent*>(evenement)->buttons());
  return false;
}

// Any other button held besides the left one means something else than a drag. Asked once, the system takes the mouse
// and moves the window until the button is released; then the toolkit tells one more move, with the button still held.
// Asked again there, the window would stick to a pointer that nobody holds.
void SourisFenetre::SuitGlisse(QObject* objet, Qt::MouseButtons boutons) {
  if (boutons != Qt::LeftButton) {
    Demandeur_ = nullptr;
    return;
  }
  const bool demande =
      Demandeur_ != nullptr && (objet == Demandeur_ || QGuiApplication::mouseButtons() != Qt::NoButton);
  if (demande || !Poignees_.contains(objet)) return;
  Demandeur_ = objet;
  Q_EMIT DeplacementDemande();
}

// The flag under the pointer loses its frame and the others have theirs; over a page all have.
void SourisFenetre::SuitDrapeaux(QObject* objet) {
  const auto& drapeaux = Pages_.Options.Image4;
  const bool surPage = Fonds_.contains(objet) && objet != &Fenetre_;
  if (!surPage && std::find(drapeaux.begin(), drapeaux.end(), objet) == drapeaux.end()) return;
  for (DrapeauLangue* drapeau : drapeaux) drapeau->Encadre(objet != drapeau);
}

}  // namespace vaktor
