# Lays all pictures that DrawPictures.cmake has drawn on one sheet, at 16 and 24 pixels, on a light and
# on a dark background, for whoever draws a picture: <OUT>/sheet.png.
# cmake -DOUT=<folder of the results> -DRSVG=<rsvg-convert> -P ...
cmake_minimum_required(VERSION 3.25)

set(columns 8)
set(width 150)
set(height 50)
file(GLOB pictures RELATIVE ${OUT} ${OUT}/*-24.png)
list(LENGTH pictures count)
math(EXPR half "(${count} + ${columns} - 1) / ${columns} * ${height}")
math(EXPR sheet_width "${columns} * ${width}")
math(EXPR sheet_height "2 * ${half}")

set(svg "<svg xmlns='http://www.w3.org/2000/svg' xmlns:x='http://www.w3.org/1999/xlink'
  width='${sheet_width}' height='${sheet_height}' font-family='sans-serif' font-size='9'>
<rect width='${sheet_width}' height='${half}' fill='#ffffff'/>
<rect y='${half}' width='${sheet_width}' height='${half}' fill='#2b2b2b'/>\n")
foreach(side 0 1)
  set(index 0)
  foreach(picture ${pictures})
    string(REPLACE "-24.png" "" name ${picture})
    math(EXPR left "${index} % ${columns} * ${width} + 8")
    math(EXPR right "${left} + 24")
    math(EXPR top "${index} / ${columns} * ${height} + 6 + ${side} * ${half}")
    math(EXPR below "${top} + 36")
    string(APPEND svg "<image x='${left}' y='${top}' width='16' height='16' x:href='${name}-16.png'/>
<image x='${right}' y='${top}' width='24' height='24' x:href='${picture}'/>
<text x='${left}' y='${below}' fill='#888888'>${name}</text>\n")
    math(EXPR index "${index} + 1")
  endforeach()
endforeach()
file(WRITE ${OUT}/sheet.svg "${svg}</svg>\n")
execute_process(COMMAND ${RSVG} -o ${OUT}/sheet.png ${OUT}/sheet.svg COMMAND_ERROR_IS_FATAL ANY)
message(STATUS "${OUT}/sheet.png")
