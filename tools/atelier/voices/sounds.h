// The six sounds of the game, made by synthesis.
//
// Each is a little gesture of its own, so that a player tells them apart with eyes closed: a rising call on
// a marimba (right), a low wooden knock (wrong), a rising peal of bells (won), a phrase that walks down
// (lost), a short tick (picked), a sheet of paper turned over (card).
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace atelier {

inline constexpr int fréquence_échantillons = 44100;  // samples a second, mono

/// No sample is greater: -3 dB below full scale, 32767 * 10^(-3/20) to the nearest. The sound that needs most
/// to be as loud as the others reaches it.
inline constexpr int crête_sons = 23197;

struct Son {
  std::string fichier;  // the file's bare name
  std::vector<std::int16_t> échantillons;
};

/// The six sounds, all equally loud. The same on every machine, to the last bit.
std::vector<Son> composer_sons();

/// Writes the six sounds to the folder `dossier`, which must exist, as 16-bit PCM files. Throws
/// std::runtime_error when a file cannot be written.
void écrire_sons(const std::filesystem::path &dossier);

}  // namespace atelier
