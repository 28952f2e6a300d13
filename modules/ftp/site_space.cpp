// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/site_space.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vaktor {

namespace {

constexpr qint64 kTailleMax = 64LL * 1024 * 1024;
constexpr qint64 kPhotoMax = 1LL << 40;  // bytes; more is no photo, and sums of them stay far from their end
constexpr qint64 kDateMax = 1LL << 60;   // milliseconds; differences of two stay numbers
constexpr qsizetype kLignesMortes = 500;

// Names hold no line break: FilePhotos passes over those that do.
QString Ligne(const QString& nom, qint64 octets, qint64 prise) {
  return QStringLiteral("+ %1 %2 %3\n").arg(prise).arg(octets).arg(nom);
}

}  // namespace

PlaceSite::PlaceSite(QString fichier) : Memoire_(std::move(fichier), kTailleMax) { Relit(); }

void PlaceSite::Relit() {
  const std::optional<QByteArray> octets = Memoire_.Lit();
  if (!octets) return;
  const QString site = std::exchange(Site_, QString());
  const QMap<Cle, qint64> notes = Fichiers_;
  Vide();
  Comprend(*octets);
  if (site.isEmpty()) return;  // nothing was noted so far
  if (site != Site_) Vide();
  Site_ = site;
  for (auto note = notes.cbegin(); note != notes.cend(); ++note)
    Place(note.key().second, note.value(), note.key().first);
  Ecrit();
}

void PlaceSite::ChoisitSite(const QString& site) {
  Relit();
  if (site == Site_) return;
  Site_ = site;
  Vide();
  Ecrit();
}

void PlaceSite::Recule(qint64 millisecondes) {
  const QMap<Cle, qint64> avant = Fichiers_;
  Vide();
  for (auto f = avant.cbegin(); f != avant.cend(); ++f) Place(f.key().second, f.value(), f.key().first - millisecondes);
  Ecrit();
}

void PlaceSite::RegleBornes(qint64 nombre, qint64 octets) {
  NombreMax_ = nombre;
  OctetsMax_ = octets;
}

void PlaceSite::Place(const QString& nom, qint64 octets, qint64 prise) {
  Retire(nom);
  Fichiers_.insert({prise, nom}, octets);
  Prises_.insert(nom, prise);
  Octets_ += octets;
}

void PlaceSite::Vide() {
  Fichiers_.clear();
  Prises_.clear();
  Octets_ = 0;
}

void PlaceSite::Note(const QString& nom, qint64 octets, qint64 prise) {
  Relit();
  Place(nom, octets, prise);
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
  if (Memoire_.Ajoute(ligne.toUtf8())) ++Lignes_;
}

void PlaceSite::Comprend(const QByteArray& octets) {
  qsizetype debut = 0;
  const auto prend = [&]() -> std::optional<QString> {
    const qsizetype fin = octets.indexOf('\n', debut);
    if (fin < 0) return std::nullopt;
    const qsizetype avant = std::exchange(debut, fin + 1);
    return QString::fromUtf8(octets.sliced(avant, fin - avant));
  };
  const std::optional<QString> site = prend();
  if (!site) return;
  Site_ = *site;
  while (debut < octets.size()) {
    const std::optional<QString> ligne = prend();
    if (!ligne) {  // a power cut: the next line must not be written behind half of one
      Lignes_ = kMax * 3;
      break;
    }
    ++Lignes_;
    ComprendLigne(*ligne);
  }
}

void PlaceSite::ComprendLigne(const QString& ligne) {
  if (ligne.startsWith(QLatin1String("- "))) Retire(ligne.mid(2));
  bool date = false;
  bool taille = false;
  const qint64 prise = ligne.section(u' ', 1, 1).toLongLong(&date);
  const qint64 octets = ligne.section(u' ', 2, 2).toLongLong(&taille);
  const QString nom = ligne.section(u' ', 3);
  if (!ligne.startsWith(QLatin1String("+ ")) || !date || !taille || octets < 0 || octets > kPhotoMax || nom.isEmpty() ||
      qAbs(prise) > kDateMax)
    return;
  Place(nom, octets, prise);
}

void PlaceSite::Ecrit() {
  QByteArray octets = (Site_ + u'\n').toUtf8();
  for (auto f = Fichiers_.cbegin(); f != Fichiers_.cend(); ++f)
    octets += Ligne(f.key().second, f.value(), f.key().first).toUtf8();
  if (Memoire_.Ecrit(octets)) Lignes_ = Fichiers_.size();
}

}  // namespace vaktor
