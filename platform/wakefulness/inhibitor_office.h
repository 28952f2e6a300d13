// SPDX-License-Identifier: GPL-3.0-or-later
// Who keeps the machine awake: the login manager, else the desktop's portal. Blocks; lives on a thread of its own.
#pragma once

#include <QString>

#include "health/ports/awake_machine.h"

namespace vaktor {

/// Addresses as D-Bus writes them; empty: there is no such bus.
struct AdressesBus {
  QString Systeme;
  QString Session;
};

/// From the environment, else where both lie by custom. Never starts a bus.
AdressesBus TrouveAdressesBus();

/// One thread at a time. Each call may wait for a bus that does not answer, up to the half minute that its library
/// takes.
class BureauEveil {
 public:
  static constexpr int kAttenteMs = 5000;  ///< of one answer

  struct Resultat {
    ReponseEveil Reponse = ReponseEveil::kPersonne;
    QString Mots;
  };

  explicit BureauEveil(AdressesBus adresses);
  ~BureauEveil();
  BureauEveil(const BureauEveil&) = delete;
  BureauEveil& operator=(const BureauEveil&) = delete;

  Resultat Demande();
  void Lache();

 private:
  bool Tient() const;
  Resultat DemandeLogin1();
  Resultat DemandePortail();
  QString NommeConnexion();

  AdressesBus Adresses_;
  int Descripteur_ = -1;    // the login manager's: who holds it keeps the machine awake
  QString Portail_;         // name of the connection on which the portal was asked; its end gives back
  QString RequetePortail_;  // path of its object
  int Connexions_ = 0;
};

}  // namespace vaktor
