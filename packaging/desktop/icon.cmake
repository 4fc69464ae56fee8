# Draws the icon's sizes: icon_pictures names them, from the smallest. Where what draws them is missing there are
# none, and the program goes without an icon.
set(icon ${CMAKE_CURRENT_LIST_DIR}/quarvelle.svg)
find_program(RSVG_CONVERT rsvg-convert)
set(icon_pictures)
if(RSVG_CONVERT)
  file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/icon)
  foreach(size 16 32 48 64 128 256)
    set(picture ${CMAKE_CURRENT_BINARY_DIR}/icon/${size}.png)
    add_custom_command(OUTPUT ${picture} DEPENDS ${icon}
      COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${picture} ${icon})
    list(APPEND icon_pictures ${picture})
  endforeach()
endif()
