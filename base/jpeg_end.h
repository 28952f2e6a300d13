// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the bytes of a JPEG file are all there. The one answer for everybody who asks: the companions before they
// send a picture, the gallery before it says that one ends early.
#pragma once

#include <QByteArrayView>

namespace vaktor {

/// Where the picture ends: the index behind its end mark; -1 when `octets` do not begin one or its end is not among
/// them. A thumbnail in the header, a whole picture with an end of its own, is passed over. Bytes of a picture that are
/// wrong do not hide its end: they are passed over too. Reads each byte once.
qsizetype FinJpeg(QByteArrayView octets);

/// One whole picture and nothing else: from the start mark to the end mark, which is the last thing there is. A picture
/// that is still being written is none, and neither is a small one written over the front of a large one.
bool EstJpegEntier(QByteArrayView octets);

}  // namespace vaktor
