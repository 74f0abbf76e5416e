# cpack -G DEB: vextorin, libvextorin9-0, libvextorin9-dev.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vextorin)
set(CPACK_PACKAGE_CONTACT "vextorin maintainers <maintainers@vextorin.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "barcode filter for print queues")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_SET_DESTDIR ON)  # the configuration lies outside of the prefix
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL program library development)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

# package_of(variable library...): the packages of libraries that are loaded when they are needed,
# which no tool finds in the file's headers.
function(package_of variable)
  find_program(DPKG_QUERY dpkg-query)
  set(packages "")
  foreach(library ${ARGN})
    file(REAL_PATH ${library} file)
    set(candidates ${file})
    if(file MATCHES "^/usr(/lib.*)$")
      list(APPEND candidates ${CMAKE_MATCH_1})  # where a merged /usr was not when it was packaged
    endif()
    foreach(candidate ${candidates})
      set(owner "")
      if(DPKG_QUERY)
        execute_process(COMMAND ${DPKG_QUERY} -S ${candidate} OUTPUT_VARIABLE owner ERROR_QUIET)
      endif()
      if(owner MATCHES "^([^:, \n]+)")
        list(APPEND packages ${CMAKE_MATCH_1})
        break()
      endif()
    endforeach()
  endforeach()
  list(JOIN packages ", " packages)
  set(${variable} ${packages} PARENT_SCOPE)
endfunction()
package_of(loaded_always ${ZINT_LIBRARY} ${ZLIB_LIBRARIES})
package_of(loaded_for_text ${FREETYPE_LIBRARY} ${FONTCONFIG_LIBRARY})
package_of(loaded_for_pictures ${PNG_LIBRARY} ${JPEG_LIBRARY} ${GIF_LIBRARY} ${TIFF_LIBRARY})

set(version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(about "vextorin finds barcode sequences that an application printed as ordinary text
in a PostScript or PCL job, and puts a barcode in place of each.")

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME vextorin)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "libvextorin9-0 (= ${version})")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "cups, cups-client")
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "${about}

This package has the filter for CUPS, and vextorin-queue, which wires it into
print queues and finds out what is wrong with them.")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libvextorin9-0)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS "${loaded_always}")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS "${loaded_for_text}")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SUGGESTS "${loaded_for_pictures}")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "${about}

This package has the library that draws the barcodes, with a C interface.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvextorin9-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libvextorin9-0 (= ${version})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "${about}

This package has what programs are built with that use the barcode library.")

# What every package has to say about itself.
compress(${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz)
foreach(component program library development)
  string(TOUPPER ${component} upper)
  set(papers ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  install(FILES debian/copyright ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz DESTINATION ${papers}
    COMPONENT ${component})
endforeach()

install(FILES debian/vextorin.lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
  RENAME vextorin COMPONENT program)

set(control ${CMAKE_CURRENT_SOURCE_DIR}/debian)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_CONTROL_EXTRA ${control}/conffiles ${control}/postinst
  ${control}/prerm ${control}/postrm)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${control}/triggers
  ${control}/shlibs)

include(CPack)
