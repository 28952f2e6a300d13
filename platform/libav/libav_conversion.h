// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the formats that nobody here has a name for, brought into one that has: ten, twelve and sixteen bits,
// colours in planes of their own, rows stored bottom up. libswscale knows them all.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
}

struct SwsContext;

namespace vaktor {

/// One thread at a time; made for one stream.
class ConversionLibav {
 public:
  ConversionLibav() = default;
  ~ConversionLibav();
  ConversionLibav(const ConversionLibav&) = delete;
  ConversionLibav& operator=(const ConversionLibav&) = delete;

  /// `trame` becomes the same picture in eight bits, of a format with FormatGStreamer: as many pixels share a colour as
  /// before where there is a name for that, else fewer; matrix and range stay. Nothing is done to a picture that has
  /// its name already. False without libswscale, without memory, and for what it does not read (a surface that only a
  /// graphics card can see): `trame` is then as it was.
  bool MetEnForme(AVFrame& trame);

 private:
  SwsContext* Contexte_ = nullptr;
};

}  // namespace vaktor
