#include "deadly_calls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace ardane {
namespace {

/// Seen by parent and child alike.
struct Journal {
  int nombre;
  std::array<const char *, 10'000> noms;  ///< literals of this program, at one address in both
};

Journal &journal() {
  static auto *const partagé = static_cast<Journal *>(
      mmap(nullptr, sizeof(Journal), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  return *partagé;
}

std::string stat_défaillant;  ///< the path of which nothing can be told
int fois_encore = 0;

bool compté = false;
int fatal = 0;

/// Counts a call; true if it is the one that the process dies at.
bool est_fatal(const char *nom) {
  if (!compté) return false;
  Journal &j = journal();
  j.noms.at(static_cast<std::size_t>(j.nombre)) = nom;
  return ++j.nombre == fatal;
}

void mourir() {
  kill(getpid(), SIGKILL);
}

template <class Fonction>
Fonction *de_la_bibliothèque(const char *nom) {
  return reinterpret_cast<Fonction *>(dlsym(RTLD_NEXT, nom));
}

template <class Fonction>
auto appel(const char *nom, const auto &faire) {
  if (est_fatal(nom)) mourir();
  return faire(de_la_bibliothèque<Fonction>(nom));
}

}  // namespace

Fin tuer_à_l_appel(int n, const std::function<int()> &action) {
  journal().nombre = 0;
  std::fflush(nullptr);
  const pid_t enfant = fork();
  if (enfant < 0) throw std::runtime_error("no child process");
  if (enfant == 0) {
    fatal = n;
    compté = true;
    // An exception must not lead it back into the tests.
    const int code = [&]() noexcept { return action(); }();
    compté = false;
    _exit(code);
  }
  int état = 0;
  waitpid(enfant, &état, 0);
  return {WIFSIGNALED(état) && WTERMSIG(état) == SIGKILL, WIFEXITED(état) ? WEXITSTATUS(état) : -1};
}

StatDéfaillant::StatDéfaillant(std::string chemin, int fois) {
  stat_défaillant = std::move(chemin);
  fois_encore = fois;
}

StatDéfaillant::~StatDéfaillant() {
  fois_encore = 0;
}

std::vector<std::string> appels_du_dernier() {
  const Journal &j = journal();
  return {j.noms.begin(), j.noms.begin() + j.nombre};
}

}  // namespace ardane

// --- The calls

extern "C" {

FILE *fopen64(const char *chemin, const char *mode) {
  return ardane::appel<decltype(fopen64)>("fopen64", [&](auto *suivante) { return suivante(chemin, mode); });
}

int open(const char *chemin, int mode, ...) {
  va_list suite;
  va_start(suite, mode);
  const mode_t droits = (mode & O_CREAT) != 0 ? va_arg(suite, mode_t) : 0;
  va_end(suite);
  return ardane::appel<decltype(open)>("open",
                                       [&](auto *suivante) { return suivante(chemin, mode, droits); });
}

int stat(const char *chemin, struct stat *état) noexcept {
  if (ardane::fois_encore > 0 && ardane::stat_défaillant == chemin) {
    --ardane::fois_encore;
    errno = EIO;
    return -1;
  }
  return ardane::de_la_bibliothèque<int(const char *, struct stat *)>("stat")(chemin, état);
}

int fsync(int fichier) {
  struct stat état {};
  const bool dossier = fstat(fichier, &état) == 0 && S_ISDIR(état.st_mode);
  if (ardane::est_fatal(dossier ? "fsync of a folder" : "fsync")) ardane::mourir();
  return ardane::de_la_bibliothèque<decltype(fsync)>("fsync")(fichier);
}

int fclose(FILE *fichier) {
  return ardane::appel<decltype(fclose)>("fclose", [&](auto *suivante) { return suivante(fichier); });
}

/// What dies here has written half.
ssize_t write(int fichier, const void *octets, size_t nombre) {
  const bool fatal = ardane::est_fatal("write");
  const ssize_t écrits =
      ardane::de_la_bibliothèque<decltype(write)>("write")(fichier, octets, fatal ? nombre / 2 : nombre);
  if (fatal) ardane::mourir();
  return écrits;
}

/// The same: it has written the first of its blocks.
ssize_t writev(int fichier, const iovec *blocs, int nombre) {
  const bool fatal = ardane::est_fatal("writev");
  const ssize_t écrits =
      ardane::de_la_bibliothèque<decltype(writev)>("writev")(fichier, blocs, fatal ? 1 : nombre);
  if (fatal) ardane::mourir();
  return écrits;
}

int fchmodat(int dossier, const char *chemin, mode_t droits, int options) noexcept {
  return ardane::appel<decltype(fchmodat)>(
      "fchmodat", [&](auto *suivante) { return suivante(dossier, chemin, droits, options); });
}

int rename(const char *ancien, const char *nouveau) noexcept {
  return ardane::appel<decltype(rename)>("rename", [&](auto *suivante) { return suivante(ancien, nouveau); });
}

int remove(const char *chemin) noexcept {
  return ardane::appel<decltype(remove)>("remove", [&](auto *suivante) { return suivante(chemin); });
}
}
