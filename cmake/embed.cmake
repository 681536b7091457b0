# Embedding of data files, so that the library needs no file beside it at run time.
#
#   quillo_embed(TARGET FUNCTION FILE)         std::string_view quillo::FUNCTION()
#   quillo_embed_folder(TARGET FUNCTION FILES) std::string_view quillo::FUNCTION(std::string_view stem), empty when unknown

# A raw string literal may hold some 16 KiB on some compilers, so that the text is cut into pieces.
function(quillo_literal FILE OUT)
  file(READ "${FILE}" hex HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
  set(${OUT} "${bytes}" PARENT_SCOPE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${FILE}")
endfunction()

function(quillo_embed TARGET FUNCTION FILE)
  get_filename_component(path "${FILE}" ABSOLUTE)
  quillo_literal("${path}" bytes)
  set(source "${CMAKE_BINARY_DIR}/embedded/${FUNCTION}.cpp")
  file(GENERATE OUTPUT "${source}" CONTENT
"#include <string_view>
namespace quillo {
std::string_view ${FUNCTION}();
std::string_view ${FUNCTION}() {
    static const unsigned char bytes[] = {${bytes}0};
    return {reinterpret_cast<const char*>(bytes), sizeof bytes - 1};
}
}
")
  target_sources(${TARGET} PRIVATE "${source}")
endfunction()

function(quillo_embed_folder TARGET FUNCTION)
  set(arrays "")
  set(cases "")
  set(index 0)
  foreach(file IN LISTS ARGN)
    get_filename_component(path "${file}" ABSOLUTE)
    get_filename_component(stem "${file}" NAME_WE)
    quillo_literal("${path}" bytes)
    string(APPEND arrays "const unsigned char file${index}[] = {${bytes}0};\n")
    string(APPEND cases "    if (stem == \"${stem}\") return {reinterpret_cast<const char*>(file${index}), sizeof file${index} - 1};\n")
    math(EXPR index "${index} + 1")
  endforeach()
  set(source "${CMAKE_BINARY_DIR}/embedded/${FUNCTION}.cpp")
  file(GENERATE OUTPUT "${source}" CONTENT
"#include <string_view>
namespace quillo {
namespace {
${arrays}}
std::string_view ${FUNCTION}(std::string_view stem);
std::string_view ${FUNCTION}(std::string_view stem) {
${cases}    return {};
}
}
")
  target_sources(${TARGET} PRIVATE "${source}")
endfunction()
