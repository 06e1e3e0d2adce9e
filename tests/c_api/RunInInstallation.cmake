# Runs a program in a fresh folder that holds a copy of the sample installation.
#   INSTALLATION  the installation that was laid out by the build
#   WORK          the folder
#   FILES         what is put beside the installation's own files: a host, and what it needs there
#   PROGRAM       the program with its arguments; one that was put there is named by its path below the folder
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(COPY ${INSTALLATION}/ DESTINATION ${WORK}/installation)
file(MAKE_DIRECTORY ${WORK}/installation/Log)  # hosts make it
file(COPY ${FILES} DESTINATION ${WORK}/installation)
# Dialogs are answered as if cancelled where there is no display, and nobody is here to answer them.
unset(ENV{DISPLAY})
unset(ENV{WAYLAND_DISPLAY})
unset(ENV{QT_QPA_PLATFORM})
execute_process(COMMAND ${PROGRAM} WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
