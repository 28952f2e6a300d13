// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/comparison_peers.h"

#if defined(VAKTOR_BENCH_OPENCV)

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <utility>

namespace vaktor {

struct PairOpenCv::Images {
  cv::Mat Petite, Grise, Precedente, Ecart, Masque;
};

PairOpenCv::PairOpenCv(bool tiers) : Images_(std::make_unique<Images>()), Tiers_(tiers) { cv::setNumThreads(1); }
PairOpenCv::~PairOpenCv() = default;

bool PairOpenCv::Disponible() { return true; }

qint32 PairOpenCv::Compare(const TrameBrute& trame) {
  Images& images = *Images_;
  cv::Mat source(trame.Hauteur, trame.Largeur, CV_8UC4, const_cast<uchar*>(trame.Bits),
                 static_cast<std::size_t>(trame.OctetsParLigne));
  if (Tiers_) {
    const cv::Size taille((trame.Largeur + kPasEchantillon - 1) / kPasEchantillon,
                          (trame.Hauteur + kPasEchantillon - 1) / kPasEchantillon);
    cv::resize(source, images.Petite, taille, 0, 0, cv::INTER_NEAREST);
    source = images.Petite;
  }
  cv::cvtColor(source, images.Grise, cv::COLOR_BGRA2GRAY);
  if (images.Precedente.size() != images.Grise.size()) images.Grise.copyTo(images.Precedente);
  cv::absdiff(images.Grise, images.Precedente, images.Ecart);
  cv::threshold(images.Ecart, images.Masque, 15, 255, cv::THRESH_BINARY);
  const qint32 points = cv::countNonZero(images.Masque);
  const cv::Rect boite = cv::boundingRect(images.Masque);
  cv::swap(images.Grise, images.Precedente);
  return points + boite.x % 2;
}

}  // namespace vaktor

#else

namespace vaktor {

struct PairOpenCv::Images {};

PairOpenCv::PairOpenCv(bool tiers) : Tiers_(tiers) {}
PairOpenCv::~PairOpenCv() = default;

bool PairOpenCv::Disponible() { return false; }
qint32 PairOpenCv::Compare(const TrameBrute& /*trame*/) { return 0; }

}  // namespace vaktor

#endif
