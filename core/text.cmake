# The value rules of the core that need nothing but text and numbers.
set(PRPCORE_TEXT_SOURCES
  NumberRules.cpp
  Transliterate.cpp)
