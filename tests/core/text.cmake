# The value rules that need no property.
if(TARGET prpcore)
  lv_add_test(core_text_tests
    SOURCES NumberRulesTest.cpp TransliterateTest.cpp
    LIBS prpcore)
endif()
