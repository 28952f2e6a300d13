// SPDX-License-Identifier: GPL-3.0-or-later
// Why a camera gives no picture: what GStreamer and the system said, as one of a few reasons, and what each is called.
#pragma once

#include <QString>

#include "texts/language.h"

namespace vaktor {

enum class Motif {
  kInconnu,           ///< no picture came, and nobody said why
  kMotDePasse,        ///< the name or the password is refused (401)
  kInterdit,          ///< 403
  kPasTrouve,         ///< 404: the camera is there, the path is not
  kErreurServeur,     ///< it answers with another status; Detail: the number
  kHoteInconnu,       ///< nobody has this name
  kSansRoute,         ///< the network does not lead there
  kPorteFermee,       ///< the machine is there, and nothing listens at this port
  kSansReponse,       ///< nothing answers at all
  kCertificat,        ///< who answers cannot prove who it is
  kMuette,            ///< it accepts, and sends nothing
  kSansImageEntiere,  ///< it sends, and no whole picture came: no key frame, mostly
  kPasUneImage,       ///< what comes is neither a picture nor a film: a page of the camera, mostly
  kSansDecodeur,      ///< nothing that is installed here decodes what comes
  kOccupee,           ///< another program has the device
  kSansPermission,    ///< the system refuses the device or the file; Detail: the group that may open it, if any may
  kAbsente,           ///< the device is not plugged in
  kFichierAbsent,     ///< the file is not there
  kMemoire,           ///< which camera was chosen cannot be read; Detail: the file, and the system's words
  kPasDuBureau,       ///< the desktop does not hand this camera out
  kSansGreffon,       ///< what its cameras are reached by is not installed; Detail: the package
  kAbimee,            ///< pictures come, and every one of them is damaged
  kSansImage,         ///< the device is there, may be opened, and gives none; nobody says why
  kTropGrande,        ///< they have more pixels than get memory (kPixelsMaximum)
};

struct Raison {
  Motif Quoi = Motif::kInconnu;
  QString Detail;

  bool operator==(const Raison&) const = default;
};

/// One sentence, with what to do about it. Holds no address and no password.
QString DitRaison(const Raison& raison, Langue langue);

}  // namespace vaktor
