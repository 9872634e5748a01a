// Windows only: the system's known folders, wherever the player has moved them.

#include "platform/player_folders.h"
#include "platform/windows_headers.h"

namespace ardane {
namespace {

std::filesystem::path dossier_connu(const KNOWNFOLDERID &lequel) {
  PWSTR chemin = nullptr;
  std::filesystem::path dossier;
  if (SUCCEEDED(SHGetKnownFolderPath(lequel, KF_FLAG_CREATE, nullptr, &chemin))) dossier = chemin;
  CoTaskMemFree(chemin);
  return dossier;
}

}  // namespace

std::filesystem::path dossier_des_réglages() {
  return dossier_connu(FOLDERID_LocalAppData);
}

std::filesystem::path dossier_des_états() {
  return dossier_connu(FOLDERID_LocalAppData);
}

std::filesystem::path dossier_des_documents() {
  return dossier_connu(FOLDERID_Documents);
}

}  // namespace ardane
