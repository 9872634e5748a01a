#include "front/qt/sound_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <string_view>

namespace ardane {
namespace {

constexpr std::uintmax_t largest_file = 16'000'000;
constexpr std::size_t format_size = 16;
constexpr int most_chunks = 100;
constexpr unsigned uncompressed = 1;

/// Bytes of the file from where it stands.
template <std::size_t N>
class Bytes {
 public:
  explicit Bytes(std::istream &file) { complete_ = static_cast<bool>(file.read(bytes_.data(), N)); }
  bool complete() const { return complete_; }
  std::string_view text(std::size_t at) const { return {bytes_.data() + at, 4}; }
  /// Of so many bytes, the lowest first.
  unsigned number(std::size_t at, std::size_t size) const {
    unsigned number = 0;
    for (std::size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes_.at(at + i));
    return number;
  }

 private:
  std::array<char, N> bytes_{};
  bool complete_;
};

bool is_a_sounds(const Bytes<format_size> &format) {
  const unsigned channels = format.number(2, 2), rate = format.number(4, 4), bits = format.number(14, 2);
  constexpr std::array widths{8U, 16U, 24U, 32U};
  return format.complete() && format.number(0, 2) == uncompressed && channels >= 1 && channels <= 2 &&
         rate >= 8'000 && rate <= 192'000 && std::ranges::find(widths, bits) != widths.end() &&
         format.number(12, 2) == channels * bits / 8;
}

}  // namespace

bool is_playable(const std::filesystem::path &file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return false;
  if (std::filesystem::file_size(file, error) > largest_file || error) return false;
  std::ifstream in(file, std::ios::binary);
  const Bytes<12> head(in);
  if (!head.complete() || head.text(0) != "RIFF" || head.text(8) != "WAVE") return false;
  bool known = false;
  for (int chunks = 0; chunks < most_chunks; ++chunks) {
    const Bytes<8> chunk(in);
    if (!chunk.complete()) return false;
    if (chunk.text(0) == "data") return known;
    const unsigned length = chunk.number(4, 4);
    const std::streamoff next = std::streamoff(in.tellg()) + length + (length & 1U);  // to an even place
    if (chunk.text(0) == "fmt " && length >= format_size) {
      known = is_a_sounds(Bytes<format_size>(in));
      if (!known) return false;
    }
    in.seekg(next);
  }
  return false;
}

}  // namespace ardane
