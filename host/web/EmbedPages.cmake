# Writes the pages as C++: cmake -DFOLDER=<pages> -DOUTPUT=<source> -P EmbedPages.cmake
file(GLOB FILES ${FOLDER}/*.html ${FOLDER}/*.css ${FOLDER}/*.js ${FOLDER}/*.svg ${FOLDER}/*.png
  ${FOLDER}/*.ico ${FOLDER}/*.webmanifest)
set(TYPE_html "text/html; charset=utf-8")
set(TYPE_css "text/css; charset=utf-8")
set(TYPE_js "text/javascript; charset=utf-8")
set(TYPE_svg "image/svg+xml")
set(TYPE_png "image/png")
set(TYPE_ico "image/x-icon")
set(TYPE_webmanifest "application/manifest+json")

set(CONTENTS "")
set(ENTRIES "")
set(NUMBER 0)
foreach(FILE ${FILES})
  cmake_path(GET FILE FILENAME NAME)
  cmake_path(GET FILE EXTENSION LAST_ONLY EXTENSION)
  string(SUBSTRING ${EXTENSION} 1 -1 EXTENSION)
  set(PATH "/${NAME}")
  if(EXTENSION STREQUAL "html")
    string(REGEX REPLACE "\\.html$" "" PATH ${PATH})
    string(REGEX REPLACE "^/index$" "/" PATH ${PATH})
  endif()
  file(SHA256 ${FILE} SUM)
  string(SUBSTRING ${SUM} 0 16 TAG)
  file(READ ${FILE} BYTES HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," BYTES "${BYTES}")
  string(APPEND CONTENTS "constexpr unsigned char CONTENT_${NUMBER}[] = {${BYTES}0};\n")
  string(APPEND ENTRIES "    MakeFile(\"${PATH}\", \"${TYPE_${EXTENSION}}\", CONTENT_${NUMBER}, \"\\\"${TAG}\\\"\"),\n")
  math(EXPR NUMBER "${NUMBER} + 1")
endforeach()

file(WRITE ${OUTPUT} "#include \"web/EmbeddedFile.h\"

#include <array>

namespace host {

namespace {

${CONTENTS}
/// A zero stands behind the content.
template <std::size_t Size>
EmbeddedFile MakeFile(std::string_view path, std::string_view type,
                      const unsigned char (&content)[Size], std::string_view tag) {
  return {path, type, {reinterpret_cast<const char*>(content), Size - 1}, tag};
}

}  // namespace

std::span<const EmbeddedFile> GetEmbeddedFiles() {
  static const std::array<EmbeddedFile, ${NUMBER}> files = {
${ENTRIES}  };
  return files;
}

}  // namespace host
")
