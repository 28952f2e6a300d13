// VAKTORftp: puts the live image, the photos of an alarm and the page on a web site.
#include "modules/common/module_program.h"
#include "modules/ftp/ftp_module.h"
#include "modules/ftp/ftp_thread.h"

int main(int argc, char** argv) {
  using namespace vaktor;
  const DescriptionModule description{Compagnon::kFtp, QStringLiteral(VAKTOR_VERSION),
                                      QString::fromUtf8("Publie la caméra de Vaktor sur un site web."),
                                      QStringLiteral("Publishes the camera of Vaktor on a web site.")};
  return ExecuteModule(argc, argv, description, [](const ContexteModule& contexte) {
    OptionsClient options;
    // Where OpenSSL's own programs look first: for those who run a server with a certificate of their own.
    options.FichierAutorites = qEnvironmentVariable("SSL_CERT_FILE");
    return std::make_unique<ModuleFtp>(contexte, std::make_unique<OuvrierThread>(options));
  });
}
