// ModuleRegistre: texts out of the registry and into it.
#pragma once

#include "app/ports/system_registry.h"

namespace vaktor {

/// The text of a value: a string (type 1) up to its first NUL, bytes (type 3) as the decimal number of the first two,
/// signed and low byte first. Any other type, and a value that is not there, gives the empty text.
QString TexteValeur(const std::optional<ValeurRegistre>& valeur);

/// A value of the user's own tree, key path + "\" + `sousCle`; `defaut` when the text comes out empty, also when the
/// key cannot be opened.
QString LitRegistreUtilisateur(const RegistreSysteme& registre, const QString& cle, const QString& sousCle,
                               const QString& nom, const QString& defaut);

/// Written as a string without its NUL, which is how the system's own tools find it too. Nothing is checked.
void EcritRegistreUtilisateur(RegistreSysteme& registre, const QString& cle, const QString& sousCle, const QString& nom,
                              const QString& donnee);

}  // namespace vaktor
