# corvane_add_library(name DEPENDS lib...)
# One static library per subsystem folder, built from the folder's sources.
# A folder without sources yet is an interface target with the same links,
# so that the link graph is in place before the code arrives.
function(corvane_add_library name)
    cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS
        "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h" "${CMAKE_CURRENT_SOURCE_DIR}/*.qrc")
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    set(has_cpp FALSE)
    foreach(s IN LISTS sources)
        if(s MATCHES "\\.cpp$")
            set(has_cpp TRUE)
        endif()
    endforeach()
    if(has_cpp)
        add_library(${name} STATIC ${sources})
        target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
        target_link_libraries(${name} PUBLIC ${ARG_DEPENDS})
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE "${CMAKE_SOURCE_DIR}/src")
        target_link_libraries(${name} INTERFACE ${ARG_DEPENDS})
    endif()
endfunction()

# corvane_add_test(name SOURCES file... LIBS lib... [ZONES zone...])
# A Qt Test executable run offscreen, once per time zone (Europe/Paris by default).
function(corvane_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS;ZONES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} Qt6::Test)
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE
        CORVANE_DONNEES_TEST="${CMAKE_SOURCE_DIR}/tests/data"
        CORVANE_CLI_EXE="$<TARGET_FILE:corvane-cli>")
    if(NOT ARG_ZONES)
        set(ARG_ZONES Europe/Paris)
    endif()
    foreach(zone IN LISTS ARG_ZONES)
        string(REPLACE "/" "_" suffixe "${zone}")
        add_test(NAME ${name}_${suffixe} COMMAND ${name})
        set_tests_properties(${name}_${suffixe} PROPERTIES
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=${zone};LANG=C.UTF-8;LC_ALL=C.UTF-8")
    endforeach()
endfunction()
