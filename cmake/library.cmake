# The shared library as it installs: libquillo with its public headers, CMake package and pkg-config file.
#
# Public is what the roots below include, whole. A symbol leaves the library when one of these headers declares its class
# or function, so that headers and exports cannot fall apart.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(QUILLO_PUBLIC
    framework/report_factory.h framework/run_frame.h framework/report_mixins.h framework/dialog_form.h
    framework/drill_tags.h framework/engine/engine.h framework/values/errors.h host/session/report_job.h
    output/output_error.h output/output_file.h output/page_frame.h output/queued_sink.h output/font_measure.h
    output/pdf/pdf_sink.h output/png/png_sink.h output/json/json_sink.h library/quillo.h)

# The headers and all that they include of this tree.
function(quillo_header_closure OUT)
  set(headers ${ARGN})
  set(open ${ARGN})
  while(open)
    list(POP_FRONT open header)
    file(STRINGS "${CMAKE_SOURCE_DIR}/${header}" includes REGEX "^#include \"")
    foreach(include IN LISTS includes)
      string(REGEX REPLACE ".*\"(.*)\".*" "\\1" include "${include}")
      if(NOT include IN_LIST headers)
        list(APPEND headers "${include}")
        list(APPEND open "${include}")
      endif()
    endforeach()
  endwhile()
  set(${OUT} "${headers}" PARENT_SCOPE)
endfunction()

# What the linker is to export for a header: its classes with their type information, and its functions.
function(quillo_exports_of HEADER OUT)
  set(exports "")
  file(STRINGS "${CMAKE_SOURCE_DIR}/${HEADER}" lines REGEX "^[a-zA-Z}]")
  foreach(line IN LISTS lines)
    if(line MATCHES "^namespace (quillo.*) {")
      set(outer "${CMAKE_MATCH_1}::")
      set(space "${outer}")
    elseif(line MATCHES "^namespace (.*) {")
      set(space "${outer}${CMAKE_MATCH_1}::")
    elseif(line MATCHES "^}($| )")
      set(space "${outer}")
    elseif(line MATCHES "^(class|struct) ([A-Za-z_0-9]+)( final)?( :.*)? ?{")
      # A linker script cannot hold the blank in "vtable for X", so that a question mark stands for it.
      string(APPEND exports "      ${space}${CMAKE_MATCH_2}::*;\n      v*?for?${space}${CMAKE_MATCH_2};\n"
             "      typeinfo*for?${space}${CMAKE_MATCH_2};\n      *thunk?to?${space}${CMAKE_MATCH_2}::*;\n")
    elseif(line MATCHES "^(inline|constexpr|template)")
      # Needs no symbol of the library's.
    elseif(line MATCHES "^[^(=/]*[ &*]([A-Za-z_0-9]+)\\(")
      string(APPEND exports "      ${space}${CMAKE_MATCH_1}*;\n")
    endif()
  endforeach()
  set(${OUT} "${exports}" PARENT_SCOPE)
endfunction()

quillo_header_closure(headers ${QUILLO_PUBLIC})
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${headers})
set(exports "")
foreach(header IN LISTS headers)
  if(NOT header STREQUAL "library/quillo.h")
    quillo_exports_of("${header}" part)
    string(APPEND exports "${part}")
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${header}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/quillo/${folder}")
  endif()
endforeach()
install(FILES library/quillo.h DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/quillo")
set(map "${CMAKE_BINARY_DIR}/libquillo.map")
file(CONFIGURE OUTPUT "${map}" @ONLY CONTENT
"QUILLO_@PROJECT_VERSION_MAJOR@ {
  global:
    quillo_*;
    extern \"C++\" {
@exports@    };
  local: *;
};
")

add_library(quillo_shared SHARED)
foreach(layer IN ITEMS framework dialogs reports host output library)
  target_sources(quillo_shared PRIVATE $<TARGET_OBJECTS:quillo_${layer}>)
endforeach()
set_target_properties(quillo_shared PROPERTIES LINKER_LANGUAGE CXX OUTPUT_NAME quillo EXPORT_NAME quillo
                      VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINK_DEPENDS "${map}")
target_link_options(quillo_shared PRIVATE "-Wl,--version-script=${map}")
target_link_libraries(quillo_shared PRIVATE quillo_options PkgConfig::SQLITE PkgConfig::ICU PkgConfig::PUGIXML
                      PkgConfig::TYPE ${DEFLATE})
# The public headers show SQLite's, which a host therefore finds and links too.
target_link_libraries(quillo_shared INTERFACE $<INSTALL_INTERFACE:SQLite::SQLite3>)
target_compile_features(quillo_shared INTERFACE cxx_std_20)

set(package "${CMAKE_INSTALL_LIBDIR}/cmake/Quillo")
install(TARGETS quillo_shared EXPORT quillo INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/quillo")
install(EXPORT quillo NAMESPACE Quillo:: FILE QuilloTargets.cmake DESTINATION "${package}")
configure_package_config_file(cmake/QuilloConfig.cmake.in "${CMAKE_BINARY_DIR}/QuilloConfig.cmake"
                              INSTALL_DESTINATION "${package}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/QuilloConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/QuilloConfig.cmake" "${CMAKE_BINARY_DIR}/QuilloConfigVersion.cmake"
        DESTINATION "${package}")

# Told from its own place, since the prefix is known only when it is installed.
string(REGEX REPLACE "[^/]+" ".." prefix "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
configure_file(cmake/quillo.pc.in "${CMAKE_BINARY_DIR}/quillo.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/quillo.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
