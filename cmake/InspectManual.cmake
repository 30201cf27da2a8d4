# cmake -D PROGRAM=... -D TEMPLATE=... -D OUTPUT=... -P InspectManual.cmake: the manual page of quorvane-inspect, with the
# options of each command as its own --help tells them. Without PROGRAM, which cannot run here if it was built for
# another machine, the page points to --help.
file(READ ${TEMPLATE} page)
string(REGEX MATCHALL "@OPTIONS_OF_[a-z]+@" marks "${page}")
foreach(mark IN LISTS marks)
  string(REGEX REPLACE ".*_([a-z]+)@" "\\1" command ${mark})
  set(options ".Pp\n.Dl $ quorvane-inspect ${command} --help\n.Pp\nlists the options.")
  if(PROGRAM)
    execute_process(COMMAND ${PROGRAM} ${command} --help OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)
    string(REPLACE ";" "@semicolon@" help "${help}")  # which would end an item of a list
    # What an option does stands behind it, or on the next line, far from the margin.
    string(REGEX REPLACE "\n                        +" "  " help "${help}")
    string(REGEX REPLACE "[^\n]*\nUsage: [^\n]*(quorvane-inspect [^\n]*).*" "\\1" usage "${help}")
    if(NOT usage MATCHES "^quorvane-inspect ${command} ")
      message(FATAL_ERROR "No usage in the help of ${command}: ${help}")
    endif()
    string(REGEX REPLACE "\n  +([-a-z][^\n]*[^ \n])  +([^\n]+)" "\n.It Li \"\\1\"\n\\2" help "${help}")
    string(REGEX MATCHALL "\n.It [^\n]+\n[^\n]+" items "${help}")
    string(CONCAT options ".Pp\n.Dl ${usage}\n.Bl -tag -width Ds" ${items} "\n.El")
  endif()
  string(REPLACE "@semicolon@" ";" options "${options}")
  string(REPLACE "${mark}" "${options}" page "${page}")
endforeach()
file(WRITE ${OUTPUT} "${page}")
