// The samples' share of a row of a plane (engine/sampling.h).
#pragma once

#include <QtGlobal>

namespace vaktor {

/// Of the bytes `de`, the first and those in steps from it: `nombre` of them into `vers`. `lisibles`: how many bytes
/// the row has from there on; none behind them is read.
void PrendUnSurPas(const quint8* de, qint32 lisibles, quint8* vers, qint32 nombre);

/// The same where two pixels share a byte: in steps of three pixels those at 0, 1, 3, 4, 6, ..., where the first pixel
/// is the first one of its pair, those at 0, 2, 3, 5, 6, ..., where it is the second (`impair`).
void PrendUnSurPasParPaires(const quint8* de, qint32 lisibles, bool impair, quint8* vers, qint32 nombre);

}  // namespace vaktor
