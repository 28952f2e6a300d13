// A machine of cameras as scripts/camera.sh sees it, in a folder.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace vaktor {

class MachineInventee : public testing::Test {
 protected:
  struct Camera {
    QByteArray Nom = "Camera";
    QByteArray Capacites = ":capture:";  ///< as udev writes them; empty: no udev
    QByteArray Rang = "0";
    QByteArray Prise = {};  ///< of the USB bus; empty: on another bus
  };

  void SetUp() override {
    ASSERT_EQ(::chmod(qPrintable(Dossier_.path()), 0755), 0);
    ASSERT_TRUE(QDir().mkpath(Machine("/sys/class/video4linux")));
  }
  QString Machine(const QString& chemin = QString()) const { return Dossier_.path() + chemin; }
  void Ecrit(const QString& chemin, const QByteArray& octets) const {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(Machine(chemin)).path()));
    QFile fichier(Machine(chemin));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(octets);
  }
  void Lie(const QString& cible, const QString& lien) const {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(Machine(lien)).path()));
    ASSERT_TRUE(QFile::link(Machine(cible), Machine(lien)));
  }
  void Branche(int numero, const Camera& camera) const {
    const QString noeud = QStringLiteral("video%1").arg(numero);
    const QString fiche = QStringLiteral("/sys/class/video4linux/") + noeud;
    Ecrit("/dev/" + noeud, {});
    Ecrit(fiche + "/name", camera.Nom + '\n');
    Ecrit(fiche + "/index", camera.Rang + '\n');
    Ecrit(fiche + "/dev", "81:" + QByteArray::number(numero) + '\n');
    if (!camera.Capacites.isEmpty())
      Ecrit(QStringLiteral("/run/udev/data/c81:%1").arg(numero),
            "E:ID_V4L_PRODUCT=" + camera.Nom + "\nE:ID_V4L_CAPABILITIES=" + camera.Capacites + '\n');
    const QString bus =
        QStringLiteral("/sys/devices/pci0000:00/0000:00:14.0/usb1/1-%1").arg(QLatin1String(camera.Prise));
    const QString appareil = camera.Prise.isEmpty() ? "/sys/devices/platform/" + noeud : bus + "/1:1.0-" + noeud;
    if (!camera.Prise.isEmpty()) Ecrit(bus + "/devpath", camera.Prise + '\n');
    Ecrit("/sys/drivers/uvcvideo/bind", {});
    Lie("/sys/drivers/uvcvideo", appareil + "/driver");
    Lie(appareil, fiche + "/device");
  }
  void Retient(const QByteArray& source, const QString& ou = QStringLiteral("/reglages/capture.ini")) const {
    Ecrit(ou, "[Source]\n" + source + "\n[Formats]\nuvcvideo|Camera|usb-1-1=MJPG 640x480 30/1\n");
  }

  /// Runs `commandes` after the script, with `arguments` as its own; what it says.
  QString Dit(const QString& script, const QString& commandes, const QStringList& arguments = {}) const {
    QProcess bash;
    bash.setProcessChannelMode(QProcess::MergedChannels);
    QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
    milieu.insert(QStringLiteral("HOME"), Machine("/chez"));
    milieu.remove(QStringLiteral("XDG_CONFIG_HOME"));
    bash.setProcessEnvironment(milieu);
    if (Ordinaire_)
      bash.setChildProcessModifier([] {
        if (::geteuid() == 0 && ::setuid(65534) != 0) ::_exit(99);
      });
    const QString debut = QStringLiteral("set -u -o pipefail; . '%1/%2'; racine_machine='%3'; ")
                              .arg(QStringLiteral(VAKTOR_SCRIPTS), script, Machine());
    bash.start(QStringLiteral("bash"), QStringList{"-c", debut + commandes, "run"} + arguments);
    EXPECT_TRUE(bash.waitForFinished());
    Code_ = bash.exitCode();
    return QString::fromUtf8(bash.readAll());
  }

  /// What ./run decides: its words, and its arguments afterwards, each in a line of its own.
  struct Decision {
    QString Dit;
    QStringList Arguments;
  };
  Decision Choisit(const QStringList& arguments = {},
                   const QString& memoire = QStringLiteral("/reglages/capture.ini")) {
    const QString commandes =
        QStringLiteral(
            "arguments=(\"$@\"); choisit_camera '%1' \"${arguments[@]}\"; printf '\\n>%s' \"${arguments[@]}\"")
            .arg(memoire.isEmpty() ? QString() : Machine(memoire));
    QStringList lignes = Dit("camera.sh", commandes, arguments).split(QStringLiteral("\n>"));
    Decision decision{lignes.takeFirst(), lignes};
    decision.Arguments.removeAll(QString());
    return decision;
  }

  QTemporaryDir Dossier_;
  bool Ordinaire_ = false;  ///< the script's user is not root
  mutable int Code_ = 0;
};

}  // namespace vaktor
