// SPDX-License-Identifier: GPL-3.0-or-later
// How long anything of a camera may take. All in one place, since most of these times lie within one another: the
// compiler refuses a set that contradicts itself.
#pragma once

#include <chrono>

namespace vaktor {

struct DelaisCapture {
  using Duree = std::chrono::milliseconds;

  /// What somebody waits for a first picture, whatever is tried meanwhile: formats of a device, both ways of a network
  /// camera. It begins when GStreamer is ready.
  static constexpr Duree kConnexion{5000};
  /// What is left of it for those that are tried after a first one that says nothing.
  static constexpr Duree kPourLesSuivants{1000};
  static constexpr Duree kPremierDePlusieurs = kConnexion - kPourLesSuivants;
  /// Of it, for the question which cameras there are, and for the one what a camera offers.
  static constexpr Duree kListe{1000};
  static constexpr Duree kFormats{1500};
  /// rtsp, first way: without a packet from a camera that has told what it sends.
  static constexpr Duree kSilenceRtsp{2000};
  /// rtsp, between both ways: a camera that serves few has to let go of us before we come again.
  static constexpr Duree kEntreChemins{300};
  /// Beyond this a session that has not told how it went hangs in the system, and is left behind.
  static constexpr Duree kSessionPendue = kConnexion + Duree(500);
  /// GStreamer's first start after plugins were installed: it looks through all of them.
  static constexpr Duree kPreparation{60'000};

  /// One opening of what was at work before, to its first picture. Nobody waits for it.
  static constexpr Duree kReouverture{6000};
  /// From the beginning of one try to the beginning of the next.
  static constexpr Duree kEntreEssais{2000};
  /// The same of a film that cannot be played in a loop and has come to its end.
  static constexpr Duree kEntreLectures{200};
  /// A device that is not there is looked for at each try for so long after it was lost or something was plugged in
  /// (its rights and links come after its node), and then no more than this often without such an event.
  static constexpr Duree kApresBranchement{4000};
  static constexpr Duree kRonde{60'000};

  static constexpr Duree kRegard{50};      ///< while a first picture is awaited
  static constexpr Duree kArret{300};      ///< of the end of a session, what the window may feel
  static constexpr Duree kPartants{2000};  ///< before a device that may still be held is opened again
};

static_assert(DelaisCapture::kListe + DelaisCapture::kFormats < DelaisCapture::kPremierDePlusieurs,
              "a device that answers slowly still has time for a picture");
static_assert(2 * DelaisCapture::kSilenceRtsp + DelaisCapture::kEntreChemins < DelaisCapture::kConnexion,
              "the second way has as long as the first");
static_assert(DelaisCapture::kSilenceRtsp < DelaisCapture::kPremierDePlusieurs, "silence is found out before the end");
static_assert(DelaisCapture::kSessionPendue > DelaisCapture::kConnexion + 2 * DelaisCapture::kRegard,
              "a session that ends in time is not taken for one that hangs");
static_assert(DelaisCapture::kReouverture >= DelaisCapture::kConnexion,
              "what a first picture may take it may take again");
static_assert(DelaisCapture::kApresBranchement >= 2 * DelaisCapture::kEntreEssais, "at least two looks");

}  // namespace vaktor
