// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/wakefulness/inhibitor_office.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <utility>

namespace vaktor {
namespace {

// Desktops show it beside the program's name.
const QString kRaison = QStringLiteral("La caméra surveille / The camera is watching");
constexpr quint32 kSansVeilleNiRepos = 4 | 8;  // suspend and idle, of the portal

bool EstPersonne(const QString& erreur) {
  // A bus that answers in the place of a service that is not there, or cannot be started.
  static const QStringList kAbsences = {QStringLiteral("ServiceUnknown"), QStringLiteral("NameHasNoOwner"),
                                        QStringLiteral("UnknownObject"),  QStringLiteral("UnknownInterface"),
                                        QStringLiteral("UnknownMethod"),  QStringLiteral("Disconnected"),
                                        QStringLiteral("NotSupported")};
  if (erreur.contains(QLatin1String(".Spawn.")) || erreur.startsWith(QLatin1String("org.freedesktop.systemd1."))) {
    return true;
  }
  return kAbsences.contains(erreur.section(u'.', -1));
}

BureauEveil::Resultat DitErreur(const QDBusMessage& reponse) {
  return {EstPersonne(reponse.errorName()) ? ReponseEveil::kPersonne : ReponseEveil::kRefusee, reponse.errorMessage()};
}

QString Environnement(const char* nom, const QString& sinon) {
  const QString valeur = qEnvironmentVariable(nom);
  return valeur.isEmpty() ? sinon : valeur;
}

}  // namespace

AdressesBus TrouveAdressesBus() {
  const QString execution = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return {Environnement("DBUS_SYSTEM_BUS_ADDRESS", QStringLiteral("unix:path=/run/dbus/system_bus_socket")),
          Environnement("DBUS_SESSION_BUS_ADDRESS",
                        execution.isEmpty() ? QString() : QStringLiteral("unix:path=%1/bus").arg(execution))};
}

BureauEveil::BureauEveil(AdressesBus adresses) : Adresses_(std::move(adresses)) {}

BureauEveil::~BureauEveil() { Lache(); }

QString BureauEveil::NommeConnexion() {
  return QStringLiteral("vaktor-%1-%2").arg(reinterpret_cast<quintptr>(this), 0, 16).arg(++Connexions_);
}

// Inside a sandbox only the portal is let through, and outside of one it may be the only one there is.
BureauEveil::Resultat BureauEveil::Demande() {
  if (Tient()) return {ReponseEveil::kAccordee, {}};
  Lache();
  Resultat login1 = DemandeLogin1();
  if (login1.Reponse == ReponseEveil::kAccordee) return login1;
  Resultat portail = DemandePortail();
  if (portail.Reponse == ReponseEveil::kAccordee) return portail;
  return login1.Reponse == ReponseEveil::kPersonne && portail.Reponse == ReponseEveil::kRefusee ? portail : login1;
}

// The connection is not kept: what holds is the descriptor, which outlives bus and manager.
BureauEveil::Resultat BureauEveil::DemandeLogin1() {
  const QString nom = NommeConnexion();
  Resultat resultat;
  {
    const QDBusConnection bus = QDBusConnection::connectToBus(Adresses_.Systeme, nom);
    if (bus.isConnected()) {
      QDBusMessage appel = QDBusMessage::createMethodCall(
          QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
          QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
      appel << QStringLiteral("sleep:idle") << QStringLiteral("Vaktor") << kRaison << QStringLiteral("block");
      const QDBusMessage reponse = bus.call(appel, QDBus::Block, kAttenteMs);
      if (reponse.type() == QDBusMessage::ReplyMessage) {
        const auto recu = reponse.arguments().value(0).value<QDBusUnixFileDescriptor>();
        // A companion that is started later must not hold it too.
        Descripteur_ = recu.isValid() ? ::fcntl(recu.fileDescriptor(), F_DUPFD_CLOEXEC, 3) : -1;
        resultat.Reponse = Descripteur_ >= 0 ? ReponseEveil::kAccordee : ReponseEveil::kRefusee;
      } else {
        resultat = DitErreur(reponse);
      }
    } else {
      resultat.Mots = bus.lastError().message();
    }
  }
  QDBusConnection::disconnectFromBus(nom);
  return resultat;
}

// The portal takes a request back when the connection ends on which it came: that one is kept.
BureauEveil::Resultat BureauEveil::DemandePortail() {
  if (Adresses_.Session.isEmpty()) return {};
  const QString nom = NommeConnexion();
  Resultat resultat;
  {
    const QDBusConnection bus = QDBusConnection::connectToBus(Adresses_.Session, nom);
    if (bus.isConnected()) {
      QDBusMessage appel = QDBusMessage::createMethodCall(
          QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
          QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
      appel << QString() << kSansVeilleNiRepos << QVariantMap{{QStringLiteral("reason"), kRaison}};
      const QDBusMessage reponse = bus.call(appel, QDBus::Block, kAttenteMs);
      if (reponse.type() == QDBusMessage::ReplyMessage) {
        RequetePortail_ = reponse.arguments().value(0).value<QDBusObjectPath>().path();
        Portail_ = nom;
        return {ReponseEveil::kAccordee, {}};
      }
      resultat = DitErreur(reponse);
    } else {
      resultat.Mots = bus.lastError().message();
    }
  }
  QDBusConnection::disconnectFromBus(nom);
  return resultat;
}

bool BureauEveil::Tient() const {
  if (!Portail_.isEmpty()) return QDBusConnection(Portail_).isConnected();
  if (Descripteur_ < 0) return false;
  // The other end of the pipe is the manager's: an error says that nobody reads there any more.
  pollfd tuyau{.fd = Descripteur_, .events = 0, .revents = 0};
  return ::poll(&tuyau, 1, 0) == 0;
}

void BureauEveil::Lache() {
  if (Descripteur_ >= 0) ::close(std::exchange(Descripteur_, -1));
  if (Portail_.isEmpty()) return;
  {
    const QDBusConnection bus(Portail_);
    if (bus.isConnected()) {
      bus.call(
          QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"), RequetePortail_,
                                         QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close")),
          QDBus::Block, kAttenteMs);
    }
  }
  QDBusConnection::disconnectFromBus(std::exchange(Portail_, {}));
}

}  // namespace vaktor
