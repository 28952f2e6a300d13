// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/forms/day_strip.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cmath>

#include "journal/timeline_words.h"
#include "ui/common/heard_roles.h"

namespace vaktor {
namespace {

constexpr int kHauteur = 128;
constexpr int kHautArmee = 9;  // of the band of armed time
constexpr int kHautHeures = 18;
constexpr int kHautMarques = 14;
constexpr double kBarreMin = 4;  // points: what a finger of the mouse can hit
constexpr double kPrise = 3;     // points beside a bar that count as it
constexpr double kPas = 1.3;     // of one notch of the wheel, or one key
/// Distances of the hours on the axis, the least that leaves room for its words is taken.
constexpr std::array<qint64, 8> kPasHeures = {60'000,    300'000,   900'000,    1'800'000,
                                              3'600'000, 7'200'000, 10'800'000, 21'600'000};
constexpr double kPlaceHeure = 52;

}  // namespace

BandeFrise::BandeFrise(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("BandeFrise"));
  DonneRole(*this, QAccessible::Graphic);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setFixedHeight(kHauteur);
  Jour_.De = QDate::currentDate().startOfDay();
  Jour_.A = Jour_.De.addDays(1);
  Vue_ = {0, DureeJour()};
}

QSize BandeFrise::sizeHint() const { return {760, kHauteur}; }

void BandeFrise::MontreJour(std::shared_ptr<const Chronique> chronique, const JourVu& jour, Langue langue) {
  const bool autre = jour.Jour != Jour_.Jour;
  Chronique_ = std::move(chronique);
  Jour_ = jour;
  Langue_ = langue;
  if (autre) Vue_ = {0, DureeJour()};
  Choix_ = -1;
  PointsMax_ = 1;
  for (const qsizetype i : Jour_.Intrusions) PointsMax_ = std::max(PointsMax_, Chronique_->Intrusions.at(i).Points);
  setAccessibleName(MotBande(langue));
  setAccessibleDescription(DitBande(Jour_, *Chronique_, langue) + u'\n' + AideBande(langue));
  update();
}

void BandeFrise::ChoisitAllure(const AllureFrise& allure) {
  Allure_ = allure;
  update();
}

void BandeFrise::MontreChoix(qsizetype intrusion) {
  Choix_ = intrusion;
  if (Choix_ >= 0 && Chronique_) {
    const qint64 moment = Jour_.De.msecsTo(Chronique_->Intrusions.at(Choix_).Debut);
    if (moment < Vue_.De || moment > Vue_.A) Vue_ = Deplace(Vue_, moment - (Vue_.A - Vue_.De) / 2, DureeJour());
  }
  update();
}

QRectF BandeFrise::Piste() const { return QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5 - kHautHeures); }

double BandeFrise::PlaceDe(const QDateTime& moment) const {
  const auto depuis = static_cast<double>(Jour_.De.msecsTo(moment) - Vue_.De);
  return Piste().left() + depuis / static_cast<double>(Vue_.A - Vue_.De) * Piste().width();
}

qint64 BandeFrise::MomentA(double x) const {
  return Vue_.De + std::llround((x - Piste().left()) / Piste().width() * static_cast<double>(Vue_.A - Vue_.De));
}

// As high as the movement: by its root, so that somebody at the far end of the yard is seen beside the cat at the lens.
QRectF BandeFrise::Barre(const IntrusionVue& vue) const {
  const QRectF piste = Piste();
  const double sol = piste.bottom() - kHautArmee - 1;
  const double place = sol - piste.top() - kHautMarques;
  const double part = vue.Points > 0 ? std::sqrt(static_cast<double>(vue.Points) / PointsMax_) : 0.3;
  const double haut = std::max(6.0, part * place);
  const double de = PlaceDe(vue.Debut);
  const double largeur = std::max(kBarreMin, PlaceDe(vue.Fin()) - de);
  return {de, sol - haut, largeur, haut};
}

QRectF BandeFrise::Etendue(const BandeTemps& bande, double haut, double hauteur) const {
  const double de = std::max(Piste().left(), PlaceDe(bande.De));
  const double a = std::min(Piste().right(), PlaceDe(bande.A));
  return {de, haut, a - de, hauteur};
}

void BandeFrise::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::Antialiasing);
  const QRectF piste = Piste();
  QPainterPath contour;
  contour.addRoundedRect(piste, 6, 6);
  peintre.fillPath(contour, Allure_.Piste);
  peintre.save();
  peintre.setClipPath(contour);
  DessineHeures(peintre);
  if (Chronique_) {
    DessineConditions(peintre);
    DessineArmees(peintre);
    DessineIntrusions(peintre);
    DessineMarques(peintre);
  }
  peintre.restore();
  peintre.setPen(QPen(hasFocus() ? Allure_.Choisi : Allure_.BordPiste, hasFocus() ? 2 : 1));
  peintre.drawPath(contour);
  DessineHeures(peintre);
}

// Once inside the track for its lines, clipped, and once for the words below it: what lies outside is cut away.
void BandeFrise::DessineHeures(QPainter& peintre) const {
  const bool dedans = peintre.hasClipping();
  const QRectF piste = Piste();
  const double parPoint = static_cast<double>(Vue_.A - Vue_.De) / piste.width();
  qint64 pas = kPasHeures.back();
  for (const qint64 essai : kPasHeures)
    if (static_cast<double>(essai) / parPoint >= kPlaceHeure) {
      pas = essai;
      break;
    }
  QColor trait = Allure_.EncrePiste;
  trait.setAlpha(dedans ? 46 : 255);
  peintre.setPen(dedans ? trait : Allure_.EncreTete);
  peintre.setFont(PoliceFrise(11));
  for (qint64 ms = (Vue_.De + pas - 1) / pas * pas; ms <= Vue_.A; ms += pas) {
    const QDateTime moment = Jour_.De.addMSecs(ms);
    const double x = PlaceDe(moment);
    if (dedans) {
      peintre.drawLine(QPointF(x, piste.top()), QPointF(x, piste.bottom()));
      continue;
    }
    // The last midnight is the day's end and not the beginning of it.
    const QString mot = ms == DureeJour() ? QStringLiteral("24:00") : moment.toString(QStringLiteral("HH:mm"));
    const double large = peintre.fontMetrics().horizontalAdvance(mot);
    const double gauche = std::clamp(x - large / 2, 0.0, std::max(0.0, width() - large));
    peintre.drawText(QPointF(gauche, height() - 4.5), mot);
  }
}

void BandeFrise::DessineArmees(QPainter& peintre) const {
  const QRectF piste = Piste();
  for (const BandeTemps& bande : Chronique_->Armees) {
    if (bande.A < Jour_.De || bande.De > Jour_.A) continue;
    QRectF place = Etendue(bande, piste.bottom() - kHautArmee, kHautArmee);
    place.setWidth(std::max(2.0, place.width()));
    peintre.fillRect(place, Allure_.Armee);
    QColor voile = Allure_.Armee;
    voile.setAlpha(28);
    peintre.fillRect(QRectF(place.left(), piste.top(), place.width(), piste.height() - kHautArmee), voile);
  }
}

void BandeFrise::DessineConditions(QPainter& peintre) const {
  const QRectF piste = Piste();
  for (const BandeCondition& bande : Chronique_->Conditions) {
    if (bande.A < Jour_.De || bande.De > Jour_.A) continue;
    QRectF place = Etendue(bande, piste.top(), piste.height());
    place.setWidth(std::max(kBarreMin, place.width()));
    QColor voile = Allure_.Rouge;
    voile.setAlpha(54);
    peintre.fillRect(place, voile);
    peintre.fillRect(QRectF(place.left(), piste.top(), place.width(), 5), Allure_.Rouge);
  }
}

void BandeFrise::DessineIntrusions(QPainter& peintre) const {
  peintre.setPen(Qt::NoPen);
  for (const qsizetype i : Jour_.Intrusions) {
    const IntrusionVue& vue = Chronique_->Intrusions.at(i);
    const QRectF barre = Barre(vue);
    if (barre.right() < 0 || barre.left() > width()) continue;
    peintre.setBrush(i == Choix_ ? Allure_.Choisi : (vue.Points > 0 ? Allure_.Barre : Allure_.BarreVague));
    peintre.drawRoundedRect(barre, 1.5, 1.5);
    if (i != Choix_) continue;
    const QPointF pointe(barre.center().x(), barre.top() - 3);
    peintre.drawPolygon(QPolygonF{pointe, pointe + QPointF(-5, -7), pointe + QPointF(5, -7)});
  }
}

// A mail is a small envelope; the start and the end of the program are told by its tip alone where they stand on
// others.
void BandeFrise::DessineMarques(QPainter& peintre) const {
  for (const MarqueTemps& marque : Chronique_->Marques) {
    if (marque.Quand < Jour_.De || marque.Quand > Jour_.A) continue;
    const double x = PlaceDe(marque.Quand);
    peintre.setPen(QPen(Allure_.EncrePiste, 1.2));
    peintre.setBrush(Allure_.Carte);
    if (marque.Quoi == Fait::kCourriel) {
      const QRectF enveloppe(x - 5, Piste().top() + 8, 10, 7);
      peintre.drawRect(enveloppe);
      peintre.drawPolyline(QPolygonF{enveloppe.topLeft(), enveloppe.center() + QPointF(0, 1), enveloppe.topRight()});
    } else if (marque.Quoi == Fait::kPageRetablie) {
      peintre.drawEllipse(QPointF(x, Piste().top() + 11.5), 3.5, 3.5);
    }
  }
}

qsizetype BandeFrise::IntrusionA(const QPointF& place) const {
  if (!Chronique_ || !Piste().contains(place)) return -1;
  qsizetype trouvee = -1;
  double ecart = kPrise;
  for (const qsizetype i : Jour_.Intrusions) {
    const QRectF barre = Barre(Chronique_->Intrusions.at(i));
    const double cote = std::max({barre.left() - place.x(), place.x() - barre.right(), 0.0});
    if (cote > ecart || (cote == ecart && trouvee >= 0)) continue;
    ecart = cote;
    trouvee = i;
  }
  return trouvee;
}

QString BandeFrise::DitA(const QPoint& place) const {
  if (!Chronique_ || !Piste().contains(place)) return {};
  QStringList dit;
  if (const qsizetype i = IntrusionA(place); i >= 0) dit += DitIntrusion(Chronique_->Intrusions.at(i), Langue_);
  for (const MarqueTemps& marque : Chronique_->Marques)
    if (std::abs(PlaceDe(marque.Quand) - place.x()) <= 5 && dit.size() < 6) dit += DitMarque(marque, Langue_);
  const auto dessus = [&](const BandeTemps& bande) {
    const double de = PlaceDe(bande.De);
    return place.x() >= de - 1 && place.x() <= std::max(de + kBarreMin, PlaceDe(bande.A));
  };
  for (const BandeCondition& bande : Chronique_->Conditions)
    if (dessus(bande)) dit += DitCondition(bande, Langue_);
  for (const BandeTemps& bande : Chronique_->Armees)
    if (dessus(bande)) dit += DitArmee(bande, Langue_);
  dit.removeAll(QString());
  return dit.join(QStringLiteral("\n"));
}

bool BandeFrise::event(QEvent* evenement) {
  if (evenement->type() != QEvent::ToolTip) return QWidget::event(evenement);
  const auto* aide = static_cast<QHelpEvent*>(evenement);
  const QString dit = DitA(aide->pos());
  // A new text comes at once, in the place of the one before.
  dit.isEmpty() ? QToolTip::hideText() : QToolTip::showText(aide->globalPos(), dit, this);
  return true;
}

void BandeFrise::Regarde(const Fenetre& vue) {
  if (vue == Vue_) return;
  Vue_ = vue;
  update();
}

void BandeFrise::mousePressEvent(QMouseEvent* evenement) {
  if (evenement->button() != Qt::LeftButton) return;
  Presse_ = evenement->position();
  VuePressee_ = Vue_;
  Glisse_ = false;
}

void BandeFrise::mouseMoveEvent(QMouseEvent* evenement) {
  if (!(evenement->buttons() & Qt::LeftButton)) {
    setCursor(IntrusionA(evenement->position()) >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    return;
  }
  const double dx = evenement->position().x() - Presse_.x();
  if (std::abs(dx) >= 4) Glisse_ = true;  // a hand that trembles has clicked
  if (!Glisse_) return;
  const double parPoint = static_cast<double>(VuePressee_.A - VuePressee_.De) / Piste().width();
  Regarde(Deplace(VuePressee_, VuePressee_.De - std::llround(dx * parPoint), DureeJour()));
}

void BandeFrise::mouseReleaseEvent(QMouseEvent* evenement) {
  if (evenement->button() != Qt::LeftButton || Glisse_) return;
  if (const qsizetype i = IntrusionA(evenement->position()); i >= 0) Q_EMIT IntrusionChoisie(i);
}

void BandeFrise::mouseDoubleClickEvent(QMouseEvent* evenement) {
  if (const qsizetype i = IntrusionA(evenement->position()); i >= 0) Q_EMIT IntrusionOuverte(i);
}

void BandeFrise::wheelEvent(QWheelEvent* evenement) {
  const double crans = evenement->angleDelta().y() / 120.0;
  Regarde(Zoome(Vue_, std::pow(kPas, crans), MomentA(evenement->position().x()), DureeJour()));
  evenement->accept();
}

void BandeFrise::ChoisitVoisine(int pas) {
  if (Jour_.Intrusions.isEmpty()) return;
  const qsizetype ici = Jour_.Intrusions.indexOf(Choix_);
  const qsizetype la = ici < 0 ? (pas > 0 ? 0 : Jour_.Intrusions.size() - 1)
                               : std::clamp<qsizetype>(ici + pas, 0, Jour_.Intrusions.size() - 1);
  Q_EMIT IntrusionChoisie(Jour_.Intrusions.at(la));
}

void BandeFrise::keyPressEvent(QKeyEvent* evenement) {
  const bool controle = evenement->modifiers() & Qt::ControlModifier;
  const qint64 quart = (Vue_.A - Vue_.De) / 4;
  const qint64 milieu = (Vue_.De + Vue_.A) / 2;
  switch (evenement->key()) {
    case Qt::Key_Left:
      controle ? Regarde(Deplace(Vue_, Vue_.De - quart, DureeJour())) : ChoisitVoisine(-1);
      return;
    case Qt::Key_Right:
      controle ? Regarde(Deplace(Vue_, Vue_.De + quart, DureeJour())) : ChoisitVoisine(1);
      return;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      Regarde(Zoome(Vue_, kPas, milieu, DureeJour()));
      return;
    case Qt::Key_Minus:
      Regarde(Zoome(Vue_, 1 / kPas, milieu, DureeJour()));
      return;
    case Qt::Key_Home:
      Regarde({0, DureeJour()});
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (Choix_ >= 0) Q_EMIT IntrusionOuverte(Choix_);
      return;
    default:
      QWidget::keyPressEvent(evenement);
  }
}

}  // namespace vaktor
