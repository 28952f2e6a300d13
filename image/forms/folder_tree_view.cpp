// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/folder_tree_view.h"

#include <QHeaderView>
#include <QStyle>
#include <algorithm>
#include <vector>

namespace vaktor {
namespace {

constexpr int kRoleChemin = Qt::UserRole;

QString CheminDe(const QTreeWidgetItem* ligne) { return ligne->data(0, kRoleChemin).toString(); }

QString JointChemin(const QString& dossier, const QString& nom) {
  return dossier.endsWith(u'/') ? dossier + nom : dossier + u'/' + nom;
}

/// The names of the folders on the way down from `racine` to `chemin`.
QStringList DonneEtapes(const QString& racine, const QString& chemin) {
  return chemin.mid(racine.size()).split(u'/', Qt::SkipEmptyParts);
}

bool EstSurLeChemin(const QTreeWidgetItem* ligne, const QTreeWidgetItem* courant) {
  while (courant != nullptr && courant != ligne) courant = courant->parent();
  return courant != nullptr;
}

}  // namespace

VueDossiers::VueDossiers(ArbreDossiers& arbre, QWidget* parent)
    : QTreeWidget(parent), Arbre_(arbre), Icone_(style()->standardIcon(QStyle::SP_DirIcon)) {
  Ordre_.setNumericMode(true);
  setColumnCount(1);
  header()->hide();
  setUniformRowHeights(true);
  // A name that is wider than the view is reached by scrolling, and not cut.
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  header()->setStretchLastSection(false);
  connect(this, &QTreeWidget::itemExpanded, this, &VueDossiers::LitEnfants);
  connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* courant) {
    if (courant != nullptr) Q_EMIT DossierChange(CheminDe(courant));
  });
}

QString VueDossiers::Chemin() const { return currentItem() == nullptr ? QString() : CheminDe(currentItem()); }

void VueDossiers::resizeEvent(QResizeEvent* evenement) {
  QTreeWidget::resizeEvent(evenement);
  header()->setMinimumSectionSize(viewport()->width());  // the line of the chosen folder fills the view
}

// The way down is put in by name: where the user's folder lies is known without asking a disk.
void VueDossiers::MontreChemin(const QString& racine, const QString& chemin) {
  const QSignalBlocker silence(this);
  if (topLevelItemCount() == 0 || CheminDe(topLevelItem(0)) != racine) {
    clear();
    addTopLevelItem(CreeLigne(racine, racine));
  }
  QTreeWidgetItem* ligne = topLevelItem(0);
  QList<QTreeWidgetItem*> ouverts{ligne};
  for (const QString& nom : DonneEtapes(racine, chemin)) ouverts += ligne = AssureEnfant(ligne, nom);
  for (QTreeWidgetItem* ouvert : ouverts) ouvert->setExpanded(true);
  setCurrentItem(ligne);
  scrollToItem(ligne);
  // Behind setCurrentItem: what leads to the chosen folder is not taken away for being unlisted.
  for (QTreeWidgetItem* ouvert : ouverts) LitEnfants(ouvert);
}

QTreeWidgetItem* VueDossiers::CreeLigne(const QString& nom, const QString& chemin) const {
  auto* ligne = new QTreeWidgetItem({nom});
  ligne->setData(0, kRoleChemin, chemin);
  ligne->setIcon(0, Icone_);
  // Whether there is anything in it is not looked up before somebody wants to see it.
  ligne->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  return ligne;
}

QTreeWidgetItem* VueDossiers::AssureEnfant(QTreeWidgetItem* dossier, const QString& nom) const {
  int place = 0;
  while (place < dossier->childCount() && PrecedeParNom(dossier->child(place)->text(0), nom)) ++place;
  QTreeWidgetItem* ici = dossier->child(place);
  if (ici != nullptr && ici->text(0) == nom) return ici;
  dossier->insertChild(place, CreeLigne(nom, JointChemin(CheminDe(dossier), nom)));
  return dossier->child(place);
}

// Case is folded here: a collator in the plain locale "C" does not do it.
bool VueDossiers::PrecedeParNom(const QString& a, const QString& b) const {
  const int ordre = Ordre_.compare(a.toCaseFolded(), b.toCaseFolded());
  return ordre != 0 ? ordre < 0 : a < b;
}

// By keys made once a name: comparing the names themselves takes seconds for a folder of many thousands.
void VueDossiers::TrieParNom(QStringList& noms) const {
  std::vector<std::pair<QCollatorSortKey, QString>> cles;
  cles.reserve(static_cast<std::size_t>(noms.size()));
  for (const QString& nom : noms) cles.emplace_back(Ordre_.sortKey(nom.toCaseFolded()), nom);
  std::sort(cles.begin(), cles.end(), [](const auto& a, const auto& b) {
    const int ordre = a.first.compare(b.first);
    return ordre != 0 ? ordre < 0 : a.second < b.second;
  });
  noms.clear();
  for (const auto& cle : cles) noms += cle.second;
}

void VueDossiers::LitEnfants(QTreeWidgetItem* dossier) {
  const QString chemin = CheminDe(dossier);
  if (EnLecture_.contains(chemin)) return;
  EnLecture_.insert(chemin);
  Arbre_.LitDossiers(chemin, this, [this, chemin](const ArbreDossiers::Contenu& contenu) {
    if (contenu.Complet) EnLecture_.remove(chemin);
    RecoitEnfants(chemin, contenu);
  });
}

void VueDossiers::RecoitEnfants(const QString& chemin, const ArbreDossiers::Contenu& contenu) {
  // Meanwhile the tree may stand on another place.
  QTreeWidgetItem* dossier = TrouveDossier(chemin);
  if (dossier == nullptr) return;
  const QSignalBlocker silence(this);
  const bool enVue = currentItem() != nullptr && viewport()->rect().intersects(visualItemRect(currentItem()));
  QStringList noms = contenu.Noms;
  TrieParNom(noms);
  if (contenu.Complet) RetireAbsents(dossier, noms);
  AjouteNouveaux(dossier, noms);
  if (contenu.Etat != EtatDossier::kBon) DitIllisible(dossier, contenu.Etat);
  if (contenu.Complet) dossier->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
  // The lines that came must not push the chosen folder out of sight; where the user has scrolled away, nothing moves.
  if (enVue) scrollToItem(currentItem());
}

// It would look empty. The line is no folder: it cannot be chosen, and goes with the next reading.
void VueDossiers::DitIllisible(QTreeWidgetItem* dossier, EtatDossier etat) {
  auto* ligne = new QTreeWidgetItem({etat == EtatDossier::kInterdit
                                         ? QStringLiteral("(vous n'avez pas le droit de lire ce dossier)")
                                         : QStringLiteral("(ce dossier n'est plus accessible)")});
  ligne->setFlags(Qt::NoItemFlags);
  dossier->insertChild(0, ligne);
}

QTreeWidgetItem* VueDossiers::TrouveDossier(const QString& chemin) const {
  QTreeWidgetItem* ligne = topLevelItem(0);
  if (ligne == nullptr || !chemin.startsWith(CheminDe(ligne))) return nullptr;
  for (const QString& nom : DonneEtapes(CheminDe(ligne), chemin)) {
    QTreeWidgetItem* suivant = nullptr;
    for (int i = 0; i < ligne->childCount() && suivant == nullptr; ++i) {
      if (ligne->child(i)->text(0) == nom) suivant = ligne->child(i);
    }
    if (suivant == nullptr) return nullptr;
    ligne = suivant;
  }
  return ligne;
}

// The chosen folder and what leads to it stay, listed or not: it may be a hidden one that was just made, and one that
// has gone is told about when it is accepted.
void VueDossiers::RetireAbsents(QTreeWidgetItem* dossier, const QStringList& noms) {
  const QSet<QString> presents(noms.begin(), noms.end());
  for (int i = dossier->childCount() - 1; i >= 0; --i) {
    QTreeWidgetItem* enfant = dossier->child(i);
    if (!presents.contains(enfant->text(0)) && !EstSurLeChemin(enfant, currentItem())) delete dossier->takeChild(i);
  }
}

// In runs between the lines that are there already: one by one, a folder of many thousands would take seconds.
void VueDossiers::AjouteNouveaux(QTreeWidgetItem* dossier, const QStringList& noms) {
  int place = 0;
  QList<QTreeWidgetItem*> suite;
  const auto pose = [&] {
    dossier->insertChildren(place, suite);
    place += static_cast<int>(suite.size());
    suite.clear();
  };
  for (const QString& nom : noms) {
    while (place < dossier->childCount() && PrecedeParNom(dossier->child(place)->text(0), nom)) {
      pose();
      ++place;
    }
    const QTreeWidgetItem* ici = dossier->child(place);
    if (ici != nullptr && ici->text(0) == nom) {
      pose();
      ++place;
    } else {
      suite += CreeLigne(nom, JointChemin(CheminDe(dossier), nom));
    }
  }
  pose();
}

}  // namespace vaktor
