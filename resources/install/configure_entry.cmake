# Writes a desktop entry from its template, with @DOVRIN_EXEC@ the command
# line that starts the program at EXECUTABLE and @DOVRIN_APP_ID@ the
# application's id. Run as a script at build time (cmake -DTEMPLATE=...
# -DOUTPUT=... -DEXECUTABLE=... -DDOVRIN_APP_ID=... -P configure_entry.cmake)
# and included at install time with the same variables set.
#
# A path with characters the Exec key reserves is quoted, with ", `, $ and \
# escaped inside the quotes; the key's value then doubles every backslash,
# and a percent sign is written twice, as field codes ask.
foreach(variable TEMPLATE OUTPUT EXECUTABLE DOVRIN_APP_ID)
  if(NOT DEFINED ${variable})
    message(FATAL_ERROR "configure_entry.cmake: ${variable} is not set")
  endif()
endforeach()

set(DOVRIN_EXEC "${EXECUTABLE}")
if(DOVRIN_EXEC MATCHES "[^A-Za-z0-9/._+-]")
  string(REGEX REPLACE "([\"`$\\\\])" "\\\\\\1" DOVRIN_EXEC "${DOVRIN_EXEC}")
  set(DOVRIN_EXEC "\"${DOVRIN_EXEC}\"")
  string(REPLACE "\\" "\\\\" DOVRIN_EXEC "${DOVRIN_EXEC}")
endif()
string(REPLACE "%" "%%" DOVRIN_EXEC "${DOVRIN_EXEC}")
configure_file("${TEMPLATE}" "${OUTPUT}" @ONLY)
