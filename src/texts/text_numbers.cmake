# Makes the header with the numbers of the texts under their names. Fails on a name that is not in
# PascalCase or that stands there twice.
#
# cmake -DTEXTS=texts.tsv -DHEADER=text_numbers.h -P text_numbers.cmake
cmake_minimum_required(VERSION 3.25)

file(READ ${TEXTS} rows)
string(REGEX MATCHALL "\n[0-9]+\t[^\t\n]*" rows "\n${rows}")
foreach(row IN LISTS rows)
  if(NOT row MATCHES "^\n([0-9]+)\t(([A-Z][a-z]+)+)$")
    message(FATAL_ERROR "${TEXTS}: number, tab and a name like EventLogCaption expected:${row}")
  endif()
  set(number ${CMAKE_MATCH_1})
  set(name ${CMAKE_MATCH_2})
  if(name IN_LIST names)
    message(FATAL_ERROR "${TEXTS}: the name ${name} of text ${number} is another's already")
  endif()
  list(APPEND names ${name})
  string(APPEND constants "inline constexpr std::size_t k${name} = ${number};\n")
endforeach()

# The file is left alone when nothing has changed, so that a new wording compiles nothing again.
file(
  CONFIGURE
  OUTPUT ${HEADER}
  CONTENT
    "// Made by the build from assets/language/texts.tsv.
#pragma once

#include <cstddef>

/// The numbers of the texts in the table of languages.
namespace varek::texts {

@constants@
}  // namespace varek::texts
"
  @ONLY)
