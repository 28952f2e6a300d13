// SPDX-License-Identifier: GPL-3.0-or-later
// Files in memory, for tests of rules: folders that exist, contents, what was asked, and failures on demand.
#pragma once

#include <QDir>
#include <QHash>
#include <QMap>
#include <QSet>
#include <cerrno>

#include "base/next_name.h"
#include "settings/ports/files.h"

namespace vaktor {

/// Like the real port it takes "\" and "/" for the same separator when it looks something up. What was asked is kept
/// as it was passed, so that tests see the form of the path.
class FauxFichiers : public Fichiers {
 public:
  // What the world looks like.
  std::optional<qint64> OctetsLibres = 1'000'000'000;  ///< nothing: the query fails
  std::optional<qint64> OctetsUtilisables;             ///< without what is the administrator's
  int ErreurEcriture = 0;                              ///< errno that each write gives
  qsizetype PlaceAvantErreur = 0;                      ///< bytes that are written before ErreurEcriture
  bool RefuseSuppression = false;
  bool RefuseCreation = false;
  QSet<QString> Illisibles;  ///< folders that are there and cannot be read, as "/a/b"
  QSet<QString> Muets;       ///< folders whose disk does not answer, as "/a/b"
  QSet<QString> Tenaces;     ///< names of files that no removal removes

  // What was asked, in order, paths as passed.
  QStringList Ecrits;
  QStringList Nouveaux;  ///< those of Ecrits that were to replace nothing
  QStringList Supprimes;
  QStringList DossiersDemandes;
  mutable QStringList EspacesDemandes;

  void AjouteDossier(const QString& chemin) { Dossiers_.insert(Cle(chemin)); }
  void RetireDossier(const QString& chemin) { Dossiers_.remove(Cle(chemin)); }
  void AjouteFichier(const QString& chemin, const QByteArray& contenu = {}) { Contenus_.insert(Cle(chemin), contenu); }
  QByteArray Contenu(const QString& chemin) const { return Contenus_.value(Cle(chemin)); }
  qsizetype NombreFichiers() const { return Contenus_.size(); }
  bool PeutLister(const QString& dossier) const {
    return Dossiers_.contains(Cle(dossier)) && !Illisibles.contains(Cle(dossier));
  }
  /// Names without folder that match a pattern such as "*.jpg*", sorted.
  QStringList ListeFichiers(const QString& dossier, const QString& motif) const {
    QStringList noms;
    for (auto it = Contenus_.cbegin(); it != Contenus_.cend(); ++it) {
      const QString nom = it.key().section(u'/', -1);
      if (Parent(it.key()) == Cle(dossier) && QDir::match(motif, nom)) noms += nom;
    }
    noms.sort(Qt::CaseInsensitive);
    return noms;
  }

  bool Existe(const QString& chemin) const override {
    return Dossiers_.contains(Cle(chemin)) || Contenus_.contains(Cle(chemin));
  }
  Presence RegardeDossier(const QString& chemin) const override {
    if (Muets.contains(Cle(chemin))) return Presence::kSansReponse;
    return Dossiers_.contains(Cle(chemin)) ? Presence::kLa : Presence::kAbsent;
  }
  bool CreeDossier(const QString& chemin) override {
    DossiersDemandes += chemin;
    if (RefuseCreation || Existe(chemin) || !Dossiers_.contains(Parent(Cle(chemin)))) return false;
    AjouteDossier(chemin);
    return true;
  }
  std::optional<qint64> EspaceLibre(const QString& chemin) const override {
    EspacesDemandes += chemin;
    return OctetsLibres;
  }
  std::optional<qint64> EspaceUtilisable(const QString&) const override { return OctetsUtilisables; }
  bool Supprime(const QString& chemin) override {
    Supprimes += chemin;
    if (RefuseSuppression || Tenaces.contains(Cle(chemin).section(u'/', -1))) return !Existe(chemin);
    Contenus_.remove(Cle(chemin));
    return !Existe(chemin);
  }
  int EcritNouveauFichier(const QString& chemin, QByteArrayView contenu, QString* devenu = nullptr) override {
    QString libre = chemin;
    for (int rang = 1; Existe(libre); ++rang) libre = QString::fromUtf8(NomVoisin(chemin.toUtf8(), rang));
    Nouveaux += libre;
    if (devenu != nullptr) *devenu = QString(libre).replace(u'\\', u'/');
    return EcritFichier(libre, contenu);
  }
  int EcritFichier(const QString& chemin, QByteArrayView contenu) override {
    Ecrits += chemin;
    if (!Dossiers_.contains(Parent(Cle(chemin)))) return ENOENT;
    if (Dossiers_.contains(Cle(chemin))) return EISDIR;
    if (ErreurEcriture != 0) contenu = contenu.first(qMin(PlaceAvantErreur, contenu.size()));
    Contenus_.insert(Cle(chemin), contenu.toByteArray());
    return ErreurEcriture;
  }

 private:
  static QString Cle(const QString& chemin) {
    QString cle = chemin;
    cle.replace(u'\\', u'/');
    return cle.size() > 1 && cle.endsWith(u'/') ? cle.chopped(1) : cle;
  }
  static QString Parent(const QString& cle) {
    const qsizetype coupe = cle.lastIndexOf(u'/');
    return coupe > 0 ? cle.first(coupe) : QStringLiteral("/");
  }

  QSet<QString> Dossiers_{QStringLiteral("/")};
  QMap<QString, QByteArray> Contenus_;
};

}  // namespace vaktor
