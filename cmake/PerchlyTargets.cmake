# One way to declare an area, so that the rules of who may include whom hold everywhere:
# an area's headers are visible only to the targets that link it.

set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
if(PERCHLY_CHECK_HEADERS)
    set(CMAKE_VERIFY_INTERFACE_HEADER_SETS ON)
endif()

add_library(perchly_options INTERFACE)
target_compile_options(perchly_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Wold-style-cast
    # An optimising build reports it for every guarded pointer of the toolkit.
    $<$<CONFIG:Debug>:-Wnull-dereference>
    $<$<BOOL:${PERCHLY_WERROR}>:-Werror>)
target_compile_definitions(perchly_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS)

if(PERCHLY_SANITIZE)
    string(REPLACE ";" "," sanitizers "${PERCHLY_SANITIZE}")
    add_compile_options(-fsanitize=${sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${sanitizers})
endif()

# perchly_area(<name> HEADERS … [SOURCES …] [PUBLIC …] [PRIVATE …])
# A static library perchly_<name> whose headers are included by their plain file names.
function(perchly_area name)
    cmake_parse_arguments(PARSE_ARGV 1 area "" "" "HEADERS;SOURCES;PUBLIC;PRIVATE")
    if(area_SOURCES)
        add_library(perchly_${name} STATIC ${area_SOURCES} ${area_HEADERS})
        set(scope PUBLIC)
    else()
        add_library(perchly_${name} INTERFACE)
        set(scope INTERFACE)
    endif()
    target_sources(perchly_${name} ${scope} FILE_SET HEADERS
        BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES ${area_HEADERS})
    target_link_libraries(perchly_${name} ${scope} ${area_PUBLIC})
    if(area_SOURCES)
        target_link_libraries(perchly_${name} PRIVATE perchly_options ${area_PRIVATE})
    endif()
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

# perchly_qml_module(<name> URI … [SOURCES …] [HEADERS …] [QML_FILES …] [IMPORTS …]
#                    [PUBLIC …] [PRIVATE …])
# A static QML module perchly_<name>, which the program and the tests link with its plugin. HEADERS
# are the public ones among the sources.
function(perchly_qml_module name)
    cmake_parse_arguments(PARSE_ARGV 1 module "" "URI"
        "SOURCES;HEADERS;QML_FILES;IMPORTS;PUBLIC;PRIVATE")
    qt_add_qml_module(perchly_${name}
        URI ${module_URI}
        VERSION 1.0
        STATIC
        RESOURCE_PREFIX /qt/qml
        SOURCES ${module_SOURCES} ${module_HEADERS}
        QML_FILES ${module_QML_FILES}
        IMPORTS ${module_IMPORTS})
    target_sources(perchly_${name} PUBLIC FILE_SET HEADERS
        BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} FILES ${module_HEADERS})
    target_link_libraries(perchly_${name}
        PUBLIC ${module_PUBLIC} PRIVATE perchly_options ${module_PRIVATE})
    # What Qt generates is held to Qt's rules.
    get_target_property(sources perchly_${name} SOURCES)
    list(FILTER sources INCLUDE REGEX "qmlcache|qmltyperegistrations")
    set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w)
    if(TARGET perchly_${name}_qmlcache)
        target_compile_options(perchly_${name}_qmlcache PRIVATE -w)
    endif()
endfunction()
