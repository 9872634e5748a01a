// Starts the program and an empty Qt window of its window's size in turn, and prints what each start cost:
// the rows of the table of speeds that speak of a start.
//
//     desktop_start EMPTY_WINDOW ARDANE [--echelle N] [OPTION OF ARDANE...]
//
// --echelle N starts as after a player who has chosen that scale.
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "front/qt/demonstration/scratch_folder.h"

namespace {

namespace fs = std::filesystem;

/// Figures by name: "prêt cpu", "prêt mur", "prêt mémoire" and so on.
using Figures = std::map<std::string, std::vector<double>>;

constexpr int starts = 21;

/// What one program told of its starts.
struct Told {
  Figures figures;
  std::string width, height;  ///< its window's, in pixels
};

double milliseconds_since(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// Runs a program and notes what it writes: "STATE cpu_ms=N mémoire_kio=N" and "fenêtre WIDTH HEIGHT".
bool run(const std::vector<std::string> &words, Told &told) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return false;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, ends[0]);
  std::vector<char *> argv;
  argv.reserve(words.size() + 1);
  for (const std::string &word : words) argv.push_back(const_cast<char *>(word.c_str()));
  argv.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  const bool started = posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ) == 0;
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  FILE *lines = fdopen(ends[0], "r");
  std::array<char, 256> line{}, state{}, width{}, height{};
  double cpu = 0, memory = 0;
  while (started && std::fgets(line.data(), line.size(), lines) != nullptr) {
    const double wall = milliseconds_since(start);
    if (std::sscanf(line.data(), "fenêtre %63s %63s", width.data(), height.data()) == 2) {
      told.width = width.data();
      told.height = height.data();
    }
    if (std::sscanf(line.data(), "%63s cpu_ms=%lf mémoire_kio=%lf", state.data(), &cpu, &memory) != 3)
      continue;
    const std::string name = state.data();
    told.figures[name + " cpu"].push_back(cpu);
    told.figures[name + " mur"].push_back(wall);
    told.figures[name + " mémoire"].push_back(memory / 1024);
  }
  std::fclose(lines);
  int status = 1;
  if (started) waitpid(child, &status, 0);
  return status == 0;
}

double median(std::vector<double> values) {
  if (values.empty()) return 0;
  std::ranges::sort(values);
  return values[values.size() / 2];
}

/// Another version's settings: the first run sets its folders without asking the player anything.
void write_settings(const fs::path &file) {
  std::ofstream(file) << "[HKEY_CURRENT_USER\\Software\\Mirabonde\\Ardane]\n"
                         "\"version\"=\"une autre\"\n"
                         "\"langue\"=\"1\"\n";
}

void print_row(const char *what, double empty, double ardane) {
  std::printf("| %-44s | %8.1f | %8.1f | %5.2f |\n", what, empty, ardane, ardane / empty);
}

}  // namespace

int main(int argc, char **argv) {
  if (argc < 3)
    return std::fprintf(stderr, "desktop_start EMPTY_WINDOW ARDANE [--echelle N] [OPTION OF ARDANE...]\n"), 2;
  const fs::path program = fs::canonical(argv[2]);
  const ardane::ScratchFolder scratch(program.parent_path());
  const ardane::DesktopPlaces places = scratch.places();
  write_settings(places.registre);
  std::vector<std::string> options(argv + 3, argv + argc);
  if (options.size() > 1 && options.front() == "--echelle") {
    std::ofstream(scratch.path() / "fenetre.ini") << "[fenetre]\nechelle=" << options[1] << '\n';
    options.erase(options.begin(), options.begin() + 2);
  }
  // A start that finds no cards asks before it makes them.
  std::ofstream(scratch.path() / "ARDANE.INF") << ' ';
  std::vector<std::string> start{program.string(),         "--programme",      places.programme, "--registre",
                                 places.registre.string(), "--pret-et-quitter"};
  start.insert(start.end(), options.begin(), options.end());
  Told first, empty, ardane;
  if (!run(start, first)) return 1;  // the first run settles the folders
  const std::vector<std::string> floor{fs::canonical(argv[1]).string(), first.width, first.height};
  for (int i = 0; i < starts; ++i)
    if (!run(floor, empty) || !run(start, ardane)) return 1;

  const auto of = [](Told &told, const char *figure) { return median(told.figures[figure]); };
  std::printf("Median of %d starts, %s x %s    | empty | ardane | ratio\n", starts, first.width.c_str(),
              first.height.c_str());
  print_row("Ready, CPU ms", of(empty, "prêt cpu"), of(ardane, "prêt cpu"));
  print_row("Ready, wall ms", of(empty, "prêt mur"), of(ardane, "prêt mur"));
  print_row("Ready, resident MiB", of(empty, "prêt mémoire"), of(ardane, "prêt mémoire"));
  print_row("Every picture decoded as well, CPU ms", of(empty, "prêt cpu"), of(ardane, "chargé cpu"));
  print_row("Every picture decoded as well, resident MiB", of(empty, "prêt mémoire"),
            of(ardane, "chargé mémoire"));
  return 0;
}
