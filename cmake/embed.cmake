# Writes OUTPUT, a C++ source that holds text files of the folder RESOURCES and the number of the release.
# cmake -DRESOURCES=... -DVERSION=... -DOUTPUT=... -P embed.cmake
set(source "#include \"core/embedded.h\"\n\nnamespace ardane {\n")
function(embed name function)
  file(READ "${RESOURCES}/${name}" text)
  set(source "${source}
std::string_view ${function}() {
  return R\"ardane(${text})ardane\";
}
" PARENT_SCOPE)
endfunction()
embed(textes.txt textes_incorporés)
embed(images.txt images_incorporées)
embed(blasons.txt blasons_incorporés)
embed(etendues.txt étendues_incorporées)
set(source "${source}
std::string_view version_incorporée() {
  return \"${VERSION}\";
}
")
file(WRITE "${OUTPUT}" "${source}\n}  // namespace ardane\n")
