# Makes OUTPUT, a C++ source, of the page in SOURCE and of the library's files LIBRARY and CONTROLS.
function(readText name file)
  file(READ ${file} text)
  set(${name} "${text}" PARENT_SCOPE)
endfunction()

readText(page ${SOURCE}/page.html)
readText(style ${SOURCE}/page.css)
string(FIND "${page}" "<!-- path -->" middle)
string(SUBSTRING "${page}" 0 ${middle} head)
string(SUBSTRING "${page}" ${middle} -1 tail)
string(REPLACE "/* style */" "${style}" head "${head}")

file(WRITE ${OUTPUT}.new "#include \"cli/quillmark-view/pageParts.h\"\n\n"
  "const std::string_view kPageHead = R\"page(${head})page\";\n"
  "const std::string_view kPageTail = R\"page(${tail}")
foreach(script IN ITEMS ${LIBRARY} ${CONTROLS} ${SOURCE}/pathData.js ${SOURCE}/pathScene.js
        ${SOURCE}/statementList.js ${SOURCE}/page.js)
  readText(text ${script})
  file(APPEND ${OUTPUT}.new "<script>\n${text}</script>\n")
endforeach()
file(APPEND ${OUTPUT}.new "</body>\n</html>\n)page\";\n")
file(RENAME ${OUTPUT}.new ${OUTPUT})
