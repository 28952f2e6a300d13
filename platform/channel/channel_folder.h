// SPDX-License-Identifier: GPL-3.0-or-later
// Where the sockets of the channel lie, and how a handle becomes an address.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace vaktor {

/// Longest message, in bytes; a longer one is dropped whole by the receiver.
inline constexpr int kMessageMax = 512;

/// A folder that holds one datagram socket a handle, named by the handle in decimal. Only the user can enter it.
class DossierCanal {
 public:
  /// "$XDG_RUNTIME_DIR/vaktor", or "/tmp/vaktor-<user number>" where that variable is missing.
  static QString DonneCheminUsuel();
  /// The folder that kVariableCanal names, else the usual one, else, where that is somebody else's or cannot be made,
  /// "vaktor/canal" in the user's state folder, which nobody else can have taken. What is not there is made.
  static QString TrouveChemin();

  /// Makes the folder with mode 0700 if it is not there. Throws Echec when it cannot be made, is not a folder, belongs
  /// to another user or can be entered by others.
  explicit DossierCanal(const QString& chemin = TrouveChemin());

  const QString& Chemin() const { return Chemin_; }
  QByteArray DonneAdresse(qint32 poignee) const;  ///< full path of the socket

  /// Whether a process holds this handle now; nothing when the system has no descriptor to find that out. Sends
  /// nothing.
  std::optional<bool> Repond(qint32 poignee) const;
  /// When this handle was opened, in milliseconds since 1970; nothing when it is not there.
  std::optional<qint64> DonneOuverture(qint32 poignee) const;
  /// Removes this handle's socket when no process holds it any more.
  void RetireSiPerimee(qint32 poignee) const;
  /// Removes the sockets that no process holds any more: leftovers of a crash.
  void BalaiePerimees() const;

 private:
  QString Chemin_;
};

}  // namespace vaktor
