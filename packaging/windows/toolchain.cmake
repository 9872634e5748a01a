# Programs for 64-bit Windows, by Debian's MinGW-w64 with POSIX threads.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Qt for Windows is where qt.sh puts it, its tools are this machine's own.
if(DEFINED ENV{ARDANE_WINDOWS_CACHE})
  set(cache $ENV{ARDANE_WINDOWS_CACHE})
elseif(DEFINED ENV{XDG_CACHE_HOME})
  set(cache $ENV{XDG_CACHE_HOME}/ardane-windows)
else()
  set(cache $ENV{HOME}/.cache/ardane-windows)
endif()
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake)

# Libraries and headers are the target's alone, programs and CMake's packages without code also the machine's own.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${cache}/qt)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# What Debian has for no target, and for all.
set(nlohmann_json_DIR ${CMAKE_CURRENT_LIST_DIR}/cmake)
set(GTest_DIR ${CMAKE_CURRENT_LIST_DIR}/cmake)
