# Debian's headers of nlohmann/json are the same for every system. They lie among those of this one, which must not be
# seen.
if(TARGET nlohmann_json::nlohmann_json)
  return()
endif()
set(headers ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${headers})
file(CREATE_LINK /usr/include/nlohmann ${headers}/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${headers})
