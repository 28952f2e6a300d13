// SPDX-License-Identifier: GPL-3.0-or-later
// What a film costs to decode and no more: its packets lie in memory, one thread of libavcodec decodes them at the
// film's own rate, in a loop, and nobody looks at the pictures. The least that any program could take for watching it.
//   decode_alone FILM RATE      until it is ended
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace {

struct Film {
  AVCodecContext* Decodeur = nullptr;
  std::vector<AVPacket*> Paquets;
};

// What reading the container costs is not counted: it is over before the clock of whoever measures starts.
bool Lit(const char* fichier, Film& film) {
  AVFormatContext* boite = nullptr;
  if (avformat_open_input(&boite, fichier, nullptr, nullptr) < 0) return false;
  if (avformat_find_stream_info(boite, nullptr) < 0) return false;
  const AVCodec* sorte = nullptr;
  const int flux = av_find_best_stream(boite, AVMEDIA_TYPE_VIDEO, -1, -1, &sorte, 0);
  if (flux < 0) return false;
  film.Decodeur = avcodec_alloc_context3(sorte);
  if (film.Decodeur == nullptr) return false;
  avcodec_parameters_to_context(film.Decodeur, boite->streams[flux]->codecpar);
  film.Decodeur->thread_count = 1;
  if (avcodec_open2(film.Decodeur, sorte, nullptr) < 0) return false;
  for (AVPacket* paquet = av_packet_alloc(); av_read_frame(boite, paquet) >= 0; paquet = av_packet_alloc()) {
    if (paquet->stream_index == flux) film.Paquets.push_back(paquet);
  }
  avformat_close_input(&boite);
  return !film.Paquets.empty();
}

void Decode(const Film& film, const AVPacket* paquet, AVFrame* trame) {
  avcodec_send_packet(film.Decodeur, paquet);
  while (avcodec_receive_frame(film.Decodeur, trame) == 0) av_frame_unref(trame);
}

}  // namespace

int main(int argc, char** argv) {
  Film film;
  const double cadence = argc == 3 ? std::atof(argv[2]) : 0;
  if (cadence <= 0 || !Lit(argv[1], film)) {
    std::fprintf(stderr, "usage: decode_alone FILM RATE\n");
    return EXIT_FAILURE;
  }
  using Horloge = std::chrono::steady_clock;
  const auto periode = std::chrono::duration_cast<Horloge::duration>(std::chrono::duration<double>(1 / cadence));
  AVFrame* trame = av_frame_alloc();
  for (auto prochaine = Horloge::now();;) {
    for (const AVPacket* paquet : film.Paquets) {
      std::this_thread::sleep_until(prochaine += periode);
      Decode(film, paquet, trame);
    }
    Decode(film, nullptr, trame);  // what was held back, and the next turn begins anew
    avcodec_flush_buffers(film.Decodeur);
  }
}
