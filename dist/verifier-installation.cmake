# cmake -DBUILD=DIR -DPREFIX=DIR -DID=org.corvane.corvane -DBINDIR=bin -DDATADIR=share -DMANDIR=share/man
#       -DMANUEL=docs/corvane-cli.1 -DCLI=docs/cli.md -P verifier-installation.cmake
# Runs `cmake --install` into an empty prefix, checks that every file is where desktops look for
# it, that the programs lost their symbols on the way, that the manual page names every command
# and option of the command-line reference, and lets appstreamcli check the installed tree (the
# metainfo's launchable desktop file).
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}"
                RESULT_VARIABLE resultat OUTPUT_QUIET)
if(NOT resultat EQUAL 0)
    message(FATAL_ERROR "cmake --install a échoué (${resultat})")
endif()

set(share "${PREFIX}/${DATADIR}")
foreach(fichier
        "${PREFIX}/${BINDIR}/corvane"
        "${PREFIX}/${BINDIR}/corvane-cli"
        "${share}/applications/${ID}.desktop"
        "${share}/mime/packages/${ID}.xml"
        "${share}/metainfo/${ID}.metainfo.xml"
        "${share}/icons/hicolor/scalable/apps/${ID}.svg"
        "${share}/icons/hicolor/256x256/apps/${ID}.png"
        "${PREFIX}/${MANDIR}/man1/corvane-cli.1.gz")
    if(NOT EXISTS "${fichier}")
        message(FATAL_ERROR "absent de l'installation : ${fichier}")
    endif()
endforeach()

# A stripped program has no symbol table and no debugging section left.
find_program(READELF readelf REQUIRED)
foreach(programme corvane corvane-cli)
    execute_process(COMMAND "${READELF}" --section-headers --wide "${PREFIX}/${BINDIR}/${programme}"
                    OUTPUT_VARIABLE sections RESULT_VARIABLE resultat)
    if(NOT resultat EQUAL 0 OR sections MATCHES "\\.symtab|\\.debug_")
        message(FATAL_ERROR "${programme} est installé avec ses symboles (non « strippé »)")
    endif()
endforeach()

# Every command (as the reference writes its synopsis: `nom FICHIER`, `nom sous-commande FICHIER`,
# or a heading) and every option is in the manual page, whose roff writes a hyphen "\-" and
# switches fonts with "\fB" and the like.
file(READ "${CLI}" reference)
file(READ "${MANUEL}" page)
string(REPLACE "\\-" "-" page "${page}")
string(REGEX REPLACE "\\\\f[BIRP]" "" page "${page}")
string(REGEX MATCHALL "\n### `[a-z][a-z-]*( [a-z]+)?|`[a-z][a-z-]*( [a-z]+)? FICHIER" commandes "${reference}")
string(REGEX MATCHALL "--[a-z][a-z-]*" options "${reference}")
set(absents "")
foreach(nom IN LISTS commandes options)
    string(REGEX REPLACE "^\n### `|^`| FICHIER$" "" nom "${nom}")
    if(NOT page MATCHES "${nom}([^a-z-]|$)" AND NOT nom IN_LIST absents)
        list(APPEND absents "${nom}")
    endif()
endforeach()
if(absents)
    list(JOIN absents ", " texte)
    message(FATAL_ERROR "absents de ${MANUEL} : ${texte}")
endif()

execute_process(COMMAND appstreamcli validate-tree --no-net "${PREFIX}" RESULT_VARIABLE resultat)
if(NOT resultat EQUAL 0)
    message(FATAL_ERROR "appstreamcli validate-tree a échoué (${resultat})")
endif()
