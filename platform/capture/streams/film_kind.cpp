#include "platform/capture/streams/film_kind.h"

#include <QFile>
#include <QFileInfo>

namespace vaktor {

const char* DemultiplexeurDuFilm(const QString& fichier) {
  // Not from a pipe: what is read here would be missing to the demultiplexer.
  if (!QFileInfo(fichier).isFile()) return nullptr;
  QFile film(fichier);
  if (!film.open(QIODevice::ReadOnly)) return nullptr;
  const QByteArray debut = film.read(12);
  if (debut.startsWith("RIFF") && debut.mid(8) == "AVI ") return "avidemux";
  if (debut.mid(4, 4) == "ftyp") return "qtdemux";
  if (debut.startsWith("\x1A\x45\xDF\xA3")) return "matroskademux";
  return nullptr;
}

}  // namespace vaktor
