// SPDX-License-Identifier: GPL-3.0-or-later
// One format of a camera: how the pixels come, how many, how often.
#pragma once

#include <QList>
#include <QString>

namespace vaktor {

struct FormatCamera {
  QString Codage;      ///< V4L2 four-character code as text: "MJPG", "YUYV", "NV12", "H264"; empty: unknown
  int Largeur = 0;     ///< pixels
  int Hauteur = 0;     ///< pixels
  int CadenceNum = 0;  ///< frames per second = CadenceNum / CadenceDen; 0: the device does not tell
  int CadenceDen = 1;

  double ImagesParSeconde() const { return CadenceDen > 0 ? static_cast<double>(CadenceNum) / CadenceDen : 0.0; }
  bool operator==(const FormatCamera&) const = default;
};

struct TailleCourante {
  int Largeur;
  int Hauteur;
};
/// The sizes that cameras usually offer, smallest first; what a range of sizes is told as.
const QList<TailleCourante>& TaillesCourantes();

/// Whether its frames are more than the detection can hold (fitted_size.h). They are scaled down as they come, which
/// takes time at each frame and gains nothing: such formats are never a device's first choice.
bool FormatTropGrand(const FormatCamera& format);
/// Whether a device offers nothing else. False for an empty list.
bool SontTousTropGrands(const QList<FormatCamera>& formats);

/// The format that a device gets before the user has picked one: 640x480 at 25 frames a second or more where it is
/// offered, else the common size nearest to it that reaches 25, else the fastest of those that are not too large. At
/// equal size the coding that costs least to turn into a picture, then the rate nearest to 30. Codings that are not
/// known count only where the device offers nothing else.
/// All are too large: the smallest, the least work; an empty list: an empty format (whatever the device
/// gives).
FormatCamera ChoisitPremierFormat(const QList<FormatCamera>& formats);

/// ChoisitPremierFormat and what is tried after it where that gives no frame, best first; never empty. While one of
/// `formats` is not too large, none here is: the empty format, with which a device gives what it likes, then stands at
/// the end only where none of them is too large. Otherwise the best of other codings follow, then of smaller sizes.
QList<FormatCamera> ListePremiersFormats(const QList<FormatCamera>& formats);

/// A camera that the desktop hands out (named_source.h, kBureau).
struct CameraBureau {
  QString Nom;     ///< for people
  QString Source;  ///< for ComprendSource
  bool operator==(const CameraBureau&) const = default;
};

}  // namespace vaktor
