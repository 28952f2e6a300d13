// How much lies in a folder, counted on a thread of its own.
#pragma once

#include "companions/ports/folder_measure.h"
#include "platform/folders/disk_question.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class MesureurDossierSysteme : public MesureurDossier {
 public:
  void Mesure(const QString& dossier, Rend rend) override;
  void Oublie() override { Question_.Oublie(); }

 private:
  QuestionDisque<std::optional<TailleDossier>> Question_;
};

}  // namespace vaktor
