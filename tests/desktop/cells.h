// What can be read in the tables of a window.
#pragma once

#include <stdexcept>
#include <string>

#include "front/qt/cell_sheet.h"

namespace ardane {

/// The widget that paints the cells of a window.
inline CellSheet &sheet_of(const QWidget &window) {
  for (QWidget *widget : window.findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
    if (auto *sheet = dynamic_cast<CellSheet *>(widget)) return *sheet;
  throw std::logic_error("A window without a sheet");
}

/// The text of the cell of that name as it is shown; empty where none is.
inline std::string read_cell(const QWidget &window, const std::string &name) {
  return sheet_of(window).text_in(name).toStdString();
}

}  // namespace ardane
