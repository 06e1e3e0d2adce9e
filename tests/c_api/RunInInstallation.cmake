# Runs a program in a fresh folder that holds a copy of the sample installation.
#   INSTALLATION  the installation that was laid out by the build
#   WORK          the folder
#   PROGRAM       the program with its arguments
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(COPY ${INSTALLATION}/ DESTINATION ${WORK}/installation)
execute_process(COMMAND ${PROGRAM} WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
