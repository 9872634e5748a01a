#include "platform/fatal_error.h"

#include <string_view>

namespace ardane {
namespace {

std::string nom_de_fichier(std::string_view chemin) {
  const auto barre = chemin.find_last_of("/\\");
  return std::string(barre == std::string_view::npos ? chemin : chemin.substr(barre + 1));
}

}  // namespace

ErreurFatale::ErreurFatale(const std::string &cause, Lieu lieu)
    : std::runtime_error(cause + " (" + nom_de_fichier(lieu.fichier) + ", ligne " +
                         std::to_string(lieu.ligne) + ")") {}

void signaler_indice(long indice, long premier, long dernier, Lieu lieu) {
  throw ErreurFatale("Indice " + std::to_string(indice) + " hors des bornes " + std::to_string(premier) +
                         " à " + std::to_string(dernier),
                     lieu);
}

}  // namespace ardane
