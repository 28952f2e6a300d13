// SPDX-License-Identifier: GPL-3.0-or-later
// Words that the numbered tables do not hold, because they speak of things that only this system knows: a camera that
// vanished, a failure that nobody expected.
#pragma once

#include <QString>

#include "engine/ports/surveillance_display.h"
#include "texts/language.h"
#include "ui/controls/lamp.h"

namespace vaktor {

/// The notice over the picture of the monitor; empty for none.
QString MotAvis(Langue langue, AvisMoniteur avis);
/// The lamps of the top band, for those who hear the window.
MotsLampe MotsLampeAlarme(Langue langue);
MotsLampe MotsLampeSurveillance(Langue langue);
/// Tooltip of ProgressBar1.
QString AideBarre(Langue langue);
/// The small view and what the keys do on the gauge, for those who hear the window.
QString MotVueReduite(Langue langue);
QString AideTouchesJauge(Langue langue);
/// The button that tries the live page, and its tooltip.
QString LibelleEssaiFtp(Langue langue);
QString AideEssaiFtp(Langue langue);
/// The box that has the program started at the login; its tooltip; the message when that could not be written.
QString LibelleSession(Langue langue);
QString AideSession(Langue langue);
QString MessageSessionImpossible(Langue langue);
/// Behind the tooltip of a button that waits for the camera.
QString RaisonSansCamera(Langue langue);
/// What a click on the sign of the health does, for those who hear the window.
QString AideSigneSante(Langue langue);
/// The message of the guard at the event loop: what failed, and that the program goes on.
QString MessageEchecInattendu(Langue langue, const QString& description);
/// The message of a start that failed.
QString MessageDemarrageImpossible(Langue langue, const QString& description);
/// Said when a folder that the program writes to cannot be made.
QString MessageDossierImpossible(Langue langue, const QString& dossier);

}  // namespace vaktor
