// Starts the program and an empty Qt window in turn, and prints what each start cost: the rows of the table
// of speeds that speak of a start.
//
//     desktop_start EMPTY_WINDOW ARDANE [TIMES]
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

double milliseconds_since(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// Runs a program and notes each "STATE cpu_ms=N mémoire_kio=N" that it writes.
bool run(const std::vector<std::string> &words, Figures &figures) {
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
  std::array<char, 256> line{}, state{};
  double cpu = 0, memory = 0;
  while (started && std::fgets(line.data(), line.size(), lines) != nullptr) {
    const double wall = milliseconds_since(start);
    if (std::sscanf(line.data(), "%63s cpu_ms=%lf mémoire_kio=%lf", state.data(), &cpu, &memory) != 3)
      continue;
    const std::string name = state.data();
    figures[name + " cpu"].push_back(cpu);
    figures[name + " mur"].push_back(wall);
    figures[name + " mémoire"].push_back(memory / 1024);
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
  if (argc < 3) return std::fprintf(stderr, "desktop_start EMPTY_WINDOW ARDANE [TIMES]\n"), 2;
  const int times = argc > 3 ? std::atoi(argv[3]) : 21;
  const fs::path program = fs::canonical(argv[2]);
  const ardane::ScratchFolder scratch(program.parent_path());
  const ardane::DesktopPlaces places = scratch.places();
  write_settings(places.registre);
  // A start that finds no cards asks before it makes them.
  std::ofstream(scratch.path() / "ARDANE.INF") << ' ';
  const std::vector<std::string> start{program.string(),         "--programme",
                                       places.programme,         "--registre",
                                       places.registre.string(), "--pret-et-quitter"};
  Figures empty, ardane, ignored;
  run(start, ignored);  // the first run settles the folders
  for (int i = 0; i < times; ++i)
    if (!run({fs::canonical(argv[1]).string()}, empty) || !run(start, ardane)) return 1;

  std::printf("Median of %d starts          | empty | ardane | ratio\n", times);
  print_row("Ready, CPU ms", median(empty["prêt cpu"]), median(ardane["prêt cpu"]));
  print_row("Ready, wall ms", median(empty["prêt mur"]), median(ardane["prêt mur"]));
  print_row("Ready, resident MiB", median(empty["prêt mémoire"]), median(ardane["prêt mémoire"]));
  print_row("Every picture decoded as well, CPU ms", median(empty["prêt cpu"]), median(ardane["chargé cpu"]));
  print_row("Every picture decoded as well, resident MiB", median(empty["prêt mémoire"]),
            median(ardane["chargé mémoire"]));
  return 0;
}
