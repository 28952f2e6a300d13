// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the splash as the start-up sequence sees it.
#pragma once

#include <QString>
#include <functional>

namespace vaktor {

/// User-interface thread. Loaded and invisible when it is made.
class EcranDepart {
 public:
  virtual ~EcranDepart() = default;
  virtual void MontreVersion(const QString& texte) = 0;  ///< lblVersion
  virtual void MontreTitre(const QString& texte) = 0;    ///< lblProductName(0) and lblProductName(1)
  virtual void MontreProgres(const QString& mot) = 0;    ///< LabelLoading
  virtual void Montre() = 0;
  virtual void Cache() = 0;     ///< it stays loaded
  virtual void Decharge() = 0;  ///< nothing shows it again
  /// Called at each click on the form.
  virtual void SurClic(std::function<void()> fonction) = 0;
};

}  // namespace vaktor
