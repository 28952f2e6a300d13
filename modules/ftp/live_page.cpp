// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/live_page.h"

#include <QLocale>
#include <QUrl>
#include <algorithm>
#include <array>

namespace vaktor {

namespace {

constexpr qint32 kIntervalleMin = 500;
constexpr qint32 kIntervalleMax = 3600000;
constexpr qint32 kGris = 3;
// Servers keep the time of a file to the second, and an upload takes its time too: three intervals of half a second
// would be over again and again on a page that lives.
constexpr qint32 kPerimeMin = 5000;

/// Background and accent, for light and for dark screens. Text is nearly black or nearly white on all of them.
struct Teinte {
  const char* FondClair;
  const char* AccentClair;
  const char* FondSombre;
  const char* AccentSombre;
};
constexpr std::array<Teinte, 7> kTeintes = {{
    {"#fbe3e3", "#a3121f", "#2b1113", "#ff9aa2"},  // red
    {"#e1f3e3", "#14632a", "#0f2415", "#86e29b"},  // green
    {"#e1ebfa", "#17499c", "#0f1b30", "#93bdff"},  // blue
    {"#e9eaec", "#40464e", "#1c1e21", "#c3c9d1"},  // gray
    {"#f2e7dc", "#6f4219", "#251a10", "#e6b98a"},  // brown
    {"#fdf6cf", "#6a5600", "#26210a", "#f2d94e"},  // yellow
    {"#ffffff", "#2f3a45", "#111214", "#e4e8ec"},  // white
}};

constexpr Phrase kTitre{"Vaktor en direct", "Vaktor live"};
constexpr Phrase kCamera{"Image de la caméra en direct", "Live picture of the camera"};
constexpr Phrase kPhotos{"Photos d’alarme", "Alarm photos"};
constexpr Phrase kAucune{"Aucune photo pour le moment.", "No photo so far."};
constexpr Phrase kPhoto{"Photo d’alarme du", "Alarm photo of"};
constexpr Phrase kPanne{"L’image n’arrive pas pour le moment.", "The picture does not come at the moment."};
constexpr Phrase kRecue{"Image reçue il y a %.", "Picture received % ago."};
constexpr Phrase kAncienne{"Cette image est ancienne : elle n’est plus renouvelée.",
                           "This picture is old: it is not renewed any more."};
constexpr Phrase kDate{"dd/MM/yyyy HH:mm:ss", "yyyy-MM-dd HH:mm:ss"};

constexpr const char* kPage = R"(<!DOCTYPE html>
<html lang="@langue@">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="robots" content="noindex">
<title>@titre@</title>
<noscript><meta http-equiv="refresh" content="@secondes@"></noscript>
<style>
:root { color-scheme: light dark; --fond: @fondclair@; --accent: @accentclair@; --encre: #17191c; }
@media (prefers-color-scheme: dark) {
  :root { --fond: @fondsombre@; --accent: @accentsombre@; --encre: #f1f2f4; }
}
* { box-sizing: border-box; }
body { margin: 0; background: var(--fond); color: var(--encre); font: 1rem/1.5 system-ui, sans-serif; }
header, main { max-width: 75rem; margin: 0 auto; padding: 0 1rem; }
header { border-bottom: .25rem solid var(--accent); }
h1, h2 { color: var(--accent); line-height: 1.2; margin: 1rem 0 .5rem; }
h1 { font-size: 1.5rem; }
h2 { font-size: 1.2rem; }
#direct { margin: 1rem 0; text-align: center; }
#live { max-width: 100%; height: auto; border-radius: .5rem; background: #000; }
#age, #panne { min-height: 1.5rem; margin: 0; }
#age { font-variant-numeric: tabular-nums; }
#panne { font-weight: bold; color: var(--accent); }
#photos ul { display: grid; grid-template-columns: repeat(auto-fill, minmax(min(9.5rem, 100%), 1fr)); gap: .75rem;
  margin: 0; padding: 0 0 2rem; list-style: none; }
#photos a { display: block; color: inherit; text-decoration: none; border-radius: .5rem; }
#photos a:focus-visible { outline: .2rem solid var(--accent); }
#photos img { display: block; width: 100%; height: auto; border-radius: .5rem; background: #000; }
#photos time { display: block; font-size: .8rem; text-align: center; }
</style>
</head>
<body>
<header><h1>@titre@</h1></header>
<main>
<div id="direct" data-intervalle="@intervalle@">
<img id="live" src="@live@" width="@largeur@" height="@hauteur@" alt="@camera@">
<p id="age"></p>
<p id="panne" role="status"></p>
</div>
<section id="photos">
<h2>@photos@</h2>
@liste@
</section>
</main>
<script>
(function () {
  var live = document.getElementById("live"), age = document.getElementById("age");
  var panne = document.getElementById("panne"), echecs = 0, recue = null, minuterie;
  function lit(page) { return Number(page.getElementById("direct").dataset.intervalle); }
  var intervalle = lit(document);
  function attend() { clearTimeout(minuterie); minuterie = setTimeout(charge, intervalle); }
  function ecrit(ou, mots) { if (ou.textContent !== mots) { ou.textContent = mots; } }
  function duree(s) {
    if (s < 60) { return s + " s"; }
    if (s < 3600) { return Math.floor(s / 60) + " min " + s % 60 + " s"; }
    return Math.floor(s / 3600) + " h " + Math.floor(s % 3600 / 60) + " min";
  }
  function dis() {
    var ms = recue === null ? 0 : Math.max(0, Date.now() - recue);
    ecrit(age, recue === null ? "" : "@recue@".replace("%", duree(Math.floor(ms / 1000))));
    ecrit(panne, echecs > 2 ? "@panne@" : ms > Math.max(3 * intervalle, @perimemin@) ? "@ancienne@" : "");
  }
  function demande(suite) {
    var fini = false;
    function rends(quand) { if (!fini) { fini = true; suite(quand); } }
    setTimeout(function () { rends(null); }, 10000);
    fetch("@live@?" + Date.now(), { method: "HEAD", cache: "no-store" }).then(function (reponse) {
      var dit = Date.parse(reponse.headers.get("Date")), fait = Date.parse(reponse.headers.get("Last-Modified"));
      rends(!reponse.ok || isNaN(dit) || isNaN(fait) ? null : Date.now() - Math.max(0, dit - fait));
    }).catch(function () { rends(null); });
  }
  function charge() {
    clearTimeout(minuterie);
    if (document.hidden) { attend(); return; }
    minuterie = setTimeout(charge, Math.max(intervalle, 60000));
    demande(function (quand) {
      var image = new Image();
      image.onload = function () {
        ["id", "width", "height", "alt"].forEach(function (nom) { image.setAttribute(nom, live.getAttribute(nom)); });
        live.replaceWith(image);
        live = image;
        echecs = 0;
        recue = quand;
        dis();
        attend();
      };
      image.onerror = function () {
        echecs += 1;
        dis();
        attend();
      };
      image.src = "@live@?" + Date.now();
    });
  }
  function relit() {
    if (document.hidden) { return; }
    fetch(location.pathname, { cache: "no-store" }).then(function (reponse) { return reponse.text(); })
      .then(function (texte) {
        var page = new DOMParser().parseFromString(texte, "text/html"), neuves = page.getElementById("photos");
        if (page.getElementById("direct")) { intervalle = lit(page) || intervalle; }
        var anciennes = document.getElementById("photos");
        if (neuves && neuves.innerHTML !== anciennes.innerHTML) { anciennes.replaceWith(document.adoptNode(neuves)); }
      }).catch(function () {});
  }
  demande(function (quand) {
    if (recue === null) { recue = quand; }
    dis();
  });
  attend();
  document.addEventListener("visibilitychange", function () { if (!document.hidden) { charge(); } });
  setInterval(dis, 1000);
  setInterval(relit, 60000);
}());
</script>
</body>
</html>
)";

QString CreePhoto(const PhotoPubliee& photo, const ContenuPage& contenu) {
  const QString adresse = QString::fromLatin1(QUrl::toPercentEncoding(photo.Nom)).toHtmlEscaped();
  const QString quand = QLocale::c().toString(photo.Prise, kDate.Dit(contenu.Parlee));
  return QStringLiteral(
             "<li><a href=\"%1\"><img loading=\"lazy\" src=\"%1\" width=\"%2\" height=\"%3\" alt=\"%4 %5\">"
             "<time datetime=\"%6\">%5</time></a></li>\n")
      .arg(adresse, QString::number(contenu.Largeur), QString::number(contenu.Hauteur), kPhoto.Dit(contenu.Parlee),
           quand, photo.Prise.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")));
}

QString CreeListe(const ContenuPage& contenu) {
  if (contenu.Photos.isEmpty()) return QStringLiteral("<p>%1</p>").arg(kAucune.Dit(contenu.Parlee));
  QString liste = QStringLiteral("<ul>\n");
  for (const PhotoPubliee& photo : contenu.Photos) liste += CreePhoto(photo, contenu);
  return liste + QStringLiteral("</ul>");
}

}  // namespace

QByteArray CreePageLive(const ContenuPage& contenu) {
  const bool connue = contenu.Couleur >= 0 && contenu.Couleur < qint32{kTeintes.size()};
  const Teinte& teinte = kTeintes.at(static_cast<size_t>(connue ? contenu.Couleur : kGris));
  const qint32 secondes = std::max(1, (contenu.Intervalle + 999) / 1000);
  QString page = QString::fromUtf8(kPage);
  const auto met = [&page](const char* ou, const QString& quoi) {
    page.replace(QLatin1Char('@') + QLatin1String(ou) + QLatin1Char('@'), quoi);
  };
  met("langue", kCodesLangues.Dit(contenu.Parlee));
  met("titre", kTitre.Dit(contenu.Parlee));
  met("camera", kCamera.Dit(contenu.Parlee));
  met("photos", kPhotos.Dit(contenu.Parlee));
  met("panne", kPanne.Dit(contenu.Parlee));
  met("recue", kRecue.Dit(contenu.Parlee));
  met("ancienne", kAncienne.Dit(contenu.Parlee));
  met("perimemin", QString::number(kPerimeMin));
  met("fondclair", QString::fromUtf8(teinte.FondClair));
  met("accentclair", QString::fromUtf8(teinte.AccentClair));
  met("fondsombre", QString::fromUtf8(teinte.FondSombre));
  met("accentsombre", QString::fromUtf8(teinte.AccentSombre));
  met("secondes", QString::number(secondes));
  met("intervalle", QString::number(contenu.Intervalle));
  met("largeur", QString::number(contenu.Largeur));
  met("hauteur", QString::number(contenu.Hauteur));
  met("live", kNomLive);
  met("liste", CreeListe(contenu));  // last: names of files are not looked through for our marks
  return page.toUtf8();
}

qint32 LitIntervalle(const QString& secondes) {
  bool nombre = false;
  const double valeur = QString(secondes).replace(QLatin1Char(','), QLatin1Char('.')).trimmed().toDouble(&nombre);
  if (!nombre || !(valeur > 0)) return ContenuPage().Intervalle;
  return static_cast<qint32>(std::clamp(valeur * 1000, double{kIntervalleMin}, double{kIntervalleMax}));
}

}  // namespace vaktor
