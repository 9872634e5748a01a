// Linux only: fsync, of the file and of its folder.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/durable_file.h"

namespace ardane {
namespace {

class Descripteur {
 public:
  explicit Descripteur(int ouvert) : numéro_(ouvert) {}
  ~Descripteur() {
    if (numéro_ >= 0) close(numéro_);
  }
  Descripteur(const Descripteur &) = delete;
  Descripteur &operator=(const Descripteur &) = delete;

  bool est_ouvert() const { return numéro_ >= 0; }
  bool écrire(std::string_view octets) const {
    while (!octets.empty()) {
      const ssize_t écrits = write(numéro_, octets.data(), octets.size());
      if (écrits < 0 && errno == EINTR) continue;
      if (écrits <= 0) return false;
      octets.remove_prefix(static_cast<std::size_t>(écrits));
    }
    return true;
  }
  /// True also where the file system has nothing to wait for.
  bool attendre_le_disque() const { return fsync(numéro_) == 0 || errno == EINVAL || errno == ENOTSUP; }

 private:
  int numéro_;
};

constexpr mode_t droits = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;  // less the umask

}  // namespace

Ecriture écrire_octets(const std::filesystem::path &fichier, std::string_view octets, Nom_de_fichier nom,
                       Disque disque) {
  const int selon_le_nom = nom == Nom_de_fichier::libre ? O_EXCL | O_NOFOLLOW : O_TRUNC;
  const Descripteur ouvert(open(fichier.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | selon_le_nom, droits));
  if (!ouvert.est_ouvert()) return Ecriture::sans_fichier;
  const bool écrits = ouvert.écrire(octets) && (disque == Disque::non_attendu || ouvert.attendre_le_disque());
  return écrits ? Ecriture::faite : Ecriture::incomplète;
}

bool prendre_le_nom(const std::filesystem::path &fichier, const std::filesystem::path &nom) {
  std::error_code erreur;
  std::filesystem::rename(fichier, nom, erreur);
  if (!erreur) fixer_dossier(nom.parent_path());
  return !erreur;
}

void fixer_dossier(const std::filesystem::path &dossier) {
  const Descripteur ouvert(open(dossier.empty() ? "." : dossier.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (ouvert.est_ouvert()) ouvert.attendre_le_disque();
}

}  // namespace ardane
