// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/choice/common_addresses.h"

#include <QRegularExpression>
#include <QUrl>
#include <array>

namespace vaktor {
namespace {

struct Chemin {
  const char* Schema;
  const char* Port;  // where it is not the scheme's own
  const char* Suite;
};

// Main streams, as the makers' own pages tell them: Axis (developer.axis.com, "RTSP endpoints" and "MJPG video"),
// Hikvision ("RTSP URL" of its integration guides), Dahua and Amcrest (dahuawiki.com, "Remote Access/RTSP"), Reolink
// (support.reolink.com, "What is RTSP"), TP-Link Tapo and VIGI (tp-link.com, FAQ 2680), Hanwha (SUNAPI, "media.smp"),
// Uniview ("video1"), Vivotek and D-Link ("live.sdp", "live1.sdp"), Foscam ("videoMain"), and of the cheap ones that
// all share one board ("11", "onvif1"). Those over HTTP: Axis, D-Link and TRENDnet ("mjpeg.cgi"), older Foscam
// ("videostream.cgi"), telephones and little boards that are cameras by a program ("video", "stream").
constexpr std::array kChemins = {Chemin{"rtsp://", "", "/Streaming/Channels/101"},
                                 Chemin{"rtsp://", "", "/cam/realmonitor?channel=1&subtype=0"},
                                 Chemin{"rtsp://", "", "/h264Preview_01_main"},
                                 Chemin{"rtsp://", "", "/stream1"},
                                 Chemin{"rtsp://", "", "/axis-media/media.amp"},
                                 Chemin{"rtsp://", "", "/profile2/media.smp"},
                                 Chemin{"rtsp://", "", "/video1"},
                                 Chemin{"rtsp://", "", "/live.sdp"},
                                 Chemin{"rtsp://", "", "/live1.sdp"},
                                 Chemin{"rtsp://", "", "/videoMain"},
                                 Chemin{"rtsp://", "", "/live"},
                                 Chemin{"rtsp://", "", "/11"},
                                 Chemin{"rtsp://", "", "/onvif1"},
                                 Chemin{"http://", "", "/axis-cgi/mjpg/video.cgi"},
                                 Chemin{"http://", "", "/mjpeg.cgi"},
                                 Chemin{"http://", "", "/videostream.cgi"},
                                 Chemin{"http://", "", "/video"},
                                 Chemin{"http://", "", "/stream"},
                                 Chemin{"http://", ":8080", "/video"},
                                 Chemin{"http://", ":81", "/stream"}};

QString SansChemin(QString reste) {
  while (reste.endsWith(QLatin1Char('/'))) reste.chop(1);
  return reste;
}

SourceCapture Vers(const SourceCapture& source, const QString& lieu) {
  SourceCapture autre = source;
  autre.Lieu = lieu;
  autre.Description = MasqueAdresse(AdresseComplete(autre));
  return autre;
}

}  // namespace

QList<SourceCapture> AdressesPossibles(const SourceCapture& source) {
  const qsizetype schema = source.Lieu.indexOf(QLatin1String("://"));
  const QString reste = SansChemin(schema < 0 ? source.Lieu : source.Lieu.mid(schema + 3));
  if (source.Genre != GenreSource::kReseau || reste.contains(QLatin1Char('/')) || reste.contains(QLatin1Char('?')))
    return {source};
  static const QRegularExpression kPort(QStringLiteral(R"(:\d+$)"));
  const bool aPort = kPort.match(reste).hasMatch();
  QList<SourceCapture> adresses;
  if (schema >= 0) adresses.append(source);
  for (const Chemin& chemin : kChemins) {
    const QString sien = QLatin1String(chemin.Schema);
    // An encrypted address stays one: a password would else go out in clear that was not meant to.
    const QString voulu = schema < 0 ? sien : source.Lieu.left(schema + 3);
    if (voulu.left(4) != sien.left(4) || (aPort && *chemin.Port != '\0')) continue;
    adresses.append(Vers(source, voulu + reste + QLatin1String(chemin.Port) + QLatin1String(chemin.Suite)));
  }
  return adresses;
}

QString AdresseComplete(const SourceCapture& source) {
  if (source.Genre != GenreSource::kReseau || (source.Utilisateur.isEmpty() && source.MotDePasse.isEmpty()))
    return source.Lieu;
  const auto code = [](const QString& texte) { return QString::fromLatin1(QUrl::toPercentEncoding(texte)); };
  QString acces = code(source.Utilisateur);
  if (!source.MotDePasse.isEmpty()) acces += QLatin1Char(':') + code(source.MotDePasse);
  const qsizetype schema = source.Lieu.indexOf(QLatin1String("://"));
  QString adresse = source.Lieu;
  return adresse.insert(schema < 0 ? 0 : schema + 3, acces + QLatin1Char('@'));
}

}  // namespace vaktor
