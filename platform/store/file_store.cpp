// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/file_store.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/failure.h"
#include "platform/store/private_file.h"
#include "settings/settings_text.h"

namespace vaktor {
namespace {

bool LitFormat(QIODevice& source, QSettings::SettingsMap& valeurs) {
  const TexteReglages lu = LitTexteReglages(source.readAll());
  for (auto it = lu.Valeurs.begin(); it != lu.Valeurs.end(); ++it) valeurs.insert(it.key(), it.value());
  return true;  // false would make QSettings forget the good lines
}

QByteArray TexteDe(const QSettings::SettingsMap& valeurs) {
  ValeursReglages textes;
  for (auto it = valeurs.begin(); it != valeurs.end(); ++it) textes.insert(it.key(), it.value().toString());
  return EcritTexteReglages(textes);
}

bool EcritFormat(QIODevice& cible, const QSettings::SettingsMap& valeurs) {
  const QByteArray octets = TexteDe(valeurs);
  return cible.write(octets) == octets.size();
}

// The format is ours and not Qt's own INI reader, which splits a value at commas, makes objects out of what stands
// behind a "@" in a damaged file, and gives up a section named "general".
QSettings::Format FormatReglages() {
  static const QSettings::Format kFormat =
      QSettings::registerFormat(QStringLiteral("vaktor"), LitFormat, EcritFormat, Qt::CaseSensitive);
  return kFormat;
}

QString Chemin(const QString& section, const QString& cle) { return section + u'/' + cle; }

AbimesMagasin TrouveAbimes(const QByteArray& octets) {
  const TexteReglages lu = LitTexteReglages(octets);
  return {lu.LignesIllisibles, lu.Coupees};
}

}  // namespace

MagasinFichier::MagasinFichier(const QString& fichier) : Fichier_(fichier) { OuvreMagasin(); }

MagasinFichier::~MagasinFichier() {
  if (!Magasin_) return;
  const MasquePrive masque;
  Magasin_.reset();
}

void MagasinFichier::OuvreMagasin() {
  RendPrive(Fichier_);
  // Whole, before QSettings: that takes a file that it cannot read for an empty one and would overwrite it.
  Abimes_ = TrouveAbimes(LitFichierEntier(Fichier_));
  const MasquePrive masque;
  PoseMagasin();
}

// Of no thread: whoever uses the store next may be another one, and that which made it gone. The event that a change
// posts, for a write later on, then goes nowhere, which is what is wanted.
void MagasinFichier::PoseMagasin() {
  Magasin_ = std::make_unique<QSettings>(Fichier_, FormatReglages());
  Magasin_->moveToThread(nullptr);
}

QString MagasinFichier::LitReglage(const QString& section, const QString& cle, const QString& defaut) const {
  const QString chemin = Chemin(section, cle);
  if (const auto attente = Attente_.find(chemin); attente != Attente_.end()) return *attente;
  if (const auto reprise = Reprises_.find(chemin); reprise != Reprises_.end())
    return reprise->isNull() ? defaut : *reprise;
  return Magasin_->value(chemin, defaut).toString();
}

void MagasinFichier::EcritReglage(const QString& section, const QString& cle, const QString& valeur) {
  Attente_.insert(Chemin(section, cle), valeur);
}

void MagasinFichier::Reprend(const QString& section, const QString& cle) {
  const QString chemin = Chemin(section, cle);
  if (Attente_.remove(chemin) == 0) return;
  try {
    Reprises_.insert(chemin, LitTexteReglages(LitFichierEntier(Fichier_)).Valeurs.value(chemin));
  } catch (const Echec&) {
    Reprises_.insert(chemin, QString());  // a disk that cannot be read just now
  }
}

// QSettings keeps what it could not write, across objects, and would write it with the next save, whatever another
// process has put there since. So it is given what the disk has; only with the folder in our hands, since it would
// write that too by itself, on its way out, over what has come meanwhile.
void MagasinFichier::RendAuxReprises() {
  if (Reprises_.isEmpty()) return;
  const ValeursReglages surDisque = LitTexteReglages(LitFichierEntier(Fichier_)).Valeurs;
  for (auto it = Reprises_.keyBegin(); it != Reprises_.keyEnd(); ++it) {
    if (const auto la = surDisque.find(*it); la != surDisque.end())
      Magasin_->setValue(*it, la.value());
    else
      Magasin_->remove(*it);
  }
}

QMap<QString, QString> MagasinFichier::DonneTout() const {
  QMap<QString, QString> valeurs;
  for (const QString& chemin : Magasin_->allKeys()) valeurs.insert(chemin, Magasin_->value(chemin).toString());
  valeurs.insert(Attente_);
  return valeurs;
}

void MagasinFichier::Relit() { OuvreMagasin(); }

// Whole, or not at all and then nothing is written: what makes no sense to us may be all that is left of the settings.
void MagasinFichier::GardeFichierAbime() {
  if (CopieFaite_) return;
  if (!TrouveAbimes(LitFichierEntier(Fichier_)).Intact()) {
    const QString copie = Fichier_ + QStringLiteral(".damaged");
    const QString brouillon = copie + QStringLiteral(".new");
    const auto refuse = [&](const QString& raison) {
      QFile::remove(brouillon);
      throw Echec(kAccesFichier, copie + QStringLiteral(": ") + raison);
    };
    QFile::remove(brouillon);
    QFile abime(Fichier_);
    if (!abime.copy(brouillon)) refuse(abime.errorString());
    if (std::rename(QFile::encodeName(brouillon).constData(), QFile::encodeName(copie).constData()) != 0)
      refuse(QString::fromLocal8Bit(std::strerror(errno)));
  }
  CopieFaite_ = true;
}

void MagasinFichier::Vide() {
  PrepareDossierPrive(QFileInfo(Fichier_).absolutePath());
  RendPrive(Fichier_);
  const MasquePrive masque;
  const VerrouDossier verrou(QFileInfo(Fichier_).absolutePath());
  GardeFichierAbime();
  // QSettings makes a lock file of its own. One that a killed process left empty would stop each save for 30 seconds,
  // since nobody can tell whose it was; while the folder is ours it belongs to nobody.
  if (verrou.Tenu()) QFile::remove(Fichier_ + QStringLiteral(".lock"));
  RendAuxReprises();  // before a new object: it writes what was left as soon as it is made
  if (Magasin_->status() != QSettings::NoError) PoseMagasin();
  const qint64 avant = DateFichier(Fichier_);
  for (auto it = Attente_.begin(); it != Attente_.end(); ++it) Magasin_->setValue(it.key(), it.value());
  Magasin_->sync();  // one write for all of them
  // The timer event that setValue posted would write a second time, later and outside of the mask.
  QCoreApplication::removePostedEvents(Magasin_.get(), QEvent::UpdateRequest);
  if (Magasin_->status() != QSettings::NoError) {
    qsizetype taille = 0;
    for (auto it = Attente_.begin(); it != Attente_.end(); ++it) taille += it.key().size() + it.value().size();
    const QString raison = RaisonRefus(Fichier_, taille + QFileInfo(Fichier_).size());
    throw Echec(kAccesFichier, raison.isEmpty() ? Fichier_ : Fichier_ + QStringLiteral(": ") + raison);
  }
  Attente_.clear();
  Reprises_.clear();
  AvanceDate(Fichier_, avant);
  EcritDossierSurDisque(Fichier_);
}

}  // namespace vaktor
