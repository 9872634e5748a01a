// Files that can be opened without waiting for anyone, as a pipe's other end.
#pragma once

#include <QFileInfo>
#include <QString>

namespace ardane {

inline bool is_plain_file(const QString &path) {
  return QFileInfo(path).isFile();
}

}  // namespace ardane
