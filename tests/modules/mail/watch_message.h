// SPDX-License-Identifier: GPL-3.0-or-later
// Leaves messages of the watch as the main program does.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include "support/file_bytes.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {

inline QJsonObject MessageDeVeille() {
  return {{"version", 1},
          {"kind", "begin"},
          {"condition", "signal-lost"},
          {"since", "2026-11-15T14:05:09+01:00"},
          {"subject_fr", QString::fromUtf8("Vaktor ne voit plus")},
          {"subject_en", "Vaktor is blind"},
          {"fr", QString::fromUtf8("La caméra n'envoie plus d'image.")},
          {"en", "The camera gives no picture."}};
}

/// `stem`: "<milliseconds>-<number>"; `photo`: empty for none.
inline void PoseMessage(const QString& dossier, const QString& stem, const QByteArray& photo = {},
                        const QJsonObject& message = MessageDeVeille()) {
  QDir().mkpath(dossier);
  QFile::setPermissions(dossier, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  const QString chemin = dossier + '/' + stem;
  if (!photo.isEmpty()) {
    ASSERT_TRUE(EcritOctets(chemin + ".jpg", photo));
  }
  ASSERT_TRUE(EcritOctets(chemin + ".json.part", QJsonDocument(message).toJson()));
  ASSERT_TRUE(QFile::rename(chemin + ".json.part", chemin + ".json"));
}

inline const QByteArray kImageEntiere = PetitJpeg(" image ");

}  // namespace vaktor::essai
