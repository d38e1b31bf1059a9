# cmake -DSOURCE=<docs/guide> -DOUTPUT=<app folder>/guide [-DCONVERTER=pandoc|cmark-gfm|cmark] -P build_guide.cmake
# Writes index.md (the table of the chapters) beside a copy of each chapter
# and of images/; with a converter, an HTML page for the index and for each
# chapter, whose links go to the HTML pages.
file(REMOVE_RECURSE ${OUTPUT})
file(MAKE_DIRECTORY ${OUTPUT})
file(COPY ${SOURCE}/images ${SOURCE}/guide.css DESTINATION ${OUTPUT})
file(GLOB chapters RELATIVE ${SOURCE} ${SOURCE}/[0-9][0-9]-*.md)
list(SORT chapters)

set(index "# Plouvarine : guide de l'utilisateur\n\nUne saison du club, une tâche par chapitre.\n\n")
foreach(chapter ${chapters})
  file(STRINGS ${SOURCE}/${chapter} first LIMIT_COUNT 1 ENCODING UTF-8)
  string(REGEX REPLACE "^# *" "" title "${first}")
  string(APPEND index "- [${title}](${chapter})\n")
  file(COPY ${SOURCE}/${chapter} DESTINATION ${OUTPUT})
endforeach()
file(WRITE ${OUTPUT}/index.md "${index}")

if(NOT CONVERTER)
  return()
endif()
get_filename_component(tool ${CONVERTER} NAME)
foreach(page index.md ${chapters})
  file(READ ${OUTPUT}/${page} text)
  # Links between pages go to their HTML.
  string(REGEX REPLACE "\\(([0-9][0-9]-[^)]*)\\.md\\)" "(\\1.html)" text "${text}")
  file(WRITE ${OUTPUT}/page.tmp "${text}")
  # The tables are GitHub's extension of CommonMark.
  if(tool MATCHES "pandoc")
    execute_process(COMMAND ${CONVERTER} -f gfm -t html ${OUTPUT}/page.tmp OUTPUT_VARIABLE body RESULT_VARIABLE rc)
  elseif(tool MATCHES "cmark-gfm")
    execute_process(COMMAND ${CONVERTER} -e table ${OUTPUT}/page.tmp OUTPUT_VARIABLE body RESULT_VARIABLE rc)
  else()
    execute_process(COMMAND ${CONVERTER} ${OUTPUT}/page.tmp OUTPUT_VARIABLE body RESULT_VARIABLE rc)
  endif()
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${CONVERTER} failed on ${page}")
  endif()
  string(REGEX MATCH "<h1>[^<]*</h1>" heading "${body}")
  string(REGEX REPLACE "</?h1>" "" title "${heading}")
  string(REPLACE ".md" ".html" html ${page})
  set(nav "")
  if(NOT page STREQUAL "index.md")
    set(nav "<nav><a href=\"index.html\">Sommaire</a></nav>\n")
  endif()
  file(WRITE ${OUTPUT}/${html}
    "<!DOCTYPE html>\n<html lang=\"fr\">\n<head>\n<meta charset=\"utf-8\">\n<title>${title}</title>\n"
    "<link rel=\"stylesheet\" href=\"guide.css\">\n</head>\n<body>\n${nav}${body}${nav}</body>\n</html>\n")
endforeach()
file(REMOVE ${OUTPUT}/page.tmp)
