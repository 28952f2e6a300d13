#include "platform/capture/devices/v4l2_node.h"

#include <fcntl.h>
#include <linux/videodev2.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <string>

namespace vaktor {

NoeudV4L2::NoeudV4L2(const QString& noeud) {
  if (noeud.isEmpty()) return;
  // O_NONBLOCK: a fifo or a serial line under such a name must not hold us up.
  Descripteur_ = ::open(QFile::encodeName(noeud).constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
}

NoeudV4L2::~NoeudV4L2() {
  if (Descripteur_ >= 0) ::close(Descripteur_);
}

bool NoeudV4L2::Demande(unsigned long requete, void* argument) const {
  if (Descripteur_ < 0) return false;
  int rendu = 0;
  do {
    rendu = ::ioctl(Descripteur_, requete, argument);
  } while (rendu < 0 && errno == EINTR);
  return rendu >= 0;
}

quint32 NoeudV4L2::Capacites() const {
  v4l2_capability capacite = {};
  if (!Demande(VIDIOC_QUERYCAP, &capacite)) return 0;
  // `capabilities` tells of the whole device, where a camera's metadata node looks like a camera too.
  return (capacite.capabilities & V4L2_CAP_DEVICE_CAPS) != 0 ? capacite.device_caps : capacite.capabilities;
}

quint32 NoeudV4L2::TypeTampon() const {
  const quint32 capacites = Capacites();
  if ((capacites & V4L2_CAP_VIDEO_CAPTURE) != 0) return V4L2_BUF_TYPE_VIDEO_CAPTURE;
  if ((capacites & V4L2_CAP_VIDEO_CAPTURE_MPLANE) != 0) return V4L2_BUF_TYPE_VIDEO_CAPTURE_MPLANE;
  return 0;
}

QString TexteNoyau(const unsigned char* texte, int taille) {
  const unsigned char* fin = std::find(texte, texte + taille, static_cast<unsigned char>(0));
  return QString::fromUtf8(std::string(texte, fin).c_str()).trimmed();
}

}  // namespace vaktor
