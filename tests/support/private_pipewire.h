// SPDX-License-Identifier: GPL-3.0-or-later
// PipeWire on a session of the test's own, whoever manages that session, and cameras that it hands out.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSize>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <csignal>
#include <map>
#include <memory>

#include "support/event_wait.h"

namespace vaktor::essai {

class PipeWirePrive {
 public:
  PipeWirePrive() : Avant_(qgetenv("XDG_RUNTIME_DIR")) {
    qputenv("XDG_RUNTIME_DIR", Dossier_.path().toUtf8());
    qputenv("WIREPLUMBER_CONFIG_DIR", Dossier_.path().toUtf8());
    qputenv("XDG_STATE_HOME", Dossier_.path().toUtf8());
    EcritGestion();
  }
  ~PipeWirePrive() {
    for (auto& [nom, camera] : Cameras_) Finis(*camera);
    Finis(Gestion_);
    Finis(Serveur_);
    qputenv("XDG_RUNTIME_DIR", Avant_);
  }
  PipeWirePrive(const PipeWirePrive&) = delete;
  PipeWirePrive& operator=(const PipeWirePrive&) = delete;

  /// What is not installed of it; empty where it can run.
  static QString Manque() {
    for (const char* programme : {"pipewire", "wireplumber", "gst-launch-1.0"}) {
      if (QStandardPaths::findExecutable(QLatin1String(programme)).isEmpty()) return QLatin1String(programme);
    }
    return QFile::exists(QStringLiteral("/usr/lib/x86_64-linux-gnu/gstreamer-1.0/libgstpipewire.so"))
               ? QString()
               : QStringLiteral("gstreamer1.0-pipewire");
  }
  void Lance() {
    Demarre(Serveur_, QStringLiteral("pipewire"), {});
    ASSERT_TRUE(AttendQue([this] { return QFileInfo::exists(Dossier_.filePath(QStringLiteral("pipewire-0"))); }));
    Demarre(Gestion_, QStringLiteral("wireplumber"), {});
  }
  /// A camera of 10 pictures a second.
  void Branche(const QString& nom, const QString& pourGens, QSize taille, const QString& detail = {}) {
    const QString caps = QStringLiteral("video/x-raw,format=I420,width=%1,height=%2,framerate=10/1");
    Cameras_[nom] = std::make_unique<QProcess>();
    Demarre(*Cameras_[nom], QStringLiteral("gst-launch-1.0"),
            {"-q", "videotestsrc", "is-live=true", "pattern=ball", "!", caps.arg(taille.width()).arg(taille.height()),
             "!", "pipewiresink", "mode=provide",
             QStringLiteral("stream-properties=props,media.class=Video/Source,node.name=%1,node.description=%2%3")
                 .arg(nom, pourGens, detail)});
  }
  void Debranche(const QString& nom) {
    Finis(*Cameras_.at(nom));
    Cameras_.erase(nom);
  }
  /// It goes on taking connections, and answers nobody.
  void Fige() { ASSERT_EQ(::kill(static_cast<pid_t>(Serveur_.processId()), SIGSTOP), 0); }
  void Degele() { ASSERT_EQ(::kill(static_cast<pid_t>(Serveur_.processId()), SIGCONT), 0); }
  void Arrete() { Finis(Serveur_); }

 private:
  static void Demarre(QProcess& processus, const QString& programme, const QStringList& arguments) {
    processus.setStandardOutputFile(QProcess::nullDevice());
    processus.setStandardErrorFile(QProcess::nullDevice());
    processus.start(programme, arguments);
    ASSERT_TRUE(processus.waitForStarted()) << programme.toStdString();
  }
  static void Finis(QProcess& processus) {
    if (processus.state() == QProcess::NotRunning) return;
    processus.kill();
    processus.waitForFinished();
  }
  // What the desktop's own does for cameras, and none of its devices: those of this machine are not the test's.
  void EcritGestion() {
    Ecris(QStringLiteral("wireplumber.conf"), R"(
context.properties = { wireplumber.script-engine = lua-scripting }
context.spa-libs = { support.* = support/libspa-support }
context.modules = [
  { name = libpipewire-module-protocol-native }
  { name = libpipewire-module-client-node }
  { name = libpipewire-module-adapter }
  { name = libpipewire-module-metadata }
  { name = libpipewire-module-session-manager }
]
wireplumber.components = [
  { name = libwireplumber-module-lua-scripting, type = module }
  { name = essai.lua, type = config/lua }
]
)");
    QDir(Dossier_.path()).mkdir(QStringLiteral("essai.lua.d"));
    Ecris(QStringLiteral("essai.lua.d/00.lua"), R"(
components = {}
local function module(m, a) components[m] = { "libwireplumber-module-" .. m, type = "module", args = a } end
local function script(s, a) components[s] = { s, type = "script/lua", args = a } end
module("metadata", { ["metadata.name"] = "default" })
module("default-nodes", {})
module("default-nodes-api")
module("si-node")
module("si-audio-adapter")
module("si-audio-endpoint")
module("si-standard-link")
script("access/access-default.lua", { rules = {} })
script("create-item.lua", {})
script("policy-node.lua", { move = true, follow = true })
)");
  }
  void Ecris(const QString& nom, const char* texte) {
    QFile fichier(Dossier_.filePath(nom));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(texte);
  }

  QTemporaryDir Dossier_;
  const QByteArray Avant_;
  QProcess Serveur_;
  QProcess Gestion_;
  std::map<QString, std::unique_ptr<QProcess>> Cameras_;
};

}  // namespace vaktor::essai
