# Draws the pictures of pictures/ at all their sizes and in all their variants, and writes them as one
# C++ source, so that a program carries its pictures with it.
# cmake -DPICTURES=<folder of the sources> -DOUT=<folder for the results> -DRSVG=<rsvg-convert> -P ...
#
# A source is one SVG file on a grid of 24 by 24; its <title> is the key of the picture. The folder says
# what is made of it: a plain picture and, by laying it into pictures/variants/<Variant>.svg.in, its
# variants, whose keys have the variant's name behind them.
# Results: <Key without blanks>-<pixels>.png, and PictureTable.cpp with the rows of PictureTable.h.
cmake_minimum_required(VERSION 3.25)

set(folders files components procedures toolbar dialogs application)
set(variants_components Dirty)
set(variants_procedures Dirty)
set(variants_toolbar X)
set(sizes 16 24 32)
set(sizes_application ${sizes} 48 64 128)

file(REMOVE_RECURSE ${OUT})
file(MAKE_DIRECTORY ${OUT})
set(arrays "")
set(rows "")
set(keys "")

# draw(<key> <svg text> <sizes>): the PNG files of one key and their rows.
function(draw key svg sizes)
  if(key IN_LIST keys)
    message(FATAL_ERROR "Two pictures have the title ${key}")
  endif()
  string(REPLACE " " "" name ${key})
  file(WRITE ${OUT}/${name}.svg "${svg}")
  foreach(pixels ${sizes})
    set(png ${OUT}/${name}-${pixels}.png)
    execute_process(COMMAND ${RSVG} -w ${pixels} -h ${pixels} -o ${png} ${OUT}/${name}.svg
                    RESULT_VARIABLE failed)
    if(failed)
      message(FATAL_ERROR "${name}.svg can't be drawn at ${pixels} pixels: ${failed}")
    endif()
    file(READ ${png} bytes HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
    string(APPEND arrays "const unsigned char ${name}${pixels}[] = {${bytes}};\n")
    string(APPEND rows "    {u\"${key}\", ${pixels}, ${name}${pixels}},\n")
  endforeach()
  set(arrays "${arrays}" PARENT_SCOPE)
  set(rows "${rows}" PARENT_SCOPE)
  set(keys ${keys} ${key} PARENT_SCOPE)
endfunction()

foreach(folder ${folders})
  if(NOT DEFINED sizes_${folder})
    set(sizes_${folder} ${sizes})
  endif()
  file(GLOB sources ${PICTURES}/${folder}/*.svg)
  foreach(source ${sources})
    file(READ ${source} PICTURE)
    if(NOT PICTURE MATCHES "<title>([A-Za-z ]+)</title>")
      message(FATAL_ERROR "${source} has no <title> of letters and blanks: the key of the picture")
    endif()
    set(key ${CMAKE_MATCH_1})
    draw(${key} "${PICTURE}" "${sizes_${folder}}")
    foreach(variant ${variants_${folder}})
      file(READ ${PICTURES}/variants/${variant}.svg.in form)
      string(REPLACE "@PICTURE@" "${PICTURE}" svg "${form}")
      draw("${key}${variant}" "${svg}" "${sizes_${folder}}")
    endforeach()
  endforeach()
endforeach()

file(WRITE ${OUT}/PictureTable.cpp "// Made from pictures/ by cmake/DrawPictures.cmake.
#include \"PictureTable.h\"

namespace {
${arrays}
const PictureRow Rows[] = {
${rows}};
}  // namespace

std::span<const PictureRow> PictureTable() { return Rows; }
")
