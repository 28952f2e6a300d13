// Whether a JPEG file has been written to its end.
#pragma once

#include <QByteArray>

namespace vaktor {

/// True when the bytes are one whole JPEG picture: from the start mark to the end mark, which has to be the last thing
/// in them. The main program rewrites the live image without a lock, so that any part of it may be read; the end mark
/// cannot occur inside the picture data, where each 0xFF is followed by 0x00 or a restart mark (ITU T.81, B.1.1).
bool EstJpegEntier(const QByteArray& octets);

}  // namespace vaktor
