// One stream of pictures, a packet at a time: libavcodec for whoever has the packets in hand. Decoding in the very
// place where the pictures are read finds them in the nearest caches, and spares what an element of its own costs each
// frame.
#pragma once

#include <gst/video/video.h>

#include <memory>

struct AVFrame;

namespace vaktor {

/// Streams whose pictures come out in the order in which they go in, none held back, one of a packet at the most: MS
/// MPEG-4 and VP8.
extern const char* const kCapsPaquets;

/// A decoded picture in the decoder's own memory, read only; no other picture is decoded into it as long as it is held
/// here. One thread at a time.
class ImageLibav {
 public:
  ImageLibav() = default;
  ~ImageLibav();
  ImageLibav(const ImageLibav&) = delete;
  ImageLibav& operator=(const ImageLibav&) = delete;

  bool EstVide() const;
  /// Lets go of the picture: the decoder has its memory back.
  void Lache();

 private:
  friend class DecodeurPaquets;

  AVFrame* Trame_ = nullptr;  // made at the first picture, and used again
};

/// One thread at a time. Pictures may outlive it.
class DecodeurPaquets {
 public:
  DecodeurPaquets();
  ~DecodeurPaquets();
  DecodeurPaquets(const DecodeurPaquets&) = delete;
  DecodeurPaquets& operator=(const DecodeurPaquets&) = delete;

  /// Starts anew, on a stream with these caps. False when libavcodec is not there or does not know it; the other calls
  /// then do nothing.
  bool Ouvre(const GstCaps* caps);
  /// Forgets the pictures before: the next packet is from somewhere else in the stream.
  void Oublie();
  /// Decodes a packet. What was damaged gives no picture, and neither does what the stream never shows.
  void Envoie(GstBuffer* paquet);
  /// The picture of the last packet, if it is whole; false when there is none. `vue` shows it while `image` holds it:
  /// its planes, its format and its colours, without a buffer of its own.
  bool Prend(ImageLibav& image, GstVideoFrame& vue);

 private:
  struct Flux;
  std::unique_ptr<Flux> Flux_;
};

}  // namespace vaktor
