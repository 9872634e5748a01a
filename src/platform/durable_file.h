// Making a file whose contents the disk has, not the system's memory alone, when the player is told so.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace ardane {

enum class Ecriture : std::uint8_t { faite, sans_fichier, incomplète };

/// What may stand at the name of the file to be made.
enum class Nom_de_fichier : std::uint8_t {
  libre,      ///< nothing, and no link either
  quelconque  ///< a file that is emptied first, or a link that is followed
};

/// Whether the disk is waited for until it has the bytes.
enum class Disque : std::uint8_t { attendu, non_attendu };

/// Makes a file with `octets` in it. `sans_fichier` if it could not be made, `incomplète` if the disk is full
/// or fails; the file then stays with what has been written.
Ecriture écrire_octets(const std::filesystem::path &fichier, std::string_view octets, Nom_de_fichier nom,
                       Disque disque);

/// Gives a file the name of another, in whose place it is then, and waits for the disk to know of it. False,
/// and both stay as they were, where the system refuses.
bool prendre_le_nom(const std::filesystem::path &fichier, const std::filesystem::path &nom);

/// Waits for the disk to know what files a folder has, and under which names. A folder that may not be read
/// and a file system that knows nothing of the kind are passed over.
void fixer_dossier(const std::filesystem::path &dossier);

}  // namespace ardane
