# Makes everything that is compiled from strings.txt:
#   LV_resResources_<language>.rc  one language library each, with every string of the table
#   OwnStrings.rc                  the server's own string table, to be included by its resource script
#   OwnStrings.cpp                 the same table for a build without resources (frame/StringTable.h)
# Run as: cmake -D TABLE=strings.txt -D OUT=folder -D VERSION=1.85.0.21 -D VERSION_TEXT=1.85.0.021 -P MakeStrings.cmake
# A table with a gap or with placeholders that differ between languages stops the build here.
cmake_minimum_required(VERSION 3.25)

set(languages EN DE FR IT ES JP KO TC SC CZ)
string(REPLACE "." "," version_numbers "${VERSION}")

# The conversions of a text in order, as one word: "%s%d".
function(placeholders_of text result)
  string(REPLACE "%%" "" text "${text}")
  string(REGEX MATCHALL "%[0-9]*[a-zA-Z]" found "${text}")
  string(REPLACE ";" "" found "${found}")
  set(${result} "${found}" PARENT_SCOPE)
endfunction()

function(close_block)
  if(NOT id)
    return()
  endif()
  placeholders_of("${text_EN}" wanted)
  foreach(language IN LISTS languages)
    if("${text_${language}}" STREQUAL "")
      message(FATAL_ERROR "${TABLE}: string ${id} has no text in ${language}")
    endif()
    placeholders_of("${text_${language}}" found)
    if(NOT "${found}" STREQUAL "${wanted}")
      message(FATAL_ERROR "${TABLE}: string ${id} has the placeholders '${found}' in ${language}, '${wanted}' in EN")
    endif()
    string(REPLACE "\"" "\"\"" escaped "${text_${language}}")
    string(APPEND rows_${language} "    ${id} \"${escaped}\"\n")
    set(rows_${language} "${rows_${language}}" PARENT_SCOPE)
    set(text_${language} "" PARENT_SCOPE)
  endforeach()

  # 7006 to 7011 are the language library's alone.
  if(NOT (id GREATER_EQUAL 7000 AND id LESS 8000))
    string(REPLACE "\"" "\"\"" escaped "${text_EN}")
    set(own_rows "${own_rows}    ${id} \"${escaped}\"\n" PARENT_SCOPE)
    string(REPLACE "\"" "\\\"" escaped "${text_EN}")
    set(own_entries "${own_entries}    {${id}, OLESTR(\"${escaped}\")},\n" PARENT_SCOPE)
  endif()
endfunction()

# Line by line: a CMake list would split the texts at semicolons and brackets.
file(READ "${TABLE}" rest)
set(line_number 0)
while(NOT rest STREQUAL "")
  string(FIND "${rest}" "\n" end)
  if(end EQUAL -1)
    message(FATAL_ERROR "${TABLE}: the last line has no end")
  endif()
  string(SUBSTRING "${rest}" 0 ${end} line)
  math(EXPR end "${end} + 1")
  string(SUBSTRING "${rest}" ${end} -1 rest)
  math(EXPR line_number "${line_number} + 1")

  if(line STREQUAL "" OR line MATCHES "^#" OR line MATCHES "^note: ")
    continue()
  elseif(line MATCHES "^\\[([0-9]+)\\]$")
    set(next_id ${CMAKE_MATCH_1})
    close_block()
    set(id ${next_id})
  elseif(id AND line MATCHES "^(EN|DE|FR|IT|ES|JP|KO|TC|SC|CZ): (.+)$")
    set(text_${CMAKE_MATCH_1} "${CMAKE_MATCH_2}")
  else()
    message(FATAL_ERROR "${TABLE}:${line_number}: neither an id, a note nor a text: ${line}")
  endif()
endwhile()
close_block()

foreach(language IN LISTS languages)
  file(WRITE "${OUT}/LV_resResources_${language}.rc" "// Made from strings.txt.
#pragma code_page(65001)
#include <winresrc.h>

// Neutral, so that the strings are found whatever language the thread prefers: the file is the choice.
LANGUAGE LANG_NEUTRAL, SUBLANG_NEUTRAL
STRINGTABLE
BEGIN
${rows_${language}}END

VS_VERSION_INFO VERSIONINFO
FILEVERSION ${version_numbers}
PRODUCTVERSION ${version_numbers}
FILEOS VOS_NT_WINDOWS32
FILETYPE VFT_DLL
BEGIN
    BLOCK \"StringFileInfo\"
    BEGIN
        BLOCK \"000004b0\"
        BEGIN
            VALUE \"FileDescription\", \"Lumevor texts, ${language}\"
            VALUE \"FileVersion\", \"${VERSION_TEXT}\"
            VALUE \"OriginalFilename\", \"LV_resResources_${language}.dll\"
            VALUE \"ProductName\", \"Lumevor\"
            VALUE \"ProductVersion\", \"${VERSION_TEXT}\"
        END
    END
    BLOCK \"VarFileInfo\"
    BEGIN
        VALUE \"Translation\", 0x0000, 0x04b0
    END
END
")
endforeach()

file(WRITE "${OUT}/OwnStrings.rc" "// Made from strings.txt.
LANGUAGE LANG_NEUTRAL, SUBLANG_NEUTRAL
STRINGTABLE
BEGIN
${own_rows}END
")

file(WRITE "${OUT}/OwnStrings.cpp" "// Made from strings.txt.
#include \"frame/StringTable.h\"

const StringRow kOwnStrings[] = {
${own_entries}};

const std::size_t kOwnStringCount = sizeof kOwnStrings / sizeof kOwnStrings[0];
")
