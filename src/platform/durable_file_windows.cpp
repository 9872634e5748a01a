// Windows only: FlushFileBuffers, and a move that waits for the disk. What folders hold is the file system's
// own journal's affair.

#include <algorithm>

#include "platform/durable_file.h"
#include "platform/windows_headers.h"

namespace ardane {
namespace {

class Poignée {
 public:
  explicit Poignée(HANDLE ouverte) : poignée_(ouverte) {}
  ~Poignée() {
    if (est_ouverte()) CloseHandle(poignée_);
  }
  Poignée(const Poignée &) = delete;
  Poignée &operator=(const Poignée &) = delete;

  bool est_ouverte() const { return poignée_ != INVALID_HANDLE_VALUE; }
  bool écrire(std::string_view octets) const {
    constexpr std::size_t morceau = 1 << 20;
    while (!octets.empty()) {
      DWORD écrits = 0;
      const auto voulus = static_cast<DWORD>(std::min(octets.size(), morceau));
      if (!WriteFile(poignée_, octets.data(), voulus, &écrits, nullptr) || écrits == 0) return false;
      octets.remove_prefix(écrits);
    }
    return true;
  }
  /// True also where the device has nothing to wait for.
  bool attendre_le_disque() const {
    return FlushFileBuffers(poignée_) || GetLastError() == ERROR_INVALID_FUNCTION;
  }

 private:
  HANDLE poignée_;
};

/// A virus scanner or an indexer may have the file open for a moment.
constexpr int essais = 20;
constexpr DWORD entre_deux_essais_ms = 10;

bool est_passager(DWORD erreur) {
  return erreur == ERROR_SHARING_VIOLATION || erreur == ERROR_ACCESS_DENIED;
}

}  // namespace

Ecriture écrire_octets(const std::filesystem::path &fichier, std::string_view octets, Nom_de_fichier nom,
                       Disque disque) {
  const DWORD selon_le_nom = nom == Nom_de_fichier::libre ? CREATE_NEW : CREATE_ALWAYS;
  const Poignée ouverte(CreateFileW(fichier.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                    nullptr, selon_le_nom, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!ouverte.est_ouverte()) return Ecriture::sans_fichier;
  const bool écrits =
      ouverte.écrire(octets) && (disque == Disque::non_attendu || ouverte.attendre_le_disque());
  return écrits ? Ecriture::faite : Ecriture::incomplète;
}

bool prendre_le_nom(const std::filesystem::path &fichier, const std::filesystem::path &nom) {
  constexpr DWORD manière = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  for (int essai = 1; !MoveFileExW(fichier.c_str(), nom.c_str(), manière); ++essai) {
    if (essai == essais || !est_passager(GetLastError())) return false;
    Sleep(entre_deux_essais_ms);
  }
  return true;
}

void fixer_dossier(const std::filesystem::path &) {}

}  // namespace ardane
