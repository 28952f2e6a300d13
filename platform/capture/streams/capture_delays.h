// SPDX-License-Identifier: GPL-3.0-or-later
// How long anything of a camera may take. All in one place, since most of these times lie within one another: the
// compiler refuses a set that contradicts itself.
#pragma once

#include <algorithm>
#include <array>
#include <chrono>

#include "platform/capture/choice/capture_reason.h"
#include "platform/capture/choice/named_source.h"

namespace vaktor {

struct DelaisCapture {
  using Duree = std::chrono::milliseconds;

  /// What somebody waits for a first picture, whatever is tried meanwhile: formats of a device, both ways of a network
  /// camera. It begins when GStreamer is ready. Of what is left of it each one that is tried has an equal share, the
  /// last one all, and one whose packets come all as well: a first whole picture may be ten seconds behind them.
  static constexpr Duree kConnexion{10'000};
  static constexpr Duree kConnexionReseau{15'000};
  static constexpr Duree Connexion(GenreSource genre) {
    return genre == GenreSource::kReseau ? kConnexionReseau : kConnexion;
  }
  /// Of it, for the question which cameras there are, and for the one what a camera offers.
  static constexpr Duree kListe{1000};
  static constexpr Duree kFormats{1500};
  /// rtsp, between both ways: a camera that serves few has to let go of us before we come again.
  static constexpr Duree kEntreChemins{300};
  /// Behind a connection that failed and told nothing: the system is asked how far the way to the camera goes.
  static constexpr Duree kSonde{2000};
  /// A session that has not told how it went this long behind its time hangs in the system, and is left behind.
  static constexpr Duree kPendue = kSonde + Duree(500);
  /// GStreamer's first start after plugins were installed: it looks through all of them.
  static constexpr Duree kPreparation{60'000};

  /// What the window waits for the source that was at work, when another one was refused. It is tried for ever.
  static constexpr Duree kRetour{5000};
  /// Between the rounds of one loss. The first counts from the beginning of the opening that was lost, so that a camera
  /// that comes and goes is not opened more often than this; the others from the end of a round.
  static constexpr std::array<Duree, 5> kPauses{Duree(2000), Duree(5000), Duree(10'000), Duree(30'000), Duree(60'000)};
  /// Who was refused a login: cameras lock an address that asks again and again with a wrong password, and say 403
  /// then.
  static constexpr Duree kPauseRefus{300'000};
  /// `echecs`: rounds that have failed since the loss.
  static constexpr Duree Pause(int echecs, Motif motif) {
    if (motif == Motif::kMotDePasse || motif == Motif::kInterdit) return kPauseRefus;
    return kPauses.at(std::min(static_cast<std::size_t>(std::max(echecs, 0)), kPauses.size() - 1));
  }
  /// The same of a film that cannot be played in a loop and has come to its end.
  static constexpr Duree kEntreLectures{200};
  /// A device that is not there is looked for at each try for so long after it was lost or something was plugged in
  /// (its rights and links come after its node), and then no more than this often without such an event.
  static constexpr Duree kApresBranchement{4000};
  static constexpr Duree kRonde{60'000};

  /// A start that nobody looks at comes with the machine's own, and some cameras long behind it: another one does not
  /// take the place of the chosen one before, for there it would stay.
  static constexpr Duree kAvantUneAutre{60'000};
  /// Between two readings of a memory that does not tell which camera was chosen.
  static constexpr Duree kRelecture{5000};

  static constexpr Duree kRegard{50};      ///< while a first picture is awaited
  static constexpr Duree kVeille{500};     ///< while pictures come
  static constexpr Duree kArret{300};      ///< of the end of a session, what the window may feel
  static constexpr Duree kPartants{2000};  ///< before a device that may still be held is opened again
};

static_assert(DelaisCapture::kListe + DelaisCapture::kFormats < DelaisCapture::kConnexion / 2,
              "a device that answers slowly still has time for a picture");
static_assert(DelaisCapture::kPendue > DelaisCapture::kSonde + 2 * DelaisCapture::kRegard,
              "a session that ends in time is not taken for one that hangs");
static_assert(DelaisCapture::kApresBranchement >= 2 * DelaisCapture::kPauses.front(), "at least two looks");

}  // namespace vaktor
