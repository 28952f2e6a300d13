// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/widgets/toolkit_words.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <array>

namespace vaktor {
namespace {

// Qt is written in English: what it says without a translation.
constexpr std::array<const char*, kNombreLangues> kCatalogues = {"qtbase_fr", ""};

}  // namespace

MotsOutils::~MotsOutils() { QCoreApplication::removeTranslator(&Mots_); }

void MotsOutils::Parle(Langue langue) {
  QCoreApplication::removeTranslator(&Mots_);
  const QString catalogue = QLatin1StringView(kCatalogues[RangLangue(langue)]);
  if (!catalogue.isEmpty() && Mots_.load(catalogue, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&Mots_);
  }
}

}  // namespace vaktor
