// Writes the search index of the help: index_aide FOLDER, which is resources/aide.
#include <cstdio>
#include <exception>

#include "pages.h"
#include "platform/file_replacement.h"

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fprintf(stderr, "index_aide FOLDER\n");
    return 2;
  }
  try {
    const std::filesystem::path folder = argv[1];
    const auto trouble = ardane::remplacer_fichier(folder / ardane::index_file,
                                                   ardane::index_text(ardane::sections_of(folder)));
    if (!trouble) return 0;
    std::fprintf(stderr, "%s %.*s\n", ardane::index_file, static_cast<int>(trouble->size()), trouble->data());
  } catch (const std::exception &error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  return 1;
}
