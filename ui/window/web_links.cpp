// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/web_links.h"

#include <QUrl>
#include <utility>

namespace vaktor {

LiensEnLigne::LiensEnLigne(const Parametres& reglages, SonsInterface& sons, Ouvreur& navigateur, SitePages site)
    : Reglages_(reglages), Sons_(sons), Navigateur_(navigateur), Site_(std::move(site)) {}

void LiensEnLigne::OuvreNotice() {
  Sons_.JoueSon(SonsInterface::kTic);
  Ouvre({"/vaktor_notice.html", "/ENGLISH/VaktorNotice.html"}, QString());
}

void LiensEnLigne::OuvreMiseAJour() {
  Sons_.JoueSon(SonsInterface::kTic);
  const QString question = QStringLiteral("?logiciel=Vaktor&version=") + Site_.Version;
  Ouvre({"/versiontest.php", "/ENGLISH/versiontest.php"}, question);
}

// No language, no page: neither is the right one.
void LiensEnLigne::Ouvre(const Phrase& chemins, const QString& question) {
  const std::optional<Langue> langue = LitLangue(Reglages_.LangueCourante);
  if (langue) Navigateur_.OuvreAdresse(DonneAdresse(chemins.Dit(*langue), question));
}

QString LiensEnLigne::DonneAdresse(QString chemin, const QString& question) const {
  if (!Site_.Hote.isEmpty()) return Site_.Hote + chemin + question;
  // A desktop opens a local ".php" in an editor, and a local page answers no question.
  if (chemin.endsWith(QLatin1String(".php"))) chemin.replace(QLatin1String(".php"), QLatin1String(".html"));
  return QUrl::fromLocalFile(Site_.Dossier + chemin).toString(QUrl::FullyEncoded);
}

}  // namespace vaktor
