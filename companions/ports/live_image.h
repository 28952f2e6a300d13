// Ports of the live page: the camera and the alarm as live publishing needs them, the writer of the live file and the
// picture of the time stamp. app/ wires them to the engine, the JPEG writer and DessinTimbre.
#pragma once

#include <QImage>
#include <QString>

namespace vaktor {

/// The surveillance engine, as far as live publishing looks at it.
class CameraPourLive {
 public:
  virtual ~CameraPourLive() = default;
  virtual bool CameraActive() const = 0;
  /// The program ends, and the camera has been let go for good.
  virtual bool EstTerminee() const = 0;
  virtual void BasculeCamera() = 0;
  /// AlarmeArmee false, ImageLedAlarme "LEDRED", Text1 shows Retard; a countdown goes on.
  virtual void DesarmeAlarme() = 0;
  virtual QImage ImageSurface() const = 0;  ///< picture of the frame surface, null while there is none
};

/// Encodes and writes one JPEG file; throws Echec when that fails.
class EcrivainLive {
 public:
  virtual ~EcrivainLive() = default;
  virtual void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) = 0;
};

/// PictHeure: the little picture of the time.
class TimbreHeure {
 public:
  static constexpr int kLargeur = 68;
  static constexpr int kHauteur = 18;
  static constexpr int kTexteX = 2;  ///< drawing position of the text
  static constexpr int kTexteY = 1;

  virtual ~TimbreHeure() = default;
  /// Clears the picture to its background, prints the text and gives the picture, 68 by 18 pixels, RGB32.
  virtual QImage DessineTimbre(const QString& texte) = 0;
};

}  // namespace vaktor
