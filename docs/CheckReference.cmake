# Builds the API reference into a scratch directory, as the docs target does, and fails when
# Doxygen logs a warning: an undocumented public entity, a broken reference, a doc error.
#
#   cmake -DDOXYGEN=<doxygen> -DDOXYFILE=<build>/docs/Doxyfile -DDOCS_DIR=<build>/docs
#         -DSOURCE_DIR=<source tree> -DSCRATCH=<scratch directory> [-DPENDING=<regex>]
#         -P docs/CheckReference.cmake
#
# PENDING names warnings that are known and about to go away with other work: they are listed
# but not counted. Once none matches, the check fails until PENDING is dropped, so that the
# exception cannot outlive its reason.

foreach(var DOXYGEN DOXYFILE DOCS_DIR SOURCE_DIR SCRATCH)
  if(NOT ${var})
    message(FATAL_ERROR "CheckReference.cmake needs -D${var}=...")
  endif()
endforeach()
foreach(var DOXYFILE DOCS_DIR SOURCE_DIR SCRATCH)
  get_filename_component(${var} "${${var}}" ABSOLUTE)
endforeach()

file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH})

# The docs target's own configuration, with everything it writes moved to the scratch
# directory: the generated fields page, the HTML and the warnings log.
execute_process(COMMAND ${CMAKE_COMMAND} -DSOURCE_DIR=${SOURCE_DIR} -DOUTPUT=${SCRATCH}/fields.dox
                        -P ${SOURCE_DIR}/docs/RecordFields.cmake
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "docs/RecordFields.cmake failed")
endif()
file(READ ${DOXYFILE} config)
string(REPLACE "${DOCS_DIR}" "${SCRATCH}" config "${config}")
file(WRITE ${SCRATCH}/Doxyfile "${config}")
execute_process(COMMAND ${DOXYGEN} ${SCRATCH}/Doxyfile WORKING_DIRECTORY ${SOURCE_DIR}
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "Doxygen failed (${result})")
endif()

# One entry per warning; a line that does not start one continues the last. Entries are
# classified as they end, so that no list ever holds a warning's text.
set(counted "")
set(pending "")
set(counted_n 0)
set(pending_n 0)
set(entry "")
macro(classify)
  if(NOT entry STREQUAL "")
    string(REPLACE "<sc>" ";" entry "${entry}")
    string(REPLACE "<lb>" "[" entry "${entry}")
    string(REPLACE "<rb>" "]" entry "${entry}")
    if(PENDING AND entry MATCHES "${PENDING}")
      string(APPEND pending "  ${entry}\n")
      math(EXPR pending_n "${pending_n} + 1")
    else()
      string(APPEND counted "  ${entry}\n")
      math(EXPR counted_n "${counted_n} + 1")
    endif()
    set(entry "")
  endif()
endmacro()
set(log "")
if(EXISTS ${SCRATCH}/warnings.txt)
  file(READ ${SCRATCH}/warnings.txt log)
endif()
string(REPLACE ";" "<sc>" log "${log}")
string(REPLACE "[" "<lb>" log "${log}")
string(REPLACE "]" "<rb>" log "${log}")
string(REPLACE "${SOURCE_DIR}/" "" log "${log}")
string(REPLACE "\n" ";" lines "${log}")
foreach(line IN LISTS lines)
  if(line STREQUAL "")
    continue()
  endif()
  if(line MATCHES ": (warning|error): ")
    classify()
    set(entry "${line}")
  elseif(entry STREQUAL "")
    set(entry "${line}")
  else()
    string(APPEND entry "\n    ${line}")
  endif()
endforeach()
classify()

if(pending_n GREATER 0)
  message(STATUS "${pending_n} warnings not counted, matching \"${PENDING}\" (to be fixed "
                 "elsewhere):\n${pending}")
elseif(PENDING)
  message(FATAL_ERROR "No warning matches \"${PENDING}\" any more: drop PENDING from the "
                      "api-docs test in tests/CMakeLists.txt, so that such warnings count again.")
endif()
if(counted_n GREATER 0)
  message(FATAL_ERROR "The API reference has ${counted_n} warnings; document what they name:\n"
                      "${counted}")
endif()
message(STATUS "The API reference has no warnings")
