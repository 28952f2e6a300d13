// What the capture driver remembers between two runs: the source the user picked and the format of each device. A file
// of its own (INI, mode 0600) in the user's configuration folder, apart from the settings of the program.
#pragma once

#include <QString>
#include <optional>

#include "platform/capture/camera_format.h"

namespace vaktor {

class MemoireCapture {
 public:
  /// `fichier`: full path; made when something is first remembered. A damaged file counts as empty.
  explicit MemoireCapture(const QString& fichier);

  QString Source() const;  ///< stable name, address, file or "test"; empty: the first capture driver
  void RetientSource(const QString& source);
  std::optional<FormatCamera> Format(const QString& nomStable) const;
  void RetientFormat(const QString& nomStable, const FormatCamera& format);

 private:
  QString Fichier_;
};

}  // namespace vaktor
