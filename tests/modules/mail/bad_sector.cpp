// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/bad_sector.h"

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>

namespace vaktor::essai {
namespace {

std::atomic<qint64> echoueApres = -1;  // -1: nowhere

}  // namespace

/// Asked by the system call below: how many of so many bytes can be read, 0 for none.
static std::size_t DonneLisibles(int descripteur, std::size_t nombre) {
  const qint64 limite = echoueApres;
  struct stat etat {};
  if (limite < 0 || ::fstat(descripteur, &etat) != 0 || !S_ISREG(etat.st_mode)) return nombre;
  const qint64 reste = limite - ::lseek(descripteur, 0, SEEK_CUR);
  return reste <= 0 ? 0 : std::min(nombre, static_cast<std::size_t>(reste));
}

MauvaisSecteur::MauvaisSecteur(qint64 octets) { echoueApres = octets; }
MauvaisSecteur::~MauvaisSecteur() { echoueApres = -1; }

}  // namespace vaktor::essai

// In the place of the system's, for Qt too.
extern "C" __attribute__((visibility("default"))) ssize_t read(int descripteur, void* octets, std::size_t nombre) {
  const std::size_t lisibles = vaktor::essai::DonneLisibles(descripteur, nombre);
  if (lisibles < nombre && lisibles == 0) {
    errno = EIO;
    return -1;
  }
  return ::syscall(SYS_read, descripteur, octets, lisibles);
}
