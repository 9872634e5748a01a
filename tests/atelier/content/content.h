// What the tests read out of resources/, in the way in which the game reads it.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "drawing/image.h"
#include "numbers/grid.h"

namespace content {

inline constexpr int map_width = 602;
inline constexpr int map_height = 662;
inline constexpr int provinces = 110;
inline constexpr int regions = 20;
inline constexpr int towns = 330;

std::filesystem::path resources();

/// The string table.
const std::map<int, std::string> &texts();
const std::string &text(int number);

/// Fields of a row between "#", and a field as a number by its leading digits.
std::vector<std::string> fields(const std::string &row);
int leading_number(const std::string &field);

/// A record of "ardane.pts".
struct Record {
  int map = 0;
  int x = 0;
  int code = 0;
};
const std::vector<Record> &records();

/// The province of every pixel by the game's look-up: the code of the last run of the row that begins left of
/// it.
const atelier::Grid<int> &codes();

struct Layer {
  atelier::Cell corner;
  atelier::Image image;
};
/// Layers of the stock, `scale` 1 or 2; corners in pixels of that scale.
Layer province_layer(int province, int scale, bool filled);
Layer region_layer(int region, int scale);

/// The 2x provinces, put together from their 2x layers; 0 elsewhere.
const atelier::Grid<int> &fine_codes();

int region_of(int province);

struct Town {
  std::string name;
  int province = 0;
  /// Centre of the dot.
  int x = 0;
  int y = 0;
};
/// By table index 1..330; element 0 is empty.
const std::vector<Town> &all_towns();

}  // namespace content
