# Run last by an installation: notes what it installed.
if(NOT "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}" MATCHES "/_CPack_Packages/")
  foreach(file IN LISTS CMAKE_INSTALL_MANIFEST_FILES)
    file(APPEND "${RECORD}/files.txt" "$ENV{DESTDIR}${file}\n")
  endforeach()
endif()
