// Windows only: the command line is UTF-16, the streams are text of the console's code page.
#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include "platform/process_start.h"
#include "platform/windows_headers.h"
#include "platform/windows_text.h"

namespace ardane {

std::vector<std::string> arguments_du_programme(int, char **) {
  std::vector<std::string> arguments;
  int nombre = 0;
  wchar_t **larges = CommandLineToArgvW(GetCommandLineW(), &nombre);
  for (int i = 1; larges != nullptr && i < nombre; ++i) arguments.push_back(texte_utf8(larges[i]));
  LocalFree(larges);
  return arguments;
}

void ouvrir_les_flux() {
  for (std::FILE *flux : {stdin, stdout, stderr}) _setmode(_fileno(flux), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  SetConsoleCP(CP_UTF8);
}

void ouvrir_les_flux_du_bureau() {
  // A stream that was handed over, as to a file or a pipe, stays what it is.
  const bool sans_sortie = _get_osfhandle(_fileno(stdout)) < 0,
             sans_erreurs = _get_osfhandle(_fileno(stderr)) < 0;
  if ((sans_sortie || sans_erreurs) && AttachConsole(ATTACH_PARENT_PROCESS)) {
    if (sans_sortie && std::freopen("CONOUT$", "w", stdout) == nullptr) return;
    if (sans_erreurs && std::freopen("CONOUT$", "w", stderr) == nullptr) return;
    SetConsoleOutputCP(CP_UTF8);
  }
}

}  // namespace ardane
