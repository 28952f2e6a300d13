// Port: the controls that a load of the parameters fills. The main form implements it.
#pragma once

#include <QtGlobal>

namespace vaktor {

/// The controls that show a stored parameter, by their names.
enum class ControleParametre {
  ChkSeuilAuto,
  CombSkin,
  CheckPPhot,
  CheckSon,
  CheckMail,
  TextEMail,
  TextSujet,
  TextTexte,
  TxtNbrPhoto,
  TextNbrMail,
  TxtHtml,
  TxtFtp,
  TxtUserName,
  TxtFTPracine,
  TxtRefresh,
  TxtPass,
  TextNbrPhotoFTP,
  Text1,
  CombQualit
};

/// User-interface thread.
class AffichageParametres {
 public:
  virtual ~AffichageParametres() = default;
  /// Assigns to the control what Parametres holds for it at this moment. The change handlers of the control run as if
  /// the user had typed: they clean the text, write the cleaned value back into Parametres, mark the parameters as
  /// changed, and TxtRefresh and Text1 save at once when their text really changes. A handler may therefore call
  /// SauveParametres from inside this call. CombSkin applies the skin.
  virtual void MontreParametre(ControleParametre controle) = 0;
};

}  // namespace vaktor
