// SPDX-License-Identifier: GPL-3.0-or-later
// Folders in memory for the folder chooser: places, states, subfolders that come at once, later or never.
#pragma once

#include <QDir>
#include <QMap>
#include <QPointer>
#include <utility>
#include <vector>

#include "fakes/fake_files.h"
#include "image/ports/folder_tree.h"

namespace vaktor::faux {

/// A folder that nobody has put in is absent.
class ArbreFaux : public ArbreDossiers {
 public:
  QList<LieuDisque> Lieux{{QStringLiteral("Dossier personnel"), QStringLiteral("/home/u")},
                          {QStringLiteral("USB"), QStringLiteral("/media/u/USB")},
                          {QStringLiteral("Racine"), QStringLiteral("/")}};
  QMap<QString, EtatDossier> Regards;    ///< of folders that are there
  QMap<QString, EtatDossier> Ecritures;  ///< of those that take no photo
  QMap<QString, EtatDossier> Lectures;   ///< of those that cannot be read
  QMap<QString, QStringList> SousDossiers;
  FauxFichiers* Disque = nullptr;  ///< where folders are made and free space is asked for
  bool Retient = false;            ///< answers of LitDossiers wait for Livre()
  bool Liens = false;              ///< there are links: an incomplete list without the last folder comes first
  QStringList Lus;                 ///< folders that were read, in order
  mutable QStringList Regardes;

  void Ajoute(const QString& chemin, EtatDossier etat = EtatDossier::kBon) {
    Regards.insert(chemin, etat);
    const QString parent = chemin.left(qMax(qsizetype(1), chemin.lastIndexOf(u'/')));
    if (parent != chemin) SousDossiers[parent] += chemin.section(u'/', -1);
  }
  void Livre() {
    for (auto& livraison : std::exchange(EnAttente_, {})) livraison();
  }

  QList<LieuDisque> ListeLieux() const override { return Lieux; }
  QString DonneChemin(const QString& stocke) const override {
    return stocke.isEmpty() ? QString() : QDir::cleanPath(QString(stocke).replace(u'\\', u'/'));
  }
  EtatDossier RegardeDossier(const QString& chemin) const override {
    Regardes += chemin;
    return Regards.value(chemin, EtatDossier::kAbsent);
  }
  EtatDossier EssaieEcriture(const QString& chemin) const override {
    return Ecritures.value(chemin, Regards.value(chemin, EtatDossier::kAbsent));
  }
  bool CreeDossier(const QString& stocke) override {
    const QString parent = DonneChemin(stocke).section(u'/', 0, -2);
    if (Disque == nullptr || Regards.value(parent) == EtatDossier::kSansReponse) return false;
    return Disque->CreeDossier(stocke);
  }
  std::optional<qint64> EspaceLibre(const QString& chemin) const override {
    if (Disque == nullptr || Regards.value(chemin) == EtatDossier::kSansReponse) return std::nullopt;
    return Disque->EspaceLibre(chemin);
  }
  void LitDossiers(const QString& chemin, const QObject* pour, RecoitDossiers recoit) override {
    Lus += chemin;
    const auto rend = [this, chemin, temoin = QPointer<const QObject>(pour), recoit] {
      const QStringList noms = SousDossiers.value(chemin);
      if (temoin && Liens) recoit({.Noms = noms.mid(0, noms.size() - 1), .Complet = false});
      if (temoin) recoit({.Noms = noms, .Etat = Lectures.value(chemin, EtatDossier::kBon)});
    };
    Retient ? EnAttente_.push_back(rend) : rend();
  }

 private:
  std::vector<std::function<void()>> EnAttente_;
};

}  // namespace vaktor::faux
