// The bell between the thread that brings the frames and the one that looks at them.
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <mutex>

namespace vaktor {

/// Rung on any thread, heard on the thread that made the listener, out of its event loop. Several rings that nobody has
/// heard yet are one. The box may outlive the driver, where the system hangs: a bell without a listener is silent.
class SonnetteImages {
 public:
  void Sonne() noexcept;

 private:
  friend class EcouteSonnette;
  std::mutex Verrou_;
  QObject* Chez_ = nullptr;  // Verrou_; null: nobody is at home
  bool Sonnee_ = false;      // Verrou_; on its way
};

/// Made and destroyed on the thread that is to be woken. After its destruction nothing is called any more.
class EcouteSonnette : public QObject {
 public:
  explicit EcouteSonnette(std::function<void()> entendu);
  ~EcouteSonnette() override;

  const std::shared_ptr<SonnetteImages>& Sonnette() const { return Sonnette_; }
  bool event(QEvent* evenement) override;

 private:
  const std::function<void()> Entendu_;
  const std::shared_ptr<SonnetteImages> Sonnette_ = std::make_shared<SonnetteImages>();
};

}  // namespace vaktor
