// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/published_inboxes_reader.h"

#include <sys/stat.h>

#include <QFile>
#include <cerrno>

#include "companions/contract/command_words.h"
#include "settings/settings_text.h"

namespace vaktor {

namespace {

constexpr qint64 kNanos = 1'000'000'000;
constexpr qint64 kOctetsMax = 16 << 20;  // a settings file has a few thousand

PoigneesPubliees TrouvePoignees(const QByteArray& texte) {
  const ValeursReglages valeurs = LitTexteReglages(texte).Valeurs;
  PoigneesPubliees poignees{};
  for (const Compagnon compagnon : kCompagnons) {
    const QString cle = DonneIdentite(compagnon).Section + QLatin1Char('/') + kCleHwndvk;
    poignees.at(static_cast<std::size_t>(compagnon)) = valeurs.value(cle).toInt();
  }
  return poignees;
}

}  // namespace

LecteurCasiersFichier::Lecture LecteurCasiersFichier::Lit(const QByteArray& fichier, const Lecture& derniere) {
  struct stat etat {};
  if (::stat(fichier.constData(), &etat) != 0) {
    // A file that is not there holds no handle. Of one that cannot be looked at nothing is known.
    return errno == ENOENT ? Lecture{{}, PoigneesPubliees{}} : Lecture{};
  }
  const Empreinte empreinte{etat.st_ino, etat.st_mtim.tv_sec * kNanos + etat.st_mtim.tv_nsec, etat.st_size};
  if (derniere.Lues && derniere.De == empreinte) return derniere;
  QFile source(QFile::decodeName(fichier));
  if (!S_ISREG(etat.st_mode) || !source.open(QIODevice::ReadOnly)) return {};
  const QByteArray texte = source.read(kOctetsMax);
  if (source.error() != QFileDevice::NoError) return {};
  return {empreinte, TrouvePoignees(texte)};
}

void LecteurCasiersFichier::LitCasiers(Rend rend) {
  Question_.Pose([fichier = QFile::encodeName(Fichier_), derniere = Derniere_] { return Lit(fichier, derniere); }, {},
                 [this, rend = std::move(rend)](const Lecture& lecture) {
                   Derniere_ = lecture;
                   rend(lecture.Lues);
                 });
}

}  // namespace vaktor
