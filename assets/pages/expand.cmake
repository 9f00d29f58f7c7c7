# Expands the page sources into the three language folders of the web console. Fails on a text that
# is missing or that no page uses, so that the languages can't drift apart.
#
#   {{>name}}   the file parts/name
#   {{key}}     a text of the language, from english.txt, traditional.txt or simplified.txt
#   {{#Cancel}} a text of the program by its name, so that window and page say the same
#   {{!...}}    a remark, left out
#   {{palette}} the colours of the windows, as style properties
#   {{version}} of the program
#
# cmake -DPAGES=... -DTEXTS=texts.tsv -DPALETTE=palette.h -DVERSION=... -DOUTPUT=... -P expand.cmake
cmake_minimum_required(VERSION 3.25)

# Sets text_KEY for each text of the language and OWN_KEYS to the keys of its own file.
function(read_texts language column)
  file(STRINGS ${TEXTS} lines ENCODING UTF-8 REGEX "^[0-9]")
  foreach(line IN LISTS lines)
    string(REGEX MATCH "^[0-9]+\t([^\t]*)\t([^\t]*)\t([^\t]*)\t([^\t]*)$" found "${line}")
    set(text_n${CMAKE_MATCH_1} "${CMAKE_MATCH_${column}}" PARENT_SCOPE)
  endforeach()
  file(STRINGS ${PAGES}/${language}.txt lines ENCODING UTF-8)
  foreach(line IN LISTS lines)
    if(NOT line MATCHES "^([a-z0-9_]+)\t([^\"<>]+)$")
      message(FATAL_ERROR "${language}.txt: key, tab and a text without quotes or tags: ${line}")
    endif()
    set(text_${CMAKE_MATCH_1} "${CMAKE_MATCH_2}" PARENT_SCOPE)
    list(APPEND keys ${CMAKE_MATCH_1})
  endforeach()
  set(OWN_KEYS ${keys} PARENT_SCOPE)
endfunction()

# One style property for each colour: kPanelEdge becomes --paneledge.
function(read_palette)
  file(STRINGS ${PALETTE} lines REGEX "^constexpr platform::Color")
  foreach(line IN LISTS lines)
    string(REGEX MATCH "k([A-Za-z]+){([0-9]+), ([0-9]+), ([0-9]+)}" found "${line}")
    string(TOLOWER ${CMAKE_MATCH_1} name)
    string(APPEND style "--${name}: rgb(${CMAKE_MATCH_2} ${CMAKE_MATCH_3} ${CMAKE_MATCH_4}); ")
  endforeach()
  set(text_palette "${style}" PARENT_SCOPE)
endfunction()

function(put_in_parts variable)
  set(page "${${variable}}")
  while(page MATCHES "{{>([a-z_.]+)}}\n?")
    set(marker "${CMAKE_MATCH_0}")
    file(READ ${PAGES}/parts/${CMAKE_MATCH_1} part)
    string(REPLACE "${marker}" "${part}" page "${page}")
  endwhile()
  string(REGEX REPLACE "{{![^}]*}}\n?" "" page "${page}")
  set(${variable} "${page}" PARENT_SCOPE)
endfunction()

function(put_in_texts variable name)
  set(page "${${variable}}")
  string(REGEX MATCHALL "{{#?[A-Za-z0-9_]+}}" markers "${page}")
  list(REMOVE_DUPLICATES markers)
  foreach(marker IN LISTS markers)
    string(REGEX REPLACE "[{}]" "" key "${marker}")
    string(REPLACE "#" "n" key "${key}")
    if(NOT DEFINED text_${key})
      message(FATAL_ERROR "${name} needs the text ${key}, which ${language} lacks")
    endif()
    string(REPLACE "${marker}" "${text_${key}}" page "${page}")
    list(APPEND USED_KEYS ${key})
  endforeach()
  set(${variable} "${page}" PARENT_SCOPE)
  set(USED_KEYS ${USED_KEYS} PARENT_SCOPE)
endfunction()

# `column` is that of the language in the program's texts.
function(expand_language language folder column)
  read_texts(${language} ${column})
  read_palette()
  set(text_version ${VERSION})
  file(GLOB sources ${PAGES}/*.htm)
  foreach(source IN LISTS sources)
    get_filename_component(name ${source} NAME)
    file(READ ${source} page)
    put_in_parts(page)
    put_in_texts(page ${name})
    file(WRITE ${OUTPUT}/${folder}/${name} "${page}")
  endforeach()
  list(REMOVE_ITEM OWN_KEYS ${USED_KEYS})
  if(OWN_KEYS)
    message(FATAL_ERROR "${language}.txt: no page uses ${OWN_KEYS}")
  endif()
endfunction()

file(REMOVE_RECURSE ${OUTPUT})
expand_language(english httpEnglish 2)
expand_language(traditional httpBig5 3)
expand_language(simplified httpGB232 4)
