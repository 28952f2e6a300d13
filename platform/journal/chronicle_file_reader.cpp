// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/journal/chronicle_file_reader.h"

#include <QFile>
#include <QFileInfo>
#include <utility>

#include "base/photo_format.h"
#include "platform/base/folder_listing.h"
#include "platform/base/system_files.h"
#include "platform/journal/journal_file.h"

namespace vaktor {

LecteurChroniqueSysteme::LecteurChroniqueSysteme(QString journal, std::chrono::milliseconds patience)
    : Journal_(std::move(journal)), Question_(patience, nullptr, nullptr) {}

void LecteurChroniqueSysteme::LitChronique(const QString& dossier, const QString& course, Recoit recoit) {
  Question_.Pose(
      [journal = Journal_, dossier, course](const std::atomic<bool>& abandon) {
        SourcesChronique sources{.Journal = LitJournal(LitFinJournal(journal)), .Course = course};
        for (const QString& celui : DossiersCites(sources.Journal, dossier)) {
          const QByteArray natif = QFile::encodeName(CheminNatif(celui));
          sources.Noms.insert(celui, ListeDossier(natif, u'*' + kFinPhoto + u'*', abandon).Noms);
        }
        sources.Maintenant = QDateTime::currentDateTime();
        sources.DonneDate = [&abandon](const QString& d, const QString& nom) {
          return abandon ? QDateTime() : QFileInfo(CheminNatif(d + u'/' + nom)).lastModified();
        };
        return std::shared_ptr<const Chronique>(std::make_shared<Chronique>(ComposeChronique(sources)));
      },
      std::move(recoit));
}

}  // namespace vaktor
