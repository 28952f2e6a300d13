// SPDX-License-Identifier: GPL-3.0-or-later
// What a photo is as a file, for everybody who names one, looks for one or sends one. Photos of another format are
// these two lines, an encoder (platform/image) and the test whether one is whole (base/jpeg_end.h). The live image is
// not one of them: its name is part of the page.
#pragma once

#include <QLatin1String>

namespace vaktor {

/// How its name ends.
inline constexpr QLatin1String kFinPhoto(".jpg");
/// What a mail, a web server or a film calls it: the media type of RFC 2046.
inline constexpr char kTypePhoto[] = "image/jpeg";

}  // namespace vaktor
