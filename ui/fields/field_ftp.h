// SPDX-License-Identifier: GPL-3.0-or-later
// The fields of the live page: where the picture is published and how often.
#pragma once

#include "ui/fields/field_ports.h"
#include "ui/pages/page_ftp.h"

namespace vaktor {

/// Owner: Form1. User-interface thread. A save that fails throws Echec out of the event, to the guard of the event
/// loop.
class ChampsFtp : public QObject {
  Q_OBJECT

 public:
  ChampsFtp(const PortsChamps& ports, PageFtp& page);

 private:
  void PrepareChamps();
  void BrancheTextes();
  void BrancheListes();
  void BrancheDeparts();
  void BrancheMarques();
  void SuitTxtFtp();
  void SuitTxtRefresh();
  void SuitTextNbrPhotoFTP();
  void QuitteTxtHtml();
  /// Ties a field whose text goes to `valeur` as it stands. With `memeVide` false, an emptied field leaves the value
  /// and the mark of change as they were.
  void BrancheTexte(QLineEdit* champ, QString Parametres::*valeur, bool memeVide);

  PortsChamps Ports_;
  PageFtp& Page_;
};

}  // namespace vaktor
