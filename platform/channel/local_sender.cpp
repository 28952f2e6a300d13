#include "platform/channel/local_sender.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QTimerEvent>
#include <cerrno>

#include "platform/channel/socket_address.h"

namespace vaktor {

EmetteurLocal::EmetteurLocal(const DossierCanal& dossier)
    : Dossier_(dossier), Socket_(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}

EmetteurLocal::~EmetteurLocal() {
  if (Socket_ >= 0) ::close(Socket_);
}

// Formed once: an alarm speaks to the same handle with each frame.
const std::optional<sockaddr_un>& EmetteurLocal::DonneAdresse(qint32 poignee) {
  const auto connue = Adresses_.constFind(poignee);
  if (connue != Adresses_.constEnd()) return *connue;
  return *Adresses_.insert(poignee, FormeAdresse(Dossier_.DonneAdresse(poignee)));
}

EmetteurLocal::Issue EmetteurLocal::Essaie(qint32 poignee, const QByteArray& message) {
  const std::optional<sockaddr_un>& adresse = DonneAdresse(poignee);
  if (!adresse) return Issue::kPersonne;
  const ssize_t partis = ::sendto(Socket_, message.constData(), static_cast<std::size_t>(message.size()),
                                  MSG_DONTWAIT | MSG_NOSIGNAL, EnGeneral(*adresse), sizeof *adresse);
  if (partis >= 0) return Issue::kParti;
  const bool plein = errno == EAGAIN || errno == EWOULDBLOCK || errno == ENOBUFS || errno == EINTR;
  return plein ? Issue::kPlein : Issue::kPersonne;
}

void EmetteurLocal::Poste(qint32 poignee, const QByteArray& message) noexcept {
  if (poignee <= 0 || Socket_ < 0 || message.size() > kMessageMax) return;
  const auto attente = Attente_.find(poignee);
  const bool derriere = attente != Attente_.end();
  if (derriere && attente->size() >= kAttenteMax) return;
  if (!derriere && Essaie(poignee, message) != Issue::kPlein) return;
  Attente_[poignee].enqueue(message);
  if (!Reprise_.isActive()) Reprise_.start(kReprise, this);
}

qsizetype EmetteurLocal::EnAttente(qint32 poignee) const { return Attente_.value(poignee).size(); }

void EmetteurLocal::Vide(qint32 poignee) {
  QQueue<QByteArray>& file = Attente_[poignee];
  while (!file.isEmpty()) {
    const Issue issue = Essaie(poignee, file.head());
    if (issue == Issue::kPlein) return;
    if (issue == Issue::kPersonne) file.clear();
    if (issue == Issue::kParti) file.dequeue();
  }
  Attente_.remove(poignee);
}

void EmetteurLocal::timerEvent(QTimerEvent* evenement) {
  if (evenement->timerId() != Reprise_.timerId()) return;
  const QList<qint32> poignees = Attente_.keys();
  for (const qint32 poignee : poignees) Vide(poignee);
  if (Attente_.isEmpty()) Reprise_.stop();
}

}  // namespace vaktor
