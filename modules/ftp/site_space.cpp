// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/site_space.h"

#include <QFile>
#include <QSaveFile>
#include <algorithm>

namespace vaktor {

namespace {

constexpr qint64 kTailleMax = 64LL * 1024 * 1024;
constexpr qint64 kPhotoMax = 1LL << 40;  // bytes; more is no photo, and sums of them stay far from their end
constexpr qsizetype kLignesMortes = 500;

// Names hold no line break: FilePhotos passes over those that do.
QString Ligne(const QString& nom, qint64 octets, qint64 prise) {
  return QStringLiteral("+ %1 %2 %3\n").arg(prise).arg(octets).arg(nom);
}

}  // namespace

PlaceSite::PlaceSite(QString fichier) : Fichier_(std::move(fichier)) { Lit(); }

void PlaceSite::ChoisitSite(const QString& site) {
  if (site == Site_) return;
  Site_ = site;
  Fichiers_.clear();
  Prises_.clear();
  Octets_ = 0;
  Ecrit();
}

void PlaceSite::RegleBornes(qint64 nombre, qint64 octets) {
  NombreMax_ = nombre;
  OctetsMax_ = octets;
}

void PlaceSite::Note(const QString& nom, qint64 octets, qint64 prise) {
  Retire(nom);
  Fichiers_.insert({prise, nom}, octets);
  Prises_.insert(nom, prise);
  Octets_ += octets;
  if (Fichiers_.size() > kMax) Retire(Fichiers_.firstKey().second);
  Ajoute(Ligne(nom, octets, prise));
}

void PlaceSite::Oublie(const QString& nom) {
  if (!Prises_.contains(nom)) return;
  Retire(nom);
  Ajoute(QStringLiteral("- ") + nom + u'\n');
}

void PlaceSite::Retire(const QString& nom) {
  const auto prise = Prises_.constFind(nom);
  if (prise == Prises_.cend()) return;
  Octets_ -= Fichiers_.take({*prise, nom});
  Prises_.erase(prise);
}

QStringList PlaceSite::Premiers(qsizetype nombre) const {
  QStringList noms;
  for (auto fichier = Fichiers_.cbegin(); fichier != Fichiers_.cend() && noms.size() < nombre; ++fichier)
    noms.append(fichier.key().second);
  return noms;
}

QStringList PlaceSite::EnTrop() const {
  QStringList noms;
  qint64 octets = Octets_;
  for (auto fichier = Fichiers_.cbegin(); fichier != Fichiers_.cend() && noms.size() < kParFois; ++fichier) {
    const bool tropNombreux = NombreMax_ > 0 && Fichiers_.size() - noms.size() > NombreMax_;
    const bool tropGros = OctetsMax_ > 0 && octets > OctetsMax_;
    if (!tropNombreux && !tropGros) break;
    octets -= fichier.value();
    noms.append(fichier.key().second);
  }
  return noms;
}

QStringList PlaceSite::PlusAnciens() const {
  return Premiers(std::clamp<qsizetype>(Fichiers_.size() / 10, 1, kParFois));
}

bool PlaceSite::SeraitDeTrop(qint64 prise) const {
  const bool plein = (NombreMax_ > 0 && Fichiers_.size() >= NombreMax_) || (OctetsMax_ > 0 && Octets_ >= OctetsMax_);
  return plein && !Fichiers_.isEmpty() && prise < Fichiers_.firstKey().first;
}

void PlaceSite::Ajoute(const QString& ligne) {
  if (Lignes_ > 2 * Fichiers_.size() + kLignesMortes) {
    Ecrit();
    return;
  }
  QFile fichier(Fichier_);
  if (!fichier.open(QIODevice::WriteOnly | QIODevice::Append)) return;
  ++Lignes_;
  fichier.write(ligne.toUtf8());
}

void PlaceSite::Lit() {
  QFile fichier(Fichier_);
  if (fichier.size() > kTailleMax || !fichier.open(QIODevice::ReadOnly)) return;
  QString ligne = QString::fromUtf8(fichier.readLine());
  if (!ligne.endsWith(u'\n')) return;
  ligne.chop(1);
  Site_ = ligne;
  while (!fichier.atEnd()) {
    ligne = QString::fromUtf8(fichier.readLine());
    if (!ligne.endsWith(u'\n')) {  // a power cut: the next line must not be written behind half of one
      Lignes_ = kMax * 3;
      break;
    }
    ligne.chop(1);
    ++Lignes_;
    LitLigne(ligne);
  }
}

void PlaceSite::LitLigne(const QString& ligne) {
  if (ligne.startsWith(QLatin1String("- "))) Retire(ligne.mid(2));
  bool date = false;
  bool taille = false;
  const qint64 prise = ligne.section(u' ', 1, 1).toLongLong(&date);
  const qint64 octets = ligne.section(u' ', 2, 2).toLongLong(&taille);
  const QString nom = ligne.section(u' ', 3);
  if (!ligne.startsWith(QLatin1String("+ ")) || !date || !taille || octets < 0 || octets > kPhotoMax || nom.isEmpty())
    return;
  Retire(nom);
  Fichiers_.insert({prise, nom}, octets);
  Prises_.insert(nom, prise);
  Octets_ += octets;
}

void PlaceSite::Ecrit() {
  QSaveFile fichier(Fichier_);
  if (!fichier.open(QIODevice::WriteOnly)) return;
  fichier.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  fichier.write((Site_ + u'\n').toUtf8());
  for (auto f = Fichiers_.cbegin(); f != Fichiers_.cend(); ++f)
    fichier.write(Ligne(f.key().second, f.value(), f.key().first).toUtf8());
  if (fichier.commit()) Lignes_ = Fichiers_.size();
}

}  // namespace vaktor
