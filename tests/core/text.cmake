# The value rules that need no property.
lv_add_test(core_text_tests ONE_THREAD
  SOURCES DataTypesTests.cpp NumberRulesTest.cpp TransliterateTest.cpp
  LIBS prpcore)
