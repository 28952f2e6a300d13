// TERM, INT and HUP as events of the user-interface thread.
#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace vaktor {

/// One object for the whole run, made after the application object. The first of the signals calls the function from
/// the event loop; a second one of its kind has its plain effect, for a program that hangs. User-interface thread.
class SignauxFin : public QObject {
  Q_OBJECT

 public:
  explicit SignauxFin(std::function<void()> fonction);
  ~SignauxFin() override;
  SignauxFin(const SignauxFin&) = delete;
  SignauxFin& operator=(const SignauxFin&) = delete;

 private:
  void Recoit();

  std::function<void()> Fonction_;
  QSocketNotifier* Veille_ = nullptr;
  int Lecture_ = -1;
};

}  // namespace vaktor
