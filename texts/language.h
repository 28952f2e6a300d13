// Which of the two languages a sentence is said in, where the numbered tables do not hold it.
#pragma once

#include <QString>

namespace vaktor {

/// 1 gives the English text, every other number the French one: a stored language that is neither speaks as a program
/// does that has just been installed. The one rule for everything outside the numbered tables.
inline QString ChoisitLangue(qint32 langue, const QString& francais, const QString& anglais) {
  return langue == 1 ? anglais : francais;
}

}  // namespace vaktor
