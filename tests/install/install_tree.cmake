# Installs the build tree into a fresh prefix and checks what a desktop needs of it: the two programs,
# the data where the program looks for it, the desktop entry, the icon and a MIME type that knows a
# document by its name and by its first bytes. The installed programs must then run from there: the
# command-line tool reads the installed examples, and the editor starts headless and keeps running.
# Arguments: -DBUILD_DIR=... -DPREFIX=...

file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX} OUTPUT_QUIET
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "cmake --install failed: ${result}")
endif()

foreach(file
        bin/kovra bin/kovra-cli
        share/kovra/Lang/English.txt share/kovra/Themes/Paleform.txt share/kovra/Themes/Duskform.txt
        share/kovra/Themes/Paleform/Eye.png share/kovra/Examples/Cat.ske share/kovra/Examples/Cat.png
        share/kovra/Examples/Crane.ski share/kovra/Examples/Crane.png
        share/applications/kovra.desktop share/icons/hicolor/scalable/apps/kovra.svg
        share/mime/packages/kovra.xml)
    if(NOT EXISTS ${PREFIX}/${file})
        message(FATAL_ERROR "not installed: ${file}")
    endif()
endforeach()

file(READ ${PREFIX}/share/applications/kovra.desktop entry)
foreach(line "Exec=kovra %f" "Icon=kovra" "MimeType=application/x-kovra-document;")
    string(FIND "${entry}" "${line}" at)
    if(at LESS 0)
        message(FATAL_ERROR "the desktop entry lacks ${line}")
    endif()
endforeach()

find_program(UPDATE_MIME update-mime-database)
if(UPDATE_MIME)
    execute_process(COMMAND ${UPDATE_MIME} ${PREFIX}/share/mime RESULT_VARIABLE result)
    file(READ ${PREFIX}/share/mime/globs globs)
    file(READ ${PREFIX}/share/mime/magic magic HEX)
    string(HEX "Wrlm" wrlm)
    string(FIND "${globs}" "application/x-kovra-document:*.ske" ske)
    string(FIND "${globs}" "application/x-kovra-document:*.ski" ski)
    string(FIND "${magic}" "${wrlm}" match)
    if(NOT result EQUAL 0 OR ske LESS 0 OR ski LESS 0 OR match LESS 0)
        message(FATAL_ERROR "the MIME type does not know documents by name and first bytes")
    endif()
endif()

foreach(example Examples/Cat.ske Examples/Crane.ski)
    execute_process(COMMAND ${PREFIX}/bin/kovra-cli check ${PREFIX}/share/kovra/${example}
                    RESULT_VARIABLE result ERROR_VARIABLE error)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "the installed ${example} does not check: ${error}")
    endif()
endforeach()

# The editor runs until its window is closed: still running after three seconds, it has started. What
# it found at start is checked by the installed-tree test, which starts the editor state on these files.
set(ENV{QT_QPA_PLATFORM} offscreen)
set(ENV{XDG_CONFIG_HOME} ${PREFIX}/config)
set(ENV{XDG_STATE_HOME} ${PREFIX}/state)
execute_process(COMMAND ${PREFIX}/bin/kovra TIMEOUT 3 RESULT_VARIABLE result ERROR_VARIABLE error)
if(NOT result MATCHES "timeout|Process terminated due to timeout")
    message(FATAL_ERROR "the installed editor ended at start: ${result} ${error}")
endif()
