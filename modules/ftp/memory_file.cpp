// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/memory_file.h"

#include <QFile>
#include <QSaveFile>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "platform/store/bounded_file.h"

namespace vaktor {

void FichierMemoire::NoteEmpechement(int erreur) {
  const QString raison = QString::fromLocal8Bit(std::strerror(erreur));
  const QString empechement = Chemin_ + QStringLiteral(": ") + raison;
  if (empechement != Empechement_) Trouble_ = TroubleMemoire{Chemin_, raison, false};
  Empechement_ = empechement;
  Lu_ = false;
}

std::optional<QByteArray> FichierMemoire::Lit() {
  if (Lu_) return std::nullopt;
  QByteArray octets;
  const int erreur = LitFichierBorne(Chemin_, TailleMax_, octets);
  if (EstFauteDuFichier(erreur)) {
    MetDeCote();
    return Lu_ ? std::optional(QByteArray()) : std::nullopt;
  }
  if (erreur != 0 && erreur != ENOENT) {
    NoteEmpechement(erreur);
    return std::nullopt;
  }
  Lu_ = true;
  Empechement_.clear();
  return octets;
}

void FichierMemoire::MetDeCote() {
  const QString autre = Chemin_ + QStringLiteral(".bad");
  if (std::rename(QFile::encodeName(Chemin_).constData(), QFile::encodeName(autre).constData()) != 0) {
    NoteEmpechement(errno);
    return;
  }
  Lu_ = true;
  Empechement_.clear();
  Trouble_ = TroubleMemoire{autre, {}, true};
}

bool FichierMemoire::Ecrit(const QByteArray& octets) const {
  if (!Lu_) return false;
  QSaveFile fichier(Chemin_);
  if (!fichier.open(QIODevice::WriteOnly)) return false;
  fichier.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  fichier.write(octets);
  return fichier.commit();
}

bool FichierMemoire::Ajoute(const QByteArray& octets) const {
  if (!Lu_) return false;
  QFile fichier(Chemin_);
  return fichier.open(QIODevice::WriteOnly | QIODevice::Append) && fichier.write(octets) == octets.size();
}

std::optional<TroubleMemoire> FichierMemoire::PrendTrouble() { return std::exchange(Trouble_, std::nullopt); }

}  // namespace vaktor
