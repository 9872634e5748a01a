#include "content.h"

#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "files/catalogue.h"
#include "files/data.h"
#include "files/image_file.h"

namespace content {
namespace {

std::string bytes_of(const std::filesystem::path &file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error(file.string() + ": cannot be read");
  return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<Record> read_records() {
  const std::string bytes = bytes_of(resources() / "ardane.pts");
  if (bytes.size() % 4 != 0) throw std::runtime_error("ardane.pts is cut off in a record");
  std::vector<Record> result;
  for (std::size_t i = 0; i < bytes.size(); i += 4) {
    const auto byte = [&bytes, i](std::size_t k) {
      return static_cast<int>(static_cast<unsigned char>(bytes[i + k]));
    };
    result.push_back({byte(0), static_cast<std::int16_t>(byte(1) | byte(2) << 8), byte(3)});
  }
  return result;
}

atelier::Grid<int> read_codes() {
  atelier::Grid<int> grid(map_width, map_height, 0);
  int y = -1;
  for (std::size_t i = 1; i < records().size(); ++i) {
    const Record &record = records()[i];
    if (record.x == 0 && record.code == 0) {
      ++y;
      continue;
    }
    for (int x = record.x + 1; x < map_width; ++x) grid.at(x, y) = record.code;
  }
  return grid;
}

atelier::Image picture(const std::string &file, int scale) {
  const auto images = resources() / "images";
  return scale == 1 ? atelier::lire_gif(images / file)
                    : atelier::lire_image(images / atelier::fichier_double_en_png(file));
}

atelier::Cell corner_of(int row, int scale) {
  const auto field = fields(text(row));
  return {leading_number(field.at(2)) * scale, leading_number(field.at(3)) * scale};
}

/// Where a layer shows its yellow the pixel is that province's. Under a line the nearest yellow decides: a
/// line is two pixels wide, one on either side of the border; only where lines meet it takes more than a
/// step.
atelier::Grid<int> read_fine_codes() {
  atelier::Grid<int> grid(2 * map_width, 2 * map_height, 0);
  atelier::Grid<int> lines(grid.width(), grid.height(), 0);
  for (int p = 1; p <= provinces; ++p) {
    const Layer layer = province_layer(p, 2, true);
    for (int y = 0; y < layer.image.height(); ++y)
      for (int x = 0; x < layer.image.width(); ++x) {
        const atelier::Pixel pixel = layer.image.at(x, y);
        if (pixel.a < 128) continue;
        ++lines.at(layer.corner.x + x, layer.corner.y + y);
        if (pixel.r > 0) grid.at(layer.corner.x + x, layer.corner.y + y) = p;
      }
  }
  for (int round = 0; round < 4; ++round) {
    const atelier::Grid<int> before = grid;
    for (std::size_t i = 0; i < grid.size(); ++i) {
      if (grid[i] != 0 || lines[i] < (round == 0 ? 1 : 2)) continue;
      const atelier::Cell c = grid.cell(i);
      for (std::size_t k = 0; k < atelier::side_neighbours && grid[i] == 0; ++k)
        grid[i] = before.near(c.x + atelier::neighbours[k].x, c.y + atelier::neighbours[k].y);
    }
  }
  return grid;
}

/// By province; element 0 is empty. Read once, since tests ask for every pixel.
std::vector<int> read_regions() {
  std::vector<int> result(1);
  for (int p = 1; p <= provinces; ++p) result.push_back(leading_number(fields(text(2000 + p)).at(4)));
  return result;
}

std::vector<Town> read_towns() {
  std::vector<Town> result(1);
  for (int i = 1; i <= provinces; ++i) {
    const auto field = fields(text(4000 + i));
    result.push_back({field.at(0), i, leading_number(field.at(1)), leading_number(field.at(2))});
  }
  for (int i = provinces + 1; i <= towns; ++i) {
    const auto field = fields(text(6990 + i));
    result.push_back(
        {field.at(0), leading_number(field.at(1)), leading_number(field.at(2)), leading_number(field.at(3))});
  }
  return result;
}

}  // namespace

std::filesystem::path resources() {
  return RESOURCES;
}

const std::map<int, std::string> &texts() {
  static const auto table = atelier::lire_textes(resources() / "textes.txt");
  return table;
}

const std::string &text(int number) {
  return texts().at(number);
}

std::vector<std::string> fields(const std::string &row) {
  std::vector<std::string> result(1);
  for (const char c : row) {
    if (c == '#')
      result.emplace_back();
    else
      result.back() += c;
  }
  return result;
}

int leading_number(const std::string &field) {
  int number = 0;
  for (const char c : field) {
    if (c < '0' || c > '9') break;
    number = number * 10 + (c - '0');
  }
  return number;
}

const std::vector<Record> &records() {
  static const auto all = read_records();
  return all;
}

const atelier::Grid<int> &codes() {
  static const auto grid = read_codes();
  return grid;
}

Layer province_layer(int province, int scale, bool filled) {
  return {corner_of(2000 + province, scale),
          picture(atelier::fichier_numéroté(filled ? "pays" : "inv", province, 3), scale)};
}

Layer region_layer(int region, int scale) {
  return {corner_of(5000 + region, scale), picture(atelier::fichier_numéroté("region", region, 2), scale)};
}

const atelier::Grid<int> &fine_codes() {
  static const auto grid = read_fine_codes();
  return grid;
}

int region_of(int province) {
  static const auto table = read_regions();
  return table.at(static_cast<std::size_t>(province));
}

const std::vector<Town> &all_towns() {
  static const auto all = read_towns();
  return all;
}

}  // namespace content
