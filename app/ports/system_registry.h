// Port: the registry of a system that has one, as far as the restart with raised rights needs it. Its names and types
// are those of the Windows registry functions (RegQueryValueEx, RegSetValueEx).
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace vaktor {

enum class RacineRegistre { kUtilisateur, kMachine };  ///< HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE

/// One value as it is stored.
struct ValeurRegistre {
  quint32 Type = 0;  ///< 1 a string in the ANSI code page, 3 bytes
  QByteArray Octets;
};

class RegistreSysteme {
 public:
  virtual ~RegistreSysteme() = default;
  /// Nothing for a key or value that is not there or cannot be read.
  virtual std::optional<ValeurRegistre> LitValeur(RacineRegistre racine, const QString& cle,
                                                  const QString& nom) const = 0;
  /// Makes the key if needed. What fails is not told.
  virtual void EcritValeur(const QString& cle, const QString& nom, const ValeurRegistre& valeur) = 0;
};

}  // namespace vaktor
