# One way to declare an area, so that the same include rules hold everywhere: an area's headers are
# visible only to the targets that link it.

add_library(perchly_options INTERFACE)
target_compile_options(perchly_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    # Optimised builds report it for each QPointer.
    $<$<CONFIG:Debug>:-Wnull-dereference>
    # With unity builds, GCC takes joined sources for headers.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wno-subobject-linkage>
    $<$<BOOL:${PERCHLY_WERROR}>:-Werror>)
target_compile_definitions(perchly_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS)

if(PERCHLY_SANITIZE)
    string(REPLACE ";" "," sanitizers "${PERCHLY_SANITIZE}")
    add_compile_options(-fsanitize=${sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${sanitizers})
    if(PERCHLY_SANITIZE STREQUAL "thread")
        add_compile_options(-Wno-tsan) # Qt's headers use fences
    endif()
endif()

# perchly_headers(<target> <scope> <headers> <sources>)
# Puts the headers on the include path of targets that link this one. The target
# all_verify_interface_header_sets compiles a header alone unless a source includes it first.
function(perchly_headers target scope headers sources)
    set(bare ${headers})
    list(TRANSFORM sources REPLACE "\\.cpp$" ".h")
    list(REMOVE_ITEM bare ${sources} "")
    target_sources(${target} ${scope}
        FILE_SET HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES ${headers}
        FILE_SET bare_headers TYPE HEADERS BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES ${bare})
    set_target_properties(${target} PROPERTIES
        VERIFY_INTERFACE_HEADER_SETS ON INTERFACE_HEADER_SETS_TO_VERIFY bare_headers)
endfunction()

# perchly_area(<name> [MOC] HEADERS … [SOURCES …] [PUBLIC …] [PRIVATE …])
# A static library perchly_<name> whose headers are included by file name alone. MOC runs Qt's
# meta-object compiler on it.
function(perchly_area name)
    cmake_parse_arguments(PARSE_ARGV 1 area "MOC" "" "HEADERS;SOURCES;PUBLIC;PRIVATE")
    if(area_SOURCES)
        add_library(perchly_${name} STATIC ${area_SOURCES} ${area_HEADERS})
        set_target_properties(perchly_${name} PROPERTIES AUTOMOC ${area_MOC})
        set(scope PUBLIC)
    else()
        add_library(perchly_${name} INTERFACE)
        set(scope INTERFACE)
    endif()
    perchly_headers(perchly_${name} ${scope} "${area_HEADERS}" "${area_SOURCES}")
    target_link_libraries(perchly_${name} ${scope} ${area_PUBLIC})
    if(area_SOURCES)
        target_link_libraries(perchly_${name} PRIVATE perchly_options ${area_PRIVATE})
    endif()
endfunction()

# perchly_wayland_protocols(<target> <name>…)
# A static library of the C code for Protocols/<name>.xml, with the header <name>-client.h.
function(perchly_wayland_protocols target)
    pkg_check_modules(PERCHLY_WAYLAND REQUIRED IMPORTED_TARGET wayland-client)
    pkg_get_variable(PERCHLY_WAYLAND_SCANNER wayland-scanner wayland_scanner)
    foreach(name IN LISTS ARGN)
        set(description ${CMAKE_CURRENT_SOURCE_DIR}/Protocols/${name}.xml)
        set(header ${CMAKE_CURRENT_BINARY_DIR}/${name}-client.h)
        set(code ${CMAKE_CURRENT_BINARY_DIR}/${name}.c)
        add_custom_command(OUTPUT ${header} ${code}
            COMMAND ${PERCHLY_WAYLAND_SCANNER} client-header ${description} ${header}
            COMMAND ${PERCHLY_WAYLAND_SCANNER} private-code ${description} ${code}
            DEPENDS ${description})
        list(APPEND generated ${header} ${code})
    endforeach()
    add_library(${target} STATIC ${generated})
    set_target_properties(${target} PROPERTIES AUTOMOC OFF)
    target_include_directories(${target} SYSTEM PUBLIC ${CMAKE_CURRENT_BINARY_DIR})
    target_link_libraries(${target} PUBLIC PkgConfig::PERCHLY_WAYLAND)
endfunction()

# perchly_companion(<name> [MOC] SOURCES … LIBRARIES …)
# The companion perchly-<name>, in the program's folder, where it looks for companions first.
function(perchly_companion name)
    cmake_parse_arguments(PARSE_ARGV 1 companion "MOC" "" "SOURCES;LIBRARIES")
    add_executable(perchly-${name} ${companion_SOURCES})
    target_link_libraries(perchly-${name} PRIVATE perchly_options ${companion_LIBRARIES})
    # They read hostile input; this makes the addresses of library functions read-only.
    target_link_options(perchly-${name} PRIVATE -Wl,-z,now)
    add_dependencies(perchly perchly-${name})
    set_target_properties(perchly-${name} PROPERTIES
        AUTOMOC ${companion_MOC}
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/Sources/Perchly/Shell)
endfunction()

# perchly_test(<name> SOURCES … [LIBRARIES …] [LABELS …])
# A Qt Test executable run by CTest without a display.
function(perchly_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "" "SOURCES;LIBRARIES;LABELS")
    add_executable(${name} ${test_SOURCES})
    target_link_libraries(${name} PRIVATE perchly_options Qt6::Test ${test_LIBRARIES})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen" LABELS "unit;${test_LABELS}" TIMEOUT 120)
endfunction()

# perchly_fuzz(<name> [SOURCES …] [LIBRARIES …])
# A libFuzzer executable of <name>.cpp, built by the target "fuzz". SOURCES are paths in Sources: single
# files of libraries that take long to build. Their folders are on the include path.
function(perchly_fuzz name)
    cmake_parse_arguments(PARSE_ARGV 1 fuzz "" "" "SOURCES;LIBRARIES")
    list(TRANSFORM fuzz_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/Sources/)
    add_executable(${name} ${name}.cpp Fuzz.cpp Fuzz.h ${fuzz_SOURCES})
    foreach(source IN LISTS fuzz_SOURCES)
        cmake_path(GET source PARENT_PATH folder)
        target_include_directories(${name} PRIVATE ${folder})
    endforeach()
    target_link_libraries(${name} PRIVATE perchly_options Qt6::Core ${fuzz_LIBRARIES})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    add_dependencies(fuzz ${name})
endfunction()

# perchly_qml_module(<name> URI … [SOURCES …] [HEADERS …] [QML_FILES …] [IMPORTS …]
# [PUBLIC …] [PRIVATE …])
# A static QML module perchly_<name>, which the program and the tests link with its plugin. HEADERS
# are the public ones among the sources.
function(perchly_qml_module name)
    cmake_parse_arguments(PARSE_ARGV 1 module "" "URI"
        "SOURCES;HEADERS;QML_FILES;IMPORTS;PUBLIC;PRIVATE")
    set(CMAKE_AUTOMOC ON)
    qt_add_qml_module(perchly_${name}
        URI ${module_URI}
        VERSION 1.0
        STATIC
        RESOURCE_PREFIX /qt/qml
        SOURCES ${module_SOURCES} ${module_HEADERS}
        QML_FILES ${module_QML_FILES}
        IMPORTS ${module_IMPORTS})
    perchly_headers(perchly_${name} PUBLIC "${module_HEADERS}" "${module_SOURCES}")
    target_link_libraries(perchly_${name}
        PUBLIC ${module_PUBLIC} PRIVATE perchly_options ${module_PRIVATE})
    perchly_join_generated(perchly_${name})
endfunction()

# perchly_join_generated(<target>)
# Joins the many small sources that Qt generates for a QML module into a few files, which compile in
# a tenth of the time. They are included as system headers, so that our warnings are off in them.
function(perchly_join_generated target)
    get_target_property(generated ${target} SOURCES)
    list(FILTER generated INCLUDE REGEX "qmlcache|qmltyperegistrations")
    list(LENGTH generated left)
    set(number 0)
    while(left GREATER 0)
        list(SUBLIST generated 0 16 batch)
        list(REMOVE_ITEM generated ${batch})
        list(LENGTH generated left)
        set(text "")
        foreach(source IN LISTS batch)
            cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
            cmake_path(GET source PARENT_PATH folder)
            cmake_path(GET source FILENAME file)
            target_include_directories(${target} SYSTEM PRIVATE ${folder})
            string(APPEND text "#include <${file}>\n")
        endforeach()
        set(joined ${CMAKE_CURRENT_BINARY_DIR}/${target}_generated_${number}.cpp)
        file(CONFIGURE OUTPUT ${joined} CONTENT "${text}" @ONLY)
        set_source_files_properties(${batch} PROPERTIES HEADER_FILE_ONLY ON)
        set_source_files_properties(${joined} PROPERTIES
            OBJECT_DEPENDS "${batch}" SKIP_AUTOGEN ON SKIP_UNITY_BUILD_INCLUSION ON)
        target_sources(${target} PRIVATE ${joined})
        math(EXPR number "${number} + 1")
    endwhile()
endfunction()
