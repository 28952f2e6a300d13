// Port: command words to the three companions. The save tells them "Optio" through it.
#pragma once

#include <QString>

namespace vaktor {

/// User-interface thread. Fire and forget: returns at once, fails without notice.
class CommandesModules {
 public:
  virtual ~CommandesModules() = default;
  virtual void EnvoiFTP(const QString& mot) = 0;  ///< a command word of five characters
  virtual void EnvoiMail(const QString& mot) = 0;
  virtual void EnvoiSon(const QString& mot) = 0;
};

}  // namespace vaktor
