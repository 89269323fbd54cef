# cmake -DBUILD=DIR -DPREFIX=DIR -DID=org.corvane.Corvane -DBINDIR=bin -DDATADIR=share -P verifier-installation.cmake
# Runs `cmake --install` into an empty prefix, checks that every file is where desktops look for
# it, and lets appstreamcli check the installed tree (the metainfo's launchable desktop file).
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
        "${share}/icons/hicolor/256x256/apps/${ID}.png")
    if(NOT EXISTS "${fichier}")
        message(FATAL_ERROR "absent de l'installation : ${fichier}")
    endif()
endforeach()

execute_process(COMMAND appstreamcli validate-tree --no-net "${PREFIX}" RESULT_VARIABLE resultat)
if(NOT resultat EQUAL 0)
    message(FATAL_ERROR "appstreamcli validate-tree a échoué (${resultat})")
endif()
