// The built-in picture as a stream, at its own 30 frames a second.
#pragma once

#include <condition_variable>
#include <mutex>

#include "platform/capture/frames/frame_pool.h"
#include "platform/capture/frames/newest_frame.h"
#include "platform/capture/streams/frame_stream.h"
#include "platform/capture/streams/test_picture.h"

namespace vaktor {

/// Its frames come on the thread that watches it.
class FluxTest : public FluxImages {
 public:
  explicit FluxTest(BoiteImages& boite) : Boite_(boite) {}

  bool Ouvre() override;
  Etat Surveille(const std::stop_token& arret, std::chrono::milliseconds delai) override;
  void Ferme() override {}

 private:
  void Livre();

  BoiteImages& Boite_;
  ImageTest Image_;
  ReserveImages Reserve_;
  quint64 Numero_ = 0;
  BoiteImages::Horloge::time_point Prochaine_{};
  std::mutex Verrou_;
  std::condition_variable_any Reveil_;
};

}  // namespace vaktor
