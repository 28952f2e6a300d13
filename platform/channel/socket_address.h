// SPDX-License-Identifier: GPL-3.0-or-later
// The socket calls want an address of a type that holds all families; the one conversion stands here.
#pragma once

#include <sys/socket.h>
#include <sys/un.h>

#include <QByteArray>
#include <cstring>
#include <optional>

namespace vaktor {

/// Nothing for a path that does not fit (108 bytes on Linux, the end mark included).
inline std::optional<sockaddr_un> FormeAdresse(const QByteArray& chemin) {
  sockaddr_un adresse{};
  adresse.sun_family = AF_UNIX;
  if (chemin.size() >= static_cast<qsizetype>(sizeof(adresse.sun_path))) return std::nullopt;
  std::memcpy(adresse.sun_path, chemin.constData(), static_cast<std::size_t>(chemin.size()));
  return adresse;
}

inline const sockaddr* EnGeneral(const sockaddr_un& adresse) { return reinterpret_cast<const sockaddr*>(&adresse); }

inline int ConnecteSocket(int descripteur, const sockaddr_un& adresse) {
  return ::connect(descripteur, EnGeneral(adresse), sizeof adresse);
}

inline int LieSocket(int descripteur, const sockaddr_un& adresse) {
  return ::bind(descripteur, EnGeneral(adresse), sizeof adresse);
}

}  // namespace vaktor
