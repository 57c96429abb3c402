# Run by cpack on the staged tree: what Debian wants of a package and a plain installation does not.
set(share "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share")
configure_file("${CPACK_QUILLMARK_PACKAGING}/changelog" "${share}/doc/quillmark/changelog" COPYONLY)
configure_file("${CPACK_QUILLMARK_PACKAGING}/lintian-overrides"
  "${share}/lintian/overrides/quillmark" COPYONLY)
file(GLOB pages "${share}/man/man1/*.1")
foreach(file IN ITEMS "${share}/doc/quillmark/changelog" ${pages})
  execute_process(COMMAND gzip -9nf "${file}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
