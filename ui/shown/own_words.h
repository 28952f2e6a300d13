// Words that the numbered tables do not hold, because they speak of things that only this system knows: a camera that
// vanished, a failure that nobody expected. By language, as texts/language.h tells.
#pragma once

#include <QString>

#include "engine/ports/surveillance_display.h"
#include "ui/controls/lamp.h"

namespace vaktor {

/// The notice over the picture of the monitor; empty for none.
QString MotAvis(qint32 langue, AvisMoniteur avis);
/// The lamps of the top band, for those who hear the window.
MotsLampe MotsLampeAlarme(qint32 langue);
MotsLampe MotsLampeSurveillance(qint32 langue);
/// Tooltip of ProgressBar1.
QString AideBarre(qint32 langue);
/// The button that tries the live page, and its tooltip.
QString LibelleEssaiFtp(qint32 langue);
QString AideEssaiFtp(qint32 langue);
/// What a click on the sign of the health does, for those who hear the window.
QString AideSigneSante(qint32 langue);
/// The message of the guard at the event loop: what failed, and that the program goes on.
QString MessageEchecInattendu(qint32 langue, const QString& description);
/// The message of a start that failed.
QString MessageDemarrageImpossible(qint32 langue, const QString& description);
/// Said when a folder that the program writes to cannot be made.
QString MessageDossierImpossible(qint32 langue, const QString& dossier);

}  // namespace vaktor
