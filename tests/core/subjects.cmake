# What a property has beside its value and flags: text and tables without a property, and the same through COM.
if(TARGET prpcore)
  lv_add_test(subject_tests ONE_THREAD
    SOURCES HelpTableTests.cpp PropertyNameTextTests.cpp SavedRecordTests.cpp ToleranceTests.cpp ValueFormTests.cpp
    LIBS prpcore)
endif()

set(PRPCORE_MODEL_TESTS_SUBJECTS
  HelpInfoTests.cpp
  PropertyEnumsTests.cpp
  PropertyNamesTests.cpp
  PropertyPositionTests.cpp
  PropertyScanPathTests.cpp
  PropertyToleranceTests.cpp
  VisibilityRuleTests.cpp)

# Modules with strings, for names and help texts in resources.
set(support ${CMAKE_CURRENT_SOURCE_DIR}/../support)
if(WIN32)
  list(APPEND PRPCORE_MODEL_TESTS_SUBJECTS ${support}/windows/TestStrings.cpp ${support}/windows/TestStrings.rc)
else()
  list(APPEND PRPCORE_MODEL_TESTS_SUBJECTS ${support}/native/TestStrings.cpp)
endif()
