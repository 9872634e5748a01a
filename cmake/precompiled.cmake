# Headers that many files include, parsed once for each set of compile options. Every file still includes what it
# uses: -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON builds without these.
set(standard_headers
    <algorithm> <array> <charconv> <chrono> <cmath> <cstdint> <cstdio> <deque> <filesystem> <fstream> <functional>
    <map> <memory> <optional> <random> <span> <sstream> <stdexcept> <string> <string_view> <utility> <vector>)
set(qt_headers
    <QAbstractButton> <QAction> <QApplication> <QCheckBox> <QDir> <QEventLoop> <QFile> <QFocusEvent> <QFrame>
    <QGroupBox> <QKeyEvent> <QLabel> <QLineEdit> <QListWidget> <QMenu> <QMenuBar> <QMessageBox> <QMouseEvent>
    <QPainter> <QPlainTextEdit> <QPointer> <QPushButton> <QRadioButton> <QScreen> <QScrollBar> <QSignalBlocker>
    <QTemporaryDir> <QTemporaryFile> <QTextBrowser> <QTimer> <QToolTip> <QUrl> <QWidget> <QWindow>)
set(json_headers <nlohmann/json.hpp>)
set(gtest_headers <gmock/gmock.h> <gtest/gtest.h>)

# A target for others to reuse the precompiled headers of, when they have its compile options.
function(ardane_precompiled name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;LIBRARIES")
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()
