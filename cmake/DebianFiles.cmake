# Run by cpack in front of making packages: what Debian wants in every package and nobody else does.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
find_program(GZIP gzip REQUIRED)

# Honours SOURCE_DATE_EPOCH.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} name)
  set(package ${CPACK_DEBIAN_${name}_PACKAGE_NAME})
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
  set(documents ${root}/share/doc/${package})

  file(WRITE ${documents}/changelog.Debian
"quorvane (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * Packaged by the project itself.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
  file(WRITE ${documents}/copyright
"Quorvane, made by the ${CPACK_PACKAGE_VENDOR}.

The project states no licence: whoever wants to pass it on or change it has to
ask them.
")
  set(overrides
"# It does not come from Debian, where the first upload would close a wish.
${package}: initial-upload-closes-no-bugs
# The project states no year and no licence, and none is made up here.
${package}: copyright-without-copyright-notice
")
  if(component STREQUAL "runtime")
    string(APPEND overrides
"# cpack has scripts call ldconfig, which is what the trigger would do.
${package}: lacks-ldconfig-trigger
${package}: maintscript-calls-ldconfig
")
  endif()
  file(WRITE ${root}/share/lintian/overrides/${package} "${overrides}")
  if(EXISTS ${documents}/CHANGELOG.md)
    file(COPY_FILE ${documents}/CHANGELOG.md ${documents}/changelog)
  endif()
  file(GLOB_RECURSE compressed ${root}/share/man/*.[1-9] ${documents}/changelog*)
  execute_process(COMMAND ${GZIP} -9n ${compressed} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
