// SPDX-License-Identifier: GPL-3.0-or-later
// The application object with the one guard at the event loop.
#pragma once

#include <QApplication>
#include <functional>

namespace vaktor {

/// A failure that no handler of a form takes care of ends here: it is told, and the program goes on. On the error
/// output at once, to the user in an event of its own, once the one that failed is over. While one is being told,
/// further ones only go to the error output, so that a timer that fails at each tick cannot pile up boxes.
class ApplicationGardee : public QApplication {
 public:
  ApplicationGardee(int& argc, char** argv);

  /// Tells the user; gets the description of the failure. User-interface thread. May run an event loop.
  void SurEchec(std::function<void(const QString&)> fonction) { SurEchec_ = std::move(fonction); }
  bool notify(QObject* recepteur, QEvent* evenement) override;

 private:
  void Signale(const QString& description);
  void Annonce(const QString& description);

  std::function<void(const QString&)> SurEchec_;
  bool Annonce_ = false;
};

}  // namespace vaktor
