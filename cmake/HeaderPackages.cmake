# find_headers(PACKAGE TARGET FOLDER): a package that is headers alone, in a folder of its own. A build
# for another machine takes that folder of this machine and nothing beside it: what else lies there
# belongs to this machine's C library.
function(find_headers package target folder)
  if(NOT CMAKE_CROSSCOMPILING)
    find_package(${package} REQUIRED)
    return()
  endif()
  find_path(${package}_HEADERS ${folder} PATHS /usr/include /usr/local/include
            NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(shown ${PROJECT_BINARY_DIR}/headers)
  file(MAKE_DIRECTORY ${shown})
  file(CREATE_LINK ${${package}_HEADERS}/${folder} ${shown}/${folder} COPY_ON_ERROR SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED)
  target_include_directories(${target} INTERFACE ${shown})
endfunction()
