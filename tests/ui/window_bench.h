// SPDX-License-Identifier: GPL-3.0-or-later
// The real main window, monitor and enlarged view on a real engine, in virtual time and with fakes for the rest.
#pragma once

#include <QImage>
#include <QTest>

#include "base/application_state.h"
#include "engine/surveillance.h"
#include "fakes/fake_alarm_actions.h"
#include "fakes/fake_capture_driver.h"
#include "fakes/fake_event_pump.h"
#include "fakes/fake_health_report.h"
#include "fakes/fake_interface_sounds.h"
#include "fakes/fake_message_boxes.h"
#include "fakes/fake_saving.h"
#include "fakes/journal.h"
#include "fakes/virtual_clock.h"
#include "fakes/virtual_timers.h"
#include "image/forms/form_monitor.h"
#include "image/forms/webcam_pecran.h"
#include "ui/shown/parameter_view.h"
#include "ui/shown/surveillance_view.h"
#include "ui/shown/text_loader.h"
#include "ui/window/main_window.h"

namespace vaktor::faux {

struct BancFenetre {
  explicit BancFenetre(qint32 langue = 1) {
    Reglages.LangueCourante = langue;
    Engin.Lance();
    Vue.Relie({Engin, Reglages, Fenetre, [this]() -> FormMonitor& { return Moniteur; }, PleinEcran});
    PleinEcran.SurFermeture([this] { Fenetre.CheckPEcran().setChecked(false); });
    QObject::connect(&Moniteur, &FormMonitor::PleinEcranChoisi, &Fenetre, [this] { PleinEcran.Montre(); });
    Fenetre.Habille({Textes, Engin, Pompe, Sons});
    Chargeur.ChargeTextes();
    Pilote.Image = ImageUnie(64, 48, qRgb(10, 20, 30));
    Fenetre.show();
  }
  BancFenetre(const BancFenetre&) = delete;
  BancFenetre& operator=(const BancFenetre&) = delete;

  static QImage ImageUnie(int largeur, int hauteur, QRgb couleur) {
    QImage image(largeur, hauteur, QImage::Format_RGB32);
    image.fill(couleur);
    return image;
  }
  template <typename T = QWidget>
  T* Trouve(const char* nom) {
    return Fenetre.findChild<T*>(QLatin1String(nom));
  }
  void Clique(const char* nom) { QTest::mouseClick(Trouve(nom), Qt::LeftButton); }
  /// Everything that CheckMail asks for before it switches mails on.
  void RemplitMail() {
    Reglages.SmtpServeur = QStringLiteral("smtp.example.org");
    Reglages.SmtpFrom = QStringLiteral("vaktor@example.org");
    Trouve<QLineEdit>("TextEMail")->setText(QStringLiteral("me@example.org"));
    Reglages.ParametresModifies = false;
  }
  /// One tick of the surveillance.
  void Tic() { Temps.Declenche(QStringLiteral("Timer1")); }

  faux::Journal Journal;
  Parametres Reglages;
  EtatApplication Etat;
  TablesTextes Textes;
  HorlogeVirtuelle Horloge;
  TempsVirtuel Temps{Horloge};
  SauvegardeFausse Sauvegarde{Journal, Reglages};
  PiloteFaux Pilote{Journal};
  PompeFausse Pompe{Journal};
  SonsFaux Sons{Journal};
  ActionsFausses Actions{Journal};
  LiaisonLiveFausse Live{Journal};
  BoitesFausses Boites;
  bool EspaceCourt = false;
  qint32 Fermetures = 0;
  qint32 OuverturesSmtp = 0;
  qint32 BasculesLive = 0;
  VueSurveillance Vue{Textes, Boites};
  faux::SanteFausse Sante;
  Surveillance Engin{
      PortsSurveillance{Reglages, Sauvegarde, Pilote, Temps, Horloge, Pompe, Sons, Actions, Live, Vue, Sante}};
  VueAgrandie PleinEcran;
  Form1 Fenetre{ServicesForm1{Reglages, Sauvegarde, Textes, Engin, [this] { ++BasculesLive; }, Boites,
                              [this] { return EspaceCourt; }, [this] { Chargeur.ChargeTextes(); },
                              [this](bool montre) { montre ? PleinEcran.Montre() : PleinEcran.Cache(); },
                              [this] { ++Fermetures; }, [this] { ++OuverturesSmtp; }}};
  FormMonitor Moniteur{Engin, Etat, Reglages, Sauvegarde};
  ChargeurTextes Chargeur{Reglages, Textes, Fenetre, Moniteur, [this] { EcritLibellesBoutons(Fenetre, Textes); }};
};

}  // namespace vaktor::faux
