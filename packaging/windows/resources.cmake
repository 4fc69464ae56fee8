# Puts icon, description and manifest into the program's file.
find_program(ICOTOOL icotool)
set(resources ${CMAKE_CURRENT_BINARY_DIR}/quarvelle.rc)
if(icon_pictures AND ICOTOOL)
  set(QUARVELLE_ICON ON)
  set(ico ${CMAKE_CURRENT_BINARY_DIR}/quarvelle.ico)
  # The largest is kept as it is, the others as the bitmaps that older parts of the desktop read.
  list(POP_BACK icon_pictures largest)
  add_custom_command(OUTPUT ${ico} DEPENDS ${icon_pictures} ${largest}
    COMMAND ${ICOTOOL} --create --output ${ico} ${icon_pictures} --raw=${largest})
  set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS ${ico})
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/quarvelle.rc.in ${resources} @ONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/quarvelle.manifest ${CMAKE_CURRENT_BINARY_DIR}/quarvelle.manifest COPYONLY)
target_sources(quarvelle PRIVATE ${resources})
set_target_properties(quarvelle PROPERTIES WIN32_EXECUTABLE ON)
if(MSVC)
  # Its linker would add a manifest of its own.
  target_link_options(quarvelle PRIVATE /MANIFEST:NO)
endif()
install(TARGETS quarvelle RUNTIME DESTINATION .)
