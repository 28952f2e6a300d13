// SPDX-License-Identifier: GPL-3.0-or-later
// What the main program knows of its companions. One owner (app/ makes one); the rules of this room write it, others
// read it.
#pragma once

#include <QtGlobal>
#include <optional>

#include "texts/text_names.h"

namespace vaktor {

struct EtatLiaison {
  bool SurveillanceEnCours = false;  ///< the user's live-cam switch
  bool LiveActif = false;            ///< the companion has reported a connection: frames may flow. Never true while
                                     ///< SurveillanceEnCours is false
  bool PageInterrompue = false;  ///< frames flowed when the FTP companion went, and will flow again. Never true while
                                 ///< SurveillanceEnCours is false
  bool PageAttendue = false;     ///< a page was asked for, and no answer has come
  std::optional<Libelle> PageCoupee =
      {};                      ///< the page ran, and this error has switched it off; until the switch is used
  bool FtpModulePret = false;  ///< set by "*OKO*", read by nobody; kept because the word says so

  /// The link is as it is without a connection to the site: the switch stays.
  void CoupeFrames() { LiveActif = PageInterrompue = PageAttendue = false; }

  // Handles of the command windows, 0 until the companion has answered; nothing clears one, a new one replaces it.
  qint32 HandleFTP = 0;
  qint32 HandleMail = 0;
  qint32 HandleSon = 0;
};

}  // namespace vaktor
