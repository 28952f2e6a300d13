// Ports behind which there is nothing: sounds that nobody hears, for programs that only measure; a machine without mail
// accounts.
#pragma once

#include "companions/ports/mail_registry.h"
#include "engine/ports/interface_sounds.h"

namespace vaktor {

class SonsMuets : public SonsInterface {
 public:
  void JoueSon(qint32) override {}
  void SurvolSon(qint32) override {}
};

class SansComptes : public RegistreComptes {
 public:
  Cle OuvreCle(const QString&) override { return 0; }
  long EnumereCle(Cle, quint32, QString&) override { return kPlusDElements; }
  long EnumereValeur(Cle, quint32, QString&, QByteArray&) override { return kPlusDElements; }
  void FermeCle(Cle) override {}
};

}  // namespace vaktor
