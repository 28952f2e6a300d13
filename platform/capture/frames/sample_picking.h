// Every third pixel's share of a row of a plane.
#pragma once

#include <QtGlobal>

namespace vaktor {

/// Of the bytes `de`, those at 0, 3, 6, ...: `nombre` of them into `vers`. `lisibles`: how many bytes the row has from
/// there on; none behind them is read.
void PrendUnSurTrois(const quint8* de, qint32 lisibles, quint8* vers, qint32 nombre);

/// The same where two pixels share a byte: those at 0, 1, 3, 4, 6, ..., where the first pixel is the first one of its
/// pair, those at 0, 2, 3, 5, 6, ..., where it is the second (`impair`).
void PrendUnSurTroisParPaires(const quint8* de, qint32 lisibles, bool impair, quint8* vers, qint32 nombre);

}  // namespace vaktor
