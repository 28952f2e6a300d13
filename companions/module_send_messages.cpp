#include "companions/module_send_messages.h"

namespace vaktor {

void ModuleSendMessages::EnvoiFTP(const QString& mot) { PosteMot(Compagnon::kFtp, Liaison_.HandleFTP, mot); }

void ModuleSendMessages::EnvoiMail(const QString& mot) { PosteMot(Compagnon::kMail, Liaison_.HandleMail, mot); }

void ModuleSendMessages::EnvoiSon(const QString& mot) { PosteMot(Compagnon::kSon, Liaison_.HandleSon, mot); }

void ModuleSendMessages::PosteMot(Compagnon compagnon, qint32 poignee, const QString& mot) {
  if (const std::optional<qint32> code = DonneCodeTouche(compagnon, mot))
    Canal_.PosteTouche(poignee, *code, DonneTenue(mot));
}

}  // namespace vaktor
