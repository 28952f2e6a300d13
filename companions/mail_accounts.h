// SPDX-License-Identifier: GPL-3.0-or-later
// The accounts of the mail programs on this machine, so that the user can pick one instead of typing.
#pragma once

#include <QString>
#include <array>
#include <functional>
#include <optional>

#include "companions/ports/foreign_accounts.h"
#include "engine/ports/event_pump.h"
#include "settings/parameters.h"

namespace vaktor {

/// The accounts that can be used, from slot 0 on without gaps. Owner: app/, for the whole run: they stay filled between
/// two openings of the form, and slots behind NbrComptes keep what an earlier reading left there.
struct ComptesMail {
  static constexpr std::size_t kComptesLus = 11;  ///< only the first eleven accounts of a list are looked at

  std::array<std::optional<CompteMail>, kComptesLus> Cases;
  qint32 NbrComptes = 0;         ///< slots in use
  qint32 IndexCompteDefaut = 0;  ///< position of the default account among those looked at, not among the slots
};

/// Reads all accounts anew. `ajoute` gets each usable one, in the order of the slots. Pending events run after each
/// account that is looked at. User-interface thread.
void LitComptesMail(LecteurComptes& lecteur, PompeEvenements& pompe, ComptesMail& comptes,
                    const std::function<void(const CompteMail& compte)>& ajoute);

/// Makes slot `index` the SMTP settings. The password is not touched. An account without a port gets 25. An empty slot
/// is copied like any other: the port becomes empty and the login goes off.
void ReprendCompte(const ComptesMail& comptes, qint32 index, Parametres& reglages);

/// The settings, however they were made, are those of an account that logs in with OAuth2: same server, same login.
bool SontDUnCompteOAuth2(const Parametres& reglages, const ComptesMail& comptes);

}  // namespace vaktor
