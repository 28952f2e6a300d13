// SPDX-License-Identifier: GPL-3.0-or-later
// The whole system behind the program as fakes that write every call into one journal, in the order in which it came.
#pragma once

#include <QMap>
#include <QSet>
#include <map>

#include "app/application.h"
#include "base/failure.h"
#include "fakes/fake_awake_machine.h"
#include "fakes/fake_capture_driver.h"
#include "fakes/fake_companion_status.h"
#include "fakes/fake_desktop_notifier.h"
#include "fakes/fake_event_pump.h"
#include "fakes/fake_flush_losses.h"
#include "fakes/fake_folder_tree.h"
#include "fakes/fake_foreign_accounts.h"
#include "fakes/fake_interface_sounds.h"
#include "fakes/fake_journal_file.h"
#include "fakes/fake_mail_drop.h"
#include "fakes/fake_photo_eraser.h"
#include "fakes/fake_photo_names.h"
#include "fakes/fake_photo_reader.h"
#include "fakes/fake_rehearsal.h"
#include "fakes/fake_session_start.h"
#include "fakes/fake_sound_player.h"
#include "fakes/fake_space_query.h"
#include "fakes/fake_timeline_ports.h"
#include "fakes/fake_user_program.h"
#include "fakes/fake_write_trial.h"
#include "fakes/journal.h"
#include "fakes/virtual_timers.h"

namespace vaktor::essai {

using faux::Journal;

class MagasinNote : public MagasinReglages {
 public:
  MagasinNote(Journal& journal, QMap<QString, QString>& valeurs, const bool& plein)
      : J_(journal), Valeurs_(valeurs), Plein_(plein) {}
  QString LitReglage(const QString& section, const QString& cle, const QString& defaut) const override {
    J_.Note([&] { return QStringLiteral("store: read %1/%2").arg(section, cle); });
    return Valeurs_.value(section + u'/' + cle, defaut);
  }
  void EcritReglage(const QString& section, const QString& cle, const QString& valeur) override {
    J_.Note([&] { return QStringLiteral("store: write %1/%2").arg(section, cle); });
    Valeurs_.insert(section + u'/' + cle, valeur);
  }
  void Reprend(const QString& section, const QString& cle) override {
    J_.Note([&] { return QStringLiteral("store: take back %1/%2").arg(section, cle); });
  }
  void Vide() override {
    J_.Note([] { return QStringLiteral("store: flush"); });
    if (Plein_) throw Echec(kAccesFichier, QStringLiteral("disk full"));
  }

 private:
  Journal& J_;
  QMap<QString, QString>& Valeurs_;
  const bool& Plein_;
};

class CanalNote : public CanalMessages {
 public:
  CanalNote(Journal& journal, std::map<qint32, std::function<void(const QString&)>>& casiers, const bool& bloque,
            const QSet<qint32>& autres)
      : J_(journal), Casiers_(casiers), Bloque_(bloque), Autres_(autres) {}
  qint32 OuvreCasier(std::function<void(const QString&)> recu) override {
    const qint32 poignee = 1001 + static_cast<qint32>(Casiers_.size());
    Casiers_[poignee] = std::move(recu);
    J_.Note([poignee] { return QStringLiteral("channel: open %1").arg(poignee); });
    return poignee;
  }
  void FermeCasier(qint32 poignee) override {
    if (Bloque_) throw std::bad_alloc();
    Casiers_.erase(poignee);
    J_.Note([poignee] { return QStringLiteral("channel: close %1").arg(poignee); });
  }
  void PosteTouche(qint32 poignee, qint32 code, Tenue) noexcept override {
    J_.Note([=] { return QStringLiteral("channel: post %1 to %2").arg(code).arg(poignee); });
  }
  Prise DonnePrise(qint32) override { return Prise::kRien; }
  void OublieFenetre(qint32 poignee) noexcept override {
    J_.Note([=] { return QStringLiteral("channel: forget %1").arg(poignee); });
  }
  std::optional<bool> Repond(qint32 poignee) const override { return Autres_.contains(poignee); }

 private:
  Journal& J_;
  std::map<qint32, std::function<void(const QString&)>>& Casiers_;
  const bool& Bloque_;
  const QSet<qint32>& Autres_;
};

class ProcessusNote : public Processus {
 public:
  explicit ProcessusNote(Journal& journal) : J_(journal) {}
  QList<ProcessusVu> PrendInstantane() const override {
    J_.Note([] { return QStringLiteral("processes: list"); });
    return Table;
  }
  bool TermineProcessus(const ProcessusVu& vu) override {
    J_.Note([&vu] { return QStringLiteral("processes: end ") + vu.Nom; });
    Table.removeIf([&vu](const ProcessusVu& autre) { return autre.Pid == vu.Pid; });
    return true;
  }
  std::unique_ptr<ProgrammeSuivi> LanceSuivi(const Lancement& quoi, std::function<void()> fini) override {
    J_.Note([&quoi] { return QStringLiteral("processes: start ") + quoi.Chemin; });
    if (PendantLancement) PendantLancement();
    if (Absents.contains(quoi.Chemin)) return nullptr;
    Finis[quoi.Chemin] = std::move(fini);
    return std::make_unique<Suivi>(J_, quoi.Chemin);
  }
  /// A companion ends.
  void Finit(const QString& chemin) {
    const auto fini = Finis.at(chemin);
    fini();
  }
  std::map<QString, std::function<void()>> Finis;
  QList<ProcessusVu> Table;
  QStringList Absents;
  std::function<void()> PendantLancement;

 private:
  class Suivi : public ProgrammeSuivi {
   public:
    Suivi(Journal& journal, QString chemin) : J_(journal), Chemin_(std::move(chemin)) {}
    void DemandeFin() noexcept override {
      J_.Note([this] { return QStringLiteral("processes: ask to end ") + Chemin_; });
    }
    void Tue() noexcept override {
      J_.Note([this] { return QStringLiteral("processes: kill ") + Chemin_; });
    }

   private:
    Journal& J_;
    QString Chemin_;
  };
  Journal& J_;
};

/// The store, as far as the handles go: what was written into it.
class CasiersLus : public LecteurCasiers {
 public:
  explicit CasiersLus(const QMap<QString, QString>& valeurs) : Valeurs_(valeurs) {}
  void LitCasiers(Rend rend) override {
    const auto lit = [this](const char* section) {
      return Valeurs_.value(QLatin1String(section) + QStringLiteral("/HWNDVK")).toInt();
    };
    rend(PoigneesPubliees{lit("FTP"), lit("MAIL"), lit("SON")});
  }
  void Oublie() override {
    if (Bloque) throw std::bad_alloc();
  }
  bool Bloque = false;  ///< letting a question go throws

 private:
  const QMap<QString, QString>& Valeurs_;
};

/// Says nothing until a test gives it a measure.
class MesureurFixe : public MesureurDossier {
 public:
  void Mesure(const QString& dossier, Rend rend) override {
    Demandes << dossier;
    if (Taille) rend(Taille);
  }
  void Oublie() override {}
  std::optional<TailleDossier> Taille;
  QStringList Demandes;
};

class BoitesNotees : public BoitesMessage {
 public:
  explicit BoitesNotees(Journal& journal) : J_(journal) {}
  ReponseBoite MontreMessage(const QString& texte, const QString& titre, BoutonsBoite boutons) override {
    J_.Note([&] { return QStringLiteral("box: ") + titre; });
    Textes.append(texte);
    Titres.append(titre);
    Boutons = boutons;
    if (PendantMessage) PendantMessage();
    return Reponse;
  }
  QStringList Textes, Titres;
  BoutonsBoite Boutons{};  ///< of the last box
  ReponseBoite Reponse = ReponseBoite::kOk;
  std::function<void()> PendantMessage;  ///< what happens before somebody answers

 private:
  Journal& J_;
};

class DisqueNote : public Fichiers {
 public:
  explicit DisqueNote(Journal& journal) : J_(journal) {}
  bool Existe(const QString& chemin) const override {
    J_.Note([&] { return QStringLiteral("files: exists ") + chemin; });
    return Existants.contains(chemin);
  }
  Presence RegardeDossier(const QString& chemin) const override {
    J_.Note([&] { return QStringLiteral("files: folder ") + chemin; });
    if (Muets.contains(chemin)) return Presence::kSansReponse;
    return Existants.contains(chemin) ? Presence::kLa : Presence::kAbsent;
  }
  bool CreeDossier(const QString& chemin) override {
    J_.Note([&] { return QStringLiteral("files: make ") + chemin; });
    Existants.append(chemin);
    return true;
  }
  std::optional<qint64> EspaceLibre(const QString&) const override { return Libre; }
  std::optional<qint64> EspaceUtilisable(const QString&) const override { return Libre; }
  bool Supprime(const QString&) override { return false; }
  int EcritFichier(const QString&, QByteArrayView) override { return 0; }
  int EcritNouveauFichier(const QString&, QByteArrayView, QString*) override { return 0; }
  QStringList Existants;
  QStringList Muets;            ///< their disk does not answer
  std::optional<qint64> Libre;  ///< bytes; nothing: the question fails

 private:
  Journal& J_;
};

class EcrivainNote : public EcrivainJpeg {
 public:
  explicit EcrivainNote(Journal& journal) : J_(journal) {}
  void EnregistreJPEG(const QImage&, const QString& fichier, quint8 qualite) override {
    J_.Note([&] { return QStringLiteral("jpeg: ") + fichier; });
    Qualites[fichier] = qualite;
    if (Erreur != 0) throw EchecJpeg(EcrivainJpegFichier::StatutEcriture(Erreur), Erreur);
  }
  QString EnregistreNouveauJPEG(const QImage& image, const QString& fichier, quint8 qualite) override {
    EnregistreJPEG(image, fichier, qualite);
    QString ecrit = QString(fichier).replace(u'\\', u'/');
    return DejaPris.isEmpty() ? ecrit : ecrit.replace(QStringLiteral(".jpg"), DejaPris);
  }
  QString DejaPris;  ///< the name of each photo is taken: it ends so in place of ".jpg"
  int Erreur = 0;    ///< errno of each writing
  QMap<QString, int> Qualites;

 private:
  Journal& J_;
};

class OuvreurNote : public Ouvreur {
 public:
  explicit OuvreurNote(Journal& journal) : J_(journal) {}
  void OuvreAdresse(const QString& adresse) override {
    J_.Note([&] { return QStringLiteral("open: ") + adresse; });
    Adresses.append(adresse);
  }
  void OuvreDossier(const QString& dossier) override {
    J_.Note([&] { return QStringLiteral("open folder: ") + dossier; });
  }
  QStringList Adresses;  ///< what was asked for

 private:
  Journal& J_;
};

class HorlogeNotee : public faux::HorlogeVirtuelle {
 public:
  explicit HorlogeNotee(Journal& journal) : J_(journal) {}
  QDate DonneDate() const override {
    J_.Note([] { return QStringLiteral("clock: date"); });
    return HorlogeVirtuelle::DonneDate();
  }

 private:
  Journal& J_;
};

class MinuterieNotee : public Minuterie {
 public:
  MinuterieNotee(Journal& journal, QString nom, std::unique_ptr<Minuterie> vraie)
      : J_(journal), Nom_(std::move(nom)), Vraie_(std::move(vraie)) {}
  void ChangeIntervalle(qint32 millisecondes) override {
    Dit(QStringLiteral("interval %1").arg(millisecondes));
    Vraie_->ChangeIntervalle(millisecondes);
  }
  qint32 Intervalle() const override { return Vraie_->Intervalle(); }
  void Active() override {
    Dit(QStringLiteral("on"));
    Vraie_->Active();
  }
  void Desactive() override {
    Dit(QStringLiteral("off"));
    Vraie_->Desactive();
  }
  bool EstActive() const override { return Vraie_->EstActive(); }
  void Endors() override {
    Dit(QStringLiteral("asleep"));
    Vraie_->Endors();
  }
  void Reveille() override {
    Dit(QStringLiteral("awake"));
    Vraie_->Reveille();
  }

 private:
  void Dit(const QString& quoi) {
    J_.Note([&] { return QStringLiteral("timer %1: %2").arg(Nom_, quoi); });
  }
  Journal& J_;
  QString Nom_;
  std::unique_ptr<Minuterie> Vraie_;
};

class MinuteriesNotees : public FabriqueMinuteries {
 public:
  MinuteriesNotees(Journal& journal, faux::TempsVirtuel& temps) : J_(journal), Temps_(temps) {}
  std::unique_ptr<Minuterie> CreeMinuterie(const QString& nom, qint32 millisecondes,
                                           std::function<void()> tic) override {
    J_.Note([&] { return QStringLiteral("timer %1: made").arg(nom); });
    return std::make_unique<MinuterieNotee>(J_, nom, Temps_.CreeMinuterie(nom, millisecondes, std::move(tic)));
  }

 private:
  Journal& J_;
  faux::TempsVirtuel& Temps_;
};

class NomsNotes : public faux::LecteurNomsFaux {
 public:
  NomsNotes(Journal& journal, const FauxFichiers& disque) : LecteurNomsFaux(disque), J_(journal) {}
  void LitNoms(const QString& dossier, const QString& motif, Recoit recoit) override {
    J_.Note([&] { return QStringLiteral("names: read ") + dossier; });
    LecteurNomsFaux::LitNoms(dossier, motif, std::move(recoit));
  }

 private:
  Journal& J_;
};

class LignesNotees : public faux::FichierJournalFaux {
 public:
  explicit LignesNotees(Journal& journal) : J_(journal) {}
  void Ajoute(const QByteArray& ligne) noexcept override {
    const qsizetype mot = ligne.indexOf("\"what\":\"") + 8;
    J_.Note([&] {
      return QStringLiteral("journal: ") + QString::fromLatin1(ligne.mid(mot, ligne.indexOf('"', mot) - mot));
    });
    FichierJournalFaux::Ajoute(ligne);
  }

 private:
  Journal& J_;
};

/// The program over it. Nothing is started before Demarre.
struct SystemeFaux {
  SystemeFaux() {
    Notes.Ecoute();
    Pilote->Image = QImage(287, 241, QImage::Format_RGB32);
    Pilote->Image.fill(Qt::black);
    Photos.AjouteDossier(QStringLiteral("/home/u/v/intrus"));  // as a start makes it
  }
  PortsSysteme Ports() {
    return {
        .Dossiers = {.Executables = QStringLiteral("/opt/v"), .Donnees = QStringLiteral("/home/u/v"), .Images = Images},
        .PrepareDossiers =
            [this] {
              Notes.Note([] { return QStringLiteral("folders: prepare"); });
              return DossierManquant;
            },
        .OuvreMagasin = [this] { return std::make_unique<MagasinNote>(Notes, Valeurs, MagasinPlein); },
        .DossierMagasin = QStringLiteral("/home/u/config"),
        .OuvreCanal = [this] { return std::make_unique<CanalNote>(Notes, Casiers, CanalBloque, AutresCasiers); },
        .CreePilote =
            [this](const std::function<Langue()>& langue) {
              LangueDuPilote = langue;
              return std::move(Pilote);
            },
        .Temps = Horloge,
        .Disque = Disque,
        .Pompe = Pompe,
        .Minuteries = Minuteries,
        .Boites = Messages,
        .Ecrivain = Ecrivain,
        .Noms = Noms,
        .Lecteur = Lecteur,
        .Effaceur = Effaceur,
        .Arbre = Arbre,
        .Sonde = Sonde,
        .EssaiPhotos = EssaiPhotos,
        .Pertes = Pertes,
        .Sons = Sons,
        .Programmes = Programmes,
        .CasiersPublies = CasiersPublies,
        .Mesureur = Mesureur,
        .Machine = Machine,
        .Navigateur = Navigateur,
        .Comptes = Comptes,
        .EssaiMail = EssaiMail,
        .EssaiFtp = EssaiFtp,
        .Etats = Etats,
        .Bureau = Bureau,
        .Courriels = Courriels,
        .Personnel = Personnel,
        .Journal = LignesJournal,
        .Chroniques = Chroniques,
        .Vignettes = Vignettes,
        .PhotosDuFilm = PhotosDuFilm,
        .Films = Films,
        .ChoixFilm = ChoixFilm,
        .Course = QStringLiteral("run"),
        .Session = Session,
        .Site = {QStringLiteral("https://www.example.org"), QStringLiteral("/opt/v/site"), QStringLiteral("1.4.9")},
        .TermineErrants =
            [this](Compagnon compagnon, std::function<void()> fini) {
              Notes.Note([&] { return QStringLiteral("strays: end %1").arg(static_cast<int>(compagnon)); });
              ErrantsFinis = std::move(fini);
            },
        .CreeFormSound =
            [this](Parametres& reglages, SauvegardeParametres& sauvegarde) {
              Notes.Note([] { return QStringLiteral("sound form: make"); });
              return std::make_unique<FormSound>(ChoixSon(reglages, sauvegarde, SonsDeLaForme, ChoixFichier));
            },
        .SuitLangue = [this](std::function<Langue()> langue) { LangueDesBoites = std::move(langue); },
        .ParleOutils = [this](Langue langue) { LanguesOutils += langue; }};
  }
  /// A companion writes a word into its inbox.
  void Recoit(qint32 poignee, const QString& texte) {
    const auto recu = Casiers.at(poignee);
    recu(texte);
  }
  QStringList DepuisVide() {
    QStringList lignes = Notes.Lignes();
    Notes.Vide();
    return lignes;
  }

  Journal Notes;
  QMap<QString, QString> Valeurs;
  QString Images;                                           ///< of an installed program
  QList<Langue> LanguesOutils;                              ///< what the toolkit was told to speak, one after the other
  QString DossierManquant;                                  ///< a folder of the start cannot be made
  bool MagasinPlein = false;                                ///< the settings cannot be saved
  std::function<Langue()> LangueDuPilote, LangueDesBoites;  ///< as the program handed them out
  bool CanalBloque = false;                                 ///< closing an inbox throws
  QSet<qint32> AutresCasiers;                               ///< inboxes of another copy, that answer
  std::function<void()> ErrantsFinis;                       ///< to be called once the strays of a companion are gone
  std::map<qint32, std::function<void(const QString&)>> Casiers;
  HorlogeNotee Horloge{Notes};
  faux::TempsVirtuel Temps{Horloge};
  MinuteriesNotees Minuteries{Notes, Temps};
  faux::PompeFausse Pompe{Notes};
  faux::SonsFaux Sons{Notes};
  DisqueNote Disque{Notes};
  BoitesNotees Messages{Notes};
  EcrivainNote Ecrivain{Notes};
  FauxFichiers Photos;
  NomsNotes Noms{Notes, Photos};
  faux::LecteurPhotosFaux Lecteur;
  faux::HorlogeVirtuelle TempsEffaceur;
  faux::EffaceurFaux Effaceur{Photos, TempsEffaceur};
  faux::ArbreFaux Arbre;
  faux::SondeEspaceFausse Sonde;
  faux::EssaiEcritureFaux EssaiPhotos;
  faux::PertesFausses Pertes;
  ProcessusNote Programmes{Notes};
  CasiersLus CasiersPublies{Valeurs};
  MesureurFixe Mesureur;
  faux::MachineFausse Machine{Notes, Horloge};
  OuvreurNote Navigateur{Notes};
  faux::LecteurComptesFaux Comptes;
  faux::EssaiFaux EssaiMail;
  faux::EssaiFaux EssaiFtp;
  faux::LecteurEtatsFaux Etats;
  faux::NotifieurFaux Bureau;
  faux::DepotFaux Courriels;
  faux::ProgrammePersonnelFaux Personnel;
  LignesNotees LignesJournal{Notes};
  faux::LecteurChroniqueFaux Chroniques;
  faux::LecteurVignettesFaux Vignettes;
  faux::LecteurPhotosFaux PhotosDuFilm;
  faux::EcrivainFilmFaux Films;
  faux::DialogueSauvegardeFaux ChoixFilm;
  faux::SessionFausse Session{Notes};
  // The form of the alarm sound is the real one, over a player that keeps what it was to play.
  DossiersProgramme DossiersDesSons{.Executables = QStringLiteral("/opt/v"), .Donnees = QStringLiteral("/home/u/v")};
  FauxFichiers DisqueDesSons;
  faux::LecteurFaux LecteurSon;
  faux::DialogueFaux ChoixFichier;
  vaktor::Sons SonsDeLaForme{DossiersDesSons, DisqueDesSons, LecteurSon};
  std::unique_ptr<faux::PiloteFaux> Pilote = std::make_unique<faux::PiloteFaux>(Notes);
};

}  // namespace vaktor::essai
