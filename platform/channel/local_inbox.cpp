// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/local_inbox.h"

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <QRandomGenerator>
#include <QSocketNotifier>
#include <QTimerEvent>
#include <array>
#include <cerrno>
#include <limits>
#include <optional>

#include "base/failure.h"
#include "platform/channel/socket_address.h"

namespace vaktor {

namespace {

constexpr qint32 kPoigneeMin = 65536;  // well away from the small numbers that people type
constexpr int kEssais = 64;

/// One datagram, or nothing when none waits. `accepte` tells whether it may be handed on.
struct Datagramme {
  bool Recu = false;
  bool Accepte = false;
  std::optional<qint64> Depart;
  QByteArray Contenu;
};

/// What the kernel adds to a message, read as a `Titre`.
template <typename Titre>
std::optional<Titre> LitTitre(msghdr& entete, int genre) {
  for (cmsghdr* bloc = CMSG_FIRSTHDR(&entete); bloc != nullptr; bloc = CMSG_NXTHDR(&entete, bloc)) {
    if (bloc->cmsg_level != SOL_SOCKET || bloc->cmsg_type != genre) continue;
    Titre titre{};
    std::memcpy(&titre, CMSG_DATA(bloc), sizeof titre);
    return titre;
  }
  return std::nullopt;
}

bool VientDeMoi(msghdr& entete) {
  const std::optional<ucred> expediteur = LitTitre<ucred>(entete, SCM_CREDENTIALS);
  return expediteur && expediteur->uid == ::getuid();
}

/// Milliseconds since 1970.
std::optional<qint64> DonneDepart(msghdr& entete) {
  const std::optional<timeval> depart = LitTitre<timeval>(entete, SCM_TIMESTAMP);
  if (!depart) return std::nullopt;
  return qint64{depart->tv_sec} * 1000 + depart->tv_usec / 1000;
}

Datagramme LitDatagramme(int descripteur) {
  std::array<char, kMessageMax> tampon{};
  // Room for the sender's identity and the time and nothing else: descriptors that a peer sends along are closed by the
  // kernel.
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(ucred)) + CMSG_SPACE(sizeof(timeval))> titres{};
  iovec morceau{tampon.data(), tampon.size()};
  msghdr entete{};
  entete.msg_iov = &morceau;
  entete.msg_iovlen = 1;
  entete.msg_control = titres.data();
  entete.msg_controllen = titres.size();
  const ssize_t lus = ::recvmsg(descripteur, &entete, MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
  Datagramme resultat;
  if (lus < 0) return resultat;
  resultat.Recu = true;
  resultat.Accepte = (entete.msg_flags & MSG_TRUNC) == 0 && VientDeMoi(entete);
  resultat.Depart = DonneDepart(entete);
  resultat.Contenu = QByteArray(tampon.data(), lus);
  if (resultat.Contenu.endsWith('\n')) resultat.Contenu.chop(1);
  return resultat;
}

}  // namespace

/// The notifier of the socket. It takes its event itself instead of emitting its signal: what the receiver throws then
/// passes through nothing but the event loop, and the socket is left as it was, with the messages behind still in it.
class CasierLocal::Guetteur : public QSocketNotifier {
 public:
  explicit Guetteur(CasierLocal& casier) : QSocketNotifier(casier.Socket_, QSocketNotifier::Read), Casier_(&casier) {}

  /// The box goes. It may go by the word that it has just handed on, so the notifier may still be in its event.
  void Detache() {
    Casier_ = nullptr;
    setEnabled(false);
    deleteLater();
  }

 protected:
  bool event(QEvent* evenement) override {
    if (evenement->type() != QEvent::SockAct) return QSocketNotifier::event(evenement);
    if (Casier_ != nullptr) Casier_->PrendMessage();
    return true;
  }

 private:
  CasierLocal* Casier_;
};

CasierLocal::CasierLocal(const DossierCanal& dossier, std::function<void(const QByteArray&)> recu)
    : Dossier_(dossier), Recu_(std::move(recu)) {
  OuvreSocket();
  Guetteur_ = new Guetteur(*this);  // deletes itself once detached
}

CasierLocal::~CasierLocal() {
  Guetteur_->Detache();
  ::close(Socket_);
  ::unlink(Dossier_.DonneAdresse(Poignee_).constData());
}

void CasierLocal::OuvreSocket() {
  Socket_ = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  const int oui = 1;
  if (Socket_ >= 0 && ::setsockopt(Socket_, SOL_SOCKET, SO_PASSCRED, &oui, sizeof oui) == 0) {
    ::setsockopt(Socket_, SOL_SOCKET, SO_TIMESTAMP, &oui, sizeof oui);  // without it every message counts as sent now
    for (int essai = 0; essai < kEssais; ++essai) {
      // Drawn by lot, so that a handle left behind in the store by an earlier run hardly ever names a newer process.
      Poignee_ = QRandomGenerator::system()->bounded(kPoigneeMin, std::numeric_limits<qint32>::max());
      const std::optional<sockaddr_un> adresse = FormeAdresse(Dossier_.DonneAdresse(Poignee_));
      if (!adresse) break;
      if (LieSocket(Socket_, *adresse) == 0) return;
      if (errno != EADDRINUSE) break;
    }
  }
  if (Socket_ >= 0) ::close(Socket_);
  throw Echec(kAppelIncorrect, QStringLiteral("No message box can be opened in the folder %1.").arg(Dossier_.Chemin()));
}

void CasierLocal::PrendMessage() {
  // Counted before the message is handed on: the receiver may throw, run an event loop of its own, or close this box.
  if (++Rafale_ >= kMessagesParRafale) {
    Rafale_ = 0;
    Guetteur_->setEnabled(false);
    Repos_.start(kRepos, this);
  }
  const Datagramme datagramme = LitDatagramme(Socket_);
  if (!datagramme.Recu || !datagramme.Accepte) return;
  Depart_ = datagramme.Depart;
  const std::function<void(const QByteArray&)> recu = Recu_;
  recu(datagramme.Contenu);
}

void CasierLocal::timerEvent(QTimerEvent* evenement) {
  if (evenement->timerId() != Repos_.timerId()) return;
  Repos_.stop();
  Guetteur_->setEnabled(true);
}

}  // namespace vaktor
