# install_if_built(TARGET): what else this folder installs is passed over, with a word, where the target has not been
# built, so that installing works after `./run`, which builds the utility alone, as it does after a full build.
function(install_if_built target)
  install(CODE "
    if(NOT EXISTS \"$<TARGET_FILE:${target}>\")
      message(STATUS \"Left out, as it has not been built: ${target} (cmake --build ${PROJECT_BINARY_DIR} builds all)\")
      return()
    endif()" ALL_COMPONENTS)
endfunction()
