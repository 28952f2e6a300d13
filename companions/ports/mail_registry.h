// Port: the tree of mail accounts that the user's own mail software has stored, in the shape of a registry. Its calls
// and result numbers are those of the Windows registry functions RegOpenKey, RegEnumKeyEx, RegEnumValue, RegCloseKey.
#pragma once

#include <QByteArray>
#include <QString>

namespace vaktor {

/// User-interface thread. Only reads. No call throws; nothing found is the normal case.
class RegistreComptes {
 public:
  using Cle = quint64;                            ///< an open key; 0 is none
  static constexpr long kSucces = 0;              ///< ERROR_SUCCESS
  static constexpr long kPlusDElements = 259;     ///< ERROR_NO_MORE_ITEMS: the walk is over
  static constexpr qsizetype kLongueurMax = 255;  ///< the most bytes of a name or of data that one step hands over

  virtual ~RegistreComptes() = default;
  /// `chemin` below the user's own root, parted by "\", for example "Software\...\Accounts". 0 when there is no such
  /// key or it cannot be read.
  virtual Cle OuvreCle(const QString& chemin) = 0;
  /// Name of the `index`-th key below `cle` (from 0). Any number that is neither kSucces nor kPlusDElements is an
  /// error of that one step. A walk over any tree comes to kPlusDElements after finitely many steps.
  virtual long EnumereCle(Cle cle, quint32 index, QString& nom) = 0;
  /// Name and data of the `index`-th value of `cle`. Text is UTF-8 with its closing NUL; a number is four bytes, low
  /// byte first. Results as above.
  virtual long EnumereValeur(Cle cle, quint32 index, QString& nom, QByteArray& donnee) = 0;
  virtual void FermeCle(Cle cle) = 0;
};

}  // namespace vaktor
