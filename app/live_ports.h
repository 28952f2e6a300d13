// What live publishing is given of the engine and of the JPEG writer.
#pragma once

#include "companions/ports/live_image.h"
#include "engine/surveillance.h"
#include "image/jpeg_writer.h"

namespace vaktor {

/// Made before the engine, which is given the live page itself; tied to it afterwards.
class CameraDuMoteur : public CameraPourLive {
 public:
  void Relie(Surveillance& moteur) { Moteur_ = &moteur; }

  bool CameraActive() const override { return Moteur_ != nullptr && Moteur_->Camera().CameraActive; }
  bool EstTerminee() const override { return Moteur_ != nullptr && Moteur_->Camera().Terminee; }
  void BasculeCamera() override {
    if (Moteur_ != nullptr) Moteur_->BasculeCamera();
  }
  void DesarmeAlarme() override {
    if (Moteur_ != nullptr) Moteur_->DesarmeAlarme();
  }
  QImage ImageSurface() const override { return Moteur_ == nullptr ? QImage() : Moteur_->Surface().Image(); }

 private:
  Surveillance* Moteur_ = nullptr;
};

class EcrivainDuLive : public EcrivainLive {
 public:
  explicit EcrivainDuLive(EcrivainJpeg& ecrivain) : Ecrivain_(ecrivain) {}
  void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) override {
    Ecrivain_.EnregistreJPEG(image, fichier, qualite);
  }

 private:
  EcrivainJpeg& Ecrivain_;
};

}  // namespace vaktor
