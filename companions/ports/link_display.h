// SPDX-License-Identifier: GPL-3.0-or-later
// What the link to the companions shows on the main window, as states. The forms find the words and colours. The lamps
// and the message about the camera are shown through the engine's AffichageSurveillance, which has them already.
#pragma once

#include "texts/phrase.h"
#include "texts/text_names.h"

namespace vaktor {

/// The fields of the FTP page that an error word marks.
enum class ChampLiaison { kTxtFtp, kTxtFTPracine, kTxtUserName, kTxtPass };

/// Implemented by the main window. User-interface thread; must not block, but for the question.
class AffichageLiaison {
 public:
  virtual ~AffichageLiaison() = default;
  virtual void MontreStatut(Libelle statut) = 0;                ///< LblDebugftp
  virtual void MontreStatutLitteral(const Phrase& statut) = 0;  ///< LblDebugftp: one that no table holds
  /// Text colour 255, red. A click turns the field black again by itself, but not TxtFTPracine.
  virtual void RougitChamp(ChampLiaison champ) = 0;
  virtual void NoircitRacine() = 0;  ///< TxtFTPracine is black again
  virtual void MontrePageFtp() = 0;  ///< PictPage(2) to the front
  /// Message box with OK and Cancel, Message::kSiteIncomplet, title Message::kTitreManque. True for OK.
  virtual bool DemandeParametresSite() = 0;
};

}  // namespace vaktor
