// SPDX-License-Identifier: GPL-3.0-or-later
// A message bus of the test's own, and a login manager or a portal on it that does nothing but remember.
#pragma once

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>
#include <cstring>

#include "support/event_wait.h"

namespace vaktor::essai {

/// A process that is ended with its object.
class ProcessusDeTest {
 public:
  ~ProcessusDeTest() { Tue(); }
  void Tue() {
    if (Processus.state() == QProcess::NotRunning) return;
    Processus.kill();
    Processus.waitForFinished();
  }
  QProcess Processus;
};

class BusPrive {
 public:
  BusPrive() {
    Nom_ = QStringLiteral("essai-%1").arg(reinterpret_cast<quintptr>(this), 0, 16);
    Demon_.Processus.start(QStringLiteral("dbus-daemon"),
                           {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                            QStringLiteral("--print-address=1"), QStringLiteral("--address=") + Adresse()});
    while (!Demon_.Processus.canReadLine() && Demon_.Processus.waitForReadyRead(kPatience)) {
    }
    EXPECT_TRUE(Bus().isConnected()) << Demon_.Processus.readAllStandardError().toStdString();
  }
  ~BusPrive() { QDBusConnection::disconnectFromBus(Nom_); }
  BusPrive(const BusPrive&) = delete;
  BusPrive& operator=(const BusPrive&) = delete;

  QString Adresse() const { return QStringLiteral("unix:path=%1/bus").arg(Dossier_.path()); }
  QDBusConnection Bus() const { return QDBusConnection::connectToBus(Adresse(), Nom_); }

  /// Starts the service of a name and waits until it is on the bus.
  void LanceService(const QString& nom, const QStringList& arguments) {
    QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
    milieu.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), Adresse());
    milieu.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), Adresse());
    Service_.Processus.setProcessEnvironment(milieu);
    Service_.Processus.setProcessChannelMode(QProcess::MergedChannels);
    Service_.Processus.start(QStringLiteral("/usr/bin/python3"),
                             QStringList{QStringLiteral("-m"), QStringLiteral("dbusmock")} + arguments);
    ASSERT_TRUE(AttendQue([&] { return Bus().interface()->isServiceRegistered(nom).value(); }))
        << Service_.Processus.readAll().toStdString();
  }
  void TueService() { Service_.Tue(); }

  /// The service takes the machine's time no more: it answers nobody.
  void Fige() { ASSERT_EQ(::kill(static_cast<pid_t>(Service_.Processus.processId()), SIGSTOP), 0); }
  void LanceLogin1() {
    LanceService(QStringLiteral("org.freedesktop.login1"),
                 {QStringLiteral("--system"), QStringLiteral("--template"), QStringLiteral("logind")});
  }
  /// From now on a method of the service runs this code of Python.
  void Remplace(const QString& service, const QString& chemin, const QString& interface, const QString& methode,
                const QString& entree, const QString& sortie, const QString& code) {
    QDBusMessage appel = QDBusMessage::createMethodCall(service, chemin, QStringLiteral("org.freedesktop.DBus.Mock"),
                                                        QStringLiteral("AddMethod"));
    appel << interface << methode << entree << sortie << code;
    const QDBusMessage reponse = Bus().call(appel);
    ASSERT_EQ(reponse.type(), QDBusMessage::ReplyMessage) << reponse.errorMessage().toStdString();
  }
  /// "what who mode" of each request that the login manager holds.
  QStringList Empechements() const {
    const QDBusMessage reponse = Bus().call(QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("ListInhibitors")));
    QStringList liste;
    if (reponse.arguments().isEmpty()) return liste;
    const auto tous = reponse.arguments().first().value<QDBusArgument>();
    tous.beginArray();
    while (!tous.atEnd()) {
      QString quoi, qui, pourquoi, mode;
      quint32 utilisateur = 0, processus = 0;
      tous.beginStructure();
      tous >> quoi >> qui >> pourquoi >> mode >> utilisateur >> processus;
      tous.endStructure();
      liste.append(quoi + u' ' + qui + u' ' + mode);
    }
    tous.endArray();
    return liste;
  }
  /// The methods that were called on an object of the service, in order.
  QStringList Appels(const QString& service, const QString& chemin) const {
    const QDBusMessage reponse = Bus().call(QDBusMessage::createMethodCall(
        service, chemin, QStringLiteral("org.freedesktop.DBus.Mock"), QStringLiteral("GetCalls")));
    QStringList liste;
    if (reponse.arguments().isEmpty()) return liste;
    const auto tous = reponse.arguments().first().value<QDBusArgument>();
    tous.beginArray();
    while (!tous.atEnd()) {
      qulonglong moment = 0;
      QString nom;
      QVariantList avec;
      tous.beginStructure();
      tous >> moment >> nom >> avec;
      tous.endStructure();
      liste.append(nom);
    }
    tous.endArray();
    return liste;
  }

 private:
  QTemporaryDir Dossier_;
  QString Nom_;
  ProcessusDeTest Demon_;
  ProcessusDeTest Service_;
};

/// Accepts connections and never says a word, as a bus does whose process is stopped.
class BusSourd {
 public:
  BusSourd() {
    Socket_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un adresse{};
    adresse.sun_family = AF_UNIX;
    const QByteArray chemin = Chemin().toUtf8();
    std::memcpy(adresse.sun_path, chemin.constData(), static_cast<std::size_t>(chemin.size()));
    EXPECT_EQ(::bind(Socket_, reinterpret_cast<const sockaddr*>(&adresse), sizeof adresse), 0);
    EXPECT_EQ(::listen(Socket_, 5), 0);
  }
  ~BusSourd() { ::close(Socket_); }
  BusSourd(const BusSourd&) = delete;
  BusSourd& operator=(const BusSourd&) = delete;
  QString Adresse() const { return QStringLiteral("unix:path=") + Chemin(); }

 private:
  QString Chemin() const { return Dossier_.filePath(QStringLiteral("bus")); }
  QTemporaryDir Dossier_;
  int Socket_ = -1;
};

}  // namespace vaktor::essai
