# Writes OUTPUT, a C++ source that holds the text files TEXTES and IMAGES.
# cmake -DTEXTES=... -DIMAGES=... -DOUTPUT=... -P embed.cmake
file(READ "${TEXTES}" textes)
file(READ "${IMAGES}" images)
file(WRITE "${OUTPUT}"
"#include \"core/embedded.h\"

namespace ardane {

std::string_view textes_incorporés() {
  return R\"ardane(${textes})ardane\";
}

std::string_view images_incorporées() {
  return R\"ardane(${images})ardane\";
}

}  // namespace ardane
")
