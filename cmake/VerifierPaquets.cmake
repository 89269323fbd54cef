# cmake -DCACHE=build/CMakeCache.txt -DINSTALL_DEPS=scripts/install-deps -P VerifierPaquets.cmake
#
# Every CMake package the build found must come from a Debian package that
# scripts/install-deps installs: a machine that happens to have an extra package
# installed would otherwise hide a gap that only a fresh machine shows.
# Files owned by several packages, or by none (built by hand), are left out.

cmake_minimum_required(VERSION 3.25)

find_program(DPKG dpkg)
if(NOT DPKG)
    message("SKIP: dpkg est introuvable, la liste des paquets ne peut pas être vérifiée.")
    return()
endif()

execute_process(COMMAND "${INSTALL_DEPS}" --liste OUTPUT_VARIABLE liste RESULT_VARIABLE code)
if(NOT code EQUAL 0)
    message(FATAL_ERROR "${INSTALL_DEPS} --liste a échoué (${code}).")
endif()
string(REPLACE "\n" ";" installes "${liste}")

file(STRINGS "${CACHE}" entrees REGEX "^[A-Za-z0-9_]+_DIR:PATH=/")
set(manquants "")
foreach(entree IN LISTS entrees)
    string(REGEX MATCH "^([A-Za-z0-9_]+)_DIR:PATH=(.*)$" _ "${entree}")
    set(nom "${CMAKE_MATCH_1}")
    set(dossier "${CMAKE_MATCH_2}")
    string(TOLOWER "${nom}" minuscule)
    # The file find_package read, as CMake names it.
    set(config "")
    foreach(candidat "${dossier}/${nom}Config.cmake" "${dossier}/${minuscule}-config.cmake")
        if(EXISTS "${candidat}")
            set(config "${candidat}")
            break()
        endif()
    endforeach()
    if(NOT config)
        continue()
    endif()
    # dpkg knows the packaged path, not the merged-/usr alias nor a symbolic link.
    file(REAL_PATH "${config}" reel)
    set(proprietaire "")
    foreach(chemin IN ITEMS "${config}" "${reel}")
        execute_process(COMMAND "${DPKG}" -S "${chemin}" OUTPUT_VARIABLE sortie ERROR_QUIET RESULT_VARIABLE code)
        if(code EQUAL 0)
            # "qt6-base-dev:amd64: /usr/lib/…", or "a, b: /usr/…" when several own it.
            string(REGEX REPLACE "\n.*" "" proprietaire "${sortie}")
            string(REGEX REPLACE ": /.*$" "" proprietaire "${proprietaire}")
            break()
        endif()
    endforeach()
    if(NOT proprietaire OR proprietaire MATCHES ",")
        continue()
    endif()
    string(REGEX REPLACE ":.*$" "" paquet "${proprietaire}") # the architecture, "qt6-base-dev:amd64"
    if(NOT paquet IN_LIST installes)
        list(APPEND manquants "${paquet} (${nom}, ${config})")
    endif()
endforeach()

if(manquants)
    list(JOIN manquants "\n  " texte)
    message(FATAL_ERROR "Paquets utilisés par la compilation mais absents de scripts/install-deps :\n  ${texte}")
endif()
