#include "ui/window/web_links.h"

#include <QUrl>
#include <utility>

#include "ui/sound/sounds.h"

namespace vaktor {

LiensEnLigne::LiensEnLigne(const Parametres& reglages, SonsInterface& sons, Ouvreur& navigateur, SitePages site)
    : Reglages_(reglages), Sons_(sons), Navigateur_(navigateur), Site_(std::move(site)) {}

void LiensEnLigne::OuvreNotice() {
  Sons_.JoueSon(Sons::kTic);
  Ouvre(QStringLiteral("/vaktor_notice.html"), QStringLiteral("/ENGLISH/VaktorNotice.html"), QString());
}

void LiensEnLigne::OuvreMiseAJour() {
  Sons_.JoueSon(Sons::kTic);
  const QString question = QStringLiteral("?logiciel=Vaktor&version=") + Site_.Version;
  Ouvre(QStringLiteral("/versiontest.php"), QStringLiteral("/ENGLISH/versiontest.php"), question);
}

void LiensEnLigne::Ouvre(const QString& francais, const QString& anglais, const QString& question) {
  if (Reglages_.LangueCourante == 0) Navigateur_.OuvreAdresse(DonneAdresse(francais, question));
  if (Reglages_.LangueCourante == 1) Navigateur_.OuvreAdresse(DonneAdresse(anglais, question));
}

QString LiensEnLigne::DonneAdresse(QString chemin, const QString& question) const {
  if (!Site_.Hote.isEmpty()) return Site_.Hote + chemin + question;
  // A desktop opens a local ".php" in an editor, and a local page answers no question.
  if (chemin.endsWith(QLatin1String(".php"))) chemin.replace(QLatin1String(".php"), QLatin1String(".html"));
  return QUrl::fromLocalFile(Site_.Dossier + chemin).toString(QUrl::FullyEncoded);
}

}  // namespace vaktor
