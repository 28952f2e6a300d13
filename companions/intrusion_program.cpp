// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/intrusion_program.h"

#include <exception>

namespace vaktor {

namespace {
constexpr qint32 kRegardMs = 1000;
}  // namespace

AnnonceIntrusion::AnnonceIntrusion(const PortsAnnonceIntrusion& ports)
    : Ports_(ports),
      TimerFin_(ports.Minuteries.CreeMinuterie(QStringLiteral("FinIntrusion"), kRegardMs, [this] { FinitSiCalme(); })) {
}

void AnnonceIntrusion::FinitSiCalme() {
  if (!EnCours_ || static_cast<quint32>(Ports_.Temps.CompteTics()) - DernierActe_ < kFinMs) return;
  EnCours_ = Lance_ = false;
  Photos_.clear();
  TimerFin_->Desactive();
}

// The photo of the first frame comes before the frame itself: what came before it belongs to the intrusion before.
void AnnonceIntrusion::NotePhoto(const QString& fichier) noexcept {
  try {
    FinitSiCalme();
    Photos_.append(fichier);
    if (Photos_.size() > kPhotosMax) Photos_.removeFirst();
  } catch (const std::exception&) {
    // Want of memory costs the program a photo, and the alarm nothing.
  }
}

void AnnonceIntrusion::NoteIntrusion() noexcept {
  try {
    FinitSiCalme();
    const auto tic = static_cast<quint32>(Ports_.Temps.CompteTics());
    if (!EnCours_ && Ports_.SurDebut) Ports_.SurDebut();
    EnCours_ = true;
    DernierActe_ = tic;
    TimerFin_->Active();
    if (Lance_ && tic - DernierLancement_ < kPauseMs) return;
    Lance_ = true;
    DernierLancement_ = tic;
    Ports_.Programme.Lance(Photos_);
  } catch (const std::exception&) {
    // Likewise.
  }
}

}  // namespace vaktor
