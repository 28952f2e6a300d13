// What the link to the companions shows on the main window, as states. The forms find the words and colours. The lamps
// and the message about the camera are shown through the engine's AffichageSurveillance, which has them already.
#pragma once

#include <QString>

namespace vaktor {

/// The fields of the FTP page that an error word marks.
enum class ChampLiaison { kTxtFtp, kTxtFTPracine, kTxtUserName, kTxtPass };

/// Implemented by the main window. User-interface thread; must not block, but for the question.
class AffichageLiaison {
 public:
  virtual ~AffichageLiaison() = default;
  virtual void MontreStatut(int numero) = 0;                    ///< LblDebugftp: Texte(numero)
  virtual void MontreStatutLitteral(const QString& texte) = 0;  ///< LblDebugftp: the same word in both languages
  virtual void RougitChamp(
      ChampLiaison champ) = 0;       ///< text colour 255, red; the field turns black again by itself when clicked
  virtual void MontrePageFtp() = 0;  ///< PictPage(2) to the front
  /// Message box with OK and Cancel, Messages(9), title Messages(2). True for OK.
  virtual bool DemandeParametresSite() = 0;
};

}  // namespace vaktor
