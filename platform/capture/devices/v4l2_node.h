// SPDX-License-Identifier: GPL-3.0-or-later
// One opened V4L2 node. Only for the sources of this folder that talk to Linux.
#pragma once

#include <QString>

namespace vaktor {

/// Opens without blocking, closes when it goes out of scope. A node that cannot be opened answers every question
/// with "no".
class NoeudV4L2 {
 public:
  explicit NoeudV4L2(const QString& noeud);
  ~NoeudV4L2();
  NoeudV4L2(const NoeudV4L2&) = delete;
  NoeudV4L2& operator=(const NoeudV4L2&) = delete;

  /// One ioctl of linux/videodev2.h, begun again when a signal cut it short. False: refused, or not known.
  bool Demande(unsigned long requete, void* argument) const;
  /// The capabilities of this very node (not of the whole device); 0: no V4L2 node.
  quint32 Capacites() const;
  /// V4L2 buffer type of its capture side, or 0 where it has none.
  quint32 TypeTampon() const;

 private:
  int Descripteur_ = -1;
};

/// Text of a fixed kernel field, cut at its end or its first zero.
QString TexteNoyau(const unsigned char* texte, int taille);

}  // namespace vaktor
