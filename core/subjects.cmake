# What a property has beside its value and flags, each subject in a file of its own, and the rules objects.
set(PRPCORE_SUBJECT_SOURCES
  HelpTable.cpp
  PropertyNameText.cpp
  prpHelpInfo.cpp
  prpPropertyEnums.cpp
  prpPropertyNames.cpp
  prpPropertyRules.cpp
  prpPropertyScanPath.cpp
  prpPropertyTolerance.cpp
  prpTolerance.cpp
  prpToleranceText.cpp
  prpVisibilityInfo.cpp)
