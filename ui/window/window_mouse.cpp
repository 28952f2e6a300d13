#include "ui/window/window_mouse.h"

#include <QMouseEvent>
#include <array>

namespace vaktor {

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
  Numeros_ = {{moniteur.CheckMail, 5}, {moniteur.CheckSon, 6},     {moniteur.CheckPPhot, 7},   {options.Image4[0], 11},
              {options.Image4[1], 12}, {options.ChkSeuilAuto, 15}, {options.LblSeuilAuto, 15}, {moniteur.Text1, 17}};
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

void SourisFenetre::Passe(qint32 id) {
  DernierSurvol_ = id;
  Sons_.SurvolSon(id);
}

bool SourisFenetre::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() != QEvent::MouseMove) return false;
  const auto numero = Numeros_.constFind(objet);
  if (numero != Numeros_.constEnd()) Passe(*numero);
  if (Fonds_.contains(objet) && DernierSurvol_ != kAucunSurvol) Passe(kAucunSurvol);
  SuitDrapeaux(objet);
  // Any other button held besides the left one means something else than a drag.
  if (Poignees_.contains(objet) && static_cast<QMouseEvent*>(evenement)->buttons() == Qt::LeftButton) {
    Q_EMIT DeplacementDemande();
  }
  return false;
}

// The flag under the pointer loses its frame and the other has one; over a page both have theirs.
void SourisFenetre::SuitDrapeaux(QObject* objet) {
  const std::array<DrapeauLangue*, 2>& drapeaux = Pages_.Options.Image4;
  const bool surPage = Fonds_.contains(objet) && objet != &Fenetre_;
  if (objet != drapeaux[0] && objet != drapeaux[1] && !surPage) return;
  for (DrapeauLangue* drapeau : drapeaux) drapeau->Encadre(objet != drapeau);
}

}  // namespace vaktor
