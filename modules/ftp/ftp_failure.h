// SPDX-License-Identifier: GPL-3.0-or-later
// Why one run of the library failed, as exactly as its code and the server's words tell.
#pragma once

#include "modules/ftp/ftp_dialogue.h"
#include "modules/ftp/ftp_worker.h"

namespace vaktor {

/// `code`: the library's result (CURLcode), 0 for none.
PrecisionFtp PreciseEchec(int code, const DialogueFtp& dialogue);

}  // namespace vaktor
