// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/common/trial_image.h"

namespace vaktor {

QByteArray CreeImageEssai() {
  static const QByteArray kPoint = QByteArray::fromBase64(
      "/9j/4AAQSkZJRgABAQAAAQABAAD/2wBDABALDA4MChAODQ4SERATGCgaGBYWGDEjJR0oOjM9PDkzODdASFxOQERXRTc4UG1RV19iZ2hnPk1xeXBk"
      "eFxlZ2P/wAALCAABAAEBAREA/8QAFAABAAAAAAAAAAAAAAAAAAAAAP/EABQQAQAAAAAAAAAAAAAAAAAAAAD/2gAIAQEAAD8AP//Z");
  // Behind the mark of the start a comment (ITU T.81, B.2.4.5): its length counts the two bytes of the length too.
  const qsizetype longueur = kTailleImageEssai - kPoint.size() - 2;
  QByteArray commentaire("Essai de Vaktor, peut etre efface. A trial of Vaktor, may be deleted. ");
  commentaire = commentaire.repeated(longueur / commentaire.size() + 1).left(longueur - 2);
  QByteArray tete("\xFF\xFE");
  tete += static_cast<char>(longueur >> 8);
  tete += static_cast<char>(longueur & 0xFF);
  return kPoint.left(2) + tete + commentaire + kPoint.mid(2);
}

}  // namespace vaktor
