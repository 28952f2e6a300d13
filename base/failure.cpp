#include "base/failure.h"

namespace vaktor {

Echec::Echec(qint32 numero, const QString& description)
    : Numero_(numero), Description_(description), Texte8_(description.toUtf8()) {}

const char* Echec::what() const noexcept { return Texte8_.constData(); }

}  // namespace vaktor
