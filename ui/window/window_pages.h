// SPDX-License-Identifier: GPL-3.0-or-later
// The four pages of the main window, each as what it is.
#pragma once

#include <array>

#include "ui/pages/page_ftp.h"
#include "ui/pages/page_mail.h"
#include "ui/pages/page_monitor.h"
#include "ui/pages/page_options.h"

namespace vaktor {

/// The page that each of Bouton(3) to Bouton(6) brings to the front.
inline constexpr std::array kPageDeOnglet = {1, 3, 0, 2};

/// Owned by the window, and as old as it.
struct PagesFenetre {
  PageMail& Mail;
  PageMoniteur& Moniteur;
  PageFtp& Ftp;
  PageOptions& Options;

  /// By the index of PictPage.
  std::array<PageVaktor*, 4> Toutes() const { return {&Mail, &Moniteur, &Ftp, &Options}; }
};

}  // namespace vaktor
